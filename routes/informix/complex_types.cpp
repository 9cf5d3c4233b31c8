// The reader of row and collection types.
#include "routes/informix/complex_types.h"

#include <algorithm>

#include "base/text.h"
#include "catalogues/conversions.h"
#include "catalogues/physical_codes.h"
#include "odbc/record_list.h"
#include "routes/informix/cell.h"
#include "routes/informix/type_numbers.h"
#include "routes/informix/type_queries.h"

namespace odbcimport::informix {
namespace {

constexpr std::size_t kDeepestNesting = 64;
constexpr int kMostDefinitions = 1'000;

}  // namespace

bool IsCollectionCode(int physical_code) {
  switch (physical_code & 0xFF) {
    case pcSet:
    case pcMultiset:
    case pcList:
    case pcCollection:
      return true;
    default:
      return false;
  }
}

bool IsRowCode(int physical_code) {
  const int code = physical_code & 0xFF;
  return code == pcRow || code == pcNamedRow;
}

// One row of the catalog: a field of a row type or the element of a collection.
struct ComplexTypes::Part {
  Part(const LcODBCRecordList& rows, int row, long number, int code)
      : type_number(number),
        physical_code(code & 0xFF),
        field_name(Cell(rows, row, 2)),
        length(base::ParseInteger(rows.View(row, 4))),
        sub_id(base::ParseInteger(rows.View(row, 5))),
        owner(Cell(rows, row, 7)),
        extended_name(Cell(rows, row, 8)),
        type_name(
            ConvertIUSTypeCodeToTypeName(static_cast<int>(number)).value_or(kUnknownTypeName)) {
    const int type = static_cast<int>(type_number);
    generic_code = ConvertIUSPhyCodeToGenericCode(type, extended_name.c_str());
    group = ConvertIUSPhyCodeToTypeGroup(type, extended_name.c_str());
  }

  long type_number;
  int physical_code;
  std::u16string field_name;
  long length;
  long sub_id;  // the extended id of the part's own type
  std::u16string owner;
  std::u16string extended_name;  // empty for a type without a name
  std::u16string type_name;
  enumDataType generic_code;
  enumDataTypeGroup group;
};

bool ComplexTypes::GetComplexType(long extended_id, LcWorkbookDatatype* type) {
  const int id = static_cast<int>(extended_id);
  if (path_.empty()) definitions_read_ = 0;
  if (path_.size() >= kDeepestNesting || definitions_read_ >= kMostDefinitions ||
      std::find(path_.begin(), path_.end(), id) != path_.end()) {
    return false;
  }
  ++definitions_read_;
  path_.push_back(id);
  const bool result = GetComplexType(BuildSQLGetComplexType(id), type);
  path_.pop_back();
  return result;
}

bool ComplexTypes::GetComplexType(const std::u16string& sql, LcWorkbookDatatype* type) {
  const QueryResult query = session_.RunQuery(sql);
  const LcODBCRecordList& rows = query.RowsEvenIfFailed();
  bool is_collection = false;
  for (int row = 1; row <= rows.GetRowCount(); ++row) {
    const long number = base::ParseInteger(rows.View(row, 3));
    const int code =
        ConvertDatabaseTypeToODBC(rows.View(row, 3), session_.server().dbms_type).value_or(pcChar);
    if (base::ParseInteger(rows.View(row, 1)) == 0) {  // the row of the type itself
      is_collection = IsCollectionCode(code);
      continue;
    }
    const Part part(rows, row, number, code);
    if (!(is_collection ? SetElement(part, type) : AddComponent(part, type))) return false;
  }
  return true;
}

bool ComplexTypes::AddComponent(const Part& part, LcWorkbookDatatype* type) {
  auto component = std::make_unique<LcWorkbookDatatype>();
  component->SetPhysicalCode(part.physical_code);
  component->SetTypeName(part.type_name);
  component->SetLength(static_cast<unsigned long>(part.length));
  component->SetPrecision(CutTo16Bits(ComputeInformixPrecision(part.type_number, part.length)));
  component->SetScale(ComputeInformixScale(part.type_number, part.length));
  if (!part.extended_name.empty()) component->SetExtendedTypeName(part.extended_name, 0);
  if (!part.owner.empty()) component->SetOwner(part.owner);
  component->SetGenericCode(part.generic_code);
  component->SetTypeGroup(part.group);
  component->SetName(part.field_name);
  if (part.extended_name.empty() && IsComplexCode(part.physical_code) &&
      !GetComplexType(part.sub_id, component.get())) {
    return false;
  }
  type->AddComponent(component.release());
  return true;
}

bool ComplexTypes::SetElement(const Part& part, LcWorkbookDatatype* type) {
  if (IsCollectionCode(part.physical_code)) {
    // A nested collection leaves its name here, and its own element fills the same type.
    type->AddExtendedTypeName(part.type_name);
    return GetComplexType(part.sub_id, type);
  }
  type->SetBaseCode(part.physical_code);
  if (!part.owner.empty()) type->SetBaseOwner(part.owner);
  type->SetGenericBaseCode(part.generic_code);
  type->SetBaseTypeGroup(part.group);
  if (!part.extended_name.empty()) {
    type->SetBaseExtendedTypeName(part.extended_name);
  } else if (IsRowCode(part.physical_code)) {
    if (!GetComplexType(part.sub_id, type)) return false;
    type->SetBaseExtendedTypeName(u"ROW");
  } else if (IsRegularDataType(part.physical_code)) {
    const std::u16string& name = RegularTypeName(part.physical_code);
    if (!name.empty()) type->SetBaseExtendedTypeName(name);
  }
  return true;
}

// The name of the first built-in type with that code in the list in force, empty when there is
// none. The list is walked again only when it has grown.
const std::u16string& ComplexTypes::RegularTypeName(int physical_code) {
  const LcWorkbookDatatypeList& list = session_.sink.TypesInForce();
  if (regular_names_count_ != list.GetCount()) {
    regular_names_.fill({});
    std::array<bool, 19> seen{};
    for (const LcWorkbookDatatype* type : list.Present()) {
      if (type->GetExtendedTypeNameCount() > 0) continue;
      const int code = type->GetPhysicalCode();
      if (code < 0 || !IsRegularDataType(code)) continue;
      const auto at = static_cast<std::size_t>(code);
      if (!seen[at]) regular_names_[at] = type->GetTypeName();
      seen[at] = true;
    }
    regular_names_count_ = list.GetCount();
  }
  return regular_names_[static_cast<std::size_t>(physical_code)];
}

}  // namespace odbcimport::informix
