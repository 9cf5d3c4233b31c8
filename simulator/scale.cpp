// See scale.h.
#include "simulator/scale.h"

#include <unistd.h>

#include <cstdint>
#include <filesystem>

#include "embedded_catalogsim.h"

namespace catalogsim {
namespace {

namespace fs = std::filesystem;

// FNV-1a: a file name has to change with the scripts, nothing more.
std::uint64_t Hash(const std::vector<std::string>& texts) {
  std::uint64_t hash = 0xcbf29ce484222325U;
  const auto add = [&hash](unsigned char byte) { hash = (hash ^ byte) * 0x100000001b3U; };
  for (const std::string& text : texts) {
    for (const char c : text) add(static_cast<unsigned char>(c));
    add(0xFF);
  }
  return hash;
}

}  // namespace

std::string ScaleScript(const ServerTraits& traits, const Scale& scale) {
  const std::string numbers = std::to_string(scale.tables) + "," + std::to_string(scale.columns) +
                              "," + std::to_string(scale.foreign_keys);
  return "BEGIN; CREATE TEMP TABLE sim_scale AS SELECT column1 AS tables, column2 AS columns,"
         " column3 AS foreign_keys FROM (VALUES (" +
         numbers + "));" + std::string(kScaleNumbers) + std::string(*traits.scale_script) +
         "DROP TABLE scale_key; DROP TABLE scale_column; DROP TABLE scale_table;"
         "DROP TABLE sim_scale; COMMIT;";
}

std::string CacheFolder(const ServerTraits& traits, const std::vector<std::string>& scripts) {
  const std::string name = "catalogsim-" + std::to_string(getuid()) + "-" +
                           std::string(traits.name) + "-" + std::to_string(Hash(scripts));
  std::error_code error;
  fs::path folder = fs::temp_directory_path(error);
  return (folder / name).string();
}

std::string CacheFile(const std::string& folder, int number) {
  return folder + "/" + std::to_string(number) + ".db";
}

std::string BeginCache(const std::string& folder) {
  std::string built = folder + "-XXXXXX";
  return mkdtemp(built.data()) != nullptr ? built : std::string();
}

void FinishCache(const std::string& built, const std::string& folder) {
  std::error_code error;
  fs::rename(built, folder, error);
  if (error) fs::remove_all(built, error);
}

}  // namespace catalogsim
