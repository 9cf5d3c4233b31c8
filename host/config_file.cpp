// The configuration file.
#include "host/config_file.h"

#include <fmt/format.h>
#include <toml++/toml.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <vector>

#include "base/toml_nesting.h"
#include "host/limits.h"
#include "host/outcome.h"
#include "host/text.h"

namespace wbhost {
namespace {

namespace fs = std::filesystem;

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::string() : std::string(value);
}

std::optional<fs::path> FindDefaultFile() {
  std::vector<fs::path> folders;
  const std::string own = Environment("XDG_CONFIG_HOME");
  const std::string home = Environment("HOME");
  if (!own.empty()) {
    folders.emplace_back(own);
  } else if (!home.empty()) {
    folders.push_back(fs::path(home) / ".config");
  }
  std::string system = Environment("XDG_CONFIG_DIRS");
  std::istringstream parts(system.empty() ? "/etc/xdg" : system);
  for (std::string part; std::getline(parts, part, ':');) folders.emplace_back(part);
  for (const fs::path& folder : folders) {
    const fs::path file = folder / "wbimport" / "config.toml";
    std::error_code error;
    if (fs::exists(file, error)) return file;
  }
  return std::nullopt;
}

// One key of the file and the option that it stands for: a text, or a list of words.
struct Key {
  const char* name;
  std::optional<std::string>* target;
  bool is_connection = false;
  std::vector<std::string>* list = nullptr;
};

std::vector<Key> Keys(Options& options) {
  ConnectionOptions& connection = options.connection;
  return {
      {"connect", &connection.connect, true},
      {"connect-env", &connection.connect_env, true},
      {"dsn", &connection.dsn, true},
      {"user", &connection.user, true},
      {"password-env", &connection.password_env, true},
      {"sqlite", &connection.sqlite, true},
      {"sample", &connection.sample, true},
      {"format", &options.output.format},
      {"progress", &options.report.progress},
      {"log", &options.report.log},
      {"messages", &options.report.messages},
      {"rules", nullptr, false, &options.lint.only},
      {"rule", nullptr, false, &options.lint.more},
      {"no-rule", nullptr, false, &options.lint.without},
  };
}

[[noreturn]] void Refuse(const fs::path& file, const std::string& field,
                         const std::string& reason) {
  throw Failure(ExitCode::kUsage, fmt::format("{}: field {}: {}", file.string(), field, reason));
}

toml::table ParseFile(const fs::path& file) {
  std::string why;
  const std::optional<std::string> text = ReadWholeFile(file.string(), kMostConfigBytes, why);
  if (!text) {
    throw Failure(ExitCode::kUsage,
                  fmt::format("cannot read the configuration file {}: {}", file.string(), why));
  }
  if (base::IsTomlNestedTooDeep(*text)) {
    throw Failure(ExitCode::kUsage, fmt::format("{}: nests too deep", file.string()));
  }
  try {
    return toml::parse(*text, file.string());
  } catch (const toml::parse_error& error) {
    const toml::source_position at = error.source().begin;
    throw Failure(ExitCode::kUsage, fmt::format("{}:{}:{}: {}", file.string(), at.line, at.column,
                                                std::string(error.description())));
  }
}

// `["a", "b"]`, or "a" alone.
std::vector<std::string> WordsOf(const toml::node& node, const std::string& field,
                                 const fs::path& file) {
  std::vector<std::string> words;
  if (const std::optional<std::string> word = node.value_exact<std::string>()) return {*word};
  if (!node.is_array()) Refuse(file, field, "must be a list of strings");
  for (const toml::node& element : *node.as_array()) {
    const std::optional<std::string> word = element.value_exact<std::string>();
    if (!word) Refuse(file, field, "must be a list of strings");
    words.push_back(*word);
  }
  return words;
}

// Fills what is still open from the keys of one table, whose place in the file is `path`.
void ApplyTable(const toml::table& table, const std::string& path, const fs::path& file,
                Options& options) {
  const ConnectionOptions& connection = options.connection;
  // Files to compare or to look at need none.
  const bool connection_given = options.diff.new_file || options.lint.file || connection.connect ||
                                connection.connect_env || connection.connect_stdin ||
                                connection.dsn || connection.sqlite || connection.sample ||
                                connection.replay;
  const std::vector<Key> keys = Keys(options);
  for (const auto& [name, node] : table) {
    const std::string field = path + std::string(name.str());
    const auto key = std::find_if(keys.begin(), keys.end(), [known = name.str()](const Key& each) {
      return known == each.name;
    });
    if (key == keys.end()) {
      Refuse(file, field, fmt::format("is not known; there are {}", fmt::join(ConfigKeys(), " ")));
    }
    if (key->list != nullptr) {
      std::vector<std::string> words = WordsOf(node, field, file);
      if (key->list->empty()) *key->list = std::move(words);
      continue;
    }
    const std::optional<std::string> value = node.value_exact<std::string>();
    if (!value) Refuse(file, field, "must be a string");
    if (*key->target || (key->is_connection && connection_given)) continue;
    *key->target = *value;
  }
}

}  // namespace

std::vector<std::string> ConfigKeys() {
  Options options;
  std::vector<std::string> names;
  for (const Key& key : Keys(options)) names.emplace_back(key.name);
  return names;
}

void ApplyConfigFile(const std::optional<std::string>& file,
                     const std::vector<std::string>& commands, const std::string& command,
                     Options& options) {
  const std::optional<fs::path> path = file ? std::optional<fs::path>(*file) : FindDefaultFile();
  if (!path) return;
  options.config_file = path->string();
  toml::table for_all = ParseFile(*path);
  toml::table for_command;
  for (const std::string& name : commands) {
    const toml::node_view<toml::node> node = for_all[name];
    if (!node) continue;
    if (!node.is_table()) Refuse(*path, name, "must be a table");
    Options unused;  // a mistake in another command's table is found, too
    ApplyTable(*node.as_table(), name + ".", *path, unused);
    if (name == command) for_command = *node.as_table();
    for_all.erase(name);
  }
  ApplyTable(for_command, command + ".", *path, options);
  ApplyTable(for_all, "", *path, options);
}

}  // namespace wbhost
