// The statements that the routes with own SQL run for tables with columns and keys.
#pragma once

#include <string>
#include <vector>

#include "importer/workbook/import.h"

namespace bench {

// The texts for the choices, in the order in which the route runs them. For Informix those of the
// columns alone: its keys are one statement a constraint.
std::vector<std::u16string> OwnQueries(const LcImportChoices& choices, LeDBMSType type,
                                       int version);

}  // namespace bench
