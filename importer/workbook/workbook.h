// The workbook: the schema model that an import fills, and the records of a host's connection.
#pragma once

#include <string>

#include "importer/workbook/datatype.h"
#include "importer/workbook/details.h"
#include "importer/workbook/functions.h"
#include "importer/workbook/info.h"
#include "importer/workbook/object.h"
#include "importer/workbook/table.h"

// Owns every list. An import appends to the lists; the host reads and clears them.
class LC_WORKBOOK_EXPORT LcWorkbook : public LcObject {
 public:
  LcWorkbook();
  ~LcWorkbook() override;
  LcWorkbook(const LcWorkbook&) = delete;
  LcWorkbook& operator=(const LcWorkbook&) = delete;
  const char* GetRuntimeClass() const override;

  LcOwnerInfoList owner_names;
  LcTableInfoList table_names;  // tables, views and synonyms
  LcWBColumnInfoList column_names;
  LcWorkbookDatatypeList data_types;
  LcWorkbookTableList tables;
  LcWorkbookOperatorList operators;
  LcWorkbookFunctionList boolean_functions;
  LcWorkbookFunctionList functions;
  LcWorkbookAggregateList aggregates;
  LcWorkbookProcedureList procedures;
  // What the lists above have no place for, and what was not read.
  LcWorkbookDetails details;
};

// The host's open connection. The handles are borrowed by an importer, never freed by it.
class LC_WORKBOOK_EXPORT LcWorkbookDatabase : public LcObject {
 public:
  LcWorkbookDatabase();
  ~LcWorkbookDatabase() override;
  const char* GetRuntimeClass() const override;

  std::u16string name;
  void* henv = nullptr;
  void* hdbc = nullptr;
};

// The host's record of the current log-in.
class LC_WORKBOOK_EXPORT LcWorkbookLogin : public LcObject {
 public:
  LcWorkbookLogin();
  ~LcWorkbookLogin() override;
  const char* GetRuntimeClass() const override;

  std::u16string connect_text;  // an ODBC connection string
};
