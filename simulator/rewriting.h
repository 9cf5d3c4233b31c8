// Turns the SQL of a server into the SQL of SQLite. The list of rewritings is in
// docs/simulator.md; what is not on it goes through unchanged. A text that cannot be parsed is
// left to SQLite's own error message.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace catalogsim {

// `dialect`: bits of Dialect (server_traits.h).
[[nodiscard]] std::string RewriteForSqlite(std::string_view sql, std::uint32_t dialect);

// The parts below are one file each.

struct Token {
  enum class Kind { kBlank, kWord, kNumber, kText, kQuoted, kSymbol };
  Kind kind;
  std::string text;  // as it stands, quotes included
};
using Tokens = std::vector<Token>;

[[nodiscard]] Tokens Tokenize(std::string_view sql);
[[nodiscard]] std::string Join(const Tokens& tokens);
[[nodiscard]] bool IsWord(const Token& token,
                          std::string_view word);  // upper and lower case do not matter
[[nodiscard]] bool IsSymbol(const Token& token, std::string_view symbol);

void RewriteDoubleQuotedTexts(Tokens& tokens);
void RewriteDatabasePrefixes(Tokens& tokens);
void RewriteDatabaseLinks(Tokens& tokens);
void RewriteColonCasts(Tokens& tokens);
void RewriteIndexCol(Tokens& tokens);
void RewriteKeywordNames(Tokens& tokens);
void RewriteOuterJoins(Tokens& tokens);
void RefuseBareNulls(Tokens& tokens);
void RefuseLongExpressions(Tokens& tokens);

// SQLite walks ORs one by one, and not very many of them: a chain over a few columns becomes a
// look-up in a list of values, any other a tree.
[[nodiscard]] std::string RewriteOrChains(const Tokens& tokens);

}  // namespace catalogsim
