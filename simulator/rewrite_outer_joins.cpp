// FROM a, OUTER b WHERE c: the old form of an outer join. Every condition that names b is a
// condition of the join, whether it names another table or not; the rest stays in the WHERE.
// The nested form, OUTER (b, c), is left alone.
#include <algorithm>

#include "simulator/rewriting.h"

namespace catalogsim {
namespace {

using Kind = Token::Kind;

// Splits [begin, end) at the tokens outside parentheses that `separates` accepts.
template <class Separates>
std::vector<Tokens> SplitAt(const Tokens& tokens, std::size_t begin, std::size_t end,
                            Separates separates) {
  std::vector<Tokens> parts(1);
  int depth = 0;
  for (std::size_t i = begin; i < end; ++i) {
    if (IsSymbol(tokens[i], "(")) ++depth;
    if (IsSymbol(tokens[i], ")")) --depth;
    if (depth == 0 && separates(tokens[i])) {
      parts.emplace_back();
    } else {
      parts.back().push_back(tokens[i]);
    }
  }
  return parts;
}

// The first index from `from` outside parentheses with one of the words; the size when there is
// none.
std::size_t FindWord(const Tokens& tokens, std::size_t from,
                     std::initializer_list<std::string_view> words) {
  int depth = 0;
  for (std::size_t i = from; i < tokens.size(); ++i) {
    if (IsSymbol(tokens[i], "(")) ++depth;
    if (IsSymbol(tokens[i], ")")) --depth;
    for (const std::string_view word : words)
      if (depth == 0 && IsWord(tokens[i], word)) return i;
  }
  return tokens.size();
}

struct OuterTable {
  std::string source;  // the table and its alias
  std::string alias;
  std::string conditions;
};

bool Names(const Tokens& condition, const std::string& alias) {
  for (std::size_t i = 0; i + 1 < condition.size(); ++i)
    if (IsWord(condition[i], alias) && IsSymbol(condition[i + 1], ".")) return true;
  return false;
}

void AppendCondition(std::string& conditions, const Tokens& condition) {
  if (!conditions.empty()) conditions += " AND";
  conditions += ' ' + Join(condition);
}

}  // namespace

void RewriteOuterJoins(Tokens& tokens) {
  const std::size_t from = FindWord(tokens, 0, {"FROM"});
  if (from == tokens.size() || FindWord(tokens, from, {"OUTER"}) == tokens.size()) return;
  const std::size_t end = FindWord(tokens, from, {"GROUP", "ORDER", "HAVING", "UNION"});
  const std::size_t where = std::min(FindWord(tokens, from, {"WHERE"}), end);

  std::string inner_tables;
  std::vector<OuterTable> outer_tables;
  const auto is_comma = [](const Token& token) { return IsSymbol(token, ","); };
  for (const Tokens& source : SplitAt(tokens, from + 1, where, is_comma)) {
    const std::size_t outer = FindWord(source, 0, {"OUTER"});
    if (outer == source.size()) {
      inner_tables += (inner_tables.empty() ? "" : ",") + Join(source);
      continue;
    }
    OuterTable table;
    for (std::size_t i = outer + 1; i < source.size(); ++i) {
      if (IsSymbol(source[i], "(")) return;
      table.source += source[i].text;
      if (source[i].kind == Kind::kWord) table.alias = source[i].text;
    }
    outer_tables.push_back(table);
  }

  std::string conditions;
  if (where < end) {
    const auto is_and = [](const Token& token) { return IsWord(token, "AND"); };
    for (const Tokens& condition : SplitAt(tokens, where + 1, end, is_and)) {
      std::string* target = &conditions;
      for (OuterTable& table : outer_tables)
        if (Names(condition, table.alias)) target = &table.conditions;
      AppendCondition(*target, condition);
    }
  }

  std::string rewritten = "FROM" + inner_tables;
  for (const OuterTable& table : outer_tables)
    rewritten +=
        " LEFT JOIN" + table.source + " ON" + (table.conditions.empty() ? " 1" : table.conditions);
  if (!conditions.empty()) rewritten += " WHERE" + conditions;
  rewritten += ' ';
  // Tokens again, since the conditions still pass through the rewriting of OR chains.
  Tokens result(tokens.begin(), tokens.begin() + static_cast<std::ptrdiff_t>(from));
  for (Token& token : Tokenize(rewritten)) result.push_back(std::move(token));
  result.insert(result.end(), tokens.begin() + static_cast<std::ptrdiff_t>(end), tokens.end());
  tokens = std::move(result);
}

}  // namespace catalogsim
