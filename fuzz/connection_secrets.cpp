// What the program does with connection strings that hold secrets: taken out, none is left; what it
// writes itself, it reads back.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "host/connection_string.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  for (const wbhost::Attribute& attribute : wbhost::ParseConnectionString(text)) {
    if (attribute.value_at + attribute.value.size() > text.size()) std::abort();
  }
  const std::string shown = wbhost::WithoutSecrets(text);
  for (const wbhost::Attribute& attribute : wbhost::ParseConnectionString(shown)) {
    if (wbhost::IsSecretKey(attribute.key)) std::abort();
  }
  const std::string written =
      wbhost::FormatAttribute("UID", "joe") + wbhost::FormatAttribute("PWD", text);
  if (wbhost::FindAttribute(written, "pwd") != text) std::abort();
  return 0;
}
