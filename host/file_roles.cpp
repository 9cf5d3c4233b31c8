#include "host/file_roles.h"

#include <fmt/format.h>
#include <unistd.h>

#include <array>
#include <charconv>
#include <filesystem>

#include "base/connection_string.h"
#include "base/secret_names.h"
#include "host/connection.h"
#include "host/outcome.h"
#include "host/output_file.h"

namespace wbhost {
namespace {

namespace fs = std::filesystem;

// What a file's name means: that file, not a device, a pipe or a folder, which may be used twice.
bool IsFile(const struct stat& status) { return S_ISREG(status.st_mode); }

// The path inside a `file:` name of SQLite, which may be one.
std::string PathOfUri(std::string name) {
  if (name.rfind("file:", 0) != 0) return name;
  const std::string text = name.substr(5, name.find_first_of("?#") - 5);
  std::string path;
  for (std::size_t i = 0; i < text.size(); ++i) {
    unsigned char byte = 0;
    const char* const digits = text.data() + i + 1;
    const bool escaped = text[i] == '%' && i + 2 < text.size() &&
                         std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2;
    path += escaped ? static_cast<char>(byte) : text[i];
    if (escaped) i += 2;
  }
  return path;
}

// What drivers call the file of a database.
constexpr std::array kDatabaseKeys = {"Database", "DBQ", "DatabaseName", "Dbf", "File", "FileName"};

}  // namespace

FileRoles::File FileRoles::Make(const std::string& name, const std::string& role) {
  File file{name, role, std::nullopt, ResolveLinks(name)};
  struct stat status {};
  if (stat(name.c_str(), &status) == 0) file.identity = {status.st_dev, status.st_ino};
  return file;
}

FileRoles::FileRoles(const Options& options) {
  const ReportOptions& report = options.report;
  Writes(options.output.file, "-o");
  Writes(report.trace.value_or(""), "--trace");
  Writes(report.errors.value_or(""), "--errors");
  Writes(report.log.value_or(""), "--log");
  Writes(report.record.value_or(""), "--record");
  if (options.connection.sqlite) ReadsDatabase(*options.connection.sqlite);
  Reads(options.connection.replay.value_or(""), "--replay");
  Reads(options.choices.request.value_or(""), "--request");
  Reads(options.choices.dialect.value_or(""), "--dialect");
  Reads(options.config_file, "the configuration file");
  Reads(options.render_file, "the workbook file to render");
  Reads(options.diff.old_file, "OLD");
  Reads(options.diff.new_file.value_or(""), "NEW");
  Reads(options.lint.file.value_or(""), "the workbook file to look at");
  if (options.dialect_action == "check") Reads(options.dialect_operand, "the dialect to check");
  AddStandardFiles(options);
  if (options.connection.connect) AddConnection(*options.connection.connect);
  if (options.connection.dsn) {
    AddConnection(base::FormatAttribute("DSN", *options.connection.dsn));
  }
}

// Standard input and output count where a shell has put a file there.
void FileRoles::AddStandardFiles(const Options& options) {
  struct stat status {};
  const auto is_file = [&](int fd) { return fstat(fd, &status) == 0 && IsFile(status); };
  const bool reads = options.choices.request == "-" || options.render_file == "-" ||
                     options.connection.connect_stdin || options.connection.password_stdin;
  if (reads && is_file(STDIN_FILENO)) Reads("/dev/stdin", "standard input");
  const bool writes = options.output.file.empty() || options.output.file == "-";
  if (writes && is_file(STDOUT_FILENO)) Writes("/dev/stdout", "standard output");
}

void FileRoles::AddConnection(const std::string& connection_string) {
  for (const base::Attribute& attribute : base::ParseConnectionString(connection_string)) {
    if (base::IsSecretKey(attribute.key)) continue;
    const std::string value = PathOfUri(base::PlainValue(attribute.value));
    std::error_code error;
    if (fs::is_regular_file(value, error)) ReadsDatabase(value);
  }
  const std::optional<std::string> source = base::FindAttribute(connection_string, "DSN");
  if (!source || source->empty()) return;
  for (const char* key : kDatabaseKeys) {
    std::error_code error;
    const std::string path = PathOfUri(DataSourceValue(*source, key));
    if (fs::is_regular_file(path, error)) ReadsDatabase(path);
  }
}

void FileRoles::ReadsDatabase(const std::string& name) {
  Reads(name, "the database");
  // What SQLite keeps beside it.
  for (const char* end : {"-wal", "-shm", "-journal"}) Reads(name + end, "the database");
}

void FileRoles::Reads(const std::string& name, const std::string& role) {
  if (name.empty() || name == "-") return;
  const File file = Make(name, role);
  for (const File& written : written_) {
    const bool same = written.identity && file.identity ? written.identity == file.identity
                                                        : written.path == file.path;
    if (!same) continue;
    throw Failure(ExitCode::kUsage, fmt::format("{} would overwrite {}, {}: nothing was touched",
                                                written.role, role, name));
  }
  read_.push_back(file);
}

void FileRoles::Writes(const std::string& name, const std::string& role) {
  if (name.empty() || name == "-") return;
  struct stat status {};
  if (stat(name.c_str(), &status) == 0 && !IsFile(status)) return;
  const File file = Make(name, role);
  const auto clash = [&](const std::vector<File>& others, const char* verb) {
    for (const File& other : others) {
      const bool same = other.identity && file.identity ? other.identity == file.identity
                                                        : other.path == file.path;
      if (!same) continue;
      throw Failure(ExitCode::kUsage, fmt::format("{} and {} both {} {}: nothing was touched",
                                                  other.role, role, verb, name));
    }
  };
  clash(written_, "write");
  clash(read_, "are");
  written_.push_back(file);
}

}  // namespace wbhost
