#include "routes/shared/phases.h"

#include <utility>

#include "importer/workbook/workbook.h"

namespace odbcimport {

void NoteEarlyEnd(ImportSession& session, const char16_t* reason) noexcept {
  if (session.sink.workbook() == nullptr) return;
  try {
    LcNotRead entry;
    entry.kind = LcText(u"all that follows");
    entry.reason = LcText(reason);
    session.sink.workbook()->details.not_read.push_back(std::move(entry));
  } catch (...) {
    // The result tells that something went wrong.
  }
}

}  // namespace odbcimport
