#include "tests/importer/workbook/every_kind.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "tests/support/bare_import.h"

void ReadEveryKind(LcWorkbook& workbook, LcWorkbookFileInfo& info) {
  std::ifstream in(WB_SOURCE_DIR "/tests/export/golden/every_kind.json", std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(in), {}};
  std::string why;
  if (!ReadWorkbookFile(text, workbook, info, why)) ADD_FAILURE() << why;
  // A name that no file can hold: it ends with half a surrogate pair.
  workbook.tables.GetAt(4)->GetColumn(1)->SetName(u"日本 \U0001F600 \xD800!");
}

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
  wbtest::BareImport classifier(nullptr);
  classifier.SetKeyType(forward);
  classifier.SetKeyType(mirror);
  to->AddForeignKey(forward);
  from->AddForeignKey(mirror);
  return forward;
}
