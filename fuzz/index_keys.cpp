// Informix index-key texts: any text gives a list of numbers no longer than the text.
#include "routes/informix/index_keys.h"

#include <cstdlib>
#include <string>
#include <vector>

#include "fuzz/input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // Bytes as characters, so that a fuzzer finds the brackets; the upper half as units above them.
  std::u16string text;
  for (std::size_t i = 0; i < size; ++i) {
    text += static_cast<char16_t>(data[i] < 0x80 ? data[i] : data[i] * 0x101);
  }
  std::vector<std::int16_t> keys;
  odbcimport::informix::ParseOnlineIndexKeys(text, keys);
  odbcimport::informix::ParseOnlineColKey(text, keys);
  odbcimport::informix::ParseOnlineFuncKey(text, keys);
  if (keys.size() > 2 * text.size() + 1) std::abort();
  return 0;
}
