// Measures an exact import against a bare loop that runs the same statements with the same
// parameters and drops the rows, both in one process and in turn, and prints one JSON object. The
// bare loop is a program of its own too, beside which wbimport as a whole can be timed.
//
// Usage: wbexactbench CONNECTION-STRING [--catalog NAME] [--table [OWNER.]NAME] [--rounds N]
//                     [--label TEXT] [--statements FILE]
//        wbexactbench --bare CONNECTION-STRING FILE
// --statements keeps what was run, --bare runs what was kept.
#include <malloc.h>

#include <array>
#include <chrono>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/utf.h"
#include "bench/support.h"
#include "importer/odbc_workbook_import.h"
#include "odbc/driver.h"
#include "platform/platform.h"
#include "routes/exact/catalog.h"

namespace {

struct Arguments {
  std::string connection;
  std::string catalog;
  std::string table;
  std::string label;
  std::string statements;
  int rounds = 9;
};

struct Statement {
  std::string text;
  std::vector<std::string> parameters;
  std::size_t columns = 0;
};

struct Counts {
  std::size_t tables = 0;
  std::size_t columns = 0;
  std::size_t relationships = 0;
  std::size_t not_read = 0;
  bool result = false;
};

Counts Import(const bench::Connection& connection, const Arguments& arguments,
              LcWorkbook& workbook) {
  LcODBCWorkbookImport importer(nullptr, &workbook);
  importer.SyncLogin(connection.henv, connection.hdbc);
  importer.choices.reading = rdExact;
  importer.choices.item_mask =
      ibTables | ibViews | ibSynonyms | ibProcedures | ibDataTypes | ibFunctions | ibAggregates;
  importer.choices.keys = true;
  importer.choices.foreign_keys = true;
  importer.choices.catalog = base::ToUtf16(arguments.catalog);
  if (!arguments.table.empty()) {
    auto info = std::make_unique<LcTableInfo>();
    const std::size_t dot = arguments.table.find('.');
    info->name = base::ToUtf16(arguments.table.substr(dot + 1));
    if (dot != std::string::npos) info->owner = base::ToUtf16(arguments.table.substr(0, dot));
    importer.choices.selected_tables.Append(std::move(info));
  }
  unsigned short status = 0;
  Counts counts;
  counts.result = importer.ImportItems(status);
  const auto* taken = importer.GetRouteTaken();
  if (taken == nullptr || taken->route != LcODBCWorkbookImport::RouteKind::kExact) {
    bench::Die("this server was not read exactly");
  }
  importer.UnSyncLogin();
  counts.tables = workbook.tables.GetCount();
  counts.not_read = workbook.details.not_read.size();
  for (const LcWorkbookTable* table : workbook.tables) {
    counts.columns += static_cast<std::size_t>(table->GetColumnCount());
    counts.relationships += table->GetForeignKeys().size();
  }
  return counts;
}

// The time that the driver's calls take.
class DriverClock : public platform::CallLog {
 public:
  void OnCallStart(const platform::DriverCall& /*call*/) override { start_ = Clock::now(); }
  void OnCall(const platform::DriverCall& /*call*/) override { spent_ += Clock::now() - start_; }
  [[nodiscard]] double TakeSeconds() {
    return std::chrono::duration<double>(std::exchange(spent_, {})).count();
  }

