// Conversions between catalog texts, ODBC type codes and the workbook's codes.
#include "catalogues/conversions.h"

#include <gtest/gtest.h>

#include "base/ascii.h"
#include "base/text.h"
#include "tests/support/recorded_session.h"

namespace odbcimport {
namespace {

TEST(ParseInteger, ReadsWhatStandsAtTheBeginning) {
  struct {
    const char16_t* text;
    long value;
  } const cases[] = {
      {u"", 0},
      {u" \t-7x", -7},
      {u"+3", 3},
      {u"- 5", 0},
      {u"0x1F", 0},
      {u"9223372036854775807", 9223372036854775807L},
      {u"99999999999999999999", 9223372036854775807L},
      {u"-9223372036854775808", -9223372036854775807L - 1},
      {u"-99999999999999999999", -9223372036854775807L - 1},
  };
  for (const auto& c : cases) EXPECT_EQ(base::ParseInteger(c.text), c.value);
}

TEST(Text, TrimsAndComparesAsciiOnly) {
  EXPECT_EQ(base::TrimRightBlanks(u"a b\t  "), u"a b\t");
  EXPECT_EQ(base::TrimRightSpace(u" a\t \r\n"), u" a");
  EXPECT_EQ(base::TrimRightBlanks(u"   "), u"");
  EXPECT_TRUE(base::EqualIgnoringCase(u"VarChar2", u"VARCHAR2"));
  EXPECT_FALSE(base::EqualIgnoringCase(u"\u00C4", u"\u00E4"));
  EXPECT_FALSE(base::EqualIgnoringCase(u"@", u"`"));  // neighbours of the letters
  EXPECT_FALSE(base::EqualIgnoringCase(u"a", u"ab"));
}

TEST(MapDataType, MapsODBCTypesAndFallsBackToChar) {
  struct {
    long odbc_type;
    int code;
    int code_under_ius;
  } const cases[] = {
      {-8, pcChar, pcChar},          {-7, pcBit, pcBit},
      {-5, pcBigInt, pcBigInt},      {-4, pcLongVarBinary, pcLongVarBinary},
      {-2, pcBinary, pcBinary},      {-1, pcLongVarChar, pcLongVarChar},
      {0, pcChar, pcChar},           {2, pcNumeric, pcNumeric},
      {7, pcReal, pcFloat},          {8, pcDouble, pcFloat},
      {9, pcDate, pcDate},           {10, pcTime, pcDateTime},
      {12, pcVarChar, pcVarChar},    {13, pcChar, pcChar},
      {93, pcChar, pcChar},          {100, pcChar, pcChar},
      {101, pcInterval, pcInterval}, {113, pcInterval, pcInterval},
      {114, pcChar, pcChar},         {-9, pcChar, pcChar},
  };
  ServerFacts db2, universal, dynamic;
  db2.dbms_type = dbmsDB2;
  universal.dbms_type = dynamic.dbms_type = dbmsInformix;
  universal.is_ius = true;
  for (const auto& c : cases) {
    EXPECT_EQ(MapDataType(db2, c.odbc_type), c.code) << c.odbc_type;
    EXPECT_EQ(MapDataType(universal, c.odbc_type), c.code_under_ius) << c.odbc_type;
    EXPECT_EQ(MapDataType(dynamic, c.odbc_type), c.code) << c.odbc_type;
  }
}

TEST(ConvertDatabaseTypeToODBC, KnowsTheNamesOfEachServer) {
  struct {
    int server;
    const char16_t* name;
    int code;
    bool found;
  } const cases[] = {
      {dbmsInformix, u"4118", pcNamedRow, true},  // the one number above 256 that is kept
      {dbmsInformix, u"512", pcChar, true},
      {dbmsInformix, u"2061", pcVarChar, true},  // a distinct type on varchar
      {dbmsInformix, u"256", pcChar, false},
      {dbmsInformix, u"9", pcChar, false},
      {dbmsInformix, u"none", pcChar, true},
      {dbmsInformix, u"4", pcReal, true},
      {dbmsMSSQLServer, u"INT IDENTITY", pcInteger, true},
      {dbmsMSSQLServer, u"int ", pcChar, false},  // the whole name counts
      {dbmsOracle, u"VARCHAR2", pcVarChar, true},
      {dbmsOracle, u"NVARCHAR2", pcChar, false},
      {dbmsDB2, u"time", pcDateTime, true},  // one higher than elsewhere
      {dbmsDB2, u"TIMESTAMP", pcBinary, true},
      {dbmsDB2, u"CLOB", pcLongVarChar, true},
      {dbmsRedBrick, u"TIMESTAMP", pcServerTimestamp, true},
      {dbmsSybase, u"int", pcChar, false},
      {dbmsOther, u"INTEGER", pcChar, false},
  };
  for (const auto& c : cases) {
    const auto code = ConvertDatabaseTypeToODBC(c.name, c.server);
    EXPECT_EQ(code.value_or(pcChar), c.code) << c.server;
    EXPECT_EQ(code.has_value(), c.found) << c.server;
  }
}

TEST(PhysicalCodes, LeadToGenericCodeAndGroup) {
  struct {
    int physical;
    enumDataType generic;
    enumDataTypeGroup group;
  } const cases[] = {
      {pcNumeric, dtInteger, dgInteger},
      {pcSerial8, dtSerial, dgNumeric},
      {pcInterval, dtInterval, dgDateTime},
      {pcByte, dtBinary, dgBinary},
      {pcClob, dtLongBinary, dgLong},
      {pcInformix24, dtRow, dgRow},
      {pcMultiset, dtMultiset, dgCollection},
      {pcVarOpaque, dtVarOpaque, dgOpaque},
      {pcSpare58, dtBigInt, dgInteger},
      {pcServerTimestamp, dtUnknown, dgOther},
      {68, dtUnknown, dgOther},
      {-1, dtUnknown, dgOther},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(MapInternalCodeToType(c.physical), c.generic) << c.physical;
    EXPECT_EQ(MapTypeToGroup(c.generic), c.group) << c.physical;
  }
}

TEST(GetTableType, DependsOnTheServer) {
  struct {
    int server;
    const char16_t* text;
    enumTableType type;
  } const cases[] = {
      {dbmsInformix, u"v", ttView},          {dbmsInformix, u"view", ttTable},
      {dbmsInformix, u"SYNONYM", ttTable},   {dbmsMSSQLServer, u"V", ttView},
      {dbmsMSSQLServer, u"v", ttTable},      {dbmsOracle, u"VIEW", ttView},
      {dbmsOracle, u"view", ttTable},        {dbmsDB2, u"v", ttView},
      {dbmsRedBrick, u"SYNONYM", ttSynonym}, {dbmsRedBrick, u"V", ttTable},
      {dbmsSybase, u"V", ttTable},           {dbmsOther, u"VIEW", ttTable},
  };
  for (const auto& c : cases) EXPECT_EQ(GetTableType(c.text, c.server), c.type) << c.server;
}

struct CreateDataTypeTest : testing::Test, test::RecordedSession {
  CreateDataTypeTest() : RecordedSession(dbmsUnknown) {
    LcODBCDatatypeList(dbmsUnknown, 0).GetHardcodedDataTypes(&types);
  }
  std::unique_ptr<LcWorkbookDatatype> Create(long code, bool map, long extended_id = 0) {
    return CreateDataType(session, code, map, extended_id);
  }
  LcWorkbookDatatypeList& types = workbook.data_types;
};

TEST_F(CreateDataTypeTest, FindsByCodeInTheTargetListOrFailingThatInItsOwn) {
  EXPECT_EQ(Create(12, true)->GetTypeName(), u"VARCHAR");
  EXPECT_EQ(Create(12, false)->GetTypeName(), u"BIGINT");
  EXPECT_EQ(Create(0x10000 + pcDate, false)->GetTypeName(), u"DATE");  // 16 bits count
  EXPECT_EQ(Create(pcMoney, false), nullptr);
  types.EmptyList();
  EXPECT_EQ(Create(12, true), nullptr);
  importer.targets.data_types = nullptr;
  EXPECT_EQ(Create(12, true)->GetTypeName(), u"VARCHAR");
}

TEST_F(CreateDataTypeTest, AddsTheSerialAndIntervalThatAListLacksOnce) {
  const std::size_t count = types.GetCount();
  for (int i = 0; i < 2; ++i) {
    const auto serial = Create(pcSerial, false);
    EXPECT_EQ(serial->GetTypeName(), u"serial");
    EXPECT_EQ(serial->GetGenericCode(), dtSerial);
    EXPECT_EQ(serial->GetTypeGroup(), dgNumeric);
  }
  EXPECT_EQ(types.GetCount(), count + 1);

  types.EmptyList();
  for (int i = 0; i < 2; ++i) EXPECT_EQ(Create(105, true)->GetTypeName(), u"interval");
  EXPECT_EQ(types.GetCount(), 1U);
}

TEST_F(CreateDataTypeTest, PrefersTheExtendedIdAndFallsBackToTheCode) {
  auto named = std::make_unique<LcWorkbookDatatype>();
  named->SetExtendedId(2048);
  named->SetPhysicalCode(pcNamedRow);
  named->SetTypeName(u"address_t");
  types.AddDataType(named.release());
  EXPECT_EQ(Create(pcChar, false, 2048)->GetTypeName(), u"address_t");
  EXPECT_EQ(Create(pcInteger, false, 2049)->GetTypeName(), u"INTEGER");
}

}  // namespace
}  // namespace odbcimport
