// Synonyms that options selected by name, put together from the server's synonym names.
#pragma once

#include "host/choices.h"
#include "host/import_run.h"

namespace wbhost {

// Fills the selected synonyms of the choices. Does nothing where options selected none. Throws a
// Failure (wrong usage) for a synonym that the server does not have; without an owner every synonym
// of that name is selected.
void CompleteSynonyms(Choices& choices, ImportRunner& runner, Outcome& outcome);

}  // namespace wbhost
