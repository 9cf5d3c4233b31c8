// An import is recorded, and imported again from the recording alone: the workbook file, the
// notification trace and the messages are the same to the byte, and so is a recording of the
// replay. On every practice server, and whatever the driver does wrong on the way.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <fstream>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>

#include "recording/file.h"
#include "tests/host/program.h"

namespace wbtest {
namespace {

using nlohmann::json;
using testing::HasSubstr;

using Words = std::vector<std::string>;

Words operator+(Words words, const Words& more) {
  words.insert(words.end(), more.begin(), more.end());
  return words;
}

// The results of one run of `import`.
struct Results {
  int exit_code;
  std::string workbook, trace, errors, said;
};

// The first line of `text` that is another one in `expected`; empty where they are the same.
std::string FirstDifference(const std::string& text, const std::string& expected) {
  if (text == expected) return {};
  const auto at = std::mismatch(text.begin(), text.end(), expected.begin(), expected.end()).first;
  const std::size_t begin = text.rfind('\n', at == text.begin() ? 0 : at - text.begin() - 1) + 1;
  return text.substr(begin, text.find('\n', begin) - begin);
}

class Recordings : public testing::Test {
 protected:
  Results Import(const Words& arguments, int signal_number = 0) const {
    const std::string at = folder_.path() + "/";
    for (const char* name : {"workbook", "trace", "errors"}) std::remove((at + name).c_str());
    ProgramCall call{.arguments = Words{"import"} + arguments +
                                  Words{"--format", "json", "-o", at + "workbook", "--trace",
                                        at + "trace", "--errors", at + "errors", "--progress",
                                        signal_number != 0 ? "plain" : "none"}};
    if (signal_number != 0) {
      call.wait_for = "reading";
      call.then = [signal_number](int pid) { kill(pid, signal_number); };
    }
    const ProgramResult result = RunProgram(call);
    return {result.exit_code, ReadFile(at + "workbook"), ReadFile(at + "trace"),
            ReadFile(at + "errors"), result.err};
  }
  // Records, replays, and compares; gives the results of the recorded import.
  Results Check(const Words& arguments, int signal_number = 0) {
    std::remove(file_.c_str());
    std::remove(again_.c_str());
    const Results recorded = Import(arguments + Words{"--record", file_}, signal_number);
    const Results replayed = Import({"--replay", file_, "--record", again_});
    EXPECT_EQ(replayed.exit_code, recorded.exit_code) << replayed.said;
    EXPECT_EQ(FirstDifference(replayed.workbook, recorded.workbook), "");
    EXPECT_EQ(FirstDifference(replayed.trace, recorded.trace), "");
    EXPECT_EQ(FirstDifference(replayed.errors, recorded.errors), "");
    return recorded;
  }
  std::string Text(const std::string& file) const {
    recording::Bytes text;
    std::string why;
    EXPECT_TRUE(recording::ReadWholeFile(file, 0, text, why)) << why;
    return std::string(text.view());
  }

