#include "routes/exact/exact_import.h"

#include <memory>

#include "base/utf.h"
#include "routes/exact/catalog.h"
#include "routes/exact/dialects.h"
#include "routes/exact/route.h"

namespace odbcimport::exact {
namespace {

std::shared_ptr<const Dialect> FindDialect(const LcImportChoices& choices,
                                           const std::u16string& dbms_name, std::string& why) {
  if (!choices.dialect.empty()) {
    auto dialect = std::make_shared<Dialect>();
    const std::vector<DialectProblem> problems = ParseDialect(choices.dialect, *dialect);
    if (problems.empty()) return dialect;
    why = "the dialect file, line " + std::to_string(problems.front().line) + ": " +
          problems.front().text;
    return nullptr;
  }
  const std::string product = base::ToUtf8(dbms_name);
  std::shared_ptr<const Dialect> dialect = FindBuiltInDialect(product);
  if (dialect == nullptr) {
    why = product.empty() ? "the driver does not name the server"
                          : "there is no dialect for " + product;
  }
  return dialect;
}

}  // namespace

std::string FindDialectFor(void* henv, void* hdbc, const LcImportChoices& choices,
                           ServerFacts& server, std::string& why) {
  server.finding = nullptr;
  const std::shared_ptr<const Dialect> dialect = FindDialect(choices, server.dbms_name, why);
  if (dialect == nullptr) return {};
  auto answer = std::make_shared<Server>();
  if (!AskServer(henv, hdbc, dialect, *answer, why)) {
    why = "the dialect " + dialect->name + " does not fit, " + why;
    return {};
  }
  server.finding = std::move(answer);
  return dialect->name;
}

bool ImportExactItems(ImportSession& session, unsigned short& status) {
  const auto* server = dynamic_cast<const Server*>(session.server().finding.get());
  if (session.sink.workbook() == nullptr || server == nullptr) return false;
  return ReadExactly(session, *server, status);
}

}  // namespace odbcimport::exact
