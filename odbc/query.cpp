// Execution, bound cells and long cells.
#include "odbc/query.h"

#include <algorithm>

#include "base/fast_utf.h"
#include "base/utf.h"
#include "odbc/driver.h"

namespace odbc {

static_assert(std::is_same_v<SQLLEN, std::int64_t>);

namespace {

constexpr unsigned kRowsBetweenPolls = 256;
// Beyond this a parameter is declared as a long text; a variable one ends there on some drivers.
constexpr std::size_t kLongParameter = 4000;

void AppendAscii(std::string_view text, std::u16string& out) {
  out.append(text.begin(), text.end());
}

}  // namespace

std::u16string QueryFailure::Text() const {
  std::u16string text;
  if (diagnostics.empty()) {
    AppendAscii("the driver gave no reason", text);
    return text;
  }
  const Diagnostic& first = diagnostics.front();
  text = first.state;
  if (first.native_error != 0) {
    text += u' ';
    AppendAscii(std::to_string(first.native_error), text);
  }
  text += u' ';
  return text + first.message;
}

bool QueryFailure::IsConnectionLost() const {
  for (const Diagnostic& diagnostic : diagnostics) {
    const std::u16string_view state = diagnostic.state;
    // Class 08; psqlODBC has the state of its own for a server that went away.
    if (state.starts_with(u"08") || state == u"57P01") return true;
  }
  return false;
}

Query::Query(void* henv, void* hdbc, std::function<bool()> is_stopped)
    : henv_(henv),
      hdbc_(hdbc),
      is_stopped_(std::move(is_stopped)),
      statement_(std::make_unique<Statement>()) {}

Query::~Query() { Close(); }

void Query::Close() {
  statement_->Drop();
  cells_.clear();
}

QueryState Query::Fail() {
  constexpr int kMostDiagnostics = 100;  // a driver may give the same one for ever
  failure_.diagnostics.clear();
  Diagnostic diagnostic;
  for (int i = 0;
       i < kMostDiagnostics && TakeDiagnostic(henv_, hdbc_, statement_->Get(), &diagnostic); ++i) {
    failure_.diagnostics.push_back(diagnostic);
  }
  Close();
  return QueryState::kFailed;
}

QueryState Query::Stop() {
  if (statement_->IsAllocated()) statement_->Cancel();
  Close();
  return QueryState::kStopped;
}

QueryState Query::Execute(std::string_view sql, const std::vector<std::string>& parameters,
                          std::size_t columns, std::u16string_view heading) {
  Close();
  failure_ = {};
  rows_ = 0;
  columns_given_ = 0;
  if (is_stopped_()) return QueryState::kStopped;
  if (!Succeeded(statement_->Allocate(hdbc_)) || !BindParameters(parameters)) return Fail();
  const SQLRETURN executed = statement_->ExecDirect(base::ToUtf16(sql), heading);
  // A statement that changes nothing may say so, as one that ends a transaction does.
  if (!Succeeded(executed) && executed != SQL_NO_DATA_FOUND) return Fail();
  if (columns == 0) return QueryState::kRow;
  SQLSMALLINT given = 0;
  if (!Succeeded(statement_->NumResultCols(&given))) return Fail();
  columns_given_ = static_cast<std::size_t>(given < 0 ? 0 : given);
  if (columns_given_ != columns) {
    Diagnostic mismatch;
    AppendAscii("the statement gives " + std::to_string(columns_given_) +
                    " columns, its heading names " + std::to_string(columns),
                mismatch.message);
    Close();
    failure_.diagnostics = {mismatch};
    return QueryState::kFailed;
  }
  return BindCells(columns) ? QueryState::kRow : Fail();
}

bool Query::BindParameters(const std::vector<std::string>& parameters) {
  parameters_.resize(parameters.size());
  parameter_bytes_.resize(parameters.size());
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    parameters_[i] = base::ToUtf16(parameters[i]);
    const std::size_t characters = parameters_[i].size();
    parameter_bytes_[i] = static_cast<SQLLEN>(characters * sizeof(char16_t));
    const SQLRETURN result =
        statement_->BindParameter(static_cast<SQLUSMALLINT>(i + 1), SQL_C_WCHAR,
                                  characters > kLongParameter ? SQL_WLONGVARCHAR : SQL_WVARCHAR,
                                  characters == 0 ? 1 : characters, parameters_[i].data(),
                                  parameter_bytes_[i], &parameter_bytes_[i]);
    if (!Succeeded(result)) return false;
  }
  return true;
}

