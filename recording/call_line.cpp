// See call_line.h.
#include "recording/call_line.h"

#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <array>
#include <cstring>

#include "recording/json_text.h"

namespace recording {
namespace {

struct NumberName {
  std::string_view field;
  std::int64_t number;
  std::string_view name;
};
// Names for people, of the numbers that are asked here.
constexpr std::array kNames = {
    NumberName{"info", SQL_DATA_SOURCE_NAME, "SQL_DATA_SOURCE_NAME"},
    NumberName{"info", SQL_DRIVER_NAME, "SQL_DRIVER_NAME"},
    NumberName{"info", SQL_DRIVER_VER, "SQL_DRIVER_VER"},
    NumberName{"info", SQL_DRIVER_ODBC_VER, "SQL_DRIVER_ODBC_VER"},
    NumberName{"info", SQL_DBMS_NAME, "SQL_DBMS_NAME"},
    NumberName{"info", SQL_DBMS_VER, "SQL_DBMS_VER"},
    NumberName{"info", SQL_SCHEMA_USAGE, "SQL_OWNER_USAGE"},
    NumberName{"info", SQL_CATALOG_USAGE, "SQL_QUALIFIER_USAGE"},
    NumberName{"info", SQL_POS_OPERATIONS, "SQL_POS_OPERATIONS"},
    NumberName{"attribute", SQL_ATTR_CURRENT_CATALOG, "SQL_ATTR_CURRENT_CATALOG"},
    NumberName{"attribute", SQL_ATTR_CONNECTION_DEAD, "SQL_ATTR_CONNECTION_DEAD"},
    NumberName{"option", SQL_QUERY_TIMEOUT, "SQL_QUERY_TIMEOUT"},
    NumberName{"option", SQL_CURSOR_TYPE, "SQL_CURSOR_TYPE"},
    NumberName{"option", SQL_CONCURRENCY, "SQL_CONCURRENCY"},
    NumberName{"option", SQL_ROWSET_SIZE, "SQL_ROWSET_SIZE"},
};

// The driver manager's name of a function ends with a W where its texts are wide.
std::string_view PlainName(std::string_view function) {
  if (function.ends_with('W')) function.remove_suffix(1);
  return function;
}

std::u16string_view AsWide(std::string_view bytes) {
  return {reinterpret_cast<const char16_t*>(bytes.data()), bytes.size() / sizeof(char16_t)};
}

void AppendKey(std::string_view key, Bytes& out) {
  out += ",\"";
  out += key;
  out += "\":";
}

void AppendKeyNumber(std::string_view key, std::int64_t number, Bytes& out) {
  AppendKey(key, out);
  AppendNumber(number, out);
}

// SQLFreeStmt's options share a field with the statements' own.
void AppendOptionName(std::string_view function, std::string_view field, std::int64_t number,
                      Bytes& out) {
  if (function == "SQLFreeStmt") {
    constexpr std::array<std::string_view, 4> kOptions = {"SQL_CLOSE", "SQL_DROP", "SQL_UNBIND",
                                                          "SQL_RESET_PARAMS"};
    if (number < 0 || static_cast<std::size_t>(number) >= kOptions.size()) return;
    AppendKey("name", out);
    return AppendString(kOptions[static_cast<std::size_t>(number)], out);
  }
  for (const NumberName& known : kNames) {
    if (known.number != number || known.field != field) continue;
    AppendKey("name", out);
    return AppendString(known.name, out);
  }
}

// What an answer would tell of the connection string.
bool IsSecret(std::string_view field, std::int64_t number) {
  return field == "info" &&
         (number == SQL_DATA_SOURCE_NAME || number == SQL_SERVER_NAME || number == SQL_USER_NAME);
}

bool IsDatabaseName(std::string_view field, std::int64_t number) {
  return field == "info" && number == SQL_DATABASE_NAME;
}

// A database that is a file is named by it: the folder is nobody's business. Keeps the scheme of a
// URI, by which a reader tells what stands behind the name.
std::u16string WithoutFolder(std::u16string_view name) {
  constexpr std::u16string_view kScheme = u"file:";
  const bool is_uri = name.starts_with(kScheme);
  const std::size_t end = is_uri ? name.find(u'?') : name.size();
  const std::size_t slash = name.substr(0, end).find_last_of(u"/\\");
  if (slash == std::u16string_view::npos) return std::u16string(name);
  return std::u16string(is_uri ? kScheme : u"").append(name.substr(slash + 1));
}

// The functions that a table names: an entry each, or a bit each.
void AppendFunctions(std::string_view bytes, Bytes& out) {
  std::vector<std::uint16_t> table(bytes.size() / sizeof(std::uint16_t));
  std::memcpy(table.data(), bytes.data(), table.size() * sizeof(std::uint16_t));
  constexpr std::size_t kBits = 16;
  const bool bits = table.size() == SQL_API_ODBC3_ALL_FUNCTIONS_SIZE;
  const std::size_t count = bits ? table.size() * kBits : table.size();
  out += '[';
  const char* comma = "";
  for (std::size_t id = 0; id < count; ++id) {
    const bool there = bits ? (table[id / kBits] >> (id % kBits) & 1) != 0 : table[id] != 0;
    if (!there) continue;
    out += comma;
    AppendNumber(static_cast<std::int64_t>(id), out);
    comma = ",";
  }
  out += ']';
}

bool IsSigned(int c_type) {
  return c_type != SQL_C_BIT && c_type != SQL_C_UTINYINT && c_type != SQL_C_USHORT &&
         c_type != SQL_C_ULONG && c_type != SQL_C_UBIGINT;
}

std::int64_t NumberOf(const Cell& cell) {
  const auto read = [&cell]<class Number>(Number number) {
    std::memcpy(&number, cell.bytes.data(), sizeof number);
    return static_cast<std::int64_t>(number);
  };
  const bool has_sign = IsSigned(cell.c_type);
  switch (cell.bytes.size()) {
    case 1:
      return has_sign ? read(std::int8_t{}) : read(std::uint8_t{});
    case 2:
      return has_sign ? read(std::int16_t{}) : read(std::uint16_t{});
    case 4:
      return has_sign ? read(std::int32_t{}) : read(std::uint32_t{});
    default:
      return read(std::int64_t{});
  }
}

}  // namespace

void LineMaker::Append(CallReader& call, Bytes& out) {
  const std::string_view function = PlainName(call.Take<const char*>());
  const auto statement = call.Take<std::uint32_t>();
  const auto made = call.Take<std::uint32_t>();
  const auto result = call.Take<short>();
  out += "{\"call\":\"";
  out += function;
  out += '"';
  if (statement != 0) AppendKeyNumber("statement", statement, out);
  BeginAnswer();
  if (rules_ != nullptr) rules_->BeginCall(function, statement);
  AppendFields(call, function, out);
  AppendBuffer(call, function, out);
  AppendParameters(call, out);
  AppendKeyNumber("result", result, out);
  if (made != 0) AppendKeyNumber("made", made, out);
  AppendFields(call, function, out);
  if (call.TakeFlag()) {
    const Cell piece = call.TakeCell();
    AppendKey("value", out);
    AppendCell(piece, rules_ != nullptr ? rules_->RoleOfPiece() : Role::kPlain, out);
  }
  AppendRows(call, out);
  AppendDiagnostics(call, out);
  out += "}\n";
}

void LineMaker::AppendNote(CallReader& note, Bytes& out) {
  const std::string_view what = note.Take<const char*>();
  out += "{\"host\":";
  AppendString(what, out);
  BeginAnswer();
  if (rules_ != nullptr) rules_->BeginCall(what, 0);
  AppendFields(note, what, out);
  out += "}\n";
}

void LineMaker::BeginAnswer() {
  secret_ = false;
  database_ = false;
  folder_bytes_ = 0;
}

void LineMaker::AppendFields(CallReader& call, std::string_view function, Bytes& out) {
  const auto count = call.Take<std::uint8_t>();
  for (int i = 0; i < count; ++i) {
    const std::string_view name = call.Take<const char*>();
    switch (call.Take<FieldKind>()) {
      case FieldKind::kNull:
        AppendKey(name, out);
        out += "null";
        break;
      case FieldKind::kNumber: {
        auto number = call.Take<std::int64_t>();
        if (name == "bytes") number = secret_ ? 0 : number - folder_bytes_;
        AppendKeyNumber(name, number, out);
        if (rules_ != nullptr) rules_->NoteNumber(name, number);
        secret_ = secret_ || IsSecret(name, number);
        database_ = database_ || IsDatabaseName(name, number);
        AppendOptionName(function, name, number, out);
        break;
      }
      case FieldKind::kText: {
        std::string_view text = call.TakeBytes();
        std::u16string short_name;
        if (database_) {
          short_name = WithoutFolder(AsWide(text));
          const std::size_t bytes = short_name.size() * sizeof(char16_t);
          folder_bytes_ = static_cast<std::int64_t>(text.size() - bytes);
          text = {reinterpret_cast<const char*>(short_name.data()), bytes};
        }
        AppendKey(name, out);
        AppendText(text, true,
                   secret_             ? Role::kBlank
                   : rules_ != nullptr ? rules_->RoleOfField(name)
                                       : Role::kPlain,
                   out);
        if (rules_ != nullptr) rules_->NoteText(name, utf8_);
        break;
      }
      case FieldKind::kTable:
        AppendKey("functions", out);
        AppendFunctions(call.TakeBytes(), out);
        break;
    }
  }
}

void LineMaker::AppendBuffer(CallReader& call, std::string_view function, Bytes& out) {
  if (!call.TakeFlag()) return;
  const auto number = call.Take<std::uint16_t>();
  const auto c_type = call.Take<std::int16_t>();
  const auto bytes = call.Take<std::int64_t>();
  const bool bound = call.TakeFlag();
  AppendKeyNumber(function == "SQLBindParameter" ? "number" : "column", number, out);
  if (rules_ != nullptr) rules_->NoteNumber("column", number);
  if (!bound) {
    out += ",\"bound\":false";
    return;
  }
  AppendKeyNumber("type", c_type, out);
  AppendKeyNumber("bytes", bytes, out);
}

void LineMaker::AppendParameters(CallReader& call, Bytes& out) {
  const auto count = call.Take<std::uint16_t>();
  if (count == 0) return;
  AppendKey("parameters", out);
  const char* comma = "[";
  for (int i = 0; i < count; ++i) {
    out += comma;
    AppendCell(call.TakeCell(), Role::kText, out);
    comma = ",";
  }
  out += ']';
}

void LineMaker::AppendColumns(CallReader& call, Bytes& out) {
  if (!call.TakeFlag()) {
    columns_.resize(call.Take<std::uint16_t>());
    for (ColumnCopied& column : columns_) column = call.Take<ColumnCopied>();
    all_columns_ = columns_.empty() || columns_.back().number == columns_.size();
  }
  if (all_columns_) return;
  AppendKey("columns", out);
  char comma = '[';
  for (const ColumnCopied& column : columns_) {
    out += comma;
    AppendNumber(column.number, out);
    comma = ',';
  }
  out += ']';
}

void LineMaker::AppendRows(CallReader& call, Bytes& out) {
  if (!call.TakeFlag()) return;
  const auto claimed = call.Take<std::uint64_t>();
  const auto rows = call.Take<std::uint32_t>();
  if (claimed != rows) AppendKeyNumber("claimed", static_cast<std::int64_t>(claimed), out);
  if (call.TakeFlag()) {
    AppendKey("status", out);
    char comma = '[';
    for (const char16_t row : AsWide(call.TakeBytes())) {
      out += comma;
      AppendNumber(row, out);
      comma = ',';
    }
    out += ']';
  }
  const auto distance = call.Take<std::int64_t>();
  if (distance != 0) AppendKeyNumber("distance", distance, out);
  AppendColumns(call, out);
  out += ",\"rows\":[";
  for (std::uint32_t row = 0; row < rows; ++row) {
    if (row > 0) out += ',';
    AppendRow(call, out);
  }
  out += ']';
}

void LineMaker::AppendRow(CallReader& call, Bytes& out) {
  char comma = '[';
  if (columns_.empty()) out += comma;
  if (rules_ == nullptr) {
    for (const ColumnCopied& column : columns_) {
      out += comma;
      AppendCell(call.TakeCell(column.c_type), Role::kPlain, out);
      comma = ',';
    }
  } else {
    row_.clear();
    for (const ColumnCopied& column : columns_) row_.push_back(call.TakeCell(column.c_type));
    SeeOwners();
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      out += comma;
      AppendCell(row_[i], rules_->RoleOfCell(columns_[i].number), out);
      comma = ',';
    }
  }
  out += ']';
}

