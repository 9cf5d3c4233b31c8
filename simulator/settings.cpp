// See settings.h. A keyword is a row of the table at the end; adding one is adding a row and its
// parser.
#include "simulator/settings.h"

#include <algorithm>
#include <charconv>
#include <vector>

#include "base/connection_string.h"
#include "simulator/text.h"

namespace catalogsim {
namespace {

std::vector<std::string_view> Split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  for (std::size_t begin = 0;;) {
    const std::size_t end = text.find(separator, begin);
    parts.push_back(Trim(text.substr(begin, end - begin)));
    if (end == std::string_view::npos) return parts;
    begin = end + 1;
  }
}

template <class Number>
bool ParseNumber(std::string_view text, Number& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() && !text.empty();
}

// "3" the third, "3+" from the third on, "3-5", "*" all.
bool ParseRange(std::string_view text, Range& range) {
  if (text == "*") return true;
  if (!text.empty() && text.back() == '+')
    return ParseNumber(text.substr(0, text.size() - 1), range.first);
  const std::size_t dash = text.find('-');
  if (!ParseNumber(text.substr(0, dash), range.first)) return false;
  range.last = range.first;
  return dash == std::string_view::npos || ParseNumber(text.substr(dash + 1), range.last);
}

bool ParseState(std::string_view text, std::string& state) {
  state = Upper(text);
  return state.size() == 5;
}

// Calls `parse` with the colon-separated fields of every comma-separated entry.
template <class Parse>
bool ForEachEntry(std::string_view value, std::size_t least, std::size_t most, Parse parse) {
  for (const std::string_view entry : Split(value, ',')) {
    const auto fields = Split(entry, ':');
    if (fields.size() < least || fields.size() > most || !parse(fields)) return false;
  }
  return true;
}

using Fields = std::vector<std::string_view>;

// FUNCTION:CALLS[:SQLSTATE]
bool ParseFail(std::string_view value, Settings& settings) {
  return ForEachEntry(value, 2, 3, [&](const Fields& fields) {
    FunctionFault fault{FunctionByName(fields[0]), {}, "HY000"};
    settings.faults.calls.push_back(fault);
    FunctionFault& added = settings.faults.calls.back();
    return fault.function != 0 && ParseRange(fields[1], added.calls) &&
           (fields.size() < 3 || ParseState(fields[2], added.state));
  });
}

// N[:SQLSTATE]
bool ParseFailCall(std::string_view value, Settings& settings) {
  return ForEachEntry(value, 1, 2, [&](const Fields& fields) {
    return ParseNumber(fields[0], settings.faults.fail_call) &&
           (fields.size() < 2 || ParseState(fields[1], settings.faults.fail_state));
  });
}

bool ParseDropCall(std::string_view value, Settings& settings) {
  return ParseNumber(value, settings.faults.drop_call);
}

bool ParseFetchError(std::string_view value, Settings& settings) {
  return ForEachEntry(value, 1, 1, [&](const Fields& fields) {
    return ParseRange(fields[0], settings.faults.fetches.emplace_back());
  });
}

// ROWS[:RESULTS]
bool ParseRows(std::string_view value, Settings& settings, RowFault::Kind kind) {
  return ForEachEntry(value, 1, 2, [&](const Fields& fields) {
    RowFault& fault = settings.faults.rows.emplace_back(RowFault{kind, {}, {}});
    return ParseRange(fields[0], fault.rows) &&
           (fields.size() < 2 || ParseRange(fields[1], fault.results));
  });
}
bool ParseRowError(std::string_view value, Settings& settings) {
  return ParseRows(value, settings, RowFault::Kind::kError);
}
bool ParseRowDeleted(std::string_view value, Settings& settings) {
  return ParseRows(value, settings, RowFault::Kind::kDeleted);
}

// ROWS:COLUMN[:RESULTS]
bool ParseNoTotal(std::string_view value, Settings& settings) {
  return ForEachEntry(value, 2, 3, [&](const Fields& fields) {
    RowFault& fault = settings.faults.rows.emplace_back(RowFault{RowFault::Kind::kNoTotal, {}, {}});
    return ParseRange(fields[0], fault.rows) && ParseNumber(fields[1], fault.column) &&
           (fields.size() < 3 || ParseRange(fields[2], fault.results));
  });
}

bool ParseLongName(std::string_view value, Settings& settings) {
  return ForEachEntry(value, 1, 1, [&](const Fields& fields) {
    return ParseNumber(fields[0], settings.faults.long_names.emplace_back());
  });
}

bool ParseWithout(std::string_view value, Settings& settings) {
  return ForEachEntry(value, 1, 1, [&](const Fields& fields) {
    return settings.faults.missing.emplace_back(FunctionByName(fields[0])) != 0;
  });
}

// FUNCTION:MILLISECONDS
bool ParseSlow(std::string_view value, Settings& settings) {
  return ForEachEntry(value, 2, 2, [&](const Fields& fields) {
    SlowFault& fault = settings.faults.slow.emplace_back(SlowFault{FunctionByName(fields[0]), 0});
    return fault.function != 0 && ParseNumber(fields[1], fault.milliseconds);
  });
}

bool ParseGrowingColumns(std::string_view value, Settings& settings) {
  settings.faults.growing_columns = value == "1";
  return value == "0" || value == "1";
}

bool ParseScale(std::string_view value, Settings& settings) {
  return ParseNumber(value, settings.scale.tables) && settings.scale.tables >= 0;
}
bool ParseColumns(std::string_view value, Settings& settings) {
  return ParseNumber(value, settings.scale.columns) && settings.scale.columns >= 1;
}
bool ParseForeignKeys(std::string_view value, Settings& settings) {
  return ParseNumber(value, settings.scale.foreign_keys) && settings.scale.foreign_keys >= 0;
}

template <std::string Settings::*member>
bool ParseText(std::string_view value, Settings& settings) {
  settings.*member = value;
  return true;
}
bool ParseLog(std::string_view value, Settings& settings) {
  settings.faults.log_file = value;
  return true;
}

struct Keyword {
  std::string_view name;
  bool (*parse)(std::string_view value, Settings& settings);
  std::string_view form;  // for the message
};

// clang-format off
constexpr Keyword kKeywords[] = {
    {"Server",         ParseText<&Settings::server>,     "a server's name"},
    {"ServerVersion",  ParseText<&Settings::version>,    "a version"},
    {"File",           ParseText<&Settings::file>,       "a recording"},
    {"AddScript",      ParseText<&Settings::add_script>, "a file of SQL"},
    {"Sql",            ParseText<&Settings::sql>,        "SQL in braces"},
    {"Scale",          ParseScale,                       "a number of tables"},
    {"Columns",        ParseColumns,                     "a number of columns"},
    {"ForeignKeys",    ParseForeignKeys,                 "a number of keys"},
    {"Fail",           ParseFail,                        "FUNCTION:CALLS[:SQLSTATE],..."},
    {"FailCall",       ParseFailCall,                    "N[:SQLSTATE]"},
    {"DropConnection", ParseDropCall,                    "N"},
    {"FetchError",     ParseFetchError,                  "CALLS,..."},
    {"RowError",       ParseRowError,                    "ROWS[:RESULTS],..."},
    {"RowDeleted",     ParseRowDeleted,                  "ROWS[:RESULTS],..."},
    {"NoTotal",        ParseNoTotal,                     "ROWS:COLUMN[:RESULTS],..."},
    {"LongName",       ParseLongName,                    "COLUMN,..."},
    {"Without",        ParseWithout,                     "FUNCTION,..."},
    {"Slow",           ParseSlow,                        "FUNCTION:MILLISECONDS,..."},
    {"GrowingColumns", ParseGrowingColumns,              "0 or 1"},
    {"Log",            ParseLog,                         "a file"},
};
// clang-format on

}  // namespace

bool ParseConnectionString(std::string_view text, Settings& settings, std::string& why) {
  for (const base::Attribute& attribute : base::ParseConnectionString(text)) {
    const auto* const keyword =
        std::find_if(std::begin(kKeywords), std::end(kKeywords),
                     [&](const Keyword& k) { return EqualIgnoringCase(k.name, attribute.key); });
    const std::string value = base::PlainValue(attribute.value);
    if (keyword == std::end(kKeywords) || keyword->parse(value, settings)) continue;
    why = std::string(keyword->name) + "=" + value + ": expected " + std::string(keyword->form);
    return false;
  }
  return true;
}

}  // namespace catalogsim
