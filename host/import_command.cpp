// `wbimport import` and `wbimport render`: a workbook, read from a server or from a file, is
// written in one of the formats.
#include <fmt/format.h>
#include <unistd.h>

#include "export/writer.h"
#include "host/commands.h"
#include "host/host_session.h"
#include "host/synonyms.h"
#include "host/text.h"

namespace wbhost {
namespace {

const wbexport::Format& ChooseFormat(const OutputOptions& options, const OutputFile& output) {
  const bool on_terminal = output.IsStandardOutput() && isatty(STDOUT_FILENO) != 0;
  const std::string name = options.format.value_or(on_terminal ? "text" : "json");
  const wbexport::Format* format = wbexport::FindFormat(name);
  if (format == nullptr) {
    throw Failure(ExitCode::kUsage, fmt::format("there is no format '{}'", name));
  }
  return *format;
}

// Markdown is one page, or a page a table where the output is a folder: `-o docs/`.
OutputFile ChooseOutput(const OutputOptions& options) {
  return OutputFile(options.file, options.format == "markdown");
}

void WriteWorkbook(Run& run, const OutputFile& output, const LcWorkbook& workbook,
                   const LcWorkbookFileInfo& info) {
  const OutputOptions& wanted = run.options.output;
  const wbexport::Format& format = ChooseFormat(wanted, output);
  wbexport::Options options;
  options.colour = output.IsStandardOutput() && WantsColour(STDOUT_FILENO);
  options.all_functions = wanted.all_functions;
  options.around = wanted.around.value_or("");
  options.distance = wanted.distance;
  options.whole = wanted.whole;
  options.dialect_out = wanted.dialect_out;
  std::vector<std::string> notes;
  bool written = false;
  if (output.IsFolder()) {
    if (!wbexport::WriteMarkdownFolder({workbook, info}, wanted.file, notes)) {
      throw Failure(ExitCode::kOutput,
                    notes.empty() ? "the pages cannot be written" : notes.back());
    }
    for (const std::string& note : notes) run.screen.Say(note);
    return;
  }
  output.Write([&](std::ostream& out) {
    written = format.write({workbook, info}, options, out, notes);
    return written;
  });
  if (!written) {
    throw Failure(ExitCode::kUsage, notes.empty() ? "nothing could be written" : notes.back());
  }
  for (const std::string& note : notes) run.screen.Say(note);
}

}  // namespace

void RunImport(Run& run, Outcome& outcome) {
  Choices choices = ReadChoices(run.options.choices);
  if ((choices.ItemMask() & ibColumnNames) != 0 && choices.importer.single_table_name.empty()) {
    throw Failure(ExitCode::kUsage,
                  "column-names needs a single table: --table [OWNER.]NAME, or singleTable in the "
                  "request file");
  }
  const OutputFile output = ChooseOutput(run.options.output);
  ChooseFormat(run.options.output, output);
  HostSession session(run, choices, output);
  CompleteSynonyms(choices, session.runner(), outcome);
  const ImportResult result = session.runner().Run(choices.importer, choices.ItemMask());
  session.runner().Judge(result, outcome);
  session.Finish(outcome);
  WriteWorkbook(run, output, *result.workbook, result.info);
}

void RunRender(Run& run) {
  const std::string& file = run.options.render_file;
  const OutputFile output = ChooseOutput(run.options.output);
  output.Check();
  const std::optional<std::string> text = ReadWholeFile(file);
  if (!text) throw Failure(ExitCode::kUsage, fmt::format("cannot read the workbook file {}", file));
  LcWorkbook workbook;
  LcWorkbookFileInfo info;
  std::string why;
  if (!ReadWorkbookFile(*text, workbook, info, why)) {
    throw Failure(ExitCode::kUsage, fmt::format("{} is no workbook file: {}", file, why));
  }
  WriteWorkbook(run, output, workbook, info);
}

}  // namespace wbhost
