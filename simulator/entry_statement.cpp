// Entry points: statements, their attributes, execution, results.
#include <sqlext.h>
#include <sqlucode.h>

#include <algorithm>
#include <optional>
#include <string_view>

#include "simulator/entry.h"
#include "simulator/fetch.h"
#include "simulator/text.h"

using catalogsim::OnStatement;
using catalogsim::Statement;

namespace {

// Pointers and numbers arrive in the same argument.
SQLULEN Number(SQLPOINTER value) { return reinterpret_cast<SQLULEN>(value); }

SQLRETURN SetAttribute(Statement& statement, SQLINTEGER attribute, SQLPOINTER value) {
  catalogsim::StatementOptions& options = statement.options;
  switch (attribute) {
    case SQL_ATTR_QUERY_TIMEOUT:
      options.query_timeout = Number(value);
      return SQL_SUCCESS;
    case SQL_ATTR_CURSOR_TYPE:
      // A result goes forward only, as with many drivers: any other cursor becomes that one.
      if (Number(value) == SQL_CURSOR_FORWARD_ONLY) return SQL_SUCCESS;
      return statement.Warn("01S02", "the cursor is forward-only");
    case SQL_ATTR_CONCURRENCY:
      options.concurrency = Number(value);
      return SQL_SUCCESS;
    case SQL_ROWSET_SIZE:
      options.rowset_size = Number(value);
      return SQL_SUCCESS;
    case SQL_ATTR_ROW_ARRAY_SIZE:
      options.row_array_size = Number(value);
      return SQL_SUCCESS;
    case SQL_ATTR_ROW_BIND_TYPE:
      options.row_bind_type = Number(value);
      return SQL_SUCCESS;
    case SQL_ATTR_MAX_ROWS:
      options.max_rows = Number(value);
      return SQL_SUCCESS;
    case SQL_ATTR_ROW_STATUS_PTR:
      options.row_status = static_cast<SQLUSMALLINT*>(value);
      return SQL_SUCCESS;
    case SQL_ATTR_ROWS_FETCHED_PTR:
      options.rows_fetched = static_cast<SQLULEN*>(value);
      return SQL_SUCCESS;
    case SQL_ATTR_MAX_LENGTH:
    case SQL_ATTR_NOSCAN:
    case SQL_ATTR_ASYNC_ENABLE:
    case SQL_ATTR_RETRIEVE_DATA:
    case SQL_ATTR_USE_BOOKMARKS:
    case SQL_ATTR_METADATA_ID:
      return SQL_SUCCESS;  // their defaults are all there is
    default:
      return statement.Fail("HY092", "there is no such attribute");
  }
}

SQLRETURN GetAttribute(Statement& statement, SQLINTEGER attribute, SQLPOINTER value) {
  const catalogsim::StatementOptions& options = statement.options;
  SQLULEN number = 0;
  switch (attribute) {
    case SQL_ATTR_QUERY_TIMEOUT:
      number = options.query_timeout;
      break;
    case SQL_ATTR_CURSOR_TYPE:
      number = SQL_CURSOR_FORWARD_ONLY;
      break;
    case SQL_ATTR_CONCURRENCY:
      number = options.concurrency;
      break;
    case SQL_ROWSET_SIZE:
      number = options.rowset_size;
      break;
    case SQL_ATTR_ROW_ARRAY_SIZE:
      number = options.row_array_size;
      break;
    case SQL_ATTR_ROW_BIND_TYPE:
      number = options.row_bind_type;
      break;
    case SQL_ATTR_MAX_ROWS:
      number = options.max_rows;
      break;
    case SQL_ATTR_ROW_NUMBER:
      number = statement.result ? statement.result->row : 0;
      break;
    default:
      return statement.Fail("HY092", "there is no such attribute");
  }
  catalogsim::Answer<SQLULEN>(value, number);
  return SQL_SUCCESS;
}

const catalogsim::Column* FindColumn(Statement& statement, SQLUSMALLINT column) {
  if (!statement.result || column < 1 || column > statement.result->columns.size()) {
    statement.Fail("07009", "there is no such column");
    return nullptr;
  }
  return &statement.result->columns[column - 1U];
}

// Nothing for a field that is a text, or none.
std::optional<SQLLEN> NumberOfColumn(Statement& statement, const catalogsim::Column& column,
                                     SQLUSMALLINT field) {
  switch (field) {
    case SQL_DESC_TYPE:
    case SQL_DESC_CONCISE_TYPE:
      return catalogsim::TypeForVersion(column.sql_type, statement.connection().odbc_version());
    case SQL_DESC_DISPLAY_SIZE:
    case SQL_DESC_LENGTH:
    case SQL_DESC_PRECISION:
    case SQL_COLUMN_LENGTH:
    case SQL_COLUMN_PRECISION:
    case SQL_DESC_OCTET_LENGTH:
      return static_cast<SQLLEN>(column.size);
    case SQL_DESC_SCALE:
    case SQL_COLUMN_SCALE:
      return column.digits;
    case SQL_DESC_NULLABLE:
    case SQL_COLUMN_NULLABLE:
      return column.nullable;
    case SQL_DESC_SEARCHABLE:
      return SQL_PRED_SEARCHABLE;
    case SQL_DESC_UNSIGNED:
    case SQL_DESC_AUTO_UNIQUE_VALUE:
    case SQL_DESC_CASE_SENSITIVE:
    case SQL_DESC_FIXED_PREC_SCALE:
    case SQL_DESC_UPDATABLE:
    case SQL_DESC_UNNAMED:
      return 0;
    default:
      return std::nullopt;
  }
}

std::optional<std::string_view> TextOfColumn(const catalogsim::Column& column, SQLUSMALLINT field) {
  switch (field) {
    case SQL_DESC_NAME:
    case SQL_DESC_LABEL:
    case SQL_DESC_BASE_COLUMN_NAME:
    case SQL_COLUMN_NAME:
      return column.name;
    case SQL_DESC_TYPE_NAME:
    case SQL_DESC_TABLE_NAME:
    case SQL_DESC_SCHEMA_NAME:
    case SQL_DESC_CATALOG_NAME:
    case SQL_DESC_BASE_TABLE_NAME:
    case SQL_DESC_LITERAL_PREFIX:
    case SQL_DESC_LITERAL_SUFFIX:
    case SQL_DESC_LOCAL_TYPE_NAME:
      return "";
    default:
      return std::nullopt;
  }
}

SQLRETURN ColumnAttribute(Statement& statement, SQLUSMALLINT column, SQLUSMALLINT field,
                          SQLPOINTER text, SQLSMALLINT bytes, SQLSMALLINT* length, SQLLEN* number) {
  if (field == SQL_DESC_COUNT || field == SQL_COLUMN_COUNT) {
    catalogsim::Answer<SQLLEN>(number, statement.result
                                           ? static_cast<SQLLEN>(statement.result->columns.size())
                                           : SQLLEN{0});
    return SQL_SUCCESS;
  }
  const catalogsim::Column* const found = FindColumn(statement, column);
  if (found == nullptr) return SQL_ERROR;
  if (const auto answer = TextOfColumn(*found, field)) {
    SQLSMALLINT characters = 0;
    const bool whole =
        catalogsim::AnswerText(*answer, static_cast<SQLWCHAR*>(text), bytes / 2, &characters);
    catalogsim::Answer<SQLSMALLINT>(length, static_cast<SQLSMALLINT>(characters * 2));
    return whole ? SQLRETURN{SQL_SUCCESS} : statement.Warn("01004", "the name was cut");
  }
  const std::optional<SQLLEN> answer = NumberOfColumn(statement, *found, field);
  if (!answer) return statement.Fail("HY091", "there is no such field");
  catalogsim::Answer<SQLLEN>(number, *answer);
  return SQL_SUCCESS;
}

}  // namespace

