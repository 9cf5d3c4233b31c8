// Dialect files: any text is taken apart or complained of, and what is right makes statements that
// only read, with a `?` for each parameter, whatever is chosen.
#include "routes/exact/dialect.h"

#include <cstdlib>

#include "routes/exact/sql_text.h"

namespace {

using namespace odbcimport::exact;

MarkValues Everything() {
  MarkValues values;
  values.system = values.by_ids = values.by_types = values.has_schema = values.has_table = true;
  values.owners = values.table_owners = values.table_names = {"a", "it's; \"`]\\", ""};
  values.table_ids = values.type_ids = values.type_modifiers = {"1", "2"};
  values.schema = values.table_schema = values.table_name = "a";
  values.version = Version("999999");
  return values;
}

// Outside quotes and comments.
std::size_t CountMarkers(std::string_view sql) {
  std::size_t count = 0;
  for (std::size_t at = 0; at < sql.size();) {
    const SqlSpan span = FindSpan(sql, at);
    if (span.part == SqlPart::kText) {
      for (const char c : sql.substr(at, span.end - at)) count += c == '?' ? 1 : 0;
    }
    at = span.end;
  }
  return count;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Dialect dialect;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  if (!ParseDialect(text, dialect).empty()) return 0;
  for (const Section& section : dialect.sections) {
    for (const MarkValues& values : {MarkValues(), Everything()}) {
      const FilledStatement filled = section.statement.Fill(values, dialect.quotes, 2);
      // What marks put together is looked at once more before it is sent.
      if (!WhyNotReading(filled.text, dialect.first_words).empty()) continue;
      if (CountMarkers(filled.text) != filled.parameters.size()) std::abort();
      if (section.statement.Source().size() > size) std::abort();
    }
  }
  return 0;
}
