// Names in statements: what a host can ask before an import.
#pragma once

#include <string>

#include "importer/workbook/import.h"
#include "platform/platform.h"

// Looks for a name that could leave its place in a statement of the routes with SQL of their own,
// where chosen names stand as they are: with a driver that runs several statements at once, such a
// name runs whatever it says. The module itself refuses none. True where there is one: `name`
// (UTF-16) is the first, and `why` a part of a sentence in UTF-8. Looks at all that can get into a
// statement: owners, tables, the single table, and the databases and servers of synonyms, which
// often come from rows of the server. On the generic and the exact route every name is safe.
[[nodiscard]] LC_EXPORT bool OdbcImportFindUnsafeName(const LcImportChoices& choices,
                                                      std::u16string& name, std::string& why);
