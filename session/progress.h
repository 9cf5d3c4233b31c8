// How an import reports to its host, and hears from it.
#pragma once

#include "importer/workbook/import.h"
#include "session/list_watch.h"

namespace odbcimport {

using NotifyCallback = void (*)(enumImpNotify, void*);

class Progress {
 public:
  // `callback` may be null: nothing is reported then. `targets` are the lists that the callback
  // must leave in place. All is borrowed.
  Progress(LcWorkbookImport& base, const LcImportTargets& targets, NotifyCallback callback,
           LcImpItemInfo& table_in_hand)
      : base_(base), watch_(targets), callback_(callback), table_in_hand_(table_in_hand) {}
  // Ends what a route that failed half-way has begun.
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  // Reports to the host's callback: an LcImpProgStartInfo for 2 (its count is always 0) and 4, an
  // LcImpItemInfo for 6, 8, 9 and 10 (a null text becomes an empty one), null for all others.
  // Throws ListsChanged where the callback took something out of the workbook, and what the
  // callback throws.
  void StatusDialog(enumImpNotify notify, enumImpItemType item_type = iiNone,
                    unsigned long count = 0, const char16_t* text1 = nullptr,
                    const char16_t* text2 = nullptr, const char16_t* text3 = nullptr,
                    bool flag = true) const;
  // Keeps owner and name of the table that is read, for the host's next look.
  void SetTableInHand(const std::u16string& owner, const std::u16string& name) const;

  [[nodiscard]] bool WasImportStoppedOrCancelled() const {
    return base_.WasImportStoppedOrCancelled();
  }
  [[nodiscard]] bool IsRunning() const { return base_.running; }

  // The beginning and the end that all routes share: busy cursor and running mark; at the end the
  // host's reason for an early end goes into `status` (4 cancelled, 9 stopped).
  void BeginRoute();
  void EndRoute(unsigned short& status);

 private:
  void Notify(enumImpNotify notify, void* record) const;

  LcWorkbookImport& base_;
  mutable TargetWatch watch_;
  const NotifyCallback callback_;
  LcImpItemInfo& table_in_hand_;
  bool cursor_shown_ = false;
};

}  // namespace odbcimport
