// The fetch layer on a driver that lies: whatever comes back, no crash, no hang, nothing read
// beyond the buffers (run under the sanitizers), no statement left (the driver then refuses to
// disconnect).
#include <gtest/gtest.h>

#include <cstdlib>
#include <utility>

#include "base/utf.h"
#include "odbc/driver.h"
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

TEST(LyingQuery, ReadsAHundredDiagnosticsOfACall) {
  for (const auto& [given, read] : {std::pair<int, std::size_t>{99, 99}, {100, 100}, {101, 100}}) {
    wbtest::Connection connection(
        "Driver=" WB_BUILD_DIR "/lib/liblyingdriver.so;Lie=" + std::to_string(given) + "-reasons;");
    odbc::Query query(connection.henv(), connection.hdbc(), [] { return false; });
    ASSERT_EQ(query.Execute("anything", {}, 2), odbc::QueryState::kFailed);
    const std::vector<odbc::Diagnostic>& diagnostics = query.Failure().diagnostics;
    ASSERT_EQ(diagnostics.size(), read);
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

// A cell may be as long as the limit, and no longer. Longer ones take memory too: a part of the
// cases only with WB_LONG.
TEST(LyingQuery, TakesACellOf256MiBAndNoLongerOne) {
  const std::size_t most = std::size_t{256} * 1024 * 1024;
  for (const std::size_t bytes : {most + 2, most, most - 2}) {
    if (bytes <= most && std::getenv("WB_LONG") == nullptr) break;
    wbtest::Connection connection(
        "Driver=" WB_BUILD_DIR "/lib/liblyingdriver.so;Lie=" + std::to_string(bytes) + "-bytes;");
    odbc::Query query(connection.henv(), connection.hdbc(), [] { return false; });
    ASSERT_EQ(query.Execute("anything", {}, 2), odbc::QueryState::kRow);
    const bool fits = bytes <= most;
    ASSERT_EQ(query.Fetch(), fits ? odbc::QueryState::kRow : odbc::QueryState::kFailed) << bytes;
    if (fits) {
      EXPECT_EQ(query.Cell(0).size(), bytes / 2);
    }
  }
}

TEST(ResultSizes, AreExceededByOneRowOrByteMore) {
  platform::ResultLimits& limits = platform::GetServices().result_limits;
  const platform::ResultLimits before = std::exchange(limits, {.rows = 10, .bytes = 50});
  const SQLLEN indicators[] = {5, 6, -1};
  for (const auto& [indicator, exceeds_bytes] : {std::pair{0, false}, {1, true}, {2, false}}) {
    odbc::ResultSize size;
    size.Bind(1, &indicators[indicator], 100);
    size.AddRows(10);
    EXPECT_EQ(size.IsExceeded(), exceeds_bytes) << indicator;
    limits.bytes = 0;
    EXPECT_FALSE(size.IsExceeded());
    size.AddRows(1);
    EXPECT_TRUE(size.IsExceeded());
    limits.bytes = 50;
  }
  limits = before;
}

}  // namespace
