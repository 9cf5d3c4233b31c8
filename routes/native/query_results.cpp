// The results of a phase's queries.
#include "routes/native/query_results.h"

#include <memory>

namespace odbcimport::native {

void QueryResults::Clear() {
  // A fetch object refers to its record list: it goes first.
  for (LcODBCFetchListIter at(&fetches_); !at.IsDone(); at.Next()) delete at.CurrentItem();
  for (LcODBCRecordListListIter at(&rows_); !at.IsDone(); at.Next()) delete at.CurrentItem();
  fetches_.RemoveAll();
  rows_.RemoveAll();
}

void QueryResults::Run(const ImportSession& session, const std::vector<std::u16string>& texts) {
  for (const std::u16string& text : texts) {
    auto rows = std::make_unique<LcODBCRecordList>();
    auto fetch =
        std::make_unique<LcODBCFetch>(text.c_str(), *rows, session.connection.henv(),
                                      session.connection.hdbc(), session.server().dbms_type);
    rows_.AddTail(rows.get());
    static_cast<void>(rows.release());
    fetches_.AddTail(fetch.get());
    static_cast<void>(fetch.release());
  }
}

unsigned long QueryResults::RowCount() {
  unsigned long count = 0;
  for (LcODBCRecordListListIter at(&rows_); !at.IsDone(); at.Next()) {
    count += static_cast<unsigned long>(at.CurrentItem()->GetRowCount());
  }
  return count;
}

}  // namespace odbcimport::native
