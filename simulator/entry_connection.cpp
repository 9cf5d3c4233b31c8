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

struct FixedText {
  SQLUSMALLINT info;
  const char* answer;
};

struct FixedNumber {
  SQLUSMALLINT info;
  SQLUSMALLINT size;  // bytes of the answer
  SQLUINTEGER answer;
};

// What every server answers alike.
constexpr FixedText kFixedTexts[] = {
    {SQL_DRIVER_NAME, "libcatalogsim.so"},
    {SQL_DRIVER_VER, "01.00.0000"},
    {SQL_DRIVER_ODBC_VER, "03.51"},
    {SQL_DATA_SOURCE_NAME, ""},
    {SQL_USER_NAME, ""},
    {SQL_IDENTIFIER_QUOTE_CHAR, "\""},
    {SQL_SEARCH_PATTERN_ESCAPE, "\\"},
    {SQL_TABLE_TERM, "table"},
    {SQL_PROCEDURE_TERM, "procedure"},
    {SQL_ACCESSIBLE_TABLES, "Y"},
    {SQL_ACCESSIBLE_PROCEDURES, "Y"},
    {SQL_DATA_SOURCE_READ_ONLY, "N"},
    {SQL_NEED_LONG_DATA_LEN, "N"},
    {SQL_MULT_RESULT_SETS, "N"},
    {SQL_DESCRIBE_PARAMETER, "N"},
    {SQL_SPECIAL_CHARACTERS, ""},
    {SQL_KEYWORDS, ""},
};

constexpr FixedNumber kFixedNumbers[] = {
    {SQL_POS_OPERATIONS, 4, 0},
    {SQL_ASYNC_MODE, 4, 0},
    {SQL_SCROLL_CONCURRENCY, 4, 0},
    {SQL_GETDATA_EXTENSIONS, 4, SQL_GD_ANY_COLUMN | SQL_GD_ANY_ORDER},
    {SQL_SCROLL_OPTIONS, 4, SQL_SO_FORWARD_ONLY},
    {SQL_ODBC_INTERFACE_CONFORMANCE, 4, SQL_OIC_CORE},
    {SQL_FETCH_DIRECTION, 4, SQL_FD_FETCH_NEXT},
    {SQL_CURSOR_COMMIT_BEHAVIOR, 2, SQL_CB_PRESERVE},
    {SQL_CURSOR_ROLLBACK_BEHAVIOR, 2, SQL_CB_PRESERVE},
    {SQL_TXN_CAPABLE, 2, SQL_TC_NONE},
    {SQL_IDENTIFIER_CASE, 2, SQL_IC_MIXED},
    {SQL_MAX_CATALOG_NAME_LEN, 2, 128},
    {SQL_MAX_SCHEMA_NAME_LEN, 2, 128},
    {SQL_MAX_TABLE_NAME_LEN, 2, 128},
    {SQL_MAX_COLUMN_NAME_LEN, 2, 128},
    {SQL_MAX_PROCEDURE_NAME_LEN, 2, 128},
    {SQL_ACTIVE_CONNECTIONS, 2, 0},  // no limit
    {SQL_ACTIVE_STATEMENTS, 2, 0},
    {SQL_ODBC_API_CONFORMANCE, 2, SQL_OAC_LEVEL2},
    {SQL_ODBC_SQL_CONFORMANCE, 2, SQL_OSC_CORE},
};

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
      return connection.version();
    case SQL_DATABASE_NAME:
      return std::string(traits.catalog);
    case SQL_SERVER_NAME:
      return std::string(traits.name);
    case SQL_CATALOG_NAME:
      return has_catalog ? "Y" : "N";
    case SQL_CATALOG_TERM:
      return has_catalog ? "database" : "";
    case SQL_CATALOG_NAME_SEPARATOR:
      return has_catalog ? "." : "";
    case SQL_SCHEMA_TERM:
      return traits.owner_usage != 0 ? "owner" : "";
    case SQL_PROCEDURES:
      return connection.HasFunction(SQL_API_SQLPROCEDURES) ? "Y" : "N";
    default:
      break;
  }
  for (const FixedText& fixed : kFixedTexts) {
    if (fixed.info == info) return fixed.answer;
  }
  known = false;
  return "";
}

// False when the number is not known. `size` becomes the bytes of the answer.
bool InfoNumber(Connection& connection, SQLUSMALLINT info, SQLUINTEGER& number, int& size) {
  const catalogsim::ServerTraits& traits = connection.traits();
  size = 4;
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
    case SQL_CATALOG_LOCATION:
      size = 2;
      number = traits.catalog_usage != 0 ? SQL_CL_START : 0;
      return true;
    default:
      break;
  }
  for (const FixedNumber& fixed : kFixedNumbers) {
    if (fixed.info != info) continue;
    size = fixed.size;
    number = fixed.answer;
    return true;
  }
  size = 2;
  number = 0;
  return false;
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
  // Older recordings were made by a program that did not ask: the name is then not known.
  if (info == SQL_DATABASE_NAME) return connection.Fail("HY096", "the recording has no such name");
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
