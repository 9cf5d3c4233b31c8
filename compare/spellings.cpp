#include "compare/spellings.h"

#include <array>

#include "base/ascii.h"

namespace wbcompare {

namespace {

using P = Property;

constexpr std::array kTexts = {P::kText};
constexpr std::array kExpressions = {P::kExpression, P::kPredicate, P::kDefault, P::kColumns,
                                     P::kChecks};
constexpr std::array kDefaults = {P::kDefault};
constexpr std::array kDataTypes = {P::kDataType, P::kAttributes, P::kResult, P::kParameters};
constexpr std::array kCharacterSets = {P::kCollation, P::kOption, P::kDataType};
constexpr std::array kActions = {P::kOnUpdate, P::kOnDelete};
constexpr std::array kMatches = {P::kMatch};

void ReplaceAll(std::string& text, std::string_view from, std::string_view to) {
  for (std::size_t at = text.find(from); at != std::string::npos;
       at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
}

// Line ends, blanks at the ends of lines, and what stands behind the text.
Fact WithoutLineEnds(const Fact& fact) {
  if (!fact) return fact;
  std::string plain;
  for (const char c : *fact) {
    if (c == '\r') continue;
    if (c == '\n') plain.erase(plain.find_last_not_of(" \t") + 1);
    plain += c;
  }
  plain.erase(plain.find_last_not_of(" \t\n;") + 1);
  return plain;
}

// One blank for any white space outside of quotes.
Fact WithoutLayout(const Fact& fact) {
  if (!fact) return fact;
  std::string plain;
  char quote = '\0';
  for (const char c : *fact) {
    const bool white = quote == '\0' && (c == ' ' || c == '\t' || c == '\n' || c == '\r');
    if (white) {
      if (!plain.empty() && plain.back() != ' ') plain += ' ';
      continue;
    }
    if (quote == '\0' && (c == '\'' || c == '"' || c == '`')) {
      quote = c;
    } else if (c == quote) {
      quote = '\0';
    }
    plain += c;
  }
  plain.erase(plain.find_last_not_of(" ;") + 1);
  return plain;
}

Fact WithActions(const Fact& fact) { return fact ? fact : Fact("no action"); }
Fact WithMatch(const Fact& fact) { return fact ? fact : Fact("simple"); }

Fact WithoutRestrict(const Fact& fact) { return fact == "restrict" ? Fact("no action") : fact; }

Fact WithoutDisplayWidth(const Fact& fact) {
  if (!fact) return fact;
  for (const char* name : {"tinyint(", "smallint(", "mediumint(", "int(", "bigint("}) {
    if (!fact->starts_with(name)) continue;
    const std::size_t close = fact->find(')');
    // The width of a boolean is still shown, and that of a column filled up with zeros counts.
    if (close == std::string::npos || fact->starts_with("tinyint(1)") ||
        fact->find("zerofill") != std::string::npos) {
      return fact;
    }
    return fact->substr(0, std::string_view(name).size() - 1) + fact->substr(close + 1);
  }
  return fact;
}

Fact WithUtf8mb3(const Fact& fact) {
  if (!fact) return fact;
  std::string plain = *fact;
  ReplaceAll(plain, "utf8mb3", "utf8");
  return plain;
}

Fact WithoutQuotesOfDefault(const Fact& fact) {
  if (!fact || base::LowerAscii(*fact) == "null") return std::nullopt;
  const std::string& text = *fact;
  if (text.size() < 2 || text.front() != '\'' || text.back() != '\'') return fact;
  std::string plain = text.substr(1, text.size() - 2);
  ReplaceAll(plain, "''", "'");
  return plain;
}

Fact WithCurrentTimestamp(const Fact& fact) {
  if (!fact) return fact;
  std::string plain = base::LowerAscii(*fact);
  ReplaceAll(plain, "current_timestamp()", "current_timestamp");
  return plain.starts_with("current_timestamp") ? plain : fact;
}

Fact WithCurrentDate(const Fact& fact) {
  if (!fact) return fact;
  std::string plain = *fact;
  ReplaceAll(plain, "('now'::text)::date", "CURRENT_DATE");
  ReplaceAll(plain, "('now'::text)::time with time zone", "CURRENT_TIME");
  ReplaceAll(plain, "('now'::text)::timestamp without time zone", "LOCALTIMESTAMP");
  ReplaceAll(plain, "\"current_user\"()", "CURRENT_USER");
  ReplaceAll(plain, "\"session_user\"()", "SESSION_USER");
  return plain;
}

Fact WithExecuteFunction(const Fact& fact) {
  if (!fact) return fact;
  std::string plain = *fact;
  ReplaceAll(plain, "EXECUTE PROCEDURE ", "EXECUTE FUNCTION ");
  return plain;
}

Fact WithoutParentheses(const Fact& fact) {
  if (!fact) return fact;
  std::string plain = *fact;
  while (plain.size() >= 2 && plain.front() == '(' && plain.back() == ')') {
    int depth = 0;
    std::size_t at = 0;
    for (; at < plain.size(); ++at) {
      depth += plain[at] == '(' ? 1 : plain[at] == ')' ? -1 : 0;
      if (depth == 0) break;
    }
    if (at + 1 != plain.size()) break;
    plain = plain.substr(1, plain.size() - 2);
  }
  return plain;
}

Fact Trimmed(const Fact& fact) {
  if (!fact) return fact;
  const std::size_t first = fact->find_first_not_of(" \t\r\n");
  if (first == std::string::npos) return std::nullopt;
  return fact->substr(first, fact->find_last_not_of(" \t\r\n") + 1 - first);
}

constexpr std::array kSpellings = {
    Spelling{
        Product::kOther, kTexts, WithoutLineEnds,
        "line ends and blanks at the ends of lines are those of the client that sent the text"},
    Spelling{
        Product::kOther, kActions, WithActions,
        "no action is what a foreign key without an action has, and some versions leave it out"},
    Spelling{Product::kOther, kMatches, WithMatch,
             "simple is what a foreign key without MATCH has, and some versions leave it out"},
    Spelling{Product::kPostgreSQL, kExpressions, WithoutLayout,
             "expressions are laid out anew by each version"},
    Spelling{Product::kPostgreSQL, kTexts, WithoutLayout, "views are laid out anew by each version",
             true},
    Spelling{Product::kMySQL, kExpressions, WithoutLayout,
             "expressions are laid out anew by each version"},
    Spelling{Product::kMySQL, kTexts, WithoutLayout, "views are laid out anew by each version",
             true},
    Spelling{Product::kMySQL, kActions, WithoutRestrict,
             "RESTRICT and NO ACTION are one action; MariaDB tells the one, MySQL 8 the other"},
    Spelling{Product::kMySQL, kDataTypes, WithoutDisplayWidth,
             "MySQL 8.0.19 and later leave out the display width of integers"},
    Spelling{Product::kMySQL, kCharacterSets, WithUtf8mb3,
             "utf8 is called utf8mb3 since MariaDB 10.6 and MySQL 8.0.28"},
    Spelling{Product::kMySQL, kDefaults, WithoutQuotesOfDefault,
             "defaults are quoted, and NULL is told as one, since MariaDB 10.2.7"},
    Spelling{Product::kMySQL, kDefaults, WithCurrentTimestamp,
             "CURRENT_TIMESTAMP is told as current_timestamp() since MariaDB 10.2.3"},
    Spelling{Product::kPostgreSQL, kExpressions, WithCurrentDate,
             "CURRENT_DATE and its like were told as casts and calls before PostgreSQL 10"},
    Spelling{Product::kPostgreSQL, kTexts, WithExecuteFunction,
             "triggers EXECUTE FUNCTION since PostgreSQL 11, PROCEDURE before"},
    Spelling{Product::kSQLServer, kExpressions, WithoutParentheses,
             "SQL Server 2005 and later put parentheses round each number of a default"},
    Spelling{Product::kOracle, kDefaults, Trimmed,
             "defaults keep the blanks and line ends of the statement that set them"},
};

}  // namespace

std::span<const Spelling> AllSpellings() { return kSpellings; }

bool AreSpellingsOfOne(Product product, Object object, Property property, const Fact& a,
                       const Fact& b) {
  Fact plain_a = a;
  Fact plain_b = b;
  for (const Spelling& rule : kSpellings) {
    if (rule.product != Product::kOther && rule.product != product) continue;
    if (rule.views_only && object != Object::kView) continue;
    for (const Property of : rule.properties) {
      if (of != property) continue;
      plain_a = rule.plain(plain_a);
      plain_b = rule.plain(plain_b);
    }
  }
  return plain_a == plain_b;
}

}  // namespace wbcompare