bool Query::BindCells(std::size_t columns) {
  while (bound_.size() < columns) bound_.push_back(std::make_unique<BoundCell>());
  cells_.assign(columns, {});
  for (std::size_t i = 0; i < columns; ++i) {
    const SQLRETURN result = statement_->BindCol(
        static_cast<SQLUSMALLINT>(i + 1), narrow_ ? SQL_C_CHAR : SQL_C_WCHAR,
        bound_[i]->bytes.data(), static_cast<SQLLEN>(kBoundBytes), &bound_[i]->indicator);
    if (!Succeeded(result)) return false;
  }
  return true;
}

QueryState Query::Fetch() {
  if (++rows_ % kRowsBetweenPolls == 0 && is_stopped_()) return Stop();
  const SQLRETURN fetched = statement_->Fetch();
  if (fetched == SQL_NO_DATA_FOUND) {
    Close();
    return QueryState::kEnd;
  }
  if (!Succeeded(fetched)) return Fail();
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    if (TakeCell(i)) continue;
    if (failure_.diagnostics.empty()) return Fail();
    Close();
    return QueryState::kFailed;
  }
  return QueryState::kRow;
}

bool Query::TakeCell(std::size_t column) {
  BoundCell& cell = *bound_[column];
  // A cell of NULL keeps the bytes of the row before on some drivers: the indicator alone tells.
  if (cell.indicator == SQL_NULL_DATA) {
    cells_[column] = {};
    return true;
  }
  const std::size_t room = kBoundBytes - (narrow_ ? sizeof(char) : sizeof(char16_t));
  const bool whole =
      cell.indicator >= 0 && static_cast<std::size_t>(cell.indicator) <= room;  // or no total
  if (!whole) return TakeLongCell(column);
  const auto bytes = static_cast<std::size_t>(cell.indicator);
  if (narrow_) {
    cells_[column] = {cell.bytes.data(), bytes};
    return true;
  }
  const std::u16string_view wide(reinterpret_cast<const char16_t*>(cell.bytes.data()),
                                 bytes / sizeof(char16_t));
  base::AssignUtf8(wide, cell.text);
  cells_[column] = cell.text;
  return true;
}

bool Query::RefuseCell(const char* why) {
  Diagnostic refusal;
  AppendAscii(why, refusal.message);
  failure_.diagnostics = {refusal};
  return false;
}

// The driver's word for the length is no reason to take memory: what a piece may have at most grows
// with what has arrived.
bool Query::TakeLongCell(std::size_t column) {
  constexpr std::size_t kPieceBytes = 65536;
  constexpr std::size_t kMostFirstBytes = std::size_t{1024} * 1024;
  constexpr std::size_t kMostPieceBytes = std::size_t{16} * 1024 * 1024;
  constexpr std::size_t kMostBytes = std::size_t{256} * 1024 * 1024;
  BoundCell& cell = *bound_[column];
  const std::size_t terminator = narrow_ ? sizeof(char) : sizeof(char16_t);
  std::string bytes;
  std::size_t read = 0;
  std::size_t room = kPieceBytes;
  if (cell.indicator > 0) {
    room = std::min(static_cast<std::size_t>(cell.indicator), kMostFirstBytes) + terminator;
  }
  for (;;) {
    bytes.resize(read + room);
    SQLLEN rest = 0;
    const SQLRETURN result = statement_->GetData(
        static_cast<SQLUSMALLINT>(column + 1), narrow_ ? SQL_C_CHAR : SQL_C_WCHAR,
        bytes.data() + read, static_cast<SQLLEN>(room), &rest);
    if (result == SQL_NO_DATA_FOUND) break;
    if (!Succeeded(result) || rest == SQL_NULL_DATA) return false;
    const bool ends = rest >= 0 && static_cast<std::size_t>(rest) + terminator <= room;
    read += ends ? static_cast<std::size_t>(rest) : room - terminator;
    if (read > kMostBytes) return RefuseCell("a text is longer than 256 MiB");
    if (ends) break;
    room = std::clamp(read, kPieceBytes, kMostPieceBytes);
  }
  bytes.resize(read);
  if (narrow_) {
    cell.text = std::move(bytes);
  } else {
    std::u16string wide(read / sizeof(char16_t), u'\0');
    bytes.copy(reinterpret_cast<char*>(wide.data()), wide.size() * sizeof(char16_t));
    cell.text = base::ToUtf8(wide);
  }
  cells_[column] = cell.text;
  return true;
}

}  // namespace odbc
