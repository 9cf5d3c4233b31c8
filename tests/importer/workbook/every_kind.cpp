#include "tests/importer/workbook/every_kind.h"

#include "importer/workbook/import.h"

namespace {

class KeyClassifier : public LcWorkbookImport {
 public:
  KeyClassifier() : LcWorkbookImport(nullptr) {}
  bool ImportItems(unsigned short&) override { return false; }
  bool SyncLogin(void*, void*) override { return false; }
  bool SyncLogin(LcWorkbookDatabase*) override { return false; }
  bool UnSyncLogin() override { return false; }
};

LcWorkbookDatatype* AddType(LcWorkbook& workbook, const char16_t* name, int code,
                            enumDataType generic, enumDataTypeGroup group) {
  auto* type = new LcWorkbookDatatype();
  type->SetTypeName(name);
  type->SetPhysicalCode(code);
  type->SetGenericCode(generic);
  type->SetTypeGroup(group);
  workbook.data_types.AddDataType(type);
  return type;
}

// A row type with two fields, the second a set of a distinct type.
void AddNamedTypes(LcWorkbook& workbook) {
  LcWorkbookDatatype* money = AddType(workbook, u"distinct", 40, dtDecimal, dgNumeric);
  money->SetDistinct(true);
  money->SetExtendedId(2001);
  money->SetOwner(u"sales");
  money->AddExtendedTypeName(u"price");
  money->SetBaseCode(3);
  money->SetBaseOwner(u"system");
  money->SetBaseExtendedTypeName(u"money_base");
  money->SetGenericBaseCode(dtDecimal);
  money->SetBaseTypeGroup(dgNumeric);

  LcWorkbookDatatype* row = AddType(workbook, u"row", 22, dtRow, dgRow);
  row->SetExtendedId(2002);
  row->AddExtendedTypeName(u"address_t");
  row->AddExtendedTypeName(u"address_alias");
  auto* street = new LcWorkbookDatatype();
  street->SetName(u"street");
  street->SetTypeName(u"varchar");
  street->SetLength(40);
  row->AddComponent(street);
  auto* prices = new LcWorkbookDatatype();
  prices->SetName(u"prices");
  prices->SetTypeName(u"set");
  prices->SetGenericCode(dtSet);
  prices->SetTypeGroup(dgCollection);
  prices->AddComponent(money->Copy());
  row->AddComponent(prices);
}

void AddRoutines(LcWorkbook& workbook) {
  workbook.operators.Append(std::make_unique<LcWorkbookOperator>(u"<>", u"not equal"));
  auto* like =
      workbook.boolean_functions.Append(std::make_unique<LcWorkbookFunction>(u"", u"LIKE"));
  like->AddFunctionOverload(new LcWorkbookFunctionOverload(u"LIKE(a,b)", u""));
  auto* abs = workbook.functions.Append(std::make_unique<LcWorkbookFunction>(u"sales", u"ABS"));
  abs->AddFunctionOverload(new LcWorkbookFunctionOverload(u"ABS(integer)", u"integer"));
  abs->AddFunctionOverload(new LcWorkbookFunctionOverload(u"ABS(float)", u"float"));
  workbook.aggregates.Append(std::make_unique<LcWorkbookAggregate>(u"AVG", u"mean"));
  auto* procedure =
      workbook.procedures.Append(std::make_unique<LcWorkbookProcedure>(u"sales", u"close_month"));
  procedure->SetQualifier(u"shop");
  procedure->SetServer(u"node1");
}

void AddNames(LcWorkbook& workbook, const LcWorkbookDatatype& type) {
  for (const char16_t* name : {u"sales", u"audit"}) {
    workbook.owner_names.Append(std::make_unique<LcOwnerInfo>())->name = name;
  }
  auto* synonym = workbook.table_names.Append(std::make_unique<LcTableInfo>());
  synonym->owner = u"audit";
  synonym->name = u"clients";
  synonym->type = ttSynonym;
  synonym->synonym = {12, 0, u"node2", u"far", u"sales", u"customer"};
  auto* column = workbook.column_names.Append(std::make_unique<LcWBColumnInfo>());
  column->name = u"id";
  column->data_type.reset(type.Copy());
  workbook.column_names.Append(std::make_unique<LcWBColumnInfo>())->name = u"untyped";
}

}  // namespace

LcWorkbookTable* AddTable(LcWorkbook& workbook, const std::u16string& owner,
                          const std::u16string& name, enumTableType type) {
  auto* table = workbook.tables.Append(std::make_unique<LcWorkbookTable>());
  table->SetOwner(owner);
  table->SetName(name);
  table->SetType(type);
  return table;
}

LcWorkbookColumn* AddColumn(LcWorkbookTable* table, const std::u16string& name,
                            const LcWorkbookDatatype* type, bool required) {
  auto* column = new LcWorkbookColumn();
  column->SetName(name);
  column->SetRequired(required);
  column->SetColumnId(table->GetColumnCount() + 1);
  if (type != nullptr) {
    column->SetDataType(type->Copy(), true, true);
    column->SetPhysicalCode(type->GetPhysicalCode());
  }
  table->AddColumn(column);
  return column;
}

