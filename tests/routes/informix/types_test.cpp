// Column type setup, and Universal Server's types from its catalog into the workbook.
#include <gmock/gmock.h>

#include "catalogues/conversions.h"
#include "routes/informix/column_types.h"
#include "routes/informix/named_types.h"
#include "tests/routes/informix/informix_import.h"

namespace odbcimport::informix {
namespace {

using test::InformixImport;
using test::Lines;
using test::ToUtf8;
using testing::ElementsAre;

std::string TypeAndNumber(int code, int generic, int group) {
  return std::to_string(code) + "/" + std::to_string(generic) + "/" + std::to_string(group);
}

// Every setting of a type in one line: codes, names, sizes, base, then its components in brackets.
std::string Describe(const LcWorkbookDatatype* type) {
  if (type == nullptr) return "no type";
  std::string text =
      TypeAndNumber(type->GetPhysicalCode(), type->GetGenericCode(), type->GetTypeGroup()) + " " +
      ToUtf8(type->GetTypeName());
  if (!type->GetName().empty()) text += " of field " + ToUtf8(type->GetName());
  for (int i = 0; i < type->GetExtendedTypeNameCount(); ++i) {
    text += " <" + ToUtf8(type->GetExtendedTypeName(i)) + ">";
  }
  if (type->GetExtendedId() != 0) text += " #" + std::to_string(type->GetExtendedId());
  if (!type->GetOwner().empty()) text += " of " + ToUtf8(type->GetOwner());
  text += " " + std::to_string(type->GetLength()) + "," + std::to_string(type->GetPrecision()) +
          "," + std::to_string(type->GetScale());
  if (type->IsLong()) text += " long";
  if (type->IsSizeModifiable()) text += " sized";
  if (type->IsDistinct()) text += " distinct";
  const std::string base =
      TypeAndNumber(type->GetBaseCode(), type->GetGenericBaseCode(), type->GetBaseTypeGroup());
  if (base != "0/0/0" || !type->GetBaseExtendedTypeName().empty()) {
    text += " base " + base + " " + ToUtf8(type->GetBaseOwner()) + "." +
            ToUtf8(type->GetBaseExtendedTypeName());
  }
  for (int i = 0; i < type->GetComponentCount(); ++i) {
    text += (i == 0 ? " [" : "; ") + Describe(type->GetComponent(i));
  }
  return type->GetComponentCount() > 0 ? text + "]" : text;
}

TEST(ColumnTypes, ComeFromTypeNumberAndLength) {
  InformixImport run("informix");
  run.base.targets.data_types = &run.workbook.data_types;
  ImportSession session = run.Session();
  GetBuiltInDataTypes(session);
  ComplexTypes complex_types(session);
  const struct {
    int coltype;
    long collength;
    const char* column;  // without its name
  } cases[] = {
      {261, 2562, "2 2562/10/2 decimal !"},       // DECIMAL(10,2) NOT NULL
      {256, 13, "0 13/13/0 char !"},              // CHAR(13) NOT NULL, whose number is all flag
      {0, -5, "0 -5/4294967291/0 char"},          // no server's length
      {262, 4, "19 4/4/0 serial ! *"},            // SERIAL NOT NULL
      {13, 2049, "8 2049/1/0 varchar"},           // VARCHAR
      {10, 3594, "17 3594/8/0 datetime 1-6"},     // DATETIME YEAR TO SECOND
      {266, 4365, "17 4365/8/0 datetime 1-9 !"},  // DATETIME YEAR TO FRACTION(3) NOT NULL
      {14, 836, "20 836/836/0 interval 3-3"},     // INTERVAL DAY TO DAY
      {10, 3594 + 16, "17 3610/8/0 datetime"},    // a unit that there is not
      {10, 14 * 256 + 10 * 16, "17 3744/8/0 datetime"},  // from SECOND to YEAR
      {10, 0, "17 0/8/0 datetime"},                      // no qualifier
      {10, -10, "17 -10/8/0 datetime"},                  //
      {0x800 | 10, 3594, "17 3594/8/0 datetime"},  // with a further bit it is no plain DATETIME
      {0x900 | 5, 2562, "2 2562/10/2 decimal !"},
      {0x800 | 5, 2562, "2 2562/10/2 decimal"},  // but a DECIMAL still has its digits
      {99, 7, "0 7/7/0 char"},                   // not known: CHAR
  };
  for (const auto& c : cases) {
    const int code =
        ConvertDatabaseTypeToODBC(test::ToUtf16(std::to_string(c.coltype)), dbmsInformix)
            .value_or(pcChar);
    auto* table = run.workbook.tables.Append(std::make_unique<LcWorkbookTable>());
    table->SetName(test::ToUtf16("t" + std::to_string(run.workbook.tables.GetCount())));
    auto* column = new LcWorkbookColumn;
    table->AddColumn(column);
    ColumnDatatypeSetup(session, complex_types, column, code, c.coltype, true, 0, c.collength);
    EXPECT_THAT(run.Columns(ToUtf8(table->GetName())), ElementsAre(std::string(" ") + c.column))
        << c.coltype << " " << c.collength;
  }
}

TEST(NamedTypes, ArriveWithBaseSizesAndComponents) {
  InformixImport run("informix");
  run.base.choices.item_mask = ibDataTypes;
  ASSERT_TRUE(run.Run());
  EXPECT_EQ(run.events, (Lines{"0", "2 5 0", "3", "1"}));
  const LcWorkbookDatatypeList& types = run.workbook.data_types;
  Lines lines;
  for (const LcWorkbookDatatype* type : types) {
    if (type->GetExtendedId() != 0) lines.push_back(Describe(type));
  }
  EXPECT_THAT(
      lines,
      ElementsAre("40/21/8 varopaque <lvarchar> #1 of informix 2048,2048,0",
                  "40/21/8 varopaque <sendrecv> #2 of informix 0,0,0",
                  "40/21/8 varopaque <impexp> #3 of informix 0,0,0",
                  "41/13/8 fixedopaque <boolean> #5 of informix 1,1,0",
                  "41/10/5 fixedopaque <blob> #10 of informix 72,72,0 long",
                  "41/9/5 fixedopaque <clob> #11 of informix 72,72,0 long",
                  // Distinct types of a built-in type, and of another distinct type.
                  "0/1/0 char <isbn> #2048 of joe 13,13,0 distinct base 0/1/0 .",
                  "2/2/1 decimal <euro> #2049 of joe 2562,10,2 distinct base 2/2/1 .",
                  "2/2/1 decimal <deposit> #2050 of joe 2562,10,2 distinct base 5/2/1 joe.euro",
                  "41/13/8 fixedopaque <shelf_mark> #2051 of joe 24,24,0",
                  "40/21/8 varopaque <polygon> #2052 of joe 32768,32768,0",
                  "45/11/6 row <address> #2053 of joe 0,0,0 ["
                  "8/1/0 varchar of field street 60,60,0; 8/1/0 varchar of field city 40,40,0; "
                  "0/1/0 char of field zip 10,10,0]",
                  // A field of a named type keeps its name; one of a type without a name is read.
                  "45/11/6 row <person> #2054 of joe 0,0,0 ["
                  "0/1/0 nchar of field name 80,80,0; 45/11/6 row of field home <address> of joe "
                  "200,200,0; "
                  "42/15/7 set of field phones of joe 2048,2048,0 base 8/1/0 .varchar; "
                  "2/2/1 decimal of field balance <euro> of joe 2562,10,2]",
                  "41/13/8 fixedopaque <picture> #2055 of joe 72,72,0 distinct base 41/10/5 "
                  "informix.blob"));
  EXPECT_EQ(types.GetDataTypeByPhysicalCode(15)->GetPrecision(), 10);  // date
}

// Without a list of the server's types, those without a name are put together for the column.
TEST(ComplexTypes, AreReadForTheColumnThatHasThem) {
  InformixImport run("informix");
  run.SelectTable("joe", "catalogue_card");
  ASSERT_TRUE(run.Run());
  const LcWorkbookTable* table = run.Table("joe.catalogue_card");
  ASSERT_NE(table, nullptr);
  Lines lines;
  for (const char* name :
       {"printed_at", "size", "keywords", "marks", "chapters", "branches", "points"}) {
    lines.push_back(Describe(table->FindColumn(test::ToUtf16(name))->GetDataType()));
  }
  EXPECT_THAT(lines,
              ElementsAre("48/11/6 row #2053 0,0,0 [8/1/0 varchar of field street 60,60,0; "
                          "8/1/0 varchar of field city 40,40,0; 0/1/0 char of field zip 10,10,0]",
                          "45/11/6 row #2060 0,0,0 [3/3/2 integer of field width 4,4,0; "
                          "3/3/2 integer of field height 4,4,0]",
                          "42/15/7 set #2061 0,0,0 base 8/1/0 .VARCHAR",
                          "43/16/7 multiset #2062 0,0,0 base 3/3/2 .INTEGER",
                          "44/14/7 list <set> #2063 0,0,0 base 0/1/0 .CHAR",
                          "42/15/7 set #2065 0,0,0 base 45/11/6 joe.address",
                          "44/14/7 list #2066 0,0,0 base 45/11/6 joe.ROW ["
                          "3/3/2 integer of field x 4,4,0; 3/3/2 integer of field y 4,4,0]"));
}

TEST(ComplexTypes, ThatContainThemselvesComeToAnEnd) {
  const char* const attributes = "insert into informix.sysattrtypes values ";
  InformixImport run(
      "informix",
      {// A row with a field of its own type, a set of itself, and two types that take turns.
       std::string(attributes) + "(3000,1,0,0,'',0,22,8,3000), (3000,2,1,1,'first',1,2,4,0),"
                                 "(3000,3,1,1,'self',2,22,8,3000), (3001,1,0,0,'',0,19,8,3001),"
                                 "(3001,2,1,1,'',0,19,8,3001), (3002,1,0,0,'',0,21,8,3002),"
                                 "(3002,2,1,1,'',0,22,8,3003), (3003,1,0,0,'',0,22,8,3003),"
                                 "(3003,2,1,1,'back',1,21,8,3002)",
       "insert into informix.systables (tabid,owner,tabname,tabtype) values (200,'odd','odd','T')",
       "insert into informix.syscolumns (tabid,colno,colname,coltype,collength,extended_id) values "
       "(200,1,'r',22,8,3000), (200,2,'s',19,8,3001), (200,3,'l',21,8,3002)"});
  run.SelectTable("odd", "odd");
  EXPECT_TRUE(run.Run());
  const LcWorkbookTable* table = run.Table("odd.odd");
  ASSERT_NE(table, nullptr);
  // What was read before the circle closed is kept.
  EXPECT_EQ(Describe(table->GetColumn(0)->GetDataType()),
            "45/11/6 row #3000 0,0,0 [3/3/2 integer of field first 4,4,0]");
  EXPECT_EQ(Describe(table->GetColumn(1)->GetDataType()), "42/15/7 set <set> #3001 0,0,0");
  EXPECT_EQ(Describe(table->GetColumn(2)->GetDataType()),
            "44/14/7 list #3002 0,0,0 base 45/11/6 .");
}

TEST(ComplexTypes, NestedBeyond64LevelsComeToAnEnd) {
  // Set n holds set n + 1; the last holds integers.
  const auto levels = [](int count) {
    InformixImport run("informix", {"insert into informix.sysattrtypes with recursive c(n) as "
                                    "(select 1 union all select n + 1 "
                                    "from c where n < " +
                                    std::to_string(count) +
                                    ") select 4000 + n, s, s - 1, s - 1, '', 0, "
                                    "case when s = 2 and n = " +
                                    std::to_string(count) +
                                    " then 2 else 19 end, 4, 4000 + n + s - 1 "
                                    "from c join (select 1 as s union all select 2)"});
    ImportSession session = run.Session();
    ComplexTypes complex_types(session);
    LcWorkbookDatatype type;
    const bool whole = complex_types.GetComplexType(4001, &type);
    EXPECT_EQ(whole, type.GetBaseCode() == 3);
    return std::pair(whole, type.GetExtendedTypeNameCount());
  };
  EXPECT_EQ(levels(64), std::pair(true, 63));
  EXPECT_EQ(levels(65), std::pair(false, 64));
}

// Rows of two fields that are both of the next row type double with every level.
TEST(ComplexTypes, OfEndlessWidthComeToAnEnd) {
  InformixImport run(
      "informix",
      {"insert into informix.sysattrtypes with recursive c(n) as (select 1 union all select n + 1 "
       "from c where n < 40) select 5000 + n, s, min(s - 1, 1), min(s - 1, 1), 'f' || s, s, 22, 8, "
       "5001 + n from c join (select 1 as s union all select 2 union all select 3)"});
  ImportSession session = run.Session();
  ComplexTypes complex_types(session);
  LcWorkbookDatatype type;
  EXPECT_FALSE(complex_types.GetComplexType(5001, &type));
}

}  // namespace
}  // namespace odbcimport::informix
