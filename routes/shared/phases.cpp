#include "routes/shared/phases.h"

#include "importer/workbook/workbook.h"

namespace odbcimport {

void NoteOutOfMemory(ImportSession& session) noexcept {
  if (session.sink.workbook() == nullptr) return;
  try {
    LcNotRead& entry = session.sink.workbook()->details.not_read.emplace_back();
    entry.kind = LcText(u"all that follows");
    entry.reason = LcText(u"memory ran out");
  } catch (...) {
    // The result tells that something went wrong.
  }
}

}  // namespace odbcimport
