// What users and scripts rely on of the program, by running it: exit codes, output that is whole or
// not there, interrupts, lists, formats and reports.
#include "tests/host/program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>

namespace wbtest {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::Not;

std::size_t CountLines(const std::string& text) {
  return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

std::vector<std::string> Files(const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    names.push_back(entry.path().filename().string());
  }
  return names;
}

struct BadCall {
  std::vector<std::string> arguments;
  int exit_code;
  const char* message;
  std::string input = {};
};

TEST(Differences, AreThoseOfAnImportLikeTheOldFile) {
  const TemporaryFolder folder;
  const std::string database = folder.path() + "/shop.db";
  const std::string file = folder.path() + "/shop.json";
  const std::string dialect = WB_SOURCE_DIR "/routes/exact/dialects/sqlite.sql";
  const auto diff = [&](std::vector<std::string> more) {
    more.insert(more.begin(), {"diff", file, "--sqlite", database, "--dialect", dialect});
    return RunProgram(more);
  };
  MakeSqliteFile(database,
                 "CREATE TABLE a(id INTEGER PRIMARY KEY, n TEXT); CREATE TABLE b(x INT);");
  RunProgram(
      {"import", "--sqlite", database, "--dialect", dialect, "--select-table", "a", "-o", file});
  EXPECT_EQ(diff({}).exit_code, 0);
  // What was not selected does not count; what was does, however it is called now.
  MakeSqliteFile(database, "DROP TABLE b; CREATE TABLE c(y INT)");
  EXPECT_EQ(diff({}).exit_code, 0);
  MakeSqliteFile(database, "ALTER TABLE a ADD COLUMN price NUMERIC");
  const ProgramResult added = diff({"--format", "text"});
  EXPECT_EQ(added.exit_code, 10);
  EXPECT_THAT(added.out, HasSubstr("column price added"));
  EXPECT_EQ(diff({"--fail-on", "careful"}).exit_code, 0);
  EXPECT_EQ(diff({"--exclude", "a.pr*"}).exit_code, 0);
  EXPECT_EQ(diff({"--ignore", "column.added"}).exit_code, 0);
  // Another reading is said to be one.
  const ProgramResult other = diff({"--reading", "compatible", "--format", "text"});
  EXPECT_THAT(other.out, HasSubstr("The old side was read exactly"));
  MakeSqliteFile(database, "DROP TABLE a");
  EXPECT_THAT(diff({"--format", "text"}).out, HasSubstr("table removed"));
}

TEST(Failures, AreOneLineThatSaysWhatWasTriedAndWhy) {  // NOLINT(readability-function-size)
  const TemporaryFolder folder;
  const std::string no_file = folder.path() + "/none/x";
  const std::string text_file = folder.Write("notes.txt", "just some text, no database at all");
  const std::vector<BadCall> calls = {
      {{}, 2, "subcommand"},
      {{"imprt"}, 2, "did you mean 'import'?"},
      {{"import", "--formt", "html"}, 2, "did you mean '--format'?"},
      {{"info", "--select-table", "x"}, 2, "no option of info"},
      {{"import", "--format", "text", "--around", "book"}, 2, "text has no diagram"},
      {{"import", "--items", "tables,indexes"}, 2, "'indexes'"},
      {{"import", "--format", "pdf"}, 2, "'pdf'"},
      {{"import", "--sample", "ingres"}, 2, "'ingres'"},
      {{"import", "--sample", "db2", "--dsn", "x"}, 2, "only one"},
      {{"import", "--request", "-", "--password-stdin"}, 2, "standard input"},
      {{"import", "--items", "column-names"}, 2, "--table"},
      {{"diff", text_file}, 2, "a second workbook file or a connection"},
      {{"diff", text_file, text_file, "--sample", "db2"}, 2, "not both"},
      {{"diff", text_file, text_file, "--owner", "joe"}, 2, "go with a connection"},
      {{"diff", text_file, text_file, "--ignore", "indices"}, 2, "'indices'"},
      {{"diff", text_file, text_file, "--rename", "a"}, 2, "OLD=NEW"},
      {{"diff", text_file, text_file, "--format", "svg"}, 2, "'svg'"},
      {{"diff", text_file, text_file}, 2, "no workbook file"},
      {{"diff", folder.path(), text_file}, 2, "Is a directory"},
      {{"diff", no_file, text_file}, 2, "cannot read"},
      {{"list", "columns"}, 2, "--table"},
      {{"import", "--select-synonym", "joe.nothing"}, 2, "joe.nothing"},
      {{"import", "--select-table", "\"boo*\""}, 2, "did you mean 'book'?"},
      {{"import", "--select-table", "memer"}, 2, "did you mean 'member'?"},
      {{"import", "--sample", "db2", "--exclude", "NORTH.MEMBR"}, 2, "'NORTH.MEMBER'"},
      {{"import", "--sample", "db2", "--owner", "NRTH"}, 2, "did you mean 'NORTH'?"},
      {{"import", "--sample", "db2", "--owner", "*R*"}, 2, "LIBRARY, NORTH"},
      {{"import", "--sample", "db2", "--select-owner", "x"}, 2, "there are LIBRARY, NORTH"},
      {{"import", "--catalog", "nosuch"}, 2, "the server has no catalogs"},
      {{"list", "columns", "--table", "loans"}, 2, "did you mean 'loan'"},
      {{"import", "--dsn", "x", "--password-env", "WB_NO_SUCH"}, 2, "WB_NO_SUCH"},
      {{"import", "--request", "-"}, 2, "field item", R"({"item": []})"},
      {{"import", "--request", "-"}, 2, "line 1, column 12", "{\"items\": [}"},
      {{"import", "--request", no_file}, 2, "/none/x"},
      {{"import", "--request", folder.path()}, 2, "request file"},
      {{"render", text_file}, 2, "notes.txt"},
      {{"import", "--format", "dot", "--around", "nowhere"}, 2, "among those to import"},
      {{"import", "-f", "dot", "--around", "book", "--exclude", "book"}, 2, "among those to"},
      {{"import", "--sqlite", folder.path()}, 5, "regular file"},
      {{"import", "--sqlite", text_file}, 5, "no SQLite database"},
      {{"import", "--connect", "Driver=MySQL;Server=x"}, 5, "odbc-mariadb"},
      {{"import", "--dsn", "stock"}, 5, "the data source stock"},
      {{"import", "--connect", "Driver=PostgreSQL Unicode;Server=127.0.0.1;Port=1;Database=x"},
       5,
       "Connection refused"},
      {{"import", "--messages", folder.path()}, 5, "msgtext.dll"},
      // A failure of the connection goes before one of the output.
      {{"import", "--sqlite", "/none.db", "-o", no_file}, 5, "/none.db"},
      {{"import", "-o", no_file}, 6, "/none/x"},
      {{"import", "-o", folder.path(), "--format", "json"}, 6, "directory"},
      {{"import", "--progress", "none", "-o", "/dev/full"}, 6, "No space"},
      {{"import", "--trace", no_file}, 6, "/none/x"},
  };
  for (const BadCall& bad : calls) {
    SCOPED_TRACE(testing::PrintToString(bad.arguments));
    const ProgramResult result = RunProgram({.arguments = bad.arguments, .input = bad.input});
    EXPECT_EQ(result.exit_code, bad.exit_code) << result.err;
    EXPECT_THAT(result.err, HasSubstr(bad.message));
    // Nothing was begun that would have been reported.
    EXPECT_TRUE(bad.exit_code != 5 || CountLines(result.err) == 1) << result.err;
    EXPECT_EQ(result.out, "");
  }
}

TEST(ExitCodes, TellHowTheImportEnded) {
  const struct {
    const char* keywords;
    const char* items;
    int exit_code;
    const char* line;
    bool counted = false;  // without a probe for the exact reading before the first call
  } cases[] = {
      {"Server=db2", "tables", 0, "read "},
      {"Server=db2;Fail=SQLExecDirect:1", "tables", 3,
       "but for a database error shown above; --log", true},
      {"Server=generic;Fail=SQLColumns:2", "tables", 1,
       "returned false: SQLColumnsW: [catalogsim]"},
      {"Server=generic;Fail=SQLPrimaryKeys:2", "tables", 3,
       "not read: primary keys of library.author"},
      {"Server=db2;DropConnection=30", "tables", 5, "the connection was lost: incomplete"},
      {"Server=access", "owner-names", 1, "found no owner-names; docs/servers.md"},
      {"Server=redbrick", "procedures,tables", 1, "found no procedures; docs/servers.md"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.keywords);
    const ProgramResult result =
        RunProgram({"import", "--connect", SimulatorString(c.keywords), "--items", c.items,
                    "--reading", c.counted ? "compatible" : "auto"});
    EXPECT_EQ(result.exit_code, c.exit_code) << result.err;
    EXPECT_EQ(json::parse(result.out)["format"], "workbook");
    EXPECT_THAT(result.err, HasSubstr(c.line));
  }
}

// The exit code says what the workbook file says, and the file's route is the one that the trace
// shows, whichever call of an import fails or loses the connection: those that the route is decided
// by, and many others under WB_LONG=1, a few otherwise.
TEST(ExitCodes, AgreeWithTheWorkbookWhateverCallFails) {
  const TemporaryFolder folder;
  const std::string log = folder.path() + "/log";
  const std::string trace = folder.path() + "/trace";
  const int step = std::getenv("WB_LONG") != nullptr ? 7 : 101;
  for (const char* const server : {"informix", "db2", "generic"}) {
    const auto run_import = [&](const std::string& fault) {
      return RunProgram({"import", "--connect",
                         SimulatorString(std::string("Server=") + server + ";" + fault),
                         "--progress", "none", "--trace", trace});
    };
    run_import("Log=" + log);
    const std::string lines = ReadFile(log);  // the last one is numbered, and disconnects
    const int calls = std::stoi(lines.substr(lines.rfind('\n', lines.size() - 2) + 1));
    ASSERT_GT(calls, 50);
    std::filesystem::remove(log);
    for (int call = 1; call < calls; call += call < 10 ? 1 : step) {
      SCOPED_TRACE(std::string(server) + ", call " + std::to_string(call));
      const ProgramResult failed = run_import("FailCall=" + std::to_string(call));
      const json file = failed.out.empty() ? json() : json::parse(failed.out);
      int code = 5;  // no workbook: there was no connection
      if (!file.is_null())
        code = !file["result"]                                              ? 1
               : file["errorsShown"] > 0 || file.value("incomplete", false) ? 3
                                                                            : 0;
      EXPECT_EQ(failed.exit_code, code);
      // Only the routes with SQL of their own tell of the phase of the aggregates.
      const bool own_sql = ReadFile(trace).find(R"("notify": 2, "item": 12,)") != std::string::npos;
      EXPECT_TRUE(file.is_null() || (file["source"]["route"] != "odbc") == own_sql);
      if (call > 1 && call < 10) continue;
      const ProgramResult lost = run_import("DropConnection=" + std::to_string(call));
      EXPECT_EQ(lost.exit_code, 5);
      EXPECT_TRUE(lost.out.empty() || json::parse(lost.out).value("incomplete", false));
    }
  }
}

TEST(Reports, HoldTheTraceTheShownErrorsAndTheConsumedOnes) {
  const TemporaryFolder folder;
  const auto file = [&](const char* name) { return folder.path() + "/" + name; };
  const ProgramResult native = RunProgram(
      {"import", "--connect", SimulatorString("Server=db2;Fail=SQLExecDirect:1:HY000"), "--items",
       "tables", "--reading", "compatible", "--errors", file("errors"), "--trace", file("trace")});
  EXPECT_EQ(json::parse(native.out)["errorsShown"], 1);
  EXPECT_THAT(native.err, HasSubstr("database error"));
  const std::string errors = ReadFile(file("errors"));
  EXPECT_EQ(CountLines(errors), 1u);
  EXPECT_THAT(json::parse(errors).get<std::string>(), HasSubstr("S1000"));
  const std::string trace = ReadFile(file("trace"));
  EXPECT_EQ(trace.substr(0, trace.find('\n')), "{\"notify\": 0}");
  EXPECT_THAT(trace, HasSubstr("{\"notify\": 2, \"item\": 1, \"count\": 0}"));

  RunProgram({"import", "--connect", SimulatorString("Server=generic;Fail=SQLPrimaryKeys:1"),
              "--log", file("log")});
  EXPECT_THAT(ReadFile(file("log")), HasSubstr("SQLPrimaryKeysW: [catalogsim]"));
}

TEST(Output, IsWholeOrNotThere) {
  const TemporaryFolder folder;
  const std::string file = folder.Write("old.json", "old");
  chmod(file.c_str(), 0640);
  EXPECT_EQ(RunProgram({"import", "--format", "dot", "--around", "nowhere", "-o", file}).exit_code,
            2);
  EXPECT_EQ(ReadFile(file), "old");
  EXPECT_EQ(RunProgram({"import", "-o", file}).exit_code, 0);
  const json sample = json::parse(ReadFile(file));  // the database that is read by default
  EXPECT_EQ(sample["source"]["dbmsName"], "SQLite");
  EXPECT_EQ(sample["tables"].size(), 18u);
  EXPECT_EQ(std::filesystem::status(file).permissions(), std::filesystem::perms(0640));
  std::filesystem::create_symlink(file, folder.path() + "/link");
  EXPECT_EQ(
      RunProgram({"import", "--items", "aggregates", "-o", folder.path() + "/link"}).exit_code, 0);
  EXPECT_TRUE(std::filesystem::is_symlink(folder.path() + "/link"));
  EXPECT_EQ(json::parse(ReadFile(file))["tables"].size(), 0u);
  EXPECT_THAT(Files(folder.path()), testing::UnorderedElementsAre("old.json", "link"));
}

TEST(Output, OfASavedWorkbookIsTheSameWorkbook) {
  const TemporaryFolder folder;
  const std::string file = folder.path() + "/book.json";
  RunProgram({"import", "--sample", "informix", "-o", file});
  EXPECT_EQ(RunProgram({.arguments = {"render", "-"}, .input = ReadFile(file)}).out,
            ReadFile(file));
  // The format goes by the file's name, but for one that is given.
  const std::string page = folder.path() + "/book.HTML";
  EXPECT_EQ(RunProgram({"render", file, "-o", page}).exit_code, 0);
  EXPECT_THAT(ReadFile(page), testing::StartsWith("<!doctype html>"));
  EXPECT_EQ(RunProgram({"render", file, "-o", page, "-f", "markdown"}).exit_code, 0);
  EXPECT_THAT(ReadFile(page), testing::StartsWith("# library"));
  EXPECT_THAT(RunProgram({"render", file, "-f", "dot", "--around", "library.boook"}).err,
              HasSubstr("did you mean 'library.book'"));
}

TEST(Output, IntoAPipeThatIsClosedEndsQuietly) {
  // The page is longer than what a pipe takes unread.
  const std::string command = "bash -c '" + ProgramPath() +
                              " import --sample sqlite -q -f html | head -c 9 | wc -c; "
                              "exit ${PIPESTATUS[0]}' >/dev/null";
  EXPECT_EQ(std::system(command.c_str()), 0);
  const std::string help =
      "bash -c '(sleep 0.1; " + ProgramPath() + " --help) | true; exit ${PIPESTATUS[0]}'";
  EXPECT_EQ(std::system(help.c_str()), 0);
}

// Names with everything that breaks naive quoting, told apart from one another.
TEST(Names, ArriveAsTheyAre) {
  const TemporaryFolder folder;
  const std::string file = folder.path() + "/shöp;a}b c%20?.db";
  MakeSqliteFile(
      file,
      "CREATE TABLE \"it's\"(a); CREATE TABLE \"a\"\"b\"(a); CREATE TABLE \"two words\"(a);"
      "CREATE TABLE \"Größe_日本\"(\"Maß\" INTEGER PRIMARY KEY); CREATE TABLE \"a.b\"(a);"
      "CREATE TABLE \"[x,y]\"(a); CREATE TABLE \"line\nend\"(a); CREATE TABLE \"%\"(a);");
  const json names =
      json::parse(RunProgram({"list", "tables", "--sqlite", file, "--format", "json"}).out);
  std::vector<std::string> found;
  for (const json& name : names) found.push_back(name["name"]);
  EXPECT_THAT(found, testing::UnorderedElementsAre("it's", "a\"b", "two words", "Größe_日本", "a.b",
                                                   "[x,y]", "line\nend", "%"));
  EXPECT_EQ(CountLines(RunProgram({"list", "tables", "--sqlite", file}).out), 8u);
  for (const char* table : {"it's", "two words", "Größe_日本", "\"a.b\"", "[x,y]", "\"a\"\"b\""}) {
    SCOPED_TRACE(table);
    const ProgramResult result =
        RunProgram({"import", "--sqlite", file, "--select-table", table, "--items", "tables"});
    EXPECT_EQ(result.exit_code, 0);
    EXPECT_EQ(json::parse(result.out)["tables"].size(), 1u) << result.out;
  }
  EXPECT_EQ(RunProgram({"list", "columns", "--table", "Größe_日本", "--sqlite", file}).out,
            "Maß\n");
  EXPECT_THAT(RunProgram({"import", "--table", "%", "--sqlite", file}).err,
              HasSubstr("--select-table imports a table alone"));
}

TEST(Sqlite, FileIsNeverWritten) {
  const TemporaryFolder folder;
  const std::string file = folder.path() + "/a.db";
  MakeSqliteFile(file, "PRAGMA journal_mode = WAL; CREATE TABLE t(a)");
  const std::string before = ReadFile(file);
  EXPECT_EQ(RunProgram({"import", "--sqlite", file, "--items", "tables"}).exit_code, 0);
  EXPECT_EQ(ReadFile(file), before);
  const std::string empty = folder.Write("empty.db", "");
  EXPECT_EQ(RunProgram({"import", "--sqlite", empty}).exit_code, 0);
  EXPECT_EQ(ReadFile(empty), "");
}

TEST(Lists, FindNamesOnEveryRoute) {
  const struct {
    const char* sample;
    const char* list;
    const char* contains;
  } cases[] = {
      {"sqlite", "owners", ""},
      {"sqlite", "tables", "book\n"},
      {"sqlite", "views", "overdue_loan\n"},
      {"sqlite", "aggregates", "COUNT\n"},
      {"informix", "owners", "joe\n"},
      {"informix", "synonyms", "joe."},
      {"informix", "functions", "\n"},
      {"oracle", "owners", "LIBRARY\n"},
      {"db2", "types", "INTEGER\n"},
      {"oracle", "operators", "="},
      {"sqlserver", "procedures", "."},
      {"generic", "catalogs", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.sample) + " " + c.list);
    const ProgramResult result = RunProgram({"list", c.list, "--sample", c.sample});
    EXPECT_EQ(result.exit_code, 0) << result.err;
    EXPECT_THAT(result.out, HasSubstr(c.contains));
    EXPECT_THAT(result.err, Not(HasSubstr("database error")));
  }
}

