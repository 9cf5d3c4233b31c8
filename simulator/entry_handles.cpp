// Entry points: handles, environment attributes, diagnostics.
#include <sqlext.h>
#include <sqlucode.h>

#include <new>

#include "simulator/entry.h"
#include "simulator/text.h"

using catalogsim::Connection;
using catalogsim::Environment;
using catalogsim::Handle;
using catalogsim::Statement;

namespace {

const Handle& AnyHandle(SQLSMALLINT type, SQLHANDLE handle) {
  switch (type) {
    case SQL_HANDLE_ENV:
      return *static_cast<Environment*>(handle);
    case SQL_HANDLE_DBC:
      return *static_cast<Connection*>(handle);
    default:
      return *static_cast<Statement*>(handle);
  }
}

std::string FullMessage(SQLSMALLINT type, SQLHANDLE handle,
                        const catalogsim::Diagnostic& diagnostic) {
  if (diagnostic.verbatim) return diagnostic.message;
  const Connection* connection = nullptr;
  if (type == SQL_HANDLE_DBC) connection = static_cast<Connection*>(handle);
  if (type == SQL_HANDLE_STMT) connection = &static_cast<Statement*>(handle)->connection();
  std::string prefix = "[catalogsim]";
  if (connection != nullptr && connection->IsOpen())
    prefix += '[' + std::string(connection->traits().name) + ']';
  return prefix + ' ' + diagnostic.message;
}

// The n-th statement of a recording is there or not, as it was.
SQLRETURN RecordedAllocation(Connection& connection) {
  catalogsim::Recording* const recording = connection.recording();
  if (recording == nullptr) return SQL_SUCCESS;
  const catalogsim::Recording::Line line =
      recording->FindAnswer(catalogsim::Question(SQL_API_SQLALLOCHANDLE).Text());
  return line == catalogsim::Recording::kNone
             ? SQLRETURN{SQL_SUCCESS}
             : catalogsim::GiveOutcome(*recording, line, connection);
}

}  // namespace

CATALOGSIM_ENTRY SQLAllocHandle(SQLSMALLINT type, SQLHANDLE parent, SQLHANDLE* handle) {
  *handle = SQL_NULL_HANDLE;
  switch (type) {
    case SQL_HANDLE_ENV:
      *handle = new (std::nothrow) Environment;
      break;
    case SQL_HANDLE_DBC:
      *handle = new (std::nothrow) Connection(*static_cast<Environment*>(parent));
      break;
    case SQL_HANDLE_STMT:
      return catalogsim::OnConnection(parent, SQL_API_SQLALLOCHANDLE, [&](Connection& connection) {
        if (const SQLRETURN result = RecordedAllocation(connection); !SQL_SUCCEEDED(result))
          return result;
        *handle = connection.AddStatement();
        return SQLRETURN{SQL_SUCCESS};
      });
    default:
      return SQL_ERROR;  // descriptors: the driver manager does without
  }
  return *handle != nullptr ? SQL_SUCCESS : SQL_ERROR;
}

// A statement whose release fails is still there, as the standard has it: the driver manager keeps
// its handle too, and the caller can try again.
CATALOGSIM_ENTRY SQLFreeHandle(SQLSMALLINT type, SQLHANDLE handle) {
  switch (type) {
    case SQL_HANDLE_ENV:
      delete static_cast<Environment*>(handle);
      return SQL_SUCCESS;
    case SQL_HANDLE_DBC:
      delete static_cast<Connection*>(handle);
      return SQL_SUCCESS;
    case SQL_HANDLE_STMT: {
      auto* const statement = static_cast<Statement*>(handle);
      Connection& connection = statement->connection();
      const bool fails = connection.gate().Enter(SQL_API_SQLFREEHANDLE) != nullptr;
      const SQLRETURN result = fails ? SQL_ERROR : SQL_SUCCESS;
      connection.gate().Leave(SQL_API_SQLFREEHANDLE, handle, result);
      if (!fails) connection.RemoveStatement(statement);
      return result;
    }
    default:
      return SQL_ERROR;
  }
}

