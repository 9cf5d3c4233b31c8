// Reads the data types that a driver describes in SQLGetTypeInfo.
#include "routes/generic/type_info_reader.h"

#include <memory>
#include <string>

#include "catalogues/conversions.h"
#include "routes/generic/bound.h"
#include "routes/generic/catalog_statement.h"
#include "routes/generic/connection_facts.h"

namespace odbcimport::generic {
namespace {

struct TypeInfoRow {
  BoundText type_name;
  BoundLong data_type;
  BoundLong precision;
  BoundLong nullable;
  BoundLong money;
  BoundLong auto_increment;
  BoundText local_type_name;
  BoundLong maximum_scale;

  void Bind(odbc::Statement& statement) {
    type_name.Bind(statement, 1);
    data_type.Bind(statement, 2);
    precision.Bind(statement, 3);
    nullable.Bind(statement, 7);
    money.Bind(statement, 11);
    auto_increment.Bind(statement, 12);
    local_type_name.Bind(statement, 13);
    maximum_scale.Bind(statement, 15);
  }
  void Empty() {  // only what is read
    type_name.Empty();
    data_type.Empty();
    precision.Empty();
    maximum_scale.Empty();
  }
};

struct GenericCodes {
  LePhysicalCode physical_code;
  enumDataType generic_code;
  enumDataTypeGroup group;
  bool size_modifiable;
};

// clang-format off
constexpr GenericCodes kGenericCodes[] = {
    {pcChar,          dtChar,       dgCharacter, true},
    {pcVarChar,       dtChar,       dgCharacter, true},
    {pcNumeric,       dtDecimal,    dgNumeric,   true},
    {pcDecimal,       dtDecimal,    dgNumeric,   true},
    {pcInteger,       dtInteger,    dgNumeric,   false},
    {pcSmallInt,      dtInteger,    dgNumeric,   false},
    {pcBit,           dtInteger,    dgNumeric,   false},
    {pcTinyInt,       dtInteger,    dgNumeric,   false},
    {pcBigInt,        dtInteger,    dgNumeric,   false},
    {pcFloat,         dtFloat,      dgNumeric,   false},
    {pcReal,          dtFloat,      dgNumeric,   false},
    {pcDouble,        dtFloat,      dgNumeric,   false},
    {pcLongVarChar,   dtLongChar,   dgLong,      false},
    {pcVarBinary,     dtBinary,     dgBinary,    false},
    {pcBinary,        dtBinary,     dgBinary,    false},
    {pcLongVarBinary, dtLongBinary, dgBinary,    false},
    {pcDate,          dtDate,       dgDateTime,  false},
    {pcTime,          dtTime,       dgDateTime,  false},
    {pcDateTime,      dtTimestamp,  dgDateTime,  false},
};
// clang-format on

// Required (sqlite_route_test): here, unlike for columns, a negative code is CHAR. A driver's long,
// binary and bit types are in the hard-coded lists under the server's own names.
int PhysicalCodeOf(long odbc_type) {
  static const ServerFacts kNoServer;
  return odbc_type < 0 ? int{pcChar} : int{MapDataType(kNoServer, odbc_type)};
}

}  // namespace

bool GetDataTypesODBC(ImportSession& session, LcWorkbookDatatypeList& types) {
  TypeInfoRow row;
  CatalogStatement statement;
  SQLRETURN result = statement.Open(
      session.connection.hdbc(),
      [](odbc::Statement& call) { return call.GetTypeInfo(SQL_ALL_TYPES); },
      [&row](odbc::Statement& bind) { row.Bind(bind); });
  while (odbc::Succeeded(result)) {
    row.Empty();
    result = statement.Fetch();
    if (!odbc::Succeeded(result)) break;
    const std::uint16_t precision = CutTo16Bits(row.precision.ReadOr(0));
    auto type = std::make_unique<LcWorkbookDatatype>();
    type->SetTypeName(std::u16string(row.type_name.Read()));
    type->SetPhysicalCode(PhysicalCodeOf(row.data_type.ReadOr(0)));
    type->SetLength(precision);
    type->SetPrecision(precision);
    type->SetScale(CutTo16Bits(row.maximum_scale.ReadOr(0)));
    types.Append(std::move(type));
  }
  SetupGenericDataTypeCodes(types);
  if (result == SQL_ERROR) handleErrorMsgsODBC(session, statement.Get());
  return result != SQL_ERROR;
}

void SetupGenericDataTypeCodes(LcWorkbookDatatypeList& types) {
  for (LcWorkbookDatatype* type : types.Present()) {
    type->SetGenericCode(dtUnknown);
    type->SetTypeGroup(dgOther);
    for (const GenericCodes& row : kGenericCodes) {
      if (row.physical_code != type->GetPhysicalCode()) continue;
      type->SetGenericCode(row.generic_code);
      type->SetTypeGroup(row.group);
      if (row.size_modifiable) type->SetSizeModifiable(true);
      break;
    }
  }
}

}  // namespace odbcimport::generic
