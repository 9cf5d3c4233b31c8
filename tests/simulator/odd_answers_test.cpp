// Catalogs with odd content: every column of every catalog table of every server, filled with what
// no reader expects. Whatever comes of it, the import ends, leaves no statement open, and leaves a
// workbook that can be written and read. The whole of it under WB_LONG=1, a part otherwise.
#include <gtest/gtest.h>

#include <iostream>

#include "importer/workbook/workbook_file.h"
#include "simulator/private_interface.h"
#include "tests/simulator/client.h"
#include "tests/simulator/host.h"
#include "tests/simulator/servers.h"

namespace {

using simtest::Row;
using wbtest::Connection;

constexpr const char* kOddValues[] = {
    "NULL",
    "''",
    "-1",
    "1",  // refers to itself, or to the wrong thing
    "99999999999999",
    "printf('%.700c', 'x')",  // longer than a cell of the fetch layer
    "char(228, 128218, 10, 34, 39)",
    "'3 [1], <7>(1, -2, [1], ] -'",
};

constexpr const char* kColumns =
    "SELECT t.schema, t.name, c.name, c.pk AND c.type = 'INTEGER' FROM pragma_table_list t, "
    "pragma_table_info(t.name, t.schema) "
    "c"
    " WHERE t.type = 'table' AND t.schema <> 'temp' AND t.name NOT LIKE 'sqlite%'"
    " ORDER BY 1, 2, c.cid";

class OddAnswers : public testing::TestWithParam<const char*> {};

TEST_P(OddAnswers, DoNotStopAnImport) {
  const std::vector<Row> columns = simtest::Query(*Connection::OpenSimulator(GetParam()), kColumns);
  ASSERT_GT(columns.size(), 10U);
  wbtest::MessageRecorder messages;
  // A step that shares no factor with the values meets them all in turn.
  const std::size_t step = simtest::IsLongRun() ? 1 : 37;
  const std::size_t cases = columns.size() * std::size(kOddValues);
  std::size_t covered = 0;
  for (std::size_t i = 0; i < cases && !HasFailure(); i += step, ++covered) {
    const Row& column = columns[i / std::size(kOddValues)];
    const std::string value = kOddValues[i % std::size(kOddValues)];
    // SQLite's own row numbers take numbers only.
    if (column.at(3) == "1" && value.find_first_not_of("-0123456789") != std::string::npos)
      continue;
    const std::string update = "UPDATE OR IGNORE \"" + column.at(0) + "\".\"" + column.at(1) +
                               "\" SET \"" + column.at(2) + "\" = " + value;
    SCOPED_TRACE(update);
    const auto connection = Connection::OpenSimulator(GetParam(), "Sql={" + update + "}");
    const simtest::Outcome outcome = simtest::ImportAll(*connection);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(simtest::Number(*connection, catalogsim::kInfoOpenStatements), 0U);
    LcWorkbook read;
    LcWorkbookFileInfo info;
    std::string why;
    EXPECT_TRUE(ReadWorkbookFile(outcome.File(), read, info, why)) << why;
  }
  std::cout << "odd answers of " << GetParam() << ": " << covered << " of " << cases << '\n';
}

INSTANTIATE_TEST_SUITE_P(Servers, OddAnswers, testing::ValuesIn(simtest::kServers),
                         [](const auto& test) {
                           std::string name = test.param;
                           for (char& c : name)
                             if (c == '-') c = '_';
                           return name;
                         });

}  // namespace
