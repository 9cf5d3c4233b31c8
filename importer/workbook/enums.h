// The enumerations that cross the boundary between module, workbook and host. Their numeric values
// are part of the interface: hosts store them, and the workbook file writes them.
#pragma once

#include <cstdint>

// The kind of server. Decides the route and the dialect of every catalog query.
enum LeDBMSType : std::int32_t {
  dbmsUnknown = 0,
  dbmsInformix = 1,
  dbmsMSSQLServer = 2,
  dbmsSybase = 3,
  dbmsOracle = 4,
  dbmsDB2 = 5,
  dbmsAccess = 6,
  dbmsOther = 7,  // no special handling: read through the generic route
  dbmsRedBrick = 8,
};

// How a catalog is read.
enum LeReading : std::int32_t {
  rdCompatible = 0,  // as hosts have always had it
  rdExact = 1,       // what the server says, whole, where a dialect fits the server
};

// First argument of the host's callback. The value 7 is not sent.
enum enumImpNotify : std::int32_t {
  inImportStart = 0,
  inImportEnd = 1,
  inPhaseStart = 2,
  inPhaseEnd = 3,
  inLoopStart = 4,  // with the number of items
  inLoopEnd = 5,
  inTableItem = 6,
  inProcedureItem = 8,
  inFunctionItem = 9,
  inSystemFunctionItem = 10,
  inItemDone = 11,
};

// What a phase reads.
enum enumImpItemType : std::int32_t {
  iiNone = 0,
  iiTablesAndViews = 1,  // with their columns
  iiPrimaryKeys = 2,
  iiForeignKeys = 3,
  iiOwnerNames = 4,
  iiDataTypes = 5,
  iiTableNames = 6,  // tables and views
  iiSynonymNames = 7,
  iiColumnNames = 8,
  iiOperators = 9,
  iiBooleanFunctions = 10,
  iiGeneralFunctions = 11,
  iiAggregates = 12,
  iiLocalSynonyms = 13,  // with their columns
  iiProcedures = 14,
  iiRemoteSynonyms = 15,  // with their columns
};

// Bits of the item mask.
enum LeItemBit : std::uint32_t {
  ibTables = 0x4,
  ibViews = 0x8,
  ibSynonyms = 0x10,
  ibProcedures = 0x20,
  ibDataTypes = 0x40,
  ibOperators = 0x80,
  ibBooleanFunctions = 0x100,
  ibFunctions = 0x200,
  ibAggregates = 0x400,
  ibOwnerNames = 0x1000,
  ibTableNames = 0x2000,
  ibViewNames = 0x4000,
  ibSynonymNames = 0x8000,
  ibColumnNames = 0x20000,
};

enum enumTableType : std::int32_t { ttTable = 0, ttView = 1, ttSynonym = 2 };

// A part of an interval qualifier. The fractions have 1 to 5 digits.
enum enumIntervalPart : std::int32_t {
  ipNone = 0,
  ipYear = 1,
  ipMonth = 2,
  ipDay = 3,
  ipHour = 4,
  ipMinute = 5,
  ipSecond = 6,
  ipFraction1 = 7,
  ipFraction2 = 8,
  ipFraction3 = 9,
  ipFraction4 = 10,
  ipFraction5 = 11,
};

// Generic type code.
enum enumDataType : std::int32_t {
  dtUnknown = 0,
  dtChar = 1,
  dtDecimal = 2,
  dtInteger = 3,
  dtFloat = 4,
  dtBinary = 5,
  dtDate = 6,
  dtTime = 7,
  dtTimestamp = 8,
  dtLongChar = 9,
  dtLongBinary = 10,
  dtRow = 11,
  dtCollection = 12,
  dtFixedOpaque = 13,
  dtList = 14,
  dtSet = 15,
  dtMultiset = 16,
  dtSerial = 17,
  dtInterval = 18,
  dtBigInt = 19,
  dtMoney = 20,
  dtVarOpaque = 21,
};

enum enumDataTypeGroup : std::int32_t {
  dgCharacter = 0,
  dgNumeric = 1,
  dgInteger = 2,
  dgBinary = 3,
  dgDateTime = 4,
  dgLong = 5,  // large objects; a type of this group is marked long
  dgRow = 6,
  dgCollection = 7,
  dgOpaque = 8,
  dgOther = 9,
};

// Which of a data type's names GetDataTypeByName compares.
enum enumTypeNameType : std::int32_t {
  tnTypeName = 0,
  tnOtherTypeName = 1,
  tnName = 2,
  tnExtendedTypeName = 3,  // the first extended type name
};
