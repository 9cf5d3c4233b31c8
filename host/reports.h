// The files that a run writes beside its output: the notification trace, the texts of the message
// boxes, and the diagnostics that were consumed.
#pragma once

#include <fstream>
#include <optional>
#include <string>

#include "host/options.h"
#include "host/screen.h"
#include "host/secrets.h"
#include "importer/workbook/info.h"

namespace wbhost {

// A file of lines. Every line is on the disk before the next call into a driver, which may crash.
class ReportFile {
 public:
  // Does nothing where no file is wanted. One that is wanted stays as it was until Open.
  ReportFile(const std::optional<std::string>& file, const Secrets& secrets);
  void Open();
  [[nodiscard]] bool IsOpen() const { return out_.has_value(); }
  void WriteLine(const std::string& line);
  // Both scrub secrets first; the second writes the text as one JSON string.
  void WriteScrubbed(const std::string& line);
  void WriteJsonString(const std::string& text);
  // False once something could not be written.
  [[nodiscard]] bool IsGood() const { return !out_ || out_->good(); }
  [[nodiscard]] const std::string& name() const { return name_; }

 private:
  std::string name_;  // empty: none is wanted
  const Secrets& secrets_;
  std::optional<std::ofstream> out_;
};

struct Reports {
  Reports(const ReportOptions& options, const Secrets& secrets);
  // Replaces the files, once it is certain that there will be something in them.
  void Open();
  // Says which file could not be written; false when there is one.
  [[nodiscard]] bool Check(Screen& screen) const;

  ReportFile trace;
  ReportFile errors;
  ReportFile log;
};

// The line of the trace for a notification. `record` is what the callback got.
[[nodiscard]] std::string TraceLine(enumImpNotify notify, const void* record);

}  // namespace wbhost
