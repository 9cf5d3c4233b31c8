// How a catalogue of built-in functions gets into the workbook: one function per run of rows with
// the same name, one overload per row. Each catalogue lies in a file of its own, functions_*.cpp.
#pragma once

#include <span>
#include <string_view>

#include "session/session.h"

namespace odbcimport {

// One way of calling a built-in function. The texts live as long as the program.
struct FunctionRow {
  std::u16string_view name;
  std::u16string_view signature;
  std::u16string_view result;  // empty: not stated
};

// Appends a whole catalogue, without owners, to the session's function list and reports each row.
// `announced` is the count that is reported before, which need not be the number of rows: hosts
// know it as a constant of the catalogue. Functions that the list has already are not looked at.
// Without a target list nothing is reported or added.
//
// A name that differs from the one before, in more than upper and lower case, begins a new
// function. Required (functions_catalogues_test): a name that comes back after others makes a
// second function. The order of a catalogue stays visible, and the functions of a server's own
// catalog are merged into the first.
void AddSystemFunctions(ImportSession& session, std::span<const FunctionRow> rows,
                        unsigned long announced);

// The built-in functions of each kind of server.
void GetSystemFunctionsIUS(ImportSession& session);  // Informix Universal Server
void GetSystemFunctionsIDS(ImportSession& session);  // Informix Dynamic Server
void GetSystemFunctionsOracle(ImportSession& session);
void GetSystemFunctionsDB2(ImportSession& session);
void GetSystemFunctionsAccess(ImportSession& session);
void GetSystemFunctionsMSSQL(ImportSession& session);
void GetGeneralFunctionsRedBrick(ImportSession& session);

}  // namespace odbcimport
