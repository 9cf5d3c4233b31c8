#include "compare/names.h"

#include <algorithm>

#include "base/ascii.h"
#include "base/letters.h"
#include "base/utf.h"

namespace wbcompare {

namespace {

// Parts owner and name where they are compared; no name has it.
constexpr char kParting = '\x1f';

bool StartsName(char c) {
  return c == '_' || base::IsLetter(c) || static_cast<unsigned char>(c) >= 0x80;
}
bool GoesOnInName(char c) { return StartsName(c) || c == '$' || base::IsDigit(c); }

bool NeedsQuotes(const std::string& name) {
  return name.empty() || !StartsName(name[0]) ||
         !std::all_of(name.begin(), name.end(), GoesOnInName) || base::LowerAscii(name) != name;
}

// The end of what is quoted from `at` on: behind the closing quote, of which two stand for one.
std::size_t EndOfQuoted(const std::string& text, std::size_t at) {
  const char close = text[at] == '[' ? ']' : text[at];
  for (std::size_t i = at + 1; i < text.size(); ++i) {
    if (text[i] != close) continue;
    if (i + 1 >= text.size() || text[i + 1] != close) return i + 1;
    ++i;
  }
  return text.size();
}

}  // namespace

void Names::RenameTable(const LcWorkbookTable& from, const LcWorkbookTable& to) {
  tables_[Key(PlainOwner(from.GetOwner(false)), Name(from.GetName()))] =
      Key(PlainOwner(to.GetOwner(false)), Name(to.GetName()));
}

void Names::RenameColumn(const LcWorkbookColumn& from, const LcWorkbookColumn& to) {
  columns_[&from] = Name(to.GetName());
  inside_[from.GetParentTable()][Name(from.GetName())] = base::ToUtf8(to.GetName());
}

std::string Names::Name(std::u16string_view name) const {
  std::string text = base::ToUtf8(name);
  return ignore_case_ ? base::LowerAscii(text) : text;
}

std::string Names::PlainOwner(std::u16string_view owner) const {
  return with_owners_ ? Name(owner) : std::string();
}

std::string Names::Owner(std::u16string_view owner) const {
  std::string text = PlainOwner(owner);
  const auto renamed = owners_.find(text);
  return renamed == owners_.end() ? text : renamed->second;
}

std::string Names::Column(const LcWorkbookColumn& column) const {
  if (!columns_.empty()) {
    const auto renamed = columns_.find(&column);
    if (renamed != columns_.end()) return renamed->second;
  }
  return Name(column.GetName());
}

std::string Names::Key(std::string_view owner, std::string_view name) const {
  if (!comparing_ && owner.empty()) return std::string(name);
  std::string key(owner);
  key += comparing_ ? kParting : '.';
  key += name;
  return key;
}

std::string Names::Table(std::u16string_view owner, std::u16string_view name) const {
  if (!tables_.empty()) {
    const auto renamed = tables_.find(Key(PlainOwner(owner), Name(name)));
    if (renamed != tables_.end()) return renamed->second;
  }
  return Key(Owner(owner), Name(name));
}

void Names::TakeInHand(const LcWorkbookTable* table) {
  const auto found = inside_.find(table);
  in_hand_ = found == inside_.end() ? nullptr : &found->second;
}

std::string Names::Expression(std::u16string_view text) const {
  const std::string plain = base::ToUtf8(text);
  return in_hand_ == nullptr ? plain : Rewrite(plain, *in_hand_, false);
}

std::string Names::Statement(std::u16string_view text) const {
  const std::string plain = base::ToUtf8(text);
  return owners_.empty() ? plain : Rewrite(plain, owners_, true);
}

// Names outside of texts in quotes, as they stand or in the quotes of one server or another.
std::string Names::Rewrite(const std::string& text, const ByName& renamed, bool before_dot) const {
  std::string now;
  for (std::size_t at = 0; at < text.size();) {
    const char c = text[at];
    std::size_t end = at + 1;
    std::string name;
    if (c == '\'' || c == '"' || c == '`' || c == '[') {
      end = EndOfQuoted(text, at);
      if (c != '\'' && end - at > 2) name = text.substr(at + 1, end - at - 2);
    } else if (StartsName(c)) {
      while (end < text.size() && GoesOnInName(text[end])) ++end;
      name = text.substr(at, end - at);
    }
    const auto found = renamed.find(ignore_case_ ? base::LowerAscii(name) : name);
    const bool meant = !before_dot || (end < text.size() && text[end] == '.');
    if (name.empty() || !meant || found == renamed.end()) {
      now.append(text, at, end - at);
    } else if (!StartsName(c)) {
      now += c + found->second + text[end - 1];
    } else {
      now += NeedsQuotes(found->second) ? "\"" + found->second + "\"" : found->second;
    }
    at = end;
  }
  return now;
}

const Names& ShownNames() {
  static const Names names;
  return names;
}

}  // namespace wbcompare
