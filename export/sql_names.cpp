#include "export/sql_names.h"

#include <algorithm>
#include <map>

#include "base/ascii.h"
#include "base/utf.h"

namespace wbexport::sql {
namespace {

bool IsHigh(char16_t c) { return c >= 0xD800 && c < 0xDC00; }
bool IsLow(char16_t c) { return c >= 0xDC00 && c < 0xE000; }

// The base letters of U+00C0 to U+017F as MariaDB compares names, a dot for a letter of its own.
constexpr std::string_view kLetters =
    "AAAAAA.CEEEEIIII.NOOOOO..UUUUY.SAAAAAA.CEEEEIIII.NOOOOO..UUUUY.Y"
    "AAAAAACCCCCCCCDD..EEEEEEEEEEGGGGGGGGHH..IIIIIIIIII..JJKK.LLLLLL...."
    "NNNNNN...OOOOOO..RRRRRRSSSSSSSSTTTT..UUUUUUUUUUUUWWYYYZZZZZZS";
static_assert(kLetters.size() == 0x180 - 0xC0);

// A name as the server compares it.
std::u16string Fold(std::u16string_view name, Sameness sameness) {
  if (sameness == Sameness::kExact) return std::u16string(name);
  if (sameness == Sameness::kAscii) return base::LowerAscii(name);
  std::u16string folded;
  for (const char16_t c : name) {
    char16_t plain = c;
    if (c >= 0xC0 && c < 0x180) {
      const char letter = kLetters[c - 0xC0];
      // The pairs of those that have no mark: at a distance of 32, or neighbours.
      plain = letter != '.' ? static_cast<char16_t>(letter)
              : c < 0x100   ? static_cast<char16_t>(c & ~0x20)
              : c < 0x138   ? static_cast<char16_t>(c & ~1)
              : c < 0x149   ? static_cast<char16_t>((c + 1) & ~1)
                            : static_cast<char16_t>(c & ~1);
    } else if ((c >= 0x3B1 && c < 0x3CA) || (c >= 0x430 && c < 0x450)) {
      plain = static_cast<char16_t>(c - 0x20);
    } else if (c >= 0x450 && c < 0x460) {
      plain = static_cast<char16_t>(c - 0x50);
    }
    folded += plain >= u'A' && plain <= u'Z' ? static_cast<char16_t>(plain + 0x20) : plain;
  }
  return folded;
}

// How much of a server's room a character takes, which may be half of a pair.
std::size_t SizeOf(char16_t c, bool in_bytes) {
  if (!in_bytes) return 1;
  return c < 0x80 ? 1 : c < 0x800 || IsHigh(c) || IsLow(c) ? 2 : 3;
}

std::size_t SizeOf(std::u16string_view text, bool in_bytes) {
  std::size_t size = 0;
  for (const char16_t c : text) size += SizeOf(c, in_bytes);
  return size;
}

}  // namespace

Names::Names(const Target& target, const LcWorkbook& workbook,
             const std::function<std::u16string(const LcWorkbookTable&)>& wanted)
    : target_(target) {
  // The tables of each schema, or of the whole script where the server has none.
  std::map<std::u16string, std::set<std::u16string>> taken;
  for (const LcWorkbookTable* table : workbook.tables.Present()) {
    if (table->GetType() != ttTable) continue;
    const std::u16string name = wanted(*table);
    std::set<std::u16string>& beside =
        taken[target.has_databases ? table->GetOwner(false) : std::u16string()];
    std::u16string fits = FitBeside(name, beside, target.same_tables);
    if (fits != name) tables_.emplace(table, std::move(fits));
    std::set<std::u16string> columns(target.system_columns.begin(), target.system_columns.end());
    for (int i = 0; i < table->GetColumnCount(); ++i) {
      const LcWorkbookColumn& column = *table->GetColumn(i);
      std::u16string column_name = FitBeside(column.GetName(), columns, target.same_columns);
      if (column_name != column.GetName()) columns_.emplace(&column, std::move(column_name));
    }
  }
}

std::u16string Names::Fit(std::u16string_view name, std::u16string_view end) const {
  std::u16string fits;
  for (std::size_t i = 0; i < name.size(); ++i) {
    const bool is_pair = IsHigh(name[i]) && i + 1 < name.size() && IsLow(name[i + 1]);
    if (target_.names_of_two_bytes && is_pair) {
      fits += u'_';
      ++i;
    } else {
      fits += name[i] == 0 ? u'_' : name[i];
    }
  }
  if (!target_.reserved_prefix.empty() &&
      base::LowerAscii(std::u16string_view(fits)).starts_with(target_.reserved_prefix)) {
    fits.insert(fits.begin(), u'_');
  }
  const bool in_bytes = target_.names_in_bytes;
  const std::size_t most = target_.longest_name == 0 ? std::u16string::npos : target_.longest_name;
  const std::size_t room = most - std::min(most, SizeOf(end, in_bytes));
  for (std::size_t size = SizeOf(fits, in_bytes); size > room; size = SizeOf(fits, in_bytes)) {
    if (IsLow(fits.back()) && fits.size() > 1) fits.pop_back();
    fits.pop_back();
  }
  fits += end;
  while (!target_.names_end_in_blanks && !fits.empty() && fits.back() == u' ') fits.pop_back();
  return fits.empty() ? u"_" : fits;
}

std::u16string Names::FitBeside(std::u16string_view name, std::set<std::u16string>& taken,
                                Sameness sameness) const {
  std::u16string fits = Fit(name);
  for (int i = 2; !taken.insert(Fold(fits, sameness)).second; ++i) {
    fits = Fit(name, u'_' + base::ToUtf16(std::to_string(i)));
  }
  return fits;
}

}  // namespace wbexport::sql
