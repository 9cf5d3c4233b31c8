// Distances between names.
#include "host/nearest.h"

#include <algorithm>
#include <numeric>

#include "base/ascii.h"

namespace wbhost {
namespace {

constexpr std::size_t kMostNames = 3;
constexpr std::size_t kShortList = 15;
constexpr std::size_t kShortestBeginning = 3;

// How many slips make one text of the other; two letters that changed places are one slip.
std::size_t Slips(const std::string& a, const std::string& b) {
  std::vector<std::size_t> before(b.size() + 1);
  std::vector<std::size_t> last(b.size() + 1);
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(last.begin(), last.end(), 0);
  for (std::size_t i = 1; i <= a.size(); ++i) {
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      row[j] =
          std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1)});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
        row[j] = std::min(row[j], before[j - 2] + 1);
      }
    }
    before.swap(last);
    last.swap(row);
  }
  return last[b.size()];
}

bool BeginsWith(const std::string& text, const std::string& beginning) {
  return beginning.size() >= kShortestBeginning &&
         text.compare(0, beginning.size(), beginning) == 0;
}

}  // namespace

std::vector<std::string> Nearest(std::string_view word, const std::vector<std::string>& names) {
  const std::string wanted = base::LowerAscii(word);
  const std::size_t most_slips = 1 + wanted.size() / 4;
  std::vector<std::pair<std::size_t, std::string>> near;
  for (const std::string& name : names) {
    const std::string candidate = base::LowerAscii(std::string_view(name));
    const std::size_t lengths = candidate.size() > wanted.size() ? candidate.size() - wanted.size()
                                                                 : wanted.size() - candidate.size();
    const bool one_begins = BeginsWith(candidate, wanted) || BeginsWith(wanted, candidate);
    if (lengths > most_slips && !one_begins) continue;
    const std::size_t slips = one_begins ? std::min(lengths, most_slips) : Slips(wanted, candidate);
    if (slips <= most_slips && slips < wanted.size()) near.emplace_back(slips, name);
  }
  std::stable_sort(near.begin(), near.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<std::string> nearest;
  for (const auto& [slips, name] : near) {
    if (nearest.size() == kMostNames) break;
    if (std::find(nearest.begin(), nearest.end(), name) == nearest.end()) nearest.push_back(name);
  }
  return nearest;
}

std::string DidYouMean(std::string_view word, const std::vector<std::string>& names) {
  const std::vector<std::string> nearest = Nearest(word, names);
  std::string text;
  for (std::size_t i = 0; i < nearest.size(); ++i) {
    text += i == 0 ? "; did you mean '" : i + 1 == nearest.size() ? " or '" : ", '";
    text += nearest[i] + "'";
  }
  if (!nearest.empty()) return text + "?";
  if (names.size() == 1) return "; there is only " + names.front();
  if (names.size() > kShortList) return {};
  for (const std::string& name : names) text += (text.empty() ? "; there are " : ", ") + name;
  return text;
}

}  // namespace wbhost
