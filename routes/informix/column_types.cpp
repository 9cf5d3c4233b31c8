// The column type setup.
#include "routes/informix/column_types.h"

#include "catalogues/conversions.h"
#include "catalogues/physical_codes.h"
#include "routes/informix/type_numbers.h"

namespace odbcimport::informix {
namespace {

constexpr int kDateTime = 10;
constexpr int kInterval = 14;
constexpr int kSet = 19;         // the first type number of a complex type
constexpr int kCollection = 23;  // the last

bool SetListedType(ImportSession& session, LcWorkbookColumn& column, int physical_code, bool is_ius,
                   long extended_id) {
  std::unique_ptr<LcWorkbookDatatype> type =
      CreateDataType(session, physical_code, false, extended_id);
  if (type == nullptr) return false;
  if (is_ius) column.SetExtendedTypeName(type->GetExtendedTypeName(0));
  column.SetDataType(type.release(), true, true);
  return true;
}

bool SetNamedType(ImportSession& session, LcWorkbookColumn& column, long extended_id) {
  if (extended_id < 1) return false;
  const LcWorkbookDatatype* named =
      session.sink.TypesInForce().GetDataTypeByExtendedId(extended_id);
  if (named == nullptr) return false;
  column.SetDataType(named->Copy(), true, true);
  column.SetExtendedTypeName(named->GetTypeName());
  return true;
}

// A type that is put together for this column alone, since no list has types without a name.
bool SetComplexType(ComplexTypes& complex_types, LcWorkbookColumn& column, int physical_code,
                    int coltype, long extended_id) {
  const int number = coltype & 0xFF;
  if (number < kSet || number > kCollection) return false;
  auto type = std::make_unique<LcWorkbookDatatype>();
  type->SetPhysicalCode(physical_code);
  type->SetExtendedId(extended_id);
  const enumDataTypeGroup group = ConvertIUSPhyCodeToTypeGroup(coltype, u"");
  type->SetTypeName(
      std::u16string(ConvertIUSTypeCodeToTypeName(coltype).value_or(kUnknownTypeName)));
  type->SetLong(group == dgLong);
  type->SetGenericCode(ConvertIUSPhyCodeToGenericCode(coltype, u""));
  type->SetTypeGroup(group);
  static_cast<void>(complex_types.GetComplexType(extended_id, type.get()));
  column.SetDataType(type.release(), true, false);
  return true;
}

void SetType(ImportSession& session, ComplexTypes& complex_types, LcWorkbookColumn& column,
             int physical_code, int coltype, bool is_ius, long extended_id) {
  // CHAR has the number 0, as have named types that the catalog gives no number of their own: for
  // it the list of named types is asked first.
  if (coltype != 0 && SetListedType(session, column, physical_code, is_ius, extended_id)) return;
  if (is_ius) {
    if (SetNamedType(session, column, extended_id)) return;
    if (SetComplexType(complex_types, column, physical_code, coltype, extended_id)) return;
  }
  SetListedType(session, column, physical_code, is_ius, extended_id);
}

// The qualifier's codes are the two low half bytes of the length. A qualifier that no server makes
// leaves the units unset.
void SetQualifier(LcWorkbookColumn& column, long collength) {
  const int start = static_cast<int>((collength - (collength / 256) * 256) / 16);
  const int end = static_cast<int>(collength % 16);
  const enumIntervalPart largest = ComputeInformixIntervalPart(start);
  const enumIntervalPart smallest = ComputeInformixIntervalPart(end);
  if (largest == ipNone || smallest == ipNone || start > end) return;
  column.SetIntervalMax(largest);
  column.SetIntervalMin(smallest);
}

}  // namespace

void ColumnDatatypeSetup(ImportSession& session, ComplexTypes& complex_types,
                         LcWorkbookColumn* column, int physical_code, int coltype, bool is_ius,
                         long extended_id, long collength) {
  column->SetPhysicalCode(physical_code);
  if (physical_code == pcSerial) column->SetGeneratedKey(true);
  SetType(session, complex_types, *column, physical_code, coltype, is_ius, extended_id);

  // The NOT NULL bit is taken off once; a type number with further bits is no plain DATETIME.
  const int base = coltype > 256 ? coltype - 256 : coltype;
  column->SetRequired(ComputeInformixNoNull(coltype));
  column->SetWidth(static_cast<int>(collength));  // as it is, for every type
  column->SetScale(ComputeInformixScale(base, collength));
  column->SetPrecision(ComputeInformixPrecision(base, collength));
  if ((base == kInterval || base == kDateTime) && collength >= 1) SetQualifier(*column, collength);
}

}  // namespace odbcimport::informix
