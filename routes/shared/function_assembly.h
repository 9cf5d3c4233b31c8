// Puts functions with their overloads together from the rows of the catalog queries.
#pragma once

#include "odbc/record_list.h"
#include "session/session.h"

namespace odbcimport {

// What distinguishes the two readings of Informix rows.
struct InformixAssembly {
  enumImpNotify item;   // reported for each row
  bool with_overloads;  // whether parameter texts make overloads
  bool merge;           // add to a function that the list has under the same owner and name
};

// Informix rows: 1 owner, 2 name, 3 parameter text (may be missing). Sorts them by all three, case
// ignored; a row gives at most one overload.
void AssembleFunctionsInformix(const ImportSession& session, const LcODBCRecordList& rows,
                               const InformixAssembly& how, LcWorkbookFunctionList& functions);

// DB2 rows, one per parameter: 1 schema, 2 name, 3 parameter count, 4 ordinal, 5 type name. Takes
// them in the server's order, grouped by count alone. Required (functions_reading_test): overloads
// of a schema arrive interleaved by ordinal, and nothing in a row tells them apart.
void AssembleFunctionsDB2(const ImportSession& session, const LcODBCRecordList& rows,
                          LcWorkbookFunctionList& functions);

}  // namespace odbcimport
