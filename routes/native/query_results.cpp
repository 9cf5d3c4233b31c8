// The results of a phase's queries.
#include "routes/native/query_results.h"

namespace odbcimport::native {

QueryResults::Result::Result(const ImportSession& session, const std::u16string& text)
    : fetch(text.c_str(), rows, session.connection.henv(), session.connection.hdbc(),
            session.server().dbms_type) {}

void QueryResults::Run(const ImportSession& session, const std::vector<std::u16string>& texts) {
  for (const std::u16string& text : texts) results_.emplace_back(session, text);
}

unsigned long QueryResults::RowCount() const {
  unsigned long count = 0;
  for (const Result& result : results_) {
    count += static_cast<unsigned long>(result.rows.GetRowCount());
  }
  return count;
}

}  // namespace odbcimport::native
