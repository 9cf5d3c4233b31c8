// `wbimport list`: names only.
#include "host/commands.h"
#include "host/host_session.h"
#include "host/lists.h"
#include "host/synonyms.h"

namespace wbhost {

void RunList(Run& run, Outcome& outcome) {
  Choices choices = ReadChoices(run.options.choices);
  const OutputFile output(run.options.output.file);
  HostSession session(run, choices, output);
  CompleteSynonyms(choices, session.runner(), outcome);
  const std::vector<ListedName> names =
      ReadList(run.options.list_kind, choices, session.runner(), outcome);
  session.Finish(outcome);
  const bool json = run.options.output.format == "json";
  output.Write([&](std::ostream& out) {
    out << (json ? FormatListAsJson(names) : FormatListAsText(names));
    return true;
  });
}

}  // namespace wbhost
