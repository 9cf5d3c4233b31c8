// The program on servers that fail: its exit code says what its workbook file says. One import in a
// process of its own for every call that fails or loses the connection; many of them under
// WB_LONG=1, a few otherwise.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <nlohmann/json.hpp>

#include "tests/simulator/host.h"
#include "tests/support/temporary.h"

namespace {

struct Ended {
  int code = -1;
  nlohmann::json file;  // null: none was written
};

class ExitCode : public testing::TestWithParam<const char*> {
 protected:
  Ended Import(const std::string& fault) const {
    const std::string output = folder_ + "/workbook.json";
    std::filesystem::remove(output);
    const std::string command =
        std::string("'") + WB_IMPORT + "' import --connect 'Driver=" + WB_BUILD_DIR +
        "/lib/libcatalogsim.so;Server=" + GetParam() + ";" + fault +
        "' --progress none --format json -o '" + output + "' 2>'" + folder_ + "/errors'";
    Ended run;
    const int status = std::system(command.c_str());
    if (WIFEXITED(status)) run.code = WEXITSTATUS(status);
    if (std::ifstream input(output); input) run.file = nlohmann::json::parse(input);
    return run;
  }

  // Calls that an import makes on an open connection.
  int CountCalls() const {
    const std::string log = folder_ + "/log";
    Import("Log=" + log);
    std::ifstream input(log);
    std::string line;
    int calls = 0;
    while (std::getline(input, line)) calls = std::max(calls, std::atoi(line.c_str()));
    return calls;
  }

  wbtest::TemporaryFolder temporary_;
  const std::string folder_ = temporary_.path();
};

TEST_P(ExitCode, AgreesWithTheWorkbook) {
  const int calls = CountCalls();
  ASSERT_GT(calls, 50);
  const int step = simtest::IsLongRun() ? 7 : 101;
  int covered = 0;
  for (int call = 1; call < calls; call += step, ++covered) {
    SCOPED_TRACE("call " + std::to_string(call));
    const Ended failed = Import("FailCall=" + std::to_string(call));
    if (failed.file.is_null()) {
      EXPECT_EQ(failed.code, 5) << "no workbook: there was no connection";
    } else {
      const bool result = failed.file.at("result");
      const int shown = failed.file.at("errorsShown");
      EXPECT_EQ(failed.code, !result ? 1 : shown > 0 ? 3 : 0);
    }
    const Ended lost = Import("DropConnection=" + std::to_string(call));
    EXPECT_EQ(lost.code, 5);
    EXPECT_TRUE(lost.file.is_null() || lost.file.value("incomplete", false));
  }
  std::cout << "exit codes on " << GetParam() << ": " << covered << " of " << calls << " calls\n";
}

INSTANTIATE_TEST_SUITE_P(Servers, ExitCode, testing::Values("informix", "db2", "generic"));

}  // namespace
