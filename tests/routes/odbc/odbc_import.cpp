// Runs the generic route on a real connection and keeps what it reported.
#include "tests/routes/odbc/odbc_import.h"

#include <gtest/gtest.h>
#include <sql.h>
#include <sqlext.h>
#include <sqlite3.h>
#include <utf8.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>

#include "importer/route.h"

namespace odbcimport::test {
namespace {

ODBCImport* running = nullptr;  // the callback has no context

}  // namespace

std::u16string Wide(const std::string& utf8) { return utf8::utf8to16(utf8); }
std::string Narrow(const std::u16string& text) { return utf8::utf16to8(text); }

Connection::Connection(const std::string& connection_string) {
  std::setlocale(LC_ALL, "C.UTF-8");  // the driver manager converts names by it
  SQLAllocEnv(&henv);
  SQLAllocConnect(henv, &hdbc);
  std::u16string text = Wide(connection_string);
  const SQLRETURN result =
      SQLDriverConnectW(hdbc, nullptr, reinterpret_cast<SQLWCHAR*>(text.data()), SQL_NTS, nullptr,
                        0, nullptr, SQL_DRIVER_NOPROMPT);
  if (!SQL_SUCCEEDED(result)) {
    ADD_FAILURE() << "no connection to " << connection_string;
  }
}

Connection::~Connection() {
  SQLDisconnect(hdbc);
  SQLFreeConnect(hdbc);
  SQLFreeEnv(henv);
}

SQLiteFile::SQLiteFile(const std::string& script) {
  folder_ = std::filesystem::temp_directory_path() / "odbc-route-XXXXXX";
  if (mkdtemp(folder_.data()) == nullptr) ADD_FAILURE() << "no temporary folder";
  sqlite3* database = nullptr;
  sqlite3_open((folder_ + "/test.db").c_str(), &database);
  char* message = nullptr;
  sqlite3_exec(database, script.c_str(), nullptr, nullptr, &message);
  if (message != nullptr) ADD_FAILURE() << message;
  sqlite3_free(message);
  sqlite3_close(database);
}

SQLiteFile::~SQLiteFile() { std::filesystem::remove_all(folder_); }

std::string SQLiteFile::ConnectionString() const {
  return "Driver=SQLite3;Database=" + folder_ + "/test.db";
}

ODBCImport::ODBCImport(const std::string& connection_string)
    : base(&workbook),
      connection_(connection_string),
      own_types_(std::make_shared<LcODBCDatatypeList>(dbmsUnknown, 0)) {
  base.henv = connection_.henv;
  base.hdbc = connection_.hdbc;
  base.choices.keys = true;
  base.choices.foreign_keys = true;
  base.choices.item_mask = ibTables | ibViews;
}

ImportSession ODBCImport::Session() {
  base.choices.dbms_type = server.dbms_type;
  return ImportSession(base, &workbook, server, own_types_, &Callback, item_);
}

bool ODBCImport::Run() {
  running = this;
  ImportSession session = Session();
  return ImportODBCItems(session, status);
}

void ODBCImport::Callback(enumImpNotify notify, void* record) {
  std::string text = std::to_string(notify);
  if (notify == inPhaseStart || notify == inLoopStart) {
    const auto* start = static_cast<LcImpProgStartInfo*>(record);
    text += " " + std::to_string(start->item_type) + " " + std::to_string(start->count);
  } else if (record != nullptr) {
    const auto* item = static_cast<LcImpItemInfo*>(record);
    text += " " + Narrow(item->text1) + "|" + Narrow(item->text2) + "|" + Narrow(item->text3) +
            "|" + (item->flag ? "1" : "0");
  }
  running->events.push_back(text);
  if (running->on_event) running->on_event(text);
}

std::vector<std::string> ODBCImport::TableNames() const {
  std::vector<std::string> names;
  for (const LcWorkbookTable* table : workbook.tables) {
    if (table == nullptr) continue;
    const std::string owner = Narrow(table->GetOwner(false));
    names.push_back((table->GetType() == ttView ? "V " : "T ") +
                    (owner.empty() ? "" : owner + ".") + Narrow(table->GetName()));
  }
  return names;
}

LcWorkbookTable* ODBCImport::Table(const std::string& name) const {
  return workbook.tables.FindTableNoOwner(Wide(name));
}

std::vector<std::string> ODBCImport::Columns(const std::string& table) const {
  std::vector<std::string> columns;
  const LcWorkbookTable* found = Table(table);
  for (int i = 0; found != nullptr && i < found->GetColumnCount(); ++i) {
    const LcWorkbookColumn* column = found->GetColumn(i);
    const LcWorkbookDatatype* type = column->GetDataType();
    columns.push_back(Narrow(column->GetName()) + ":" +
                      (type != nullptr ? std::to_string(type->GetPhysicalCode()) : "-") +
                      (column->IsRequired() ? "!" : ""));
  }
  return columns;
}

std::vector<std::string> ODBCImport::PrimaryKey(const std::string& table) const {
  std::vector<std::string> columns;
  const LcWorkbookTable* found = Table(table);
  if (found == nullptr) return columns;
  for (const LcWorkbookColumn* column : found->GetPrimaryKey().GetColumns()) {
    columns.push_back(Narrow(column->GetName()) + (column->IsPrimaryKey() ? "" : "?"));
  }
  return columns;
}

std::vector<std::string> ODBCImport::References(const std::string& table) const {
  std::vector<std::string> keys;
  const LcWorkbookTable* found = Table(table);
  if (found == nullptr) return keys;
  for (const auto& key : found->GetForeignKeys()) {
    if (key->GetRole() != fkForward) continue;
    const LcWorkbookForeignKey* mirror = key->GetPartner();
    if (mirror == nullptr || mirror->GetRole() != fkMirror) {
      keys.push_back("without a mirror");
      continue;
    }
    std::string text;
    for (const LcWorkbookColumn* column : key->GetKey()->GetColumns()) {
      text += Narrow(column->GetName()) + ",";
    }
    text.back() = '>';
    text += Narrow(mirror->GetTable()->GetName()) + ".";
    for (const LcWorkbookColumn* column : mirror->GetKey()->GetColumns()) {
      text += Narrow(column->GetName()) + ",";
    }
    text.pop_back();
    keys.push_back(text + (key->IsOneToOne() ? "*" : ""));
  }
  return keys;
}

}  // namespace odbcimport::test
