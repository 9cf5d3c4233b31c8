// From the rows of a column query to a column with its type.
#include "routes/native/columns.h"

#include <algorithm>
#include <memory>

#include "base/ascii.h"
#include "base/text.h"
#include "catalogues/conversions.h"

namespace odbcimport::native {
namespace {

// clang-format off
//                                            name type width scale nulls prec meta  id  source colid tabid
constexpr ColumnPositions kNothing         = {  0,   0,   0,   0,   0,    0,   0,   0,   0,    0,    0};
constexpr ColumnPositions kSQLServerTables = {  4,   5,   6,   7,   8,    9,   0,   0,   0,   11,   12};
constexpr ColumnPositions kOracleTables    = {  4,   5,   6,   7,   8,    9,   0,   0,   0,    0,    0};
constexpr ColumnPositions kDB2Tables       = {  4,   5,   6,   7,   8,    0,   9,  10,  11,    0,    0};
constexpr ColumnPositions kRedBrickTables  = {  4,   5,   6,   7,   8,    9,   0,   0,   0,    0,    0};
constexpr ColumnPositions kOracleSynonyms  = {  6,   7,   8,   9,  10,   11,   0,   0,   0,    0,    0};
constexpr ColumnPositions kRedBrickSynonyms= {  4,   5,   6,   7,   8,    9,   0,   0,   0,    0,    0};
// clang-format on

// Types whose width Red Brick reports as their precision.
constexpr std::u16string_view kRedBrickWidthIsPrecision[] = {
    u"DATE", u"TIME", u"TIMESTAMP", u"INTEGER", u"INT", u"SMALLINT", u"TINYINT", u"DOUBLE",
};

bool IsRedBrickWidthPrecision(std::u16string_view type_name) {
  return std::any_of(
      std::begin(kRedBrickWidthIsPrecision), std::end(kRedBrickWidthIsPrecision),
      [&](std::u16string_view name) { return base::EqualIgnoringCase(name, type_name); });
}

// A SQL Server type that is not built in is a user-defined type, which the data type phase has put
// into the workbook's list under its name.
void SetSQLServerType(ImportSession& session, LcWorkbookColumn& column,
                      std::u16string_view type_name) {
  if (const auto code = ConvertDatabaseTypeToODBC(type_name, dbmsMSSQLServer)) {
    NativeColumnDatatypeSetup(session, column, *code, 0);
    return;
  }
  if (session.sink.data_types() == nullptr) return;
  const LcWorkbookDatatype* type =
      session.sink.data_types()->GetDataTypeByName(std::u16string(type_name), tnExtendedTypeName);
  if (type == nullptr) return;
  column.SetPhysicalCode(type->GetPhysicalCode());
  if (type->GetPhysicalCode() == pcSerial) column.SetGeneratedKey(true);
  column.SetDataType(type->Copy(), true, true);
}

void SetDB2Type(ImportSession& session, LcWorkbookColumn& column, const LcODBCRecordList& rows,
                int row, const ColumnPositions& positions, std::u16string_view type_name) {
  if (base::EqualIgnoringCase(rows.View(row, positions.meta_type), u"T")) {
    // A distinct type: an unknown source type falls back to CHAR, the type's own id comes first.
    const auto code = ConvertDatabaseTypeToODBC(rows.View(row, positions.source_type), dbmsDB2);
    const long id = base::ParseInteger(rows.View(row, positions.type_id));
    NativeColumnDatatypeSetup(session, column, code.value_or(pcChar), static_cast<int>(id));
    return;
  }
  if (const auto code = ConvertDatabaseTypeToODBC(type_name, dbmsDB2)) {
    NativeColumnDatatypeSetup(session, column, *code, 0);
  }
}

void SetColumnType(ImportSession& session, LcWorkbookColumn& column, const LcODBCRecordList& rows,
                   int row, const ColumnPositions& positions, std::u16string_view type_name) {
  const int dbms_type = session.server().dbms_type;
  switch (dbms_type) {
    case dbmsMSSQLServer:
      SetSQLServerType(session, column, type_name);
      return;
    case dbmsDB2:
      SetDB2Type(session, column, rows, row, positions, type_name);
      return;
    default:  // an unknown name counts as CHAR
      NativeColumnDatatypeSetup(
          session, column, ConvertDatabaseTypeToODBC(type_name, dbms_type).value_or(pcChar), 0);
  }
}

// A column without a precision of its own shows its width as one, so that a host need look at the
// precision alone.
void SetSizes(LcWorkbookColumn& column, const LcODBCRecordList& rows, int row,
              const ColumnPositions& positions, std::u16string_view type_name, int dbms_type) {
  const auto number = [&](int position) { return base::ParseInteger(rows.View(row, position)); };
  const long precision = number(positions.precision);
  const long width = number(positions.width);
  const bool width_is_precision =
      (width > 0 && precision == 0) ||
      (dbms_type == dbmsRedBrick && IsRedBrickWidthPrecision(type_name));
  column.SetScale(CutTo16Bits(number(positions.scale)));
  column.SetWidth(static_cast<int>(width));
  column.SetPrecision(static_cast<unsigned long>(width_is_precision ? width : precision));
}

}  // namespace

void NativeColumnDatatypeSetup(ImportSession& session, LcWorkbookColumn& column, int code,
                               int extended_id) {
  column.SetPhysicalCode(code);
  if (code == pcSerial) column.SetGeneratedKey(true);
  std::unique_ptr<LcWorkbookDatatype> type = CreateDataType(session, code, false, extended_id);
  if (type != nullptr) column.SetDataType(type.release(), true, true);
}

bool AreNullsAllowed(std::u16string_view value, int dbms_type) {
  switch (dbms_type) {
    case dbmsInformix:
    case dbmsOracle:
    case dbmsDB2:
    case dbmsRedBrick:
      return value != u"N";
    case dbmsMSSQLServer:
    case dbmsSybase:
      return value != u"0";
    default:
      return true;
  }
}

bool AreUpdatesAllowed(std::u16string_view value, int dbms_type) {
  return !((dbms_type == dbmsInformix || dbms_type == dbmsOracle) && value == u"N");
}

const ColumnPositions& TableColumnPositions(int dbms_type) {
  switch (dbms_type) {
    case dbmsMSSQLServer:
    case dbmsSybase:
      return kSQLServerTables;
    case dbmsOracle:
      return kOracleTables;
    case dbmsDB2:
      return kDB2Tables;
    case dbmsRedBrick:
      return kRedBrickTables;
    default:
      return kNothing;
  }
}

// The remote query of Oracle delivers six columns only, the precision last. Required
// (native route_test): its rows are read with the positions of the local query. The precision
// arrives as the column's name and everything after it as empty. Workbooks of hosts refer to such
// columns by these names, and naming them rightly would cut those references.
const ColumnPositions& SynonymColumnPositions(int dbms_type) {
  switch (dbms_type) {
    case dbmsOracle:
      return kOracleSynonyms;
    case dbmsRedBrick:
      return kRedBrickSynonyms;
    default:
      return kNothing;
  }
}

void AddNativeColumn(ImportSession& session, const LcODBCRecordList& rows, int row,
                     const ColumnPositions& positions, const std::u16string& owner,
                     const std::u16string& table_name, LcWorkbookTable& table) {
  const int dbms_type = session.server().dbms_type;
  auto column = std::make_unique<LcWorkbookColumn>();
  if (positions.name != 0) {
    const std::u16string name(rows.View(row, positions.name));
    column->SetName(name);
    session.progress.StatusDialog(inTableItem, iiNone, 0, owner.c_str(), table_name.c_str(),
                                  name.c_str());
    const std::u16string_view type_name = rows.View(row, positions.type);
    SetColumnType(session, *column, rows, row, positions, type_name);
    SetSizes(*column, rows, row, positions, type_name, dbms_type);
    column->SetRequired(!AreNullsAllowed(rows.View(row, positions.nulls), dbms_type));
    if (positions.column_id != 0) {
      column->SetColumnId(
          static_cast<std::int32_t>(base::ParseInteger(rows.View(row, positions.column_id))));
    }
  }
  column->SetTable(&table);
  table.AddColumn(column.release());
}

}  // namespace odbcimport::native
