// The servers that the simulator plays, for tests that go through all of them.
#pragma once

namespace simtest {

constexpr const char* kServers[] = {"informix", "informix-7", "sqlserver", "sybase", "oracle",
                                    "oracle-7", "db2",        "redbrick",  "access", "generic"};

}  // namespace simtest