 private:
  using Clock = std::chrono::steady_clock;
  Clock::time_point start_;
  Clock::duration spent_ = {};
};

// Runs the statements into cells of the size that the module binds; returns the number of rows.
std::size_t BareLoop(SQLHDBC hdbc, const std::vector<Statement>& statements) {
  constexpr std::size_t kBytes = 1024;
  struct Cell {
    std::array<char, kBytes> bytes;
    SQLLEN indicator;
  };
  static std::vector<Cell> cells;
  std::size_t rows = 0;
  for (const Statement& statement : statements) {
    SQLHSTMT hstmt = SQL_NULL_HSTMT;
    if (!odbc::Succeeded(SQLAllocHandle(SQL_HANDLE_STMT, hdbc, &hstmt))) bench::Die("no statement");
    std::vector<SQLLEN> lengths(statement.parameters.size());
    for (std::size_t i = 0; i < lengths.size(); ++i) {
      const std::string& text = statement.parameters[i];
      lengths[i] = static_cast<SQLLEN>(text.size());
      SQLBindParameter(hstmt, static_cast<SQLUSMALLINT>(i + 1), SQL_PARAM_INPUT, SQL_C_CHAR,
                       text.size() > 4000 ? SQL_LONGVARCHAR : SQL_VARCHAR,
                       text.empty() ? 1 : text.size(), 0, const_cast<char*>(text.data()),
                       lengths[i], &lengths[i]);
    }
    std::u16string text = base::ToUtf16(statement.text);
    // One that the server refuses was refused to the module too, and has a fallback behind it.
    if (odbc::Succeeded(SQLExecDirectW(hstmt, reinterpret_cast<SQLWCHAR*>(text.data()),
                                       static_cast<SQLINTEGER>(text.size())))) {
      if (cells.size() < statement.columns) cells.resize(statement.columns);
      for (std::size_t i = 0; i < statement.columns; ++i) {
        SQLBindCol(hstmt, static_cast<SQLUSMALLINT>(i + 1), SQL_C_CHAR, cells[i].bytes.data(),
                   kBytes, &cells[i].indicator);
      }
      while (odbc::Succeeded(SQLFetch(hstmt))) ++rows;
    }
    SQLFreeHandle(SQL_HANDLE_STMT, hstmt);
  }
  return rows;
}

void WriteText(std::ofstream& file, const std::string& text) {
  file << text.size() << ' ' << text << '\n';
}

std::string ReadText(std::ifstream& file) {
  std::size_t size = 0;
  file >> size;
  file.ignore(1);
  std::string text(size, '\0');
  file.read(text.data(), static_cast<std::streamsize>(size));
  return text;
}

void Keep(const std::vector<Statement>& statements, const std::string& path) {
  std::ofstream file(path);
  file << statements.size() << '\n';
  for (const Statement& statement : statements) {
    WriteText(file, statement.text);
    file << statement.columns << ' ' << statement.parameters.size() << '\n';
    for (const std::string& parameter : statement.parameters) WriteText(file, parameter);
  }
  if (!file.flush()) bench::Die("cannot write " + path);
}

std::vector<Statement> ReadKept(const std::string& path) {
  std::ifstream file(path);
  std::size_t count = 0;
  file >> count;
  std::vector<Statement> statements(count);
  for (Statement& statement : statements) {
    statement.text = ReadText(file);
    std::size_t parameters = 0;
    file >> statement.columns >> parameters;
    statement.parameters.resize(parameters);
    for (std::string& parameter : statement.parameters) parameter = ReadText(file);
  }
  if (!file || statements.empty()) bench::Die("no statements in " + path);
  return statements;
}

// Memory of one import, in a process that has read nothing yet but the driver's own data.
std::string MeasureMemory(const bench::Connection& connection, const Arguments& arguments,
                          const std::vector<Statement>& statements) {
  return bench::InChild([&] {
    LcWorkbook workbook;
    BareLoop(connection.hdbc, statements);
    malloc_trim(0);
    bench::ResetPeak();
    const std::size_t before = bench::ResidentBytes();
    const std::uint64_t allocations = bench::Allocations();
    const Counts counts = Import(connection, arguments, workbook);
    const std::uint64_t made = bench::Allocations() - allocations;
    const std::size_t peak = bench::PeakResidentBytes();
    malloc_trim(0);
    const std::size_t held = bench::ResidentBytes();
    const double columns = counts.columns > 0 ? static_cast<double>(counts.columns) : 1;
    char text[240];
    std::snprintf(text, sizeof text,
                  "\"held_bytes_a_column\": %.0f, \"peak_bytes_a_column\": %.0f, "
                  "\"allocations_a_column\": %.2f",
                  (static_cast<double>(held) - static_cast<double>(before)) / columns,
                  (static_cast<double>(peak) - static_cast<double>(before)) / columns,
                  static_cast<double>(made) / columns);
    return std::string(text);
  });
}

// What the import in hand runs.
std::vector<Statement>& Observed() {
  static std::vector<Statement> statements;
  return statements;
}

std::string Measure(const Arguments& arguments) {
  const bench::Connection connection(arguments.connection);
  odbcimport::exact::ObserveStatements(
      [](const odbcimport::exact::FilledStatement& statement, std::size_t columns) {
        Observed().push_back({statement.text, statement.parameters, columns});
      });
  {
    LcWorkbook workbook;
    Import(connection, arguments, workbook);
  }
  odbcimport::exact::ObserveStatements(nullptr);
  const std::vector<Statement> statements = std::exchange(Observed(), {});
  if (!arguments.statements.empty()) Keep(statements, arguments.statements);
  const std::string memory = MeasureMemory(connection, arguments, statements);

  // As in wbbench: the process keeps the memory it has, and free pieces are joined between turns.
  mallopt(M_MMAP_MAX, 0);
  const auto join_free_memory = [] { mallopt(M_TRIM_THRESHOLD, -1); };
  std::size_t rows = 0;
  Counts counts;
  const auto measure_bare = [&] {
    join_free_memory();
    return bench::Seconds([&] { rows = BareLoop(connection.hdbc, statements); });
  };
  const auto measure_import = [&] {
    join_free_memory();
    LcWorkbook workbook;
    return bench::Seconds([&] { counts = Import(connection, arguments, workbook); });
  };
  std::vector<double> imports;
  std::vector<double> bare_loops;
  std::vector<double> ratios;
  std::vector<double> own_times;
  measure_import();
  double before = measure_bare();
  for (int round = 0; round < arguments.rounds; ++round) {
    const double import_time = measure_import();
    const double after = measure_bare();
    const double bare = (before + after) / 2;
    imports.push_back(import_time);
    bare_loops.push_back(bare);
    ratios.push_back(import_time / bare);
    own_times.push_back(import_time - bare);
    before = after;
  }
  // What an import takes outside of the driver, measured inside of it: the difference of an import
  // and a bare loop has the noise of both. A little more, for the clock, which is read at each
  // call.
  const auto clock = std::make_shared<DriverClock>();
  platform::GetServices().call_log = clock;
  std::vector<double> outside;
  for (int round = 0; round < arguments.rounds; ++round) {
    const double import_time = measure_import();
    outside.push_back(import_time - clock->TakeSeconds());
  }
  platform::GetServices().call_log = nullptr;
  char text[1024];
  std::snprintf(text, sizeof text,
                "{\"label\": \"%s\", \"tables\": %zu, \"columns\": %zu, \"relationships\": %zu, "
                "\"result\": %s, \"not_read\": %zu, \"statements\": %zu, \"rows\": %zu, "
                "\"import_s\": %.6f, \"bare_s\": %.6f, \"ratio\": %.4f, \"own_s\": %.6f, "
                "\"outside_driver_s\": %.6f, "
                "\"own_quartiles_s\": [%.6f, %.6f], %s}",
                arguments.label.c_str(), counts.tables, counts.columns, counts.relationships / 2,
                counts.result ? "true" : "false", counts.not_read, statements.size(), rows,
                bench::Median(imports), bench::Median(bare_loops), bench::Median(ratios),
                bench::Median(own_times), bench::Median(outside), bench::Quantile(own_times, 0.25),
                bench::Quantile(own_times, 0.75), memory.c_str());
  return text;
}

}  // namespace

