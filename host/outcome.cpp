// How a run of the program ends.
#include "host/outcome.h"

#include <fmt/format.h>

namespace wbhost {
namespace {

struct Meaning {
  int code;
  const char* text;
};
constexpr Meaning kMeanings[] = {
    {0, "the import returned true, and no database error was shown"},
    {1, "the import returned false"},
    {2, "wrong usage, a name that matches nothing, a bad request file or workbook file"},
    {3, "database errors were shown on the way"},
    {4, "cancelled (second interrupt, SIGTERM); what was read is written"},
    {5, "no connection, no driver, the connection lost, the module did not start"},
    {6, "the output could not be written"},
    {9, "stopped (first interrupt); what was read is written"},
    {10, "diff or compare-readings found differences, lint broken rules"},
    {kEndedAtOnce,
     "ended at once (third interrupt, or any before there is a connection); nothing is written"},
};

}  // namespace

std::string ExitCodeHelp() {
  std::string text = "Exit codes:\n";
  for (const Meaning& meaning : kMeanings)
    text += fmt::format("  {:<4} {}\n", meaning.code, meaning.text);
  text.pop_back();
  return text;
}

void Outcome::Add(ExitCode code, const std::string& what, const std::string& where) {
  if (code != ExitCode::kOk) reasons_.try_emplace(code, Reason{what, where});
}

ExitCode Outcome::Code() const {
  for (const ExitCode code : {ExitCode::kConnection, ExitCode::kOutput, ExitCode::kUsage,
                              ExitCode::kCancelled, ExitCode::kStopped, ExitCode::kImportFalse,
                              ExitCode::kErrorsShown, ExitCode::kDifferences}) {
    if (Has(code)) return code;
  }
  return ExitCode::kOk;
}

std::string Outcome::Line() const {
  const auto reason = reasons_.find(Code());
  if (reason == reasons_.end() || reason->second.what.empty()) return {};
  const auto& [what, where] = reason->second;
  return what + (written_.empty() ? "" : ", wrote " + written_) +
         (where.empty() ? "" : "; " + where);
}

}  // namespace wbhost