// The first name that `list` gives.
std::string FirstOf(const char* list, const char* sample) {
  const std::string names = RunProgram({"list", list, "--sample", sample}).out;
  return names.substr(0, names.find('\n'));
}

TEST(Lists, FindTheColumnsOfATableWithoutAPhaseForThem) {
  for (const char* sample : {"sqlserver", "oracle", "informix"}) {
    const ProgramResult columns =
        RunProgram({"list", "columns", "--table", FirstOf("tables", sample), "--sample", sample});
    EXPECT_EQ(columns.exit_code, 0) << columns.err;
    EXPECT_GT(CountLines(columns.out), 0u) << sample;
  }
}

TEST(Info, TellsTheRoute) {
  const std::vector<std::string> call = {"info", "--sample", "db2", "--format", "json"};
  EXPECT_EQ(json::parse(RunProgram(call).out)["route"], "native");
  std::vector<std::string> generic = call;
  generic.emplace_back("--generic");
  EXPECT_EQ(json::parse(RunProgram(generic).out)["route"], "odbc");
}

TEST(Choices, OfOptionsGoBeforeThoseOfTheFile) {
  const TemporaryFolder folder;
  const std::string request = folder.Write(
      "r.json", R"({"items": ["tables"], "keys": false, "selectedTables": [{"name": "book"}]})");
  const json from_file = json::parse(RunProgram({"import", "--request", request}).out)["tables"];
  ASSERT_EQ(from_file.size(), 1u);
  EXPECT_EQ(from_file[0]["primaryKey"].size(), 0u);
  const json replaced = json::parse(RunProgram({"import", "--request", request, "--keys",
                                                "--select-table", "loan", "--select-table", "fine"})
                                        .out)["tables"];
  ASSERT_EQ(replaced.size(), 2u);
  EXPECT_EQ(replaced[0]["primaryKey"].size(), 1u);
}

