// The reader of request files: any bytes are read, or refused with one line that names the file.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "host/choices.h"
#include "host/outcome.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  try {
    const wbhost::Choices choices = wbhost::ParseRequest(text, "request.json");
    for (const LcTableInfo* table : choices.importer.selected_tables) {
      if (table == nullptr || table->type == ttSynonym) std::abort();
    }
  } catch (const wbhost::Failure& failure) {
    const std::string_view why = failure.what();
    if (why.rfind("request.json: ", 0) != 0 || why.find('\n') != std::string_view::npos ||
        failure.code() != wbhost::ExitCode::kUsage) {
      std::abort();
    }
  }
  return 0;
}
