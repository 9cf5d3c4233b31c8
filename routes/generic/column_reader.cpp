// Reads the columns of tables from SQLColumns and gives each its data type.
#include "routes/generic/column_reader.h"

#include <memory>
#include <string>

#include "base/ascii.h"
#include "catalogues/conversions.h"
#include "routes/generic/connection_facts.h"

namespace odbcimport::generic {
namespace {

// What Informix's driver calls its types, where the name is not that of the list.
struct InformixType {
  std::u16string_view name;
  std::u16string_view listed_name;
  enumIntervalPart max;
  enumIntervalPart min;
};

// clang-format off
constexpr InformixType kInformixTypes[] = {
    {u"FLOAT",                   u"FLOAT",    ipNone, ipNone},
    {u"SMALLFLOAT",              u"REAL",     ipNone, ipNone},
    {u"DATETIME YEAR TO DAY",    u"DATETIME", ipYear, ipDay},
    {u"DATETIME HOUR TO SECOND", u"DATETIME", ipHour, ipSecond},
    {u"DATETIME YEAR TO SECOND", u"DATETIME", ipYear, ipSecond},
};
// clang-format on

std::unique_ptr<LcWorkbookDatatype> NewSerialType() {
  auto type = std::make_unique<LcWorkbookDatatype>();
  type->SetPhysicalCode(pcSerial);
  type->SetGenericCode(dtSerial);
  type->SetTypeGroup(dgNumeric);
  type->SetTypeName(u"serial");
  return type;
}

// False when the list has no type of that name.
bool SetTypeByName(LcWorkbookColumn& column, const LcWorkbookDatatypeList& types,
                   std::u16string_view name) {
  const LcWorkbookDatatype* type = types.GetDataTypeByPhysicalName(std::u16string(name));
  if (type == nullptr) return false;
  column.SetDataType(type->Copy(), true, true);
  return true;
}

}  // namespace

void ColumnReader::Row::Bind(odbc::Statement& statement) {
  name.Bind(statement, 4);
  data_type.Bind(statement, 5);
  type_name.Bind(statement, 6);
  precision.Bind(statement, 7);
  length.Bind(statement, 8);
  scale.Bind(statement, 9);
  nullable.Bind(statement, 11);
}

void ColumnReader::Row::Empty() {
  name.Empty();
  data_type.Empty();
  type_name.Empty();
  precision.Empty();
  length.Empty();
  scale.Empty();
  nullable.Empty();
}

SQLRETURN ColumnReader::OpenColumns(CatalogStatement& statement, const std::u16string& owner,
                                    const std::u16string& table) {
  return statement.Open(
      session_.connection.hdbc(),
      [&](odbc::Statement& call) {
        return call.Columns(CatalogArgument(session_.choices), ArgumentOrNull(owner), table.c_str(),
                            nullptr);
      },
      [this](odbc::Statement& bind) { row_.Bind(bind); });
}

bool ColumnReader::GetTableColumnsODBC(LcWorkbookTable& table) {
  SQLRETURN result = OpenColumns(statement_, table.GetOwner(true), table.GetName());
  if (!odbc::Succeeded(result)) {
    if (result == SQL_ERROR) handleErrorMsgsODBC(session_, statement_.Get());
    statement_.EndResult();
    return false;
  }
  for (;;) {
    row_.Empty();
    result = statement_.Fetch();
    if (!odbc::Succeeded(result)) break;
    if (!row_.name.Read().empty()) AddColumn(table);
  }
  handleErrorMsgsODBC(session_, statement_.Get());
  if (result == SQL_ERROR) handleErrorMsgsODBC(session_, statement_.Get());
  statement_.EndResult();
  return result != SQL_ERROR;
}

void ColumnReader::AddColumn(LcWorkbookTable& table) {
  const ServerFacts& server = session_.server();
  const std::u16string_view name = row_.name.Read();
  session_.progress.StatusDialog(inTableItem, iiNone, 0, table.GetOwner(true).c_str(),
                                 table.GetName().c_str(), name.data(), false);

  auto column = std::make_unique<LcWorkbookColumn>();
  column->SetParentTable(&table);
  column->SetName(std::u16string(name));

  const long data_type = row_.data_type.ReadOr(0);
  const bool informix = server.dbms_type == dbmsInformix;
  // LENGTH counts the bytes of a number's storage on Universal Server, everywhere else it is what
  // hosts have as precision. Required (sqlite_route_test): a long type's length is cut to
  // 16 bits, and hosts know 65535.
  const bool take_precision =
      informix && session_.IsIUS() &&
      (data_type == SQL_DECIMAL || data_type == SQL_NUMERIC || data_type == SQL_FLOAT);
  column->SetPrecision(
      CutTo16Bits(take_precision ? row_.precision.ReadOr(0) : row_.length.ReadOr(0)));

  if (!informix ||
      !AccountForIUSVariations(column.get(), row_.type_name.Read(), &session_.sink.own_types(),
                               session_.sink.data_types())) {
    MapDataTypes(*column, data_type);
  }
  const LcWorkbookDatatype* type = column->GetDataType();
  if (type != nullptr && type->GetTypeGroup() == dgNumeric) {
    column->SetScale(CutTo16Bits(row_.scale.ReadOr(0)));
  }

  switch (row_.nullable.ReadOr(SQL_NULLABLE_UNKNOWN)) {
    case SQL_NO_NULLS:
      column->SetRequired(true);
      break;
    case SQL_NULLABLE:
    case SQL_NULLABLE_UNKNOWN:
      column->SetRequired(false);
      break;
    default:
      break;
  }
  table.AddColumn(column.release());
}

void ColumnReader::MapDataTypes(LcWorkbookColumn& column, long odbc_type) {
  const std::u16string_view type_name = row_.type_name.Read();
  // How Access and SQL Server call a column that the server numbers itself.
  const bool is_counter =
      odbc_type == SQL_INTEGER && base::EqualIgnoringCase(type_name, u"Counter");
  const bool is_identity = session_.server().dbms_type == dbmsMSSQLServer &&
                           base::ContainsIgnoringCase(type_name, u" identity");
  if (is_counter || is_identity) {
    column.SetReadOnly(true);
    column.SetGeneratedKey(true);
  }
  const LcWorkbookDatatype* type = session_.sink.own_types().GetDataTypeByPhysicalCode(
      MapDataType(session_.server(), odbc_type));
  if (type != nullptr) column.SetDataType(type->Copy(), true, true);
}

bool AccountForIUSVariations(LcWorkbookColumn* column, std::u16string_view type_name,
                             LcWorkbookDatatypeList* importer_types,
                             LcWorkbookDatatypeList* workbook_types) {
  if (base::EqualIgnoringCase(type_name, u"SERIAL")) {
    const LcWorkbookDatatype* serial = importer_types->Append(NewSerialType());
    column->SetDataType(serial->Copy(), true, true);
    if (workbook_types != nullptr &&
        workbook_types->GetDataTypeByPhysicalName(u"serial") == nullptr) {
      workbook_types->Append(std::unique_ptr<LcWorkbookDatatype>(serial->Copy()));
    }
    return true;
  }
  for (const InformixType& row : kInformixTypes) {
    if (!base::EqualIgnoringCase(type_name, row.name)) continue;
    if (!SetTypeByName(*column, *importer_types, row.listed_name)) return false;
    if (row.max != ipNone) {
      column->SetIntervalMax(row.max);
      column->SetIntervalMin(row.min);
    }
    return true;
  }
  return column->GetDataType() == nullptr && SetTypeByName(*column, *importer_types, type_name);
}

bool ColumnReader::GetColumnNamesForTableODBC() {
  LcWBColumnInfoList* columns = session_.sink.column_names();
  if (columns == nullptr) return true;

  CatalogStatement statement;
  SQLRETURN result = OpenColumns(statement, session_.choices.single_item_owner,
                                 session_.choices.single_table_name);
  if (odbc::Succeeded(result)) {
    while (!session_.progress.WasImportStoppedOrCancelled()) {
      row_.Empty();
      result = statement.Fetch();
      if (!odbc::Succeeded(result)) break;
      auto column = std::make_unique<LcWBColumnInfo>();
      column->name = row_.name.Read();
      column->data_type = CreateDataType(session_, row_.data_type.ReadOr(0), true, 0);
      columns->Append(std::move(column));
    }
  }
  if (result == SQL_ERROR) handleErrorMsgsODBC(session_, statement.Get());
  return result != SQL_ERROR;
}

}  // namespace odbcimport::generic
