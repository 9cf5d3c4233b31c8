// Names that a server makes where nobody gave one, and that differ from database to database.
#pragma once

#include <string>

#include "base/made_names.h"
#include "compare/changes.h"
#include "compare/objects.h"

namespace wbcompare {

using base::Product;
[[nodiscard]] Product FindProduct(const LcWorkbookFileInfo& info);

// Whether `name` is one that the server made for the object, or none at all. `table` is null for
// what stands at the top.
[[nodiscard]] bool IsServerMade(Product product, Object object, const ObjectRef& ref,
                                const std::string& name, const LcWorkbookTable* table);

// Whether a table is the server's own, which the exact reading leaves out and a driver may list.
[[nodiscard]] bool IsServersTable(Product product, const LcWorkbookTable& table);

}  // namespace wbcompare
