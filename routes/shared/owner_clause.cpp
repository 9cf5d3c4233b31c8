// The owner clause of the catalog queries.
#include "routes/shared/owner_clause.h"

#include "base/ascii.h"

namespace odbcimport {
namespace {

void AppendSystemOwners(std::u16string_view owner, const OwnerRule& rule, std::u16string& sql) {
  const auto append = [&](std::u16string_view comparison, std::u16string_view system_owner) {
    sql.append(u" OR ").append(rule.column).append(comparison);
    sql.append(system_owner).append(u"'");
  };
  if (base::EqualIgnoringCase(owner, rule.first_system_owner)) {
    append(u" = '", rule.second_system_owner);
  } else if (base::EqualIgnoringCase(owner, rule.second_system_owner)) {
    append(u" != '", rule.first_system_owner);
  } else {
    append(u" = '", rule.first_system_owner);
    append(u" = '", rule.second_system_owner);
  }
}

}  // namespace

std::u16string OwnerClause(const LcImportChoices& choices, const OwnerRule& rule,
                           std::u16string_view joiner) {
  std::u16string sql;
  const std::u16string& owner = choices.owner_restriction;
  const bool named_system_owners = !rule.first_system_owner.empty();
  if (!owner.empty()) {
    sql.append(joiner).append(u"(").append(rule.column).append(u"='").append(owner).append(u"'");
    if (choices.include_system && named_system_owners) {
      AppendSystemOwners(owner, rule, sql);
    } else if (choices.include_system) {
      sql.append(rule.include_system);
    }
    return sql.append(u")");
  }
  if (choices.include_system) return sql;
  if (named_system_owners) {
    // The missing blank before the first "!=" only is part of the text.
    sql.append(joiner).append(rule.column).append(u" !='").append(rule.first_system_owner);
    sql.append(u"' AND ").append(rule.column).append(u" != '");
    return sql.append(rule.second_system_owner).append(u"'");
  }
  if (!rule.exclude_system.empty()) sql.append(joiner).append(rule.exclude_system);
  return sql;
}

}  // namespace odbcimport
