// A driver call copied into plain bytes, so that what the driver said outlives its buffers: the
// importing thread copies, another one makes lines of it. One process writes and reads them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "platform/driver_call.h"
#include "recording/bytes.h"

namespace recording {

// A diagnostic record as the driver manager has it.
struct Diagnostic {
  std::string state;  // ASCII
  std::int32_t native_error = 0;
  std::u16string message;
};

// Memory that is bound on a statement; the number of the column or parameter is its place.
using Bindings = std::vector<platform::DriverBuffer>;

// What the copy of a call has beside the call itself.
struct CallContext {
  std::uint32_t statement = 0;  // its number in the recording; 0: the connection
  std::uint32_t made = 0;       // the number of the statement that was made; 0: none
  bool piece = false;           // the call's buffer holds a piece of a value
  std::uint64_t rowset = 1;     // rows that the bound memory has room for
  const Bindings* columns = nullptr;
  bool same_columns = false;             // as the fetch that was copied last
  const Bindings* parameters = nullptr;  // of a call that sends them; null: none
  std::vector<Diagnostic> diagnostics;
};

// Appends the copy to `out`: every field, the rows and parameters in the bound memory, and the
// piece that SQLGetData gave.
void CopyCall(const platform::DriverCall& call, const CallContext& context, Bytes& out);

// The same for a note, which has a name and fields only.
void CopyNote(const char* what, std::span<const platform::DriverField> fields, Bytes& out);

// One value out of bound memory.
struct Cell {
  int c_type = 0;
  bool has_indicator = false;
  std::int64_t indicator = 0;
  std::string_view bytes;  // of a text up to its end, of anything else what its type has
};

// A column of the rows of a fetch.
struct ColumnCopied {
  std::uint16_t number = 0;
  std::int16_t c_type = 0;
};

// Reads what CopyCall wrote, in the order in which it stands there. The bytes lie at an even
// address.
class CallReader {
 public:
  explicit CallReader(std::string_view bytes) : rest_(bytes) {}
  [[nodiscard]] bool AtEnd() const { return rest_.empty(); }

  template <class Value>
  Value Take() {
    Value value;
    std::memcpy(&value, rest_.data(), sizeof value);
    rest_.remove_prefix(sizeof value);
    return value;
  }
  bool TakeFlag() { return Take<std::uint8_t>() != 0; }
  std::string_view TakeBytes() { return TakeBytes(Take<std::uint32_t>()); }
  Cell TakeCell() { return TakeCell(Take<std::int16_t>()); }
  Cell TakeCell(int c_type);

 private:
  std::string_view TakeBytes(std::size_t size) {
    if (reinterpret_cast<std::uintptr_t>(rest_.data()) % 2 != 0) rest_.remove_prefix(1);
    const std::string_view bytes = rest_.substr(0, size);
    rest_.remove_prefix(size);
    return bytes;
  }
  std::string_view rest_;
};

// How a field's value was copied.
enum class FieldKind : std::uint8_t { kNull, kNumber, kText, kTable };

// Whether a C type's values are texts: UTF-16, or bytes that are UTF-8 as a rule.
[[nodiscard]] bool IsWide(int c_type);
[[nodiscard]] bool IsNarrow(int c_type);
// Bytes of a number's C type; 0 for everything else.
[[nodiscard]] std::size_t NumberBytes(int c_type);

}  // namespace recording
