// Cuts SQL into tokens and joins them again. Every character of the text ends up in a token.
#include "base/letters.h"
#include "simulator/rewriting.h"
#include "simulator/server_traits.h"
#include "simulator/text.h"

namespace catalogsim {
namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
using base::IsDigit;
bool IsWordCharacter(char c) {
  return base::IsLetterOrDigit(c) || c == '_' || c == '$' || c == '#' ||
         (static_cast<unsigned char>(c) & 0x80) != 0;
}

template <class Belongs>
std::size_t EndOfRun(std::string_view sql, std::size_t position, Belongs belongs) {
  while (position < sql.size() && belongs(sql[position])) ++position;
  return position;
}

// Behind the closing quote, or the end of the text where there is none. A doubled quote is content.
std::size_t EndOfQuoted(std::string_view sql, std::size_t position) {
  const char quote = sql[position++];
  while (position < sql.size()) {
    if (sql[position++] != quote) continue;
    if (position == sql.size() || sql[position] != quote) break;
    ++position;
  }
  return position;
}

}  // namespace

Tokens Tokenize(std::string_view sql) {
  Tokens tokens;
  for (std::size_t begin = 0; begin < sql.size();) {
    const char c = sql[begin];
    Token::Kind kind = Token::Kind::kSymbol;
    std::size_t end = begin + 1;
    if (IsBlank(c)) {
      kind = Token::Kind::kBlank, end = EndOfRun(sql, begin, IsBlank);
    } else if (IsDigit(c)) {
      kind = Token::Kind::kNumber;
      end = EndOfRun(sql, begin, [](char d) { return IsWordCharacter(d) || d == '.'; });
    } else if (IsWordCharacter(c)) {
      kind = Token::Kind::kWord, end = EndOfRun(sql, begin, IsWordCharacter);
    } else if (c == '\'' || c == '"') {
      kind = c == '"' ? Token::Kind::kQuoted : Token::Kind::kText;
      end = EndOfQuoted(sql, begin);
    } else if (sql.substr(begin, 2) == "::") {
      end = begin + 2;
    }
    tokens.push_back({kind, std::string(sql.substr(begin, end - begin))});
    begin = end;
  }
  return tokens;
}

std::string Join(const Tokens& tokens) {
  std::string sql;
  for (const Token& token : tokens) sql += token.text;
  return sql;
}

bool IsWord(const Token& token, std::string_view word) {
  return token.kind == Token::Kind::kWord && EqualIgnoringCase(token.text, word);
}

bool IsSymbol(const Token& token, std::string_view symbol) {
  return token.kind == Token::Kind::kSymbol && token.text == symbol;
}

std::string RewriteForSqlite(std::string_view sql, std::uint32_t dialect) {
  Tokens tokens = Tokenize(sql);
  if ((dialect & kNoBareNull) != 0) RefuseBareNulls(tokens);
  if ((dialect & kLongColumns) != 0) RefuseLongExpressions(tokens);
  if ((dialect & kDoubleQuotedTexts) != 0) RewriteDoubleQuotedTexts(tokens);
  if ((dialect & kDatabasePrefix) != 0) RewriteDatabasePrefixes(tokens);
  if ((dialect & kDatabaseLinks) != 0) RewriteDatabaseLinks(tokens);
  if ((dialect & kColonCasts) != 0) RewriteColonCasts(tokens);
  if ((dialect & kIndexCol) != 0) RewriteIndexCol(tokens);
  if ((dialect & kKeywordNames) != 0) RewriteKeywordNames(tokens);
  if ((dialect & kOuterKeyword) != 0) RewriteOuterJoins(tokens);
  return RewriteOrChains(tokens);
}

}  // namespace catalogsim
