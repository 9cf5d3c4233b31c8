// Facts about the connection.
#include "routes/generic/connection_facts.h"

#include "base/text.h"
#include "routes/generic/catalog_statement.h"

namespace odbcimport::generic {

bool SetupTableTypesODBC(const LcImportChoices& choices, BoundText& type_list) {
  const auto add = [&type_list](std::u16string_view type) {
    if (!type_list.IsEmpty()) type_list.Append(u",");
    type_list.Append(type);
  };
  const bool tables = (choices.item_mask & (ibTableNames | ibTables)) != 0;
  type_list.Empty();
  if (tables) add(u"'TABLE'");
  if ((choices.item_mask & (ibViewNames | ibViews)) != 0) add(u"'VIEW'");
  if (choices.include_system && tables) add(u"'SYSTEM TABLE'");
  return true;
}

bool GetSystemOwnerODBC(ImportSession& session) {
  BoundText owner;
  CatalogStatement statement;
  const SQLRETURN opened = statement.Open(
      session.connection.hdbc(),
      [&](odbc::Statement& call) {
        return call.Tables(CatalogArgument(session.choices), u"%", nullptr, u"'SYSTEM TABLE'");
      },
      [&](odbc::Statement& bind) { owner.Bind(bind, 2); });
  if (!odbc::Succeeded(opened) || session.progress.WasImportStoppedOrCancelled()) return false;

  owner.Empty();
  const SQLRETURN fetched = statement.Fetch();
  if (fetched == SQL_ERROR) handleErrorMsgsODBC(session, statement.Get());
  const bool found = odbc::Succeeded(fetched);
  session.server().system_owner = found ? owner.Read() : std::u16string_view();
  return found;
}

void handleErrorMsgsODBC(const ImportSession& session, SQLHSTMT statement) {
  odbc::Diagnostic diagnostic;
  odbc::TakeDiagnostic(session.connection.henv(), session.connection.hdbc(), statement,
                       &diagnostic);
}

}  // namespace odbcimport::generic
