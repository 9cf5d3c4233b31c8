// Two importers on two connections, on two threads at once: the thread sanitizer watches them where
// scripts/run_threads has built this program.
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "tests/simulator/host.h"
#include "tests/simulator/servers.h"

namespace {

std::string Import(const std::string& server) {
  if (server != "sqlite") {
    return simtest::ImportAll(*wbtest::Connection::OpenSimulator(server)).File();
  }
  const auto connection =
      wbtest::Connection::OpenSqlite({"create table a (id integer primary key, name varchar(20))",
                                      "create table b (id integer, a integer references a(id))"});
  return simtest::ImportAll(*connection, false, simtest::HostAct::kNothing, 0, {}, rdExact).File();
}

TEST(TwoThreads, ImportAsOneDoes) {
  std::vector<std::string> servers(std::begin(simtest::kServers), std::end(simtest::kServers));
  servers.emplace_back("sqlite");
  std::vector<std::string> alone;
  for (const std::string& server : servers) alone.push_back(Import(server));
  // Both begin with the same server, then each meets all others in another order.
  const std::size_t count = servers.size();
  std::vector<std::string> forward(count);
  std::vector<std::string> backward(count);
  std::thread other([&] {
    for (std::size_t i = 0; i < count; ++i) forward[i] = Import(servers[i]);
  });
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t at = (count - i) % count;
    backward[at] = Import(servers[at]);
  }
  other.join();
  for (std::size_t i = 0; i < count; ++i) {
    EXPECT_EQ(forward[i], alone[i]) << servers[i];
    EXPECT_EQ(backward[i], alone[i]) << servers[i];
  }
}

// What an import uses of the module stays until it ends, whoever stops and starts the module
// meanwhile.
TEST(TwoThreads, StopAndStartTheModuleWhileAnImportRuns) {
  const wbtest::MessageRecorder messages;
  std::string why;
  const auto start = [&why] { return OdbcImportStart(WB_BUILD_DIR "/lib", why); };
  ASSERT_TRUE(start());
  std::atomic<bool> ended = false;
  std::thread other([&] {
    const auto connection = wbtest::Connection::OpenSimulator("oracle", "Fail=SQLExecDirect:1+");
    for (int i = 0; i < 20; ++i) simtest::ImportAll(*connection);
    ended = true;
  });
  while (!ended) {
    OdbcImportStop();
    // Refused, and with no harm, where an import began in between.
    EXPECT_TRUE(start() || why.starts_with("an import is running that began before"));
  }
  other.join();
  OdbcImportStop();
  EXPECT_EQ(platform::GetServices().messages, nullptr);
  EXPECT_GT(messages.shown().size(), 20U);
}

}  // namespace
