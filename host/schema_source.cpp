#include "host/schema_source.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <istream>

#include "host/dialect_file.h"
#include "host/file_bytes.h"
#include "host/host_session.h"
#include "host/limits.h"
#include "host/resolve_names.h"

namespace wbhost {
namespace {

Schema ReadSchemaFrom(int fd, const std::string& label) {
  FileBytes bytes(fd, kMostWorkbookBytes);
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
