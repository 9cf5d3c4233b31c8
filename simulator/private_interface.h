// What tests ask and tell this driver through its driver manager, besides ODBC.
#pragma once

namespace catalogsim {

// SQLGetInfo, answered with 32 bits: calls made since the connection was opened, statements that
// are allocated, faults that have come to pass.
constexpr int kInfoCalls = 31001;
constexpr int kInfoOpenStatements = 31002;
constexpr int kInfoFaults = 31003;
// SQLSetConnectAttr: the n-th call from now on fails, or loses the connection; 0: none, and the
// connection is whole again. These calls themselves do not count. A recording begins anew.
constexpr int kAttrFailCall = 31001;
constexpr int kAttrDropCall = 31002;

}  // namespace catalogsim
