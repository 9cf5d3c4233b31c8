// The hard-coded lists of built-in data types, one per kind of server.
#include "catalogues/type_lists.h"

#include <memory>
#include <span>

#include "catalogues/physical_codes.h"

namespace {

using namespace odbcimport;  // the physical codes

constexpr long kUnset = -1;  // the field keeps what a new data type has

struct HardcodedType {
  const char16_t* name;
  const char16_t* other_name;  // null: none
  LePhysicalCode physical_code;
  enumDataType generic_code;
  enumDataTypeGroup group;
  long length;
  long precision;
  long scale;
  bool is_long;
  bool size_modifiable;
};

// Look-ups take the first match, so the order of every list counts. The integer types are in the
// numeric group throughout, unlike types that are made from catalog rows: hosts choose the editor
// of a literal by it.
// clang-format off

constexpr HardcodedType kGenericTypes[] = {
    {u"CHAR",          nullptr,      pcChar,          dtChar,       dgCharacter, 254,  0,  0, false, true},
    {u"NUMERIC",       nullptr,      pcNumeric,       dtDecimal,    dgNumeric,     0, 15, 15, false, true},
    {u"DECIMAL",       nullptr,      pcDecimal,       dtDecimal,    dgNumeric,     0, 15, 15, false, true},
    {u"INTEGER",       u"INT",       pcInteger,       dtInteger,    dgNumeric,     0, 10,  0, false, false},
    {u"SMALLINT",      nullptr,      pcSmallInt,      dtInteger,    dgNumeric,     0,  5,  0, false, false},
    {u"FLOAT",         nullptr,      pcFloat,         dtFloat,      dgNumeric,     0, 15,  0, false, false},
    {u"REAL",          nullptr,      pcReal,          dtFloat,      dgNumeric,     0, 15,  0, false, false},
    {u"DOUBLE",        nullptr,      pcDouble,        dtFloat,      dgNumeric,     0, 53,  0, false, false},
    {u"VARCHAR",       nullptr,      pcVarChar,       dtChar,       dgCharacter, 254,  0,  0, false, true},
    {u"LONGVARCHAR",   nullptr,      pcLongVarChar,   dtLongChar,   dgLong,      254,  0,  0,  true, false},
    {u"BIT",           nullptr,      pcBit,           dtInteger,    dgNumeric,     0,  1,  0, false, false},
    {u"TINYINT",       nullptr,      pcTinyInt,       dtInteger,    dgNumeric,     0,  5,  0, false, false},
    {u"BIGINT",        nullptr,      pcBigInt,        dtInteger,    dgNumeric,     0, 20,  0, false, false},
    {u"VARBINARY",     nullptr,      pcVarBinary,     dtBinary,     dgBinary,      0,  0,  0, false, false},
    {u"LONGVARBINARY", nullptr,      pcLongVarBinary, dtLongBinary, dgLong,        0,  0,  0,  true, false},
    {u"DATE",          nullptr,      pcDate,          dtDate,       dgDateTime,    0, 10,  0, false, false},
    {u"TIME",          nullptr,      pcTime,          dtTime,       dgDateTime,    0,  8,  0, false, false},
    {u"DATETIME",      u"TIMESTAMP", pcDateTime,      dtTimestamp,  dgDateTime,    0, 23,  0, false, false},
    {u"BINARY",        nullptr,      pcBinary,        dtBinary,     dgBinary,      0,  0,  0, false, false},
    {u"INTERVAL",      u"TIMESTAMP", pcInterval,      dtInterval,   dgDateTime,    0,  0,  0, false, false},
};

// Sizes are kept as precision, in bytes. What the catalog tells of each column is left unset.
constexpr HardcodedType kInformixTypes[] = {
    {u"char",         nullptr, pcChar,          dtChar,        dgCharacter,  kUnset,    255, kUnset, false, true},
    {u"smallint",     nullptr, pcSmallInt,      dtInteger,     dgNumeric,    kUnset,      2, kUnset, false, false},
    {u"integer",      nullptr, pcInteger,       dtInteger,     dgNumeric,    kUnset,      4, kUnset, false, false},
    {u"float",        nullptr, pcFloat,         dtFloat,       dgNumeric,    kUnset,      8,      0, false, false},
    {u"smallfloat",   nullptr, pcSmallFloat,    dtFloat,       dgNumeric,    kUnset,      4,      0, false, false},
    {u"real",         nullptr, pcReal,          dtFloat,       dgNumeric,    kUnset,      4,      0, false, false},
    {u"double",       nullptr, pcDouble,        dtFloat,       dgNumeric,    kUnset,      8, kUnset, false, false},
    {u"decimal",      nullptr, pcDecimal,       dtDecimal,     dgNumeric,         0,     16,     15, false, true},
    {u"serial",       nullptr, pcSerial,        dtSerial,      dgNumeric,    kUnset,      4, kUnset, false, false},
    {u"date",         nullptr, pcDate,          dtDate,        dgDateTime,   kUnset,      4, kUnset, false, false},
    {u"datetime",     nullptr, pcDateTime,      dtTimestamp,   dgDateTime,   kUnset,      8, kUnset, false, false},
    {u"money",        nullptr, pcMoney,         dtMoney,       dgNumeric,    kUnset,     16,      2, false, false},
    {u"byte",         nullptr, pcByte,          dtBinary,      dgBinary,     kUnset, kUnset, kUnset, false, false},
    {u"long binary",  nullptr, pcLongVarBinary, dtBinary,      dgBinary,     kUnset, kUnset, kUnset, false, false},
    {u"text",         nullptr, pcText,          dtLongChar,    dgLong,       kUnset, kUnset, kUnset,  true, false},
    {u"long text",    nullptr, pcLongVarChar,   dtLongChar,    dgLong,       kUnset, kUnset, kUnset,  true, false},
    {u"varchar",      nullptr, pcVarChar,       dtChar,        dgCharacter,  kUnset, kUnset, kUnset, false, true},
    {u"interval",     nullptr, pcInterval,      dtInterval,    dgDateTime,   kUnset,      4, kUnset, false, false},
    {u"nchar",        nullptr, pcNChar,         dtChar,        dgCharacter,  kUnset, kUnset, kUnset, false, true},
    {u"nvarchar",     nullptr, pcNVarChar,      dtChar,        dgCharacter,  kUnset, kUnset, kUnset, false, true},
    {u"int8",         nullptr, pcBigInt,        dtInteger,     dgNumeric,    kUnset,      8, kUnset, false, false},
    {u"serial8",      nullptr, pcSerial8,       dtSerial,      dgNumeric,    kUnset,      8, kUnset, false, false},
    {u"collection",   nullptr, pcCollection,    dtCollection,  dgCollection, kUnset, kUnset, kUnset, false, false},
    {u"set",          nullptr, pcSet,           dtSet,         dgCollection, kUnset, kUnset, kUnset, false, false},
    {u"multiset",     nullptr, pcMultiset,      dtMultiset,    dgCollection, kUnset, kUnset, kUnset, false, false},
    {u"list",         nullptr, pcList,          dtList,        dgCollection, kUnset, kUnset, kUnset, false, false},
    {u"row",          nullptr, pcRow,           dtRow,         dgRow,        kUnset, kUnset, kUnset, false, false},
    {u"varopaque",    nullptr, pcVarOpaque,     dtVarOpaque,   dgOpaque,     kUnset, kUnset, kUnset, false, false},
    {u"fixedopaque",  nullptr, pcFixedOpaque,   dtFixedOpaque, dgOpaque,     kUnset, kUnset, kUnset, false, false},
    {u"namedrowtype", nullptr, pcNamedRow,      dtRow,         dgRow,        kUnset, kUnset, kUnset, false, false},
};

// Versions below 8. NUMBER counts as a floating-point type.
constexpr HardcodedType kOracleTypes[] = {
    {u"CHAR",     nullptr, pcChar,          dtChar,       dgCharacter,  255,  0, 0, false, true},
    {u"VARCHAR2", nullptr, pcVarChar,       dtChar,       dgCharacter, 2000,  0, 0, false, true},
    {u"NUMBER",   nullptr, pcNumeric,       dtFloat,      dgNumeric,     22, 22, 0, false, false},
    {u"DATE",     nullptr, pcDate,          dtDate,       dgDateTime,     0, 10, 0, false, false},
    {u"LONG",     nullptr, pcLongVarChar,   dtLongChar,   dgLong,         0,  0, 0,  true, false},
    {u"RAW",      nullptr, pcBinary,        dtBinary,     dgBinary,       0,  0, 0, false, false},
    {u"LONG RAW", nullptr, pcLongVarBinary, dtLongBinary, dgLong,         0,  0, 0,  true, false},
    {u"ROWID",    nullptr, pcRowId,         dtChar,       dgCharacter,    0,  0, 0, false, false},
    {u"MLSLABEL", nullptr, pcMlsLabel,      dtBinary,     dgBinary,       0,  0, 0, false, false},
};

constexpr HardcodedType kOracle8Types[] = {
    {u"CHAR",     nullptr, pcChar,          dtChar,       dgCharacter, 2000,  0, 0, false, true},
    {u"VARCHAR2", nullptr, pcVarChar,       dtChar,       dgCharacter, 4000,  0, 0, false, true},
    {u"NUMBER",   nullptr, pcNumeric,       dtFloat,      dgNumeric,     22, 22, 0, false, false},
    {u"DATE",     nullptr, pcDate,          dtDate,       dgDateTime,     0, 10, 0, false, false},
    {u"LONG",     nullptr, pcLongVarChar,   dtLongChar,   dgLong,         0,  0, 0,  true, false},
    {u"RAW",      nullptr, pcBinary,        dtBinary,     dgBinary,       0,  0, 0, false, false},
    {u"LONG RAW", nullptr, pcLongVarBinary, dtLongBinary, dgLong,         0,  0, 0,  true, false},
    {u"NCHAR",    nullptr, pcNChar,         dtChar,       dgCharacter, 2000,  0, 0, false, true},
    {u"NVARCHAR", nullptr, pcNVarChar,      dtChar,       dgCharacter, 4000,  0, 0, false, true},
    {u"ROWID",    nullptr, pcRowId,         dtChar,       dgCharacter,    0,  0, 0, false, false},
    {u"MLSLABEL", nullptr, pcMlsLabel,      dtBinary,     dgBinary,       0,  0, 0, false, false},
    {u"BLOB",     nullptr, pcBlob,          dtLongBinary, dgLong,         0,  0, 0,  true, false},
    {u"CLOB",     nullptr, pcClob,          dtLongBinary, dgLong,         0,  0, 0,  true, false},
    {u"NCLOB",    nullptr, pcNClob,         dtLongBinary, dgLong,         0,  0, 0,  true, false},
    {u"BFILE",    nullptr, pcBFile,         dtLongBinary, dgLong,         0,  0, 0,  true, false},
};

constexpr HardcodedType kDB2Types[] = {
    {u"SMALLINT",     nullptr, pcSmallInt,    dtInteger,    dgNumeric,       0,  2, 0, false, false},
    {u"INTEGER",      u"INT",  pcInteger,     dtInteger,    dgNumeric,       0,  4, 0, false, false},
    {u"DECIMAL",      nullptr, pcDecimal,     dtDecimal,    dgNumeric,       0,  0, 0, false, true},
    {u"DOUBLE",       nullptr, pcDouble,      dtFloat,      dgNumeric,       0,  8, 0, false, false},
    {u"CHARACTER",    nullptr, pcChar,        dtChar,       dgCharacter,   254,  0, 0, false, true},
    {u"VARCHAR",      nullptr, pcVarChar,     dtChar,       dgCharacter,  4000,  0, 0, false, true},
    {u"LONG VARCHAR", nullptr, pcLongVarChar, dtLongChar,   dgLong,      32700,  0, 0,  true, false},
    {u"CLOB",         nullptr, pcClob,        dtLongBinary, dgLong,          0,  0, 0,  true, false},
    {u"DATE",         nullptr, pcDate,        dtDate,       dgDateTime,      0,  4, 0, false, false},
    {u"TIME",         nullptr, pcTime,        dtTime,       dgDateTime,      0,  3, 0, false, false},
    {u"TIMESTAMP",    nullptr, pcDateTime,    dtTimestamp,  dgDateTime,      0, 10, 0, false, false},
    {u"BOOLEAN",      nullptr, pcBit,         dtInteger,    dgNumeric,       0,  1, 0, false, false},
    {u"BLOB",         nullptr, pcBlob,        dtLongBinary, dgLong,          0,  0, 0,  true, false},
    {u"REAL",         nullptr, pcReal,        dtFloat,      dgNumeric,       0,  4, 0, false, false},
    {u"BIGINT",       nullptr, pcBigInt,      dtInteger,    dgNumeric,       0,  8, 0, false, false},
};

// TIMESTAMP counts as a time here, as it does on SQL Server.
constexpr HardcodedType kRedBrickTypes[] = {
    {u"CHARACTER", nullptr,    pcChar,            dtChar,    dgCharacter, 1024,  0,  0, false, true},
    {u"VARCHAR",   nullptr,    pcVarChar,         dtChar,    dgCharacter, 1024,  0,  0, false, true},
    {u"DATE",      nullptr,    pcDate,            dtDate,    dgDateTime,     0,  3,  0, false, false},
    {u"TIME",      nullptr,    pcTime,            dtTime,    dgDateTime,     0,  5,  0, false, false},
    {u"TIMESTAMP", nullptr,    pcServerTimestamp, dtTime,    dgDateTime,     0,  8,  0, false, false},
    {u"INTEGER",   u"INT",     pcInteger,         dtInteger, dgNumeric,      0,  4,  0, false, false},
    {u"SMALLINT",  nullptr,    pcSmallInt,        dtInteger, dgNumeric,      0,  2,  0, false, false},
    {u"TINYINT",   nullptr,    pcTinyInt,         dtInteger, dgNumeric,      0,  1,  0, false, false},
    {u"FLOAT",     nullptr,    pcFloat,           dtFloat,   dgNumeric,      0,  8,  0, false, false},
    {u"REAL",      nullptr,    pcReal,            dtFloat,   dgNumeric,      0,  4,  0, false, false},
    {u"DECIMAL",   u"NUMERIC", pcDecimal,         dtDecimal, dgNumeric,      0, 16, 16, false, true},
    {u"DOUBLE",    nullptr,    pcDouble,          dtFloat,   dgNumeric,      0,  8,  0, false, false},
};

// Sybase too. "REAL" alone is in capitals; hosts compare the names, so it stays.
constexpr HardcodedType kSQLServerTypes[] = {
    {u"bit",              nullptr,    pcBit,              dtInteger,    dgNumeric,            0,  1, 0, false, false},
    {u"int",              u"integer", pcInteger,          dtInteger,    dgNumeric,            0,  4, 0, false, false},
    {u"smallint",         nullptr,    pcSmallInt,         dtInteger,    dgNumeric,            0,  2, 0, false, false},
    {u"tinyint",          nullptr,    pcTinyInt,          dtInteger,    dgNumeric,            0,  1, 0, false, false},
    {u"decimal",          nullptr,    pcDecimal,          dtDecimal,    dgNumeric,            0, 38, 0, false, true},
    {u"numeric",          nullptr,    pcNumeric,          dtDecimal,    dgNumeric,            0, 38, 0, false, true},
    {u"money",            nullptr,    pcMoney,            dtMoney,      dgNumeric,       kUnset,  8, 0, false, false},
    {u"smallmoney",       nullptr,    pcSmallMoney,       dtMoney,      dgNumeric,       kUnset,  4, 0, false, false},
    {u"float",            nullptr,    pcFloat,            dtFloat,      dgNumeric,            0,  8, 0, false, false},
    {u"REAL",             nullptr,    pcReal,             dtFloat,      dgNumeric,            0,  4, 0, false, false},
    {u"datetime",         nullptr,    pcDateTime,         dtTimestamp,  dgDateTime,           0,  8, 0, false, false},
    {u"smalldatetime",    nullptr,    pcSmallDateTime,    dtTimestamp,  dgDateTime,           0,  4, 0, false, false},
    {u"timestamp",        nullptr,    pcServerTimestamp,  dtTime,       dgDateTime,           0,  8, 0, false, false},
    {u"uniqueidentifier", nullptr,    pcUniqueIdentifier, dtChar,       dgCharacter,         36,  0, 0, false, true},
    {u"char",             nullptr,    pcChar,             dtChar,       dgCharacter,       8000,  0, 0, false, true},
    {u"varchar",          nullptr,    pcVarChar,          dtChar,       dgCharacter,       8000,  0, 0, false, true},
    {u"text",             nullptr,    pcText,             dtLongChar,   dgLong,      2147483647,  0, 0,  true, false},
    {u"nchar",            nullptr,    pcNChar,            dtChar,       dgCharacter,       4000,  0, 0, false, true},
    {u"ntext",            nullptr,    pcNText,            dtLongChar,   dgLong,      1073741823,  0, 0,  true, false},
    {u"binary",           nullptr,    pcBinary,           dtBinary,     dgBinary,          8000,  0, 0, false, false},
    {u"varbinary",        nullptr,    pcVarBinary,        dtBinary,     dgBinary,          8000,  0, 0, false, false},
    {u"image",            nullptr,    pcBlob,             dtLongBinary, dgLong,      2147483647,  0, 0,  true, false},
};
// clang-format on

void AppendTypes(std::span<const HardcodedType> rows, LcWorkbookDatatypeList& list) {
  for (const HardcodedType& row : rows) {
    auto type = std::make_unique<LcWorkbookDatatype>();
    type->SetPhysicalCode(row.physical_code);
    type->SetGenericCode(row.generic_code);
    type->SetTypeGroup(row.group);
    if (row.length != kUnset) type->SetLength(static_cast<unsigned long>(row.length));
    if (row.precision != kUnset) type->SetPrecision(static_cast<unsigned short>(row.precision));
    if (row.scale != kUnset) type->SetScale(static_cast<unsigned short>(row.scale));
    type->SetTypeName(row.name);
    if (row.other_name != nullptr) type->SetOtherTypeName(row.other_name);
    type->SetLong(row.is_long);
    type->SetSizeModifiable(row.size_modifiable);
    list.Append(std::move(type));
  }
}

}  // namespace

