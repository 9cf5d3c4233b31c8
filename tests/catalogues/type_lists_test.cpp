// The hard-coded type lists: which list a server gets, and what the codes in it are for.
#include "catalogues/type_lists.h"

#include <gtest/gtest.h>

#include <tuple>

#include "catalogues/physical_codes.h"

namespace odbcimport {
namespace {

TEST(TypeLists, ChooseByServerAndVersion) {
  struct {
    LeDBMSType server;
    int version;
    std::size_t count;
    const char16_t* first;
    const char16_t* last;
  } const cases[] = {
      {dbmsUnknown, 0, 20, u"CHAR", u"INTERVAL"},      {dbmsInformix, 8, 20, u"CHAR", u"INTERVAL"},
      {dbmsInformix, 9, 30, u"char", u"namedrowtype"}, {dbmsOracle, 7, 9, u"CHAR", u"MLSLABEL"},
      {dbmsOracle, 8, 15, u"CHAR", u"BFILE"},          {dbmsDB2, 5, 15, u"SMALLINT", u"BIGINT"},
      {dbmsRedBrick, 5, 12, u"CHARACTER", u"DOUBLE"},  {dbmsMSSQLServer, 7, 22, u"bit", u"image"},
      {dbmsSybase, 11, 22, u"bit", u"image"},          {dbmsAccess, 4, 20, u"CHAR", u"INTERVAL"},
      {dbmsOther, 3, 20, u"CHAR", u"INTERVAL"},
  };
  for (const auto& c : cases) {
    const LcODBCDatatypeList list(c.server, c.version);
    ASSERT_EQ(list.GetCount(), c.count) << c.server;
    EXPECT_EQ(list.GetAt(0)->GetTypeName(), c.first) << c.server;
    EXPECT_EQ(list.GetAt(c.count - 1)->GetTypeName(), c.last) << c.server;
    for (const LcWorkbookDatatype* type : list) {
      EXPECT_EQ(list.GetDataTypeByPhysicalCode(type->GetPhysicalCode()), type) << c.server;
      EXPECT_EQ(type->IsLong(), type->GetTypeGroup() == dgLong) << c.server;
    }
  }
}

TEST(TypeLists, KeepTheValuesThatLookWrong) {
  // Other name, generic code, group, length, precision, scale.
  using Values = std::tuple<std::u16string, enumDataType, enumDataTypeGroup, unsigned long,
                            unsigned, unsigned>;
  struct {
    LeDBMSType server;
    int code;
    Values values;
  } const cases[] = {
      {dbmsUnknown, pcInterval, {u"TIMESTAMP", dtInterval, dgDateTime, 0, 0, 0}},
      {dbmsUnknown, pcBigInt, {u"", dtInteger, dgNumeric, 0, 20, 0}},
      {dbmsInformix, pcInteger, {u"", dtInteger, dgNumeric, 0, 4, 0}},
      {dbmsInformix, pcLongVarBinary, {u"", dtBinary, dgBinary, 0, 0, 0}},
      {dbmsOracle, pcNumeric, {u"", dtFloat, dgNumeric, 22, 22, 0}},
      {dbmsRedBrick, pcServerTimestamp, {u"", dtTime, dgDateTime, 0, 8, 0}},
      {dbmsRedBrick, pcDecimal, {u"NUMERIC", dtDecimal, dgNumeric, 0, 16, 16}},
      {dbmsMSSQLServer, pcText, {u"", dtLongChar, dgLong, 2147483647, 0, 0}},
      {dbmsMSSQLServer, pcMoney, {u"", dtMoney, dgNumeric, 0, 8, 0}},
  };
  for (const auto& c : cases) {
    const LcODBCDatatypeList list(c.server, 9);
    const LcWorkbookDatatype* type = list.GetDataTypeByPhysicalCode(c.code);
    ASSERT_NE(type, nullptr) << c.code;
    EXPECT_EQ(Values(type->GetOtherTypeName(), type->GetGenericCode(), type->GetTypeGroup(),
                     type->GetLength(), type->GetPrecision(), type->GetScale()),
              c.values)
        << c.code;
  }
}

TEST(TypeLists, FillATargetOrThemselvesAndNeverLookForDuplicates) {
  LcODBCDatatypeList list(dbmsDB2, 5);
  LcWorkbookDatatypeList target;
  list.GetHardcodedDataTypes(&target);
  list.GetHardcodedDataTypesForCloudScape(&target);
  EXPECT_EQ(target.GetCount(), 15U);
  EXPECT_EQ(list.GetCount(), 15U);
  list.GetHardcodedDataTypes(nullptr);
  EXPECT_EQ(list.GetCount(), 30U);
  list.SetDBMSType(dbmsInformix);
  list.SetDBMSVersion(9);
  EXPECT_TRUE(list.ForIUS());
  EXPECT_EQ(list.GetCount(), 30U);
}

TEST(TypeLists, ConvertWidthsAndGenericCodes) {
  const LcODBCDatatypeList list(dbmsUnknown, 0);
  EXPECT_EQ(list.CalculateFieldWidth(pcDecimal, 10), 12U);
  EXPECT_EQ(list.CalculateFieldWidth(pcNumeric, 10), 0U);
  EXPECT_EQ(list.CalculateFieldWidth(pcInteger, 99), 10U);
  EXPECT_EQ(list.CalculateFieldWidth(pcSmallInt, 99), 5U);
  EXPECT_EQ(list.CalculateFieldWidth(pcLongVarBinary, 7), 7U);
  EXPECT_EQ(list.CalculateFieldWidth(-1, 7), 0U);

  constexpr int kCodes[] = {0, 0, 1, 3, 5, 13, 15, 16, 17, 9, 14, 0, 0};
  for (int generic = 0; generic < 13; ++generic) {
    EXPECT_EQ(list.GetPhysicalCode(static_cast<enumDataType>(generic)), kCodes[generic]);
  }
}

}  // namespace
}  // namespace odbcimport