void AddToPrimaryKey(LcWorkbookTable* table, const std::u16string& column) {
  table->FindColumn(column)->SetPrimaryKey(true);
  table->GetPrimaryKey().AddKeyColumn(table->FindColumn(column));
}

LcWorkbookForeignKey* AddReference(LcWorkbookTable* from,
                                   const std::vector<std::u16string>& columns, LcWorkbookTable* to,
                                   const std::vector<std::u16string>& referenced) {
  auto* forward = new LcWorkbookForeignKey();
  auto* mirror = new LcWorkbookForeignKey();
  for (std::size_t i = 0; i < columns.size(); ++i) {
    LcWorkbookColumn* here = from->FindColumn(columns[i]);
    LcWorkbookColumn* there = to->FindColumn(referenced[i]);
    forward->SetKey(there);
    forward->SetForeignKey(here);
    mirror->SetKey(here);
    mirror->SetForeignKey(there);
  }
  LcWorkbookForeignKey::Pair(forward, mirror);
  KeyClassifier().SetKeyType(forward);
  KeyClassifier().SetKeyType(mirror);
  to->AddForeignKey(forward);
  from->AddForeignKey(mirror);
  return forward;
}

void BuildEveryKind(LcWorkbook& workbook, LcWorkbookFileInfo& info) {
  info.dbms_name = u"Handmade Server";
  info.dbms_version = 3;
  info.dbms_type = dbmsOther;
  info.route = u"odbc";
  info.result = true;

  LcWorkbookDatatype* integer = AddType(workbook, u"INTEGER", 4, dtInteger, dgInteger);
  integer->SetOtherTypeName(u"INT");
  integer->SetPrecision(10);
  LcWorkbookDatatype* text = AddType(workbook, u"VARCHAR", 12, dtChar, dgCharacter);
  text->SetSizeModifiable(true);
  LcWorkbookDatatype* decimal = AddType(workbook, u"DECIMAL", 3, dtDecimal, dgNumeric);
  decimal->SetSizeModifiable(true);
  LcWorkbookDatatype* blob = AddType(workbook, u"BLOB", -4, dtLongBinary, dgLong);
  blob->SetLong(true);
  AddNamedTypes(workbook);
  AddNames(workbook, *integer);

  // Refers to a table that comes later.
  LcWorkbookTable* line = AddTable(workbook, u"sales", u"order_line");
  AddColumn(line, u"region", integer, true);
  AddColumn(line, u"order_no", integer, true);
  AddColumn(line, u"line_no", integer, true);
  LcWorkbookColumn* price = AddColumn(line, u"price", decimal);
  price->SetPrecision(12);
  price->SetScale(2);
  AddToPrimaryKey(line, u"region");
  AddToPrimaryKey(line, u"order_no");
  AddToPrimaryKey(line, u"line_no");

  LcWorkbookTable* order = AddTable(workbook, u"sales", u"order");
  AddColumn(order, u"region", integer, true);
  AddColumn(order, u"order_no", integer, true)->SetGeneratedKey(true);
  AddColumn(order, u"customer_id", integer);
  AddToPrimaryKey(order, u"region");
  AddToPrimaryKey(order, u"order_no");

  LcWorkbookTable* customer = AddTable(workbook, u"sales", u"customer");
  AddColumn(customer, u"id", integer, true)->SetReadOnly(true);
  LcWorkbookColumn* name = AddColumn(customer, u"name", text, true);
  name->SetWidth(40);
  name->SetPrecision(40);
  AddColumn(customer, u"parent_id", integer);
  AddToPrimaryKey(customer, u"id");

  LcWorkbookTable* detail = AddTable(workbook, u"audit", u"customer");
  AddColumn(detail, u"id", integer, true);
  LcWorkbookColumn* since = AddColumn(detail, u"active");
  since->SetIntervalMin(ipHour);
  since->SetIntervalMax(ipDay);
  AddColumn(detail, u"home")->SetExtendedTypeName(u"address_t");
  AddColumn(detail, u"photo", blob);
  AddToPrimaryKey(detail, u"id");

  LcWorkbookTable* odd = AddTable(workbook, u"we\"ird", u"näme <&> |`'\\ {x} [y]\tz");
  AddColumn(odd, u"a \"b\" | <c> & {d}\\n`", text);
  AddColumn(odd, u"日本 \U0001F600 \xD800!", integer);  // ends with half a surrogate pair

  LcWorkbookTable* view = AddTable(workbook, u"sales", u"order_sum", ttView);
  AddColumn(view, u"region", integer);
  AddColumn(view, u"total", decimal);
  LcWorkbookTable* synonym = AddTable(workbook, u"audit", u"clients", ttSynonym);
  synonym->SetSynonymDetails({12, 3, u"node2", u"far", u"sales", u"customer"});
  AddColumn(synonym, u"id", integer, true);
  AddTable(workbook, u"", u"no columns");

  AddReference(line, {u"region", u"order_no"}, order, {u"region", u"order_no"});
  AddReference(order, {u"customer_id"}, customer, {u"id"});
  AddReference(customer, {u"parent_id"}, customer, {u"id"});
  AddReference(detail, {u"id"}, customer, {u"id"});
  AddReference(odd, {u"日本 \U0001F600 \xD800!"}, customer, {u"id"});
  AddRoutines(workbook);
}
