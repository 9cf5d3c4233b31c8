// The parts of the generic route that need no connection.
#include <gtest/gtest.h>

#include "catalogues/physical_codes.h"
#include "catalogues/type_lists.h"
#include "routes/generic/bound.h"
#include "routes/generic/column_reader.h"
#include "routes/generic/connection_facts.h"
#include "routes/generic/generic_route.h"
#include "routes/generic/type_info_reader.h"

namespace odbcimport::generic {
namespace {

TEST(TableTypes, FollowTheItemMask) {
  struct {
    std::uint32_t items;
    bool include_system;
    const char16_t* list;
  } const cases[] = {
      {ibTables, false, u"'TABLE'"},
      {ibTableNames, false, u"'TABLE'"},
      {ibViews, true, u"'VIEW'"},
      {ibTables | ibViews, false, u"'TABLE','VIEW'"},
      {ibTables, true, u"'TABLE','SYSTEM TABLE'"},
      {ibTableNames | ibViewNames, true, u"'TABLE','VIEW','SYSTEM TABLE'"},
      {ibProcedures, true, u""},
  };
  for (const auto& c : cases) {
    LcImportChoices choices;
    choices.item_mask = c.items;
    choices.include_system = c.include_system;
    BoundText list;
    list.Append(u"left over");
    SetupTableTypesODBC(choices, list);
    EXPECT_EQ(list.Read(), c.list);
    EXPECT_EQ(list.ArgumentOrNull() == nullptr, c.list[0] == 0);
  }
}

TEST(InformixTypes, TakeTheListedTypeAndTheQualifier) {
  struct {
    const char16_t* name;
    int code;  // -1: none
    enumIntervalPart max;
    enumIntervalPart min;
  } const cases[] = {
      {u"float", pcFloat, ipNone, ipNone},
      {u"SMALLFLOAT", pcReal, ipNone, ipNone},
      {u"Serial", pcSerial, ipNone, ipNone},
      {u"DATETIME YEAR TO DAY", pcDateTime, ipYear, ipDay},
      {u"DATETIME HOUR TO SECOND", pcDateTime, ipHour, ipSecond},
      {u"datetime year to second", pcDateTime, ipYear, ipSecond},
      {u"varchar", pcVarChar, ipNone, ipNone},
      {u"DATETIME YEAR TO MONTH", -1, ipNone, ipNone},
      {u"", -1, ipNone, ipNone},
  };
  LcODBCDatatypeList importer_types(dbmsUnknown, 0);
  LcWorkbookDatatypeList workbook_types;
  for (const auto& c : cases) {
    LcWorkbookColumn column;
    EXPECT_EQ(AccountForIUSVariations(&column, c.name, &importer_types, &workbook_types),
              c.code >= 0);
    EXPECT_EQ(column.GetDataType() != nullptr ? column.GetDataType()->GetPhysicalCode() : -1,
              c.code);
    EXPECT_EQ(column.GetIntervalMax(), c.max);
    EXPECT_EQ(column.GetIntervalMin(), c.min);
  }
}

TEST(InformixTypes, AddASerialPerColumnToTheImporterAndOneToTheWorkbook) {
  LcODBCDatatypeList importer_types(dbmsUnknown, 0);
  LcWorkbookDatatypeList workbook_types;
  for (int i = 0; i < 3; ++i) {
    LcWorkbookColumn column;
    EXPECT_TRUE(AccountForIUSVariations(&column, u"SERIAL", &importer_types, &workbook_types));
    EXPECT_TRUE(AccountForIUSVariations(&column, u"SERIAL", &importer_types, nullptr));
  }
  EXPECT_EQ(importer_types.GetCount(), 26U);
  EXPECT_EQ(workbook_types.GetCount(), 1U);

  LcODBCDatatypeList empty(dbmsUnknown, 0);
  empty.EmptyList();
  LcWorkbookColumn column;
  EXPECT_FALSE(AccountForIUSVariations(&column, u"FLOAT", &empty, nullptr));
}

TEST(GenericCodes, FollowThePhysicalCode) {
  struct {
    int physical;
    enumDataType generic;
    enumDataTypeGroup group;
    bool size_modifiable;
  } const cases[] = {
      {pcChar, dtChar, dgCharacter, true},
      {pcVarChar, dtChar, dgCharacter, true},
      {pcNumeric, dtDecimal, dgNumeric, true},
      {pcBit, dtInteger, dgNumeric, false},
      {pcTinyInt, dtInteger, dgNumeric, false},
      {pcFloat, dtFloat, dgNumeric, false},
      {pcVarBinary, dtBinary, dgBinary, false},
      {pcBinary, dtBinary, dgBinary, false},
      {pcBigInt, dtInteger, dgNumeric, false},
      {pcLongVarChar, dtLongChar, dgLong, false},
      {pcLongVarBinary, dtLongBinary, dgBinary, false},
      {pcInterval, dtUnknown, dgOther, false},
      {-1, dtUnknown, dgOther, false},
  };
  for (const auto& c : cases) {
    LcWorkbookDatatypeList types;
    auto type = std::make_unique<LcWorkbookDatatype>();
    type->SetPhysicalCode(c.physical);
    const LcWorkbookDatatype* added = types.Append(std::move(type));
    types.Append(nullptr);
    SetupGenericDataTypeCodes(types);
    EXPECT_EQ(added->GetGenericCode(), c.generic) << c.physical;
    EXPECT_EQ(added->GetTypeGroup(), c.group) << c.physical;
    EXPECT_EQ(added->IsSizeModifiable(), c.size_modifiable) << c.physical;
  }
}

TEST(RemoveNoColTables, RemovesOnlyWhatLiesBehindAnEmptyEntry) {
  const auto tables = [](LcWorkbookTableList& list, const char16_t* names) {
    for (; *names != 0; ++names) {
      if (*names == u'-') {
        list.Append(nullptr);
        continue;
      }
      auto table = std::make_unique<LcWorkbookTable>();
      table->SetName(std::u16string(1, *names));
      if (*names >= u'a') table->AddColumn(std::make_unique<LcWorkbookColumn>().release());
      list.Append(std::move(table));
    }
  };
  struct {
    const char16_t* before;  // lower case: with a column
    const char16_t* after;
  } const cases[] = {
      {u"aBc", u"aBc"},       {u"", u""},         {u"aB-Cd", u"aB-"}, {u"-aB", u"-"},
      {u"a-bC-dE", u"a--dE"}, {u"a--B", u"a--B"},
  };
  for (const auto& c : cases) {
    LcWorkbookTableList list;
    tables(list, c.before);
    RemoveNoColTables(&list);
    std::u16string after;
    for (const LcWorkbookTable* table : list) after += table != nullptr ? table->GetName() : u"-";
    EXPECT_EQ(after, c.after);
  }
}

}  // namespace
}  // namespace odbcimport::generic
