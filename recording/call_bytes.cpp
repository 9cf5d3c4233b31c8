// See call_bytes.h.
#include "recording/call_bytes.h"

#include <sql.h>
#include <sqlext.h>

#include <algorithm>

namespace recording {

using platform::DriverBuffer;
using platform::DriverCall;
using platform::DriverField;
using platform::DriverRows;

namespace {

// In the place of a cell's size: there is none, or the indicator tells another one.
constexpr std::uint32_t kNull = 0xFFFFFFFF;
constexpr std::uint32_t kOdd = 0xFFFFFFFE;
constexpr std::uint32_t kWithoutIndicator = 0xFFFFFFFD;

class Writer {
 public:
  explicit Writer(Bytes& out) : out_(out) {}

  template <class Value>
  void Put(Value value) {
    out_.Put(value);
  }
  void PutFlag(bool flag) { Put(static_cast<std::uint8_t>(flag ? 1 : 0)); }
  void PutBytes(const void* bytes, std::size_t size) {
    Put(static_cast<std::uint32_t>(size));
    PutRaw(bytes, size);
  }
  void PutRaw(const void* bytes, std::size_t size) {
    if (out_.size() % 2 != 0) out_ += '\0';  // texts of UTF-16 are read where they lie
    out_.append(bytes, size);
  }
  void PutText(std::u16string_view text) { PutBytes(text.data(), text.size() * sizeof(char16_t)); }

