// Conversion between the workbook's UTF-16 and the UTF-8 of files and terminals. Never fails: what
// is not valid becomes U+FFFD.
#pragma once

#include <string>
#include <string_view>

#include "importer/workbook/export.h"

LC_WORKBOOK_EXPORT std::string LcToUtf8(std::u16string_view text);
LC_WORKBOOK_EXPORT std::u16string LcToUtf16(std::string_view text);
// Appends the UTF-8 form of one code point; a surrogate or a value above U+10FFFF as U+FFFD.
LC_WORKBOOK_EXPORT void LcAppendUtf8(char32_t code_point, std::string& out);
// The code point at `at`, which moves behind it; U+FFFD for half a surrogate pair.
LC_WORKBOOK_EXPORT char32_t LcNextCodePoint(std::u16string_view text, std::size_t& at);
