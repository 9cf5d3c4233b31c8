// `wbimport list`: names only.
#include "host/answer_format.h"
#include "host/commands.h"
#include "host/dialect_file.h"
#include "host/host_session.h"
#include "host/lists.h"
#include "host/resolve_names.h"

namespace wbhost {

void RunList(Run& run, Outcome& outcome) {
  const std::string& kind = run.options.list_kind;
  Choices choices = ReadChoices(run.options.choices);
  TakeDialectFile(choices);
  const OutputFile output(run.options.output.file);
  HostSession session(run, choices, output);
  if (!session.RepeatsChoices()) {
    ResolveNames(choices, ItemsOfList(kind), {}, session.runner(), run.screen);
  }
  session.NoteChoices(choices);
  const std::vector<ListedName> names =
      ReadList(kind, choices, session.runner(), outcome, run.screen);
  session.Finish(outcome);
  const bool json = AnswerFormatOf(run.options.output) == AnswerFormat::kJson;
  output.WriteText(json ? FormatListAsJson(names) : FormatListAsText(names));
  if (!output.IsStandardOutput()) outcome.SetWritten(output.name());
}

}  // namespace wbhost