CATALOGSIM_ENTRY SQLBindParameter(SQLHSTMT handle, SQLUSMALLINT number, SQLSMALLINT direction,
                                  SQLSMALLINT c_type, SQLSMALLINT, SQLULEN, SQLSMALLINT,
                                  SQLPOINTER value, SQLLEN bytes, SQLLEN* indicator) {
  return OnStatement(handle, SQL_API_SQLBINDPARAMETER, [&](Statement& statement) {
    if (number < 1 || direction != SQL_PARAM_INPUT)
      return statement.Fail("HYC00", "there are input parameters only");
    if (statement.parameters.size() < number) statement.parameters.resize(number);
    statement.parameters[number - 1U] = {c_type, value, bytes, indicator};
    if (!statement.replay) return SQLRETURN{SQL_SUCCESS};
    return statement.replay->Outcome(
        catalogsim::Question(SQL_API_SQLBINDPARAMETER).Add(number).Text());
  });
}

CATALOGSIM_ENTRY SQLFreeStmt(SQLHSTMT handle, SQLUSMALLINT option) {
  return OnStatement(handle, SQL_API_SQLFREESTMT, [&](Statement& statement) {
    if (option == SQL_CLOSE) statement.CloseResult();
    if (option == SQL_UNBIND) statement.bindings.clear();
    if (option == SQL_RESET_PARAMS) statement.parameters.clear();
    return SQLRETURN{SQL_SUCCESS};
  });
}

