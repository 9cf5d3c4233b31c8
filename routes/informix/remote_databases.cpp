// The databases that remote synonyms point into.
#include "routes/informix/remote_databases.h"

#include "base/ascii.h"
#include "base/text.h"
#include "odbc/record_list.h"
#include "routes/shared/catalog_queries.h"

namespace odbcimport::informix {

LcRemoteDatabaseInfo::~LcRemoteDatabaseInfo() = default;
const char* LcRemoteDatabaseInfo::GetRuntimeClass() const { return "LcRemoteDatabaseInfo"; }

LcRemoteDatabaseInfo* FindRemoteDatabaseInfo(const LcRemoteDatabaseInfoList& list,
                                             const std::u16string& server,
                                             const std::u16string& database) {
  for (LcRemoteDatabaseInfo* info : list) {
    if (info == nullptr) return nullptr;
    if (base::EqualIgnoringCase(info->server_name, server) &&
        base::EqualIgnoringCase(info->database_name, database)) {
      return info;
    }
  }
  return nullptr;
}

bool DetermineIfRemoteIsIUS(const ImportSession& session, const std::u16string& server,
                            const std::u16string& database) {
  const QueryResult query = session.RunQuery(BuildRemoteIsIUSQuery(server, database));
  const LcODBCRecordList& rows = query.RowsEvenIfFailed();
  return rows.GetRowCount() > 0;
}

}  // namespace odbcimport::informix
