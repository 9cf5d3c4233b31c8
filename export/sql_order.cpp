#include "export/sql_order.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

#include "base/ascii.h"

namespace wbexport::sql {
namespace {

bool IsWord(char16_t c) {
  return c == u'_' || c == u'$' || (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'z') ||
         c >= 0x80;
}

// The words of a text, and the texts between double quotes or backticks, in which anything may
// stand.
template <class Use>
void ForEachName(std::u16string_view text, Use use) {
  for (std::size_t at = 0; at < text.size();) {
    const char16_t c = text[at];
    if (c == u'"' || c == u'`' || c == u'[') {
      std::u16string name;
      const char16_t close = c == u'[' ? u']' : c;
      std::size_t end = at + 1;
      for (; end < text.size(); ++end) {
        if (text[end] == close) {
          if (end + 1 >= text.size() || text[end + 1] != close) break;
          ++end;
        }
        name += text[end];
      }
      use(name);
      at = end + 1;
    } else if (IsWord(c)) {
      const std::size_t begin = at;
      while (at < text.size() && IsWord(text[at])) ++at;
      use(std::u16string(text.substr(begin, at - begin)));
    } else {
      ++at;
    }
  }
}

class Orderer {
 public:
  explicit Orderer(const std::vector<Mentioning>& things) : mentioned_(things.size()) {
    std::unordered_map<std::u16string, std::vector<std::size_t>> by_name;
    for (std::size_t i = 0; i < things.size(); ++i) by_name[Lowered(things[i].name)].push_back(i);
    for (std::size_t i = 0; i < things.size(); ++i) {
      ForEachName(Lowered(things[i].text), [&](const std::u16string& name) {
        const auto found = by_name.find(name);
        if (found == by_name.end()) return;
        for (const std::size_t other : found->second) {
          if (other != i) mentioned_[i].push_back(other);
        }
      });
    }
  }

  std::vector<std::size_t> Order() {
    std::vector<bool> seen(mentioned_.size(), false);
    std::vector<std::size_t> order;
    // A stack of its own: views can be stacked deeper than a thread's stack is.
    std::vector<std::pair<std::size_t, std::size_t>> open;
    for (std::size_t first = 0; first < mentioned_.size(); ++first) {
      if (seen[first]) continue;
      seen[first] = true;
      open.emplace_back(first, 0);
      while (!open.empty()) {
        auto& [thing, next] = open.back();
        if (next == mentioned_[thing].size()) {
          order.push_back(thing);
          open.pop_back();
          continue;
        }
        const std::size_t other = mentioned_[thing][next++];
        if (seen[other]) continue;
        seen[other] = true;
        open.emplace_back(other, 0);
      }
    }
    return order;
  }

 private:
  std::vector<std::vector<std::size_t>> mentioned_;
};

}  // namespace

std::u16string Lowered(std::u16string_view text) { return base::LowerAscii(text); }

bool MentionsAny(std::u16string_view text, const std::set<std::u16string>& names) {
  bool found = false;
  ForEachName(Lowered(text),
              [&](const std::u16string& name) { found = found || names.count(name) != 0; });
  return found;
}

std::vector<std::size_t> OrderByMentions(const std::vector<Mentioning>& things) {
  return Orderer(things).Order();
}

}  // namespace wbexport::sql
