// The hard-coded lists of built-in data types, one per kind of server.
#pragma once

#include "importer/workbook/datatype.h"
#include "platform/platform.h"

class LC_EXPORT LcODBCDatatypeList : public LcWorkbookDatatypeList {
 public:
  // Holds the built-in types of that server.
  LcODBCDatatypeList(LeDBMSType dbms_type, int dbms_version);
  // A copy shares the types with its source.
  LcODBCDatatypeList(const LcODBCDatatypeList& other);
  LcODBCDatatypeList& operator=(const LcODBCDatatypeList& other);
  ~LcODBCDatatypeList() override;
  const char* GetRuntimeClass() const override;

  // Store the value only; the entries stay as they are.
  void SetDBMSType(LeDBMSType type) { dbms_type_ = type; }
  void SetDBMSVersion(int version) { dbms_version_ = version; }
  // Informix Universal Server: Informix of version 9 or higher.
  [[nodiscard]] bool ForIUS() const;

  // The width in characters that a field of the physical code needs; `length` in the type's unit.
  unsigned long CalculateFieldWidth(int physical_code, unsigned long length) const;
  // The physical code that stands for a generic code.
  [[nodiscard]] int GetPhysicalCode(enumDataType generic_code) const;

  // Each appends a list to `target`, or to this list when it is null. Types that are there already
  // are not looked at, so a second call appends them again.
  void GetHardcodedDataTypes(LcWorkbookDatatypeList* target);
  void GetHardcodedDataTypesForInformix(LcWorkbookDatatypeList* target);
  void GetHardcodedDataTypesForOracle(LcWorkbookDatatypeList* target);
  void GetHardcodedDataTypesForOracle8(LcWorkbookDatatypeList* target);
  void GetHardcodedDataTypesForDB2(LcWorkbookDatatypeList* target);
  void GetHardcodedDataTypesForRedBrick(LcWorkbookDatatypeList* target);
  void GetHardcodedDataTypesForMSSQLServer(LcWorkbookDatatypeList* target);
  void GetHardcodedDataTypesForSybaseSQLServer(LcWorkbookDatatypeList* target);
  void GetHardcodedDataTypesForCloudScape(LcWorkbookDatatypeList* target);  // appends nothing

 private:
  LeDBMSType dbms_type_;
  int dbms_version_;
};
