// The reader of ODBC connection strings: any text; what it finds is no longer than the text.
#include "platform/connection_string.h"

#include <cstdlib>

#include "fuzz/input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::u16string text;
  for (std::size_t i = 0; i < size; ++i) text += static_cast<char16_t>(data[i]);
  const platform::ConnectionString entries(text);
  for (const char16_t* keyword : {u"DSN", u"Driver", u"PWD", u"UID", u"", u"CLISCHEMA"}) {
    const auto value = entries.Find(keyword);
    if (value && value->size() > text.size()) std::abort();
  }
  return 0;
}
