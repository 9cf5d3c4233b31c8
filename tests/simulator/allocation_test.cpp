// Memory that runs out at every allocation in turn, through whole imports and every writer: nothing
// ends the process, leaks or stays open, and what is less than the whole says so. Of the module,
// the writers and the file alone: what a driver allocates is its own. All allocations with WB_LONG,
// a sample of them otherwise.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <new>
#include <sstream>

#include "export/writer.h"
#include "host/file_stream.h"
#include "importer/workbook/workbook_file.h"
#include "simulator/private_interface.h"
#include "tests/simulator/host.h"
#include "tests/simulator/servers.h"
#include "tests/support/temporary.h"

namespace {

bool watching = false;
unsigned long seen = 0;
unsigned long failing = 0;  // the number of the allocation that fails; 0: none does

void* Allocate(std::size_t bytes) {
  if (watching && ++seen == failing) throw std::bad_alloc();
  if (void* memory = std::malloc(bytes > 0 ? bytes : 1)) return memory;
  throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t bytes) { return Allocate(bytes); }
// Arrays too, which a sanitizer has operators of its own for.
void* operator new[](std::size_t bytes) { return Allocate(bytes); }
// Asked for buffers that a sort can do without.
void* operator new(std::size_t bytes, const std::nothrow_t& /*tag*/) noexcept {
  if (watching && ++seen == failing) return nullptr;
  return std::malloc(bytes > 0 ? bytes : 1);
}
void operator delete(void* memory, const std::nothrow_t& /*tag*/) noexcept { std::free(memory); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }

namespace {

// Runs it with the n-th allocation failing and returns how many were made.
template <class Run>
unsigned long WithFailing(unsigned long n, const Run& run) {
  seen = 0;
  failing = n;
  watching = true;
  run();
  watching = false;
  return seen;
}

struct NotTheDriver : platform::CallLog {
  bool before = false;
  void OnCallStart(const platform::DriverCall&) override {
    before = std::exchange(watching, false);
  }
  void OnCall(const platform::DriverCall&) override { watching = before; }
};

unsigned long StepOf(unsigned long all) {
  return std::getenv("WB_LONG") != nullptr ? 1 : 1 + all / 80;
}

struct Imported {
  LcWorkbook workbook;
  LcWorkbookFileInfo info;
  std::string File() const {
    std::ostringstream out;
    WriteWorkbookFile(workbook, info, out);
    return out.str();
  }
};

// Returns how many allocations ImportItems made, of which the n-th fails; its own objects are the
// host's.
unsigned long Import(const wbtest::Connection& connection, LeReading reading, Imported& imported,
                     unsigned long n = 0) {
  LcODBCWorkbookImport importer(nullptr, &imported.workbook);
  importer.choices.item_mask = 0xffffffff & ~(ibOwnerNames | ibColumnNames);
  importer.choices.keys = importer.choices.foreign_keys = true;
  importer.choices.reading = reading;
  importer.SyncLogin(connection.henv(), connection.hdbc());
  return WithFailing(n, [&] { imported.info.result = importer.ImportItems(imported.info.status); });
}

class Allocations : public testing::TestWithParam<const char*> {};

TEST_P(Allocations, FailInTurnThroughAWholeImport) {
  const std::string server = GetParam();
  const LeReading reading = server == "sqlite" ? rdExact : rdCompatible;
  const auto connection =
      server != "sqlite"
          ? wbtest::Connection::OpenSimulator(server)
          : wbtest::Connection::OpenSqlite(
                {"create table a (id integer primary key, name varchar(20) check (name > 'a'))",
                 "create table b (id integer, a integer references a(id))",
                 "create view v as select * from a"});
  const wbtest::ScopedService<platform::CallLog> log(platform::GetServices().call_log,
                                                     std::make_shared<NotTheDriver>());
  Imported whole;
  const unsigned long all = Import(*connection, reading, whole);
  ASSERT_GT(all, 100UL);
  unsigned ended = 0;
  for (unsigned long n = 1; n <= all; n += StepOf(all)) {
    const wbtest::MessageRecorder messages;
    Imported part;
    Import(*connection, reading, part, n);
    ended += part.info.result ? 0 : 1;
    // Never less in silence.
    EXPECT_TRUE(!part.info.result || !messages.shown().empty() ||
                !part.workbook.details.not_read.empty() || part.File() == whole.File())
        << server << ": allocation " << n << " of " << all;
    if (server != "sqlite") {
      EXPECT_EQ(connection->GetInfo(catalogsim::kInfoOpenStatements), 0U);
    }
    LcWorkbook read;
    LcWorkbookFileInfo info;
    std::string why;
    EXPECT_TRUE(ReadWorkbookFile(part.File(), read, info, why)) << why;
  }
  EXPECT_GT(ended, 10U);
  Imported again;
  Import(*connection, reading, again);
  EXPECT_EQ(again.File(), whole.File());
}

INSTANTIATE_TEST_SUITE_P(Servers, Allocations,
                         testing::Values("sqlite", "informix", "sqlserver", "oracle", "db2",
                                         "redbrick", "generic"));

TEST(Allocations, FailInTurnThroughEveryWriter) {
  Imported imported;
  Import(*wbtest::Connection::OpenSimulator("informix"), rdCompatible, imported);
  for (const wbexport::Format& format : wbexport::AllFormats()) {
    if (std::string_view(format.name) == "png") continue;  // as svg, but slower
    wbexport::Options options;
    options.detail = wbexport::Detail::kFull;  // else a simpler picture is drawn
    const auto write = [&](std::string& text) {
      std::ostringstream out;
      std::vector<std::string> notes;
      const bool written = format.write({imported.workbook, imported.info}, options, out, notes);
      text = out.str();
      return written && out.good();
    };
    std::string whole;
    const unsigned long all = WithFailing(0, [&] { EXPECT_TRUE(write(whole)); });
    unsigned told = 0;
    for (unsigned long n = 1; n <= all; n += StepOf(all)) {
      WithFailing(n, [&] {
        try {
          std::string text;
          if (!write(text)) {
            ++told;
          } else if (text != whole) {
            watching = false;
            ADD_FAILURE() << format.name << ": allocation " << n << " of " << all;
          }
        } catch (const std::bad_alloc&) {
          ++told;
        }
      });
    }
    EXPECT_GT(told, 0U) << format.name;
  }
}

// A file that needs a thread is written without one where memory for it has run out.
TEST(Allocations, FailInTurnWhileAFileIsWritten) {
  const wbtest::TemporaryFolder folder;
  const std::string path = folder.path() + "/a";
  const std::string line(99'999, 'x');
  unsigned long all = 1;
  for (unsigned long n = 0; n <= all; ++n) {
    std::ofstream(path) << "before";
    bool is_whole = false;
    const unsigned long made = WithFailing(n, [&] {
      try {
        wbhost::FileStream out(path);
        for (int i = 0; i < 30; ++i) out << line;
        is_whole = out.Close();
      } catch (const std::bad_alloc&) {
        is_whole = false;
      }
    });
    if (n == 0) all = made;
    // The two blocks come first: without them nothing is touched.
    EXPECT_EQ(is_whole, n == 0 || n > 2) << n << " of " << all;
    EXPECT_EQ(std::filesystem::file_size(path), is_whole ? 30 * line.size() : 6U);
  }
  EXPECT_GT(all, 2U);
}

}  // namespace
