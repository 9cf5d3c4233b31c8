#include "host/schema_source.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <istream>
#include <stdexcept>
#include <streambuf>
#include <vector>

#include "host/dialect_file.h"
#include "host/host_session.h"
#include "host/limits.h"
#include "host/resolve_names.h"

namespace wbhost {
namespace {

// The bytes of a file as they come. What cannot be read, and a file that is too long, throws.
class FileBytes : public std::streambuf {
 public:
  // Takes the descriptor; standard input stays open.
  explicit FileBytes(int fd) : fd_(fd), piece_(kPieceBytes) {}
  ~FileBytes() override {
    if (fd_ > STDERR_FILENO) close(fd_);
  }
  FileBytes(const FileBytes&) = delete;
  FileBytes& operator=(const FileBytes&) = delete;

  // Whether it threw.
  [[nodiscard]] bool HasFailed() const { return failed_; }

 protected:
  int_type underflow() override {
    ssize_t count = 0;
    do {
      count = read(fd_, piece_.data(), piece_.size());
    } while (count < 0 && errno == EINTR);
    if (count < 0) Fail(std::strerror(errno));
    bytes_ += static_cast<std::uintmax_t>(count);
    if (bytes_ > kMostWorkbookBytes) {
      Fail(fmt::format("it has more than {} bytes", kMostWorkbookBytes));
    }
    if (count == 0) return traits_type::eof();
    setg(piece_.data(), piece_.data(), piece_.data() + count);
    return traits_type::to_int_type(*gptr());
  }

 private:
  static constexpr std::size_t kPieceBytes = std::size_t{64} * 1024;

  [[noreturn]] void Fail(const std::string& why) {
    failed_ = true;
    throw std::runtime_error(why);
  }

  int fd_;
  std::vector<char> piece_;
  std::uintmax_t bytes_ = 0;
  bool failed_ = false;
};

Schema ReadSchemaFrom(int fd, const std::string& label) {
  FileBytes bytes(fd);
  std::istream in(&bytes);
  Schema schema;
  schema.label = label;
  std::string why;
  if (ReadWorkbookFile(in, *schema.workbook, schema.info, why)) return schema;
  throw Failure(ExitCode::kUsage,
                bytes.HasFailed() ? fmt::format("cannot read the workbook file {}: {}", label, why)
                                  : fmt::format("{} is no workbook file: {}", label, why));
}

}  // namespace

std::string LabelOf(const ConnectionOptions& options, const Connection& connection) {
  if (options.sqlite) return *options.sqlite;
  if (options.dsn) return "data source " + *options.dsn;
  if (options.sample) return "sample " + *options.sample;
  if (options.replay) return *options.replay;
  return connection.connect_text();
}

Schema ReadSchema(const std::string& file) {
  const int fd = open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY);
  if (fd < 0) {
    throw Failure(ExitCode::kUsage,
                  fmt::format("cannot read the workbook file {}: {}", file, std::strerror(errno)));
  }
  return ReadSchemaFrom(fd, file);
}

Schema ReadSchemaFromStandardInput() { return ReadSchemaFrom(STDIN_FILENO, "standard input"); }

Schema ImportSchema(Run& run, Choices otherwise, const OutputFile& output, Outcome& outcome) {
  ChoiceOptions options = run.options.choices;
  options.exclude.clear();
  Choices choices = ReadChoices(options, std::move(otherwise));
  TakeDialectFile(choices);
  HostSession session(run, choices, output);
  const std::uint32_t items = choices.ItemMask();
  if (!session.RepeatsChoices()) {
    ResolveNames(choices, items, std::nullopt, session.runner(), run.screen);
  }
  choices.items = items;
  session.NoteChoices(choices);
  ImportResult result = session.runner().Run(choices.importer, items);
  result.info.choices = WriteRequest(choices);
  if (choices.reading == Choices::Reading::kExact && !result.why_not_exact.empty()) {
    run.screen.Say("the exact reading is not possible: " + result.why_not_exact);
  }
  session.runner().Judge(result, outcome);
  session.Finish(outcome);
  Schema schema;
  schema.workbook = std::move(result.workbook);
  schema.info = std::move(result.info);
  schema.label = LabelOf(run.options.connection, session.connection());
  return schema;
}

}  // namespace wbhost
