// What users and scripts rely on of the program, by running it: exit codes, output that is whole or
// not there, interrupts, lists, formats and reports.
#include "tests/host/program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <csignal>
#include <filesystem>
#include <nlohmann/json.hpp>

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

TEST(Import, ReadsTheSampleDatabaseByDefault) {
  const ProgramResult result = RunProgram({"import"});
  EXPECT_EQ(result.exit_code, 0) << result.err;
  const json workbook = json::parse(result.out);
  EXPECT_EQ(workbook["source"]["dbmsName"], "SQLite");
  EXPECT_EQ(workbook["source"]["route"], "odbc");
  EXPECT_EQ(workbook["tables"].size(), 18u);
}

struct BadCall {
  const char* what;
  std::vector<std::string> arguments;
  std::string input;
  int exit_code;
  const char* message;
};

TEST(Failures, AreOneLineThatSaysWhatWasTriedAndWhy) {
  const TemporaryFolder folder;
  const std::string text_file = folder.Write("notes.txt", "just some text, no database at all");
  const std::vector<BadCall> calls = {
      {"no command", {}, "", 2, "subcommand"},
      {"unknown option", {"import", "--colour"}, "", 2, "--colour"},
      {"unknown item", {"import", "--items", "tables,indexes"}, "", 2, "'indexes'"},
      {"unknown format", {"import", "--format", "pdf"}, "", 2, "'pdf'"},
      {"unknown sample", {"import", "--sample", "ingres"}, "", 2, "'ingres'"},
      {"two connections", {"import", "--sample", "db2", "--dsn", "x"}, "", 2, "only one"},
      {"two readers of standard input",
       {"import", "--request", "-", "--password-stdin"},
       "",
       2,
       "standard input"},
      {"no single table", {"import", "--items", "column-names"}, "", 2, "--table"},
      {"list without a single table", {"list", "columns"}, "", 2, "--table"},
      {"unknown synonym", {"import", "--select-synonym", "joe.nothing"}, "", 2, "joe.nothing"},
      {"no such variable",
       {"import", "--dsn", "x", "--password-env", "WB_NO_SUCH"},
       "",
       2,
       "WB_NO_SUCH"},
      {"unknown field", {"import", "--request", "-"}, R"({"item": []})", 2, "field item"},
      {"no JSON", {"import", "--request", "-"}, "{\"items\": [}", 2, "line 1, column 12"},
      {"request is missing", {"import", "--request", "/none.json"}, "", 2, "/none.json"},
      {"request is a folder", {"import", "--request", folder.path()}, "", 2, "request file"},
      {"no workbook file", {"render", text_file}, "", 2, "notes.txt"},
      {"no such table", {"import", "--format", "dot", "--around", "nowhere"}, "", 2, "nowhere"},
      {"missing file", {"import", "--sqlite", "/none.db"}, "", 5, "/none.db"},
      {"folder as database", {"import", "--sqlite", folder.path()}, "", 5, "regular file"},
      {"no database", {"import", "--sqlite", text_file}, "", 5, "no SQLite database"},
      {"unknown driver", {"import", "--connect", "Driver=MySQL;Server=x"}, "", 5, "odbc-mariadb"},
      {"unknown data source", {"import", "--dsn", "stock"}, "", 5, "the data source stock"},
      {"refused connection",
       {"import", "--connect", "Driver=PostgreSQL Unicode;Server=127.0.0.1;Port=1;Database=x"},
       "",
       5,
       "Connection refused"},
      {"no message library", {"import", "--messages", folder.path()}, "", 5, "msgtext.dll"},
      {"output in a missing folder", {"import", "-o", folder.path() + "/none/x"}, "", 6, "/none/x"},
      {"output is a folder",
       {"import", "-o", folder.path(), "--format", "json"},
       "",
       6,
       "directory"},
      {"full device", {"import", "--progress", "none", "-o", "/dev/full"}, "", 6, "No space"},
      {"trace in a missing folder",
       {"info", "--trace", folder.path() + "/none/t"},
       "",
       6,
       "/none/t"},
  };
  for (const BadCall& bad : calls) {
    SCOPED_TRACE(bad.what);
    ProgramCall call;
    call.arguments = bad.arguments;
    call.input = bad.input;
    const ProgramResult result = RunProgram(call);
    EXPECT_EQ(result.exit_code, bad.exit_code) << result.err;
    EXPECT_THAT(result.err, HasSubstr(bad.message));
    EXPECT_EQ(result.out, "");
  }
}

TEST(Failures, OfAConnectionCountBeforeThoseOfTheOutput) {
  const ProgramResult both = RunProgram({"import", "--sqlite", "/none.db", "-o", "/none/x"});
  EXPECT_EQ(both.exit_code, 5);
  EXPECT_EQ(CountLines(both.err), 1u) << both.err;
}

