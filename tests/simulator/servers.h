// The servers that the simulator plays, for tests that go through all of them.
#pragma once

#include <algorithm>
#include <string>

namespace simtest {

constexpr const char* kServers[] = {"informix", "informix-7", "sqlserver", "sybase", "oracle",
                                    "oracle-7", "db2",        "redbrick",  "access", "generic"};

// A server's name as one of a test.
inline std::string TestName(std::string server) {
  std::replace(server.begin(), server.end(), '-', '_');
  return server;
}

}  // namespace simtest
