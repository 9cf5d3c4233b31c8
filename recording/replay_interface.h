// What a program asks of the simulator about the recording that it plays, by SQLGetInfo.
#pragma once

namespace recording {

// Questions so far that the recording did not hold (32 bits); why, for the first of them (a text).
constexpr int kInfoNotHeld = 31004;
constexpr int kInfoFirstNotHeld = 31005;

}  // namespace recording
