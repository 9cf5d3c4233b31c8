// See call_ledger.h.
#include "host/call_ledger.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "host/connection.h"
#include "host/progress.h"
#include "host/text.h"

namespace wbhost {

using platform::DriverCall;
using platform::DriverField;

namespace {

// Of the functions that tell themselves what is read.
struct Reads {
  std::string_view function;
  const char* kind;
};
constexpr std::array<Reads, 7> kReads = {{
    {"SQLTablesW", "tables"},
    {"SQLColumnsW", "columns"},
    {"SQLPrimaryKeysW", "primary keys"},
    {"SQLStatisticsW", "unique indexes"},
    {"SQLForeignKeysW", "foreign keys"},
    {"SQLProceduresW", "procedures"},
    {"SQLGetTypeInfoW", "data types"},
}};
// Whose failure costs nothing: they ask about the driver, set what it may refuse, or clean up.
constexpr std::array<std::string_view, 10> kHarmless = {
    "SQLGetInfoW",        "SQLGetFunctions", "SQLGetConnectOption", "SQLGetConnectAttr",
    "SQLGetConnectAttrW", "SQLGetEnvAttr",   "SQLSetStmtOption",    "SQLErrorW",
    "SQLCancel",          "SQLFreeStmt"};
constexpr std::size_t kMostKept = 100'000;
// ODBC's own numbers.
constexpr std::uint16_t kRowFailed = 5;
constexpr short kSqlSuccessWithInfo = 1;
constexpr short kSqlError = -1;
constexpr short kSqlInvalidHandle = -2;

const Reads* FindReads(std::string_view function) {
  const auto found = std::find_if(kReads.begin(), kReads.end(),
                                  [&](const Reads& reads) { return reads.function == function; });
  return found != kReads.end() ? found : nullptr;
}

std::u16string TextOf(const DriverCall& call, std::string_view field) {
  for (const DriverField& asked : call.asked) {
    if (asked.name != field) continue;
    const auto* text = std::get_if<const char16_t*>(&asked.value);
    return text != nullptr && *text != nullptr ? *text : u"";
  }
  return {};
}

bool HasFailedRow(const DriverCall& call) {
  if (call.rows == nullptr || call.rows->status == nullptr || call.result < 0 ||
      call.result > kSqlSuccessWithInfo)
    return false;
  // The driver can claim more rows than there are; nobody asks for rowsets of more.
  constexpr std::uint64_t kMostRows = 10;
  const std::uint64_t rows = std::min(call.rows->count, kMostRows);
  return std::find(call.rows->status, call.rows->status + rows, kRowFailed) !=
         call.rows->status + rows;
}

}  // namespace

CallLedger::Asked CallLedger::AskedBy(const DriverCall& call) const {
  const Reads* reads = FindReads(call.function);
  if (reads == nullptr) return {PhaseName(phase_), {}, {}};
  return {reads->kind, TextOf(call, "owner"), TextOf(call, "table")};
}

void CallLedger::Note(const DriverCall& call) {
  const std::string_view function = call.function;
  const bool opens = FindReads(function) != nullptr || function == "SQLExecDirectW";
  if (opens) statements_[call.handle] = AskedBy(call);
  const bool failed = call.result == kSqlError || call.result == kSqlInvalidHandle;
  if (!failed && !HasFailedRow(call)) return;
  if (std::find(kHarmless.begin(), kHarmless.end(), function) != kHarmless.end()) return;
  std::string state;
  std::string reason =
      failed ? DiagnosticsOfCall(call, state) : "the driver could not give some of the rows";
  if (call.refused != nullptr) reason = call.refused;
  if (state == "IM001") return;
  const auto known = statements_.find(call.handle);
  Lose(known != statements_.end() ? known->second : AskedBy(call),
       fmt::format("{}: {}", function.substr(0, function.size() - (function.back() == 'W' ? 1 : 0)),
                   reason));
}

void CallLedger::Lose(const Asked& asked, const std::string& reason) {
  const LcNotRead* last = lost_.empty() ? nullptr : &lost_.back();
  const std::u16string kind = ToUtf16(asked.kind);
  // A driver that fails for one table tends to fail with every row of it.
  if (last != nullptr && last->kind.View() == kind && last->owner.View() == asked.owner &&
      last->name.View() == asked.name) {
    return;
  }
  if (lost_.size() >= kMostKept) {
    ++more_;
    return;
  }
  LcNotRead& entry = lost_.emplace_back();
  entry.kind = LcText(kind);
  if (!asked.owner.empty()) entry.owner = LcText(asked.owner);
  if (!asked.name.empty()) entry.name = LcText(asked.name);
  entry.reason = LcText(ToUtf16(reason));
}

std::vector<LcNotRead> CallLedger::Take() {
  if (more_ > 0) {
    LcNotRead& entry = lost_.emplace_back();
    entry.kind = LcText(u"more");
    entry.reason = LcText(ToUtf16(fmt::format("{} more calls failed", more_)));
  }
  more_ = 0;
  statements_.clear();
  return std::exchange(lost_, {});
}

}  // namespace wbhost
