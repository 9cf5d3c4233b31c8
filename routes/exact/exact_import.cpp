#include "routes/exact/exact_import.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

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
  std::vector<std::shared_ptr<const Dialect>> dialects;
  if (choices.dialect.empty()) {
    dialects = FindBuiltInDialects(product);
  } else {
    auto own = std::make_shared<Dialect>();
    if (const auto problems = ParseDialect(choices.dialect, *own); !problems.empty()) {
      why = "the dialect file, line " + std::to_string(problems.front().line) + ": " +
            problems.front().text;
      return {};
    }
    dialects.push_back(std::move(own));
  }
  for (const std::shared_ptr<const Dialect>& dialect : dialects) {
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
