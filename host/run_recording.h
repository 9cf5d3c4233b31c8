// The recording of a run: what the driver answered, kept for somebody who has no such server.
#pragma once

#include <memory>
#include <string>

#include "host/connection.h"
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
  const std::shared_ptr<recording::Recorder>& recorder() const { return recorder_; }
  // Asks the driver what a replay wants to know of it, and begins the file with its name.
  void Begin(const Connection& connection);
  // Ends the file; whether all of it could be written.
  bool Finish();
  bool IsGood() const;
  const std::string& name() const { return name_; }

 private:
  class Scrubber;

  std::string name_;
  std::string names_;  // "plain" or "hashed"
  std::shared_ptr<Scrubber> scrubber_;
  std::shared_ptr<recording::Recorder> recorder_;
};

}  // namespace wbhost
