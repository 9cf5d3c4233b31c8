// What is known of the databases that remote synonyms point into, so that each is asked once.
#pragma once

#include <string>

#include "session/session.h"

namespace odbcimport::informix {

class LcRemoteDatabaseInfo : public LcObject {
 public:
  LcRemoteDatabaseInfo() = default;
  ~LcRemoteDatabaseInfo() override;
  const char* GetRuntimeClass() const override;

  std::u16string server_name;  // empty: the connection's own server
  std::u16string database_name;
  bool is_ius = false;
};

// Lives for the phase of the remote synonyms.
using LcRemoteDatabaseInfoList = LcObjectList<LcRemoteDatabaseInfo>;

// The first record of that server and database, in any case of letters. Null when there is none
// before the end of the list or its first empty entry.
[[nodiscard]] LcRemoteDatabaseInfo* FindRemoteDatabaseInfo(const LcRemoteDatabaseInfoList& list,
                                                           const std::u16string& server,
                                                           const std::u16string& database);

// Asks the database's catalog. False, too, when it cannot be asked; the user sees the error then.
[[nodiscard]] bool DetermineIfRemoteIsIUS(const ImportSession& session,
                                          const std::u16string& server,
                                          const std::u16string& database);

}  // namespace odbcimport::informix
