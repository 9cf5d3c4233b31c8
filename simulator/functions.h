// The ODBC functions that this driver has, by number and name: what SQLGetFunctions answers, what
// the call log writes, and what the faults of a connection string are addressed to.
#pragma once

#include <sql.h>
#include <sqlext.h>

#include <string_view>

namespace catalogsim {

using FunctionId = SQLUSMALLINT;           // SQL_API_...
constexpr FunctionId kFunctionIds = 1024;  // all numbers are below

struct Function {
  FunctionId id;
  std::string_view name;
};

constexpr Function kFunctions[] = {
    {SQL_API_SQLALLOCHANDLE, "SQLAllocHandle"},
    {SQL_API_SQLBINDCOL, "SQLBindCol"},
    {SQL_API_SQLBINDPARAMETER, "SQLBindParameter"},
    {SQL_API_SQLCANCEL, "SQLCancel"},
    {SQL_API_SQLCLOSECURSOR, "SQLCloseCursor"},
    {SQL_API_SQLCOLATTRIBUTE, "SQLColAttribute"},
    {SQL_API_SQLCOLUMNS, "SQLColumns"},
    {SQL_API_SQLDESCRIBECOL, "SQLDescribeCol"},
    {SQL_API_SQLDISCONNECT, "SQLDisconnect"},
    {SQL_API_SQLDRIVERCONNECT, "SQLDriverConnect"},
    {SQL_API_SQLENDTRAN, "SQLEndTran"},
    {SQL_API_SQLEXECDIRECT, "SQLExecDirect"},
    {SQL_API_SQLEXECUTE, "SQLExecute"},
    {SQL_API_SQLEXTENDEDFETCH, "SQLExtendedFetch"},
    {SQL_API_SQLFETCH, "SQLFetch"},
    {SQL_API_SQLFETCHSCROLL, "SQLFetchScroll"},
    {SQL_API_SQLFOREIGNKEYS, "SQLForeignKeys"},
    {SQL_API_SQLFREEHANDLE, "SQLFreeHandle"},
    {SQL_API_SQLFREESTMT, "SQLFreeStmt"},
    {SQL_API_SQLGETCONNECTATTR, "SQLGetConnectAttr"},
    {SQL_API_SQLGETDATA, "SQLGetData"},
    {SQL_API_SQLGETDIAGFIELD, "SQLGetDiagField"},
    {SQL_API_SQLGETDIAGREC, "SQLGetDiagRec"},
    {SQL_API_SQLGETENVATTR, "SQLGetEnvAttr"},
    {SQL_API_SQLGETFUNCTIONS, "SQLGetFunctions"},
    {SQL_API_SQLGETINFO, "SQLGetInfo"},
    {SQL_API_SQLGETSTMTATTR, "SQLGetStmtAttr"},
    {SQL_API_SQLGETTYPEINFO, "SQLGetTypeInfo"},
    {SQL_API_SQLMORERESULTS, "SQLMoreResults"},
    {SQL_API_SQLNATIVESQL, "SQLNativeSql"},
    {SQL_API_SQLNUMPARAMS, "SQLNumParams"},
    {SQL_API_SQLNUMRESULTCOLS, "SQLNumResultCols"},
    {SQL_API_SQLPREPARE, "SQLPrepare"},
    {SQL_API_SQLPRIMARYKEYS, "SQLPrimaryKeys"},
    {SQL_API_SQLPROCEDURES, "SQLProcedures"},
    {SQL_API_SQLROWCOUNT, "SQLRowCount"},
    {SQL_API_SQLSETCONNECTATTR, "SQLSetConnectAttr"},
    {SQL_API_SQLSETENVATTR, "SQLSetEnvAttr"},
    {SQL_API_SQLSETSTMTATTR, "SQLSetStmtAttr"},
    {SQL_API_SQLSTATISTICS, "SQLStatistics"},
    {SQL_API_SQLTABLES, "SQLTables"},
};

// 0 when there is no such function. Upper and lower case do not matter.
[[nodiscard]] FunctionId FunctionByName(std::string_view name);
[[nodiscard]] std::string_view FunctionName(FunctionId id);

}  // namespace catalogsim
