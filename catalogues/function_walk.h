// How a catalogue of built-in functions gets into the workbook: one function per run of rows with
// the same name, one overload per row.
#pragma once

#include <span>
#include <string>

#include "importer/session.h"

namespace odbcimport {

// One overload. All texts are UTF-16 and end with a zero; none is null.
struct FunctionRow {
  const char16_t* name;
  const char16_t* signature;
  const char16_t* result;  // empty: not known
};

// Adds rows one by one, for a catalogue that makes its rows from sequences of types. Without a
// target list for functions nothing is reported or added.
class FunctionWalk {
 public:
  // Reports the beginning with `announced`, which need not be the number of rows: hosts know it as
  // a constant of the catalogue. `owner` owns every function of the catalogue.
  FunctionWalk(ImportSession& session, unsigned long announced, const char16_t* owner = u"");
  FunctionWalk(const FunctionWalk&) = delete;
  FunctionWalk& operator=(const FunctionWalk&) = delete;

  // A name that differs from the one before, in more than upper and lower case, begins a new
  // function. A name that comes back after others therefore makes a second function, deliberately:
  // the order of a catalogue stays visible, and the functions of a server's own catalog are merged
  // into the first.
  void Add(const char16_t* name, const char16_t* signature, const char16_t* result);
  void End();

 private:
  ImportSession& session_;
  const char16_t* const owner_;
  std::u16string name_;
  LcWorkbookFunction* function_ = nullptr;  // null before the first row
};

// Walks a whole catalogue. Always true.
bool AddSystemFunctions(ImportSession& session, std::span<const FunctionRow> rows,
                        unsigned long announced, const char16_t* owner = u"");

}  // namespace odbcimport
