// One import through the module, from the choices to a filled workbook.
#pragma once

#include <memory>

#include "host/choices.h"
#include "host/connection.h"
#include "host/outcome.h"
#include "host/progress.h"
#include "host/reports.h"
#include "host/services.h"
#include "importer/odbc_workbook_import.h"
#include "importer/workbook/workbook.h"
#include "importer/workbook/workbook_file.h"

namespace wbhost {

// Holds the module for its lifetime. Throws a Failure where it does not start.
class StartedModule {
 public:
  explicit StartedModule(const std::optional<std::string>& message_folder);
  ~StartedModule();
  // What was left out at the start: settings that cannot be read. Empty: nothing.
  [[nodiscard]] const std::string& note() const { return note_; }

  StartedModule(const StartedModule&) = delete;
  StartedModule& operator=(const StartedModule&) = delete;

 private:
  std::string note_;
};

struct ImportResult {
  std::unique_ptr<LcWorkbook> workbook;
  LcWorkbookFileInfo info;
  std::uint32_t items = 0;    // that were asked for
  std::string why_not_exact;  // where the exact reading was wanted and not possible
  bool connection_lost = false;
  std::string last_failure;  // the driver's last call that failed, however it was taken; or empty
  double seconds = 0;
};

// Runs imports on one connection, one at a time, with one way of reporting.
class ImportRunner {
 public:
  ImportRunner(const Connection& connection, const InstalledServices& services,
               ProgressMode progress, Screen& screen, Reports& reports, RunRecording& recording,
               const ReplayNotes* notes);

  // Lets names pass into statements that could leave their quotes there.
  void AllowUnsafeNames(bool allow) { unsafe_names_ = allow; }

  // Imports the items of the mask. Throws a Failure before any statement that would have such a
  // name in it. `traced` false keeps a run that only prepares another one out of the notification
  // trace. Interrupts take effect at the notifications.
  [[nodiscard]] ImportResult Run(const LcImportChoices& choices, std::uint32_t item_mask,
                                 bool traced = true);
  // The route that a run would take, with what is known of the server then.
  [[nodiscard]] LcODBCWorkbookImport::RouteDecision DecideRoute(const LcImportChoices& choices);

  // What the run in hand has read, where its thread is inside of a call that never comes back: the
  // workbook is null where there is nothing to keep.
  [[nodiscard]] ImportResult TakeRest();

  // Adds what a result means for the exit code, with what is to be said of it.
  void Judge(const ImportResult& result, Outcome& outcome) const;

  [[nodiscard]] const Connection& connection() const { return connection_; }
  [[nodiscard]] bool IsRecordedOrPlayed() const {
    return notes_ != nullptr || recording_.recorder() != nullptr;
  }

 private:
  class Importer;
  static void OnNotify(enumImpNotify notify, void* record);
  void Notify(enumImpNotify notify, void* record);
  // Takes what was lost unseen into the workbook. What the exact reading loses it tells itself.
  void AddLost(ImportResult& result) const;
  void CheckNames(const LcImportChoices& choices);
  // A line for everything that was not read; what failed counts for the exit code.
  void SayWhatIsMissing(const ImportResult& result, Outcome& outcome) const;

  const Connection& connection_;
  const InstalledServices& services_;
  const ProgressMode progress_mode_;
  Screen& screen_;
  Reports& reports_;
  RunRecording& recording_;
  const ReplayNotes* const notes_;  // null: nothing is replayed
  const std::u16string catalog_;    // read where the choices name none
  const std::u16string database_;   // what the connection is in
  LcWorkbookLogin login_;

  // The run in hand, which the callback, a plain function, has to find.
  static ImportRunner* active_;
  LcODBCWorkbookImport* importer_ = nullptr;
  ImportResult* result_ = nullptr;
  Progress* progress_ = nullptr;
  bool traced_ = true;
  bool is_part_ = false;             // the choices name tables
  unsigned imports_ = 0;             // begun
  unsigned notifications_ = 0;       // of the one in hand
  std::size_t failures_before_ = 0;  // driver calls that failed before the import in hand began
  bool unsafe_names_ = false;
};

}  // namespace wbhost
