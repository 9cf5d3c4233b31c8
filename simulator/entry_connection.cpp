// Entry points: connecting, connection attributes, what the driver and its server can do.
#include <sqlext.h>
#include <sqlucode.h>

#include <cstring>
#include <optional>

#include "recording/replay_interface.h"
#include "simulator/entry.h"
#include "simulator/private_interface.h"
#include "simulator/rewriting.h"
#include "simulator/text.h"

using catalogsim::Connection;
using catalogsim::OnConnection;

namespace {

std::string InfoText(const Connection& connection, SQLUSMALLINT info, bool& known) {
  const catalogsim::ServerTraits& traits = connection.traits();
  const bool has_catalog = traits.catalog_usage != 0;
  known = true;
  if (const catalogsim::Recording* const recording = connection.recording()) {
    if (info == recording::kInfoFirstNotHeld) return recording->first_not_held();
    known = info == SQL_DRIVER_ODBC_VER;  // what the driver manager asks for
    return known ? "03.51" : "";
  }
  switch (info) {
    case SQL_DBMS_NAME:
      return std::string(traits.dbms_name);
    case SQL_DBMS_VER:
      return std::string(traits.dbms_version);
    case SQL_DRIVER_NAME:
      return "libcatalogsim.so";
    case SQL_DRIVER_VER:
      return "01.00.0000";
    case SQL_DRIVER_ODBC_VER:
      return "03.51";
    case SQL_DATABASE_NAME:
      return std::string(traits.catalog);
    case SQL_SERVER_NAME:
      return std::string(traits.name);
    case SQL_DATA_SOURCE_NAME:
    case SQL_USER_NAME:
      return "";
    case SQL_IDENTIFIER_QUOTE_CHAR:
      return "\"";
    case SQL_SEARCH_PATTERN_ESCAPE:
      return "\\";
    case SQL_CATALOG_NAME:
      return has_catalog ? "Y" : "N";
    case SQL_CATALOG_TERM:
      return has_catalog ? "database" : "";
    case SQL_CATALOG_NAME_SEPARATOR:
      return has_catalog ? "." : "";
    case SQL_SCHEMA_TERM:
      return traits.owner_usage != 0 ? "owner" : "";
    case SQL_TABLE_TERM:
      return "table";
    case SQL_PROCEDURE_TERM:
      return "procedure";
    case SQL_PROCEDURES:
      return connection.HasFunction(SQL_API_SQLPROCEDURES) ? "Y" : "N";
    case SQL_ACCESSIBLE_TABLES:
    case SQL_ACCESSIBLE_PROCEDURES:
      return "Y";
    case SQL_DATA_SOURCE_READ_ONLY:
    case SQL_NEED_LONG_DATA_LEN:
    case SQL_MULT_RESULT_SETS:
    case SQL_DESCRIBE_PARAMETER:
      return "N";
    case SQL_SPECIAL_CHARACTERS:
    case SQL_KEYWORDS:
      return "";
    default:
      known = false;
      return "";
  }
}

// False when the number is not known. `size` becomes the bytes of the answer.
bool InfoNumber(Connection& connection, SQLUSMALLINT info, SQLUINTEGER& number, int& size) {
  const catalogsim::ServerTraits& traits = connection.traits();
  size = 4;
  number = 0;
  switch (info) {
    case catalogsim::kInfoCalls:
      number = static_cast<SQLUINTEGER>(connection.gate().calls());
      return true;
    case catalogsim::kInfoOpenStatements:
      number = static_cast<SQLUINTEGER>(connection.open_statements());
      return true;
    case catalogsim::kInfoFaults:
      number = static_cast<SQLUINTEGER>(connection.gate().faults());
      return true;
    case recording::kInfoNotHeld:
      number = connection.recording() != nullptr ? connection.recording()->not_held() : 0;
      return true;
    case SQL_SCHEMA_USAGE:
      number = traits.owner_usage;
      return true;
    case SQL_CATALOG_USAGE:
      number = traits.catalog_usage;
      return true;
    case SQL_POS_OPERATIONS:
    case SQL_ASYNC_MODE:
    case SQL_SCROLL_CONCURRENCY:
      return true;
    case SQL_GETDATA_EXTENSIONS:
      number = SQL_GD_ANY_COLUMN | SQL_GD_ANY_ORDER;
      return true;
    case SQL_SCROLL_OPTIONS:
      number = SQL_SO_FORWARD_ONLY;
      return true;
    case SQL_ODBC_INTERFACE_CONFORMANCE:
      number = SQL_OIC_CORE;
      return true;
    case SQL_FETCH_DIRECTION:
      number = SQL_FD_FETCH_NEXT;
      return true;
    default:
      size = 2;
      break;
  }
  switch (info) {
    case SQL_CURSOR_COMMIT_BEHAVIOR:
    case SQL_CURSOR_ROLLBACK_BEHAVIOR:
      number = SQL_CB_PRESERVE;
      return true;
    case SQL_TXN_CAPABLE:
      number = SQL_TC_NONE;
      return true;
    case SQL_CATALOG_LOCATION:
      number = traits.catalog_usage != 0 ? SQL_CL_START : 0;
      return true;
    case SQL_IDENTIFIER_CASE:
      number = SQL_IC_MIXED;
      return true;
    case SQL_MAX_CATALOG_NAME_LEN:
    case SQL_MAX_SCHEMA_NAME_LEN:
    case SQL_MAX_TABLE_NAME_LEN:
    case SQL_MAX_COLUMN_NAME_LEN:
    case SQL_MAX_PROCEDURE_NAME_LEN:
      number = 128;
      return true;
    case SQL_ACTIVE_CONNECTIONS:
    case SQL_ACTIVE_STATEMENTS:
      return true;  // 0: no limit
    case SQL_ODBC_API_CONFORMANCE:
      number = SQL_OAC_LEVEL2;
      return true;
    case SQL_ODBC_SQL_CONFORMANCE:
      number = SQL_OSC_CORE;
      return true;
    default:
      return false;
  }
}

bool IsPrivateInfo(SQLUSMALLINT info) {
  return info >= catalogsim::kInfoCalls && info <= recording::kInfoFirstNotHeld;
}

// Empty where the server is no recording, or where the question is the driver manager's own.
std::optional<SQLRETURN> GetRecordedInfo(Connection& connection, SQLUSMALLINT info,
                                         SQLPOINTER value, SQLSMALLINT capacity,
                                         SQLSMALLINT* length) {
  catalogsim::Recording* const recording = connection.recording();
  if (recording == nullptr || IsPrivateInfo(info)) return std::nullopt;
  const std::string question = catalogsim::Question(SQL_API_SQLGETINFO).Add(info).Text();
  const catalogsim::Recording::Line line = recording->FindAnswer(question);
  if (line != catalogsim::Recording::kNone) {
    SQLINTEGER bytes = 0;
    const SQLRETURN result =
        catalogsim::GiveValue(*recording, line, connection, value, capacity, &bytes);
    catalogsim::Answer<SQLSMALLINT>(length, static_cast<SQLSMALLINT>(bytes));
    return result;
  }
  bool known = false;
  InfoText(connection, info, known);
  SQLUINTEGER number = 0;
  int size = 0;
  const bool of_server = info == SQL_SCHEMA_USAGE || info == SQL_CATALOG_USAGE;
  if (known || (!of_server && InfoNumber(connection, info, number, size))) return std::nullopt;
  return connection.Fail("HY096", recording->NotHeld(question));
}

SQLRETURN GetInfo(Connection& connection, SQLUSMALLINT info, SQLPOINTER value, SQLSMALLINT capacity,
                  SQLSMALLINT* length) {
  if (const auto recorded = GetRecordedInfo(connection, info, value, capacity, length))
    return *recorded;
  bool is_text = false;
  const std::string text = InfoText(connection, info, is_text);
  if (is_text) {
    SQLSMALLINT characters = 0;
    const bool whole =
        catalogsim::AnswerText(text, static_cast<SQLWCHAR*>(value), capacity / 2, &characters);
    catalogsim::Answer<SQLSMALLINT>(length, static_cast<SQLSMALLINT>(characters * 2));
    if (whole) return SQL_SUCCESS;
    return connection.Warn("01004", "the answer was cut");
  }
  SQLUINTEGER number = 0;
  int size = 0;
  if (!InfoNumber(connection, info, number, size))
    return connection.Fail("HY096", "there is no such information");
  if (size == 4) catalogsim::Answer<SQLUINTEGER>(value, number);
  if (size == 2) catalogsim::Answer<SQLUSMALLINT>(value, static_cast<SQLUSMALLINT>(number));
  catalogsim::Answer<SQLSMALLINT>(length, static_cast<SQLSMALLINT>(size));
  return SQL_SUCCESS;
}

}  // namespace

