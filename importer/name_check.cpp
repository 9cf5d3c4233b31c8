#include "importer/name_check.h"

#include <algorithm>
#include <string_view>

#include "base/letters.h"

namespace {

// What ends a text in quotes, or does after a driver has converted it into a smaller code set,
// which makes an apostrophe of what looks like one. A backslash escapes the quote where a server
// that is taken for another knows such escapes; zero ends the statement.
constexpr std::u16string_view kEndsText(u"'\\\u02B9\u02BC\u02C8\u2018\u2019\u201B\u2032\uFF07\0",
                                        11);

const char* WhyUnsafeText(std::u16string_view name) {
  return name.find_first_of(kEndsText) != std::u16string_view::npos
             ? "it has a character that could end the quotes around it"
             : nullptr;
}

// Of a database, a server or a link, which stand without quotes.
const char* WhyUnsafeWord(std::u16string_view name) {
  const bool plain = std::all_of(name.begin(), name.end(), [](char16_t c) {
    return base::IsLetterOrDigit(c) || c == u'_' || c == u'$' || c == u'#' || c == u'.' ||
           (c >= 0xC0 && c < 0x2000);  // letters, before the blanks and marks
  });
  return plain && WhyUnsafeText(name) == nullptr
             ? nullptr
             : "it stands without quotes and has a character that no plain name has";
}

}  // namespace

bool OdbcImportFindUnsafeName(const LcImportChoices& choices, std::u16string& name,
                              std::string& why) {
  const auto check = [&](const std::u16string& text, const char* (*rule)(std::u16string_view)) {
    const char* reason = rule(text);
    if (reason == nullptr) return false;
    name = text;
    why = reason;
    return true;
  };
  const auto check_table = [&](const LcTableInfo& table) {
    const LcSynonymDetails& synonym = table.synonym;
    return check(table.owner, WhyUnsafeText) || check(table.name, WhyUnsafeText) ||
           check(synonym.base_owner, WhyUnsafeText) ||
           check(synonym.base_table_name, WhyUnsafeText) ||
           check(synonym.server_name, WhyUnsafeWord) || check(synonym.database_name, WhyUnsafeWord);
  };
  for (const std::u16string* text :
       {&choices.owner_restriction, &choices.single_item_owner, &choices.single_table_name}) {
    if (check(*text, WhyUnsafeText)) return true;
  }
  for (const LcOwnerInfo* owner : choices.selected_owners) {
    if (owner != nullptr && check(owner->name, WhyUnsafeText)) return true;
  }
  for (const LcTableInfoList* list : {&choices.selected_tables, &choices.selected_synonyms}) {
    for (const LcTableInfo* table : *list) {
      if (table != nullptr && check_table(*table)) return true;
    }
  }
  return false;
}
