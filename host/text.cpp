// Texts of the command line.
#include "host/text.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <vector>

namespace wbhost {
namespace {

constexpr std::size_t kPieceBytes = std::size_t{64} * 1024;

}  // namespace

std::string OneLine(std::string_view text) {
  std::string line(text);
  std::replace_if(
      line.begin(), line.end(),
      [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7f; }, ' ');
  return line;
}

std::optional<std::string> ReadWholeFile(const std::string& file, std::uintmax_t most,
                                         std::string& why) {
  const bool standard_input = file == "-";
  const int fd =
      standard_input ? STDIN_FILENO : open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY);
  std::string text;
  ssize_t count = fd < 0 ? -1 : 0;
  std::vector<char> piece(kPieceBytes);
  while (fd >= 0 && text.size() <= most) {
    count = read(fd, piece.data(), piece.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    text.append(piece.data(), static_cast<std::size_t>(count));
  }
  if (count < 0) why = std::strerror(errno);
  if (fd >= 0 && !standard_input) close(fd);
  if (count < 0) return std::nullopt;
  if (text.size() <= most) return text;
  why = "it has more than " + std::to_string(most) + " bytes";
  return std::nullopt;
}

}  // namespace wbhost