// Faults of this function are met inside Open, which knows them only then.
CATALOGSIM_ENTRY SQLDriverConnectW(SQLHDBC handle, SQLHWND, SQLWCHAR* in, SQLSMALLINT in_length,
                                   SQLWCHAR* out, SQLSMALLINT capacity, SQLSMALLINT* out_length,
                                   SQLUSMALLINT) {
  auto& connection = *static_cast<Connection*>(handle);
  connection.ClearDiagnostics();
  try {
    const std::string text = catalogsim::TextArgument(in, in_length);
    const SQLRETURN result = connection.Open(text);
    connection.gate().Leave(SQL_API_SQLDRIVERCONNECT, handle, result);
    if (result == SQL_SUCCESS && !catalogsim::AnswerText(text, out, capacity, out_length))
      return connection.Warn("01004", "the connection string was cut");
    return result;
  } catch (const std::exception& failure) {
    return connection.Fail("HY000", failure.what());
  }
}

CATALOGSIM_ENTRY SQLDisconnect(SQLHDBC handle) {
  return OnConnection(handle, SQL_API_SQLDISCONNECT, [](Connection& connection) {
    connection.Close();
    return SQLRETURN{SQL_SUCCESS};
  });
}

CATALOGSIM_ENTRY SQLSetConnectAttrW(SQLHDBC handle, SQLINTEGER attribute, SQLPOINTER value,
                                    SQLINTEGER) {
  auto& connection = *static_cast<Connection*>(handle);
  const auto number = reinterpret_cast<SQLULEN>(value);
  switch (attribute) {
    case catalogsim::kAttrFailCall:
      if (connection.recording() != nullptr) connection.recording()->Rewind();
      connection.gate().FailCallFromNow(number);
      return SQL_SUCCESS;
    case catalogsim::kAttrDropCall:
      if (connection.recording() != nullptr) connection.recording()->Rewind();
      connection.gate().DropCallFromNow(number);
      return SQL_SUCCESS;
    default:
      break;
  }
  return OnConnection(handle, SQL_API_SQLSETCONNECTATTR, [&](Connection&) {
    // Transactions, time-outs, read-only: nothing here depends on them.
    return SQLRETURN{SQL_SUCCESS};
  });
}