CATALOGSIM_ENTRY SQLSetEnvAttr(SQLHENV handle, SQLINTEGER attribute, SQLPOINTER value, SQLINTEGER) {
  if (attribute == SQL_ATTR_ODBC_VERSION)
    static_cast<Environment*>(handle)->odbc_version = reinterpret_cast<SQLULEN>(value);
  return SQL_SUCCESS;
}

CATALOGSIM_ENTRY SQLGetEnvAttr(SQLHENV handle, SQLINTEGER attribute, SQLPOINTER value, SQLINTEGER,
                               SQLINTEGER*) {
  if (attribute != SQL_ATTR_ODBC_VERSION) return SQL_ERROR;
  catalogsim::Answer<SQLINTEGER>(
      value, static_cast<SQLINTEGER>(static_cast<Environment*>(handle)->odbc_version));
  return SQL_SUCCESS;
}

CATALOGSIM_ENTRY SQLGetDiagRecW(SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT record,
                                SQLWCHAR* state, SQLINTEGER* native, SQLWCHAR* message,
                                SQLSMALLINT capacity, SQLSMALLINT* length) {
  const auto& diagnostics = AnyHandle(type, handle).diagnostics();
  if (record < 1 || static_cast<std::size_t>(record) > diagnostics.size()) return SQL_NO_DATA;
  const catalogsim::Diagnostic& diagnostic = diagnostics[static_cast<std::size_t>(record) - 1];
  static_cast<void>(catalogsim::AnswerText(diagnostic.state, state, 6, nullptr));  // always fits
  catalogsim::Answer<SQLINTEGER>(native, diagnostic.native_error);
  const bool whole =
      catalogsim::AnswerText(FullMessage(type, handle, diagnostic), message, capacity, length);
  return whole ? SQL_SUCCESS : SQL_SUCCESS_WITH_INFO;
}

CATALOGSIM_ENTRY SQLGetDiagFieldW(SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT record,
                                  SQLSMALLINT field, SQLPOINTER value, SQLSMALLINT bytes,
                                  SQLSMALLINT* length) {
  const auto& diagnostics = AnyHandle(type, handle).diagnostics();
  if (field == SQL_DIAG_NUMBER) {
    catalogsim::Answer<SQLINTEGER>(value, static_cast<SQLINTEGER>(diagnostics.size()));
    return SQL_SUCCESS;
  }
  if (record < 1 || static_cast<std::size_t>(record) > diagnostics.size()) return SQL_NO_DATA;
  const catalogsim::Diagnostic& diagnostic = diagnostics[static_cast<std::size_t>(record) - 1];
  std::string text;
  switch (field) {
    case SQL_DIAG_SQLSTATE:
      text = diagnostic.state;
      break;
    case SQL_DIAG_MESSAGE_TEXT:
      text = FullMessage(type, handle, diagnostic);
      break;
    case SQL_DIAG_CLASS_ORIGIN:
    case SQL_DIAG_SUBCLASS_ORIGIN:
      text = "ODBC 3.0";
      break;
    case SQL_DIAG_CONNECTION_NAME:
    case SQL_DIAG_SERVER_NAME:
      break;
    case SQL_DIAG_NATIVE:
      catalogsim::Answer<SQLINTEGER>(value, diagnostic.native_error);
      return SQL_SUCCESS;
    case SQL_DIAG_COLUMN_NUMBER:
      catalogsim::Answer<SQLINTEGER>(value, 0);
      return SQL_SUCCESS;
    case SQL_DIAG_ROW_NUMBER:
      catalogsim::Answer<SQLLEN>(value, 0);
      return SQL_SUCCESS;
    default:
      return SQL_ERROR;
  }
  const bool whole = catalogsim::AnswerText(text, static_cast<SQLWCHAR*>(value), bytes / 2, length);
  if (length != nullptr) *length = static_cast<SQLSMALLINT>(*length * 2);
  return whole ? SQL_SUCCESS : SQL_SUCCESS_WITH_INFO;
}
