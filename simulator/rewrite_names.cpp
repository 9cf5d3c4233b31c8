// Rewritings of single names and expressions: quoted texts, remote databases, links, casts,
// index_col, names that are keywords of SQLite.
#include "simulator/rewriting.h"

namespace catalogsim {
namespace {

using Kind = Token::Kind;

// The content of a quoted token, with another quote around it.
std::string Requote(const std::string& quoted, char quote) {
  const char old_quote = quoted.front();
  std::string content(1, quote);
  for (std::size_t i = 1; i + 1 < quoted.size(); ++i) {
    if (quoted[i] == old_quote && quoted[i + 1] == old_quote) ++i;
    if (quoted[i] == quote) content.push_back(quote);
    content.push_back(quoted[i]);
  }
  content.push_back(quote);
  return content;
}

bool HasKinds(const Tokens& tokens, std::size_t at, std::initializer_list<Kind> kinds) {
  if (at + kinds.size() > tokens.size()) return false;
  for (const Kind kind : kinds)
    if (tokens[at++].kind != kind) return false;
  return true;
}

// Index of the parenthesis that closes the one at `open`; the size of `tokens` when there is none.
std::size_t FindClosing(const Tokens& tokens, std::size_t open) {
  int depth = 0;
  for (std::size_t i = open; i < tokens.size(); ++i) {
    if (IsSymbol(tokens[i], "(")) ++depth;
    if (IsSymbol(tokens[i], ")") && --depth == 0) return i;
  }
  return tokens.size();
}

// Index of the first token of the operand that `tokens` end with: a literal, a name with its
// qualifiers, or a parenthesis with the name of its function.
std::size_t BeginOfOperand(const Tokens& tokens) {
  std::size_t begin = tokens.size() - 1;
  if (IsSymbol(tokens[begin], ")")) {
    int depth = 0;
    do {
      if (IsSymbol(tokens[begin], ")")) ++depth;
      if (IsSymbol(tokens[begin], "(")) --depth;
    } while (depth > 0 && begin-- > 0);
    if (begin > 0 && tokens[begin - 1].kind == Kind::kWord) --begin;
  }
  while (begin >= 2 && tokens[begin].kind == Kind::kWord && IsSymbol(tokens[begin - 1], ".") &&
         tokens[begin - 2].kind == Kind::kWord)
    begin -= 2;
  return begin;
}

std::string JoinRange(const Tokens& tokens, std::size_t begin, std::size_t end) {
  std::string sql;
  for (std::size_t i = begin; i < end; ++i) sql += tokens[i].text;
  return sql;
}

}  // namespace

void RewriteDoubleQuotedTexts(Tokens& tokens) {
  for (Token& token : tokens) {
    if (token.kind != Kind::kQuoted || token.text.size() < 2) continue;
    token.text = Requote(token.text, '\'');
    token.kind = Kind::kText;
  }
}

void RewriteDatabasePrefixes(Tokens& tokens) {
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    std::size_t colon = i + 1;
    if (HasKinds(tokens, i, {Kind::kWord, Kind::kSymbol, Kind::kWord}) &&
        IsSymbol(tokens[i + 1], "@"))
      colon = i + 3;
    if (tokens[i].kind != Kind::kWord ||
        !HasKinds(tokens, colon, {Kind::kSymbol, Kind::kWord, Kind::kSymbol, Kind::kWord}) ||
        !IsSymbol(tokens[colon], ":") || !IsSymbol(tokens[colon + 2], "."))
      continue;
    // The owner of a remote catalog table has no part in finding it.
    const std::string schema = '"' + JoinRange(tokens, i, colon) + '"';
    tokens[i] = {Kind::kQuoted, schema};
    tokens.erase(tokens.begin() + static_cast<std::ptrdiff_t>(i + 1),
                 tokens.begin() + static_cast<std::ptrdiff_t>(colon + 2));
  }
}

void RewriteDatabaseLinks(Tokens& tokens) {
  for (std::size_t i = 0; i + 2 < tokens.size(); ++i) {
    if (!HasKinds(tokens, i, {Kind::kWord, Kind::kSymbol, Kind::kWord}) ||
        !IsSymbol(tokens[i + 1], "@"))
      continue;
    std::size_t end = i + 3;  // a link is named like a host, dots included
    while (HasKinds(tokens, end, {Kind::kSymbol, Kind::kWord}) && IsSymbol(tokens[end], "."))
      end += 2;
    const std::string link = '"' + JoinRange(tokens, i + 2, end) + '"';
    tokens[i].text = link + '.' + tokens[i].text;
    tokens.erase(tokens.begin() + static_cast<std::ptrdiff_t>(i + 1),
                 tokens.begin() + static_cast<std::ptrdiff_t>(end));
  }
}

void RewriteColonCasts(Tokens& tokens) {
  Tokens out;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const bool cast =
        IsSymbol(tokens[i], "::") && !out.empty() && HasKinds(tokens, i + 1, {Kind::kWord});
    if (!cast) {
      out.push_back(std::move(tokens[i]));
      continue;
    }
    const std::size_t begin = BeginOfOperand(out);
    const std::string operand = JoinRange(out, begin, out.size());
    out.resize(begin);
    const std::string type = tokens[++i].text;
    if (HasKinds(tokens, i + 1, {Kind::kSymbol, Kind::kNumber, Kind::kSymbol}) &&
        IsSymbol(tokens[i + 1], "(") && IsSymbol(tokens[i + 3], ")")) {
      out.push_back({Kind::kWord, "substr(" + operand + ", 1, " + tokens[i + 2].text + ")"});
      i += 3;
    } else {
      std::string cast_text = "CAST(" + operand;
      cast_text.append(" AS ").append(type).append(")");
      out.push_back({Kind::kWord, std::move(cast_text)});
    }
  }
  tokens = std::move(out);
}

void RewriteKeywordNames(Tokens& tokens) {
  for (std::size_t i = 1; i < tokens.size(); ++i) {
    const bool is_keyword = IsWord(tokens[i], "REFERENCES") || IsWord(tokens[i], "PRIMARY") ||
                            IsWord(tokens[i], "DEFAULT");
    if (!is_keyword || !IsSymbol(tokens[i - 1], ".")) continue;
    tokens[i] = {Kind::kQuoted, '"' + tokens[i].text + '"'};
  }
}

void RewriteIndexCol(Tokens& tokens) {
  for (std::size_t i = 0; i + 1 < tokens.size(); ++i) {
    if (!IsWord(tokens[i], "index_col") || !IsSymbol(tokens[i + 1], "(")) continue;
    const std::size_t close = FindClosing(tokens, i + 1);
    if (close == tokens.size()) return;
    std::vector<std::string> arguments(1);
    int depth = 0;
    for (std::size_t j = i + 2; j < close; ++j) {
      if (IsSymbol(tokens[j], "(")) ++depth;
      if (IsSymbol(tokens[j], ")")) --depth;
      if (depth == 0 && IsSymbol(tokens[j], ",")) {
        arguments.emplace_back();
      } else {
        arguments.back() += tokens[j].text;
      }
    }
    if (arguments.size() != 3) return;
    tokens[i].text = "(SELECT sim_k.column_name FROM sim_index_keys sim_k WHERE sim_k.table_name=" +
                     arguments[0] + " AND sim_k.indid=" + arguments[1] +
                     " AND sim_k.keyno=" + arguments[2] + ")";
    tokens.erase(tokens.begin() + static_cast<std::ptrdiff_t>(i + 1),
                 tokens.begin() + static_cast<std::ptrdiff_t>(close + 1));
  }
}

}  // namespace catalogsim
