// The reader of ODBC connection strings, with any text: what it finds lies within it; secrets taken
// out, none is left; what is written is read back.
#include "base/connection_string.h"

#include <cstdint>
#include <cstdlib>

#include "base/secret_names.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  for (const base::Attribute& attribute : base::ParseConnectionString(text)) {
    if (attribute.value_at + attribute.value.size() > text.size()) std::abort();
    if (base::PlainValue(attribute.value).size() > attribute.value.size()) std::abort();
  }
  const std::string shown = base::WithoutSecrets(text);
  for (const base::Attribute& attribute : base::ParseConnectionString(shown)) {
    if (base::IsSecretKey(attribute.key)) std::abort();
  }
  const std::string written =
      base::FormatAttribute("UID", "joe") + base::FormatAttribute("PWD", text);
  if (base::FindAttribute(written, "pwd") != text) std::abort();
  return 0;
}
