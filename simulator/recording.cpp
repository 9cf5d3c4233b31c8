// See recording.h. Opening reads the lines that hold questions; rows, nearly all of a file, are
// only looked at from outside.
#include "simulator/recording.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "recording/file.h"
#include "simulator/column_types.h"
#include "simulator/json.h"

namespace catalogsim {
namespace {

constexpr int kVersion = 1;
// The diagnostics of so many unknown questions name the nearest that is known.
constexpr std::uint32_t kMostSearches = 20;

// Functions that the driver manager turned into others on their way to a driver.
struct OlderName {
  std::string_view name;
  FunctionId function;
};
constexpr std::array kOlderNames = {
    OlderName{"SQLAllocStmt", SQL_API_SQLALLOCHANDLE},
    OlderName{"SQLSetStmtOption", SQL_API_SQLSETSTMTATTR},
    OlderName{"SQLGetConnectOption", SQL_API_SQLGETCONNECTATTR},
};

FunctionId FunctionInRecording(std::string_view name) {
  for (const OlderName& older : kOlderNames)
    if (older.name == name) return older.function;
  return FunctionByName(name);
}

// What opens a result on a statement.
bool IsStatementQuestion(FunctionId function) {
  switch (function) {
    case SQL_API_SQLEXECDIRECT:
    case SQL_API_SQLEXECUTE:
    case SQL_API_SQLTABLES:
    case SQL_API_SQLCOLUMNS:
    case SQL_API_SQLPRIMARYKEYS:
    case SQL_API_SQLFOREIGNKEYS:
    case SQL_API_SQLSTATISTICS:
    case SQL_API_SQLPROCEDURES:
    case SQL_API_SQLGETTYPEINFO:
      return true;
    default:
      return false;
  }
}

bool IsOtherQuestion(FunctionId function) {
  return function == SQL_API_SQLGETINFO || function == SQL_API_SQLGETCONNECTATTR ||
         function == SQL_API_SQLSETSTMTATTR || function == SQL_API_SQLDRIVERCONNECT ||
         function == SQL_API_SQLALLOCHANDLE || function == SQL_API_SQLBINDPARAMETER;
}

// Takes `"text"` from the beginning of a line's rest; empty where it is something else.
std::string_view TakePlainString(std::string_view& rest) {
  if (!rest.starts_with('"')) return {};
  const std::size_t end = rest.find('"', 1);
  if (end == std::string_view::npos) return {};
  const std::string_view text = rest.substr(1, end - 1);
  rest.remove_prefix(end + 1);
  return text;
}

bool TakeKey(std::string_view key, std::string_view& rest) {
  if (!rest.starts_with(key)) return false;
  rest.remove_prefix(key.size());
  return true;
}

// A text cell or parameter, whose odd forms are objects.
std::optional<std::string> TextOf(json::value value) {
  switch (value.type()) {
    case json::json_type::null:
      return std::nullopt;
    case json::json_type::string:
      return std::string(std::string_view(value.get_string()));
    case json::json_type::object:
      return TextOf(value.get_object()["value"]);
    default:
      return std::string(std::string_view(value.raw_json_token()));
  }
}

}  // namespace

std::string& Question::Next() {
  if (!first_) text_ += ", ";
  first_ = false;
  return text_;
}

Question& Question::Add(const std::optional<std::string>& value) {
  Next() += value ? '"' + *value + '"' : "null";
  return *this;
}

Question& Question::Add(std::int64_t number) {
  Next() += std::to_string(number);
  return *this;
}

Question& Question::AddList(const std::vector<std::optional<std::string>>& values) {
  for (const auto& value : values) Add(value);
  return *this;
}

std::unique_ptr<Recording> Recording::Load(const std::string& file, std::string& why) {
  std::unique_ptr<Recording> recording(new Recording);
  if (!recording::ReadWholeFile(file, simdjson::SIMDJSON_PADDING, recording->text_, why))
    return nullptr;
  if (!recording->CheckHeader(why)) {
    why = file + ' ' + why;
    return nullptr;
  }
  try {
    recording->ReadLines();
  } catch (const simdjson::simdjson_error& error) {
    why = file + " is damaged: " + error.what();
    return nullptr;
  }
  return recording;
}

bool Recording::CheckHeader(std::string& why) const {
  const std::string_view text = text_.view();
  const std::size_t end = std::min(text.find('\n'), text.size());
  json::parser parser;
  json::document header;
  std::string_view kind;
  std::int64_t version = 0;
  if (parser.iterate(text.data(), end, text_.room()).get(header) != simdjson::SUCCESS ||
      header["recording"].get_string().get(kind) != simdjson::SUCCESS || kind != "wbimport" ||
      header["version"].get_int64().get(version) != simdjson::SUCCESS) {
    why = "is no recording";
    return false;
  }
  if (version == kVersion) return true;
  why = "is a recording of version " + std::to_string(version) + "; known here is version " +
        std::to_string(kVersion);
  return false;
}

void Recording::ReadLines() {
  std::unordered_map<std::uint64_t, Line> last_on_statement;
  const std::string_view text = text_.view();
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = text.find('\n', begin);
    if (end == std::string::npos) break;  // a line that was cut off, by a crash for one
    lines_.push_back({begin, kNone, 0, false});
    ReadLine(static_cast<Line>(lines_.size() - 1), last_on_statement);
    begin = end + 1;
  }
}

