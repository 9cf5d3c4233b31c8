// Conversions between what a catalog says of a type and the workbook's three codes.
#include "catalogues/conversions.h"

#include <array>
#include <span>

#include "base/ascii.h"
#include "base/text.h"
#include "catalogues/type_lists.h"

namespace odbcimport {
namespace {

struct NamedType {
  std::u16string_view name;
  LePhysicalCode code;
};

struct NumberedType {
  int number;
  LePhysicalCode code;
};

struct GenericType {
  LePhysicalCode code;
  enumDataType generic_code;
};

struct TableKind {
  LeDBMSType server;
  std::u16string_view text;
  bool any_case;
  enumTableType type;
};

// clang-format off

// By the numbers of syscolumns.coltype. Required: some types go to a code of another type although the
// Informix list has one of their own (smallfloat, byte, text, nchar, nvarchar). The smallfloat is in
// conversions_test, the others are in the outlines of the Informix route_test.
constexpr NumberedType kInformixTypes[] = {
    { 0, pcChar},          // char
    { 1, pcSmallInt},      // smallint
    { 2, pcInteger},       // integer
    { 3, pcFloat},         // float
    { 4, pcReal},          // smallfloat
    { 5, pcDecimal},       // decimal
    { 6, pcSerial},        // serial
    { 7, pcDate},          // date
    { 8, pcMoney},         // money
    {10, pcDateTime},      // datetime
    {11, pcLongVarBinary}, // byte
    {12, pcLongVarChar},   // text
    {13, pcVarChar},       // varchar
    {14, pcInterval},      // interval
    {15, pcChar},          // nchar
    {16, pcVarChar},       // nvarchar
    {17, pcBigInt},        // int8
    {18, pcSerial8},       // serial8
    {19, pcSet},           // set
    {20, pcMultiset},      // multiset
    {21, pcList},          // list
    {22, pcRow},           // row
    {23, pcCollection},    // collection
    {24, pcInformix24},    // has no name
    {40, pcVarOpaque},     // varopaque
    {41, pcFixedOpaque},   // fixedopaque
};
constexpr long kInformixNamedRow = 4118;

constexpr NamedType kSQLServerTypes[] = {
    {u"int",              pcInteger},
    {u"char",             pcChar},
    {u"sysname",          pcChar},
    {u"nchar",            pcNChar},
    {u"varchar",          pcVarChar},
    {u"nvarchar",         pcVarChar},
    {u"numeric",          pcNumeric},
    {u"numericn",         pcNumeric},
    {u"decimal",          pcDecimal},
    {u"decimaln",         pcDecimal},
    {u"datetime",         pcDateTime},
    {u"tinyint",          pcTinyInt},
    {u"int identity",     pcInteger},
    {u"intn",             pcInteger},
    {u"bit",              pcBit},
    {u"datetimen",        pcDateTime},
    {u"float",            pcFloat},
    {u"floatn",           pcFloat},
    {u"image",            pcBlob},
    {u"money",            pcMoney},
    {u"moneyn",           pcMoney},
    {u"smalldatetime",    pcSmallDateTime},
    {u"real",             pcReal},
    {u"smallint",         pcSmallInt},
    {u"binary",           pcBinary},
    {u"varbinary",        pcVarBinary},
    {u"smallmoney",       pcSmallMoney},
    {u"text",             pcText},
    {u"ntext",            pcNText},
    {u"timestamp",        pcServerTimestamp},
    {u"uniqueidentifier", pcUniqueIdentifier},
};

constexpr NamedType kOracleTypes[] = {
    {u"Char",             pcChar},
    {u"Varchar2",         pcVarChar},
    {u"Number",           pcNumeric},
    {u"Date",             pcDate},
    {u"Long",             pcLongVarChar},
    {u"Raw",              pcBinary},
    {u"LongRaw",          pcLongVarBinary},
    {u"LONG RAW",         pcLongVarBinary},
    {u"Float",            pcFloat},
    {u"Rowid",            pcRowId},
    {u"Mlslabel",         pcMlsLabel},
    {u"Blob",             pcBlob},
    {u"Clob",             pcClob},
};

// Required (conversions_test): TIME and TIMESTAMP are one code higher than on other servers, and CLOB
// is LONG VARCHAR although the hard-coded list files it under another code.
constexpr NamedType kDB2Types[] = {
    {u"SMALLINT",         pcSmallInt},
    {u"INTEGER",          pcInteger},
    {u"DECIMAL",          pcDecimal},
    {u"DOUBLE",           pcDouble},
    {u"CHARACTER",        pcChar},
    {u"VARCHAR",          pcVarChar},
    {u"LONG VARCHAR",     pcLongVarChar},
    {u"CLOB",             pcLongVarChar},
    {u"DATE",             pcDate},
    {u"TIME",             pcDateTime},
    {u"TIMESTAMP",        pcBinary},
    {u"BOOLEAN",          pcBit},
    {u"BLOB",             pcBlob},
    {u"REAL",             pcReal},
    {u"REFERENCE",        pcBinary},
    {u"DATALINK",         pcBinary},
    {u"BIGINT",           pcBigInt},
};

constexpr NamedType kRedBrickTypes[] = {
    {u"CHARACTER",        pcChar},
    {u"CHAR",             pcChar},
    {u"VARCHARACTER",     pcVarChar},
    {u"VARCHAR",          pcVarChar},
    {u"DATE",             pcDate},
    {u"TIME",             pcTime},
    {u"TIMESTAMP",        pcServerTimestamp},
    {u"INTEGER",          pcInteger},
    {u"INT",              pcInteger},
    {u"SMALLINT",         pcSmallInt},
    {u"TINYINT",          pcTinyInt},
    {u"FLOAT",            pcFloat},
    {u"DOUBLE",           pcDouble},
    {u"REAL",             pcReal},
    {u"DECIMAL",          pcDecimal},
    {u"NUMERIC",          pcDecimal},
};

// Required (conversions_test): the last nine have no generic code. Types made from catalog rows with
// these codes go to the group "other"; the hard-coded lists give them generic codes of their own.
constexpr GenericType kGenericTypes[] = {
    {pcChar,              dtChar},
    {pcNumeric,           dtInteger},
    {pcDecimal,           dtDecimal},
    {pcInteger,           dtInteger},
    {pcSmallInt,          dtInteger},
    {pcFloat,             dtFloat},
    {pcReal,              dtFloat},
    {pcDouble,            dtFloat},
    {pcVarChar,           dtChar},
    {pcLongVarChar,       dtLongChar},
    {pcBit,               dtInteger},
    {pcTinyInt,           dtInteger},
    {pcBigInt,            dtBigInt},
    {pcVarBinary,         dtBinary},
    {pcLongVarBinary,     dtLongBinary},
    {pcDate,              dtDate},
    {pcTime,              dtTime},
    {pcDateTime,          dtTimestamp},
    {pcBinary,            dtBinary},
    {pcSerial,            dtSerial},
    {pcInterval,          dtInterval},
    {pcSerial8,           dtSerial},
    {pcVarOpaque,         dtVarOpaque},
    {pcFixedOpaque,       dtFixedOpaque},
    {pcSet,               dtSet},
    {pcMultiset,          dtMultiset},
    {pcList,              dtList},
    {pcRow,               dtRow},
    {pcCollection,        dtCollection},
    {pcInformix24,        dtRow},
    {pcNamedRow,          dtRow},
    {pcSmallFloat,        dtFloat},
    {pcMoney,             dtMoney},
    {pcByte,              dtBinary},
    {pcText,              dtLongChar},
    {pcBlob,              dtLongBinary},
    {pcClob,              dtLongBinary},
    {pcNChar,             dtChar},
    {pcNVarChar,          dtChar},
    {pcSpare58,           dtBigInt},
    {pcServerTimestamp,   dtUnknown},
    {pcSmallMoney,        dtUnknown},
    {pcSmallDateTime,     dtUnknown},
    {pcUniqueIdentifier,  dtUnknown},
    {pcNText,             dtUnknown},
    {pcRowId,             dtUnknown},
    {pcMlsLabel,          dtUnknown},
    {pcNClob,             dtUnknown},
    {pcBFile,             dtUnknown},
};

// From SQL_BIT (-7) to SQL_VARCHAR (12).
constexpr LePhysicalCode kCodesOfODBCTypes[] = {
    pcBit,           // SQL_BIT
    pcTinyInt,       // SQL_TINYINT
    pcBigInt,        // SQL_BIGINT
    pcLongVarBinary, // SQL_LONGVARBINARY
    pcVarBinary,     // SQL_VARBINARY
    pcBinary,        // SQL_BINARY
    pcLongVarChar,   // SQL_LONGVARCHAR
    pcChar,          // SQL_UNKNOWN_TYPE
    pcChar,          // SQL_CHAR
    pcNumeric,       // SQL_NUMERIC
    pcDecimal,       // SQL_DECIMAL
    pcInteger,       // SQL_INTEGER
    pcSmallInt,      // SQL_SMALLINT
    pcFloat,         // SQL_FLOAT
    pcReal,          // SQL_REAL
    pcDouble,        // SQL_DOUBLE
    pcDate,          // SQL_DATE
    pcTime,          // SQL_TIME
    pcDateTime,      // SQL_TIMESTAMP
    pcVarChar,       // SQL_VARCHAR
};
constexpr long kFirstODBCType = -7;

constexpr TableKind kTableKinds[] = {
    {dbmsInformix,    u"VIEW",    false, ttView},
    {dbmsInformix,    u"V",       true,  ttView},
    {dbmsMSSQLServer, u"V",       false, ttView},
    {dbmsOracle,      u"VIEW",    false, ttView},
    {dbmsDB2,         u"V",       true,  ttView},
    {dbmsRedBrick,    u"VIEW",    false, ttView},
    {dbmsRedBrick,    u"SYNONYM", false, ttSynonym},
};

// clang-format on

constexpr long kSQLReal = 7;
constexpr long kSQLDouble = 8;
constexpr long kSQLTime = 10;
constexpr long kSQLIntervalYear = 101;
constexpr long kSQLIntervalMinuteToSecond = 113;

constexpr auto kGenericByCode = [] {
  std::array<enumDataType, pcBFile + 1> codes{};  // dtUnknown where the table has no row
  for (const GenericType& row : kGenericTypes) codes[row.code] = row.generic_code;
  return codes;
}();

std::span<const NamedType> TypeNamesOf(int dbms_type) {
  switch (dbms_type) {
    case dbmsMSSQLServer:
      return kSQLServerTypes;
    case dbmsOracle:
      return kOracleTypes;
    case dbmsDB2:
      return kDB2Types;
    case dbmsRedBrick:
      return kRedBrickTypes;
    default:
      // Required (conversions_test): Sybase too, although it has the type list of SQL Server.
      return {};
  }
}

std::optional<std::uint16_t> ConvertInformixType(long number) {
  if (number == kInformixNamedRow) return pcNamedRow;
  // The bits above the low byte tell of null values and of distinct and host types.
  if (number > 256) number &= 0xFF;
  for (const NumberedType& row : kInformixTypes) {
    if (row.number == number) return static_cast<std::uint16_t>(row.code);
  }
  return std::nullopt;
}

// The built-in Informix types that a catalog reports and a type list can lack.
LcWorkbookDatatype* AddMissingType(std::uint16_t code, LcWorkbookDatatypeList& list) {
  if (code != pcSerial && code != pcInterval) return nullptr;
  auto type = std::make_unique<LcWorkbookDatatype>();
  type->SetPhysicalCode(code);
  type->SetGenericCode(code == pcSerial ? dtSerial : dtInterval);
  type->SetTypeGroup(code == pcSerial ? dgNumeric : dgDateTime);
  type->SetTypeName(code == pcSerial ? u"serial" : u"interval");
  LcWorkbookDatatype* added = type.get();
  list.AddDataType(type.release());
  return added;
}

}  // namespace

std::uint16_t MapDataType(const ServerFacts& server, long odbc_type) {
  if (server.dbms_type == dbmsInformix && server.is_ius) {
    if (odbc_type == kSQLReal || odbc_type == kSQLDouble) return pcFloat;
    if (odbc_type == kSQLTime) return pcDateTime;
  }
  if (odbc_type >= kSQLIntervalYear && odbc_type <= kSQLIntervalMinuteToSecond) return pcInterval;
  // Codes that are not known, the wide character types and the dates of ODBC 3 among them, become
  // CHAR. Required (conversions_test): a column keeps a type that way.
  const long last = kFirstODBCType + static_cast<long>(std::size(kCodesOfODBCTypes)) - 1;
  if (odbc_type < kFirstODBCType || odbc_type > last) return pcChar;
  return static_cast<std::uint16_t>(kCodesOfODBCTypes[odbc_type - kFirstODBCType]);
}

std::optional<std::uint16_t> ConvertDatabaseTypeToODBC(std::u16string_view type_name,
                                                       int dbms_type) {
  if (dbms_type == dbmsInformix) return ConvertInformixType(base::ParseInteger(type_name));
  for (const NamedType& row : TypeNamesOf(dbms_type)) {
    if (base::EqualIgnoringCase(row.name, type_name)) return static_cast<std::uint16_t>(row.code);
  }
  return std::nullopt;
}

enumDataType MapInternalCodeToType(int physical_code) {
  if (physical_code < 0 || physical_code > pcBFile) return dtUnknown;
  return kGenericByCode[static_cast<std::size_t>(physical_code)];
}

enumDataTypeGroup MapTypeToGroup(enumDataType generic_code) {
  switch (generic_code) {
    case dtChar:
      return dgCharacter;
    case dtDecimal:
    case dtFloat:
    case dtSerial:
    case dtMoney:
      return dgNumeric;
    case dtInteger:
    case dtBigInt:
      return dgInteger;
    case dtBinary:
      return dgBinary;
    case dtDate:
    case dtTime:
    case dtTimestamp:
    case dtInterval:
      return dgDateTime;
    case dtLongChar:
    case dtLongBinary:
      return dgLong;
    case dtRow:
      return dgRow;
    case dtCollection:
    case dtList:
    case dtSet:
    case dtMultiset:
      return dgCollection;
    case dtFixedOpaque:
    case dtVarOpaque:
      return dgOpaque;
    default:
      return dgOther;
  }
}

enumTableType GetTableType(std::u16string_view text, int dbms_type) {
  for (const TableKind& row : kTableKinds) {
    if (row.server != dbms_type) continue;
    if (row.any_case ? base::EqualIgnoringCase(row.text, text) : row.text == text) return row.type;
  }
  return ttTable;
}

std::unique_ptr<LcWorkbookDatatype> CreateDataType(ImportSession& session, long type_code,
                                                   bool map_from_odbc, long extended_id) {
  LcWorkbookDatatypeList& list = session.sink.TypesInForce();
  const std::uint16_t code =
      map_from_odbc ? MapDataType(session.server(), type_code) : CutTo16Bits(type_code);

  const LcWorkbookDatatype* type = nullptr;
  if (extended_id != 0) type = list.GetDataTypeByExtendedId(extended_id);
  if (type == nullptr) type = list.GetDataTypeByPhysicalCode(code);
  if (type == nullptr) type = AddMissingType(code, list);
  return std::unique_ptr<LcWorkbookDatatype>(type != nullptr ? type->Copy() : nullptr);
}

}  // namespace odbcimport
