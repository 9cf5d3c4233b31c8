// The catalog queries for functions, aggregates and procedures. Pure functions of the choices and
// the server type; the owner goes into a text as it stands, without escaping.
//
// Each writes `query` and returns true, or returns false with `query` left alone where the server
// has no such catalog.
#pragma once

#include <string>

#include "importer/workbook/import.h"

namespace odbcimport {

// Functions of exactly two parameters. Informix: owner, name and, on Universal Server, the text of
// the parameters. DB2: a row per parameter with schema, name, parameter count, ordinal, type name.
bool BuildBooleanFunctionsQuery(const LcImportChoices& choices, std::u16string& query,
                                LeDBMSType dbms_type, bool is_ius);
// All other functions, in the same columns; without the third on Informix Dynamic Server.
bool BuildGeneralFunctionsQuery(const LcImportChoices& choices, std::u16string& query,
                                LeDBMSType dbms_type, bool is_ius);
// Names of the users' aggregates, which Informix Universal Server alone lists.
bool BuildAggregateQuery(const LcImportChoices& choices, std::u16string& query,
                         LeDBMSType dbms_type, bool is_ius);
// Owner and name of the stored procedures (Oracle: the object's type too).
bool BuildProcedureQuery(const LcImportChoices& choices, std::u16string& query, int dbms_type);
// One row for each Informix table of that name, of any owner when `owner` is empty.
bool BuildTableExistsQuery(const std::u16string& owner, const std::u16string& table,
                           std::u16string& query, int dbms_type);

}  // namespace odbcimport
