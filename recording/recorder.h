// Keeps every driver call that it is told of as a line of a recording (docs/recordings.md). The
// caller's thread copies what the driver said; a thread of the recorder's own makes lines of it,
// hides what is to be hidden, compresses and writes. What waits between the two is bounded: where
// the writer is behind, calls wait for it.
#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <unordered_map>
#include <vector>

#include "platform/platform.h"
#include "recording/bytes.h"
#include "recording/call_bytes.h"
#include "recording/call_line.h"
#include "recording/file.h"

namespace recording {

// All diagnostics of the call that was just made; they stay with the handle.
using ReadDiagnostics = std::function<std::vector<Diagnostic>(const platform::DriverCall& call)>;

class Recorder : public platform::CallLog {
 public:
  // Keeps calls back until the header is known. `rules` hides names; null: they stay.
  Recorder(const std::string& file, std::unique_ptr<NameRules> rules,
           ReadDiagnostics read_diagnostics);
  ~Recorder() override;
  Recorder(const Recorder&) = delete;
  Recorder& operator=(const Recorder&) = delete;

  // Replaces the file; its first line, a JSON object, comes before everything else.
  void Begin(const std::string& header);
  void OnCall(const platform::DriverCall& call) override;
  // A line about the host at this place among the calls; `what` and the names of the fields are
  // kept as they are.
  void Note(const char* what, std::span<const platform::DriverField> fields);
  // Writes what waits, and the last line. Nothing is kept after it.
  void Finish();
  // False once something could not be written.
  [[nodiscard]] bool IsGood() const;

 private:
  struct Statement {
    std::uint32_t number = 0;
    std::uint64_t rowset = 1;
    Bindings columns;
    Bindings parameters;
  };

  void Follow(const platform::DriverCall& call, Statement& statement);
  void Push(std::unique_lock<std::mutex>& lock);
  void WriteLines();
  void WriteBatch(std::string_view batch);

  const ReadDiagnostics read_diagnostics_;
  LineMaker lines_;  // the writer's
  const std::string name_;
  std::optional<OutputFile> file_;  // since Begin
  Bytes text_;                      // the writer's scratch

  mutable std::mutex mutex_;
  std::condition_variable filled_;   // there is something to write
  std::condition_variable emptied_;  // there is room again
  Bytes waiting_;                    // copied calls and notes
  bool begun_ = false;
  bool finished_ = false;
  bool good_ = true;
  std::uint64_t calls_ = 0;
  std::uint32_t statements_made_ = 0;
  std::uint32_t columns_of_ = 0;  // the statement whose columns the writer knows; 0: none
  std::unordered_map<void*, Statement> statements_;
  Statement unknown_;  // for a call on the connection
  std::thread writer_;
};

}  // namespace recording
