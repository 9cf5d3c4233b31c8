// What tests ask and tell this driver through its driver manager, besides ODBC.
#pragma once

namespace catalogsim {

// SQLGetInfo, answered with 32 bits: calls made since the connection was opened, statements that
// are allocated, faults that have come to pass.
constexpr int kInfoCalls = 31001;
constexpr int kInfoOpenStatements = 31002;
constexpr int kInfoFaults = 31003;
// Of a recording: questions that it did not hold so far; a text each with the recorder's notes
// about the host, a line each, and with the first question that was not held.
constexpr int kInfoNotHeld = 31004;
constexpr int kInfoNotes = 31005;
constexpr int kInfoFirstNotHeld = 31006;

// SQLSetConnectAttr: the n-th call from now on fails, or loses the connection; 0: none, and the
// connection is whole again. These calls themselves do not count.
constexpr int kAttrFailCall = 31001;
constexpr int kAttrDropCall = 31002;

}  // namespace catalogsim
