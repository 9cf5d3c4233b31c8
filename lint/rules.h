// The rules themselves. Each looks at the whole schema and says what it found; the order of the
// findings is made afterwards.
#pragma once

#include <string>

#include "lint/schema.h"

namespace wblint {

// Where a rule puts what it finds.
class Finds {
 public:
  Finds(const RuleInfo& rule, std::vector<Finding>& findings) : rule_(rule), findings_(findings) {}
  void Add(const LcWorkbookTable& table, std::string part, std::string text) {
    findings_.push_back({&rule_, &table, table.GetOwner(false), std::move(part), std::move(text)});
  }
  void Add(const std::u16string& owner, std::string text) {
    findings_.push_back({&rule_, nullptr, owner, "", std::move(text)});
  }

 private:
  const RuleInfo& rule_;
  std::vector<Finding>& findings_;
};

using Check = void (*)(const Schema& schema, Finds& finds);

// Keys and indexes of a table.
void CheckNoKey(const Schema& schema, Finds& finds);
void CheckNoPrimaryKey(const Schema& schema, Finds& finds);
void CheckNullableKey(const Schema& schema, Finds& finds);
void CheckNullableUnique(const Schema& schema, Finds& finds);
void CheckDuplicateIndex(const Schema& schema, Finds& finds);
void CheckRedundantIndex(const Schema& schema, Finds& finds);
void CheckNotEnforced(const Schema& schema, Finds& finds);
void CheckNoColumns(const Schema& schema, Finds& finds);
void CheckNoComment(const Schema& schema, Finds& finds);

// References between tables.
void CheckReferenceIndex(const Schema& schema, Finds& finds);
void CheckReferenceTypes(const Schema& schema, Finds& finds);
void CheckReferenceTarget(const Schema& schema, Finds& finds);
void CheckDuplicateReference(const Schema& schema, Finds& finds);
void CheckHalfNull(const Schema& schema, Finds& finds);
void CheckRequiredCycle(const Schema& schema, Finds& finds);
void CheckAlone(const Schema& schema, Finds& finds);
void CheckSameName(const Schema& schema, Finds& finds);

// Names.
void CheckQuotedNames(const Schema& schema, Finds& finds);
void CheckReservedWords(const Schema& schema, Finds& finds);
void CheckLongNames(const Schema& schema, Finds& finds);
void CheckNamesByCase(const Schema& schema, Finds& finds);
void CheckStyles(const Schema& schema, Finds& finds);

// Whether two columns have one type, as far as the workbook tells.
[[nodiscard]] bool SameType(const Schema& schema, const LcWorkbookColumn& a,
                            const LcWorkbookColumn& b);
// The type as the server spells it, else as it is put together; empty where it is not known.
[[nodiscard]] std::string TypeOf(const LcWorkbookColumn& column);

}  // namespace wblint
