#include "compare/types.h"

#include <algorithm>
#include <array>
#include <limits>

#include "base/ascii.h"

namespace wbcompare {

namespace {

enum class Family { kUnknown, kInteger, kDecimal, kFloat, kChar, kText, kBinary, kBlob, kTime };

// `size` is what a type without sizes of its own holds: bytes of integers and floating point
// numbers, characters or bytes of the others; of times, which of them it is.
struct KnownType {
  std::string_view name;
  Family family;
  double size;
};
constexpr double kUnlimited = std::numeric_limits<double>::infinity();
constexpr std::array kKnownTypes = {
    KnownType{"tinyint", Family::kInteger, 1},
    KnownType{"smallint", Family::kInteger, 2},
    KnownType{"int2", Family::kInteger, 2},
    KnownType{"smallserial", Family::kInteger, 2},
    KnownType{"mediumint", Family::kInteger, 3},
    KnownType{"integer", Family::kInteger, 4},
    KnownType{"int", Family::kInteger, 4},
    KnownType{"int4", Family::kInteger, 4},
    KnownType{"serial", Family::kInteger, 4},
    KnownType{"bigint", Family::kInteger, 8},
    KnownType{"int8", Family::kInteger, 8},
    KnownType{"bigserial", Family::kInteger, 8},
    KnownType{"numeric", Family::kDecimal, kUnlimited},
    KnownType{"decimal", Family::kDecimal, kUnlimited},
    KnownType{"dec", Family::kDecimal, kUnlimited},
    KnownType{"number", Family::kDecimal, kUnlimited},
    KnownType{"real", Family::kFloat, 4},
    KnownType{"float4", Family::kFloat, 4},
    KnownType{"float", Family::kFloat, 8},
    KnownType{"float8", Family::kFloat, 8},
    KnownType{"double", Family::kFloat, 8},
    KnownType{"double precision", Family::kFloat, 8},
    KnownType{"char", Family::kChar, 1},
    KnownType{"character", Family::kChar, 1},
    KnownType{"bpchar", Family::kChar, kUnlimited},
    KnownType{"nchar", Family::kChar, 1},
    KnownType{"varchar", Family::kText, kUnlimited},
    KnownType{"varchar2", Family::kText, kUnlimited},
    KnownType{"nvarchar", Family::kText, kUnlimited},
    KnownType{"nvarchar2", Family::kText, kUnlimited},
    KnownType{"character varying", Family::kText, kUnlimited},
    KnownType{"tinytext", Family::kText, 255},
    KnownType{"text", Family::kText, kUnlimited},
    KnownType{"mediumtext", Family::kText, kUnlimited},
    KnownType{"longtext", Family::kText, kUnlimited},
    KnownType{"clob", Family::kText, kUnlimited},
    KnownType{"binary", Family::kBinary, 1},
    KnownType{"varbinary", Family::kBlob, kUnlimited},
    KnownType{"tinyblob", Family::kBlob, 255},
    KnownType{"blob", Family::kBlob, kUnlimited},
    KnownType{"mediumblob", Family::kBlob, kUnlimited},
    KnownType{"longblob", Family::kBlob, kUnlimited},
    KnownType{"bytea", Family::kBlob, kUnlimited},
    KnownType{"date", Family::kTime, 1},
    KnownType{"time", Family::kTime, 2},
    KnownType{"time without time zone", Family::kTime, 2},
    KnownType{"timetz", Family::kTime, 3},
    KnownType{"time with time zone", Family::kTime, 3},
    KnownType{"timestamp", Family::kTime, 4},
    KnownType{"timestamp without time zone", Family::kTime, 4},
    KnownType{"timestamptz", Family::kTime, 5},
    KnownType{"timestamp with time zone", Family::kTime, 5},
    KnownType{"datetime", Family::kTime, 6},
};

// MySQL's texts hold 64 KiB and so on; the names alone tell which is the larger.
constexpr std::array<std::string_view, 4> kTexts = {"tinytext", "text", "mediumtext", "longtext"};
constexpr std::array<std::string_view, 4> kBlobs = {"tinyblob", "blob", "mediumblob", "longblob"};

struct ParsedType {
  std::string name;  // without sizes and sign
  Family family = Family::kUnknown;
  double size = 0;
  std::vector<int> sizes;           // the numbers in parentheses
  std::vector<std::string> labels;  // the texts there
  bool is_unsigned = false;
  std::string rest;  // in parentheses, where it is neither
};

void ParseArguments(std::string_view text, ParsedType& type) {
  for (std::size_t at = 0; at < text.size();) {
    const char c = text[at];
    if (c == '\'') {
      std::string label;
      for (++at; at < text.size(); ++at) {
        if (text[at] == '\'' && (at + 1 >= text.size() || text[at + 1] != '\'')) break;
        if (text[at] == '\'') ++at;
        label += text[at];
      }
      type.labels.push_back(label);
      ++at;
    } else if (c >= '0' && c <= '9') {
      int number = 0;
      for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at) {
        number = std::min(number, 99'999'999) * 10 + (text[at] - '0');
      }
      type.sizes.push_back(number);
    } else {
      if (c != ',' && c != ' ') type.rest += c;
      ++at;
    }
  }
}

ParsedType Parse(std::string_view text) {
  ParsedType type;
  const std::size_t open = text.find('(');
  const std::size_t close = text.rfind(')');
  std::string name = base::LowerAscii(text.substr(0, open));
  if (open != std::string_view::npos && close != std::string_view::npos && close > open) {
    ParseArguments(text.substr(open + 1, close - open - 1), type);
    name += base::LowerAscii(text.substr(close + 1));
  }
  constexpr std::string_view kUnsigned = " unsigned";
  if (const std::size_t at = name.find(kUnsigned); at != std::string::npos) {
    type.is_unsigned = true;
    name.erase(at, kUnsigned.size());
  }
  const std::size_t first = name.find_first_not_of(' ');
  type.name = first == std::string::npos
                  ? std::string()
                  : name.substr(first, name.find_last_not_of(' ') + 1 - first);
  for (const KnownType& known : kKnownTypes) {
    if (known.name != type.name) continue;
    type.family = known.family;
    type.size = known.size;
  }
  const bool counted = type.family == Family::kChar || type.family == Family::kText ||
                       type.family == Family::kBinary || type.family == Family::kBlob;
  if (counted && !type.sizes.empty()) type.size = type.sizes[0];
  return type;
}

TypeChange ByOrder(double from, double to) {
  if (from == to) return TypeChange::kNone;
  return from < to ? TypeChange::kWidened : TypeChange::kNarrowed;
}

// Both kinds of change at once are a narrowing.
TypeChange Both(TypeChange a, TypeChange b) {
  if (a == TypeChange::kNone) return b;
  return b == TypeChange::kNone || a == b ? a : TypeChange::kNarrowed;
}

TypeChange CompareIntegers(const ParsedType& from, const ParsedType& to) {
  if (from.is_unsigned == to.is_unsigned) return ByOrder(from.size, to.size);
  return from.is_unsigned && to.size > from.size ? TypeChange::kWidened : TypeChange::kNarrowed;
}

// Digits before and behind the point.
void Digits(const ParsedType& type, double& before, double& behind) {
  if (type.sizes.empty()) {
    before = behind = kUnlimited;
    return;
  }
  behind = type.sizes.size() > 1 ? type.sizes[1] : 0;
  before = type.sizes[0] - behind;
}

TypeChange CompareDecimals(const ParsedType& from, const ParsedType& to) {
  double from_before = 0;
  double from_behind = 0;
  double to_before = 0;
  double to_behind = 0;
  Digits(from, from_before, from_behind);
  Digits(to, to_before, to_behind);
  return Both(ByOrder(from_before, to_before), ByOrder(from_behind, to_behind));
}

TypeChange CompareLabels(const ParsedType& from, const ParsedType& to) {
  const auto has = [](const ParsedType& type, const std::string& label) {
    return std::find(type.labels.begin(), type.labels.end(), label) != type.labels.end();
  };
  const bool all_stay = std::all_of(from.labels.begin(), from.labels.end(),
                                    [&](const std::string& label) { return has(to, label); });
  return all_stay ? TypeChange::kWidened : TypeChange::kNarrowed;
}

// Decimal digits that an integer of so many bytes can have.
double DigitsOfInteger(double bytes) {
  return bytes >= 8 ? 19 : bytes >= 4 ? 10 : bytes >= 2 ? 5 : 3;
}

template <class Names>
double Rank(const Names& names, const std::string& name) {
  return static_cast<double>(std::find(names.begin(), names.end(), name) - names.begin());
}

TypeChange CompareLengths(const ParsedType& from, const ParsedType& to) {
  const auto& names = from.family == Family::kText ? kTexts : kBlobs;
  const double known = static_cast<double>(names.size());
  if (from.sizes.empty() && to.sizes.empty() && Rank(names, from.name) < known &&
      Rank(names, to.name) < known) {
    return ByOrder(Rank(names, from.name), Rank(names, to.name));
  }
  return ByOrder(from.size, to.size);
}

TypeChange CompareFamilies(const ParsedType& from, const ParsedType& to) {
  const auto is = [&](Family a, Family b) { return from.family == a && to.family == b; };
  if (is(Family::kInteger, Family::kDecimal)) {
    double before = 0;
    double behind = 0;
    Digits(to, before, behind);
    return before >= DigitsOfInteger(from.size) ? TypeChange::kWidened : TypeChange::kNarrowed;
  }
  if (is(Family::kInteger, Family::kFloat)) {
    return from.size < to.size ? TypeChange::kWidened : TypeChange::kNarrowed;
  }
  if (is(Family::kChar, Family::kText) || is(Family::kBinary, Family::kBlob)) {
    return from.size <= to.size ? TypeChange::kWidened : TypeChange::kNarrowed;
  }
  return TypeChange::kOther;
}

}  // namespace

