// What the program of the model's parts and its measurements share.
#pragma once

namespace wbparts {

// Lengths of the lists that look-ups are measured in.
constexpr int kShort = 1000;
constexpr int kLong = 100000;

}  // namespace wbparts
