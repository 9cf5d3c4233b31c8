// The recording of a run: what the driver answered, kept for somebody who has no such server.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <set>
#include <string>

#include "host/choices.h"
#include "host/connection.h"
#include "host/interrupt.h"
#include "host/options.h"
#include "host/secrets.h"
#include "recording/recorder.h"

namespace wbhost {

class RunRecording {
 public:
  // Does nothing where no recording is wanted. `target` is what will be connected to: none of its
  // values enters the recording.
  RunRecording(const ReportOptions& options, const Target& target, const Secrets& secrets);
  ~RunRecording();
  RunRecording(const RunRecording&) = delete;
  RunRecording& operator=(const RunRecording&) = delete;

  // Hears of every driver call; null where nothing is recorded.
  [[nodiscard]] const std::shared_ptr<recording::Recorder>& recorder() const { return recorder_; }
  // Asks the driver what a replay wants to know of it, and begins the file with its name.
  void Begin(const Connection& connection);
  // What the user chose, and what the module asked of the host: a replay does the same.
  void NoteChoices(const Choices& choices);
  void NoteSetting(const std::u16string& name, std::uint32_t value);
  void NoteCatalogSchema(const std::u16string& schema);
  // What is wanted since the n-th notification of an import of the run; both count from 1.
  void NoteInterrupt(InterruptWish wish, unsigned import_number, unsigned notification);
  // Ends the file; whether all of it could be written.
  [[nodiscard]] bool Finish();
  [[nodiscard]] bool IsGood() const;
  const std::string& name() const { return name_; }

 private:
  class Scrubber;
  void NoteSelected(const char16_t* kind, const LcTableInfo& table);
  void Note(const char* what, std::initializer_list<platform::DriverField> fields);

  std::string name_;
  std::string names_;   // "plain" or "hashed"
  std::string driver_;  // as the connection string names it
  std::shared_ptr<Scrubber> scrubber_;
  std::shared_ptr<recording::Recorder> recorder_;
  std::set<std::u16string> settings_noted_;
  InterruptWish wish_noted_ = InterruptWish::kNone;
};

}  // namespace wbhost
