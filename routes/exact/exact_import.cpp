#include "routes/exact/exact_import.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "base/utf.h"
#include "routes/exact/catalog.h"
#include "routes/exact/dialects.h"
#include "routes/exact/route.h"

namespace odbcimport::exact {
namespace {

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
  // Says why not of the first one that does not fit.
  const auto fits = [&](const std::shared_ptr<const Dialect>& dialect) {
    auto found = std::make_shared<Server>();
    std::string answer;
    if (AskServer(henv, hdbc, dialect, *found, answer)) {
      server.finding = std::move(found);
      why.clear();
      return true;
    }
    if (why.empty()) why = WhyNot(*dialect, product, answer);
    return false;
  };
  if (!choices.dialect.empty()) {
    const auto own = std::make_shared<Dialect>();
    if (const auto problems = ParseDialect(choices.dialect, *own); !problems.empty()) {
      why = "the dialect file, line " + std::to_string(problems.front().line) + ": " +
            problems.front().text;
      return {};
    }
    return fits(own) ? own->name : std::string();
  }
  for (const BuiltInDialect* built_in : FindBuiltInDialects(product)) {
    const std::shared_ptr<const Dialect> dialect = Parsed(*built_in);
    if (fits(dialect)) return dialect->name;
  }
  return {};
}

bool ImportExactItems(ImportSession& session, unsigned short& status) {
  const auto* server = dynamic_cast<const Server*>(session.server().finding.get());
  if (session.sink.workbook() == nullptr || server == nullptr) return false;
  return ReadExactly(session, *server, status);
}

}  // namespace odbcimport::exact
