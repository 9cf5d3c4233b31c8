// The named types of SQL Server and DB2.
#include "routes/native/native_types.h"

#include <memory>
#include <string_view>

#include "base/text.h"
#include "catalogues/conversions.h"
#include "odbc/record_list.h"

namespace odbcimport::native {
namespace {

// Where the query of a server delivers what is known of a type: positions from 1, 0 for what it
// does not deliver. DB2 delivers the source's schema (4), the meta type (6) and the source's id (7)
// too.
struct TypePositions {
  int owner;
  int name;
  int id;
  int base_name;
  int length;
  int precision;
  int scale;
};

// clang-format off
//                                         owner name  id  base length prec scale
constexpr TypePositions kSQLServerTypes = {  0,   1,   2,   3,    4,    5,    6};
constexpr TypePositions kDB2Types       = {  1,   2,   3,   5,    8,    0,    9};
// clang-format on

const TypePositions* FindTypePositions(int dbms_type) {
  if (dbms_type == dbmsMSSQLServer) return &kSQLServerTypes;
  if (dbms_type == dbmsDB2) return &kDB2Types;
  return nullptr;
}

// A type is classified by the name of its base type; an unknown one counts as CHAR.
std::unique_ptr<LcWorkbookDatatype> MakeType(const LcODBCRecordList& rows, int row,
                                             const TypePositions& positions, int dbms_type) {
  const auto number = [&](int position) { return base::ParseInteger(rows.View(row, position)); };
  auto type = std::make_unique<LcWorkbookDatatype>();
  if (positions.owner != 0) type->SetOwner(std::u16string(rows.View(row, positions.owner)));
  if (const std::u16string name(rows.View(row, positions.name)); !name.empty()) {
    type->SetExtendedTypeName(name, 0);
  }
  type->SetExtendedId(number(positions.id));
  const std::u16string base_name(rows.View(row, positions.base_name));
  type->SetTypeName(base_name);
  type->SetPhysicalCode(ConvertDatabaseTypeToODBC(base_name, dbms_type).value_or(pcChar));
  type->SetGenericCode(MapInternalCodeToType(type->GetPhysicalCode()));
  type->SetTypeGroup(MapTypeToGroup(type->GetGenericCode()));
  type->SetLong(type->GetTypeGroup() == dgLong);
  if (dbms_type == dbmsDB2) type->SetDistinct(true);
  type->SetLength(static_cast<unsigned long>(number(positions.length)));
  if (positions.precision != 0) type->SetPrecision(CutTo16Bits(number(positions.precision)));
  type->SetScale(CutTo16Bits(number(positions.scale)));
  type->SetSizeModifiable(false);
  return type;
}

}  // namespace

std::optional<std::u16string> BuildNativeGetNamedDataTypes(int dbms_type,
                                                           const LcOwnerInfoList* owners) {
  if (dbms_type == dbmsMSSQLServer) {
    return u"SELECT T.name, T.xusertype, T2.name, T.length, T.prec, T.scale FROM systypes T, "
           u"systypes T2 WHERE T.xtype != T.xusertype AND T.xtype = T2.xtype AND T2.xtype = "
           u"T2.xusertype";
  }
  if (dbms_type != dbmsDB2) return std::nullopt;
  std::u16string sql(
      u"SELECT T.TYPESCHEMA, T.TYPENAME, T.TYPEID, T.SOURCESCHEMA, T.SOURCENAME, T.METATYPE, "
      u"T.SOURCETYPEID, T.LENGTH, T.SCALE FROM SYSCAT.DATATYPES T WHERE T.METATYPE='T'");
  if (owners == nullptr || owners->IsEmpty()) return sql;
  sql += u" AND (";
  std::u16string_view separator;
  for (const LcOwnerInfo* owner : *owners) {
    if (owner == nullptr) break;
    sql.append(separator).append(u"T.TYPESCHEMA='").append(owner->name).append(u"'");
    separator = u" OR ";
  }
  return sql += u")";
}

void GetNativeNamedDataTypes(const ImportSession& session, const LcOwnerInfoList* owners,
                             LcWorkbookDatatypeList& types) {
  const std::optional<std::u16string> sql =
      BuildNativeGetNamedDataTypes(session.server().dbms_type, owners);
  if (!sql || session.progress.WasImportStoppedOrCancelled()) return;
  GetNativeDataTypes(session, *sql, types);
}

void GetNativeDataTypes(const ImportSession& session, const std::u16string& sql,
                        LcWorkbookDatatypeList& types) {
  const QueryResult query = session.RunQuery(sql);
  const LcODBCRecordList& rows = query.RowsEvenIfFailed();
  const int dbms_type = session.server().dbms_type;
  const TypePositions* positions = FindTypePositions(dbms_type);
  if (positions == nullptr) return;
  for (int row = 1; row <= rows.GetRowCount(); ++row) {
    if (session.progress.WasImportStoppedOrCancelled()) break;
    types.Append(MakeType(rows, row, *positions, dbms_type));
  }
}

}  // namespace odbcimport::native
