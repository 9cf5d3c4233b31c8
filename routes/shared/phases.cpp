#include "routes/shared/phases.h"

#include "importer/workbook/workbook.h"

namespace odbcimport {

void NoteEarlyEnd(ImportSession& session, const char16_t* reason) noexcept {
  if (session.sink.workbook() == nullptr) return;
  try {
    LcNotRead& entry = session.sink.workbook()->details.not_read.emplace_back();
    entry.kind = LcText(u"all that follows");
    entry.reason = LcText(reason);
  } catch (...) {
    // The result tells that something went wrong.
  }
}

}  // namespace odbcimport
