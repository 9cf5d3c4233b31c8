#include "routes/exact/exact_import.h"

#include <memory>
#include <utility>
#include <vector>

#include "base/utf.h"
#include "routes/exact/catalog.h"
#include "routes/exact/dialects.h"
#include "routes/exact/route.h"

namespace odbcimport::exact {
namespace {

using Candidates = std::vector<std::shared_ptr<const Dialect>>;

// Those that may fit, the best first; none, with the reason, where there are none.
Candidates FindCandidates(const LcImportChoices& choices, const std::string& product,
                          std::string& why) {
  if (choices.dialect.empty()) return FindBuiltInDialects(product);
  auto dialect = std::make_shared<Dialect>();
  const std::vector<DialectProblem> problems = ParseDialect(choices.dialect, *dialect);
  if (problems.empty()) return {std::move(dialect)};
  why = "the dialect file, line " + std::to_string(problems.front().line) + ": " +
        problems.front().text;
  return {};
}

// The dialect made for the server tells best why it does not fit.
std::string WhyNot(const Dialect& dialect, const std::string& product, const std::string& answer) {
  if (!dialect.IsForAnyProduct()) {
    return "the dialect " + dialect.name + " does not fit, " + answer;
  }
  const std::string none = product.empty() ? std::string("the driver does not name the server")
                                           : "there is no dialect for " + product;
  return none + ", and " + dialect.name + " does not fit, " + answer;
}

}  // namespace

std::string FindDialectFor(void* henv, void* hdbc, const LcImportChoices& choices,
                           ServerFacts& server, std::string& why) {
  server.finding = nullptr;
  why.clear();
  const std::string product = base::ToUtf8(server.dbms_name);
  for (const auto& dialect : FindCandidates(choices, product, why)) {
    auto found = std::make_shared<Server>();
    std::string answer;
    if (AskServer(henv, hdbc, dialect, *found, answer)) {
      server.finding = std::move(found);
      why.clear();
      return dialect->name;
    }
    if (why.empty()) why = WhyNot(*dialect, product, answer);
  }
  return {};
}

bool ImportExactItems(ImportSession& session, unsigned short& status) {
  const auto* server = dynamic_cast<const Server*>(session.server().finding.get());
  if (session.sink.workbook() == nullptr || server == nullptr) return false;
  return ReadExactly(session, *server, status);
}

}  // namespace odbcimport::exact
