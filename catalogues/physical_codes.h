// Physical codes: the module's own numbers for a column type, finer than the generic codes. Hosts
// store them with every data type and column.
#pragma once

namespace odbcimport {

enum LePhysicalCode : int {
  pcChar = 0,     // CHARACTER; also what a type that is not mapped becomes
  pcNumeric = 1,  // Oracle NUMBER
  pcDecimal = 2,
  pcInteger = 3,
  pcSmallInt = 4,
  pcFloat = 5,
  pcReal = 6,
  pcDouble = 7,
  pcVarChar = 8,      // Oracle VARCHAR2
  pcLongVarChar = 9,  // Oracle LONG
  pcBit = 10,         // BOOLEAN
  pcTinyInt = 11,
  pcBigInt = 12,  // Informix int8
  pcVarBinary = 13,
  pcLongVarBinary = 14,  // Oracle LONG RAW
  pcDate = 15,
  pcTime = 16,
  pcDateTime = 17,  // date and time
  pcBinary = 18,    // Oracle RAW
  pcSerial = 19,
  pcInterval = 20,
  pcSerial8 = 21,
  pcVarOpaque = 40,    // opaque type of variable length
  pcFixedOpaque = 41,  // opaque type of fixed length
  pcSet = 42,
  pcMultiset = 43,
  pcList = 44,
  pcRow = 45,  // unnamed row type
  pcCollection = 46,
  pcInformix24 = 47,  // Informix type number 24
  pcNamedRow = 48,
  pcSmallFloat = 49,
  pcMoney = 51,
  pcByte = 52,  // Informix BYTE
  pcText = 53,
  pcBlob = 54,  // IMAGE, BLOB
  pcClob = 55,
  pcNChar = 56,
  pcNVarChar = 57,
  pcSpare58 = 58,          // carried by no type
  pcServerTimestamp = 59,  // TIMESTAMP of SQL Server and of Red Brick
  pcSmallMoney = 60,
  pcSmallDateTime = 61,
  pcUniqueIdentifier = 62,
  pcNText = 63,
  pcRowId = 64,
  pcMlsLabel = 65,
  pcNClob = 66,
  pcBFile = 67,
};

}  // namespace odbcimport
