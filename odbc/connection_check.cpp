#include "odbc/connection_check.h"

#include "odbc/driver.h"

bool OdbcImportCheckConnection(void* henv, void* hdbc, std::string& why) try {
  why.clear();
  if (henv == nullptr) why = "there is no environment handle";
  if (hdbc == nullptr) why = "there is no connection handle";
  if (!why.empty()) return false;
  const SQLINTEGER version = odbc::GetRequestedVersion(henv);
  if (version == 0) {
    why = "the environment asks for no version of ODBC (SQL_ATTR_ODBC_VERSION), or is none";
  } else if (version != SQL_OV_ODBC2) {
    why = std::string("the environment asks for ODBC ") + (version == 380 ? "3.8" : "3") +
          ", under which columns of type DATE, TIME and TIMESTAMP arrive as CHAR:"
          " set SQL_ATTR_ODBC_VERSION to SQL_OV_ODBC2 before connecting";
  } else if (!odbc::IsOpen(hdbc)) {
    why = "the connection is not open";
  }
  return why.empty();
} catch (...) {
  return false;
}