int main(int argc, char** argv) {
  std::setlocale(LC_ALL, "C.UTF-8");
  const std::vector<std::string> words(argv + 1, argv + argc);
  if (words.size() == 3 && words[0] == "--bare") {
    const bench::Connection connection(words[1]);
    std::printf("{\"rows\": %zu}\n", BareLoop(connection.hdbc, ReadKept(words[2])));
    return 0;
  }
  Arguments arguments;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const bool has_value = i + 1 < words.size();
    if (words[i] == "--catalog" && has_value) {
      arguments.catalog = words[++i];
    } else if (words[i] == "--table" && has_value) {
      arguments.table = words[++i];
    } else if (words[i] == "--rounds" && has_value) {
      arguments.rounds = std::atoi(words[++i].c_str());
    } else if (words[i] == "--label" && has_value) {
      arguments.label = words[++i];
    } else if (words[i] == "--statements" && has_value) {
      arguments.statements = words[++i];
    } else {
      arguments.connection = words[i];
    }
  }
  if (arguments.connection.empty() || arguments.rounds < 1) {
    std::fprintf(stderr,
                 "usage: wbexactbench CONNECTION-STRING [--catalog NAME] [--table [OWNER.]NAME] "
                 "[--rounds N] [--label TEXT] [--statements FILE]\n"
                 "       wbexactbench --bare CONNECTION-STRING FILE\n");
    return 2;
  }
  std::string why;
  if (!OdbcImportStart(WB_BUILD_DIR "/lib", why)) {
    std::fprintf(stderr, "wbexactbench: %s\n", why.c_str());
    return 5;
  }
  std::puts(Measure(arguments).c_str());
  return 0;
}
