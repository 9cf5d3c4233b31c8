// Runs the generic route on a real connection and keeps what it reported.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "catalogues/type_lists.h"
#include "importer/session.h"
#include "importer/workbook/import.h"

namespace odbcimport::test {

// A base of an importer whose choices a test sets.
class PlainImport : public LcWorkbookImport {
 public:
  explicit PlainImport(LcWorkbook* workbook) : LcWorkbookImport(workbook) {}
  bool ImportItems(unsigned short&) override { return false; }
  bool SyncLogin(void*, void*) override { return true; }
  bool SyncLogin(LcWorkbookDatabase*) override { return true; }
  bool UnSyncLogin() override { return true; }
};

// An open connection. Fails the test when there is none.
class Connection {
 public:
  explicit Connection(const std::string& connection_string);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  void* henv = nullptr;
  void* hdbc = nullptr;
};

// A SQLite file in a temporary folder, made by a script and removed at the end.
class SQLiteFile {
 public:
  explicit SQLiteFile(const std::string& script);
  ~SQLiteFile();
  SQLiteFile(const SQLiteFile&) = delete;
  SQLiteFile& operator=(const SQLiteFile&) = delete;
  std::string ConnectionString() const;

 private:
  std::string folder_;
};

std::u16string Wide(const std::string& utf8);
std::string Narrow(const std::u16string& text);  // UTF-8

// One import by the generic route. Choices are set before Run.
class ODBCImport {
 public:
  explicit ODBCImport(const std::string& connection_string);

  bool Run();
  ImportSession Session();

  // What the callback heard, one text each: "6 owner|table|column|0", "4 1 12", "3".
  std::vector<std::string> events;
  // Called with the text of every event, for a host that stops.
  std::function<void(const std::string&)> on_event;

  // "T name" or "V name", with "owner." where there is one, in workbook order.
  std::vector<std::string> TableNames() const;
  LcWorkbookTable* Table(const std::string& name) const;  // without owner
  // "name:physical code", with "!" for a required column.
  std::vector<std::string> Columns(const std::string& table) const;
  std::vector<std::string> PrimaryKey(const std::string& table) const;
  // "key column>table.foreign column" of the forward keys of a table, "*" after a one-to-one
  // mirror.
  std::vector<std::string> References(const std::string& table) const;

  LcWorkbook workbook;
  PlainImport base;
  ServerFacts server;
  unsigned short status = 0;

 private:
  static void Callback(enumImpNotify notify, void* record);

  Connection connection_;
  std::shared_ptr<LcODBCDatatypeList> own_types_;
  LcImpItemInfo item_;
};

}  // namespace odbcimport::test
