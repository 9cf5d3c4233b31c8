// The files that a run writes beside its output.
#include "host/reports.h"

#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "host/text.h"

namespace wbhost {
namespace {

std::string JsonString(const std::string& text) {
  return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

}  // namespace

ReportFile::ReportFile(const std::optional<std::string>& file, const Secrets& secrets)
    : name_(file.value_or("")), secrets_(secrets) {}

void ReportFile::Open() {
  if (!name_.empty() && !out_) out_.emplace(name_, std::ios::binary | std::ios::trunc);
}

void ReportFile::WriteLine(const std::string& line) {
  if (out_) *out_ << line << '\n' << std::flush;
}

void ReportFile::WriteScrubbed(const std::string& line) { WriteLine(secrets_.Scrub(line)); }

void ReportFile::WriteJsonString(const std::string& text) {
  WriteLine(JsonString(secrets_.Scrub(text)));
}

Reports::Reports(const ReportOptions& options, const Secrets& secrets)
    : trace(options.trace, secrets), errors(options.errors, secrets), log(options.log, secrets) {}

void Reports::Open() {
  for (ReportFile* file : {&trace, &errors, &log}) file->Open();
}

bool Reports::Check(Screen& screen) const {
  bool good = true;
  for (const ReportFile* file : {&trace, &errors, &log}) {
    if (file->IsGood()) continue;
    screen.SayError(fmt::format("cannot write {}", file->name()));
    good = false;
  }
  return good;
}

std::string TraceLine(enumImpNotify notify, const void* record) {
  const int number = notify;
  if (record == nullptr) return fmt::format("{{\"notify\": {}}}", number);
  if (notify == inPhaseStart || notify == inLoopStart) {
    const auto* start = static_cast<const LcImpProgStartInfo*>(record);
    return fmt::format("{{\"notify\": {}, \"item\": {}, \"count\": {}}}", number,
                       static_cast<int>(start->item_type), start->count);
  }
  const auto* item = static_cast<const LcImpItemInfo*>(record);
  return fmt::format(
      "{{\"notify\": {}, \"text1\": {}, \"text2\": {}, \"text3\": {}, \"flag\": {}}}", number,
      JsonString(ToUtf8(item->text1)), JsonString(ToUtf8(item->text2)),
      JsonString(ToUtf8(item->text3)), item->flag);
}

}  // namespace wbhost
