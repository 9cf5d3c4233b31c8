// Notifications as a host receives them, and the beginning and end of a route.
#include "session/session.h"

#include <gtest/gtest.h>

#include "tests/support/recorded_session.h"

namespace odbcimport::test {
namespace {

struct Session : testing::Test, RecordedSession {
  Session() : RecordedSession(dbmsUnknown) {}
};

TEST_F(Session, SendsTheRecordThatBelongsToTheNotification) {
  for (int notify = 0; notify <= 12; ++notify) {
    session.progress.StatusDialog(static_cast<enumImpNotify>(notify), iiForeignKeys, 7, u"owner",
                                  nullptr, u"detail", false);
    const Notification& received = Notifications().back();
    EXPECT_EQ(received.notify, notify);
    const bool starts = notify == 2 || notify == 4;
    const bool is_item = notify == 6 || (notify >= 8 && notify <= 10);
    EXPECT_EQ(received.has_record, starts || is_item) << notify;
    EXPECT_EQ(received.item_type, starts ? iiForeignKeys : -1) << notify;
    EXPECT_EQ(received.count, notify == 4 ? 7u : 0u) << notify;
    EXPECT_EQ(received.text1, is_item ? u"owner" : u"") << notify;
    EXPECT_EQ(received.text2, u"") << notify;
    EXPECT_EQ(received.text3, is_item ? u"detail" : u"") << notify;
    EXPECT_EQ(received.flag, !is_item) << notify;
  }
}

TEST_F(Session, EndsWithTheHostsReason) {
  const struct {
    bool running, cancelled;
    unsigned short status;
  } cases[] = {{true, false, 77}, {false, false, 9}, {true, true, 4}, {false, true, 4}};
  for (const auto& test : cases) {
    unsigned short status = 77;
    session.progress.BeginRoute();
    EXPECT_TRUE(importer.running);
    importer.running = test.running;
    importer.cancelled = test.cancelled;
    session.progress.EndRoute(status);
    EXPECT_EQ(status, test.status);
  }
}

}  // namespace
}  // namespace odbcimport::test
