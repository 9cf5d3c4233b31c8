// See scale.h.
#include "simulator/scale.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <optional>
#include <utility>

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

// Nobody else may write where the catalogs are kept, or have made it. Made where it is missing;
// empty where there is no such folder.
std::optional<fs::path> OwnCaches() {
  const char* const of_user = std::getenv("XDG_CACHE_HOME");
  const char* const home = std::getenv("HOME");
  fs::path folder;
  if (of_user != nullptr && *of_user == '/') {
    folder = of_user;
  } else if (home != nullptr && *home == '/') {
    folder = fs::path(home) / ".cache";
  } else {
    return std::nullopt;
  }
  std::error_code error;
  fs::create_directories(folder, error);
  folder /= "catalogsim";
  if (mkdir(folder.c_str(), S_IRWXU) != 0 && errno != EEXIST) return std::nullopt;
  struct stat status {};
  const bool is_own = lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
                      status.st_uid == geteuid() && (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
  return is_own ? std::optional(folder) : std::nullopt;
}

// Keeps those that were used last; what a killed process was building goes with them. A reader that
// has one open keeps its files.
void RemoveOldCaches(const fs::path& caches) {
  constexpr std::size_t kMostKept = 16;
  std::error_code error;
  std::vector<std::pair<fs::file_time_type, fs::path>> kept;
  for (const fs::directory_entry& entry : fs::directory_iterator(caches, error)) {
    kept.emplace_back(entry.last_write_time(error), entry.path());
  }
  if (kept.size() <= kMostKept) return;
  std::sort(kept.begin(), kept.end(), std::greater<>());
  for (std::size_t i = kMostKept; i < kept.size(); ++i) fs::remove_all(kept[i].second, error);
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
  const std::optional<fs::path> caches = OwnCaches();
  if (!caches) return {};
  const std::string name = std::string(traits.name) + "-" + std::to_string(Hash(scripts));
  return (*caches / name).string();
}

std::string CacheFile(const std::string& folder, int number) {
  return folder + "/" + std::to_string(number) + ".db";
}

bool UseCache(const std::string& folder) {
  // When it was last used, for RemoveOldCaches; also whether it is there.
  return utimensat(AT_FDCWD, folder.c_str(), nullptr, 0) == 0;
}

std::string BeginCache(const std::string& folder) {
  std::string built = folder + "-XXXXXX";
  return mkdtemp(built.data()) != nullptr ? built : std::string();
}

void FinishCache(const std::string& built, const std::string& folder) {
  std::error_code error;
  fs::rename(built, folder, error);
  if (error) fs::remove_all(built, error);
  RemoveOldCaches(fs::path(folder).parent_path());
}

}  // namespace catalogsim
