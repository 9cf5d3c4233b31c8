// Between the workbook's UTF-16 and the UTF-8 of files and terminals, for hosts. Never fails: what
// is not valid becomes U+FFFD.
#pragma once

#include <string>
#include <string_view>

#include "importer/workbook/export.h"

[[nodiscard]] LC_WORKBOOK_EXPORT std::string LcToUtf8(std::u16string_view text);
[[nodiscard]] LC_WORKBOOK_EXPORT std::u16string LcToUtf16(std::string_view text);
