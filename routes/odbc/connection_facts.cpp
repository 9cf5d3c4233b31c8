// Facts about the connection: the server's name and version, its owners, its table types.
#include "routes/odbc/connection_facts.h"

#include "catalogues/text.h"
#include "importer/route.h"
#include "routes/odbc/catalog_statement.h"

namespace odbcimport {

void SetupDBMSNameODBC(ImportSession& session) {
  session.server.dbms_name = odbc::GetInfoText(session.hdbc(), SQL_DBMS_NAME);
}

void SetupDBMSVersionODBC(ImportSession& session) {
  const std::u16string version = odbc::GetInfoText(session.hdbc(), SQL_DBMS_VER);
  const std::size_t stop = version.find(u'.');
  // Without a full stop the text is no version (or there is none), and what was known stays.
  if (stop == std::u16string::npos) return;
  session.server.dbms_version =
      static_cast<std::int32_t>(ParseInteger(std::u16string_view(version).substr(0, stop)));
}

bool OwnerSupported(ImportSession& session) {
  if (!session.server.owner_support_known) SetupOwnerSupportedODBC(session);
  return session.server.owner_supported;
}

void SetupOwnerSupportedODBC(ImportSession& session) {
  session.server.owner_support_known = true;
  SQLUINTEGER usage = 0;
  const SQLRETURN result = odbc::GetInfoMask(session.hdbc(), SQL_OWNER_USAGE, &usage);
  session.server.owner_supported = odbc::Succeeded(result) && (usage & SQL_OU_DML_STATEMENTS) != 0;
}

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
      session.hdbc(),
      [&](odbc::Statement& call) {
        return call.Tables(CatalogArgument(session.choices), u"%", nullptr, u"'SYSTEM TABLE'");
      },
      [&](odbc::Statement& bind) { owner.Bind(bind, 2); });
  if (!odbc::Succeeded(opened) || session.WasImportStoppedOrCancelled()) return false;

  owner.Empty();
  const SQLRETURN fetched = statement.Fetch();
  if (fetched == SQL_ERROR) handleErrorMsgsODBC(session, statement.Get());
  const bool found = odbc::Succeeded(fetched);
  session.server.system_owner = found ? owner.Read() : std::u16string_view();
  return found;
}

void handleErrorMsgsODBC(const ImportSession& session, SQLHSTMT statement) {
  odbc::Diagnostic diagnostic;
  odbc::TakeDiagnostic(session.henv(), session.hdbc(), statement, &diagnostic);
}

}  // namespace odbcimport
