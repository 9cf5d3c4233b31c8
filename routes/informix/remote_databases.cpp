// The databases that remote synonyms point into.
#include "routes/informix/remote_databases.h"

#include "catalogues/text.h"
#include "odbc/record_list.h"
#include "routes/informix/catalog_queries.h"

namespace odbcimport {

LcRemoteDatabaseInfo::~LcRemoteDatabaseInfo() = default;
const char* LcRemoteDatabaseInfo::GetRuntimeClass() const { return "LcRemoteDatabaseInfo"; }

LcRemoteDatabaseInfo* FindRemoteDatabaseInfo(const LcRemoteDatabaseInfoList& list,
                                             const std::u16string& server,
                                             const std::u16string& database) {
  for (LcRemoteDatabaseInfo* info : list) {
    if (info == nullptr) return nullptr;
    if (EqualIgnoringCase(info->server_name, server) &&
        EqualIgnoringCase(info->database_name, database)) {
      return info;
    }
  }
  return nullptr;
}

bool DetermineIfRemoteIsIUS(const ImportSession& session, const std::u16string& server,
                            const std::u16string& database) {
  std::u16string sql;
  BuildRemoteIsIUSQuery(sql, server, database);
  LcODBCRecordList rows;
  session.RunQuery(sql, rows);
  return rows.GetRowCount() > 0;
}

}  // namespace odbcimport
