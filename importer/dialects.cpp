// The dialects of the exact reading, handed to hosts.
#include "importer/dialects.h"

#include <memory>

#include "routes/exact/dialect_check.h"
#include "routes/exact/dialects.h"

namespace exact = odbcimport::exact;

std::vector<LcDialect> OdbcImportDialects() {
  std::vector<LcDialect> dialects;
  for (const exact::BuiltInDialect& built_in : exact::BuiltInDialects()) {
    exact::Dialect dialect;
    static_cast<void>(exact::ParseDialect(built_in.file, dialect));
    LcDialect entry{dialect.name, {}, std::string(built_in.file)};
    for (const std::string& product : dialect.products) {
      entry.product += (entry.product.empty() ? "" : ", ") + product;
    }
    dialects.push_back(std::move(entry));
  }
  return dialects;
}

std::vector<LcDialectProblem> OdbcImportCheckDialect(std::string_view file) {
  exact::Dialect dialect;
  std::vector<LcDialectProblem> problems;
  for (const exact::DialectProblem& problem : exact::ParseDialect(file, dialect)) {
    problems.push_back({problem.line, problem.text});
  }
  return problems;
}

std::vector<LcSectionCheck> OdbcImportTryDialect(std::string_view file, void* henv, void* hdbc,
                                                 std::string& why) {
  std::vector<LcSectionCheck> checks;
  const auto dialect = std::make_shared<exact::Dialect>();
  if (const auto problems = exact::ParseDialect(file, *dialect); !problems.empty()) {
    why = problems.front().text;
    return checks;
  }
  std::vector<exact::SectionCheck> sections;
  if (!exact::TryDialect(henv, hdbc, dialect, sections, why)) return checks;
  for (const exact::SectionCheck& section : sections) {
    checks.push_back({std::string(exact::NameOf(section.section->kind)), section.section->line,
                      section.problem, section.ran, section.rows});
  }
  return checks;
}
