#include "host/schema_source.h"

#include <fmt/format.h>
#include <unistd.h>

#include <fstream>

#include "host/dialect_file.h"
#include "host/host_session.h"
#include "host/resolve_names.h"

namespace wbhost {

std::string LabelOf(const ConnectionOptions& options, const Connection& connection) {
  if (options.sqlite) return *options.sqlite;
  if (options.dsn) return "data source " + *options.dsn;
  if (options.sample) return "sample " + *options.sample;
  if (options.replay) return *options.replay;
  return connection.connect_text();
}

Schema ReadSchema(const std::string& file) {
  Schema schema;
  schema.label = file;
  // A folder opens like a file and throws when it is read.
  std::ifstream in;
  if (access(file.c_str(), R_OK) == 0) in.open(file, std::ios::binary);
  if (!in.is_open()) {
    throw Failure(ExitCode::kUsage, fmt::format("cannot read the workbook file {}", file));
  }
  std::string why;
  if (!ReadWorkbookFile(in, *schema.workbook, schema.info, why)) {
    throw Failure(ExitCode::kUsage, fmt::format("{} is no workbook file: {}", file, why));
  }
  return schema;
}

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
