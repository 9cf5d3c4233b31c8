// Tables and decoders of Informix type numbers.
#include "routes/informix/type_numbers.h"

#include "base/ascii.h"
#include "base/text.h"

namespace odbcimport::informix {
namespace {

constexpr int kVarOpaque = 40;
constexpr int kFixedOpaque = 41;
constexpr long kNotNullBit = 256;

struct TypeNumber {
  int number;
  std::u16string_view name;
  enumDataType generic_code;
  enumDataTypeGroup group;
};

// clang-format off

// Required (decoders_test): INTERVAL is in the integer group. Hosts have stored named types with this
// group, and would see every one of them as changed.
constexpr TypeNumber kTypeNumbers[] = {
    { 0, u"char",        dtChar,        dgCharacter},
    { 1, u"smallint",    dtInteger,     dgInteger},
    { 2, u"integer",     dtInteger,     dgInteger},
    { 3, u"float",       dtFloat,       dgNumeric},
    { 4, u"smallfloat",  dtFloat,       dgNumeric},
    { 5, u"decimal",     dtDecimal,     dgNumeric},
    { 6, u"serial",      dtInteger,     dgInteger},
    { 7, u"date",        dtDate,        dgDateTime},
    { 8, u"money",       dtDecimal,     dgNumeric},
    { 9, u"null",        dtUnknown,     dgOther},
    {10, u"datetime",    dtTimestamp,   dgDateTime},
    {11, u"byte",        dtLongBinary,  dgLong},
    {12, u"text",        dtLongChar,    dgLong},
    {13, u"varchar",     dtChar,        dgCharacter},
    {14, u"interval",    dtTimestamp,   dgInteger},
    {15, u"nchar",       dtChar,        dgCharacter},
    {16, u"nvarchar",    dtChar,        dgCharacter},
    {17, u"int8",        dtInteger,     dgInteger},
    {18, u"serial8",     dtInteger,     dgInteger},
    {19, u"set",         dtSet,         dgCollection},
    {20, u"multiset",    dtMultiset,    dgCollection},
    {21, u"list",        dtList,        dgCollection},
    {22, u"row",         dtRow,         dgRow},
    {23, u"collection",  dtCollection,  dgCollection},
    {40, u"varopaque",   dtVarOpaque,   dgOpaque},
    {41, u"fixedopaque", dtFixedOpaque, dgOpaque},
};

// By qualifier code, 0 to 15; the odd codes below 11 stand for no unit.
constexpr enumIntervalPart kQualifierUnits[] = {
    ipYear,   ipNone, ipMonth,  ipNone,      ipDay,       ipNone,      ipHour,      ipNone,
    ipMinute, ipNone, ipSecond, ipFraction1, ipFraction2, ipFraction3, ipFraction4, ipFraction5,
};

// clang-format on

const TypeNumber* FindTypeNumber(int type_number) {
  for (const TypeNumber& type : kTypeNumbers) {
    if (type.number == (type_number & 0xFF)) return &type;
  }
  return nullptr;
}

enum class LargeObject { kNone, kBinary, kCharacter };

LargeObject FindLargeObject(const TypeNumber& type, const char16_t* extended_name) {
  const bool opaque = type.number == kVarOpaque || type.number == kFixedOpaque;
  if (!opaque || extended_name == nullptr) return LargeObject::kNone;
  if (base::EqualIgnoringCase(extended_name, u"BLOB")) return LargeObject::kBinary;
  if (base::EqualIgnoringCase(extended_name, u"CLOB")) return LargeObject::kCharacter;
  return LargeObject::kNone;
}

}  // namespace

std::optional<std::u16string_view> ConvertIUSTypeCodeToTypeName(int type_number) {
  const TypeNumber* type = FindTypeNumber(type_number);
  return type != nullptr ? std::optional(type->name) : std::nullopt;
}

enumDataType ConvertIUSPhyCodeToGenericCode(int type_number, const char16_t* extended_name) {
  const TypeNumber* type = FindTypeNumber(type_number);
  if (type == nullptr) return dtUnknown;
  switch (FindLargeObject(*type, extended_name)) {
    case LargeObject::kBinary:
      return dtLongBinary;
    case LargeObject::kCharacter:
      return dtLongChar;
    default:
      return type->generic_code;
  }
}

enumDataTypeGroup ConvertIUSPhyCodeToTypeGroup(int type_number, const char16_t* extended_name) {
  const TypeNumber* type = FindTypeNumber(type_number);
  if (type == nullptr) return dgOther;
  return FindLargeObject(*type, extended_name) == LargeObject::kNone ? type->group : dgLong;
}

std::uint16_t ComputeInformixScale(long coltype, long collength) {
  const long type = coltype & 0xFF;
  return type == 5 || type == 8 ? static_cast<std::uint16_t>(collength % 256) : 0;
}

// The numbers for types without a length of their own are this module's convention, kept because
// hosts compare them (FLOAT in bits, SMALLFLOAT and DATETIME in bytes).
std::uint32_t ComputeInformixPrecision(long coltype, long collength) {
  switch (coltype & 0xFF) {
    case 1:  // SMALLINT
      return 2;
    case 2:  // INTEGER
    case 6:  // SERIAL
    case 7:  // DATE
      return 4;
    case 3:  // FLOAT
      return 64;
    case 4:   // SMALLFLOAT
    case 10:  // DATETIME
      return 8;
    case 5:  // DECIMAL
    case 8:  // MONEY
      return static_cast<std::uint32_t>(collength / 256);
    case 13:  // VARCHAR
      // A server packs the reserved space of VARCHAR(n, r) above 8 bits. Required (decoders_test):
      // it is cut above 11, and hosts have stored the precisions that come of it.
      return static_cast<std::uint32_t>(collength >= 0 && collength <= 2048 ? collength
                                                                            : collength % 2048);
    default:
      return static_cast<std::uint32_t>(collength);
  }
}

bool ComputeInformixNoNull(long coltype) { return (coltype & kNotNullBit) != 0; }

enumIntervalPart ComputeInformixIntervalPart(int qualifier_code) {
  if (qualifier_code < 0 || qualifier_code > 15) return ipNone;
  return kQualifierUnits[qualifier_code];
}

}  // namespace odbcimport::informix
