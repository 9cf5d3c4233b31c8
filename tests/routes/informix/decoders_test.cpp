// The decoders of type numbers, lengths and qualifiers, and the parsers of index keys.
#include <gtest/gtest.h>

#include "routes/informix/index_keys.h"
#include "routes/informix/type_numbers.h"

namespace odbcimport::informix {
namespace {

TEST(TypeNumbers, GivePrecisionAndScale) {
  const struct {
    long coltype, collength;
    std::uint32_t precision;
    std::uint16_t scale;
  } cases[] = {
      {0, 20, 20, 0},          // CHAR(20)
      {1, 2, 2, 0},            // SMALLINT
      {2, 4, 4, 0},            // INTEGER
      {3, 8, 64, 0},           // FLOAT
      {4, 4, 8, 0},            // SMALLFLOAT
      {5, 2562, 10, 2},        // DECIMAL(10,2)
      {256 + 5, 2562, 10, 2},  // the same, NOT NULL
      {0x805, 2562, 10, 2},    // with a bit that is not known
      {5, 4351, 16, 255},      // DECIMAL(16), floating
      {6, 4, 4, 0},            // SERIAL
      {7, 4, 4, 0},            // DATE
      {8, 4098, 16, 2},        // MONEY(16,2)
      {9, 7, 7, 0},            // null
      {10, 3594, 8, 0},        // DATETIME YEAR TO SECOND
      {12, 56, 56, 0},         // TEXT
      {13, 255, 255, 0},       // VARCHAR(255)
      {13, 2048, 2048, 0},     // the longest that is taken as it is
      {13, 2049, 1, 0},
      {13, 10 * 256 + 20, 532, 0},    // VARCHAR(20,10)
      {14, 1538, 1538, 0},            // INTERVAL
      {40, 2048, 2048, 0},            // opaque
      {5, -513, 4294967294U, 65535},  // no server's length: quotient and remainder toward zero
      {13, -1, 4294967295U, 0},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(ComputeInformixPrecision(c.coltype, c.collength), c.precision)
        << c.coltype << " " << c.collength;
    EXPECT_EQ(ComputeInformixScale(c.coltype, c.collength), c.scale)
        << c.coltype << " " << c.collength;
  }
}

TEST(TypeNumbers, NameTheUnitsOfQualifiers) {
  const int units[] = {1, 0, 2, 0, 3, 0, 4, 0, 5, 0, 6, 7, 8, 9, 10, 11};
  for (int code = 0; code < 16; ++code) EXPECT_EQ(ComputeInformixIntervalPart(code), units[code]);
  EXPECT_EQ(ComputeInformixIntervalPart(-1), ipNone);
  EXPECT_EQ(ComputeInformixIntervalPart(16), ipNone);
}

TEST(TypeNumbers, HaveNamesAndCodes) {
  const struct {
    int number;
    const char16_t* name;
    int generic_code, group;
  } cases[] = {
      {0, u"char", 1, 0},          {8, u"money", 2, 1},        {23, u"collection", 12, 7},
      {41, u"fixedopaque", 13, 8}, {296, u"varopaque", 21, 8}, {4118, u"row", 11, 6},
      {24, u"UNKNOWN", 0, 9},      {255, u"UNKNOWN", 0, 9},    {14, u"interval", 8, 2},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(ConvertIUSTypeCodeToTypeName(c.number).value_or(kUnknownTypeName), c.name)
        << c.number;
    EXPECT_EQ(ConvertIUSPhyCodeToGenericCode(c.number, nullptr), c.generic_code) << c.number;
    EXPECT_EQ(ConvertIUSPhyCodeToTypeGroup(c.number, nullptr), c.group) << c.number;
  }
}

TEST(TypeNumbers, MakeLargeObjectsOfOpaqueTypesByName) {
  for (const int number : {40, 41, 296}) {
    EXPECT_EQ(ConvertIUSPhyCodeToGenericCode(number, u"Blob"), dtLongBinary);
    EXPECT_EQ(ConvertIUSPhyCodeToGenericCode(number, u"CLOB"), dtLongChar);
    EXPECT_EQ(ConvertIUSPhyCodeToTypeGroup(number, u"blob"), dgLong);
    EXPECT_EQ(ConvertIUSPhyCodeToTypeGroup(number, u"clob"), dgLong);
    EXPECT_EQ(ConvertIUSPhyCodeToTypeGroup(number, u"circle"), dgOpaque);
  }
  EXPECT_EQ(ConvertIUSPhyCodeToGenericCode(0, u"BLOB"), dtChar);
}

TEST(IndexKeys, AreColumnNumbersInKeyOrder) {
  const struct {
    const char16_t* text;
    std::vector<std::int16_t> numbers;
  } cases[] = {
      {u"", {}},
      {u"3 [1], 1 [1]", {3, 1}},
      {u"3 [1],1 [1]", {3, 1}},
      {u"3 [1] 1 [1]", {3, 1}},
      {u"-2 [1]", {2}},
      {u"  7 [1]  ,  -8 [2]", {7, 8}},
      {u"1 [1], 2 [1", {1}},             // an item that does not end
      {u",4 [1]", {0}},                  // a comma before the first item is part of it
      {u"x [1], 70000 [1]", {0, 4464}},  // no digits; cut to 16 bits
      {u"5], 6 [1]", {0, 6}},            // no operator class
      {u"<100>(1, 2) [1]", {}},          // a function without "-" gives nothing
      {u"<100>(1, 2, 3)- [1]", {1, 2}},  // and never its last argument
      {u"<100>(1)- [1], 9 [1]", {9}},
      {u"<5,6-7 [1]", {0}},  // no parenthesis: the whole text up to the "-"
  };
  for (const auto& c : cases) {
    std::vector<std::int16_t> numbers;
    ParseOnlineIndexKeys(c.text, numbers);
    EXPECT_EQ(numbers, c.numbers) << testing::PrintToString(std::u16string(c.text));
  }
}

}  // namespace
}  // namespace odbcimport::informix
