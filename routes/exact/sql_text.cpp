// Statements as texts.
#include "routes/exact/sql_text.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "base/letters.h"

namespace odbcimport::exact {
namespace {

// What changes data or what can be read, wherever it stands in a statement.
constexpr std::array<std::string_view, 10> kWritingWords = {
    "INSERT", "UPDATE", "DELETE", "MERGE", "INTO", "TRUNCATE", "CREATE", "DROP", "ALTER", "GRANT"};
constexpr std::array<std::string_view, 3> kReadingWords = {"SELECT", "WITH", "VALUES"};

bool IsWordCharacter(char c) {
  return base::IsLetterOrDigit(c) || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}

std::size_t EndOfQuoted(std::string_view sql, std::size_t begin, bool backslashes) {
  const char quote = sql[begin];
  std::size_t at = begin + 1;
  while (at < sql.size()) {
    if (backslashes && quote != '`' && sql[at] == '\\') {
      at += 2;
    } else if (sql[at] != quote) {
      ++at;
    } else if (at + 1 < sql.size() && sql[at + 1] == quote) {
      at += 2;
    } else {
      return at + 1;
    }
  }
  return sql.size();
}

bool BeginsSpecial(std::string_view sql, std::size_t at) {
  const char c = sql[at];
  if (c == '\'' || c == '"' || c == '`') return true;
  const char next = at + 1 < sql.size() ? sql[at + 1] : '\0';
  return (c == '-' && next == '-') || (c == '/' && next == '*');
}

// `/*! ... */` of MySQL, `/*M! ... */` of MariaDB.
bool HasExecutableComment(std::string_view sql, bool backslashes) {
  for (std::size_t at = 0; at < sql.size();) {
    const SqlSpan span = FindSpan(sql, at, backslashes);
    const std::string_view comment = sql.substr(at, span.end - at);
    if (comment.starts_with("/*!") || comment.starts_with("/*M!")) return true;
    at = span.end;
  }
  return false;
}

// `$$ ... $$` and `$name$ ... $name$` of PostgreSQL.
bool BeginsDollarQuote(std::string_view text) {
  std::size_t at = 1;
  while (at < text.size() && IsWordCharacter(text[at])) ++at;
  return text.starts_with('$') && at < text.size() && text[at] == '$';
}

// A quote or a comment that is no mark begins on the line.
bool HidesOnLine(std::string_view line) {
  if (line.find_first_of("'\"`") != std::string_view::npos) return true;
  for (std::size_t at = line.find("/*"); at != std::string_view::npos;
       at = line.find("/*", at + 2)) {
    if (!line.substr(at).starts_with("/*@")) return true;
  }
  return false;
}

// Quotes and comments that only some servers know could hide from the others' rules what is sent.
bool HasForeignQuotes(std::string_view sql) {
  for (std::size_t at = 0; at < sql.size();) {
    const SqlSpan span = FindSpan(sql, at);
    for (; span.part == SqlPart::kText && at < span.end; ++at) {
      if (sql[at] == '$' && BeginsDollarQuote(sql.substr(at))) return true;
      // The rest of the line is a comment to MySQL.
      if (sql[at] == '#' && HidesOnLine(sql.substr(at, sql.find('\n', at) - at))) return true;
    }
    at = span.end;
  }
  return false;
}

bool IsSpelled(std::string_view word, std::string_view upper) {
  return word.size() == upper.size() &&
         std::equal(word.begin(), word.end(), upper.begin(),
                    [](char c, char wanted) { return base::UpperAscii(c) == wanted; });
}

// Hands over the words outside quotes and comments, as they are written, until `take` wants no
// more.
template <class Take>
void ForEachWord(std::string_view sql, bool backslashes, Take take) {
  for (std::size_t at = 0; at < sql.size();) {
    const SqlSpan span = FindSpan(sql, at, backslashes);
    while (span.part == SqlPart::kText && at < span.end) {
      const std::size_t begin = at;
      while (at < span.end && IsWordCharacter(sql[at])) ++at;
      if (at > begin && !take(sql.substr(begin, at - begin))) return;
      while (at < span.end && !IsWordCharacter(sql[at])) ++at;
    }
    at = span.end;
  }
}

// What a statement that reads has nowhere, taken apart one way or the other.
std::string WhyNotPlain(std::string_view sql, bool shows, bool backslashes) {
  std::string_view written;
  ForEachWord(sql, backslashes, [&](std::string_view word) {
    for (const std::string_view writing : kWritingWords) {
      if (IsSpelled(word, writing)) written = writing;
    }
    return written.empty();
  });
  if (!shows && !written.empty()) {
    return "a statement only reads; outside quotes it has no " + std::string(written);
  }
  if (HasExecutableComment(sql, backslashes)) {
    return "a comment that the server executes hides what is read";
  }
  if (FindStatementEnd(sql, 0, backslashes) != sql.size()) {
    return "there is more than one statement";
  }
  return {};
}

}  // namespace

SqlSpan FindSpan(std::string_view sql, std::size_t begin, bool backslashes) {
  if (begin >= sql.size()) return {SqlPart::kText, sql.size()};
  if (!BeginsSpecial(sql, begin)) {
    std::size_t at = begin;
    while (at < sql.size() && !BeginsSpecial(sql, at)) ++at;
    return {SqlPart::kText, at};
  }
  if (sql[begin] == '-') {
    const std::size_t end = sql.find('\n', begin);
    return {SqlPart::kLineComment, end == std::string_view::npos ? sql.size() : end + 1};
  }
  if (sql[begin] == '/') {
    const std::size_t end = sql.find("*/", begin + 2);
    return {SqlPart::kBlockComment, end == std::string_view::npos ? sql.size() : end + 2};
  }
  return {SqlPart::kQuoted, std::min(EndOfQuoted(sql, begin, backslashes), sql.size())};
}

std::vector<std::string> WordsOf(std::string_view sql, bool backslashes) {
  std::vector<std::string> words;
  ForEachWord(sql, backslashes, [&](std::string_view word) {
    std::transform(word.begin(), word.end(), std::back_inserter(words.emplace_back()),
                   base::UpperAscii<char>);
    return true;
  });
  return words;
}

std::size_t FindStatementEnd(std::string_view sql, std::size_t begin, bool backslashes) {
  for (std::size_t at = begin; at < sql.size();) {
    const SqlSpan span = FindSpan(sql, at, backslashes);
    if (span.part == SqlPart::kText) {
      const std::size_t semicolon = sql.substr(at, span.end - at).find(';');
      if (semicolon != std::string_view::npos) return at + semicolon;
    }
    at = span.end;
  }
  return sql.size();
}

std::string WhyNotReading(std::string_view sql, const std::vector<std::string>& first_words) {
  std::string first;
  ForEachWord(sql, false, [&](std::string_view word) {
    std::transform(word.begin(), word.end(), std::back_inserter(first), base::UpperAscii<char>);
    return false;
  });
  if (first.empty()) return "there is no statement";
  // SHOW CREATE TABLE and the like are the dialect's own affair.
  const bool shows = std::find(first_words.begin(), first_words.end(), first) != first_words.end();
  if (!shows &&
      std::find(kReadingWords.begin(), kReadingWords.end(), first) == kReadingWords.end()) {
    return "a statement begins with SELECT, WITH or VALUES, or as the head allows, not with " +
           first;
  }
  if (HasForeignQuotes(sql)) return "quotes are '', \"\" and ``, comments -- and /* */";
  // Whether a backslash takes a quote out of its meaning is the server's affair.
  std::string why = WhyNotPlain(sql, shows, false);
  if (!why.empty() || sql.find('\\') == std::string_view::npos) return why;
  return WhyNotPlain(sql, shows, true);
}

}  // namespace odbcimport::exact
