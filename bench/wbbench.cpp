// Measures one import against a plain loop over the same driver calls that stores nothing, both in
// one process and in turn, and prints one JSON object: times (medians), their ratio, rows a second,
// memory and allocations. bench/run calls it for each server and prints the table.
//
// Usage: wbbench CONNECTION-STRING [--catalog NAME] [--no-foreign-keys] [--rounds N]
//                [--label TEXT]
//        wbbench --make-sqlite FILE TABLES COLUMNS
#include <malloc.h>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "bench/own_queries.h"
#include "bench/support.h"
#include "importer/odbc_workbook_import.h"
#include "odbc/fetch.h"
#include "odbc/record_list.h"

namespace {

struct Arguments {
  std::string connection;
  std::u16string catalog;
  std::string label;
  bool foreign_keys = true;
  int rounds = 9;
};

// One import into a workbook of its own. Returns the number of columns that arrived.
struct ImportResult {
  std::size_t tables = 0;
  std::size_t columns = 0;
  std::size_t relationships = 0;
  bool result = false;
};

ImportResult Import(const bench::Connection& connection, const Arguments& arguments,
                    LcWorkbook& workbook) {
  LcODBCWorkbookImport importer(nullptr, &workbook);
  importer.SyncLogin(connection.henv, connection.hdbc);
  importer.choices.item_mask = ibTables | ibViews;
  importer.choices.keys = true;
  importer.choices.foreign_keys = arguments.foreign_keys;
  importer.choices.catalog = arguments.catalog;
  // Keys of Informix are one statement a constraint; its figures are those of the columns.
  if (importer.DecideRoute().dbms_type == dbmsInformix) importer.choices.keys = false;
  importer.targets.data_types = nullptr;
  unsigned short status = 0;
  ImportResult counts;
  counts.result = importer.ImportItems(status);
  importer.UnSyncLogin();
  counts.tables = workbook.tables.GetCount();
  for (const LcWorkbookTable* table : workbook.tables) {
    counts.columns += static_cast<std::size_t>(table->GetColumnCount());
    counts.relationships += table->GetForeignKeys().size();
  }
  return counts;
}

// What the plain loop has to read: the catalog functions, or the texts of the server's own route.
std::size_t Plain(const bench::Connection& connection, const Arguments& arguments,
                  const std::vector<std::u16string>& texts) {
  return texts.empty()
             ? bench::PlainCatalogLoop(connection.hdbc, arguments.catalog, arguments.foreign_keys)
             : bench::PlainQueryLoop(connection.hdbc, texts);
}

// Allocations of the record lists that hold the results of `texts`, for each of their cells; what
// the driver allocates for the same calls is taken off.
double AllocationsACell(const bench::Connection& connection, LeDBMSType type,
                        const std::vector<std::u16string>& texts) {
  std::uint64_t start = bench::Allocations();
  bench::PlainQueryLoop(connection.hdbc, texts);
  const auto driver = static_cast<double>(bench::Allocations() - start);
  double made = 0;
  double cells = 0;
  for (const std::u16string& text : texts) {
    LcODBCRecordList rows;
    start = bench::Allocations();
    const LcODBCFetch fetch(text.c_str(), rows, connection.henv, connection.hdbc, type);
    made += static_cast<double>(bench::Allocations() - start);
    cells += static_cast<double>(rows.GetRowCount()) * rows.GetColumnCount();
  }
  return cells > 0 ? std::max(0.0, made - driver) / cells : 0;
}

// What an import has to read, by its route.
struct Work {
  explicit Work(const bench::Connection& connection) {
    LcWorkbook scratch;
    LcODBCWorkbookImport probe(nullptr, &scratch);
    probe.SyncLogin(connection.henv, connection.hdbc);
    probe.choices.item_mask = ibTables | ibViews;
    const auto decision = probe.DecideRoute();
    type = decision.dbms_type;
    own = !LcODBCWorkbookImport::GetRoute(decision.route).uses_catalog_functions;
    if (own) texts = bench::OwnQueries(probe.choices, type, decision.dbms_version);
  }

