// Settings in a TOML file.
#include <toml++/toml.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "base/toml_nesting.h"
#include "base/utf.h"
#include "platform/defaults.h"

namespace platform {

namespace {

// The pieces between the separators, empty ones left out.
std::vector<std::string> Split(std::string_view text, char separator) {
  std::vector<std::string> pieces;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(separator), text.size());
    if (end != 0) pieces.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return pieces;
}

constexpr std::size_t kMostBytes = std::size_t{1} << 20;

// Throws where the file cannot be read.
std::string ReadSettings(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in || std::filesystem::is_directory(path)) throw std::runtime_error("it cannot be read");
  std::string text(kMostBytes + 1, '\0');
  in.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(in.gcount()));
  if (in.bad()) throw std::runtime_error("it cannot be read");
  if (text.size() > kMostBytes) throw std::runtime_error("it is larger than 1 MiB");
  return text;
}

class TomlSettingsStore : public SettingsStore {
 public:
  TomlSettingsStore(const std::string& path, std::string& why) {
    if (path.empty()) return;
    try {
      const std::string text = ReadSettings(path);
      if (base::IsTomlNestedTooDeep(text)) throw std::runtime_error("it nests too deep");
      root_ = toml::parse(text);
    } catch (const std::exception& error) {
      why = "the settings file " + path + " counts as empty: " + error.what();
    }
  }

  std::optional<std::uint32_t> ReadDWORD(const std::u16string& key,
                                         const std::u16string& value) override {
    const toml::node* node = &root_;
    for (const std::string& name : Split(base::ToUtf8(key), '\\')) {
      node = FindChild(node, name);
    }
    node = FindChild(node, base::ToUtf8(value));
    const toml::value<std::int64_t>* number = node != nullptr ? node->as_integer() : nullptr;
    if (number == nullptr || number->get() < std::numeric_limits<std::int32_t>::min() ||
        number->get() > std::numeric_limits<std::uint32_t>::max()) {
      return std::nullopt;
    }
    return static_cast<std::uint32_t>(number->get());
  }

 private:
  static const toml::node* FindChild(const toml::node* parent, const std::string& name) {
    const toml::table* table = parent != nullptr ? parent->as_table() : nullptr;
    return table != nullptr ? table->get(name) : nullptr;
  }

  toml::table root_;
};

// The value of an environment variable; empty when it is not set.
std::string GetVariable(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

}  // namespace

std::shared_ptr<SettingsStore> MakeTomlSettingsStore(const std::string& path, std::string* why) {
  std::string reason;
  auto store = std::make_shared<TomlSettingsStore>(path, reason);
  if (why != nullptr) *why = reason;
  return store;
}

std::string FindSettingsFile() {
  if (std::string named = GetVariable("WBIMPORT_SETTINGS"); !named.empty()) return named;

  std::vector<std::string> folders;
  const std::string home = GetVariable("HOME");
  if (std::string own = GetVariable("XDG_CONFIG_HOME"); !own.empty()) {
    folders.push_back(own);
  } else if (!home.empty()) {
    folders.push_back(home + "/.config");
  }
  const std::string shared = GetVariable("XDG_CONFIG_DIRS");
  for (std::string& folder : Split(shared.empty() ? "/etc/xdg" : shared, ':')) {
    folders.push_back(std::move(folder));
  }
  for (const std::string& folder : folders) {
    std::string file = folder + "/wbimport/settings.toml";
    std::error_code ignored;
    if (std::filesystem::exists(file, ignored)) return file;
  }
  return {};
}

}  // namespace platform
