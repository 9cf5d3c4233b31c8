// Conversions between catalog texts, ODBC type codes and the workbook's codes.
#include "catalogues/conversions.h"

#include <gtest/gtest.h>

#include "catalogues/type_lists.h"

namespace odbcimport {
namespace {

ServerFacts Server(LeDBMSType type, bool is_ius = false) {
  ServerFacts server;
  server.dbms_type = type;
  server.is_ius = is_ius;
  return server;
}

TEST(ParseInteger, ReadsWhatStandsAtTheBeginning) {
  struct {
    const char16_t* text;
    long value;
  } const cases[] = {
      {u"", 0},
      {u"abc", 0},
      {u"42", 42},
      {u" \t-7x", -7},
      {u"+3", 3},
      {u"09", 9},
      {u"- 5", 0},
      {u"258 ", 258},
      {u"0x1F", 0},
      {u"1.9", 1},
      {u"9223372036854775807", 9223372036854775807L},
      {u"99999999999999999999", 9223372036854775807L},
      {u"-9223372036854775808", -9223372036854775807L - 1},
      {u"-99999999999999999999", -9223372036854775807L - 1},
  };
  for (const auto& c : cases) EXPECT_EQ(ParseInteger(c.text), c.value);
}

TEST(Text, TrimsAndComparesAsciiOnly) {
  EXPECT_EQ(TrimRightBlanks(u"a b\t  "), u"a b\t");
  EXPECT_EQ(TrimRightSpace(u" a\t \r\n"), u" a");
  EXPECT_EQ(TrimRightBlanks(u"   "), u"");
  EXPECT_TRUE(EqualIgnoringCase(u"VarChar2", u"VARCHAR2"));
  EXPECT_FALSE(EqualIgnoringCase(u"\u00C4", u"\u00E4"));
  EXPECT_FALSE(EqualIgnoringCase(u"@", u"`"));  // neighbours of the letters
  EXPECT_FALSE(EqualIgnoringCase(u"a", u"ab"));
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
  for (const auto& c : cases) {
    EXPECT_EQ(MapDataType(Server(dbmsDB2), c.odbc_type), c.code) << c.odbc_type;
    EXPECT_EQ(MapDataType(Server(dbmsInformix, true), c.odbc_type), c.code_under_ius)
        << c.odbc_type;
    EXPECT_EQ(MapDataType(Server(dbmsInformix, false), c.odbc_type), c.code) << c.odbc_type;
  }
}

TEST(ConvertDatabaseTypeToODBC, KnowsTheNamesOfEachServer) {
  struct {
    int server;
    const char16_t* name;
    int code;
    bool found;
  } const cases[] = {
      {dbmsInformix, u"258", pcInteger, true},    // not null
      {dbmsInformix, u"4118", pcNamedRow, true},  // the one number above 256 that is kept
      {dbmsInformix, u"512", pcChar, true},
      {dbmsInformix, u"2061", pcVarChar, true},  // a distinct type on varchar
      {dbmsInformix, u"256", pcChar, false},
      {dbmsInformix, u"9", pcChar, false},
      {dbmsInformix, u"25", pcChar, false},
      {dbmsInformix, u"-1", pcChar, false},
      {dbmsInformix, u"none", pcChar, true},
      {dbmsInformix, u"4", pcReal, true},
      {dbmsInformix, u"11", pcLongVarBinary, true},
      {dbmsInformix, u"41", pcFixedOpaque, true},
      {dbmsMSSQLServer, u"INT IDENTITY", pcInteger, true},
      {dbmsMSSQLServer, u"nvarchar", pcVarChar, true},
      {dbmsMSSQLServer, u"int ", pcChar, false},  // the whole name counts
      {dbmsOracle, u"VARCHAR2", pcVarChar, true},
      {dbmsOracle, u"long raw", pcLongVarBinary, true},
      {dbmsOracle, u"NVARCHAR2", pcChar, false},
      {dbmsDB2, u"time", pcDateTime, true},  // one higher than elsewhere
      {dbmsDB2, u"TIMESTAMP", pcBinary, true},
      {dbmsDB2, u"CLOB", pcLongVarChar, true},
      {dbmsRedBrick, u"TIMESTAMP", pcServerTimestamp, true},
      {dbmsRedBrick, u"numeric", pcDecimal, true},
      {dbmsSybase, u"int", pcChar, false},
      {dbmsOther, u"INTEGER", pcChar, false},
  };
  for (const auto& c : cases) {
    bool found = !c.found;
    EXPECT_EQ(ConvertDatabaseTypeToODBC(c.name, c.server, found), c.code) << c.server;
    EXPECT_EQ(found, c.found) << c.server;
  }
}

TEST(PhysicalCodes, LeadToGenericCodeAndGroup) {
  struct {
    int physical;
    enumDataType generic;
    enumDataTypeGroup group;
  } const cases[] = {
      {pcChar, dtChar, dgCharacter},
      {pcNumeric, dtInteger, dgInteger},
      {pcDecimal, dtDecimal, dgNumeric},
      {pcBigInt, dtBigInt, dgInteger},
      {pcSerial8, dtSerial, dgNumeric},
      {pcInterval, dtInterval, dgDateTime},
      {pcByte, dtBinary, dgBinary},
      {pcClob, dtLongBinary, dgLong},
      {pcInformix24, dtRow, dgRow},
      {pcMultiset, dtMultiset, dgCollection},
      {pcVarOpaque, dtVarOpaque, dgOpaque},
      {pcMoney, dtMoney, dgNumeric},
      {pcSpare58, dtBigInt, dgInteger},
      {pcServerTimestamp, dtUnknown, dgOther},
      {pcBFile, dtUnknown, dgOther},
      {22, dtUnknown, dgOther},
      {50, dtUnknown, dgOther},
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

class Import : public LcWorkbookImport {
 public:
  explicit Import(LcWorkbook* workbook) : LcWorkbookImport(workbook) {}
  bool ImportItems(unsigned short&) override { return false; }
  bool SyncLogin(void*, void*) override { return true; }
  bool SyncLogin(LcWorkbookDatabase*) override { return true; }
  bool UnSyncLogin() override { return true; }
};

class CreateDataTypeTest : public testing::Test {
 protected:
  CreateDataTypeTest() : import_(&workbook_) {
    LcODBCDatatypeList(dbmsUnknown, 0).GetHardcodedDataTypes(&workbook_.data_types);
  }
  std::unique_ptr<LcWorkbookDatatype> Create(long code, bool map, long extended_id = 0) {
    const ImportSession session(import_, &workbook_, server_, own_, nullptr, item_);
    return CreateDataType(session, code, map, extended_id);
  }

  LcWorkbook workbook_;
  Import import_;
  ServerFacts server_;
  LcImpItemInfo item_;
  std::shared_ptr<LcODBCDatatypeList> own_ = std::make_shared<LcODBCDatatypeList>(dbmsUnknown, 0);
};

TEST_F(CreateDataTypeTest, FindsByCodeInTheTargetListOrFailingThatInItsOwn) {
  EXPECT_EQ(Create(12, true)->GetTypeName(), u"VARCHAR");
  EXPECT_EQ(Create(12, false)->GetTypeName(), u"BIGINT");
  EXPECT_EQ(Create(0x10000 + pcDate, false)->GetTypeName(), u"DATE");  // 16 bits count
  EXPECT_EQ(Create(pcMoney, false), nullptr);
  workbook_.data_types.EmptyList();
  EXPECT_EQ(Create(12, true), nullptr);
  import_.targets.data_types = nullptr;
  EXPECT_EQ(Create(12, true)->GetTypeName(), u"VARCHAR");
}

TEST_F(CreateDataTypeTest, AddsTheSerialAndIntervalThatAListLacksOnce) {
  const std::size_t count = workbook_.data_types.GetCount();
  for (int i = 0; i < 2; ++i) {
    const auto serial = Create(pcSerial, false);
    EXPECT_EQ(serial->GetTypeName(), u"serial");
    EXPECT_EQ(serial->GetGenericCode(), dtSerial);
    EXPECT_EQ(serial->GetTypeGroup(), dgNumeric);
  }
  EXPECT_EQ(workbook_.data_types.GetCount(), count + 1);

  workbook_.data_types.EmptyList();
  for (int i = 0; i < 2; ++i) EXPECT_EQ(Create(105, true)->GetTypeName(), u"interval");
  EXPECT_EQ(workbook_.data_types.GetCount(), 1U);
}

TEST_F(CreateDataTypeTest, PrefersTheExtendedIdAndFallsBackToTheCode) {
  auto named = std::make_unique<LcWorkbookDatatype>();
  named->SetExtendedId(2048);
  named->SetPhysicalCode(pcNamedRow);
  named->SetTypeName(u"address_t");
  workbook_.data_types.AddDataType(named.release());
  EXPECT_EQ(Create(pcChar, false, 2048)->GetTypeName(), u"address_t");
  EXPECT_EQ(Create(pcInteger, false, 2049)->GetTypeName(), u"INTEGER");
}

}  // namespace
}  // namespace odbcimport