TypeChange CompareTypes(std::string_view from_text, std::string_view to_text) {
  const ParsedType from = Parse(from_text);
  const ParsedType to = Parse(to_text);
  if (from.rest != to.rest) return TypeChange::kOther;
  if (from.family != to.family) return CompareFamilies(from, to);
  switch (from.family) {
    case Family::kInteger:
      return CompareIntegers(from, to);
    case Family::kDecimal:
      return CompareDecimals(from, to);
    case Family::kFloat:
    case Family::kChar:
    case Family::kBinary:
      return ByOrder(from.size, to.size);
    case Family::kText:
    case Family::kBlob:
      return CompareLengths(from, to);
    case Family::kTime:
      if (from.size != to.size) return TypeChange::kOther;
      break;
    case Family::kUnknown:
      if (from.name != to.name) return TypeChange::kOther;
      break;
  }
  if (!from.labels.empty() || !to.labels.empty()) return CompareLabels(from, to);
  if (from.sizes == to.sizes) return TypeChange::kNone;
  if (from.sizes.empty()) return TypeChange::kNarrowed;
  if (to.sizes.empty()) return TypeChange::kWidened;
  return ByOrder(from.sizes[0], to.sizes[0]);
}

bool CanBeSameType(std::string_view a, std::string_view b) {
  enum class Kind { kUnknown, kNumber, kText, kBytes, kTime };
  const auto kind_of = [](std::string_view text) {
    switch (Parse(text).family) {
      case Family::kInteger:
      case Family::kDecimal:
      case Family::kFloat:
        return Kind::kNumber;
      case Family::kChar:
      case Family::kText:
        return Kind::kText;
      case Family::kBinary:
      case Family::kBlob:
        return Kind::kBytes;
      case Family::kTime:
        return Kind::kTime;
      case Family::kUnknown:
        break;
    }
    return Kind::kUnknown;
  };
  const Kind kind = kind_of(a);
  return kind == Kind::kUnknown || kind_of(b) == Kind::kUnknown || kind == kind_of(b);
}

}  // namespace wbcompare
