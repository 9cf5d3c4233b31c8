// Imports from a server that the simulator plays, through the importer as a host has it, and keeps
// what a host sees.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "importer/odbc_workbook_import.h"
#include "tests/support/connection.h"

namespace odbcimport::test {

std::u16string Wide(const std::string& ascii);
std::string Narrow(const std::u16string& text);  // other than ASCII becomes '?'

// What a workbook holds, one line a fact: "owner.table: column" with code and sizes, "owner.table
// key (columns)" and "owner.table(columns) <- owner.table(columns)" for a forward key.
std::vector<std::string> ColumnLines(const LcWorkbookTableList& tables);
std::vector<std::string> KeyLines(const LcWorkbookTableList& tables);
// A column as "name code width/precision/scale type", "!" for required, "serial" for a generated
// key.
std::string ColumnText(const LcWorkbookColumn& column);

// Forward keys with the mirror key that belongs to each, and the other way round; adds a failure
// for every key that is alone, refers to a table that is not there, or has sides that do not match.
void ExpectKeysInPairs(const LcWorkbookTableList& tables);

class NativeRun {
 public:
  // `keywords` go into the simulator's connection string: Sql=..., Scale=..., Fault=...
  explicit NativeRun(const std::string& server, const std::string& keywords = "");

  // Runs the import with the choices that `importer` has then. Status starts as 0.
  bool Run();
  // The route that the settings would not choose.
  bool RunGeneric();

  // What the callback heard: "2 1", "4 1 12", "6 owner|table|column", "3".
  std::vector<std::string> events;
  std::function<void(const std::string&)> on_event;
  unsigned short status = 0;

  wbtest::MessageRecorder messages;
  LcWorkbook workbook;
  LcODBCWorkbookImport importer;

  void Execute(const std::string& sql) { connection_->Execute(sql); }  // changes the catalog
  void Stop() { importer.running = false; }
  void Cancel() { importer.cancelled = true; }
  void SelectTable(const std::string& owner, const std::string& name);
  LcTableInfo* SelectSynonym(const std::string& owner, const std::string& name);

 private:
  static void Callback(enumImpNotify notify, void* record);

  std::unique_ptr<wbtest::Connection> connection_;
};

}  // namespace odbcimport::test
