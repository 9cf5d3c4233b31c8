// Chains of ORs in parentheses. SQLite builds a tree as deep as the chain is long, refuses more
// than 1,000, and tries the terms of a chain one after the other for every row: a selection of
// 10,000 tables would be neither possible nor quick.
#include <algorithm>
#include <map>

#include "simulator/rewriting.h"
#include "simulator/text.h"

namespace catalogsim {
namespace {

using Kind = Token::Kind;

constexpr std::size_t kLongChain = 30;  // shorter ones stay as they are
constexpr std::size_t kDeepest = 900;   // SQLite refuses deeper nesting anyway

class ChainRewriter {
 public:
  explicit ChainRewriter(const Tokens& tokens) : tokens_(tokens), closing_(tokens.size(), 0) {
    std::vector<std::size_t> open;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
      if (IsSymbol(tokens[i], "(")) open.push_back(i);
      if (IsSymbol(tokens[i], ")") && !open.empty()) {
        closing_[open.back()] = i;
        open.pop_back();
      }
      deepest_ = std::max(deepest_, open.size());
    }
    balanced_ = open.empty();
  }

  std::string Rewrite() const {
    if (!balanced_ || deepest_ > kDeepest) return Join(tokens_);
    return Rewrite(0, tokens_.size());
  }

 private:
  struct Span {
    std::size_t begin;
    std::size_t end;
  };
  // column -> value pairs of `a='x' AND b='y'`.
  struct Equalities {
    std::string columns;
    std::string values;
    int count = 0;
  };

  // Copies tokens; every parenthesis on the way is looked at.
  std::string Rewrite(std::size_t begin, std::size_t end) const {
    std::string sql;
    for (std::size_t i = begin; i < end; ++i) {
      sql += tokens_[i].text;
      if (!IsSymbol(tokens_[i], "(")) continue;
      sql += RewriteContent(i + 1, closing_[i]);
      sql += ')';
      i = closing_[i];
    }
    return sql;
  }

  std::string RewriteContent(std::size_t begin, std::size_t end) const {
    const std::vector<Span> terms = Split(begin, end, "OR");
    if (terms.size() < kLongChain || IsQuery(begin, end)) return Rewrite(begin, end);
    // One list of values for each set of columns, in the order of their first appearance.
    std::vector<std::pair<std::string, std::string>> lists;
    std::map<std::string, std::size_t> list_of_columns;
    std::vector<std::string> rewritten;
    for (const Span& term : terms) {
      Equalities equalities;
      if (!ReadEqualities(term, equalities)) {
        rewritten.push_back(Rewrite(term.begin, term.end));
        continue;
      }
      const bool single = equalities.count == 1;
      const std::string row = single ? equalities.values : '(' + equalities.values + ')';
      const auto [entry, added] = list_of_columns.try_emplace(equalities.columns, lists.size());
      if (added) {
        lists.emplace_back(single ? equalities.columns + " IN (" + row
                                  : '(' + equalities.columns + ") IN (VALUES " + row,
                           ")");
      } else {
        lists[entry->second].first += ',' + row;
      }
    }
    for (const auto& [head, tail] : lists) rewritten.push_back(head + tail);
    return Balance(rewritten, 0, rewritten.size());
  }

  bool IsQuery(std::size_t begin, std::size_t end) const {
    const Span content = Strip({begin, end});
    return content.begin < content.end && IsWord(tokens_[content.begin], "SELECT");
  }

  static std::string Balance(const std::vector<std::string>& terms, std::size_t begin,
                             std::size_t end) {
    if (end - begin == 1) return terms[begin];
    const std::size_t middle = begin + (end - begin) / 2;
    return '(' + Balance(terms, begin, middle) + ") OR (" + Balance(terms, middle, end) + ')';
  }

  std::vector<Span> Split(std::size_t begin, std::size_t end, std::string_view word) const {
    std::vector<Span> parts;
    std::size_t part = begin;
    for (std::size_t i = begin; i < end; ++i) {
      if (IsSymbol(tokens_[i], "(")) i = closing_[i];
      if (!IsWord(tokens_[i], word)) continue;
      parts.push_back({part, i});
      part = i + 1;
    }
    parts.push_back({part, end});
    return parts;
  }

  // Without blanks at both ends, and without parentheses that enclose all of it.
  Span Strip(Span span) const {
    while (true) {
      while (span.begin < span.end && tokens_[span.begin].kind == Kind::kBlank) ++span.begin;
      while (span.begin < span.end && tokens_[span.end - 1].kind == Kind::kBlank) --span.end;
      if (span.begin == span.end || !IsSymbol(tokens_[span.begin], "(") ||
          closing_[span.begin] != span.end - 1)
        return span;
      ++span.begin, --span.end;
    }
  }

  bool ReadEqualities(Span term, Equalities& equalities) const {
    term = Strip(term);
    for (Span condition : Split(term.begin, term.end, "AND")) {
      condition = Strip(condition);
      std::string column;
      std::size_t i = condition.begin;
      for (; i < condition.end && !IsSymbol(tokens_[i], "="); ++i) {
        if (tokens_[i].kind == Kind::kBlank) continue;
        if (tokens_[i].kind != Kind::kWord && !IsSymbol(tokens_[i], ".")) return false;
        column += tokens_[i].text;
      }
      const Span value = Strip({std::min(i + 1, condition.end), condition.end});
      if (column.empty() || value.end - value.begin != 1) return false;
      const Kind kind = tokens_[value.begin].kind;
      if (kind != Kind::kText && kind != Kind::kNumber) return false;
      const std::string_view comma = equalities.count++ == 0 ? "" : ",";
      equalities.columns.append(comma).append(column);
      equalities.values.append(comma).append(tokens_[value.begin].text);
    }
    return true;
  }

  const Tokens& tokens_;
  std::vector<std::size_t> closing_;  // by index of an opening parenthesis
  std::size_t deepest_ = 0;
  bool balanced_ = true;
};

}  // namespace

std::string RewriteOrChains(const Tokens& tokens) { return ChainRewriter(tokens).Rewrite(); }

}  // namespace catalogsim
