// From result cells to columns by name.
#include "routes/exact/row.h"

#include <algorithm>
#include <charconv>

#include "odbc/query.h"

namespace odbcimport::exact {

namespace {

// The parts between the bars of a packed cell, which are as many as there are places.
bool Unpack(std::string_view packed, std::string_view* values, std::size_t count) {
  if (packed.data() == nullptr) {
    std::fill_n(values, count, std::string_view());
    return true;
  }
  const char* at = packed.data();
  const char* const end = at + packed.size();
  for (std::size_t i = 0; i < count; ++i) {
    const char* const begin = at;
    while (at != end && *at != '|') ++at;  // a few characters at most
    // Nothing between two bars is nothing known: numbers and letters have no empty text.
    values[i] = at == begin ? std::string_view()
                            : std::string_view(begin, static_cast<std::size_t>(at - begin));
    const bool last = i + 1 == count;
    if (last != (at == end)) return false;
    if (!last) ++at;
  }
  return true;
}

}  // namespace

Row::Row(const Section& section) {
  slot_of_.fill(kNoSlot);
  for (const HeadingCell& cell : section.heading) {
    cells_.push_back(
        {static_cast<std::uint8_t>(values_.size()), static_cast<std::uint8_t>(cell.size())});
    for (const Slot& slot : cell) {
      const auto number = static_cast<std::uint8_t>(values_.size());
      values_.emplace_back();
      translations_.push_back(slot.values.empty() ? nullptr : &slot.values);
      translates_ = translates_ || !slot.values.empty();
      option_names_.push_back(&slot.option);
      if (slot.field) slot_of_[static_cast<std::size_t>(*slot.field)] = number;
      if (!slot.option.empty()) option_slots_.push_back(number);
    }
  }
}

bool Row::Take(const odbc::Query& query) {
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    const Cell cell = cells_[i];
    const std::string_view text = query.Cell(i);
    if (cell.slots == 1) {
      values_[cell.first_slot] = text;
      continue;
    }
    if (!Unpack(text, &values_[cell.first_slot], cell.slots)) return false;
  }
  if (!translates_) return true;
  for (std::size_t slot = 0; slot < values_.size(); ++slot) {
    if (translations_[slot] == nullptr || values_[slot].data() == nullptr) continue;
    for (const auto& [what, meaning] : *translations_[slot]) {
      if (values_[slot] != what) continue;
      values_[slot] = meaning.empty() ? std::string_view() : std::string_view(meaning);
      break;
    }
  }
  return true;
}

std::int64_t Row::Number(Field field, std::int64_t fallback) const {
  return ReadNumber(Text(field), fallback);
}

std::int64_t ReadNumber(std::string_view text, std::int64_t fallback) {
  // Most are a few digits, several in each row.
  constexpr std::size_t kFewDigits = 9;
  if (!text.empty() && text.size() <= kFewDigits) {
    std::int64_t few = 0;
    std::size_t at = 0;
    for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at) {
      few = few * 10 + (text[at] - '0');
    }
    if (at == text.size()) return few;
  }
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() ? number : fallback;
}

void ReadNumbers(std::string_view text, std::vector<std::int64_t>& numbers) {
  numbers.clear();
  const char* at = text.data();
  const char* const end = at + text.size();
  while (at != end) {
    std::int64_t number = 0;
    const auto [behind, error] = std::from_chars(at, end, number);
    if (error == std::errc()) numbers.push_back(number);
    at = behind == at ? at + 1 : behind;
  }
}

std::vector<std::string> ReadTexts(std::string_view text) {
  std::vector<std::string> texts;
  if (text.size() < 2) return texts;
  text = text.substr(1, text.size() - 2);
  bool quoted = false;
  bool open = false;  // an element has begun
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (!open && (c == ' ' || c == ',')) continue;
    if (!open) texts.emplace_back();
    if (c == '"') {
      quoted = !quoted;
    } else if (!quoted && c == ',') {
      open = false;
      continue;
    } else if (c == '\\' && i + 1 < text.size()) {
      texts.back() += text[++i];
    } else {
      texts.back() += c;
    }
    open = true;
  }
  return texts;
}

}  // namespace odbcimport::exact
