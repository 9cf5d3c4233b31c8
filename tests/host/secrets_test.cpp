// A password, given in any way, never leaves the program: not in its output, its errors, its
// reports or the process list.
#include "host/secrets.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "base/connection_string.h"
#include "tests/host/program.h"

namespace wbtest {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr const char* kPassword = "Xq7-hush;hush}";

TEST(Passwords, StayInsideHoweverTheyAreGiven) {
  const struct {
    std::vector<std::string> options;  // beside those of the reports
    std::string in_string;             // within the connection string
  } ways[] = {
      {{"--password-env", "WB_TEST_PASSWORD"}, ""},
      {{"--password-stdin"}, ""},
      {{}, "PWD={Xq7-hush;hush}}};"},
  };
  // A server that fails right at the connection, one that fails in the middle, one that is well.
  const std::vector<std::string> servers = {"Server=nosuch;", "Server=db2;Fail=SQLExecDirect:2;",
                                            "Server=generic;Fail=SQLPrimaryKeys:1;"};
  for (const auto& [options, in_string] : ways) {
    for (const std::string& server : servers) {
      SCOPED_TRACE(testing::PrintToString(options) + " " + server);
      const TemporaryFolder folder;
      ProgramCall call;
      call.arguments = options;
      call.arguments.insert(
          call.arguments.begin(),
          {"import", "--connect",
           SimulatorString(server + in_string + "UID=Yz8-user;Database=Yz8-base;Host=Yz8-host")});
      for (const char* report : {"trace", "errors", "log", "record"}) {
        call.arguments.push_back(std::string("--") + report);
        call.arguments.push_back(folder.path() + "/" + report);
      }
      call.environment = {{"WB_TEST_PASSWORD", kPassword}};
      call.input = std::string(kPassword) + "\n";
      std::string process_list;
      call.wait_for = "wbimport";
      call.then = [&](int pid) {
        process_list = ReadFile("/proc/" + std::to_string(pid) + "/cmdline");
      };
      const ProgramResult result = RunProgram(call);
      for (const std::string& text :
           {result.out, result.err, process_list, ReadFile(folder.path() + "/trace"),
            ReadFile(folder.path() + "/errors"), ReadFile(folder.path() + "/log")}) {
        EXPECT_THAT(text, Not(HasSubstr("Xq7-hush")));
      }
      const std::string recording = ReadFile(folder.path() + "/record");
      EXPECT_THAT(recording, HasSubstr("\"call\":\"SQLDriverConnect\""));
      EXPECT_THAT(recording, Not(testing::ContainsRegex("Xq7|Yz8")));
    }
  }
}

TEST(Passwords, AreAskedForWithoutEcho) {
  const ProgramResult result = RunProgram(
      {.arguments = {"info", "--connect", SimulatorString("Server=db2"), "--user", "joe"},
       .input = "Xq7-hush\n",
       .on_terminal = true,
       .wait_for = "Password of joe"});
  EXPECT_EQ(result.exit_code, 0) << result.out;
  EXPECT_THAT(result.out, HasSubstr("Password of joe"));
  EXPECT_THAT(result.out, Not(HasSubstr("Xq7-hush")));
}

TEST(Secrets, AreScrubbedFromAnyText) {
  wbhost::Secrets secrets;
  secrets.Add("tiger");
  secrets.Add("ab");
  const std::pair<const char*, const char*> cases[] = {
      {"login failed for 'tiger'", "login failed for '***'"},
      {"cabin of tigers", "cabin of ***s"},  // a short secret stays inside of a word
      {"word ab here", "word *** here"},
      {"the string was Driver=x;pwd = {a;b};Server=y",
       "the string was Driver=x;pwd = ***;Server=y"},
      {"a = b; c = d", "a = b; c = d"},
      {"n=1 PWD=tigerlily;x", "n=1 PWD=***;x"},  // a known secret is the beginning of another
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(secrets.Scrub(text), expected);
}

// Whatever the password, wherever its attribute and whatever is said around the string: the mask
// stands where the password was, and everything else is as it was.
TEST(Secrets, AreAllThatTheMaskTouches) {
  std::mt19937 random(7);
  const std::pair<const char*, const char*> quotings[] = {
      {"", ""},
      {"cannot connect to '", "': [x] Access denied; try = again"},
      {"it can't: \"", "\" (see {that}; or PW)"},
      {"code=5 (", ") is no string"},  // told from the string by what is known alone
  };
  for (int round = 0; round < 5000; ++round) {
    const bool known = random() % 2 == 0;
    std::string password = "Z";  // which stands nowhere else
    const std::string_view letters = known ? "a7;={} '\"\t" : "a7}=.";
    while (random() % 8 != 0) password += letters[random() % letters.size()];
    std::string shown = "PWD=" + password;
    if (random() % 2 == 0 || password.find_first_of("; \t") != std::string::npos) {
      shown = "PWD={";
      for (const char c : password) shown += c == '}' ? "}}" : std::string(1, c);
      shown += '}';
    }
    const auto [before, after] = quotings[random() % (known ? 4 : 3)];
    const std::string first = random() % 2 == 0 ? "Driver={a;b= c};UID=joe;" : "";
    const std::string last = random() % 2 == 0 ? ";Server=x y" : "";
    wbhost::Secrets secrets;
    if (known) secrets.AddFrom(first + shown + last);
    EXPECT_EQ(secrets.Scrub(before + first + shown + last + after),
              before + first + "PWD=***" + last + after)
        << before + first + shown + last + after;
  }
}

TEST(Secrets, AreOverwrittenInTheArguments) {
  std::string plain = "import";
  std::string joined = "--connect=PWD=abc;Driver=x";
  std::string alone = "Driver=x;Password={a;b};UID=joe";
  char* argv[] = {plain.data(), plain.data(), joined.data(), alone.data(), nullptr};
  wbhost::HideSecretArguments(4, argv);
  EXPECT_EQ(joined, "--connect=PWD=***;Driver=x");
  EXPECT_EQ(alone, "Driver=x;Password=*****;UID=joe");
}

TEST(ConnectionStrings, RoundTripValuesThatNeedBraces) {
  for (const std::string value : {"plain", "a;b", "a}b", "{a}", " a ", "=", ""}) {
    const std::string text = "A=1;" + base::FormatAttribute("Key", value) + "Z=2";
    EXPECT_EQ(base::FindAttribute(text, "KEY"), value) << text;
    EXPECT_EQ(base::FindAttribute(text, "z"), "2") << text;
  }
}

}  // namespace
}  // namespace wbtest
