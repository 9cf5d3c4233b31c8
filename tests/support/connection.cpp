// Connections for tests.
#include "tests/support/connection.h"

#include <gtest/gtest.h>
#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <utility>

#include "platform/utf8.h"

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

class RecordingMessageBox : public platform::MessageBox {
 public:
  explicit RecordingMessageBox(std::shared_ptr<std::vector<MessageRecorder::Shown>> shown)
      : shown_(std::move(shown)) {}
  void Show(const std::u16string& text, int help_context) override {
    shown_->push_back({platform::ToUtf8(text), help_context});
  }

 private:
  std::shared_ptr<std::vector<MessageRecorder::Shown>> shown_;
};

class RecordingCallLog : public platform::CallLog {
 public:
  explicit RecordingCallLog(std::shared_ptr<std::vector<std::string>> calls)
      : calls_(std::move(calls)) {}
  void OnCall(const char* function, void* /*handle*/, short /*result*/) override {
    calls_->emplace_back(function);
  }

 private:
  std::shared_ptr<std::vector<std::string>> calls_;
};

}  // namespace

Connection::Connection(const std::string& connect_string) {
  SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &henv_);
  SQLSetEnvAttr(henv_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC2), 0);
  SQLAllocHandle(SQL_HANDLE_DBC, henv_, &hdbc_);
  const SQLRETURN result = SQLDriverConnect(hdbc_, nullptr, Bytes(connect_string), SQL_NTS, nullptr,
                                            0, nullptr, SQL_DRIVER_NOPROMPT);
  EXPECT_TRUE(SQL_SUCCEEDED(result)) << connect_string << ": " << Diagnostic(SQL_HANDLE_DBC, hdbc_);
}

Connection::~Connection() {
  // SQLite refuses to disconnect while a statement is left: a leak in the module fails the test.
  EXPECT_TRUE(SQL_SUCCEEDED(SQLDisconnect(hdbc_))) << Diagnostic(SQL_HANDLE_DBC, hdbc_);
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

void Connection::Execute(const std::string& sql) {
  SQLHSTMT statement = nullptr;
  SQLAllocHandle(SQL_HANDLE_STMT, hdbc_, &statement);
  const SQLRETURN result = SQLExecDirect(statement, Bytes(sql), SQL_NTS);
  EXPECT_TRUE(SQL_SUCCEEDED(result) || result == SQL_NO_DATA)
      << sql << ": " << Diagnostic(SQL_HANDLE_STMT, statement);
  SQLFreeHandle(SQL_HANDLE_STMT, statement);
}

unsigned Connection::GetInfo(int info) const {
  SQLUINTEGER answer = 0;
  EXPECT_TRUE(SQL_SUCCEEDED(
      SQLGetInfo(hdbc_, static_cast<SQLUSMALLINT>(info), &answer, sizeof answer, nullptr)));
  return answer;
}

void Connection::SetAttribute(int attribute, unsigned long value) const {
  EXPECT_TRUE(
      SQL_SUCCEEDED(SQLSetConnectAttr(hdbc_, attribute, reinterpret_cast<SQLPOINTER>(value), 0)));
}

MessageRecorder::MessageRecorder()
    : shown_(std::make_shared<std::vector<Shown>>()),
      before_(std::exchange(platform::GetServices().message_box,
                            std::make_shared<RecordingMessageBox>(shown_))) {}

MessageRecorder::~MessageRecorder() { platform::GetServices().message_box = before_; }

CallRecorder::CallRecorder()
    : calls_(std::make_shared<std::vector<std::string>>()),
      before_(std::exchange(platform::GetServices().call_log,
                            std::make_shared<RecordingCallLog>(calls_))) {}

CallRecorder::~CallRecorder() { platform::GetServices().call_log = before_; }

int CallRecorder::Count(const std::string& function) const {
  return static_cast<int>(std::count(calls_->begin(), calls_->end(), function));
}

}  // namespace wbtest
