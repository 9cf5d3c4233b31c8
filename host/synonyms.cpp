// Synonyms that options selected by name.
#include "host/synonyms.h"

#include <fmt/format.h>

namespace wbhost {

void CompleteSynonyms(Choices& choices, ImportRunner& runner, Outcome& outcome) {
  if (choices.synonyms_to_find.empty()) return;
  LcImportChoices search = choices.importer;
  search.selected_owners.EmptyList();
  search.selected_tables.EmptyList();
  search.selected_synonyms.EmptyList();
  const ImportResult names = runner.Run(search, ibSynonymNames, false);
  if (names.connection_lost) runner.Judge(names, outcome);
  // After an interrupt the names may be short; the import that follows ends at once.
  if (names.info.incomplete) return;
  for (const QualifiedName& wanted : choices.synonyms_to_find) {
    bool found = false;
    for (const LcTableInfo* synonym : names.workbook->table_names.Present()) {
      if (synonym->type != ttSynonym || synonym->name != wanted.name ||
          (!wanted.owner.empty() && synonym->owner != wanted.owner)) {
        continue;
      }
      choices.importer.selected_synonyms.Append(std::make_unique<LcTableInfo>(*synonym));
      found = true;
    }
    if (!found) {
      throw Failure(ExitCode::kUsage, fmt::format("--select-synonym: there is no synonym {}",
                                                  DisplayName(wanted.owner, wanted.name)));
    }
  }
}

}  // namespace wbhost
