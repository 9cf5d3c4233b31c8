// The fetch layer on a driver that lies: whatever comes back, no crash, no hang, nothing read
// beyond the buffers (run under the sanitizers), no statement left (the driver then refuses to
// disconnect).
#include <gtest/gtest.h>

#include "base/utf.h"
#include "odbc/fetch.h"
#include "odbc/query.h"
#include "tests/support/connection.h"

namespace {

struct Case {
  const char* lie;
  int rows;
  std::u16string last_cell_of_row_1;
  std::size_t messages;
};

std::u16string Repeated(std::size_t count) { return std::u16string(count, u'x'); }

class LyingDriver : public testing::TestWithParam<Case> {};

TEST_P(LyingDriver, IsReadAsFarAsItCanBe) {
  wbtest::Connection connection(std::string("Driver=" WB_BUILD_DIR "/lib/liblyingdriver.so;Lie=") +
                                GetParam().lie + ";");
  wbtest::MessageRecorder messages;
  LcODBCRecordList rows;
  { LcODBCFetch fetch(u"anything", rows, connection.henv(), connection.hdbc(), dbmsOther); }
  EXPECT_EQ(rows.GetRowCount(), GetParam().rows);
  EXPECT_EQ(rows.View(1, rows.GetColumnCount()), GetParam().last_cell_of_row_1);
  EXPECT_EQ(messages.shown().size(), GetParam().messages);
}

INSTANTIATE_TEST_SUITE_P(
    Lies, LyingDriver,
    testing::Values(Case{"none", 3, u"b1", 0},
                    // A rowset has ten rows, whatever the driver claims.
                    Case{"many-rows", 30, u"b1", 0},  //
                    Case{"no-terminator", 3, Repeated(511), 0},
                    Case{"huge-indicator", 3, Repeated(511), 0},
                    Case{"half-indicator", 3, u"", 0},  //
                    // The second row ends the reading with message 30004.
                    Case{"negative-indicator", 1, u"b1", 1}, Case{"many-columns", 3, u"", 0},
                    // Rows without columns are rows.
                    Case{"negative-columns", 3, u"", 0}, Case{"columns-go", 3, u"", 0},
                    // The description ends at column 3, and the binding fails there.
                    Case{"columns-come", 0, u"", 2},  //
                    Case{"endless-name", 3, u"b1", 0},
                    // Failing fetches are not shown, and end.
                    Case{"errors-for-ever", 0, u"", 0}, Case{"no-rows-for-ever", 0, u"", 0},
                    Case{"strange-code", 0, u"", 0}, Case{"errors-between-rows", 3, u"b1", 0},
                    Case{"remark-on-allocation", 0, u"", 1}, Case{"refused-drop", 3, u"b1", 0}),
    [](const testing::TestParamInfo<Case>& test) {
      std::string name = test.param.lie;
      std::replace(name.begin(), name.end(), '-', '_');
      return name;
    });

// A state of which the driver writes five characters and no end, or nothing at all, is one of five
// at the most.
TEST(LyingQuery, EndsAStateThatItsDriverDoesNot) {
  for (const std::string lie : {"unended-state", "no-state"}) {
    wbtest::Connection connection("Driver=" WB_BUILD_DIR "/lib/liblyingdriver.so;Lie=" + lie + ";");
    odbc::Query query(connection.henv(), connection.hdbc(), [] { return false; });
    ASSERT_EQ(query.Execute("anything", {}, 2), odbc::QueryState::kFailed);
    ASSERT_FALSE(query.Failure().diagnostics.empty());
    for (const odbc::Diagnostic& diagnostic : query.Failure().diagnostics) {
      const std::u16string state = diagnostic.state;
      EXPECT_LE(state.size(), 5U);
      if (lie == "unended-state") {
        EXPECT_EQ(state, u"XXXXX");
      }
    }
  }
}

// A cell of which the driver says anything is read in pieces that grow with what arrives, up to a
// limit.
TEST(LyingQuery, GetsNoMemoryForALengthAlone) {
  const std::pair<const char*, odbc::QueryState> cases[] = {
      {"huge-indicator", odbc::QueryState::kRow}, {"endless-cell", odbc::QueryState::kFailed}};
  for (const auto& [lie, state] : cases) {
    wbtest::Connection connection(
        std::string("Driver=" WB_BUILD_DIR "/lib/liblyingdriver.so;Lie=") + lie + ";");
    odbc::Query query(connection.henv(), connection.hdbc(), [] { return false; });
    ASSERT_EQ(query.Execute("anything", {}, 2), odbc::QueryState::kRow);
    ASSERT_EQ(query.Fetch(), state) << lie;
    if (state == odbc::QueryState::kFailed) {
      EXPECT_NE(query.Failure().Text().find(u"longer than 256 MiB"), std::u16string::npos);
    } else {
      EXPECT_EQ(query.Cell(0).size(), 512U * 1024U + (512U * 1024U - 1) + 2);  // three pieces
    }
  }
}

}  // namespace
