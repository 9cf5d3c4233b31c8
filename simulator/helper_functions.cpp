// See helper_functions.h.
#include "simulator/helper_functions.h"

#include <cstdlib>
#include <string>
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

// CONCAT of Transact-SQL: NULL is an empty text.
void Concat(sqlite3_context* context, int count, sqlite3_value** arguments) {
  std::string text;
  for (int i = 0; i < count; ++i) text += TextOf(arguments[i]);
  sqlite3_result_text(context, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

// PARSENAME(name, n): the n-th part from the right of `[server].[database].[schema].[name]`.
void ParseName(sqlite3_context* context, int, sqlite3_value** arguments) {
  std::string_view name = TextOf(arguments[0]);
  for (int left = sqlite3_value_int(arguments[1]); !name.empty(); --left) {
    const std::size_t dot = name.rfind('.');
    std::string_view part = dot == std::string_view::npos ? name : name.substr(dot + 1);
    name = dot == std::string_view::npos ? std::string_view() : name.substr(0, dot);
    if (left != 1) continue;
    if (part.starts_with('[')) part = part.substr(1, part.size() - 2);
    sqlite3_result_text(context, part.data(), static_cast<int>(part.size()), SQLITE_TRANSIENT);
    return;
  }
}

// MOD and TRUNC of whole numbers, which SQLite has for others alone.
void Modulo(sqlite3_context* context, int, sqlite3_value** arguments) {
  const sqlite3_int64 divisor = sqlite3_value_int64(arguments[1]);
  if (sqlite3_value_type(arguments[0]) == SQLITE_NULL || divisor == 0) return;
  sqlite3_result_int64(context, sqlite3_value_int64(arguments[0]) % divisor);
}
void Truncate(sqlite3_context* context, int, sqlite3_value** arguments) {
  if (sqlite3_value_type(arguments[0]) == SQLITE_NULL) return;
  sqlite3_result_int64(context, sqlite3_value_int64(arguments[0]));
}

// Functions of a server that tell where one is and what one may do: always the same.
template <const char* kText>
void Constant(sqlite3_context* context, int, sqlite3_value**) {
  sqlite3_result_text(context, kText, -1, SQLITE_STATIC);
}
constexpr char kLibrary[] = "library";
constexpr char kDbo[] = "dbo";
constexpr char kYes[] = "1";
constexpr char kCollation[] = "Latin1_General_CI_AS";

// An edition that one installs, of the version that the function was registered with.
void ServerProperty(sqlite3_context* context, int, sqlite3_value** arguments) {
  if (EqualIgnoringCase(TextOf(arguments[0]), "EngineEdition"))
    return sqlite3_result_int(context, 3);
  const auto& version = *static_cast<const std::string*>(sqlite3_user_data(context));
  sqlite3_result_text(context, version.data(), static_cast<int>(version.size()), SQLITE_TRANSIENT);
}

struct Function {
  const char* name;
  int arguments;  // -1: any number
  void (*function)(sqlite3_context*, int, sqlite3_value**);
};
constexpr Function kFunctions[] = {
    {"sim_index_key", 2, IndexKey},
    {"sim_slice", 3, Slice},
    {"concat", -1, Concat},
    {"parsename", 2, ParseName},
    {"mod", 2, Modulo},
    {"trunc", 1, Truncate},
    {"db_name", 0, Constant<kLibrary>},
    {"schema_name", 0, Constant<kDbo>},
    {"databasepropertyex", 2, Constant<kCollation>},
    {"has_perms_by_name", 3, Constant<kYes>},
    {"sys_context", 2, Constant<kLibrary>},
};

constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;

}  // namespace

bool RegisterHelperFunctions(sqlite3* database) {
  for (const Function& function : kFunctions) {
    if (sqlite3_create_function(database, function.name, function.arguments, kFlags, nullptr,
                                function.function, nullptr, nullptr) != SQLITE_OK) {
      return false;
    }
  }
  return true;
}

bool RegisterServerProperty(sqlite3* database, const std::string& version) {
  return sqlite3_create_function_v2(database, "serverproperty", 1, kFlags, new std::string(version),
                                    ServerProperty, nullptr, nullptr, [](void* text) {
                                      delete static_cast<std::string*>(text);
                                    }) == SQLITE_OK;
}

}  // namespace catalogsim