  const TemporaryFolder folder_;
  const std::string file_ = folder_.path() + "/recording.jsonl.zst";
  const std::string again_ = folder_.path() + "/again.jsonl";
};

TEST_F(Recordings, OfEveryPracticeServerPlayToTheSameBytes) {
  for (const char* sample : {"sqlite", "informix", "informix-7", "sqlserver", "sybase", "oracle",
                             "db2", "redbrick", "access", "oracle-7", "generic"}) {
    for (const Words& choices : {Words{}, Words{"--generic", "--system"}}) {
      SCOPED_TRACE(sample + testing::PrintToString(choices));
      const Results recorded = Check(Words{"--sample", sample} + choices);
      EXPECT_THAT(recorded.workbook, HasSubstr("\"required\": true"));
      // Also what nobody looked at is played as it was. SQLite's driver claims functions that the
      // simulator does not have.
      if (sample == std::string("sqlite")) continue;
      // What comes before the choices are settled is not asked again, nor counted.
      const auto imported = [](const std::string& text) {
        const std::size_t begin = text.find("\"choices\"");
        return text.substr(begin, text.rfind("{\"host\":\"end\"") - begin);
      };
      EXPECT_EQ(FirstDifference(imported(Text(again_)), imported(Text(file_))), "");
    }
  }
}

// An exact reading of PostgreSQL, where no server is.
#define WB_EXACT(faults) \
  "recording;File=" WB_SOURCE_DIR "/tests/recording/fixtures/postgresql_exact.jsonl" faults
const Words kExact = {"--reading", "exact", "--items", "tables,views,synonyms,data-types"};

TEST_F(Recordings, KeepWhatGoesWrong) {
  const struct {
    const char* server;
    int exit_code;
    Words choices = {};
  } cases[] = {
      {"informix;DropConnection=20", 5},
      {"informix;DropConnection=150", 5},
      {"oracle;DropConnection=60", 5},
      {"generic;DropConnection=150", 5},
      {"sqlserver;DropConnection=20", 5},
      {"db2;Fail=SQLExecDirect:3+", 3},
      {"oracle;Fail=SQLBindCol:4,SQLDescribeCol:30,SQLNumResultCols:5", 3},
      {"oracle;RowError=4:3;RowDeleted=2-3:2", 3},
      {"informix;NoTotal=3:2:3", 3},
      {"informix;RowDeleted=2", 0},  // so that rows far apart show it at the third alone
      {"oracle;LongName=2", 3},
      {"oracle;FetchError=2-4", 3},
      {"oracle;Without=SQLExtendedFetch", 0},
      {"generic;Without=SQLPrimaryKeys", 0},
      {"generic;GrowingColumns=1", 0},
      {"db2;CLISchema=Y;Database=X", 0},  // which decides on the route
      {"oracle;Sql={UPDATE all_tab_columns SET column_name = printf('%.700c', 'x')}", 0},
      {"oracle;Sql={UPDATE all_tab_columns SET column_name = char(228, 128218, 10, 34, 39)}", 0},
      {"informix", 0, {"--select-table", "member", "--no-foreign-keys", "--items", "tables"}},
      {"informix", 0, {"--select-synonym", "joe.books"}},
      {"sqlserver", 0, {"--items", "column-names", "--table", "dbo.member"}},
      {WB_EXACT(";DropConnection=25"), 5, kExact},
      {WB_EXACT(";Fail=SQLExecDirect:9"), 3, kExact},
      {"nosuch", 5},
  };
  for (const auto& [server, exit_code, choices] : cases) {
    SCOPED_TRACE(server);
    const Words connection = {"--connect", SimulatorString(std::string("Server=") + server)};
    EXPECT_EQ(Check(connection + choices).exit_code, exit_code);
  }
}

TEST_F(Recordings, StopWhereTheRecordedImportStopped) {
  const std::string slow = "Slow=SQLExecDirect:20,SQLColumns:20,SQLForeignKeys:20";
  for (const char* server : {"informix", "generic", WB_EXACT("")}) {
    for (const auto& [signal_number, exit_code] : {std::pair(SIGINT, 9), std::pair(SIGTERM, 4)}) {
      SCOPED_TRACE(server + std::to_string(signal_number));
      const Words connection = {"--connect",
                                SimulatorString(std::string("Server=") + server + ";" + slow)};
      const bool exact = std::string_view(server).starts_with("recording");
      EXPECT_EQ(Check(connection + (exact ? kExact : Words{}), signal_number).exit_code, exit_code);
    }
  }
}

TEST_F(Recordings, NameNoFolder) {
  MakeSqliteFile(folder_.path() + "/our shop.db", "CREATE TABLE t(a)");
  EXPECT_THAT(Check({"--sqlite", folder_.path() + "/our shop.db"}).workbook,
              HasSubstr(R"("database": "our shop.db")"));
  const std::string recorded = Text(file_);
  EXPECT_THAT(recorded, HasSubstr("our%20shop.db"));
  EXPECT_THAT(recorded, testing::Not(HasSubstr(folder_.path())));
}

TEST_F(Recordings, SayWhatTheyDoNotHold) {
  Import({"--sample", "generic", "--record", file_, "--no-foreign-keys"});
  // Narrower choices ask less.
  EXPECT_EQ(Import({"--replay", file_, "--no-foreign-keys", "--no-keys"}).exit_code, 0);
  const Results more = Import({"--replay", file_});
  EXPECT_EQ(more.exit_code, 0) << "the recorded choices hold where there are no others";
  const Results unheld = Import({"--replay", file_, "--foreign-keys"});
  EXPECT_EQ(unheld.exit_code, 3);
  EXPECT_THAT(unheld.said, HasSubstr("of the questions were not recorded; the first: the "
                                     "recording does not hold SQLForeignKeys(null, \""));
  Import({"--sample", "informix", "--record", file_});
  EXPECT_THAT(Import({"--replay", file_, "--select-table", "joe.nowhere"}).errors,
              testing::AllOf(HasSubstr("does not hold SQLExecDirect("), HasSubstr("nowhere"),
                             HasSubstr("; the nearest that it holds is SQLExecDirect(")));
}

TEST_F(Recordings, AreRefusedWhenTheyAreNone) {
  const std::pair<const char*, const char*> cases[] = {
      {"", "is no recording"},
      {"{}\n", "is no recording"},
      {"{\"recording\":\"wbimport\",\"version\":7}\n", "of version 7; known here is version 1"},
      {"{\"recording\":\"wbimport\",\"version\":1}\n{\"call\":\"SQLGetInfo\",\"info\":x}\n",
       "is damaged"},
      {"\x28\xB5\x2F\xFDnonsense", "is damaged"},
  };
  for (const auto& [text, message] : cases) {
    const Results results = Import({"--replay", folder_.Write("file", text)});
    EXPECT_EQ(results.exit_code, 5) << message;
    EXPECT_THAT(results.said, HasSubstr(message));
  }
  EXPECT_THAT(Import({"--replay", folder_.path() + "/none"}).said, HasSubstr("No such file"));
  EXPECT_EQ(Import({"--record", folder_.path() + "/none/x"}).exit_code, 6);
  EXPECT_EQ(Import({"--record", "/dev/full"}).exit_code, 6);
  // What a crash leaves is played as far as it goes.
  Import({"--sample", "generic", "--record", again_});
  const std::string whole = ReadFile(again_);
  const Results cut = Import({"--replay", folder_.Write("cut", whole.substr(0, 30000))});
  EXPECT_THAT(cut.said, HasSubstr("ends early"));
  EXPECT_THAT(cut.workbook, HasSubstr("branch"));
}

// What an import makes of the answers of real drivers, quirks included, where no server is. What
// the answers are about is the schema of tests/real; scripts/record_fixtures made them.
// WB_RENEW_GOLDEN=1 writes the outlines anew.
TEST_F(Recordings, OfRealDriversGiveWhatTheyGave) {
  for (const char* name : {"access", "mariadb", "mariadb_exact", "postgresql", "postgresql_exact",
                           "sqlite", "sqlite_exact"}) {
    const std::string at = std::string(WB_SOURCE_DIR "/tests/recording/fixtures/") + name;
    const ProgramResult result =
        RunProgram({"import", "--replay", at + ".jsonl", "--record", again_, "--progress", "none"});
    EXPECT_EQ(result.exit_code, 0) << result.err;
    const ProgramResult outline =
        RunProgram({"import", "--replay", again_, "--format", "text", "--progress", "none"});
    if (std::getenv("WB_RENEW_GOLDEN") != nullptr) std::ofstream(at + ".txt") << outline.out;
    EXPECT_EQ(FirstDifference(outline.out, ReadFile(at + ".txt")), "") << name;
  }
}

TEST_F(Recordings, TellTwoReadingsApart) {
  const auto compare = [](const Words& arguments) {
    return RunProgram(
        {Words{"compare-readings", "--progress", "none", "--format", "text"} + arguments});
  };
  const auto told = [](const ProgramResult& result) {  // without the lines that name the sides
    return result.out.substr(result.out.find("\nThe "));
  };
  const struct {
    const char* sample;
    const char* lacks;
  } cases[] = {
      {"sqlite", "The compatible reading lacks 1 database option, 2 view texts,"},
      {"informix", "The reading with SQL of its own lacks 2 routines and 2 foreign keys."},
  };
  for (const auto& [sample, lacks] : cases) {
    const ProgramResult recorded = compare({"--sample", sample, "--record", file_});
    EXPECT_EQ(recorded.exit_code, 10) << recorded.err;
    EXPECT_THAT(recorded.out, HasSubstr(lacks));
    const ProgramResult replayed = compare({"--replay", file_});
    EXPECT_EQ(replayed.exit_code, 10) << replayed.err;
    EXPECT_EQ(FirstDifference(told(replayed), told(recorded)), "");
  }
  Import({"--sample", "sqlite", "--record", file_});
  const std::pair<Words, const char*> refused[] = {
      {{}, "takes a connection"},
      {{"--sample", "access"}, "is read in one way only"},
      {{"--replay", file_}, "does not hold the compatible reading"},
  };
  for (const auto& [arguments, message] : refused) {
    const ProgramResult result = compare(arguments);
    EXPECT_EQ(result.exit_code, 2);
    EXPECT_THAT(result.err, HasSubstr(message));
  }
}

// What an import has of a schema besides its names, and the order that names give.
std::string Shape(const std::string& workbook) {
  const json file = json::parse(workbook);
  std::vector<std::string> columns;
  for (const json& table : file.at("tables")) {
    std::ostringstream shape;
    shape << table.at("type") << ' ' << table.at("primaryKey").size() << '\n';
    for (const json& column : table.at("columns")) {
      shape << "  " << column.at("required") << column.at("primaryKey") << column.at("precision")
            << ' ' << column.at("scale") << ' ' << column.at("physicalCode") << '\n';
    }
    columns.push_back(shape.str());
  }
  std::multiset<std::string> tables;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    std::multiset<std::string> keys;
    for (const json& key : file.at("tables").at(i).at("foreignKeys")) {
      std::string line = key.at("role").dump() + key.at("oneToOne").dump();
      for (const json& column : key.at("foreignKey"))
        line += " to " + columns.at(column.at("index").get<std::size_t>());
      keys.insert(line);
    }
    std::string table = columns[i];
    for (const std::string& key : keys) table += key;
    tables.insert(table);
  }
  std::ostringstream shape;
  for (const std::string& table : tables) shape << table;
  for (const char* list :
       {"ownerNames", "dataTypes", "booleanFunctions", "functions", "procedures", "aggregates"}) {
    shape << list << file.at(list).size() << '\n';
  }
  return shape.str();
}

TEST_F(Recordings, WithHiddenNamesKeepTheShapeAlone) {
  for (const char* sample :
       {"sqlite", "informix", "sqlserver", "oracle-7", "db2", "redbrick", "access"}) {
    SCOPED_TRACE(sample);
    const Words hashed = {"--sample", sample, "--record", again_, "--record-names", "hashed"};
    const Results recorded = Import(hashed);
    const Results replayed = Import({"--replay", again_});
    EXPECT_EQ(replayed.exit_code, recorded.exit_code) << replayed.said;
    EXPECT_EQ(Shape(replayed.workbook), Shape(recorded.workbook));
    const std::string text = Text(again_);
    std::size_t names = 0;
    const json workbook = json::parse(recorded.workbook);
    for (const json& table : workbook.at("tables")) {
      const auto hidden = [&](const json& name) {
        // Names of fields, and of a type.
        const std::set<std::string> words = {"name", "size", "currency"};
        if (words.contains(name.get<std::string>())) return;
        ++names;
        EXPECT_FALSE(text.find("\"" + name.get<std::string>() + "\"") != std::string::npos) << name;
      };
      hidden(table.at("name"));
      for (const json& column : table.at("columns")) hidden(column.at("name"));
    }
    EXPECT_GT(names, 100U);
    Import(hashed);
    EXPECT_NE(Text(again_), text) << "each recording has a key of its own";
  }
}

}  // namespace
}  // namespace wbtest
