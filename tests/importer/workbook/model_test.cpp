// The model's promises that a fault would break without a crash: look-ups that stay right while
// things change, copies that share without showing it, keys that leave nothing dangling.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/utf.h"
#include "importer/workbook/import.h"
#include "importer/workbook/type_text.h"
#include "tests/importer/workbook/every_kind.h"

namespace {

using testing::ElementsAre;

LcWorkbookDatatype* AddType(LcWorkbookDatatypeList& list, const std::u16string& name, int code) {
  auto* type = new LcWorkbookDatatype();
  type->SetTypeName(name);
  type->SetPhysicalCode(code);
  list.AddDataType(type);
  return type;
}

TEST(Tables, AreFoundAsInAWalkFromTheHeadWhileTheyChange) {
  LcWorkbook workbook;
  LcWorkbookTableList& tables = workbook.tables;
  workbook.tables.Append(nullptr);
  LcWorkbookTable* first = AddTable(workbook, u"joe", u"t");
  LcWorkbookTable* second = AddTable(workbook, u"joe", u"t");
  LcWorkbookTable* third = AddTable(workbook, u"ann", u"t");
  third->SetSynonymId(5);
  EXPECT_EQ(tables.FindTable(u"joe", u"t"), first);
  EXPECT_EQ(tables.FindTable(u"ann", u"t"), third);
  EXPECT_EQ(tables.FindTable(u"JOE", u"t"), nullptr);
  EXPECT_EQ(tables.FindTable(u"", u"joet"), nullptr);
  EXPECT_EQ(tables.FindTableNoOwner(u"t"), first);
  EXPECT_EQ(tables.FindTableById(5), third);

  first->SetName(u"u");
  EXPECT_EQ(tables.FindTable(u"joe", u"t"), second);
  EXPECT_EQ(tables.FindTableNoOwner(u"u"), first);
  first->SetSynonymDetails({5, 0, u"", u"", u"", u""});
  EXPECT_EQ(tables.FindTableById(5), first);
  second->SetOwner(u"ann");
  EXPECT_EQ(tables.FindTable(u"ann", u"t"), second);

  // Named only after it was appended and after the list was searched.
  LcWorkbookTable* late = AddTable(workbook, u"", u"");
  EXPECT_EQ(tables.FindTable(u"", u"late"), nullptr);
  late->SetName(u"late");
  late->SetSynonymId(-7);
  EXPECT_EQ(tables.FindTable(u"", u"late"), late);
  EXPECT_EQ(tables.FindTableById(-7), late);
  tables.EmptyList();
  EXPECT_EQ(tables.FindTable(u"", u"late"), nullptr);
}

TEST(Columns, AreFoundInShortAndLongTablesWhileTheyChange) {
  for (const int count : {3, 400}) {
    LcWorkbook workbook;
    LcWorkbookTable* table = AddTable(workbook, u"", u"t");
    for (int i = 0; i < count; ++i) AddColumn(table, u"c" + base::ToUtf16(std::to_string(i)));
    LcWorkbookColumn* last = table->GetColumn(count - 1);
    EXPECT_EQ(table->FindColumn(last->GetName()), last);
    EXPECT_EQ(table->FindColumnById(count), last);
    EXPECT_EQ(table->FindColumn(u"C1"), nullptr);
    last->SetName(u"c1");
    EXPECT_EQ(table->FindColumn(u"c1"), table->GetColumn(1));
    table->GetColumn(1)->SetName(u"other");
    EXPECT_EQ(table->FindColumn(u"c1"), last);
    last->SetColumnId(1);
    EXPECT_EQ(table->FindColumnById(1), table->GetColumn(0));
    table->GetColumn(0)->SetColumnId(-1);
    EXPECT_EQ(table->FindColumnById(1), last);
    EXPECT_EQ(table->FindColumnById(count), nullptr);
    EXPECT_EQ(table->GetColumn(count), nullptr);
    EXPECT_EQ(table->GetColumn(-1), nullptr);
  }
}

TEST(Functions, AreFoundByOwnerAndNameWhileTheyChange) {
  LcWorkbookFunctionList list;
  list.Append(nullptr);
  auto* abs = list.Append(std::make_unique<LcWorkbookFunction>(u"", u"abs"));
  auto* other = list.Append(std::make_unique<LcWorkbookFunction>(u"joe", u"abs"));
  EXPECT_EQ(list.FindFunction(u"joe", u"abs"), other);
  EXPECT_EQ(list.FindFunction(u"joe", u"ABS"), nullptr);
  abs->SetOwner(u"joe");
  EXPECT_EQ(list.FindFunction(u"joe", u"abs"), abs);
  EXPECT_EQ(list.FindFunction(u"", u"abs"), nullptr);
}

TEST(Datatypes, AreFoundByEachNameCodeAndId) {
  LcWorkbookDatatypeList list;
  list.AddDataType(nullptr);
  LcWorkbookDatatype* lower = AddType(list, u"größe", 3);
  LcWorkbookDatatype* upper = AddType(list, u"GRÖßE", 4);
  LcWorkbookDatatype* other = AddType(list, u"int", 4);
  EXPECT_EQ(list.GetDataTypeByName(u"GRÖßE", tnTypeName), upper);
  EXPECT_EQ(list.GetDataTypeByPhysicalName(u"GRÖßE"), lower);
  EXPECT_EQ(list.GetDataTypeByPhysicalCode(4), upper);
  EXPECT_EQ(list.GetDataTypeByPhysicalCode(4, u"INT"), other);
  EXPECT_EQ(list.GetDataTypeByPhysicalCode(3, u"INT"), nullptr);
  EXPECT_EQ(list.GetDataTypeByName(u"", tnExtendedTypeName), nullptr);

  other->AddExtendedTypeName(u"row_t");
  other->AddExtendedTypeName(u"alias_t");
  EXPECT_EQ(list.GetDataTypeByName(u"row_t", tnExtendedTypeName), other);
  EXPECT_EQ(list.GetDataTypeByName(u"alias_t", tnExtendedTypeName), nullptr);
  other->SetExtendedId(2007);
  other->SetOtherTypeName(u"integer");
  other->SetName(u"field");
  EXPECT_EQ(list.GetDataTypeByExtendedId(2007), other);
  EXPECT_EQ(list.GetDataTypeByName(u"integer", tnOtherTypeName), other);
  EXPECT_EQ(list.GetDataTypeByName(u"field", tnName), other);
  other->SetExtendedTypeName(u"new_t", 0);
  EXPECT_EQ(list.GetDataTypeByName(u"row_t", tnExtendedTypeName), nullptr);
  lower->SetPhysicalCode(4);
  EXPECT_EQ(list.GetDataTypeByPhysicalCode(4), lower);
}

TEST(Datatypes, AreSharedByCopiedListsThatBothSeeChanges) {
  LcWorkbookDatatypeList list;
  LcWorkbookDatatype* type = AddType(list, u"int", 4);
  LcWorkbookDatatypeList copy(list);
  LcWorkbookDatatypeList assigned;
  AddType(assigned, u"gone", 1);
  assigned = list;
  for (const LcWorkbookDatatypeList* each : {&list, &copy, &assigned}) {
    EXPECT_EQ(each->GetDataTypeByPhysicalName(u"int"), type);
  }
  type->SetTypeName(u"integer");
  for (const LcWorkbookDatatypeList* each : {&list, &copy, &assigned}) {
    EXPECT_EQ(each->GetDataTypeByPhysicalName(u"int"), nullptr);
    EXPECT_EQ(each->GetDataTypeByPhysicalName(u"integer"), type);
  }
  list.EmptyList();
  EXPECT_EQ(copy.GetDataTypeByPhysicalName(u"integer")->GetPhysicalCode(), 4);
}

TEST(Datatypes, CopiesShareUntilOneChanges) {
  LcWorkbookDatatypeList list;
  LcWorkbookDatatype* type = AddType(list, u"int", 4);
  type->SetLength(7);
  EXPECT_EQ(list.GetDataTypeByPhysicalName(u"int"), type);
  const std::unique_ptr<LcWorkbookDatatype> copy(type->Copy());
  EXPECT_EQ(&copy->GetTypeName(), &type->GetTypeName());  // one text in memory
  copy->SetTypeName(u"real");
  copy->SetLength(8);
  EXPECT_EQ(type->GetTypeName(), u"int");
  EXPECT_EQ(type->GetLength(), 7u);
  // The type that the list has indexed tells it of changes, its copy does not disturb it.
  const std::unique_ptr<LcWorkbookDatatype> other(type->Copy());
  type->SetTypeName(u"long");
  EXPECT_EQ(list.GetDataTypeByPhysicalName(u"long"), type);
  EXPECT_EQ(other->GetTypeName(), u"int");
}

TEST(KeyLists, SkipTheirHoles) {
  LcWorkbookColumn a, b, c;
  LcWorkbookKeyList keys;
  EXPECT_TRUE(keys.InsertKeyColumn(&c, 32767));
  EXPECT_TRUE(keys.InsertKeyColumn(&a, 0));
  EXPECT_TRUE(keys.InsertKeyColumn(&b, 0));  // in front of the one that is there
  EXPECT_THAT(keys.GetColumns(), ElementsAre(&b, &a, &c));
  EXPECT_EQ(keys.GetCount(), 3);
  EXPECT_FALSE(keys.InsertKeyColumn(&a, -1));
  EXPECT_FALSE(keys.InsertKeyColumn(&a, 32768));
  EXPECT_EQ(keys.GetCount(), 3);
}

// parent <- child, parent <- parent, and child <- grandchild.
struct Family {
  Family() {
    parent = AddTable(workbook, u"", u"parent");
    child = AddTable(workbook, u"", u"child");
    grandchild = AddTable(workbook, u"", u"grandchild");
    for (LcWorkbookTable* table : {parent, child, grandchild}) {
      AddColumn(table, u"id");
      AddColumn(table, u"up");
      AddToPrimaryKey(table, u"id");
    }
    own = AddReference(parent, {u"up"}, parent, {u"id"});
    first = AddReference(child, {u"up"}, parent, {u"id"});
    second = AddReference(grandchild, {u"up"}, child, {u"id"});
  }
  LcWorkbook workbook;
  LcWorkbookTable* parent;
  LcWorkbookTable* child;
  LcWorkbookTable* grandchild;
  LcWorkbookForeignKey* own;
  LcWorkbookForeignKey* first;
  LcWorkbookForeignKey* second;
};

TEST(ForeignKeys, LoseTheirPartnerWithIt) {
  Family f;
  LcWorkbookForeignKey* mirror = f.first->GetPartner();
  EXPECT_EQ(mirror->GetRole(), fkMirror);
  EXPECT_EQ(mirror->GetTable(), f.child);
  auto taken = f.child->RemoveForeignKey(mirror);
  ASSERT_EQ(taken.get(), mirror);
  EXPECT_EQ(taken->GetTable(), nullptr);
  EXPECT_EQ(f.child->RemoveForeignKey(mirror), nullptr);
  taken.reset();
  EXPECT_EQ(f.first->GetPartner(), nullptr);
}

TEST(ForeignKeys, GoWithTheTablesTheyReferTo) {
  Family f;
  LcWorkbookForeignKey* unpaired = new LcWorkbookForeignKey();
  unpaired->SetForeignKey(f.grandchild->GetColumn(0));
  f.parent->AddForeignKey(unpaired);
  f.workbook.tables.Append(nullptr);
  AddTable(f.workbook, u"", u"behind");
  f.workbook.tables.RemoveTablesFrom(1);
  EXPECT_EQ(f.workbook.tables.FindTableNoOwner(u"child"), nullptr);
  EXPECT_NE(f.workbook.tables.FindTableNoOwner(u"behind"), nullptr);
  ASSERT_EQ(f.parent->GetForeignKeys().size(), 2u);
  EXPECT_EQ(f.parent->GetForeignKeys()[0].get(), f.own);
  EXPECT_EQ(f.own->GetPartner(), f.parent->GetForeignKeys()[1].get());
}

TEST(ForeignKeys, GoWithATableThatNoListHolds) {
  Family f;
  auto loose = std::make_unique<LcWorkbookTable>();
  AddColumn(loose.get(), u"up");
  AddReference(loose.get(), {u"up"}, f.parent, {u"id"});
  EXPECT_EQ(f.parent->GetForeignKeys().size(), 4u);
  loose.reset();
  EXPECT_EQ(f.parent->GetForeignKeys().size(), 3u);
}

TEST(ForeignKeys, AreOneToOneWhereTheForeignSideIsAPrimaryKey) {
  LcWorkbook workbook;
  LcWorkbookTable* parent = AddTable(workbook, u"", u"parent");
  LcWorkbookTable* child = AddTable(workbook, u"", u"child");
  for (LcWorkbookTable* table : {parent, child}) {
    for (const char16_t* name : {u"a", u"b", u"c"}) AddColumn(table, name);
    AddToPrimaryKey(table, u"a");
    AddToPrimaryKey(table, u"b");
  }
  EXPECT_TRUE(AddReference(child, {u"a", u"b"}, parent, {u"a", u"b"})->IsOneToOne());
  EXPECT_TRUE(AddReference(child, {u"b", u"a"}, parent, {u"a", u"b"})->IsOneToOne());
  EXPECT_FALSE(AddReference(child, {u"a", u"b", u"c"}, parent, {u"a", u"b", u"c"})->IsOneToOne());
  EXPECT_FALSE(AddReference(child, {u"c", u"b"}, parent, {u"a", u"b"})->IsOneToOne());
  EXPECT_FALSE(AddReference(child, {}, parent, {})->IsOneToOne());
}

TEST(Utf, ReplacesWhatIsNotValid) {
  EXPECT_EQ(base::ToUtf8(u"ä\U0001F600"), "ä\U0001F600");
  EXPECT_EQ(base::ToUtf8(u"\xDC00x\xD800"), "\uFFFDx\uFFFD");
  EXPECT_EQ(base::ToUtf16("a\xFF"
                          "b\xE2\x82"),
            u"a\uFFFDb\uFFFD");
  EXPECT_EQ(base::ToUtf16("\U0001F600"), u"\U0001F600");
}

TEST(TypeText, HasTheSizesThatBelongToTheType) {
  const struct {
    const char16_t* type;
    bool sized;
    enumDataTypeGroup group;
    int width;
    unsigned long precision;
    std::uint16_t scale;
    const char16_t* text;
  } cases[] = {
      {u"char", true, dgCharacter, 8, 0, 0, u"char(8)"},
      {u"char", true, dgCharacter, 8, 40, 0, u"char(40)"},
      {u"char", true, dgCharacter, -1, 0, 0, u"char"},
      {u"text", true, dgCharacter, 0, 65534, 0, u"text(65534)"},
      {u"text", true, dgCharacter, 0, 65535, 0, u"text"},  // without a limit
      {u"decimal", true, dgNumeric, 0, 12, 2, u"decimal(12,2)"},
      {u"decimal", true, dgNumeric, 0, 12, 0, u"decimal(12)"},
      {u"char", true, dgCharacter, 0, 12, 2, u"char(12)"},
      {u"integer", false, dgNumeric, 4, 10, 0, u"integer"},
      {u"VarBinary", false, dgBinary, 20, 0, 0, u"VarBinary(20)"},
      {u"raw", false, dgBinary, 16, 0, 0, u"raw(16)"},
  };
  for (const auto& c : cases) {
    LcWorkbookDatatype type;
    type.SetTypeName(c.type);
    type.SetSizeModifiable(c.sized);
    type.SetTypeGroup(c.group);
    LcWorkbookColumn column;
    column.SetDataType(type.Copy(), true, true);
    column.SetWidth(c.width);
    column.SetPrecision(c.precision);
    column.SetScale(c.scale);
    EXPECT_EQ(LcTypeText(column), c.text);
  }
}

TEST(TypeText, TellsIntervalsByWhatIsKnownOfThem) {
  const struct {
    const char16_t* type;
    enumIntervalPart max, min;
    const char16_t* text;
  } cases[] = {
      {u"", ipYear, ipMonth, u"interval year to month"},
      {u"datetime", ipHour, ipFraction3, u"datetime hour to fraction(3)"},
      {u"datetime", ipDay, ipNone, u"datetime day"},
      {u"datetime", ipNone, ipSecond, u"datetime second"},
      {u"datetime", ipNone, ipNone, u"datetime"},
  };
  for (const auto& c : cases) {
    LcWorkbookDatatype type;
    type.SetTypeName(c.type);
    LcWorkbookColumn column;
    column.SetDataType(type.Copy(), true, true);
    column.SetIntervalMax(c.max);
    column.SetIntervalMin(c.min);
    EXPECT_EQ(LcTypeText(column), c.text);
  }
}

}  // namespace
