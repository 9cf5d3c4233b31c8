// See recorder.h.
#include "recording/recorder.h"

#include <fmt/format.h>
#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <chrono>
#include <string_view>

namespace recording {

using platform::DriverBuffer;
using platform::DriverCall;

namespace {

// The writer is woken for this much, or after a moment; calls wait beyond the limit.
constexpr std::size_t kBatchBytes = std::size_t{256} * 1024;
constexpr std::size_t kMostWaitingBytes = std::size_t{1} * 1024 * 1024;
constexpr auto kMoment = std::chrono::milliseconds(200);
// So that a recording of a program that dies is whole but for its last moment.
constexpr auto kFlushEvery = std::chrono::seconds(1);

std::int64_t FindNumber(const DriverCall& call, std::string_view field) {
  for (const platform::DriverField& asked : call.asked) {
    if (asked.name != field) continue;
    const auto* number = std::get_if<std::int64_t>(&asked.value);
    return number != nullptr ? *number : -1;
  }
  return -1;
}

void Bind(const DriverBuffer& buffer, Bindings& bindings) {
  const auto place =
      std::lower_bound(bindings.begin(), bindings.end(), buffer.number,
                       [](const DriverBuffer& bound, int number) { return bound.number < number; });
  const bool known = place != bindings.end() && place->number == buffer.number;
  if (buffer.data == nullptr) {
    if (known) bindings.erase(place);
  } else if (known) {
    *place = buffer;
  } else {
    bindings.insert(place, buffer);
  }
}

bool Sends(std::string_view function) {
  return function == "SQLExecDirectW" || function == "SQLExecute";
}

// What stands in the queue before a copied call, and before a note.
enum class Entry : std::uint8_t { kCall, kNote };

}  // namespace

Recorder::Recorder(const std::string& file, std::unique_ptr<NameRules> rules,
                   ReadDiagnostics read_diagnostics)
    : read_diagnostics_(std::move(read_diagnostics)), lines_(std::move(rules)), name_(file) {}

Recorder::~Recorder() {
  if (begun_) Finish();
}

bool Recorder::IsGood() const {
  const std::lock_guard lock(mutex_);
  return good_;
}

void Recorder::Begin(const std::string& header) {
  const std::lock_guard lock(mutex_);
  if (begun_) return;
  begun_ = true;
  file_.emplace(name_);
  good_ = file_->IsGood();
  file_->Write(header + "\n");
  writer_ = std::thread(&Recorder::WriteLines, this);
}

// Keeps up with what is bound on the statement.
void Recorder::Follow(const DriverCall& call, Statement& statement) {
  if (call.rows != nullptr) return;
  const std::string_view function = call.function;
  if (function == "SQLBindCol" && SQL_SUCCEEDED(call.result)) {
    Bind(*call.buffer, statement.columns);
    columns_of_ = 0;
  } else if (function == "SQLBindParameter" && SQL_SUCCEEDED(call.result)) {
    Bind(*call.buffer, statement.parameters);
  } else if (function == "SQLSetStmtOption" && FindNumber(call, "option") == SQL_ROWSET_SIZE) {
    // A driver that refuses reads one row, into memory for as many as were asked for.
    statement.rowset = std::max<std::int64_t>(FindNumber(call, "value"), 1);
  } else if (function == "SQLFreeStmt") {
    const std::int64_t option = FindNumber(call, "option");
    if (option == SQL_UNBIND) statement.columns.clear();
    columns_of_ = 0;
    if (option == SQL_RESET_PARAMS) statement.parameters.clear();
  }
}

void Recorder::OnCall(const DriverCall& call) {
  const std::string_view function = call.function;
  // These ask the driver manager alone; the diagnostics stand with the call that they are of.
  if (function == "SQLErrorW" || function == "SQLGetEnvAttr") return;
  CallContext context;
  if (call.result == SQL_ERROR || call.result == SQL_SUCCESS_WITH_INFO)
    context.diagnostics = read_diagnostics_(call);

  std::unique_lock lock(mutex_);
  if (finished_) return;
  ++calls_;
  const auto known = call.on_statement ? statements_.find(call.handle) : statements_.end();
  Statement* const statement = known != statements_.end() ? &known->second : &unknown_;
  Follow(call, *statement);
  context.statement = statement->number;
  const bool fetches = call.rows != nullptr;  // nearly every call does
  context.rowset = fetches && call.rows->status == nullptr ? 1 : statement->rowset;
  context.columns = &statement->columns;
  if (fetches && SQL_SUCCEEDED(call.result)) {
    context.same_columns = columns_of_ != 0 && columns_of_ == statement->number;
    columns_of_ = statement->number;
  }
  context.piece = !fetches && function == "SQLGetData";
  if (!fetches && Sends(function)) context.parameters = &statement->parameters;
  if (call.made != nullptr && SQL_SUCCEEDED(call.result)) {
    Statement made;
    made.number = ++statements_made_;
    context.made = made.number;
    statements_.insert_or_assign(call.made, std::move(made));
  }
  waiting_ += static_cast<char>(Entry::kCall);
  CopyCall(call, context, waiting_);
  const bool dropped =
      !fetches && function == "SQLFreeStmt" && FindNumber(call, "option") == SQL_DROP;
  if (dropped && SQL_SUCCEEDED(call.result)) statements_.erase(call.handle);
  if (statement == &unknown_) unknown_ = {};
  Push(lock);
}

void Recorder::Note(const char* what, std::span<const platform::DriverField> fields) {
  std::unique_lock lock(mutex_);
  if (finished_) return;
  waiting_ += static_cast<char>(Entry::kNote);
  CopyNote(what, fields, waiting_);
  Push(lock);
}

void Recorder::Push(std::unique_lock<std::mutex>& lock) {
  if (waiting_.size() < kBatchBytes) return;
  filled_.notify_one();
  // Without a writer nothing is ever taken out.
  if (begun_) emptied_.wait(lock, [this] { return waiting_.size() < kMostWaitingBytes; });
}

void Recorder::Finish() {
  if (!begun_) Begin("{}");
  {
    const std::lock_guard lock(mutex_);
    if (finished_) return;
    finished_ = true;
  }
  filled_.notify_one();
  writer_.join();
  file_->Write(fmt::format("{{\"host\":\"end\",\"calls\":{}}}\n", calls_));
  file_->Close();
  good_ = file_->IsGood();
}

void Recorder::WriteLines() {
  Bytes batch;
  auto flushed = std::chrono::steady_clock::now();
  for (bool last = false; !last;) {
    {
      std::unique_lock lock(mutex_);
      filled_.wait_for(lock, kMoment,
                       [this] { return finished_ || waiting_.size() >= kBatchBytes; });
      last = finished_;
      batch.swap(waiting_);
    }
    emptied_.notify_one();
    WriteBatch(batch.view());
    batch.clear();
    if (const auto now = std::chrono::steady_clock::now(); now - flushed >= kFlushEvery) {
      file_->Flush();
      flushed = now;
    }
    if (file_->IsGood()) continue;
    const std::lock_guard lock(mutex_);
    good_ = false;
  }
}

void Recorder::WriteBatch(std::string_view batch) {
  CallReader reader(batch);
  text_.clear();
  while (!reader.AtEnd()) {
    if (reader.Take<Entry>() == Entry::kCall) {
      lines_.Append(reader, text_);
    } else {
      lines_.AppendNote(reader, text_);
    }
    if (text_.size() < kBatchBytes) continue;
    file_->Write(text_.view());
    text_.clear();
  }
  file_->Write(text_.view());
}

}  // namespace recording
