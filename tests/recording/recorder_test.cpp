// Lines of a recording, made of calls as a driver's caller reports them: what no driver that can be
// asked here does, and every place in a text where a letter cannot stand as it is.
#include "recording/recorder.h"

#include <gtest/gtest.h>
#include <sql.h>
#include <sqlext.h>

#include <array>
#include <cstring>
#include <nlohmann/json.hpp>

#include "recording/file.h"
#include "recording/json_text.h"
#include "tests/support/temporary.h"

namespace wbtest {
namespace {

using platform::DriverBuffer;
using platform::DriverCall;
using platform::DriverField;
using platform::DriverRows;

// Two statements with a text of eight bytes and a number, and what they tell.
class Recorded : public testing::Test {
 protected:
  struct Column {
    std::array<char, 8> text{};
    std::int32_t number = 0;
    std::int64_t indicator = 0;
  };

  void* Make(int& handle) {
    recorder_.OnCall(
        {.function = "SQLAllocStmt", .handle = this, .on_statement = false, .made = &handle});
    return &handle;
  }
  void Bind(void* statement, const DriverBuffer& buffer) {
    recorder_.OnCall({.function = "SQLBindCol", .handle = statement, .buffer = &buffer});
  }
  void BindText(void* statement, int number, Column& column) {
    Bind(statement, {number, SQL_C_CHAR, column.text.data(), 8, &column.indicator, 8});
  }
  void BindNumber(void* statement, int number, Column& column) {
    Bind(statement, {number, SQL_C_SLONG, &column.number, 4, &column.indicator, 4});
  }
  void Fetch(void* statement) {
    const DriverRows rows{1, nullptr};
    recorder_.OnCall({.function = "SQLFetch", .handle = statement, .rows = &rows});
  }
  static Column Text(const char* text, std::int64_t indicator) {
    Column column;
    std::strncpy(column.text.data(), text, column.text.size());
    column.indicator = indicator;
    return column;
  }
  // What the fetches gave, a line each, from `columns` on where they are told.
  std::string Rows() {
    recorder_.Finish();
    std::string why;
    std::string rows;
    EXPECT_TRUE(recording::ReadLines(
        file_, "{\"call\":\"SQLFetch\"",
        [&rows](std::string_view line) {
          const auto call = nlohmann::json::parse(line);
          rows += call.value("columns", nlohmann::json()).dump() + " " + call["rows"].dump() + "\n";
        },
        why))
        << why;
    return rows;
  }

  const TemporaryFolder folder_;
  const std::string file_ = folder_.path() + "/recording.jsonl.zst";
  recording::Recorder recorder_{
      file_, nullptr, [](const DriverCall&) { return std::vector<recording::Diagnostic>(); }};
};

TEST_F(Recorded, RowsHaveTheColumnsBoundWhenTheyWereFetched) {
  recorder_.Begin("{}");
  int one = 0;
  int two = 0;
  Column text = Text("a", 1);
  Column number{.number = 7, .indicator = 4};
  void* const first = Make(one);
  void* const second = Make(two);
  BindText(first, 1, text);
  BindNumber(second, 2, number);
  Fetch(first);
  Fetch(second);
  Fetch(first);
  BindNumber(first, 1, number);  // another type
  Fetch(first);
  BindText(first, 3, text);
  Fetch(first);
  const std::array unbind = {DriverField{"option", std::int64_t{SQL_UNBIND}}};
  recorder_.OnCall({.function = "SQLFreeStmt", .handle = first, .asked = unbind});
  Fetch(first);
  Fetch(second);
  EXPECT_EQ(Rows(),
            "null [[\"a\"]]\n[2] [[7]]\nnull [[\"a\"]]\nnull [[7]]\n[1,3] [[7,\"a\"]]\nnull [[]]\n"
            "[2] [[7]]\n");
}

TEST_F(Recorded, CellsHaveTheIndicatorThatIsNotTheirLength) {
  recorder_.Begin("{}");
  int handle = 0;
  Column column;
  void* const statement = Make(handle);
  BindText(statement, 1, column);
  for (const Column& given : {Text("abc", 3), Text("abc", SQL_NULL_DATA), Text("abcdefg", 140000),
                              Text("abc", SQL_NO_TOTAL), Text("abc", 0xFFFFFFFF), Text("abc", 2),
                              Text("", 0), Text("\"\n\x01", 3), Text("\xff", 1)}) {
    column = given;
    Fetch(statement);
  }
  Bind(statement, {1, SQL_C_CHAR, column.text.data(), 8, nullptr, 8});
  column = Text("without", 99);
  Fetch(statement);
  EXPECT_EQ(Rows(), R"(null [["abc"]]
null [[null]]
null [[{"indicator":140000,"value":"abcdefg"}]]
null [[{"indicator":-4,"value":"abc"}]]
null [[{"indicator":4294967295,"value":"abc"}]]
null [[{"indicator":2,"value":"abc"}]]
null [[""]]
null [["\"\n\u0001"]]
null [[{"bytes":"ff"}]]
null [["without"]]
)");
}

TEST(JsonText, IsPlainUnlessALetterAnywhereHasToBeWrittenOtherwise) {
  for (std::size_t length = 0; length <= 25; ++length) {
    const std::string plain(length, '~');
    recording::Bytes line;
    EXPECT_TRUE(recording::AppendPlainString(plain, line));
    EXPECT_TRUE(recording::AppendPlainString(std::u16string(length, u' '), line));
    EXPECT_EQ(line.view(), '"' + plain + "\"\"" + std::string(length, ' ') + '"');
    for (std::size_t at = 0; at < length; ++at) {
      for (const char letter : {'"', '\\', '\x1f', '\0', '\x80', '\xff'}) {
        std::string text = plain;
        text[at] = letter;
        EXPECT_FALSE(recording::AppendPlainString(text, line)) << length << ' ' << at;
        std::u16string wide(length, u' ');
        wide[at] = static_cast<unsigned char>(letter);
        EXPECT_FALSE(recording::AppendPlainString(wide, line)) << length << ' ' << at;
      }
      for (const char letter : {' ', '!', '#', '[', ']', '\x7f'}) {
        std::string text = plain;
        text[at] = letter;
        EXPECT_TRUE(recording::AppendPlainString(text, line)) << length << ' ' << at;
      }
    }
  }
}

// The words are no names, so that the texts show what became of the rest.
TEST(NameRules, TakeEveryLiteralAndLeaveSizesOfTypes) {
  recording::NameRules rules;
  rules.BeginCall("SQLExecDirect", 1);
  rules.NoteText("heading", "definition, default, base_type");
  const struct {
    int column;
    std::string text, hidden;
  } cases[] = {
      {1, "varchar(37) DEFAULT (4711), numeric(9, 2) CHECK (98.5 < 1e5 AND 7 IN (7,8)) -- or 12",
       "varchar(37) DEFAULT (0000), numeric(9, 2) CHECK (00.0 < 000 AND 0 IN (0,0)) "},
      {1, "DEFAULT 'eleven' CHECK(5)", "DEFAULT '' CHECK(0)"},
      {2, "(4711)::numeric(9,2) + 0xFF", "(0000)::numeric(0,0) + 0000"},
      {2, "", ""},
      {3, "numeric(9,2)", "numeric(9,2)"},
  };
  for (const auto& given : cases)
    EXPECT_EQ(rules.Apply(rules.RoleOfCell(given.column), given.text), given.hidden);
}

}  // namespace
}  // namespace wbtest