LcODBCDatatypeList::LcODBCDatatypeList(LeDBMSType dbms_type, int dbms_version)
    : dbms_type_(dbms_type), dbms_version_(dbms_version) {
  GetHardcodedDataTypes(nullptr);
}

LcODBCDatatypeList::LcODBCDatatypeList(const LcODBCDatatypeList& other) = default;
LcODBCDatatypeList& LcODBCDatatypeList::operator=(const LcODBCDatatypeList& other) = default;
LcODBCDatatypeList::~LcODBCDatatypeList() = default;

const char* LcODBCDatatypeList::GetRuntimeClass() const { return "LcODBCDatatypeList"; }

bool LcODBCDatatypeList::ForIUS() const { return dbms_type_ == dbmsInformix && dbms_version_ >= 9; }

unsigned long LcODBCDatatypeList::CalculateFieldWidth(int physical_code,
                                                      unsigned long length) const {
  switch (physical_code) {
    case pcChar:
    case pcVarChar:
    case pcLongVarChar:
    case pcLongVarBinary:
    case pcBinary:
      return length;
    case pcDecimal:
      return length + 2;  // sign and decimal point
    case pcInteger:
      return 10;
    case pcSmallInt:
      return 5;
    default:
      return 0;
  }
}

int LcODBCDatatypeList::GetPhysicalCode(enumDataType generic_code) const {
  switch (generic_code) {
    case dtDecimal:
      return pcNumeric;
    case dtInteger:
      return pcInteger;
    case dtFloat:
      return pcFloat;
    case dtBinary:
      return pcVarBinary;
    case dtDate:
      return pcDate;
    case dtTime:
      return pcTime;
    case dtTimestamp:
      return pcDateTime;
    case dtLongChar:
      return pcLongVarChar;
    case dtLongBinary:
      return pcLongVarBinary;
    default:
      return pcChar;
  }
}

