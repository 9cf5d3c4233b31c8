#include "export/sql_translate.h"

#include <algorithm>

#include "base/ascii.h"
#include "base/utf.h"

namespace wbexport::sql {
namespace {

// Physical codes of the workbook.
constexpr int kChar = 0;
constexpr int kInteger = 3;
constexpr int kSmallInt = 4;
constexpr int kVarChar = 8;
constexpr int kLongVarChar = 9;
constexpr int kBit = 10;
constexpr int kTinyInt = 11;
constexpr int kBigInt = 12;
constexpr int kVarBinary = 13;
constexpr int kLongVarBinary = 14;
constexpr int kDate = 15;
constexpr int kTime = 16;
constexpr int kDateTime = 17;

int CodeOf(const LcWorkbookColumn& column) {
  return column.GetDataType() != nullptr ? column.GetDataType()->GetPhysicalCode() : -1;
}

bool IsWhole(int code) {
  return code == kInteger || code == kSmallInt || code == kTinyInt || code == kBigInt;
}
bool IsText(int code) { return code == kChar || code == kVarChar || code == kLongVarChar; }
bool IsTime(int code) { return code == kDate || code == kTime || code == kDateTime; }

bool IsNumber(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789.-") == std::string_view::npos &&
         text.find_first_of("0123456789") != std::string_view::npos;
}

// 'x'::character varying of PostgreSQL's without its cast.
std::string WithoutCast(std::string text) {
  if (text.empty() || text.front() != '\'') return text;
  const std::size_t end = text.rfind('\'');
  if (text.compare(end + 1, 2, "::") == 0) text.resize(end + 1);
  return text;
}

bool IsUnsigned(const LcWorkbookColumn& column) {
  return column.GetDataType() != nullptr && column.GetDataType()->GetDatabaseType().View().find(
                                                u"unsigned") != std::u16string_view::npos;
}

}  // namespace

bool NumbersRows(const Context& context, const LcWorkbookColumn& column) {
  const LcColumnDetails* details = column.GetDetails();
  if (details == nullptr) return false;
  return details->identity != idNone || (details->default_text.View().starts_with(u"nextval(") &&
                                         context.SequenceOf(column) != nullptr);
}

bool CanNumberRows(const Context& context, const LcWorkbookColumn& column) {
  const LcWorkbookTable& table = *column.GetParentTable();
  if (!IsWhole(CodeOf(column))) return false;
  if (context.target.types_sequences) return true;
  const LcTableDetails* details = table.GetDetails();
  const LcKeyDetails* primary = details != nullptr ? details->primary_key.get() : nullptr;
  const auto begins = [&](const LcKeyDetails& key) {
    return !key.columns.empty() && key.columns.front() == &column;
  };
  const bool leads = primary != nullptr && begins(*primary);
  if (context.target.auto_increment_with_key) return leads && primary->columns.size() == 1;
  // One a table, and the first of a key.
  for (int i = 0; table.GetColumn(i) != &column; ++i) {
    if (NumbersRows(context, *table.GetColumn(i)) && IsWhole(CodeOf(*table.GetColumn(i)))) {
      return false;
    }
  }
  return leads || (details != nullptr &&
                   std::any_of(details->unique_keys.begin(), details->unique_keys.end(), begins));
}

std::optional<std::string> TranslatedDefault(const Context& context, const LcWorkbookColumn& column,
                                             std::u16string_view text) {
  const std::string words = WithoutCast(base::ToUtf8(text));
  const int code = CodeOf(column);
  if (base::EqualIgnoringCase(std::string_view(words), "NULL")) return words;
  for (const char* now : {"CURRENT_TIMESTAMP", "CURRENT_TIMESTAMP()", "NOW()"}) {
    if (!base::EqualIgnoringCase(std::string_view(words), now)) continue;
    // SQLite keeps the time as a text.
    if (code == kDateTime || !context.target.needs_types) return "CURRENT_TIMESTAMP";
    return std::nullopt;
  }
  if (base::EqualIgnoringCase(std::string_view(words), "CURRENT_DATE")) {
    return code == kDate ? std::optional<std::string>("CURRENT_DATE") : std::nullopt;
  }
  const bool is_true = base::EqualIgnoringCase(std::string_view(words), "TRUE");
  if (is_true || base::EqualIgnoringCase(std::string_view(words), "FALSE")) {
    if (code == kBit) return words;
    return IsWhole(code) ? std::optional<std::string>(is_true ? "1" : "0") : std::nullopt;
  }
  if (IsNumber(words)) {
    if (code == kBit)
      return words == "0" ? "FALSE" : words == "1" ? "TRUE" : std::optional<std::string>();
    if (IsTime(code)) return std::nullopt;
    return words;
  }
  if (words.size() < 2 || words.front() != '\'' || words.back() != '\'') return std::nullopt;
  const std::string inside = words.substr(1, words.size() - 2);
  if (inside.find_first_of("'\\") != std::string::npos) return std::nullopt;
  if (IsText(code) || !context.target.needs_types) return words;
  if (code == kBit)
    return inside == "0" ? "FALSE" : inside == "1" ? "TRUE" : std::optional<std::string>();
  if (IsTime(code)) {
    const bool fits = inside.size() >= 8 && !inside.starts_with("0000");
    return fits && inside.find_first_not_of("0123456789-: .") == std::string::npos
               ? std::optional(words)
               : std::nullopt;
  }
  const bool number = IsWhole(code) || (code >= 1 && code <= 7);
  if (number) return IsNumber(inside) ? std::optional(words) : std::nullopt;
  // What has no counterpart has become a text.
  return code > kDateTime && context.target.any_type == "text" ? std::optional(words)
                                                               : std::nullopt;
}

std::string TranslatedType(Context& context, const LcWorkbookColumn& column) {
  const int code = CodeOf(column);
  const bool numbers = NumbersRows(context, column) && CanNumberRows(context, column);
  if (numbers && context.target.auto_increment_with_key) return "INTEGER";
  if (IsUnsigned(column) && context.target.types_sequences && IsWhole(code)) {
    return code == kInteger || (code == kBigInt && numbers) ? "bigint"
           : code == kBigInt                                ? "numeric(20)"
                                                            : "integer";
  }
  std::string type = context.target.TypeFor(column);
  if (!context.target.any_number.empty() && type == context.target.any_number) {
    context.pending.push_back("the size of the number " + Display(column.GetName()));
  }
  if (!context.target.needs_lengths) return type;
  if (context.too_long.count(&column) != 0) {
    context.pending.push_back("the length of " + Display(column.GetName()) +
                              ", since rows would be too long");
    return type.find("binary") != std::string::npos ? "longblob" : "longtext";
  }
  // What MariaDB takes at most.
  const unsigned long length =
      column.GetDataType() != nullptr ? column.GetDataType()->GetLength() : 0;
  if (code == kVarChar && length > 16000) type = "longtext";
  if (code == kVarBinary && length > 65000) type = "longblob";
  if (code == kChar && length > 255) type = fmt::format("varchar({})", length);
  if (!context.IsInKey(column)) return type;
  // A key takes no text of any length.
  const bool binary = code == kLongVarBinary || code == kVarBinary;
  if (type.empty() || type.starts_with("long")) {
    context.pending.push_back("the full length of " + Display(column.GetName()) +
                              ", which is part of a key");
    return binary ? "varbinary(190)" : "varchar(190)";
  }
  return type;
}

std::set<const LcWorkbookColumn*> TooLongColumns(Context& context, const LcWorkbookTable& table) {
  std::set<const LcWorkbookColumn*> too_long;
  if (!context.target.needs_lengths) return too_long;
  // MariaDB takes 65,535 bytes in a row, texts outside of it apart; a character may need four.
  constexpr std::size_t kMost = 65000;
  constexpr std::size_t kOther = 16;  // bytes of any other column
  std::vector<std::pair<std::size_t, const LcWorkbookColumn*>> lengths;
  std::size_t sum = 0;
  for (int i = 0; i < table.GetColumnCount(); ++i) {
    const LcWorkbookColumn& column = *table.GetColumn(i);
    const std::string type = TranslatedType(context, column);
    const std::size_t open = type.find('(');
    const bool binary = type.starts_with("varbinary(") || type.starts_with("binary(");
    std::size_t bytes = kOther;
    if (binary || type.starts_with("varchar(") || type.starts_with("char(")) {
      bytes += std::stoul(type.substr(open + 1)) * (binary ? 1 : 4);
      if (!context.IsInKey(column)) lengths.emplace_back(bytes, &column);
    }
    sum += bytes;
  }
  std::stable_sort(lengths.begin(), lengths.end(),
                   [](const auto& a, const auto& b) { return a.first > b.first; });
  for (const auto& [bytes, column] : lengths) {
    if (sum <= kMost) break;
    too_long.insert(column);
    sum -= bytes - kOther;
  }
  return too_long;
}

}  // namespace wbexport::sql
