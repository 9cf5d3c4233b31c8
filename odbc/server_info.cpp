// What a driver says of the server.
#include "odbc/server_info.h"

#include "odbc/driver.h"

namespace odbc {

std::u16string GetDBMSName(void* hdbc) { return GetInfoText(hdbc, SQL_DBMS_NAME); }
std::u16string GetDBMSVersion(void* hdbc) { return GetInfoText(hdbc, SQL_DBMS_VER); }
std::u16string GetDataSourceName(void* hdbc) { return GetInfoText(hdbc, SQL_DATA_SOURCE_NAME); }

bool SupportsOwners(void* hdbc) {
  SQLUINTEGER usage = 0;
  const SQLRETURN result = GetInfoMask(hdbc, SQL_OWNER_USAGE, &usage);
  return Succeeded(result) && (usage & SQL_OU_DML_STATEMENTS) != 0;
}

bool IsAutocommitOn(void* hdbc) {
  return GetConnectOption(hdbc, SQL_AUTOCOMMIT, SQL_AUTOCOMMIT_ON) == SQL_AUTOCOMMIT_ON;
}

}  // namespace odbc
