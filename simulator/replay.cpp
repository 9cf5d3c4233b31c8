// See replay.h. What is given is what was recorded: return codes, diagnostics, indicators and row
// statuses are never worked out here.
#include "simulator/replay.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "simulator/handles.h"
#include "simulator/json.h"
#include "simulator/row_place.h"
#include "simulator/text.h"

namespace catalogsim {
namespace {

using Line = Recording::Line;

// Informix puts the rows of 1024 bytes this far apart, and programs have the room for it. A file
// may say anything.
constexpr std::size_t kMostDistance = 2048;

json::document Parse(const Recording& recording, Line line) {
  static thread_local json::parser parser;
  const std::string_view text = recording.TextOf(line);
  return parser.iterate(text.data(), text.size(), recording.CapacityOf(line));
}

// The driver manager puts its mark before every message of a driver's.
std::string WithoutManagersMark(std::string_view message) {
  constexpr std::string_view kMark = "[unixODBC]";
  if (message.starts_with(kMark)) message.remove_prefix(kMark.size());
  return std::string(message);
}

void GiveDiagnostics(json::value diagnostics, Handle& handle) {
  for (json::object diagnostic : diagnostics.get_array()) {
    Diagnostic given;
    given.verbatim = true;
    for (json::field field : diagnostic) {
      const std::string_view key = field.unescaped_key();
      if (key == "state") given.state = std::string_view(field.value().get_string());
      if (key == "native")
        given.native_error = static_cast<SQLINTEGER>(field.value().get_int64().value());
      if (key == "message") {
        json::value message = field.value();
        if (message.type() == json::json_type::string)
          given.message = WithoutManagersMark(std::string_view(message.get_string()));
      }
    }
    handle.Add(std::move(given));
  }
}

std::vector<char> FromHex(std::string_view hex) {
  const auto digit = [](char c) { return c <= '9' ? c - '0' : (c | 0x20) - 'a' + 10; };
  std::vector<char> bytes(hex.size() / 2);
  for (std::size_t i = 0; i < bytes.size(); ++i)
    bytes[i] = static_cast<char>(digit(hex[2 * i]) * 16 + digit(hex[2 * i + 1]));
  return bytes;
}

// Bytes as a driver leaves them: with a terminator where there is room for one.
void WriteBytes(const char* bytes, std::size_t count, std::size_t terminator,
                const Binding& place) {
  const auto room = static_cast<std::size_t>(std::max<SQLLEN>(place.bytes, 0));
  auto* const out = static_cast<char*>(place.buffer);
  const std::size_t written = std::min(count, room);
  std::memcpy(out, bytes, written);
  if (written + terminator <= room) std::memset(out + written, 0, terminator);
  if (place.indicator != nullptr) *place.indicator = static_cast<SQLLEN>(count);
}

void WriteText(std::string_view text, const Binding& place) {
  if (place.c_type != SQL_C_WCHAR) {
    WriteBytes(text.data(), text.size(), place.c_type == SQL_C_CHAR ? 1 : 0, place);
    return;
  }
  auto* const out = static_cast<SQLWCHAR*>(place.buffer);
  const std::size_t room = static_cast<std::size_t>(std::max<SQLLEN>(place.bytes, 0)) / 2;
  const std::size_t units = WidenInto(text, out, room);
  if (units < room) out[units] = 0;
  if (place.indicator != nullptr) *place.indicator = static_cast<SQLLEN>(units * 2);
}

void WriteNumber(std::int64_t number, const Binding& place) {
  const std::size_t size = SizeOfCType(place.c_type);
  if (size == 0) {
    WriteText(std::to_string(number), place);
    return;
  }
  std::memcpy(place.buffer, &number, size);  // the low bytes come first
  if (place.indicator != nullptr) *place.indicator = static_cast<SQLLEN>(size);
}

void WriteCell(json::value cell, const Binding& place) {
  if (place.buffer == nullptr) return;
  switch (cell.type()) {
    case json::json_type::null:
      if (place.indicator != nullptr) *place.indicator = SQL_NULL_DATA;
      return;
    case json::json_type::string:
      return WriteText(cell.get_string(), place);
    case json::json_type::number:
      return WriteNumber(cell.get_int64(), place);
    default:
      break;
  }
  // An odd value: an indicator that is not the value's length, or no text that JSON can hold.
  bool has_indicator = false;
  SQLLEN indicator = 0;
  for (json::field field : cell.get_object()) {
    const std::string_view key = field.unescaped_key();
    if (key == "indicator") {
      has_indicator = true;
      indicator = field.value().get_int64();
    } else if (key == "value") {
      WriteCell(field.value(), place);
    } else {
      const std::vector<char> bytes = FromHex(field.value().get_string());
      WriteBytes(bytes.data(), bytes.size(), key == "utf16" ? 2 : 1, place);
    }
  }
  if (has_indicator && place.indicator != nullptr) *place.indicator = indicator;
}

template <class Number>
std::vector<Number> Numbers(json::value list) {
  std::vector<Number> numbers;
  for (const std::int64_t number : list.get_array()) numbers.push_back(static_cast<Number>(number));
  return numbers;
}

}  // namespace

SQLRETURN GiveOutcome(const Recording& recording, Line line, Handle& handle) {
  SQLRETURN result = SQL_ERROR;
  json::document answer = Parse(recording, line);
  for (json::field field : answer.get_object()) {
    const std::string_view key = field.unescaped_key();
    if (key == "result") result = static_cast<SQLRETURN>(field.value().get_int64().value());
    if (key == "diagnostics") GiveDiagnostics(field.value(), handle);
  }
  return result;
}

SQLRETURN GiveValue(const Recording& recording, Line line, Handle& handle, void* value,
                    SQLINTEGER text_bytes, SQLINTEGER* bytes) {
  std::int64_t room = 0;
  json::document answer = Parse(recording, line);
  for (json::field field : answer.get_object()) {
    const std::string_view key = field.unescaped_key();
    if (key == "room") room = field.value().get_int64();
    if (key == "text" && value != nullptr) {
      json::value text = field.value();
      WriteCell(text, {SQL_C_WCHAR, value, text_bytes, nullptr});
    }
    if (key == "bytes")
      Answer<SQLINTEGER>(bytes, static_cast<SQLINTEGER>(field.value().get_int64().value()));
    if (key == "number" && value != nullptr) {
      const std::int64_t number = field.value().get_int64();
      // A caller that says how much room there is may have no more.
      std::memcpy(value, &number, room == 2 || text_bytes == 2 ? 2 : 4);
    }
  }
  return GiveOutcome(recording, line, handle);
}

Line Replay::FindNext(Line line, FunctionId function) const {
  while (line != Recording::kNone) {
    line = recording_.Next(line);
    if (line == Recording::kNone || recording_.FunctionOf(line) == function) break;
  }
  return line;
}

// As FindNext, but for one column, and no further than the next call of `until`.
Line Replay::FindColumn(Line line, FunctionId function, SQLUSMALLINT column,
                        FunctionId until) const {
  for (line = recording_.Next(line); line != Recording::kNone; line = recording_.Next(line)) {
    if (recording_.FunctionOf(line) == until) break;
    if (recording_.FunctionOf(line) != function) continue;
    json::document call = Parse(recording_, line);
    if (call["column"].get_int64().value() == column) return line;
  }
  return Recording::kNone;
}

SQLRETURN Replay::Missing(FunctionId function) {
  return statement_.Fail(
      "HY000", recording_.NotHeld(std::string(FunctionName(function)) + " of " + question_));
}

SQLRETURN Replay::Ask(const std::string& question) {
  Close();
  question_ = question;
  asked_ = recording_.FindAnswer(question);
  if (asked_ == Recording::kNone) return statement_.Fail("HY000", recording_.NotHeld(question));
  fetched_ = asked_;
  return GiveOutcome(recording_, asked_, statement_);
}

Line Replay::FindColumnOfResult(Line& last, FunctionId function, SQLUSMALLINT column) const {
  if (asked_ == Recording::kNone) return Recording::kNone;
  Line line = Recording::kNone;
  // They come in order, nearly always.
  if (last != Recording::kNone) line = FindColumn(last, function, column, 0);
  if (line == Recording::kNone) line = FindColumn(asked_, function, column, 0);
  if (line != Recording::kNone) last = line;
  return line;
}

SQLRETURN Replay::Outcome(const std::string& question) {
  const Line line = recording_.FindAnswer(question);
  return line == Recording::kNone ? SQLRETURN{SQL_SUCCESS}
                                  : GiveOutcome(recording_, line, statement_);
}

SQLRETURN Replay::NumResultCols(SQLSMALLINT* count) {
  *count = 0;
  if (asked_ == Recording::kNone) return SQL_SUCCESS;
  const Line next =
      FindNext(counted_ != Recording::kNone ? counted_ : asked_, SQL_API_SQLNUMRESULTCOLS);
  if (next != Recording::kNone) counted_ = next;
  if (counted_ == Recording::kNone) return Missing(SQL_API_SQLNUMRESULTCOLS);
  json::document call = Parse(recording_, counted_);
  *count = static_cast<SQLSMALLINT>(call["count"].get_int64().value());
  return GiveOutcome(recording_, counted_, statement_);
}

SQLRETURN Replay::BindCol(SQLUSMALLINT column) {
  const Line line = FindColumnOfResult(bound_, SQL_API_SQLBINDCOL, column);
  return line == Recording::kNone ? SQLRETURN{SQL_SUCCESS}
                                  : GiveOutcome(recording_, line, statement_);
}

SQLRETURN Replay::DescribeCol(SQLUSMALLINT column, SQLWCHAR* name, SQLSMALLINT capacity,
                              SQLSMALLINT* length, SQLSMALLINT* type, SQLULEN* size,
                              SQLSMALLINT* digits, SQLSMALLINT* nullable) {
  const Line line = FindColumnOfResult(described_, SQL_API_SQLDESCRIBECOL, column);
  if (line == Recording::kNone) return Missing(SQL_API_SQLDESCRIBECOL);
  json::document call = Parse(recording_, line);
  for (json::field field : call.get_object()) {
    const std::string_view key = field.unescaped_key();
    if (key == "name") {
      WriteCell(field.value(), {SQL_C_WCHAR, name, SQLLEN{capacity} * 2, nullptr});
    } else if (key == "length") {
      Answer<SQLSMALLINT>(length, static_cast<SQLSMALLINT>(field.value().get_int64().value()));
    } else if (key == "type") {
      Answer<SQLSMALLINT>(type, static_cast<SQLSMALLINT>(field.value().get_int64().value()));
    } else if (key == "size") {
      Answer<SQLULEN>(size, static_cast<SQLULEN>(field.value().get_int64().value()));
    } else if (key == "scale") {
      Answer<SQLSMALLINT>(digits, static_cast<SQLSMALLINT>(field.value().get_int64().value()));
    } else if (key == "nullable") {
      Answer<SQLSMALLINT>(nullable, static_cast<SQLSMALLINT>(field.value().get_int64().value()));
    }
  }
  return GiveOutcome(recording_, line, statement_);
}

SQLRETURN Replay::Fetch(SQLULEN rows, SQLUSMALLINT* row_status, SQLULEN* rows_fetched) {
  if (asked_ == Recording::kNone) return statement_.Fail("24000", "there is no open result");
  pieces_.clear();
  Line line = fetched_;
  do {
    line = recording_.Next(line);
  } while (line != Recording::kNone && recording_.FunctionOf(line) != SQL_API_SQLFETCH &&
           recording_.FunctionOf(line) != SQL_API_SQLEXTENDEDFETCH);
  if (line == Recording::kNone) {
    // Behind the end there are no rows however often they are asked for.
    if (ended_) return SQL_NO_DATA;
    return Missing(SQL_API_SQLFETCH);
  }
  fetched_ = line;
  const SQLRETURN result = GiveRows(line, rows, row_status, rows_fetched);
  ended_ = result == SQL_NO_DATA;
  return result;
}

SQLRETURN Replay::GiveRows(Line line, SQLULEN rows, SQLUSMALLINT* row_status,
                           SQLULEN* rows_fetched) {
  SQLRETURN result = SQL_ERROR;
  std::vector<std::size_t> columns;
  std::size_t distance = 0;
  SQLULEN given = 0;
  std::int64_t claimed = -1;
  if (row_status != nullptr) std::fill_n(row_status, rows, SQLUSMALLINT{SQL_ROW_SUCCESS});
  json::document call = Parse(recording_, line);
  for (json::field field : call.get_object()) {
    const std::string_view key = field.unescaped_key();
    if (key == "result") {
      result = static_cast<SQLRETURN>(field.value().get_int64().value());
    } else if (key == "claimed") {
      claimed = field.value().get_int64();
    } else if (key == "status") {
      const auto status = Numbers<SQLUSMALLINT>(field.value());
      if (row_status != nullptr)
        std::copy_n(status.begin(), std::min<std::size_t>(status.size(), rows), row_status);
    } else if (key == "distance") {
      distance = static_cast<std::size_t>(field.value().get_int64().value());
    } else if (key == "columns") {
      columns = Numbers<std::size_t>(field.value());
    } else if (key == "diagnostics") {
      GiveDiagnostics(field.value(), statement_);
    } else if (key == "rows") {
      for (json::array row : field.value().get_array()) {
        if (given >= rows) return Missing(SQL_API_SQLFETCH);  // recorded with larger rowsets
        const RowPlace place(statement_, std::min(distance, kMostDistance), given);
        std::size_t index = 0;
        for (json::value cell : row) {
          const std::size_t column = index < columns.size() ? columns[index] : index + 1;
          ++index;
          if (column > statement_.bindings.size()) continue;
          Binding binding = statement_.bindings[column - 1];
          if (binding.buffer == nullptr) continue;
          binding.indicator = place.Indicator(binding);
          binding.buffer = place.Buffer(binding);
          WriteCell(cell, binding);
        }
        ++given;
      }
    }
  }
  if (row_status != nullptr && given < rows)
    std::fill(row_status + given, row_status + rows, SQLUSMALLINT{SQL_ROW_NOROW});
  if (rows_fetched != nullptr) *rows_fetched = claimed >= 0 ? static_cast<SQLULEN>(claimed) : given;
  return result;
}

SQLRETURN Replay::GetData(SQLUSMALLINT column, SQLSMALLINT c_type, void* buffer, SQLLEN bytes,
                          SQLLEN* indicator) {
  if (fetched_ == Recording::kNone || fetched_ == asked_)
    return statement_.Fail("24000", "there is no current row");
  const auto last = pieces_.find(column);
  const Line line = FindColumn(last != pieces_.end() ? last->second : fetched_, SQL_API_SQLGETDATA,
                               column, recording_.FunctionOf(fetched_));
  if (line == Recording::kNone) return Missing(SQL_API_SQLGETDATA);
  pieces_[column] = line;
  json::document call = Parse(recording_, line);
  for (json::field field : call.get_object()) {
    if (std::string_view(field.unescaped_key()) == "value")
      WriteCell(field.value(), {c_type, buffer, bytes, indicator});
  }
  return GiveOutcome(recording_, line, statement_);
}

void Replay::Close() {
  asked_ = counted_ = described_ = bound_ = fetched_ = Recording::kNone;
  pieces_.clear();
  ended_ = false;
}

}  // namespace catalogsim