void LineMaker::SeeOwners() {
  rules_->BeginRow();
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (rules_->RoleOfCell(columns_[i].number) != Role::kOwner) continue;
    const Cell& cell = row_[i];
    if (cell.has_indicator && cell.indicator == SQL_NULL_DATA) continue;
    utf8_.clear();
    if (!IsWide(cell.c_type)) {
      rules_->SeeOwner(cell.bytes);
    } else if (AppendUtf8(AsWide(cell.bytes), utf8_)) {
      rules_->SeeOwner(utf8_);
    }
  }
}

void LineMaker::AppendDiagnostics(CallReader& call, Bytes& out) {
  const auto count = call.Take<std::uint8_t>();
  if (count == 0) return;
  AppendKey("diagnostics", out);
  const char* comma = "[";
  for (int i = 0; i < count; ++i) {
    out += comma;
    out += "{\"state\":";
    AppendString(call.TakeBytes(), out);
    AppendKeyNumber("native", call.Take<std::int32_t>(), out);
    AppendKey("message", out);
    AppendText(call.TakeBytes(), true, rules_ != nullptr ? Role::kBlank : Role::kPlain, out);
    out += '}';
    comma = ",";
  }
  out += ']';
}

// A value alone where its indicator is what it should be, else an object with both.
void LineMaker::AppendCell(const Cell& cell, Role role, Bytes& out) {
  if (cell.has_indicator && cell.indicator == SQL_NULL_DATA) {
    out += "null";
    return;
  }
  const bool number = NumberBytes(cell.c_type) != 0;
  const bool text = IsWide(cell.c_type) || IsNarrow(cell.c_type);
  const bool odd =
      cell.has_indicator && cell.indicator != static_cast<std::int64_t>(cell.bytes.size());
  // Some drivers give numbers without a length.
  const bool object = (odd && !(number && cell.indicator == 0)) || (!number && !text);
  if (object) {
    out += "{\"indicator\":";
    AppendNumber(cell.has_indicator ? cell.indicator : SQL_NTS, out);
    out += ",\"value\":";
  }
  if (number && !cell.bytes.empty()) {
    AppendNumber(NumberOf(cell), out);
  } else if (text) {
    AppendText(cell.bytes, IsWide(cell.c_type), role, out);
  } else {
    AppendHex(role == Role::kPlain ? cell.bytes : std::string_view(), out);
  }
  if (object) out += '}';
}

// What is not well formed stands as its bytes, which a JSON string could not hold.
void LineMaker::AppendText(std::string_view bytes, bool wide, Role role, Bytes& out) {
  const bool as_it_is = rules_ == nullptr && role != Role::kBlank;
  if (as_it_is && (wide ? AppendPlainString(AsWide(bytes), out) : AppendPlainString(bytes, out))) {
    return;
  }
  std::string_view text = bytes;
  bool well_formed = true;
  if (wide) {
    utf8_.clear();
    well_formed = AppendUtf8(AsWide(bytes), utf8_);
    text = utf8_;
  } else {
    well_formed = IsUtf8(bytes);
  }
  if (role == Role::kBlank || (rules_ != nullptr && role != Role::kPlain && !well_formed)) {
    out += "\"\"";
  } else if (rules_ != nullptr && role != Role::kPlain) {
    AppendString(rules_->Apply(role, text), out);
  } else if (well_formed) {
    AppendString(text, out);
  } else {
    out += wide ? "{\"utf16\":" : "{\"bytes\":";
    AppendHex(bytes, out);
    out += '}';
  }
}

}  // namespace recording
