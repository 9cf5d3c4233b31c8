// What a server refuses and SQLite would take: a name that nothing has is put there, so that the
// statement fails and says why.
#include <algorithm>
#include <array>

#include "simulator/rewriting.h"
#include "simulator/text.h"

namespace catalogsim {
namespace {

// ALL_SOURCE.TEXT is none: the name alone does not tell that of ALL_VIEWS.
constexpr std::array<std::string_view, 5> kLongColumns = {
    "column_expression", "data_default", "query", "search_condition", "trigger_body"};

bool IsLongColumn(const Token& token) {
  return token.kind == Token::Kind::kWord &&
         std::any_of(kLongColumns.begin(), kLongColumns.end(),
                     [&token](std::string_view name) { return IsWord(token, name); });
}

// The token before or behind, blanks passed over; null: there is none.
const Token* Beside(const Tokens& tokens, std::size_t at, int step) {
  for (at += static_cast<std::size_t>(step); at < tokens.size();
       at += static_cast<std::size_t>(step)) {
    if (tokens[at].kind != Token::Kind::kBlank) return &tokens[at];
  }
  return nullptr;
}

// Whether the tokens are all of one column of a SELECT.
bool IsWholeColumn(const Tokens& tokens, std::size_t first, std::size_t last) {
  const Token* before = Beside(tokens, first, -1);
  const Token* behind = Beside(tokens, last, 1);
  return before != nullptr && behind != nullptr &&
         (IsWord(*before, "SELECT") || IsSymbol(*before, ",")) &&
         (IsWord(*behind, "FROM") || IsSymbol(*behind, ","));
}

}  // namespace

void RefuseBareNulls(Tokens& tokens) {
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (IsWord(tokens[i], "NULL") && IsWholeColumn(tokens, i, i)) {
      tokens[i].text = "\"201: NULL without a type\"";
    }
  }
}

void RefuseLongExpressions(Tokens& tokens) {
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (!IsLongColumn(tokens[i])) continue;
    const bool qualified = i >= 2 && IsSymbol(tokens[i - 1], ".");
    if (!IsWholeColumn(tokens, qualified ? i - 2 : i, i)) {
      tokens[i].text = "\"ORA-00997: illegal use of LONG datatype\"";
    }
  }
}

}  // namespace catalogsim
