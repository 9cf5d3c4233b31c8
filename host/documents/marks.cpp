// Replaces marks.
#include <stdexcept>

#include "host/documents/documents.h"

namespace wbhost {

std::string ReplaceMarks(const std::string& text, const Marks& marks) {
  std::string out;
  std::size_t done = 0;
  for (;;) {
    const std::size_t begin = text.find('@', done);
    const std::size_t end = text.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ_", begin + 1);
    out += text.substr(done, begin - done);
    if (begin == std::string::npos) return out;
    // An @ of the shell's own ("$@").
    if (end == std::string::npos || text[end] != '@' || end == begin + 1) {
      out += '@';
      done = begin + 1;
      continue;
    }
    const std::string name = text.substr(begin + 1, end - begin - 1);
    const auto mark = marks.find(name);
    if (mark == marks.end()) throw std::runtime_error("there is no mark " + name);
    out += mark->second;
    done = end + 1;
    // A mark that stands for whole lines brings their ends.
    if (!out.empty() && out.back() == '\n' && done < text.size() && text[done] == '\n') ++done;
  }
}

}  // namespace wbhost
