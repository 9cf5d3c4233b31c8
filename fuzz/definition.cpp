// Texts of CREATE statements: any text gives names and expressions that are no longer than it is.
#include "routes/exact/definition.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace odbcimport::exact;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  std::size_t length = 0;
  const TableDefinition table = ReadTableDefinition(text);
  for (const DefinedColumn& column : table.columns) {
    length += column.name.size() + column.collation.size() + column.expression.size();
  }
  for (const DefinedKey& key : table.keys) length += key.name.size();
  for (const DefinedForeignKey& key : table.foreign_keys) {
    length += key.name.size() + key.target_table.size();
  }
  // A check's expression is read once, wherever it stands.
  for (const DefinedCheck& check : table.checks) length += check.expression.size();
  if (length > size) std::abort();

  const IndexDefinition index = ReadIndexDefinition(text);
  length = index.predicate.size();
  for (const IndexDefinition::Part& part : index.parts) length += part.expression.size();
  if (length > size) std::abort();
  if (ReadViewQuery(text).size() > size) std::abort();
  const TriggerDefinition trigger = ReadTriggerDefinition(text);
  if (trigger.events.size() > 2 * size + 1) std::abort();
  return 0;
}
