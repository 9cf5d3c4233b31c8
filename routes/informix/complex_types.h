// Reads what row and collection types are made of from Universal Server's catalog.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "importer/workbook/datatype.h"
#include "session/session.h"

namespace odbcimport::informix {

// The low byte of a physical code. Collections are SET, MULTISET, LIST and COLLECTION, rows are
// unnamed and named row types.
[[nodiscard]] bool IsCollectionCode(int physical_code);
[[nodiscard]] bool IsRowCode(int physical_code);
[[nodiscard]] inline bool IsComplexCode(int physical_code) {
  return IsCollectionCode(physical_code) || IsRowCode(physical_code);
}

// One statement per type and per nested type. Lives for one import.
class ComplexTypes {
 public:
  explicit ComplexTypes(const ImportSession& session) : session_(session) {}

  // Fills the type with the components of a row type, or with the base and the nested names of a
  // collection type. A failed query leaves it as it was. False, with what was read so far kept,
  // when the definition does not come to an end: a type that contains
  // itself, one nested beyond 64 levels, or one of more than 1,000 nested definitions. No server
  // makes such types, but a damaged catalog can, and following it would never end.
  [[nodiscard]] bool GetComplexType(long extended_id, LcWorkbookDatatype* type);

 private:
  struct Part;
  [[nodiscard]] bool GetComplexType(const std::u16string& sql, LcWorkbookDatatype* type);
  [[nodiscard]] bool AddComponent(const Part& part, LcWorkbookDatatype* type);
  [[nodiscard]] bool SetElement(const Part& part, LcWorkbookDatatype* type);
  const std::u16string& RegularTypeName(int physical_code);

  const ImportSession& session_;
  std::vector<int> path_;     // the ids being read, outermost first
  int definitions_read_ = 0;  // of the outermost type
  // The names of the built-in types by physical code, and the size that the list had then.
  std::array<std::u16string, 19> regular_names_;
  std::optional<std::size_t> regular_names_count_;
};

}  // namespace odbcimport::informix