  LeDBMSType type = dbmsUnknown;
  bool own = false;                   // by texts of its own
  std::vector<std::u16string> texts;  // empty for the catalog functions
};

// Memory and allocations of one import, as members of the object that is printed. To be called in a
// process that has read nothing yet but the driver's own data.
std::string MeasureMemory(const bench::Connection& connection, const Arguments& arguments,
                          const Work& work) {
  LcWorkbook workbook;
  // What the driver keeps for itself is not the import's: one turn of its calls brings it in.
  if (work.own) {
    bench::PlainQueryLoop(connection.hdbc, work.texts);
  } else {
    bench::WarmCatalog(connection.hdbc, arguments.catalog);
  }
  const double a_cell = work.own ? AllocationsACell(connection, work.type, work.texts) : 0;
  malloc_trim(0);
  bench::ResetPeak();
  const std::size_t before = bench::ResidentBytes();
  const std::uint64_t allocations = bench::Allocations();
  ImportResult counts;
  const double seconds = bench::Seconds([&] { counts = Import(connection, arguments, workbook); });
  const std::uint64_t made = bench::Allocations() - allocations;
  const std::size_t peak = bench::PeakResidentBytes();
  malloc_trim(0);
  const std::size_t held = bench::ResidentBytes();
  const double columns = counts.columns > 0 ? static_cast<double>(counts.columns) : 1;
  char text[320];
  std::snprintf(text, sizeof text,
                "\"held_bytes_a_column\": %.0f, \"peak_bytes_a_column\": %.0f, "
                "\"allocations_a_column\": %.2f, \"allocations_a_cell\": %.4f, "
                "\"first_import_s\": %.6f",
                (static_cast<double>(held) - static_cast<double>(before)) / columns,
                (static_cast<double>(peak) - static_cast<double>(before)) / columns,
                static_cast<double>(made) / columns, a_cell, seconds);
  return text;
}

// Times in seconds, a value a round, and what the last turn read.
struct Times {
  std::vector<double> imports;
  std::vector<double> plain_loops;
  std::vector<double> ratios;
  std::vector<double> own_times;
  std::size_t rows = 0;
  ImportResult counts;
};

Times MeasureTimes(const bench::Connection& connection, const Arguments& arguments,
                   const Work& work) {
  // From here on the process keeps the memory it has: no block of its own for large arrays, nothing
  // given back. Otherwise large schemas would be measured with fresh pages for each import, which
  // a virtual machine supplies at a cost of its own, and small ones without.
  mallopt(M_MMAP_MAX, 0);
  mallopt(M_TRIM_THRESHOLD, -1);
  // The small pieces that a workbook leaves are joined between the turns, not in one: the allocator
  // puts that off until a larger piece is freed, so that each turn would pay for the import before
  // it. Any mallopt joins them.
  const auto join_free_memory = [] { mallopt(M_TRIM_THRESHOLD, -1); };

  Times times;
  const auto measure_plain = [&] {
    join_free_memory();
    return bench::Seconds([&] { times.rows = Plain(connection, arguments, work.texts); });
  };
  const auto measure_import = [&] {
    join_free_memory();
    LcWorkbook workbook;
    return bench::Seconds([&] { times.counts = Import(connection, arguments, workbook); });
  };
  // One unmeasured turn of each warms the driver's caches. Then every import stands between two
  // plain loops, whose mean it is compared with: a machine that slows down over seconds slows both.
  measure_plain();
  measure_import();
  double before = measure_plain();
  for (int round = 0; round < arguments.rounds; ++round) {
    const double imported = measure_import();
    const double after = measure_plain();
    const double plain = (before + after) / 2;
    times.imports.push_back(imported);
    times.plain_loops.push_back(plain);
    times.ratios.push_back(imported / plain);
    times.own_times.push_back(imported - plain);
    before = after;
  }
  return times;
}

std::string Measure(const Arguments& arguments) {
  const bench::Connection connection(arguments.connection);
  const Work work(connection);
  // Memory first, in a process of its own.
  const std::string memory =
      bench::InChild([&] { return MeasureMemory(connection, arguments, work); });
  const Times times = MeasureTimes(connection, arguments, work);
  const ImportResult& counts = times.counts;
  const double median = bench::Median(times.imports);
  char text[1024];
  std::snprintf(text, sizeof text,
                "{\"label\": \"%s\", \"route\": \"%s\", \"tables\": %zu, \"columns\": %zu, "
                "\"relationships\": %zu, \"result\": %s, \"rows\": %zu, \"import_s\": %.6f, "
                "\"plain_s\": %.6f, \"ratio\": %.4f, \"own_s\": %.6f, "
                "\"own_quartiles_s\": [%.6f, %.6f], "
                "\"rows_a_second\": %.0f, %s}",
                arguments.label.c_str(), work.own ? "own SQL" : "generic", counts.tables,
                counts.columns, counts.relationships / 2, counts.result ? "true" : "false",
                times.rows, median, bench::Median(times.plain_loops), bench::Median(times.ratios),
                bench::Median(times.own_times), bench::Quantile(times.own_times, 0.25),
                bench::Quantile(times.own_times, 0.75), static_cast<double>(times.rows) / median,
                memory.c_str());
  return text;
}

}  // namespace

int main(int argc, char** argv) {
  std::setlocale(LC_ALL, "C.UTF-8");
  if (argc == 5 && std::strcmp(argv[1], "--make-sqlite") == 0) {
    bench::MakeSQLiteFile(argv[2], std::atoi(argv[3]), std::atoi(argv[4]));
    return 0;
  }
  Arguments arguments;
  for (int i = 1; i < argc; ++i) {
    const std::string argument = argv[i];
    const bool has_value = i + 1 < argc;
    if (argument == "--no-foreign-keys") {
      arguments.foreign_keys = false;
    } else if (argument == "--catalog" && has_value) {
      const std::string value = argv[++i];
      arguments.catalog.assign(value.begin(), value.end());
    } else if (argument == "--rounds" && has_value) {
      arguments.rounds = std::atoi(argv[++i]);
    } else if (argument == "--label" && has_value) {
      arguments.label = argv[++i];
    } else {
      arguments.connection = argument;
    }
  }
  if (arguments.connection.empty() || arguments.rounds < 1) {
    std::fprintf(stderr,
                 "usage: wbbench CONNECTION-STRING [--catalog NAME] [--no-foreign-keys] "
                 "[--rounds N] [--label TEXT]\n"
                 "       wbbench --make-sqlite FILE TABLES COLUMNS\n");
    return 2;
  }
  std::string why;
  if (!OdbcImportStart(WB_BUILD_DIR "/lib", why)) {
    std::fprintf(stderr, "wbbench: %s\n", why.c_str());
    return 5;
  }
  std::puts(Measure(arguments).c_str());
  return 0;
}
