#include "importer/workbook/type_text.h"

#include <algorithm>
#include <array>

#include "base/ascii.h"

namespace {

// A driver's length without a limit, cut to 16 bits.
constexpr unsigned long kUnlimited = 65535;

constexpr std::array<const char16_t*, 12> kIntervalParts = {
    u"",       u"year",        u"month",       u"day",         u"hour",        u"minute",
    u"second", u"fraction(1)", u"fraction(2)", u"fraction(3)", u"fraction(4)", u"fraction(5)",
};

std::u16string IntervalPart(enumIntervalPart part) {
  const auto at = static_cast<std::size_t>(part);
  return at < kIntervalParts.size() ? kIntervalParts[at] : u"";
}

std::u16string Digits(unsigned long number) {
  const std::string digits = std::to_string(number);
  return {digits.begin(), digits.end()};
}

// The lists of types call these not size modifiable, but a column's size is part of its type.
bool IsSizedBinary(const LcWorkbookDatatype& type) {
  constexpr std::u16string_view kNames[] = {u"binary", u"varbinary", u"raw"};
  const std::u16string name = base::LowerAscii(std::u16string_view(type.GetTypeName()));
  return std::find(std::begin(kNames), std::end(kNames), name) != std::end(kNames);
}

}  // namespace

std::u16string LcTypeName(const LcWorkbookDatatype& type) {
  const std::u16string& named = type.GetExtendedTypeName(0);
  return named.empty() ? type.GetTypeName() : named;
}

std::u16string LcTypeText(const LcWorkbookColumn& column) {
  const LcWorkbookDatatype* type = column.GetDataType();
  std::u16string text = column.GetExtendedTypeName();
  if (!text.empty()) return text;
  if (type != nullptr) text = LcTypeName(*type);
  const std::u16string largest = IntervalPart(column.GetIntervalMax());
  const std::u16string smallest = IntervalPart(column.GetIntervalMin());
  if (!largest.empty() || !smallest.empty()) {
    if (text.empty()) text = u"interval";
    if (largest.empty() || smallest.empty()) return text + u" " + largest + smallest;
    return text + u" " + largest + u" to " + smallest;
  }
  if (type == nullptr || !(type->IsSizeModifiable() || IsSizedBinary(*type))) return text;
  const auto width = static_cast<unsigned long>(std::max(column.GetWidth(), 0));
  const unsigned long size = column.GetPrecision() != 0 ? column.GetPrecision() : width;
  if (size == 0 || size >= kUnlimited) return text;
  text += u"(" + Digits(size);
  if (type->GetTypeGroup() == dgNumeric && column.GetScale() != 0) {
    text += u"," + Digits(column.GetScale());
  }
  return text + u")";
}
