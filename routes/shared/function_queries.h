// The catalog queries for functions, aggregates and procedures. Pure functions of the choices and
// the server type; the owner goes into a text as it stands, without escaping.
//
// None where the server has no such catalog.
#pragma once

#include <optional>
#include <string>

#include "importer/workbook/import.h"

namespace odbcimport {

// Functions of exactly two parameters. Informix: owner, name and, on Universal Server, the text of
// the parameters. DB2: a row per parameter with schema, name, parameter count, ordinal, type name.
[[nodiscard]] std::optional<std::u16string> BuildBooleanFunctionsQuery(
    const LcImportChoices& choices, LeDBMSType dbms_type, bool is_ius);
// All other functions, in the same columns; without the third on Informix Dynamic Server.
[[nodiscard]] std::optional<std::u16string> BuildGeneralFunctionsQuery(
    const LcImportChoices& choices, LeDBMSType dbms_type, bool is_ius);
// Names of the users' aggregates, which Informix Universal Server alone lists.
[[nodiscard]] std::optional<std::u16string> BuildAggregateQuery(const LcImportChoices& choices,
                                                                LeDBMSType dbms_type, bool is_ius);
// Owner and name of the stored procedures (Oracle: the object's type too).
[[nodiscard]] std::optional<std::u16string> BuildProcedureQuery(const LcImportChoices& choices,
                                                                int dbms_type);
// One row for each Informix table of that name, of any owner when `owner` is empty.
[[nodiscard]] std::optional<std::u16string> BuildTableExistsQuery(const std::u16string& owner,
                                                                  const std::u16string& table,
                                                                  int dbms_type);

}  // namespace odbcimport
