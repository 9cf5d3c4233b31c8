// The configuration file.
#include "host/config_file.h"

#include <fmt/format.h>
#include <toml++/toml.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <vector>

#include "host/outcome.h"

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

// One key of the file and the option that it stands for.
struct Key {
  const char* name;
  std::optional<std::string>& target;
  bool is_connection;
};

}  // namespace

void ApplyConfigFile(const std::optional<std::string>& file, Options& options) {
  const std::optional<fs::path> path = file ? std::optional<fs::path>(*file) : FindDefaultFile();
  if (!path) return;
  toml::table table;
  try {
    table = toml::parse_file(path->string());
  } catch (const toml::parse_error& error) {
    const toml::source_position at = error.source().begin;
    throw Failure(ExitCode::kUsage, fmt::format("{}:{}:{}: {}", path->string(), at.line, at.column,
                                                std::string(error.description())));
  }
  ConnectionOptions& connection = options.connection;
  const bool connection_given =
      connection.connect || connection.dsn || connection.sqlite || connection.sample;
  const Key keys[] = {
      {"connect", connection.connect, true},    {"dsn", connection.dsn, true},
      {"user", connection.user, true},          {"password-env", connection.password_env, true},
      {"sqlite", connection.sqlite, true},      {"sample", connection.sample, true},
      {"format", options.output.format, false}, {"progress", options.report.progress, false},
      {"log", options.report.log, false},       {"messages", options.report.messages, false},
  };
  for (const auto& [name, node] : table) {
    const Key* known = nullptr;
    std::string names;
    for (const Key& key : keys) {
      if (name.str() == key.name) known = &key;
      names += fmt::format(" {}", key.name);
    }
    if (known == nullptr) {
      throw Failure(ExitCode::kUsage, fmt::format("{}: field {}: is not known; there are{}",
                                                  path->string(), std::string(name.str()), names));
    }
    const std::optional<std::string> value = node.value_exact<std::string>();
    if (!value) {
      throw Failure(ExitCode::kUsage,
                    fmt::format("{}: field {}: must be a string", path->string(), known->name));
    }
    if (known->target || (known->is_connection && connection_given)) continue;
    known->target = *value;
  }
}

}  // namespace wbhost