void LcODBCDatatypeList::GetHardcodedDataTypes(LcWorkbookDatatypeList* target) {
  if (ForIUS()) {
    GetHardcodedDataTypesForInformix(target);
    return;
  }
  switch (dbms_type_) {
    case dbmsOracle:
      if (dbms_version_ < 8) {
        GetHardcodedDataTypesForOracle(target);
      } else {
        GetHardcodedDataTypesForOracle8(target);
      }
      return;
    case dbmsDB2:
      GetHardcodedDataTypesForDB2(target);
      return;
    case dbmsRedBrick:
      GetHardcodedDataTypesForRedBrick(target);
      return;
    case dbmsMSSQLServer:
      GetHardcodedDataTypesForMSSQLServer(target);
      return;
    case dbmsSybase:
      GetHardcodedDataTypesForSybaseSQLServer(target);
      return;
    default:
      AppendTypes(kGenericTypes, target != nullptr ? *target : *this);
  }
}

void LcODBCDatatypeList::GetHardcodedDataTypesForInformix(LcWorkbookDatatypeList* target) {
  AppendTypes(kInformixTypes, target != nullptr ? *target : *this);
}

void LcODBCDatatypeList::GetHardcodedDataTypesForOracle(LcWorkbookDatatypeList* target) {
  AppendTypes(kOracleTypes, target != nullptr ? *target : *this);
}

void LcODBCDatatypeList::GetHardcodedDataTypesForOracle8(LcWorkbookDatatypeList* target) {
  AppendTypes(kOracle8Types, target != nullptr ? *target : *this);
}

void LcODBCDatatypeList::GetHardcodedDataTypesForDB2(LcWorkbookDatatypeList* target) {
  AppendTypes(kDB2Types, target != nullptr ? *target : *this);
}

void LcODBCDatatypeList::GetHardcodedDataTypesForRedBrick(LcWorkbookDatatypeList* target) {
  AppendTypes(kRedBrickTypes, target != nullptr ? *target : *this);
}

void LcODBCDatatypeList::GetHardcodedDataTypesForMSSQLServer(LcWorkbookDatatypeList* target) {
  AppendTypes(kSQLServerTypes, target != nullptr ? *target : *this);
}

void LcODBCDatatypeList::GetHardcodedDataTypesForSybaseSQLServer(LcWorkbookDatatypeList* target) {
  GetHardcodedDataTypesForMSSQLServer(target);
}

void LcODBCDatatypeList::GetHardcodedDataTypesForCloudScape(LcWorkbookDatatypeList* /*target*/) {}