 private:
  Bytes& out_;
};

void PutField(const DriverField& field, Writer& writer) {
  writer.Put(field.name);
  if (const auto* number = std::get_if<std::int64_t>(&field.value)) {
    writer.Put(FieldKind::kNumber);
    writer.Put(*number);
  } else if (const auto* text = std::get_if<const char16_t*>(&field.value)) {
    writer.Put(*text == nullptr ? FieldKind::kNull : FieldKind::kText);
    if (*text != nullptr) writer.PutText(*text);
  } else if (const auto* view = std::get_if<std::u16string_view>(&field.value)) {
    writer.Put(FieldKind::kText);
    writer.PutText(*view);
  } else {
    const auto& table = std::get<std::span<const std::uint16_t>>(field.value);
    writer.Put(FieldKind::kTable);
    writer.PutBytes(table.data(), table.size_bytes());
  }
}

void PutFields(std::span<const DriverField> fields, Writer& writer) {
  writer.Put(static_cast<std::uint8_t>(fields.size()));
  for (const DriverField& field : fields) PutField(field, writer);
}

// The bytes of a text in a slot of memory. It reaches as far as the indicator says where that is
// inside of the slot and a terminator stands there, else up to the first terminator.
template <class Unit>
std::size_t TextBytes(const char* slot, std::int64_t slot_bytes, const std::int64_t* indicator) {
  const auto units = static_cast<std::size_t>(std::max<std::int64_t>(slot_bytes, 0)) / sizeof(Unit);
  const auto* text = reinterpret_cast<const Unit*>(slot);
  if (indicator != nullptr && *indicator >= 0) {
    const auto told = static_cast<std::size_t>(*indicator) / sizeof(Unit);
    if (told < units && text[told] == 0) return told * sizeof(Unit);
  }
  return static_cast<std::size_t>(std::find(text, text + units, Unit{0}) - text) * sizeof(Unit);
}

std::size_t ValueBytes(int c_type, const char* slot, std::int64_t slot_bytes,
                       const std::int64_t* indicator) {
  if (IsWide(c_type)) return TextBytes<char16_t>(slot, slot_bytes, indicator);
  if (IsNarrow(c_type)) return TextBytes<char>(slot, slot_bytes, indicator);
  if (const std::size_t bytes = NumberBytes(c_type); bytes != 0) return bytes;
  // Binaries and the types nobody here asks for.
  const std::int64_t told = indicator != nullptr ? *indicator : slot_bytes;
  return static_cast<std::size_t>(
      std::clamp<std::int64_t>(told, 0, std::max<std::int64_t>(slot_bytes, 0)));
}

void PutValue(int c_type, const char* slot, std::int64_t slot_bytes, const std::int64_t* indicator,
              Writer& writer) {
  if (indicator != nullptr && *indicator == SQL_NULL_DATA) return writer.Put(kNull);
  const std::size_t size = slot != nullptr ? ValueBytes(c_type, slot, slot_bytes, indicator) : 0;
  if (indicator == nullptr) {
    writer.Put(kWithoutIndicator);
  } else if (*indicator != static_cast<std::int64_t>(size) || size >= kWithoutIndicator) {
    writer.Put(kOdd);
    writer.Put(*indicator);
  } else {
    writer.Put(static_cast<std::uint32_t>(size));
    return writer.PutRaw(slot, size);
  }
  writer.PutBytes(slot, size);
}

void PutCell(int c_type, const char* slot, std::int64_t slot_bytes, const std::int64_t* indicator,
             Writer& writer) {
  writer.Put(static_cast<std::int16_t>(c_type));
  PutValue(c_type, slot, slot_bytes, indicator, writer);
}

bool HasValues(const DriverRows& rows, std::size_t row) {
  if (rows.status == nullptr) return true;
  const std::uint16_t status = rows.status[row];
  return status != SQL_ROW_DELETED && status != SQL_ROW_NOROW && status != SQL_ROW_ERROR;
}

// Some drivers put the rows of a rowset further apart than what was bound (Informix: 2048 bytes
// for 1024), others do not. The memory at the bound distance tells: where a row has a text and none
// begins there, its driver put it elsewhere, and where one begins between the rows of the larger
// distance, its driver goes by the bound length. Without any, the distance makes no difference.
std::int64_t RowDistance(const DriverBuffer& column, const DriverRows& rows, std::size_t count) {
  if (column.row_bytes != 2 * column.bytes || column.indicator == nullptr) return column.bytes;
  const auto* slots = static_cast<const char*>(column.data);
  bool in_between = false;
  bool elsewhere = false;
  for (std::size_t row = 1; row < count; ++row) {
    if (column.indicator[row] <= 0 || !HasValues(rows, row)) continue;
    const char* first = slots + row * static_cast<std::size_t>(column.bytes);
    const bool begins = first[0] != 0 || first[1] != 0;
    in_between = in_between || (begins && row % 2 != 0);
    elsewhere = elsewhere || !begins;
  }
  return elsewhere && !in_between ? column.row_bytes : column.bytes;
}

std::int64_t RowDistance(const Bindings& columns, const DriverRows& rows, std::size_t count) {
  // One column with texts in the right places decides for all.
  std::int64_t longest = 0;
  for (const DriverBuffer& column : columns) {
    const std::int64_t distance = RowDistance(column, rows, count);
    if (distance != column.bytes) longest = std::max(longest, distance);
  }
  return longest;
}

// The columns, where they are not those of the fetch before.
void PutColumns(const CallContext& context, Writer& writer) {
  writer.PutFlag(context.same_columns);
  if (context.same_columns) return;
  writer.Put(static_cast<std::uint16_t>(context.columns->size()));
  for (const DriverBuffer& column : *context.columns) {
    writer.Put(ColumnCopied{static_cast<std::uint16_t>(column.number),
                            static_cast<std::int16_t>(column.c_type)});
  }
}

void PutStatus(const DriverCall& call, std::size_t rows, Writer& writer) {
  const std::uint16_t* status = call.rows->status;
  const bool told = status != nullptr && std::any_of(status, status + rows, [](int row) {
                      return row != SQL_ROW_SUCCESS;
                    });
  writer.PutFlag(told);
  if (told) writer.PutBytes(status, rows * sizeof *status);
}

void PutRows(const DriverCall& call, const CallContext& context, Writer& writer) {
  const bool has_rows = call.rows != nullptr && SQL_SUCCEEDED(call.result);
  writer.PutFlag(has_rows);
  if (!has_rows) return;
  writer.Put(call.rows->count);
  const std::size_t rows = std::min<std::uint64_t>(call.rows->count, context.rowset);
  writer.Put(static_cast<std::uint32_t>(rows));
  PutStatus(call, rows, writer);
  const std::int64_t distance = rows > 1 ? RowDistance(*context.columns, *call.rows, rows) : 0;
  writer.Put(distance);
  PutColumns(context, writer);
  for (std::size_t row = 0; row < rows; ++row) {
    for (const DriverBuffer& column : *context.columns) {
      const std::size_t number_bytes = NumberBytes(column.c_type);
      const auto stride = number_bytes != 0
                              ? number_bytes
                              : static_cast<std::size_t>(distance != 0 ? distance : column.bytes);
      PutValue(column.c_type, static_cast<const char*>(column.data) + row * stride, column.bytes,
               column.indicator != nullptr ? column.indicator + row : nullptr, writer);
    }
  }
}

void PutParameters(const CallContext& context, Writer& writer) {
  const std::size_t count = context.parameters != nullptr ? context.parameters->size() : 0;
  writer.Put(static_cast<std::uint16_t>(count));
  for (std::size_t i = 0; i < count; ++i) {
    const DriverBuffer& parameter = (*context.parameters)[i];
    std::int64_t slot_bytes = parameter.bytes;
    // SQL_NTS and a missing indicator mean a terminated text, whatever length was told with it.
    const std::int64_t told = parameter.indicator != nullptr ? *parameter.indicator : SQL_NTS;
    if (told >= 0) slot_bytes = told;
    if (told == SQL_NTS) slot_bytes = INT32_MAX;
    PutCell(parameter.c_type, static_cast<const char*>(parameter.data), slot_bytes,
            told == SQL_NTS ? nullptr : parameter.indicator, writer);
  }
}

}  // namespace

bool IsWide(int c_type) { return c_type == SQL_C_WCHAR; }
bool IsNarrow(int c_type) { return c_type == SQL_C_CHAR; }

std::size_t NumberBytes(int c_type) {
  switch (c_type) {
    case SQL_C_BIT:
    case SQL_C_TINYINT:
    case SQL_C_STINYINT:
    case SQL_C_UTINYINT:
      return 1;
    case SQL_C_SHORT:
    case SQL_C_SSHORT:
    case SQL_C_USHORT:
      return 2;
    case SQL_C_LONG:
    case SQL_C_SLONG:
    case SQL_C_ULONG:
      return 4;
    case SQL_C_SBIGINT:
    case SQL_C_UBIGINT:
      return 8;
    default:
      return 0;
  }
}

Cell CallReader::TakeCell(int c_type) {
  Cell cell;
  cell.c_type = c_type;
  cell.has_indicator = true;
  const auto size = Take<std::uint32_t>();
  switch (size) {
    case kNull:
      cell.indicator = SQL_NULL_DATA;
      break;
    case kOdd:
      cell.indicator = Take<std::int64_t>();
      cell.bytes = TakeBytes();
      break;
    case kWithoutIndicator:
      cell.has_indicator = false;
      cell.bytes = TakeBytes();
      break;
    default:
      cell.indicator = size;
      cell.bytes = TakeBytes(size);
  }
  return cell;
}

void CopyNote(const char* what, std::span<const DriverField> fields, Bytes& out) {
  Writer writer(out);
  writer.Put(what);
  PutFields(fields, writer);
}

void CopyCall(const DriverCall& call, const CallContext& context, Bytes& out) {
  Writer writer(out);
  writer.Put(call.function);
  writer.Put(context.statement);
  writer.Put(context.made);
  writer.Put(call.result);
  PutFields(call.asked, writer);
  const DriverBuffer* buffer = call.buffer;
  writer.PutFlag(buffer != nullptr);
  if (buffer != nullptr) {
    writer.Put(static_cast<std::uint16_t>(buffer->number));
    writer.Put(static_cast<std::int16_t>(buffer->c_type));
    writer.Put(buffer->bytes);
    writer.PutFlag(buffer->data != nullptr);
  }
  PutParameters(context, writer);
  PutFields(call.answered, writer);
  // What is bound gets its values later.
  const bool piece = buffer != nullptr && context.piece && SQL_SUCCEEDED(call.result);
  writer.PutFlag(piece);
  if (piece) {
    PutCell(buffer->c_type, static_cast<const char*>(buffer->data), buffer->bytes,
            buffer->indicator, writer);
  }
  PutRows(call, context, writer);
  writer.Put(static_cast<std::uint8_t>(context.diagnostics.size()));
  for (const Diagnostic& diagnostic : context.diagnostics) {
    writer.PutBytes(diagnostic.state.data(), diagnostic.state.size());
    writer.Put(diagnostic.native_error);
    writer.PutText(diagnostic.message);
  }
}

}  // namespace recording