TEST(Choices, TakeNamesByPatternsAndLeaveSomeOut) {
  const struct {
    std::vector<std::string> options;
    const char* names;
  } cases[] = {
      {{"--select-table", "book*", "--exclude", "*_genre"}, "[\"book\",\"book_author\"]"},
      {{"--select-table", "LOAN", "--select-table", "fin?"}, "[\"fine\",\"loan\"]"},
      {{"--select-table", "loan", "--select-table", "FINE"}, "[\"fine\",\"loan\"]"},
      {{"--select-table", "loan", "--select-table", "shelf"}, "[\"loan\",\"shelf\"]"},
      {{"--select-view", "*"}, "[\"overdue_loan\",\"shelf\"]"},
      {{"--exclude", "[!b]*", "--exclude", "*e*", "--exclude", "*o*"}, "[]"},
      {{"--items", "tables", "--exclude", "*e*", "--exclude", "*o*"}, "[\"branch\",\"staff\"]"},
      {{"--select-table", "\"book*\""}, "[]"},
  };
  for (const auto& [options, names] : cases) {
    ProgramCall call;
    call.arguments = {"import", "--sample", "sqlite", "--no-keys"};
    call.arguments.insert(call.arguments.end(), options.begin(), options.end());
    const ProgramResult result = RunProgram(call);
    const json workbook = result.out.empty() ? json() : json::parse(result.out);
    std::set<std::string> found;
    if (!workbook.is_null()) {
      for (const json& table : workbook["tables"]) found.insert(table["name"]);
    }
    EXPECT_EQ(json(found).dump(), names) << result.err;
  }
}

