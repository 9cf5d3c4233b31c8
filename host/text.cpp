// Texts of the command line.
#include "host/text.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace wbhost {
std::string OneLine(std::string_view text) {
  std::string line(text);
  std::replace_if(
      line.begin(), line.end(),
      [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7f; }, ' ');
  return line;
}

std::optional<std::string> ReadWholeFile(const std::string& file) {
  std::error_code error;
  std::ifstream in(file, std::ios::binary);
  // A folder opens like a file and throws when it is read.
  if (!in || std::filesystem::is_directory(file, error)) return std::nullopt;
  std::string text{std::istreambuf_iterator<char>(in), {}};
  if (in.bad()) return std::nullopt;
  return text;
}

}  // namespace wbhost
