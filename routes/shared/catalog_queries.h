// The catalog queries for names, for tables with their columns, and for synonyms, as SQL texts for
// every server whose catalog is read with own SQL. The native route uses them too.
//
// Pure functions of the choices and the server type (LeDBMSType as a number). Each gives a text, or
// none where it says so. Owners and names go in as they stand, without escaping. The blanks in the
// texts are as they have to be, odd ones included: servers log and cache statements by their text,
// and administrators' allow lists compare it.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "importer/workbook/import.h"

namespace odbcimport {

// None for any server: no server's text is known.
[[nodiscard]] std::optional<std::u16string> BuildOwnerNameQuery(const LcImportChoices& choices,
                                                                int server_type);

// Columns: owner, name, type as the server writes it. None without the bits for table and view
// names, and for servers without own SQL.
[[nodiscard]] std::optional<std::u16string> BuildTableViewNameQuery(const LcImportChoices& choices,
                                                                    int server_type);

// Columns, Informix: synonym id, base table id, server, database, base owner, base table, synonym
// name, synonym owner. Oracle: owner, name, table owner, table, database link. Red Brick: creator,
// name, table. None without the bit for synonym names, and for other servers.
[[nodiscard]] std::optional<std::u16string> BuildSynonymNameQuery(const LcImportChoices& choices,
                                                                  int server_type);

// Columns: name, type number. Of every table of the chosen single name, whoever owns it; Informix
// only.
[[nodiscard]] std::u16string BuildColumnNameQuery(const LcImportChoices& choices);

// Tables and views with their columns. The first six result columns are owner, table, table type,
// column and (Informix) COLTYPE, COLLENGTH, COLMIN, COLMAX, on Universal Server EXTENDED_ID, COLNO.
// None for servers without own SQL.
[[nodiscard]] std::optional<std::u16string> BuildTableColumnQuery(const LcImportChoices& choices,
                                                                  int server_type, bool is_ius);

// Local synonyms with the columns of their base tables, for Informix, Oracle and Red Brick; none
// for other servers.
[[nodiscard]] std::optional<std::u16string> BuildLocalSynonymQuery(const LcImportChoices& choices,
                                                                   int server_type, bool is_ius);

// The columns of a synonym's base table in another database. None for a synonym without database
// (Oracle: database link) or base table name, and for servers other than Informix and Oracle.
[[nodiscard]] std::optional<std::u16string> BuildRemoteSynonymQuery(int server_type,
                                                                    const LcTableInfo& synonym,
                                                                    bool remote_is_ius);

// A query with a row exactly when the Informix database is a Universal Server's. `server` may be
// empty: the database is on the connection's own server.
[[nodiscard]] std::u16string BuildRemoteIsIUSQuery(std::u16string_view server,
                                                   std::u16string_view database);

// The condition for the kinds of table to read, without the AND before it. Without tables it is the
// one for views, whatever `views` says. Empty for servers without own SQL.
[[nodiscard]] std::u16string_view GetTableTypeClause(int server_type, bool tables, bool views,
                                                     bool include_system);

// The pieces from which a caller puts together texts for a part of a long selection.

// Oracle reads tables and views from the view that the item mask asks for.
struct OracleColumnSource {
  std::u16string_view base;      // up to the last join condition
  const char16_t* catalog_view;  // for AddSpecificTablesAndViews
  std::u16string_view order_by;
};
[[nodiscard]] const OracleColumnSource& GetOracleColumnSource(const LcImportChoices& choices);

// What a local synonym query is made of: `base`, " AND (", one condition for each selected local
// synonym with " OR" between two, ")", `order_by`.
struct LocalSynonymPieces {
  std::u16string_view base;
  std::u16string_view name_condition;  // Oracle and Red Brick; empty for Informix
  std::u16string_view owner_condition;
  std::u16string_view order_by;
};
// Null for servers without a local synonym query.
[[nodiscard]] const LocalSynonymPieces* FindLocalSynonymPieces(int server_type, bool is_ius);
// Whether a selected entry is a synonym of a table in this database: on Informix by its base table
// id, elsewhere by having no database name.
[[nodiscard]] bool IsLocalSynonym(const LcTableInfo& entry, int server_type);
[[nodiscard]] std::size_t CountLocalSynonyms(const LcImportChoices& choices, int server_type);
// Appends the condition that selects one synonym.
void AppendSynonymCondition(const LocalSynonymPieces& pieces, const LcTableInfo& synonym,
                            std::u16string& sql);

}  // namespace odbcimport
