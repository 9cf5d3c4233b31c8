// How much of a file is read. Each is far beyond what a file of its kind has; a larger one, or a
// device that never ends, is refused before it fills the memory.
#pragma once

#include <cstdint>

namespace wbhost {

constexpr std::uintmax_t kMiB = std::uintmax_t{1} << 20;

constexpr std::uintmax_t kMostConfigBytes = 1 * kMiB;
constexpr std::uintmax_t kMostOdbcIniBytes = 16 * kMiB;  // the rest is left out
constexpr std::uintmax_t kMostDialectBytes = 4 * kMiB;
constexpr std::uintmax_t kMostRequestBytes = 64 * kMiB;
constexpr std::uintmax_t kMostWorkbookBytes = 4096 * kMiB;
constexpr int kDeepestRequest = 32;  // lists and objects in one another

constexpr short kMostDiagnostics = 100;  // of one call of a driver

// A password, or a connection string that is read: more is no line that somebody typed.
constexpr std::uintmax_t kMostSecretBytes = 64 * 1024;

}  // namespace wbhost
