// See helper_functions.h.
#include "simulator/helper_functions.h"

#include <cstdlib>
#include <string_view>

#include "simulator/text.h"

namespace catalogsim {
namespace {

std::string_view TextOf(sqlite3_value* value) {
  const auto* const text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return text == nullptr
             ? std::string_view()
             : std::string_view(text, static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

// sim_index_key(text, n): "3 [1], -1 [1]" holds 3 and 1.
void IndexKey(sqlite3_context* context, int, sqlite3_value** arguments) {
  std::string_view text = TextOf(arguments[0]);
  int left = sqlite3_value_int(arguments[1]);
  while (!text.empty()) {
    const std::size_t end = text.find(']');
    if (end == std::string_view::npos) break;
    if (--left == 0) {
      const std::size_t digit = text.find_first_of("0123456789");
      if (digit < end) sqlite3_result_int(context, std::atoi(text.data() + digit));
      return;
    }
    text.remove_prefix(end + 1);
  }
}

// sim_slice(text, n, width): names are stored behind one another, each in `width` characters.
void Slice(sqlite3_context* context, int, sqlite3_value** arguments) {
  const std::string_view text = TextOf(arguments[0]);
  const auto width = static_cast<std::size_t>(sqlite3_value_int(arguments[2]));
  const std::size_t begin = static_cast<std::size_t>(sqlite3_value_int(arguments[1]) - 1) * width;
  const std::string_view slice = begin < text.size() ? Trim(text.substr(begin, width)) : "";
  if (!slice.empty())
    sqlite3_result_text(context, slice.data(), static_cast<int>(slice.size()), SQLITE_TRANSIENT);
}

}  // namespace

bool RegisterHelperFunctions(sqlite3* database) {
  constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
  return sqlite3_create_function(database, "sim_index_key", 2, kFlags, nullptr, IndexKey, nullptr,
                                 nullptr) == SQLITE_OK &&
         sqlite3_create_function(database, "sim_slice", 3, kFlags, nullptr, Slice, nullptr,
                                 nullptr) == SQLITE_OK;
}

}  // namespace catalogsim
