// What an Informix type number says: names and codes for it, and the decoders of the two integers,
// COLTYPE and COLLENGTH, with which the catalog describes a column. Pure functions. The type is the
// low byte of a number; the bits above it tell of null values and of distinct types.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "importer/workbook/enums.h"

namespace odbcimport::informix {

// Physical codes below that of SERIAL belong to plain built-in types.
[[nodiscard]] constexpr bool IsRegularDataType(int physical_code) { return physical_code < 19; }

// What a number that stands for no type is called.
inline constexpr std::u16string_view kUnknownTypeName = u"UNKNOWN";

// None for a number that stands for no type. The text lives as long as the program.
[[nodiscard]] std::optional<std::u16string_view> ConvertIUSTypeCodeToTypeName(int type_number);
// `extended_name` is the name of the type in the catalog, null when it has none: BLOB and CLOB are
// opaque types by number and large objects by name.
[[nodiscard]] enumDataType ConvertIUSPhyCodeToGenericCode(int type_number,
                                                          const char16_t* extended_name);
[[nodiscard]] enumDataTypeGroup ConvertIUSPhyCodeToTypeGroup(int type_number,
                                                             const char16_t* extended_name);

// Digits after the decimal point of DECIMAL and MONEY; 0 for other types. A negative length gives a
// negative remainder, cut to 16 bits.
[[nodiscard]] std::uint16_t ComputeInformixScale(long coltype, long collength);
// Digits, bytes or characters, in the unit of the type.
[[nodiscard]] std::uint32_t ComputeInformixPrecision(long coltype, long collength);
// Whether the column refuses null values.
[[nodiscard]] bool ComputeInformixNoNull(long coltype);
// The unit of a qualifier code of DATETIME and INTERVAL; ipNone for a code that stands for none.
[[nodiscard]] enumIntervalPart ComputeInformixIntervalPart(int qualifier_code);

}  // namespace odbcimport::informix
