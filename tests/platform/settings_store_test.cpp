// Settings in TOML files, and where the file is looked for.
#include <gtest/gtest.h>

#include "importer/settings.h"
#include "platform/defaults.h"
#include "tests/support/temporary.h"

namespace {

using wbtest::ScopedVariable;
using wbtest::TemporaryFolder;

constexpr const char16_t* kKey = u"SOFTWARE\\Tandor\\Lumagraph\\4.0";

TEST(SettingsStore, TakesIntegersOf32BitsOnly) {
  const TemporaryFolder folder;
  const auto store = platform::MakeTomlSettingsStore(folder.Write("settings.toml", R"(
[SOFTWARE.Tandor.Lumagraph."4.0"]
One = 1
Zero = 0
Largest = 0xFFFFFFFF
Minus = -1
TooLarge = 0x100000000
Text = "1"
Truth = true
Real = 1.0
Table = {}
[SOFTWARE.Tandor.Lumagraph.4.0]
Other = 3
)"));
  const struct {
    const char16_t* name;
    std::optional<std::uint32_t> value;
  } cases[] = {
      {u"One", 1},       {u"Zero", 0},     {u"Largest", 0xFFFFFFFF}, {u"Minus", 0xFFFFFFFF},
      {u"TooLarge", {}}, {u"Text", {}},    {u"Truth", {}},           {u"Real", {}},
      {u"Table", {}},    {u"Missing", {}}, {u"Other", {}},
  };
  for (const auto& test : cases) {
    EXPECT_EQ(store->ReadDWORD(kKey, test.name), test.value)
        << testing::PrintToString(std::u16string(test.name));
  }
  EXPECT_EQ(store->ReadDWORD(u"SOFTWARE\\Nobody", u"One"), std::nullopt);
  EXPECT_EQ(store->ReadDWORD(u"SOFTWARE\\Tandor\\Lumagraph\\4.0\\One", u"One"), std::nullopt);
}

TEST(SettingsStore, HasNoValuesWithoutAReadableFile) {
  const TemporaryFolder folder;
  for (const std::string& path : {std::string(), folder.path() + "/missing.toml", folder.path(),
                                  folder.Write("broken.toml", "[SOFTWARE\nGeneric = ")}) {
    EXPECT_EQ(platform::MakeTomlSettingsStore(path)->ReadDWORD(kKey, u"One"), std::nullopt) << path;
  }
}

TEST(SettingsStore, IsFoundInTheConfigurationFolders) {
  const TemporaryFolder home;
  const TemporaryFolder shared;
  const std::string own = home.Write(".config/wbimport/settings.toml", "");
  const std::string other = home.Write("xdg/wbimport/settings.toml", "");
  const std::string system = shared.Write("wbimport/settings.toml", "");
  const std::string dirs = "/nowhere:" + shared.path();
  const struct {
    const char* named;
    std::string config_home;
    std::string home;
    std::string found;
  } cases[] = {
      {"/named/settings.toml", home.path() + "/xdg", home.path(), "/named/settings.toml"},
      {nullptr, home.path() + "/xdg", home.path(), other},
      {nullptr, "", home.path(), own},
      {"", home.path() + "/empty", home.path(), system},
      {nullptr, "", "/nowhere", system},
  };
  const ScopedVariable config_dirs("XDG_CONFIG_DIRS", dirs.c_str());
  for (const auto& test : cases) {
    const ScopedVariable named("WBIMPORT_SETTINGS", test.named);
    const ScopedVariable config_home("XDG_CONFIG_HOME", test.config_home.c_str());
    const ScopedVariable user_home("HOME", test.home.c_str());
    EXPECT_EQ(platform::FindSettingsFile(), test.found);
  }
}

}  // namespace
