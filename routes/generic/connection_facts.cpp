// Facts about the connection.
#include "routes/generic/connection_facts.h"

#include "base/text.h"
#include "routes/generic/catalog_statement.h"

namespace odbcimport::generic {

void SetupTableTypesODBC(const LcImportChoices& choices, BoundText& type_list) {
  const auto add = [&type_list](std::u16string_view type) {
    if (!type_list.IsEmpty()) type_list.Append(u",");
    type_list.Append(type);
  };
  const bool tables = (choices.item_mask & (ibTableNames | ibTables)) != 0;
  type_list.Empty();
  if (tables) add(u"'TABLE'");
  if ((choices.item_mask & (ibViewNames | ibViews)) != 0) add(u"'VIEW'");
  if (choices.include_system && tables) add(u"'SYSTEM TABLE'");
}

void GetSystemOwnerODBC(ImportSession& session) {
  BoundText owner;
  CatalogStatement statement;
  const SQLRETURN opened = statement.Open(
      session.connection.hdbc(),
      [&](odbc::Statement& call) {
        return call.Tables(CatalogArgument(session.choices), u"%", nullptr, u"'SYSTEM TABLE'");
      },
      [&](odbc::Statement& bind) { owner.Bind(bind, 2); });
  if (!odbc::Succeeded(opened) || session.progress.WasImportStoppedOrCancelled()) return;

  owner.Empty();
  const SQLRETURN fetched = statement.Fetch();
  if (fetched == SQL_ERROR) handleErrorMsgsODBC(session, statement.Get());
  session.server().system_owner = odbc::Succeeded(fetched) ? owner.Read() : std::u16string_view();
}

void handleErrorMsgsODBC(const ImportSession& session, SQLHSTMT statement) {
  odbc::Diagnostic diagnostic;
  static_cast<void>(odbc::TakeDiagnostic(session.connection.henv(), session.connection.hdbc(),
                                         statement, &diagnostic));
}

}  // namespace odbcimport::generic
