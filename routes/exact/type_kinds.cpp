// The kinds of types and their codes.
#include "routes/exact/type_kinds.h"

#include <array>

namespace odbcimport::exact {
namespace {

// The same codes and groups as in the hard-coded list of built-in types, integers in the numeric
// group among them: hosts choose the editor of a literal by it.
// clang-format off
constexpr std::array<TypeKind, 20> kTypeKinds = {{
    {"BIT",           pcBit,           dtInteger,    dgNumeric,   false, false},
    {"TINYINT",       pcTinyInt,       dtInteger,    dgNumeric,   false, false},
    {"SMALLINT",      pcSmallInt,      dtInteger,    dgNumeric,   false, false},
    {"INTEGER",       pcInteger,       dtInteger,    dgNumeric,   false, false},
    {"BIGINT",        pcBigInt,        dtInteger,    dgNumeric,   false, false},
    {"REAL",          pcReal,          dtFloat,      dgNumeric,   false, false},
    {"FLOAT",         pcFloat,         dtFloat,      dgNumeric,   false, false},
    {"DOUBLE",        pcDouble,        dtFloat,      dgNumeric,   false, false},
    {"DECIMAL",       pcDecimal,       dtDecimal,    dgNumeric,   false, true},
    {"NUMERIC",       pcNumeric,       dtDecimal,    dgNumeric,   false, true},
    {"CHAR",          pcChar,          dtChar,       dgCharacter, false, true},
    {"VARCHAR",       pcVarChar,       dtChar,       dgCharacter, false, true},
    {"LONGVARCHAR",   pcLongVarChar,   dtLongChar,   dgLong,      true,  false},
    {"BINARY",        pcBinary,        dtBinary,     dgBinary,    false, false},
    {"VARBINARY",     pcVarBinary,     dtBinary,     dgBinary,    false, false},
    {"LONGVARBINARY", pcLongVarBinary, dtLongBinary, dgLong,      true,  false},
    {"DATE",          pcDate,          dtDate,       dgDateTime,  false, false},
    {"TIME",          pcTime,          dtTime,       dgDateTime,  false, false},
    {"TIMESTAMP",     pcDateTime,      dtTimestamp,  dgDateTime,  false, false},
    {"INTERVAL",      pcInterval,      dtInterval,   dgDateTime,  false, false},
}};
// clang-format on

}  // namespace

const TypeKind kOpaqueKind = {"opaque", pcVarOpaque, dtVarOpaque, dgOpaque, false, false};
const TypeKind kCollectionKind = {"collection", pcCollection, dtCollection,
                                  dgCollection, false,        false};
const TypeKind kRowKind = {"row", pcNamedRow, dtRow, dgRow, false, false};

const TypeKind* FindTypeKind(std::string_view name) {
  for (const TypeKind& kind : kTypeKinds) {
    if (kind.name == name) return &kind;
  }
  return nullptr;
}

}  // namespace odbcimport::exact
