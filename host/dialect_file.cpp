#include "host/dialect_file.h"

#include <fmt/format.h>

#include "host/limits.h"
#include "host/outcome.h"
#include "host/text.h"
#include "importer/dialects.h"

namespace wbhost {

std::string ReadDialectFile(const std::string& file) {
  std::string why;
  std::optional<std::string> text = ReadWholeFile(file, kMostDialectBytes, why);
  if (!text) {
    throw Failure(ExitCode::kUsage, fmt::format("cannot read the dialect file {}: {}", file, why));
  }
  return std::move(*text);
}

void TakeDialectFile(Choices& choices) {
  if (!choices.dialect_file) return;
  choices.importer.dialect = ReadDialectFile(*choices.dialect_file);
  const std::vector<LcDialectProblem> problems = OdbcImportCheckDialect(choices.importer.dialect);
  if (problems.empty()) return;
  throw Failure(ExitCode::kUsage, fmt::format("{}:{}: {}", *choices.dialect_file,
                                              problems.front().line, problems.front().text));
}

}  // namespace wbhost
