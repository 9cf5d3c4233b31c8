// The kinds of types that have a counterpart among the workbook's codes. Which name of a server is
// of which kind is said by its dialect.
#pragma once

#include <string_view>

#include "catalogues/physical_codes.h"
#include "importer/workbook/enums.h"

namespace odbcimport::exact {

struct TypeKind {
  std::string_view name;
  LePhysicalCode physical_code;
  enumDataType generic_code;
  enumDataTypeGroup group;
  bool is_long;
  bool size_modifiable;
};

// Null where there is no such kind.
[[nodiscard]] const TypeKind* FindTypeKind(std::string_view name);

// What a type without a counterpart is: something only its server knows, under the server's name.
extern const TypeKind kOpaqueKind;
extern const TypeKind kCollectionKind;  // an array
extern const TypeKind kRowKind;         // a composite type

}  // namespace odbcimport::exact