CATALOGSIM_ENTRY SQLGetConnectAttrW(SQLHDBC handle, SQLINTEGER attribute, SQLPOINTER value,
                                    SQLINTEGER text_bytes, SQLINTEGER* bytes) {
  return OnConnection(handle, SQL_API_SQLGETCONNECTATTR, [&](Connection& connection) {
    catalogsim::Recording* const recording = connection.recording();
    if (recording != nullptr && !connection.gate().IsDropped()) {
      const catalogsim::Recording::Line line = recording->FindAnswer(
          catalogsim::Question(SQL_API_SQLGETCONNECTATTR).Add(attribute).Text());
      if (line != catalogsim::Recording::kNone)
        return catalogsim::GiveValue(*recording, line, connection, value, text_bytes, bytes);
    }
    switch (attribute) {
      case SQL_ATTR_CONNECTION_DEAD:
        catalogsim::Answer<SQLUINTEGER>(value,
                                        connection.gate().IsDropped() ? SQL_CD_TRUE : SQL_CD_FALSE);
        return SQLRETURN{SQL_SUCCESS};
      case SQL_ATTR_AUTOCOMMIT:
        catalogsim::Answer<SQLUINTEGER>(value, SQL_AUTOCOMMIT_ON);
        return SQLRETURN{SQL_SUCCESS};
      default:
        return connection.Fail("HY092", "there is no such attribute");
    }
  });
}

CATALOGSIM_ENTRY SQLGetInfoW(SQLHDBC handle, SQLUSMALLINT info, SQLPOINTER value,
                             SQLSMALLINT capacity, SQLSMALLINT* length) {
  if (IsPrivateInfo(info))
    return GetInfo(*static_cast<Connection*>(handle), info, value, capacity, length);
  return OnConnection(handle, SQL_API_SQLGETINFO, [&](Connection& connection) {
    return GetInfo(connection, info, value, capacity, length);
  });
}

CATALOGSIM_ENTRY SQLGetFunctions(SQLHDBC handle, SQLUSMALLINT function, SQLUSMALLINT* supported) {
  return OnConnection(handle, SQL_API_SQLGETFUNCTIONS, [&](Connection& connection) {
    if (function == SQL_API_ODBC3_ALL_FUNCTIONS) {
      std::memset(supported, 0, SQL_API_ODBC3_ALL_FUNCTIONS_SIZE * sizeof *supported);
      for (const catalogsim::Function& known : catalogsim::kFunctions)
        if (connection.HasFunction(known.id))
          supported[known.id >> 4] =
              static_cast<SQLUSMALLINT>(supported[known.id >> 4] | (1U << (known.id & 15)));
    } else if (function == SQL_API_ALL_FUNCTIONS) {
      std::memset(supported, 0, 100 * sizeof *supported);
      for (const catalogsim::Function& known : catalogsim::kFunctions)
        if (known.id < 100 && connection.HasFunction(known.id)) supported[known.id] = SQL_TRUE;
    } else {
      *supported = connection.HasFunction(function) ? SQL_TRUE : SQL_FALSE;
    }
    return SQLRETURN{SQL_SUCCESS};
  });
}

CATALOGSIM_ENTRY SQLNativeSqlW(SQLHDBC handle, SQLWCHAR* in, SQLINTEGER in_length, SQLWCHAR* out,
                               SQLINTEGER capacity, SQLINTEGER* out_length) {
  return OnConnection(handle, SQL_API_SQLNATIVESQL, [&](Connection& connection) {
    const std::string sql = catalogsim::RewriteForSqlite(catalogsim::TextArgument(in, in_length),
                                                         connection.traits().dialect);
    const auto room = static_cast<std::size_t>(capacity > 0 ? capacity - 1 : 0);
    const std::size_t units = catalogsim::WidenInto(sql, out, out != nullptr ? room : 0);
    if (out != nullptr && capacity > 0) out[units < room ? units : room] = 0;
    catalogsim::Answer<SQLINTEGER>(out_length, static_cast<SQLINTEGER>(units));
    if (out != nullptr && units > room) return connection.Warn("01004", "the text was cut");
    return SQLRETURN{SQL_SUCCESS};
  });
}

CATALOGSIM_ENTRY SQLEndTran(SQLSMALLINT, SQLHANDLE, SQLSMALLINT) { return SQL_SUCCESS; }