CATALOGSIM_ENTRY SQLCloseCursor(SQLHSTMT handle) {
  return OnStatement(handle, SQL_API_SQLCLOSECURSOR, [](Statement& statement) {
    if (!statement.result && !statement.replay)
      return statement.Fail("24000", "there is no open result");
    statement.CloseResult();
    return SQLRETURN{SQL_SUCCESS};
  });
}

// Stops nothing: what is slow here stays slow, as on a server that does not hear.
CATALOGSIM_ENTRY SQLCancel(SQLHSTMT handle) {
  return OnStatement(handle, SQL_API_SQLCANCEL, [](Statement&) { return SQLRETURN{SQL_SUCCESS}; });
}

CATALOGSIM_ENTRY SQLSetStmtAttrW(SQLHSTMT handle, SQLINTEGER attribute, SQLPOINTER value,
                                 SQLINTEGER) {
  return OnStatement(handle, SQL_API_SQLSETSTMTATTR, [&](Statement& statement) {
    const SQLRETURN result = SetAttribute(statement, attribute, value);
    if (!statement.replay) return result;
    statement.ClearDiagnostics();
    return statement.replay->Outcome(catalogsim::Question(SQL_API_SQLSETSTMTATTR)
                                         .Add(attribute)
                                         .Add(static_cast<std::int64_t>(Number(value)))
                                         .Text());
  });
}

CATALOGSIM_ENTRY SQLGetStmtAttrW(SQLHSTMT handle, SQLINTEGER attribute, SQLPOINTER value,
                                 SQLINTEGER, SQLINTEGER*) {
  return OnStatement(handle, SQL_API_SQLGETSTMTATTR, [&](Statement& statement) {
    return GetAttribute(statement, attribute, value);
  });
}

CATALOGSIM_ENTRY SQLExecDirectW(SQLHSTMT handle, SQLWCHAR* sql, SQLINTEGER length) {
  return OnStatement(handle, SQL_API_SQLEXECDIRECT, [&](Statement& statement) {
    return statement.Execute(catalogsim::TextArgument(sql, length));
  });
}

CATALOGSIM_ENTRY SQLPrepareW(SQLHSTMT handle, SQLWCHAR* sql, SQLINTEGER length) {
  return OnStatement(handle, SQL_API_SQLPREPARE, [&](Statement& statement) {
    statement.CloseResult();
    statement.prepared_sql = catalogsim::TextArgument(sql, length);
    return SQLRETURN{SQL_SUCCESS};
  });
}

CATALOGSIM_ENTRY SQLExecute(SQLHSTMT handle) {
  return OnStatement(handle, SQL_API_SQLEXECUTE, [](Statement& statement) {
    return statement.Execute(statement.prepared_sql);
  });
}

CATALOGSIM_ENTRY SQLNumParams(SQLHSTMT handle, SQLSMALLINT* count) {
  return OnStatement(handle, SQL_API_SQLNUMPARAMS, [&](Statement&) {
    *count = 0;
    return SQLRETURN{SQL_SUCCESS};
  });
}

CATALOGSIM_ENTRY SQLRowCount(SQLHSTMT handle, SQLLEN* count) {
  return OnStatement(handle, SQL_API_SQLROWCOUNT, [&](Statement& statement) {
    *count = statement.affected_rows;
    return SQLRETURN{SQL_SUCCESS};
  });
}

CATALOGSIM_ENTRY SQLMoreResults(SQLHSTMT handle) {
  return OnStatement(handle, SQL_API_SQLMORERESULTS, [](Statement& statement) {
    statement.CloseResult();
    return SQLRETURN{SQL_NO_DATA};
  });
}

CATALOGSIM_ENTRY SQLNumResultCols(SQLHSTMT handle, SQLSMALLINT* count) {
  return OnStatement(handle, SQL_API_SQLNUMRESULTCOLS, [&](Statement& statement) {
    if (statement.replay) return statement.replay->NumResultCols(count);
    *count = statement.result ? static_cast<SQLSMALLINT>(statement.result->columns.size())
                              : SQLSMALLINT{0};
    return SQLRETURN{SQL_SUCCESS};
  });
}

