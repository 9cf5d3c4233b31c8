// A session without a connection, whose notifications are kept: what readers are tested on.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "importer/session.h"
#include "odbc/record_list.h"

namespace odbcimport::test {

struct Notification {
  int notify = 0;
  int item_type = -1;  // of a phase or loop start
  unsigned long count = 0;
  std::u16string text1, text2, text3;  // of an item
};

inline std::vector<Notification>& Notifications() {
  static std::vector<Notification> notifications;
  return notifications;
}

inline void Record(enumImpNotify notify, void* record) {
  Notification& seen = Notifications().emplace_back();
  seen.notify = notify;
  if (notify == inPhaseStart || notify == inLoopStart) {
    const auto* start = static_cast<const LcImpProgStartInfo*>(record);
    seen.item_type = start->item_type;
    seen.count = start->count;
  } else if (record != nullptr) {
    const auto* item = static_cast<const LcImpItemInfo*>(record);
    seen.text1 = item->text1;
    seen.text2 = item->text2;
    seen.text3 = item->text3;
  }
}

class BareImport : public LcWorkbookImport {
 public:
  using LcWorkbookImport::LcWorkbookImport;
  bool ImportItems(unsigned short&) override { return false; }
  bool SyncLogin(void*, void*) override { return false; }
  bool SyncLogin(LcWorkbookDatabase*) override { return false; }
  bool UnSyncLogin() override { return false; }
};

struct RecordedSession {
  explicit RecordedSession(LeDBMSType dbms_type, bool is_ius = false) {
    server.dbms_type = dbms_type;
    server.is_ius = is_ius;
    Notifications().clear();
  }
  LcWorkbook workbook;
  BareImport import{&workbook};
  ServerFacts server;
  LcImpItemInfo item;
  ImportSession session{import, &workbook, server, nullptr, Record, item};
};

inline void AddRow(LcODBCRecordList& rows, std::initializer_list<const char16_t*> cells) {
  rows.AddRow(std::vector<std::u16string_view>(cells.begin(), cells.end()));
}

// For messages and comparisons; the texts under test are ASCII.
inline std::string Narrow(std::u16string_view text) {
  std::string narrow;
  for (char16_t c : text) narrow += c < 128 ? static_cast<char>(c) : '?';
  return narrow;
}

// One line a function: owner.name: and its signatures.
inline std::vector<std::string> Lines(const LcWorkbookFunctionList& functions) {
  std::vector<std::string> lines;
  for (const LcWorkbookFunction* function : functions) {
    std::string line = Narrow(function->GetOwner()) + "." + Narrow(function->GetName()) + ":";
    for (const auto& overload : function->GetOverloads()) line += " " + Narrow(overload->GetText());
    lines.push_back(line);
  }
  return lines;
}

}  // namespace odbcimport::test
