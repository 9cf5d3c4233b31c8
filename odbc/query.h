// One statement of the module's own: its text with `?`, the values of the parameters, and the rows
// as UTF-8 texts, whole and however long. Unlike LcODBCFetch it shows nothing to anybody: what
// fails is a value that has to be looked at.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "odbc/diagnostic.h"

namespace odbc {

class Statement;

// Why a statement gave no rows, or no more.
struct QueryFailure {
  std::vector<Diagnostic> diagnostics;  // all that the driver had; none where it was silent

  // One line for people: the first message, behind its state and number. UTF-16.
  [[nodiscard]] std::u16string Text() const;
  // The driver says that the connection itself is gone.
  [[nodiscard]] bool IsConnectionLost() const;
};

enum class [[nodiscard]] QueryState{
    kRow,      // executed, and a row after each fetch
    kEnd,      // no row any more
    kFailed,   // the failure tells why
    kStopped,  // the host does not want to go on; the statement was cancelled
};

class Query {
 public:
  // The handles are borrowed. `is_stopped` is asked before a statement and every 256 rows.
  Query(void* henv, void* hdbc, std::function<bool()> is_stopped);
  ~Query();
  Query(const Query&) = delete;
  Query& operator=(const Query&) = delete;

  // Texts arrive as UTF-8 in narrow cells, which costs less on some drivers; in wide ones where the
  // driver would take narrow ones in another encoding. Wide at first.
  void UseNarrowCells(bool narrow) { narrow_ = narrow; }
  [[nodiscard]] bool UsesNarrowCells() const { return narrow_; }

  // Runs a statement that gives `columns` result columns, 0 for one without a result. Texts are
  // UTF-8. Ends the statement before. kRow when it was executed. `heading` names the columns for
  // those who listen to the driver's calls.
  [[nodiscard]] QueryState Execute(std::string_view sql, const std::vector<std::string>& parameters,
                                   std::size_t columns, std::u16string_view heading = {});
  [[nodiscard]] QueryState Fetch();
  // A cell of the row, 0-based, valid until the next call; a view without data for NULL, which an
  // empty text is not.
  [[nodiscard]] std::string_view Cell(std::size_t column) const { return cells_[column]; }
  // How many columns the statement gives, as the driver says.
  [[nodiscard]] std::size_t ColumnsGiven() const { return columns_given_; }
  [[nodiscard]] const QueryFailure& Failure() const { return failure_; }
  // Ends the statement; nothing of it stays open on the connection.
  void Close();

 private:
  // A cell that is longer is read again, whole.
  static constexpr std::size_t kBoundBytes = 1024;
  struct BoundCell {
    alignas(char16_t) std::array<char, kBoundBytes> bytes{};
    std::int64_t indicator = 0;  // a SQLLEN
    std::string text;            // of a long cell, or of a wide one
  };

  QueryState Fail();
  QueryState Stop();
  [[nodiscard]] bool BindParameters(const std::vector<std::string>& parameters);
  [[nodiscard]] bool BindCells(std::size_t columns);
  [[nodiscard]] bool TakeCell(std::size_t column);
  [[nodiscard]] bool TakeLongCell(std::size_t column);
  [[nodiscard]] bool RefuseCell(const char* why);

  void* henv_;
  void* hdbc_;
  std::function<bool()> is_stopped_;
  bool narrow_ = false;
  std::unique_ptr<Statement> statement_;
  std::vector<std::u16string> parameters_;
  std::vector<std::int64_t> parameter_bytes_;
  std::vector<std::unique_ptr<BoundCell>> bound_;  // their addresses are the driver's
  std::vector<std::string_view> cells_;
  std::size_t columns_given_ = 0;
  unsigned rows_ = 0;
  QueryFailure failure_;
};

}  // namespace odbc
