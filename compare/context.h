// What the parts of a comparison share: the two sides, how their names are spelled, what they can
// know, and the list that fills.
#pragma once

#include <string>
#include <vector>

#include "compare/changes.h"
#include "compare/knowledge.h"
#include "compare/names.h"
#include "compare/objects.h"
#include "compare/server_names.h"

namespace wbcompare {

class Context {
 public:
  Context(const Side& old_side, const Side& new_side, const Options& wanted, Comparison& filled);

  const Side& before;
  const Side& after;
  const Options& options;
  Comparison& result;
  Names old_names;
  Names new_names;
  const Knowledge old_knows;
  const Knowledge new_knows;
  const bool both_exact;
  const bool mixed;       // one side was read exactly, the other was not
  const bool readings;    // what one side cannot know counts
  const Product product;  // of both sides; kOther where they differ

  // Whether both sides can know this of an object, or are to be asked for it all the same.
  [[nodiscard]] bool Compares(Object object, Property property = Property::kNone) const;

  // All that is compared but the name and the comment, for finding what is alike.
  [[nodiscard]] std::string DefinitionOf(Object object, const ObjectRef& ref,
                                         const Names& names) const;

  // Settles the severity and appends the change, unless it is to be ignored.
  void Add(Change change);
  // What one side has and the other has not: a change, or unknown.
  void AddOneSided(Object object, const ObjectRef& ref, bool is_old,
                   const LcWorkbookTable* old_table, const LcWorkbookTable* new_table);
  // The properties and options of what both sides have.
  void ComparePair(Object object, const ObjectRef& old_ref, const ObjectRef& new_ref,
                   const LcWorkbookTable* old_table, const LcWorkbookTable* new_table);

  [[nodiscard]] bool LeavesOut(std::u16string_view owner, std::u16string_view name) const {
    return options.leaves_out && options.leaves_out(owner, name);
  }
  // Whether either name of a part of a table is to be left out.
  [[nodiscard]] bool LeavesOutPart(const Change& change) const;
  void AddUnknown(Object object, bool old_side, const std::string& reason, const std::string& name);

 private:
  // Whether both sides can know this of an object.
  [[nodiscard]] bool IsShared(Object object, Property property) const;
  [[nodiscard]] bool Ignores(const Change& change) const;
  [[nodiscard]] bool AreEqual(const Change& change, const Fact& a, const Fact& b) const;
  const std::string* WhyMissing(const Change& change, bool old_side) const;
  void CompareOptions(const Change& pair);
  void AddChanged(const Change& change, bool old_missing, bool new_missing);
};

// "owner.table.name", "owner.name"; for people.
[[nodiscard]] std::string FullName(Object object, const ObjectRef& ref,
                                   const LcWorkbookTable* table);

[[nodiscard]] Severity SeverityOf(const Change& change);

}  // namespace wbcompare
