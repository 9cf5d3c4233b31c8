// Where to connect to: the connection options made into one connection string.
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "base/connection_string.h"
#include "base/letters.h"
#include "base/secret_names.h"
#include "host/connection.h"
#include "host/outcome.h"

namespace wbhost {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSqliteHeader{"SQLite format 3\0", 16};

std::string ReadPassword(const ConnectionOptions& options) {
  if (options.password_env) return SecretFromEnvironment(*options.password_env, "--password-env");
  if (options.password_stdin) return SecretFromStandardInput("Password: ");
  // A user without a password: asked for where somebody can answer.
  if (options.user && isatty(STDIN_FILENO) != 0 && isatty(STDERR_FILENO) != 0) {
    return PasswordFromTerminal(fmt::format("Password of {} (empty: none): ", *options.user));
  }
  return {};
}

void CheckSqliteFile(const std::string& file) {
  const auto fail = [&](const std::string& reason) {
    throw Failure(ExitCode::kConnection,
                  fmt::format("cannot open the SQLite file {}: {}", file, reason));
  };
  struct stat status {};
  if (stat(file.c_str(), &status) != 0) fail(std::strerror(errno));
  if (!S_ISREG(status.st_mode)) fail("it is no regular file");
  std::ifstream in(file, std::ios::binary);
  if (!in) fail(std::strerror(errno));
  std::array<char, kSqliteHeader.size()> header{};
  in.read(header.data(), header.size());
  // An empty file is an empty database.
  if (in.gcount() != 0 && std::string_view(header.data(), header.size()) != kSqliteHeader) {
    fail("it is no SQLite database");
  }
}

Target SqliteTarget(const std::string& file) {
  CheckSqliteFile(file);
  const std::string path = fs::absolute(file).string();
  // A database in write-ahead mode needs a file beside it, which a folder that cannot be written
  // does not allow; nobody writes to such a database either.
  const bool immutable = access(fs::path(path).parent_path().c_str(), W_OK) != 0 &&
                         access((path + "-wal").c_str(), F_OK) != 0;
  return {fmt::format("the SQLite file {}", file),
          "Driver=SQLite3;Database=" + SqliteReadOnlyUri(path, immutable) + ";"};
}

Target SampleTarget(const Sample& sample) {
  if (sample.simulated_server == nullptr) {
    return {"the sample database",
            fmt::format("Driver=SQLite3;Database={};", SampleDatabase::FileName()), true};
  }
  const std::string simulator = SimulatorPath();
  if (!fs::exists(simulator)) {
    throw Failure(
        ExitCode::kConnection,
        fmt::format("cannot play the sample {}: there is no simulator {}", sample.name, simulator));
  }
  return {fmt::format("the sample {}", sample.name),
          base::FormatAttribute("Driver", simulator) +
              base::FormatAttribute("Server", sample.simulated_server)};
}

Target ReplayTarget(const std::string& file) {
  const std::string simulator = SimulatorPath();
  if (!fs::exists(simulator)) {
    throw Failure(ExitCode::kConnection,
                  fmt::format("cannot play {}: there is no simulator {}", file, simulator));
  }
  return {.description = fmt::format("the recording {}", file),
          .connect_string = base::FormatAttribute("Driver", simulator) +
                            base::FormatAttribute("Server", "recording") +
                            base::FormatAttribute("File", fs::absolute(file).string()),
          .recording = file};
}

// The connection string with the user and the password that stand outside of it.
std::string WithLogin(std::string text, const ConnectionOptions& options,
                      const std::string& password) {
  if (!text.empty() && text.back() != ';') text += ';';
  if (options.user) text += base::FormatAttribute("UID", *options.user);
  if (!password.empty()) text += base::FormatAttribute("PWD", password);
  return text;
}

}  // namespace

std::string SqliteReadOnlyUri(const std::string& absolute_path, bool immutable) {
  std::string uri = "file:";
  for (const char c : absolute_path) {
    const bool plain = base::IsLetterOrDigit(c) || c == '/' || c == '.' || c == '-' || c == '_';
    uri += plain ? std::string(1, c) : fmt::format("%{:02X}", static_cast<unsigned char>(c));
  }
  return uri + (immutable ? "?mode=ro&immutable=1" : "?mode=ro");
}

Target ResolveTarget(const ConnectionOptions& options, Secrets& secrets) {
  std::optional<std::string> connect = options.connect;
  if (options.connect_env) {
    connect = SecretFromEnvironment(*options.connect_env, "--connect-env");
  } else if (options.connect_stdin) {
    connect = SecretFromStandardInput("Connection string: ");
  }
  std::string password = ReadPassword(options);
  secrets.Add(password);
  secrets.AddFrom(base::FormatAttribute("PWD", password));  // as a driver may quote it
  std::optional<Target> target;
  if (connect) {
    secrets.AddFrom(*connect);
    const bool as_it_stands = !options.user && password.empty();
    target = {fmt::format("'{}'", *connect),
              as_it_stands ? *connect : WithLogin(*connect, options, password)};
    base::Wipe(*connect);
  } else if (options.dsn) {
    target = {fmt::format("the data source {}", *options.dsn),
              WithLogin(base::FormatAttribute("DSN", *options.dsn), options, password)};
  }
  base::Wipe(password);
  if (target) return *std::move(target);
  if (options.sqlite) return SqliteTarget(*options.sqlite);
  if (options.replay) return ReplayTarget(*options.replay);
  return SampleTarget(*FindSample(options.sample.value_or("sqlite")));
}

}  // namespace wbhost
