// Many imports in one process: memory stays flat, and no statement or descriptor is left open. A
// thousand of each kind with WB_LONG set, a tenth of them otherwise.
#include <gtest/gtest.h>
#include <malloc.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iterator>
#include <memory>
#include <string>

#include "importer/odbc_workbook_import.h"
#include "simulator/private_interface.h"
#include "tests/support/connection.h"

#if defined(__SANITIZE_ADDRESS__)
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();  // gcc ships no header for it
#endif

namespace {

constexpr std::uint32_t kEverything = ibTables | ibViews | ibSynonyms | ibProcedures | ibDataTypes |
                                      ibOperators | ibBooleanFunctions | ibFunctions |
                                      ibAggregates | ibTableNames | ibViewNames | ibSynonymNames;

// Bytes that are allocated and not freed. Without the sanitizer also those that malloc keeps for
// the thread's next calls, up to kMallocKeeps.
#if defined(__SANITIZE_ADDRESS__)
constexpr std::size_t kMallocKeeps = 0;
std::size_t LiveBytes() { return __sanitizer_get_current_allocated_bytes(); }
#else
constexpr std::size_t kMallocKeeps = std::size_t{256} * 1024;
std::size_t LiveBytes() { return mallinfo2().uordblks; }
#endif

std::size_t OpenDescriptors() {
  return static_cast<std::size_t>(
      std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}));
}

int Rounds() { return std::getenv("WB_LONG") != nullptr ? 1000 : 100; }

void Choose(LcODBCWorkbookImport& importer, const wbtest::Connection& connection) {
  importer.SyncLogin(connection.henv(), connection.hdbc());
  importer.choices.item_mask = kEverything;
  importer.choices.keys = true;
  importer.choices.foreign_keys = true;
}

class LongLife : public testing::TestWithParam<const char*> {
 protected:
  void ExpectFlat(const wbtest::Connection& connection, const std::function<void()>& run_import) {
    // The first imports fill caches: of the driver, of the driver manager, of the allocator.
    for (int i = 0; i < 10; ++i) run_import();
    const std::size_t bytes = LiveBytes();
    const std::size_t descriptors = OpenDescriptors();
    for (int i = 0; i < Rounds(); ++i) run_import();
    // Less than one small object an import; a workbook has hundreds of kilobytes.
    EXPECT_LT(LiveBytes(), bytes + 16 * static_cast<std::size_t>(Rounds()) + kMallocKeeps);
    EXPECT_EQ(OpenDescriptors(), descriptors);
    EXPECT_EQ(connection.GetInfo(catalogsim::kInfoOpenStatements), 0U);
  }

  wbtest::MessageRecorder messages_;
};

TEST_P(LongLife, FreshImportersLeaveNothingBehind) {
  const auto connection = wbtest::Connection::OpenSimulator(GetParam());
  ExpectFlat(*connection, [&] {
    LcWorkbook workbook;
    LcODBCWorkbookImport importer(nullptr, &workbook);
    Choose(importer, *connection);
    unsigned short status = 0;
    static_cast<void>(importer.ImportItems(status));  // some of these servers refuse a phase
    ASSERT_GT(workbook.tables.GetCount(), 10U);
  });
}

TEST_P(LongLife, OneImporterLeavesNothingBehind) {
  const auto connection = wbtest::Connection::OpenSimulator(GetParam());
  LcWorkbook workbook;
  LcODBCWorkbookImport importer(nullptr, &workbook);
  Choose(importer, *connection);
  ExpectFlat(*connection, [&] {
    workbook.table_names.EmptyList();
    workbook.tables.EmptyList();
    workbook.data_types.EmptyList();
    workbook.operators.EmptyList();
    workbook.boolean_functions.EmptyList();
    workbook.functions.EmptyList();
    workbook.aggregates.EmptyList();
    workbook.procedures.EmptyList();
    workbook.details = {};
    unsigned short status = 0;
    importer.ImportItems(status);
    ASSERT_GT(workbook.tables.GetCount(), 10U);
  });
}

INSTANTIATE_TEST_SUITE_P(Servers, LongLife,
                         testing::Values("informix", "sqlserver", "oracle", "db2", "redbrick",
                                         "generic"));

}  // namespace
