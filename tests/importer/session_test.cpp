// Notifications as a host receives them, and the beginning and end of a route.
#include "importer/session.h"

#include <gtest/gtest.h>

#include "catalogues/type_lists.h"
#include "importer/odbc_workbook_import.h"
#include "importer/workbook/workbook.h"

namespace {

using odbcimport::ImportSession;

struct Received {
  int notify = -1;
  bool has_record = false;
  LcImpProgStartInfo start;
  LcImpItemInfo item;
} received;

void Receive(enumImpNotify notify, void* record) {
  received = {notify, record != nullptr, {}, {}};
  if (notify == inPhaseStart || notify == inLoopStart) {
    received.start = *static_cast<LcImpProgStartInfo*>(record);
  } else if (record != nullptr) {
    received.item = *static_cast<LcImpItemInfo*>(record);
  }
}

struct Session : testing::Test {
  LcWorkbook workbook;
  LcODBCWorkbookImport importer{nullptr, &workbook};
  odbcimport::ServerFacts facts;
  LcImpItemInfo item;
  std::shared_ptr<LcODBCDatatypeList> types = std::make_shared<LcODBCDatatypeList>(dbmsUnknown, 0);
  ImportSession session{importer, &workbook, facts, types, &Receive, item};
};

TEST_F(Session, SendsTheRecordThatBelongsToTheNotification) {
  for (int notify = 0; notify <= 12; ++notify) {
    session.StatusDialog(static_cast<enumImpNotify>(notify), iiForeignKeys, 7, u"owner", nullptr,
                         u"detail", false);
    EXPECT_EQ(received.notify, notify);
    const bool starts = notify == 2 || notify == 4;
    const bool is_item = notify == 6 || (notify >= 8 && notify <= 10);
    EXPECT_EQ(received.has_record, starts || is_item) << notify;
    EXPECT_EQ(received.start.item_type, starts ? iiForeignKeys : iiNone) << notify;
    EXPECT_EQ(received.start.count, notify == 4 ? 7u : 0u) << notify;
    EXPECT_EQ(received.item.text1, is_item ? u"owner" : u"") << notify;
    EXPECT_EQ(received.item.text2, u"") << notify;
    EXPECT_EQ(received.item.text3, is_item ? u"detail" : u"") << notify;
    EXPECT_EQ(received.item.flag, !is_item) << notify;
  }
}

TEST_F(Session, EndsWithTheHostsReason) {
  const struct {
    bool running, cancelled;
    unsigned short status;
  } cases[] = {{true, false, 77}, {false, false, 9}, {true, true, 4}, {false, true, 4}};
  for (const auto& test : cases) {
    unsigned short status = 77;
    session.BeginRoute();
    EXPECT_TRUE(importer.running);
    importer.running = test.running;
    importer.cancelled = test.cancelled;
    session.EndRoute(status);
    EXPECT_EQ(status, test.status);
  }
}

TEST_F(Session, CreatesTypesFromTheOwnListWithoutATarget) {
  EXPECT_EQ(&session.TypesInForce(), &workbook.data_types);
  importer.targets.data_types = nullptr;
  EXPECT_EQ(&session.TypesInForce(), types.get());
}

}  // namespace
