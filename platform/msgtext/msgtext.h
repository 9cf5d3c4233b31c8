// What a message library offers: one function with C linkage, named GetMessageText.
#pragma once

// The text with the number, UTF-16 with a terminator, or null when the library has none. It lives
// as long as the library is loaded.
//   30003 (a database error) has places for an integer (the driver's own error number), a text (the
//         SQLSTATE) and another (the driver's message), in that order: %d, %s, %s. A translation
//         that needs another order numbers them: %3$s.
//   30004 (any other failure of the fetch layer) has none.
using MsgTextFunction = const char16_t* (*)(unsigned id);

constexpr const char* kMsgTextFunction = "GetMessageText";