struct CodeCase {
  const char* what;
  std::string keywords;
  std::vector<std::string> arguments;
  int exit_code;
};

TEST(ExitCodes, TellHowTheImportEnded) {
  const std::vector<CodeCase> cases = {
      {"all is well", "Server=db2", {}, 0},
      {"a failing statement is shown", "Server=db2;Fail=SQLExecDirect:1", {}, 3},
      {"a failing column call", "Server=generic;Fail=SQLColumns:2", {}, 1},
      {"a failing key call is consumed", "Server=generic;Fail=SQLPrimaryKeys:2", {}, 0},
      {"the connection drops", "Server=db2;DropConnection=30", {}, 5},
      {"owners of a server without them", "Server=access", {"--items", "owner-names"}, 1},
  };
  for (const CodeCase& code : cases) {
    SCOPED_TRACE(code.what);
    std::vector<std::string> arguments = {"import", "--connect", SimulatorString(code.keywords)};
    arguments.insert(arguments.end(), code.arguments.begin(), code.arguments.end());
    const ProgramResult result = RunProgram(arguments);
    EXPECT_EQ(result.exit_code, code.exit_code) << result.err;
    EXPECT_EQ(json::parse(result.out)["format"], "workbook");
  }
}

TEST(Reports, HoldTheTraceTheShownErrorsAndTheConsumedOnes) {
  const TemporaryFolder folder;
  const auto file = [&](const char* name) { return folder.path() + "/" + name; };
  const ProgramResult native =
      RunProgram({"import", "--connect", SimulatorString("Server=db2;Fail=SQLExecDirect:1:HY000"),
                  "--items", "tables", "--errors", file("errors"), "--trace", file("trace")});
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
  EXPECT_EQ(json::parse(ReadFile(file))["tables"].size(), 18u);
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
  EXPECT_EQ(RunProgram({"render", file}).out, ReadFile(file));
  EXPECT_THAT(RunProgram({"render", file, "--format", "markdown"}).out, HasSubstr("joe"));
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

struct ListCase {
  const char* sample;
  const char* list;
  const char* contains;
};

TEST(Lists, FindNamesOnEveryRoute) {
  const std::vector<ListCase> cases = {
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
  };
  for (const ListCase& list : cases) {
    SCOPED_TRACE(std::string(list.sample) + " " + list.list);
    const ProgramResult result = RunProgram({"list", list.list, "--sample", list.sample});
    EXPECT_EQ(result.exit_code, 0) << result.err;
    EXPECT_THAT(result.out, HasSubstr(list.contains));
    EXPECT_THAT(result.err, Not(HasSubstr("database error")));
  }
  EXPECT_EQ(RunProgram({"list", "owners"}).out, "");
}

TEST(Lists, FindTheColumnsOfATableWithoutAPhaseForThem) {
  for (const char* sample : {"sqlserver", "oracle", "informix"}) {
    SCOPED_TRACE(sample);
    const std::string tables = RunProgram({"list", "tables", "--sample", sample}).out;
    const std::string first = tables.substr(0, tables.find('\n'));
    const ProgramResult columns =
        RunProgram({"list", "columns", "--table", first, "--sample", sample});
    EXPECT_EQ(columns.exit_code, 0) << columns.err;
    EXPECT_GT(CountLines(columns.out), 0u);
  }
}

TEST(Info, TellsTheRouteOfEverySample) {
  const std::vector<std::pair<const char*, const char*>> routes = {
      {"sqlite", "odbc"},      {"informix", "informix"}, {"informix-7", "informix"},
      {"sqlserver", "native"}, {"sybase", "odbc"},       {"oracle", "native"},
      {"oracle-7", "native"},  {"db2", "native"},        {"redbrick", "native"},
      {"access", "odbc"},      {"generic", "odbc"},
  };
  for (const auto& [sample, route] : routes) {
    SCOPED_TRACE(sample);
    const ProgramResult result = RunProgram({"info", "--sample", sample, "--format", "json"});
    EXPECT_EQ(result.exit_code, 0) << result.err;
    EXPECT_EQ(json::parse(result.out)["route"], route);
  }
  EXPECT_EQ(
      json::parse(
          RunProgram({"info", "--sample", "db2", "--generic", "--format", "json"}).out)["route"],
      "odbc");
}

TEST(Choices, OfOptionsGoBeforeThoseOfTheFile) {
  const TemporaryFolder folder;
  const std::string request = folder.Write(
      "r.json", R"({"items": ["tables"], "keys": false, "selectedTables": [{"name": "book"}]})");
  const auto tables = [&](std::vector<std::string> options) {
    std::vector<std::string> arguments = {"import", "--request", request};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return json::parse(RunProgram(arguments).out)["tables"];
  };
  const json from_file = tables({});
  ASSERT_EQ(from_file.size(), 1u);
  EXPECT_EQ(from_file[0]["primaryKey"].size(), 0u);
  const json replaced = tables({"--keys", "--select-table", "loan", "--select-table", "fine"});
  ASSERT_EQ(replaced.size(), 2u);
  EXPECT_EQ(replaced[0]["primaryKey"].size(), 1u);
}

TEST(Choices, CompleteASelectedSynonymFromTheServer) {
  const std::string synonyms = RunProgram({"list", "synonyms", "--sample", "informix"}).out;
  const std::string first = synonyms.substr(0, synonyms.find('\n'));
  const ProgramResult result = RunProgram(
      {"import", "--sample", "informix", "--select-synonym", first, "--items", "synonyms"});
  EXPECT_EQ(result.exit_code, 0) << result.err;
  const json tables = json::parse(result.out)["tables"];
  ASSERT_EQ(tables.size(), 1u);
  EXPECT_GT(tables[0]["columns"].size(), 0u);
}

// An import of some seconds, which waits in the driver for every table.
ProgramCall SlowCall(const TemporaryFolder& folder, std::function<void(int)> then) {
  ProgramCall call;
  call.arguments = {
      "import",     "--connect", SimulatorString("Server=generic;Slow=SQLColumns:200"),
      "--progress", "plain",     "--items",
      "tables",     "-o",        folder.path() + "/book.json"};
  call.wait_for = "reading tables and views: ";
  call.then = std::move(then);
  return call;
}

TEST(Interrupts, StopThenCancelAndWriteWhatWasRead) {
  const TemporaryFolder folder;
  const std::string file = folder.path() + "/book.json";
  const std::vector<std::pair<std::vector<int>, int>> cases = {
      {{SIGINT}, 9}, {{SIGINT, SIGINT}, 4}, {{SIGTERM}, 4}};
  for (const auto& [signals, code] : cases) {
    const ProgramResult result = RunProgram(SlowCall(folder, [&signals = signals](int pid) {
      for (const int number : signals) {
        kill(pid, number);
        usleep(20'000);  // equal signals that are pending become one
      }
    }));
    EXPECT_EQ(result.exit_code, code) << result.err;
    const json workbook = json::parse(ReadFile(file));
    EXPECT_EQ(workbook["status"], code);
    EXPECT_EQ(workbook["incomplete"], true);
    EXPECT_GT(workbook["tables"].size(), 0u);
    std::filesystem::remove(file);
  }
}

TEST(Interrupts, TheThirdEndsAtOnceWithoutOutput) {
  const TemporaryFolder folder;
  const ProgramResult result = RunProgram(SlowCall(folder, [](int pid) {
    for (int i = 0; i < 3; ++i) {
      kill(pid, SIGINT);
      usleep(20'000);
    }
  }));
  EXPECT_EQ(result.exit_code, 130);
  EXPECT_THAT(Files(folder.path()), testing::IsEmpty());
}

TEST(Progress, IsABarOnATerminalLinesElsewhereAndNothingWhenAsked) {
  ProgramCall call;
  call.arguments = {"import", "--sample", "informix", "--items", "tables"};
  call.on_terminal = true;
  const std::string bar = RunProgram(call).out;
  EXPECT_THAT(bar, HasSubstr("\x1b[K"));
  EXPECT_THAT(bar, HasSubstr("tables and views"));
  EXPECT_THAT(RunProgram({"import"}).err, HasSubstr("reading tables and views: 18\n"));
  EXPECT_EQ(RunProgram({"import", "--progress", "none"}).err, "");
}

TEST(Configuration, FillsWhatTheCommandLineLeavesOpen) {
  const TemporaryFolder folder;
  folder.Write("wbimport/config.toml", "sample = \"db2\"\nprogress = \"none\"\n");
  ProgramCall call;
  call.environment = {{"XDG_CONFIG_HOME", folder.path()}};
  call.arguments = {"info"};
  EXPECT_THAT(RunProgram(call).out, HasSubstr("DB2"));
  call.arguments = {"info", "--sample", "oracle"};
  EXPECT_THAT(RunProgram(call).out, HasSubstr("Oracle"));
  folder.Write("wbimport/config.toml", "smaple = \"db2\"\n");
  const ProgramResult bad = RunProgram(call);
  EXPECT_EQ(bad.exit_code, 2);
  EXPECT_THAT(bad.err, HasSubstr("smaple"));
}

TEST(Help, HasExamplesOnEveryCommand) {
  for (const char* command : {"import", "list", "info", "drivers", "render"}) {
    const ProgramResult result = RunProgram({command, "--help"});
    EXPECT_EQ(result.exit_code, 0);
    EXPECT_THAT(result.out, HasSubstr(std::string("Examples:\n  wbimport ") + command));
  }
  EXPECT_THAT(RunProgram({"--version"}).out, testing::StartsWith("wbimport "));
}

}  // namespace
}  // namespace wbtest
