// The phases that list names for a host's selection dialogs. Each sends its own notifications and
// appends to the session's target list (nothing when the host gave none). False when the host
// stopped the import: the phase then ends without its last notification.
#pragma once

#include "session/session.h"

namespace odbcimport::informix {

[[nodiscard]] bool ReadOwnerNames(ImportSession& session);
[[nodiscard]] bool ReadTableAndViewNames(ImportSession& session);
[[nodiscard]] bool ReadSynonymNames(ImportSession& session);
// The columns of the chosen single table.
[[nodiscard]] bool ReadColumnNames(ImportSession& session);

}  // namespace odbcimport::informix
