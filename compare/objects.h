// What there is to know of every kind of object, as texts: the one table that comparing, naming
// and showing read.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "compare/changes.h"
#include "compare/names.h"

namespace wbcompare {

// Absent: the object has no such property, or it was not read.
using Fact = std::optional<std::string>;

// The properties of a kind of object that are compared, in the order in which they are told.
[[nodiscard]] std::span<const Property> PropertiesOf(Object object);
[[nodiscard]] Fact FactOf(const ObjectRef& ref, Property property, const Names& names);
// Null for an object that has none.
[[nodiscard]] const LcOptions* OptionsOf(const ObjectRef& ref);

// The name: "customer_id", of a routine with the types of its parameters. Empty for what has none.
[[nodiscard]] std::string NameOf(const ObjectRef& ref, const Names& names);
// The owner of what has one of its own; empty for what is part of a table.
[[nodiscard]] std::string OwnerOf(const ObjectRef& ref, const Names& names);
// The object in a line: "varchar(40) not null", "(a, b) -> t (c)". Empty where the name says all.
[[nodiscard]] std::string SummaryOf(const ObjectRef& ref);

// The columns of a foreign key with those that they refer to.
struct ForeignKeyParts {
  std::vector<const LcWorkbookColumn*> columns;
  std::u16string target_owner;
  std::u16string target_table;
  std::vector<std::string> target_columns;
  const LcForeignKeyDetails* details = nullptr;
};
[[nodiscard]] ForeignKeyParts PartsOf(const ForeignKeyRef& ref, const Names& names);

// The type as the server spells it.
[[nodiscard]] std::string TypeTextOf(const LcWorkbookColumn& column);

// "fillfactor 70, storage external"
[[nodiscard]] std::string OptionsText(const LcOptions& options);
// "a, b"
[[nodiscard]] std::string Joined(const std::vector<std::string>& texts);

}  // namespace wbcompare