TEST(Choices, OfAFileThatMatchNothingAreWarnedOf) {
  const ProgramResult result =
      RunProgram({.arguments = {"import", "--sample", "sqlite", "--request", "-"},
                  .input = R"({"selectedTables": [{"name": "memer"}, {"name": "loan"}]})"});
  EXPECT_EQ(result.exit_code, 0);
  EXPECT_THAT(result.err, HasSubstr("standard input: there is no table 'memer'; did you mean"));
  EXPECT_EQ(json::parse(result.out)["tables"].size(), 1u);
}

TEST(Choices, CompleteASelectedSynonymFromTheServer) {
  const ProgramResult result = RunProgram({"import", "--sample", "informix", "--select-synonym",
                                           FirstOf("synonyms", "informix"), "--items", "synonyms"});
  EXPECT_EQ(result.exit_code, 0) << result.err;
  const json tables = json::parse(result.out)["tables"];
  ASSERT_EQ(tables.size(), 1u);
  EXPECT_GT(tables[0]["columns"].size(), 0u);
}

TEST(Interrupts, StopThenCancelAndWriteWhatWasReadOrNothingAtTheThird) {
  const TemporaryFolder folder;
  const std::string file = folder.path() + "/book.json";
  const std::vector<std::pair<std::vector<int>, int>> cases = {
      {{SIGINT}, 9}, {{SIGINT, SIGINT}, 4}, {{SIGTERM}, 4}, {{SIGINT, SIGINT, SIGINT}, 130}};
  for (const auto& [signals, code] : cases) {
    // An import of some seconds, which waits in the driver for every table.
    const std::string server = SimulatorString("Server=generic;Slow=SQLColumns:200");
    const ProgramResult result = RunProgram({
        .arguments = {"import", "--connect", server, "--progress", "plain", "--items", "tables",
                      "-o", file},
        .wait_for = "reading tables and views: ",
        .then =
            [&signals = signals](int pid) {
              for (const int number : signals) {
                kill(pid, number);
                usleep(20'000);  // equal signals that are pending become one
              }
            },
    });
    EXPECT_EQ(result.exit_code, code) << result.err;
    EXPECT_THAT(result.err, HasSubstr(signals[0] == SIGTERM ? "cancelling\n"
                                                            : "stopping after the table in hand"));
    if (code == 130) {
      EXPECT_THAT(Files(folder.path()), testing::IsEmpty());
      continue;
    }
    EXPECT_THAT(result.err, HasSubstr((code == 9 ? "stopped, incomplete, wrote "
                                                 : "cancelled, incomplete, wrote ") +
                                      file));
    const json workbook = json::parse(ReadFile(file));
    EXPECT_EQ(workbook["status"], code);
    EXPECT_EQ(workbook["incomplete"], true);
    EXPECT_GT(workbook["tables"].size(), 0u);
    std::filesystem::remove(file);
  }
}

TEST(Progress, IsABarOnATerminalALineElsewhereLinesOrNothingWhenAsked) {
  const TemporaryFolder folder;
  const std::string file = folder.path() + "/x.json";
  const std::string bar =
      RunProgram({.arguments = {"import", "--sample", "informix", "--items", "tables", "-o", file},
                  .on_terminal = true})
          .out;
  EXPECT_THAT(bar, HasSubstr("\x1b[K"));
  EXPECT_THAT(bar, HasSubstr("tables and views"));
  EXPECT_THAT(bar, HasSubstr(", wrote " + file));
  EXPECT_THAT(RunProgram({"import", "--progress", "plain"}).err,
              HasSubstr("reading tables and views: 18\n"));
  const std::string lines = RunProgram({"import"}).err;
  EXPECT_EQ(CountLines(lines), 2u) << lines;
  EXPECT_THAT(lines, HasSubstr("no connection is given"));
  EXPECT_THAT(lines, HasSubstr("read 16 tables, 2 views in "));
  EXPECT_EQ(RunProgram({"import", "--quiet"}).err, "");
}

TEST(Configuration, FillsWhatTheCommandLineLeavesOpen) {
  const TemporaryFolder folder;
  folder.Write("wbimport/config.toml",
               "sample = \"sybase\"\nprogress = \"none\"\n[info]\nsample = \"db2\"\n");
  ProgramCall call;
  call.environment = {{"XDG_CONFIG_HOME", folder.path()}};
  call.arguments = {"info"};
  EXPECT_THAT(RunProgram(call).out, HasSubstr("DB2"));
  call.arguments = {"info", "--sample", "oracle"};
  EXPECT_THAT(RunProgram(call).out, HasSubstr("Oracle"));
  folder.Write("wbimport/config.toml", "[list]\nsmaple = \"db2\"\n");
  const ProgramResult bad = RunProgram(call);
  EXPECT_EQ(bad.exit_code, 2);
  EXPECT_THAT(bad.err, HasSubstr("list.smaple"));
}

TEST(Help, HasExamplesOnEveryCommand) {
  for (const char* command : {"import", "list", "info", "drivers", "render"}) {
    const ProgramResult result = RunProgram({command, "--help"});
    EXPECT_EQ(result.exit_code, 0);
    EXPECT_THAT(result.out, HasSubstr(std::string("Examples:\n  wbimport ") + command));
    EXPECT_THAT(result.out, HasSubstr("Exit codes:\n  0 "));
    // The examples that name nothing of the user's find something.
    std::istringstream lines(result.out);
    for (std::string line; std::getline(lines, line);) {
      if (line.find("wbimport") > 2 || line.find("--sample") == std::string::npos) continue;
      std::istringstream words(line.substr(line.find("wbimport") + 9));
      const ProgramResult example = RunProgram({std::istream_iterator<std::string>(words), {}});
      EXPECT_EQ(example.exit_code, 0) << line << example.err;
      EXPECT_NE(example.out, "") << line;
    }
  }
  EXPECT_EQ(RunProgram({"-V"}).out, RunProgram({"--version"}).out);
}

}  // namespace
}  // namespace wbtest
