// Conversions between what a catalog says of a type and the workbook's three codes: the physical
// code, the generic code and the type group.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "catalogues/physical_codes.h"
#include "importer/workbook/datatype.h"
#include "session/session.h"

namespace odbcimport {

// The low 16 bits of a number, as an unsigned one.
[[nodiscard]] constexpr std::uint16_t CutTo16Bits(long value) {
  return static_cast<std::uint16_t>(value);
}

// ODBC SQL type code to physical code; 0 (CHAR) for a code that is not mapped.
[[nodiscard]] std::uint16_t MapDataType(const ServerFacts& server, long odbc_type);
// A server's type name (Informix: its type number as text) to physical code; despite its name no
// ODBC type code. None for a name that is not known, which most readers take for CHAR.
[[nodiscard]] std::optional<std::uint16_t> ConvertDatabaseTypeToODBC(std::u16string_view type_name,
                                                                     int dbms_type);
[[nodiscard]] enumDataType MapInternalCodeToType(int physical_code);
[[nodiscard]] enumDataTypeGroup MapTypeToGroup(enumDataType generic_code);
// The kind of table that a catalog's text stands for.
[[nodiscard]] enumTableType GetTableType(std::u16string_view text, int dbms_type);

// A new type for a code: an ODBC SQL type code when `map_from_odbc`, else a physical code. Looked
// up by the server's extended id first, when that is not 0. Null when no list has the type.
[[nodiscard]] std::unique_ptr<LcWorkbookDatatype> CreateDataType(ImportSession& session,
                                                                 long type_code, bool map_from_odbc,
                                                                 long extended_id);

}  // namespace odbcimport
