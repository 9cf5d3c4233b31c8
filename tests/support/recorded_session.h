// A session without a connection, whose notifications are kept.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "catalogues/type_lists.h"
#include "session/session.h"
#include "tests/support/bare_import.h"

namespace odbcimport::test {

struct Notification {
  int notify = 0;
  bool has_record = false;
  int item_type = -1;  // of a phase or loop start
  unsigned long count = 0;
  std::u16string text1, text2, text3;  // of an item
  bool flag = true;
};

inline std::vector<Notification>& Notifications() {
  static std::vector<Notification> notifications;
  return notifications;
}

inline void Record(enumImpNotify notify, void* record) {
  Notification& seen = Notifications().emplace_back();
  seen.notify = notify;
  seen.has_record = record != nullptr;
  if (notify == inPhaseStart || notify == inLoopStart) {
    const auto* start = static_cast<const LcImpProgStartInfo*>(record);
    seen.item_type = start->item_type;
    seen.count = start->count;
  } else if (record != nullptr) {
    const auto* item = static_cast<const LcImpItemInfo*>(record);
    seen.text1 = item->text1;
    seen.text2 = item->text2;
    seen.text3 = item->text3;
    seen.flag = item->flag;
  }
}

struct RecordedSession {
  explicit RecordedSession(LeDBMSType dbms_type, bool is_ius = false) {
    server.dbms_type = dbms_type;
    server.is_ius = is_ius;
    Notifications().clear();
  }
  LcWorkbook workbook;
  wbtest::BareImport importer{&workbook};
  ServerFacts server;
  LcImpItemInfo item;
  ImportSession session{importer, &workbook,
                        server,   std::make_shared<LcODBCDatatypeList>(dbmsUnknown, 0),
                        Record,   item};
};

}  // namespace odbcimport::test
