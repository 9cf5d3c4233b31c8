#include "importer/workbook/utf8.h"

#include "base/utf.h"

std::string LcToUtf8(std::u16string_view text) { return base::ToUtf8(text); }
std::u16string LcToUtf16(std::string_view text) { return base::ToUtf16(text); }