CATALOGSIM_ENTRY SQLDescribeColW(SQLHSTMT handle, SQLUSMALLINT column, SQLWCHAR* name,
                                 SQLSMALLINT capacity, SQLSMALLINT* length, SQLSMALLINT* type,
                                 SQLULEN* size, SQLSMALLINT* digits, SQLSMALLINT* nullable) {
  return OnStatement(handle, SQL_API_SQLDESCRIBECOL, [&](Statement& statement) {
    if (statement.replay) {
      return statement.replay->DescribeCol(column, name, capacity, length, type, size, digits,
                                           nullable);
    }
    const catalogsim::Column* const found = FindColumn(statement, column);
    if (found == nullptr) return SQLRETURN{SQL_ERROR};
    catalogsim::Answer<SQLSMALLINT>(
        type, catalogsim::TypeForVersion(found->sql_type, statement.connection().odbc_version()));
    catalogsim::Answer<SQLULEN>(size, found->size);
    catalogsim::Answer<SQLSMALLINT>(digits, found->digits);
    catalogsim::Answer<SQLSMALLINT>(nullable, found->nullable);
    if (catalogsim::AnswerText(found->name, name, capacity, length)) return SQLRETURN{SQL_SUCCESS};
    return statement.Warn("01004", "the name was cut");
  });
}

CATALOGSIM_ENTRY SQLColAttributeW(SQLHSTMT handle, SQLUSMALLINT column, SQLUSMALLINT field,
                                  SQLPOINTER text, SQLSMALLINT bytes, SQLSMALLINT* length,
                                  SQLLEN* number) {
  return OnStatement(handle, SQL_API_SQLCOLATTRIBUTE, [&](Statement& statement) {
    return ColumnAttribute(statement, column, field, text, bytes, length, number);
  });
}

CATALOGSIM_ENTRY SQLBindCol(SQLHSTMT handle, SQLUSMALLINT column, SQLSMALLINT c_type,
                            SQLPOINTER buffer, SQLLEN bytes, SQLLEN* indicator) {
  return OnStatement(handle, SQL_API_SQLBINDCOL, [&](Statement& statement) {
    if (column < 1) return statement.Fail("07009", "there are no bookmarks");
    const SQLRETURN result =
        statement.replay ? statement.replay->BindCol(column) : SQLRETURN{SQL_SUCCESS};
    if (!SQL_SUCCEEDED(result)) return result;
    if (statement.bindings.size() < column) statement.bindings.resize(column);
    statement.bindings[column - 1U] = {c_type, buffer, bytes, indicator};
    return result;
  });
}

CATALOGSIM_ENTRY SQLFetch(SQLHSTMT handle) {
  return OnStatement(handle, SQL_API_SQLFETCH, [](Statement& statement) {
    const catalogsim::StatementOptions& options = statement.options;
    return catalogsim::FetchRowset(statement, options.row_array_size, options.row_status,
                                   options.rows_fetched);
  });
}

CATALOGSIM_ENTRY SQLFetchScroll(SQLHSTMT handle, SQLSMALLINT direction, SQLLEN) {
  return OnStatement(handle, SQL_API_SQLFETCHSCROLL, [&](Statement& statement) {
    if (direction != SQL_FETCH_NEXT) return statement.Fail("HY106", "the cursor is forward-only");
    const catalogsim::StatementOptions& options = statement.options;
    return catalogsim::FetchRowset(statement, options.row_array_size, options.row_status,
                                   options.rows_fetched);
  });
}

CATALOGSIM_ENTRY SQLExtendedFetch(SQLHSTMT handle, SQLUSMALLINT direction, SQLLEN,
                                  SQLULEN* rows_fetched, SQLUSMALLINT* row_status) {
  return OnStatement(handle, SQL_API_SQLEXTENDEDFETCH, [&](Statement& statement) {
    if (direction != SQL_FETCH_NEXT) return statement.Fail("HY106", "the cursor is forward-only");
    return catalogsim::FetchRowset(statement, statement.options.rowset_size, row_status,
                                   rows_fetched);
  });
}

CATALOGSIM_ENTRY SQLGetData(SQLHSTMT handle, SQLUSMALLINT column, SQLSMALLINT c_type,
                            SQLPOINTER buffer, SQLLEN bytes, SQLLEN* indicator) {
  return OnStatement(handle, SQL_API_SQLGETDATA, [&](Statement& statement) {
    return catalogsim::GetData(statement, column, c_type, buffer, bytes, indicator);
  });
}
