// The catalog queries for names, for tables with their columns, and for synonyms, as SQL texts for
// every server whose catalog is read with own SQL. The native route uses them too.
//
// Pure functions of the choices and the server type (LeDBMSType as a number). Each replaces `text`
// and returns true, or returns false and leaves it alone. Owners and names go in as they stand,
// without escaping. The blanks in the texts are as they have to be, odd ones included: servers log
// and cache statements by their text, and administrators' allow lists compare it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "importer/workbook/import.h"

namespace odbcimport {

// Builds nothing for any server and returns false: no server's text is known, and callers run
// whatever `text` holds.
bool BuildOwnerNameQuery(const LcImportChoices& choices, std::u16string& text, int server_type);

// Columns: owner, name, type as the server writes it. False without the bits for table and view
// names, and for servers without own SQL.
bool BuildTableViewNameQuery(const LcImportChoices& choices, std::u16string& text, int server_type);

// Columns, Informix: synonym id, base table id, server, database, base owner, base table, synonym
// name, synonym owner. Oracle: owner, name, table owner, table, database link. Red Brick: creator,
// name, table. False without the bit for synonym names, and for other servers.
bool BuildSynonymNameQuery(const LcImportChoices& choices, std::u16string& text, int server_type);

// Columns: name, type number. Of every table of the chosen single name, whoever owns it; Informix
// only.
void BuildColumnNameQuery(const LcImportChoices& choices, std::u16string& text);

// Tables and views with their columns. The first six result columns are owner, table, table type,
// column and (Informix) COLTYPE, COLLENGTH, COLMIN, COLMAX, on Universal Server EXTENDED_ID, COLNO.
// False for servers without own SQL.
bool BuildTableColumnQuery(const LcImportChoices& choices, std::u16string& text, int server_type,
                           bool is_ius);

// Local synonyms with the columns of their base tables, for Informix, Oracle and Red Brick.
bool BuildLocalSynonymQuery(const LcImportChoices& choices, std::u16string& text, int server_type,
                            bool is_ius);

// The columns of a synonym's base table in another database. False for a synonym without database
// (Oracle: database link) or base table name, and for servers other than Informix and Oracle.
bool BuildRemoteSynonymQuery(std::u16string& text, int server_type, const LcTableInfo& synonym,
                             bool remote_is_ius);

// A query with a row exactly when the Informix database is a Universal Server's. `server` may be
// empty: the database is on the connection's own server.
void BuildRemoteIsIUSQuery(std::u16string& text, std::u16string_view server,
                           std::u16string_view database);

// The condition for the kinds of table to read, without the AND before it. Without tables it is the
// one for views, whatever `views` says. Empty for servers without own SQL.
std::u16string_view GetTableTypeClause(int server_type, bool tables, bool views,
                                       bool include_system);

// The pieces from which a caller puts together texts for a part of a long selection.

// Oracle reads tables and views from the view that the item mask asks for.
struct OracleColumnSource {
  std::u16string_view base;      // up to the last join condition
  const char16_t* catalog_view;  // for AddSpecificTablesAndViews
  std::u16string_view order_by;
};
const OracleColumnSource& GetOracleColumnSource(const LcImportChoices& choices);

// What a local synonym query is made of: `base`, " AND (", one condition for each selected local
// synonym with " OR" between two, ")", `order_by`.
struct LocalSynonymPieces {
  std::u16string_view base;
  std::u16string_view name_condition;  // Oracle and Red Brick; empty for Informix
  std::u16string_view owner_condition;
  std::u16string_view order_by;
};
// Null for servers without a local synonym query.
const LocalSynonymPieces* FindLocalSynonymPieces(int server_type, bool is_ius);
// Whether a selected entry is a synonym of a table in this database: on Informix by its base table
// id, elsewhere by having no database name.
bool IsLocalSynonym(const LcTableInfo& entry, int server_type);
std::size_t CountLocalSynonyms(const LcImportChoices& choices, int server_type);
// Appends the condition that selects one synonym.
void AppendSynonymCondition(const LocalSynonymPieces& pieces, const LcTableInfo& synonym,
                            std::u16string& sql);

}  // namespace odbcimport
