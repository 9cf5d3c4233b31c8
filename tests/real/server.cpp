// A connection to a real server.
#include "tests/real/server.h"

#include <gtest/gtest.h>
#include <odbcinst.h>
#include <sql.h>
#include <sqlext.h>
#include <utf8.h>

#include <clocale>

namespace real {
namespace {

SQLWCHAR* Buffer(std::u16string& text) { return reinterpret_cast<SQLWCHAR*>(text.data()); }

std::string DiagnosticOf(SQLHDBC hdbc, SQLHSTMT hstmt) {
  std::u16string state(6, u'\0');
  std::u16string message(1024, u'\0');
  SQLINTEGER native_error = 0;
  SQLSMALLINT length = 0;
  SQLErrorW(nullptr, hdbc, hstmt, Buffer(state), &native_error, Buffer(message), 1023, &length);
  return utf8::utf16to8(message.substr(0, message.find(u'\0')));
}

}  // namespace

bool IsDriverInstalled(const std::string& driver) {
  char section[256] = {};
  return SQLGetPrivateProfileString(driver.c_str(), "Driver", "", section, sizeof section,
                                    "odbcinst.ini") > 0;
}

Server::Server(const std::string& connection_string) {
  std::setlocale(LC_ALL, "C.UTF-8");  // the driver manager converts names by it
  SQLAllocEnv(&henv_);
  SQLAllocConnect(henv_, &hdbc_);
  std::u16string text = utf8::utf8to16(connection_string);
  connected_ = SQL_SUCCEEDED(SQLDriverConnectW(hdbc_, nullptr, Buffer(text), SQL_NTS, nullptr, 0,
                                               nullptr, SQL_DRIVER_NOPROMPT));
  if (!connected_) {
    ADD_FAILURE() << connection_string << ": " << DiagnosticOf(hdbc_, SQL_NULL_HSTMT);
  }
}

Server::~Server() {
  SQLDisconnect(hdbc_);
  SQLFreeConnect(hdbc_);
  SQLFreeEnv(henv_);
}

std::vector<std::vector<std::string>> Server::Query(const std::string& sql) {
  std::vector<std::vector<std::string>> rows;
  SQLHSTMT hstmt = nullptr;
  SQLAllocStmt(hdbc_, &hstmt);
  std::u16string text = utf8::utf8to16(sql);
  const SQLRETURN result = SQLExecDirectW(hstmt, Buffer(text), SQL_NTS);
  if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA) {
    ADD_FAILURE() << sql << ": " << DiagnosticOf(hdbc_, hstmt);
  }
  SQLSMALLINT columns = 0;
  SQLNumResultCols(hstmt, &columns);
  while (columns > 0 && SQL_SUCCEEDED(SQLFetch(hstmt))) {
    std::vector<std::string>& row = rows.emplace_back();
    for (SQLSMALLINT i = 1; i <= columns; ++i) {
      std::u16string cell(512, u'\0');
      SQLLEN indicator = 0;
      SQLGetData(hstmt, static_cast<SQLUSMALLINT>(i), SQL_C_WCHAR, cell.data(), 1024, &indicator);
      if (indicator == SQL_NULL_DATA) cell.clear();
      row.push_back(utf8::utf16to8(cell.substr(0, cell.find(u'\0'))));
    }
  }
  SQLFreeStmt(hstmt, SQL_DROP);
  return rows;
}

void Server::Run(const std::vector<std::string>& statements) {
  for (const std::string& statement : statements) Query(statement);
}

}  // namespace real
