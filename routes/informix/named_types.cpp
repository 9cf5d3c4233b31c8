// The readers of the data type phase.
#include "routes/informix/named_types.h"

#include "base/text.h"
#include "catalogues/conversions.h"
#include "catalogues/physical_codes.h"
#include "catalogues/type_lists.h"
#include "odbc/record_list.h"
#include "routes/informix/cell.h"
#include "routes/informix/type_numbers.h"
#include "routes/informix/type_queries.h"

namespace odbcimport::informix {
namespace {

void SetSizes(int type_number, long length, LcWorkbookDatatype& type) {
  type.SetLength(static_cast<unsigned long>(length));
  type.SetPrecision(CutTo16Bits(ComputeInformixPrecision(type_number, length)));
  type.SetScale(ComputeInformixScale(type_number, length));
}

void SetBaseOfDistinctType(const LcODBCRecordList& rows, int row, int type_number,
                           LcWorkbookDatatype& type) {
  if (base::ParseInteger(rows.View(row, 6)) != 0) {
    const int base_number = static_cast<int>(base::ParseInteger(Cell(rows, row, 12)));
    const std::u16string base_name(Cell(rows, row, 11));
    type.SetBaseCode(base_number & 0xFF);
    type.SetBaseOwner(std::u16string(Cell(rows, row, 10)));
    if (!base_name.empty()) type.SetBaseExtendedTypeName(base_name);
    type.SetGenericBaseCode(ConvertIUSPhyCodeToGenericCode(base_number, base_name.c_str()));
    type.SetBaseTypeGroup(ConvertIUSPhyCodeToTypeGroup(base_number, base_name.c_str()));
  } else {  // of a built-in type
    type.SetBaseCode(type.GetPhysicalCode() & 0xFF);
    type.SetGenericBaseCode(ConvertIUSPhyCodeToGenericCode(type_number, nullptr));
    type.SetBaseTypeGroup(ConvertIUSPhyCodeToTypeGroup(type_number, nullptr));
  }
  type.SetDistinct(true);
}

// `mode` is the mode of the row before, which an empty cell keeps.
std::unique_ptr<LcWorkbookDatatype> NamedType(const LcODBCRecordList& rows, int row,
                                              char16_t& mode) {
  auto type = std::make_unique<LcWorkbookDatatype>();
  const int number = static_cast<int>(base::ParseInteger(Cell(rows, row, 5)));
  type->SetPhysicalCode(
      ConvertDatabaseTypeToODBC(base::FormatInteger(number), dbmsInformix).value_or(pcChar));
  type->SetTypeName(
      std::u16string(ConvertIUSTypeCodeToTypeName(number).value_or(kUnknownTypeName)));
  const std::u16string name(Cell(rows, row, 4));
  if (!name.empty()) type->SetExtendedTypeName(name, 0);
  type->SetExtendedId(base::ParseInteger(rows.View(row, 1)));
  type->SetOwner(std::u16string(Cell(rows, row, 3)));

  const std::u16string_view mode_cell = Cell(rows, row, 2);
  if (!mode_cell.empty()) mode = mode_cell.front();

  const enumDataTypeGroup group = ConvertIUSPhyCodeToTypeGroup(number, name.c_str());
  type->SetLong(group == dgLong);
  type->SetGenericCode(ConvertIUSPhyCodeToGenericCode(number, name.c_str()));
  type->SetTypeGroup(group);
  if (mode == u'D') SetBaseOfDistinctType(rows, row, number, *type);

  // The length wins over the maximum length. A type with a maximum length is not size-modifiable
  // either: hosts offer no size for a type that has a name.
  const long maximum_length = base::ParseInteger(rows.View(row, 7));
  const long length = base::ParseInteger(rows.View(row, 8));
  if (maximum_length != 0) SetSizes(number, maximum_length, *type);
  if (length != 0) SetSizes(number, length, *type);
  type->SetSizeModifiable(false);
  return type;
}

bool GetDataTypes(const ImportSession& session, const std::u16string& sql,
                  LcWorkbookDatatypeList* types) {
  const QueryResult query = session.RunQuery(sql);
  const LcODBCRecordList& rows = query.RowsEvenIfFailed();
  char16_t mode = 0;
  for (int row = 1; row <= rows.GetRowCount(); ++row) {
    if (session.progress.WasImportStoppedOrCancelled()) break;
    types->AddDataType(NamedType(rows, row, mode).release());
  }
  return true;
}

void GetComplexDataTypes(LcWorkbookDatatypeList* types, ComplexTypes& complex_types) {
  for (LcWorkbookDatatype* type : types->Present()) {
    if (type->GetExtendedId() <= 0 || type->IsDistinct()) continue;
    // A type that cannot be read whole keeps what was read of it.
    if (IsComplexCode(type->GetPhysicalCode())) {
      static_cast<void>(complex_types.GetComplexType(type->GetExtendedId(), type));
    }
  }
}

}  // namespace

void GetBuiltInDataTypes(ImportSession& session) {
  LcODBCDatatypeList built_in(session.server().dbms_type, session.server().dbms_version);
  built_in.EmptyList();
  LcWorkbookDatatypeList* types = session.sink.data_types();
  if (types == nullptr) return;
  built_in.GetHardcodedDataTypes(types);
  // Only the first: a later type with this code has a precision of its own.
  if (LcWorkbookDatatype* date = types->GetDataTypeByPhysicalCode(pcDate)) date->SetPrecision(10);
}

bool GetNamedDataTypes(const ImportSession& session, const LcOwnerInfoList* owners,
                       LcWorkbookDatatypeList* types, ComplexTypes& complex_types) {
  if (!GetDataTypes(session, BuildSQLGetNamedDataTypes(owners), types)) return false;
  GetComplexDataTypes(types, complex_types);
  return true;
}

}  // namespace odbcimport::informix
