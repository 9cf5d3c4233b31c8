// Facts about the connection that the readers of the generic route ask for.
#pragma once

#include "routes/generic/bound.h"
#include "session/session.h"

namespace odbcimport::generic {

// Writes the list of table types that the item mask asks for, quoted and parted by commas; nothing
// when it asks for none.
void SetupTableTypesODBC(const LcImportChoices& choices, BoundText& type_list);
// Finds the owner of the system tables, that of the first system table there is, for the session's
// facts about the server: empty when there is none; left as it was when the driver failed or the
// host has stopped the import.
void GetSystemOwnerODBC(ImportSession& session);
// Takes the pending diagnostic of a statement away. Required (program_test): it is not shown. A
// driver that lacks a catalog function would raise a message for every table.
void handleErrorMsgsODBC(const ImportSession& session, SQLHSTMT statement);

// The catalog argument of every catalog call.
[[nodiscard]] inline const char16_t* CatalogArgument(const LcImportChoices& choices) {
  return choices.catalog.empty() ? nullptr : choices.catalog.c_str();
}
// A text as an argument; null when it is empty.
[[nodiscard]] inline const char16_t* ArgumentOrNull(const std::u16string& text) {
  return text.empty() ? nullptr : text.c_str();
}
// The owner argument of the key functions: an empty text for a table without an owner. With a
// catalog null, since MariaDB, which has catalogs in place of owners, finds no keys for an empty
// one.
[[nodiscard]] inline const char16_t* KeyOwnerArgument(const LcImportChoices& choices,
                                                      const LcWorkbookTable& table) {
  const std::u16string& owner = table.GetOwner(false);
  return choices.catalog.empty() ? owner.c_str() : ArgumentOrNull(owner);
}

}  // namespace odbcimport::generic
