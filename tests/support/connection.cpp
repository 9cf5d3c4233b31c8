// Connections for tests.
#include "tests/support/connection.h"

#include <gtest/gtest.h>
#include <sql.h>
#include <sqlext.h>

#include <algorithm>

#include "base/utf.h"
#include "tests/support/statement.h"

namespace wbtest {

namespace {

SQLCHAR* Bytes(const std::string& text) {
  return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.c_str()));
}

std::string Diagnostic(SQLSMALLINT kind, SQLHANDLE handle) {
  SQLCHAR state[6] = {};
  SQLCHAR message[512] = {};
  SQLINTEGER native_error = 0;
  SQLSMALLINT length = 0;
  SQLGetDiagRec(kind, handle, 1, state, &native_error, message, sizeof message, &length);
  return reinterpret_cast<char*>(message);
}

}  // namespace

Connection::Connection(const std::string& connect_string, unsigned long odbc_version) {
  SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &henv_);
  SQLSetEnvAttr(henv_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(odbc_version), 0);
  SQLAllocHandle(SQL_HANDLE_DBC, henv_, &hdbc_);
  const SQLRETURN result = SQLDriverConnect(hdbc_, nullptr, Bytes(connect_string), SQL_NTS, nullptr,
                                            0, nullptr, SQL_DRIVER_NOPROMPT);
  connected_ = SQL_SUCCEEDED(result);
  EXPECT_TRUE(connected_) << connect_string << ": " << Diagnostic(SQL_HANDLE_DBC, hdbc_);
}

Connection::~Connection() {
  // SQLite refuses to disconnect while a statement is left: a leak in the module fails the test.
  EXPECT_TRUE(!connected_ || SQL_SUCCEEDED(SQLDisconnect(hdbc_)))
      << Diagnostic(SQL_HANDLE_DBC, hdbc_);
  SQLFreeHandle(SQL_HANDLE_DBC, hdbc_);
  SQLFreeHandle(SQL_HANDLE_ENV, henv_);
}

std::unique_ptr<Connection> Connection::OpenSqlite(const std::vector<std::string>& statements) {
  auto connection = std::make_unique<Connection>("Driver=SQLite3;Database=:memory:");
  for (const std::string& sql : statements) connection->Execute(sql);
  return connection;
}

std::unique_ptr<Connection> Connection::OpenSimulator(const std::string& server,
                                                      const std::string& keywords) {
  return std::make_unique<Connection>(
      "Driver=" WB_BUILD_DIR "/lib/libcatalogsim.so;Server=" + server + ";" + keywords);
}

std::vector<Row> Connection::Execute(const std::string& sql) const {
  Statement statement(*this);
  const SQLRETURN result = statement.Execute(sql);
  EXPECT_TRUE(SQL_SUCCEEDED(result) || result == SQL_NO_DATA)
      << sql << ": " << Diagnostic(SQL_HANDLE_STMT, statement.get());
  return statement.Rows();
}

unsigned Connection::GetInfo(int info) const {
  SQLUINTEGER answer = 0;
  EXPECT_TRUE(SQL_SUCCEEDED(
      SQLGetInfo(hdbc_, static_cast<SQLUSMALLINT>(info), &answer, sizeof answer, nullptr)));
  return answer;
}

void Connection::SetAttribute(int attribute, unsigned long value) const {
  // ODBC takes a number in the place of a pointer.
  // NOLINTNEXTLINE(performance-no-int-to-ptr)
  auto* const number = reinterpret_cast<SQLPOINTER>(value);
  EXPECT_TRUE(SQL_SUCCEEDED(SQLSetConnectAttr(hdbc_, attribute, number, 0)));
}

void MessageRecorder::Box::Show(const std::u16string& text, int help_context) {
  shown.push_back({base::ToUtf8(text), help_context});
}

void CallRecorder::Log::OnCall(const platform::DriverCall& call) {
  calls.emplace_back(call.function);
}

int CallRecorder::Count(const std::string& function) const {
  return static_cast<int>(std::count(log_->calls.begin(), log_->calls.end(), function));
}

}  // namespace wbtest