// Relies on the order in which lines are written: call, statement, the rest.
void Recording::ReadLine(Line number, std::unordered_map<std::uint64_t, Line>& last_on_statement) {
  std::string_view rest = TextOf(number);
  if (!TakeKey("{\"call\":", rest)) return;
  Entry& entry = lines_[number];
  entry.function = FunctionInRecording(TakePlainString(rest));
  entry.question = IsStatementQuestion(entry.function);
  if (TakeKey(",\"statement\":", rest)) {
    std::uint64_t statement = 0;
    std::from_chars(rest.data(), rest.data() + rest.size(), statement);
    const auto [last, is_first] = last_on_statement.try_emplace(statement, number);
    if (!is_first) lines_[last->second].next = number;
    last->second = number;
  }
  if (entry.question || IsOtherQuestion(entry.function)) ReadQuestion(number);
  if (entry.function == SQL_API_SQLGETFUNCTIONS) ReadFunctions(number);
}

void Recording::ReadQuestion(Line number) {
  static thread_local json::parser parser;
  const std::string_view text = TextOf(number);
  Question question(lines_[number].function);
  json::document line = parser.iterate(text.data(), text.size(), CapacityOf(number));
  for (json::field field : line.get_object()) {
    const std::string_view key = field.unescaped_key();
    if (key == "result") break;
    // Names for people, the program's own headings and sizes of buffers are no part of a question.
    if (key == "call" || key == "statement" || key == "heading") continue;
    if (key == "name" || key == "room") continue;
    if (lines_[number].function == SQL_API_SQLBINDPARAMETER && key != "number") continue;
    json::value value = field.value();
    if (value.type() == json::json_type::array) {
      std::vector<std::optional<std::string>> values;
      for (json::value element : value.get_array()) values.push_back(catalogsim::TextOf(element));
      question.AddList(values);
    } else if (value.type() == json::json_type::number) {
      std::int64_t asked = value.get_int64();
      if (key == "type") asked = TypeForVersion(static_cast<SQLSMALLINT>(asked), SQL_OV_ODBC2);
      question.Add(asked);
    } else {
      question.Add(catalogsim::TextOf(value));
    }
  }
  answers_[question.Text()].lines.push_back(number);
}

// One function alone, or a table of them. The table of ODBC 3 has all.
void Recording::ReadFunctions(Line number) {
  json::parser parser;
  const std::string_view text = TextOf(number);
  json::document line = parser.iterate(text.data(), text.size(), CapacityOf(number));
  std::int64_t asked = 0;
  for (json::field field : line.get_object()) {
    const std::string_view key = field.unescaped_key();
    if (key == "function") asked = field.value().get_int64();
    if (key != "functions" || asked != SQL_API_ODBC3_ALL_FUNCTIONS) continue;
    functions_.assign(kFunctionIds, false);
    for (const std::int64_t function : field.value().get_array())
      if (function >= 0 && function < kFunctionIds)
        functions_[static_cast<std::size_t>(function)] = true;
  }
}

std::string_view Recording::TextOf(Line line) const {
  const std::size_t begin = lines_[line].begin;
  const std::string_view text = text_.view();
  const std::size_t end =
      line + 1 < lines_.size() ? lines_[line + 1].begin - 1 : text.find('\n', begin);
  return text.substr(begin, end - begin);
}

std::size_t Recording::CapacityOf(Line line) const { return text_.room() - lines_[line].begin; }

Recording::Line Recording::Next(Line line) const {
  const Line next = lines_[line].next;
  return next != kNone && lines_[next].question ? kNone : next;
}

bool Recording::HasFunction(FunctionId function) const {
  return functions_.empty() || functions_[function];
}

Recording::Line Recording::FindAnswer(const std::string& question) {
  const auto found = answers_.find(question);
  if (found == answers_.end()) return kNone;
  Answers& answers = found->second;
  const Line line = answers.lines[answers.given];
  if (answers.given + 1 < answers.lines.size()) ++answers.given;
  return line;
}

void Recording::Rewind() {
  for (auto& [question, answers] : answers_) answers.given = 0;
}

std::string Recording::NotHeld(const std::string& question) {
  std::string why = "the recording does not hold " + question;
  if (++not_held_ <= kMostSearches) {
    if (const std::string* nearest = FindNearest(question))
      why += "; the nearest that it holds is " + *nearest;
  }
  if (not_held_ == 1) first_not_held_ = why;
  return why;
}

// The question of the same function that shares most of its beginning and end.
const std::string* Recording::FindNearest(const std::string& question) const {
  const std::string function = question.substr(0, question.find('(') + 1);
  const std::string* nearest = nullptr;
  double best = 0;
  for (const auto& [known, answers] : answers_) {
    if (!known.starts_with(function)) continue;
    const std::size_t shorter = std::min(known.size(), question.size());
    std::size_t front = 0;
    while (front < shorter && known[front] == question[front]) ++front;
    std::size_t back = 0;
    while (back < shorter - front &&
           known[known.size() - 1 - back] == question[question.size() - 1 - back])
      ++back;
    const double share = static_cast<double>(front + back) /
                         static_cast<double>(std::max(known.size(), question.size()));
    if (nearest != nullptr && (share < best || (share == best && known > *nearest))) continue;
    best = share;
    nearest = &known;
  }
  return nearest;
}

}  // namespace catalogsim
