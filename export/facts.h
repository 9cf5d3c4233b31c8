// What the exact reading knows of columns, tables and what stands beside them, as short texts for
// people: every format for people says the same in its own layout. UTF-8, names as Display() shows
// them, on one line unless said otherwise.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "base/made_names.h"
#include "export/model.h"

namespace wbexport {

// One thing that belongs to a table, or to the database.
struct Fact {
  std::string kind;        // "unique key", "index", "check", "trigger"; "enum", "function"
  std::string name;        // empty where there is none
  std::string text;        // what it is made of: "(name, since), deferrable"
  std::string body;        // the source of a trigger or routine, over several lines
  std::string comment;     // over several lines
  bool made_name = false;  // by the server, so that it says nothing
};

class Facts {
 public:
  explicit Facts(const Document& document);

  // "default now()", "identity by default", "stored upper(name)", "collation de_DE": what stands
  // beside a column's type, nullability and key.
  [[nodiscard]] static std::vector<std::string> OfColumn(const LcWorkbookColumn& column);
  // Keys, indexes, checks, triggers and the server's own options, in this order. A primary key is
  // among them where it says more than the marks of its columns.
  [[nodiscard]] std::vector<Fact> OfTable(const LcWorkbookTable& table) const;
  // ", on delete cascade, deferrable": how a foreign key acts; empty for the ordinary.
  [[nodiscard]] static std::string OfReference(const LcForeignKeyDetails* details);
  // The name of a foreign key, empty where the server made it.
  [[nodiscard]] std::string NameOfReference(const Relationship& relationship) const;
  // The foreign keys to tables that the workbook does not hold: "(a) -> other.table (b)".
  [[nodiscard]] std::vector<Fact> OutsideKeys(const LcWorkbookTable& table) const;

  [[nodiscard]] static Fact OfType(const LcTypeDetails& type);
  [[nodiscard]] static Fact OfSequence(const LcSequenceDetails& sequence);
  [[nodiscard]] static Fact OfRoutine(const LcRoutineDetails& routine);
  // "triggers: permission denied", "view sales.hidden: ... (by design)"
  [[nodiscard]] static std::string OfNotRead(const LcNotRead& missing);

  // Partitions stand under their table where the workbook has it, and nowhere else.
  [[nodiscard]] bool IsFolded(const LcWorkbookTable& table) const {
    return folded_.count(&table) != 0;
  }
  // The table that a folded one is part of; null for any other.
  [[nodiscard]] const LcWorkbookTable* WholeOf(const LcWorkbookTable& table) const {
    const auto found = folded_.find(&table);
    return found == folded_.end() ? nullptr : found->second;
  }
  // The partitions of a table with those of its partitions behind each.
  [[nodiscard]] std::vector<const LcWorkbookTable*> PartsOf(const LcWorkbookTable& table) const;
  // "orders_2024: FOR VALUES FROM ... TO ..., of orders_recent"
  [[nodiscard]] std::string OfPart(const LcWorkbookTable& part, const LcWorkbookTable& of) const;
  // Whether a relationship only repeats, for a partition, what its table has.
  [[nodiscard]] bool IsRepeated(const Relationship& relationship) const {
    return IsFolded(*relationship.from);
  }

 private:
  [[nodiscard]] bool IsMade(base::NamedKind kind, const LcText& name, const LcWorkbookTable& table,
                            const std::vector<const LcWorkbookColumn*>& columns) const;
  [[nodiscard]] Fact OfKey(const LcKeyDetails& key, const LcWorkbookTable& table) const;
  [[nodiscard]] Fact OfIndex(const LcIndexDetails& index, const LcWorkbookTable& table) const;

  const base::Product product_;
  std::unordered_map<const LcWorkbookTable*, std::vector<const LcWorkbookTable*>> parts_;
  std::unordered_map<const LcWorkbookTable*, const LcWorkbookTable*> folded_;  // with its table
};

// The comment of a table or column, over several lines; empty where there is none.
[[nodiscard]] std::string CommentOf(const LcWorkbookTable& table);
[[nodiscard]] std::string CommentOf(const LcWorkbookColumn& column);
// The text of a view, over several lines; empty where it is none or was not read.
[[nodiscard]] std::string ViewTextOf(const LcWorkbookTable& table);
// The same text on one line.
[[nodiscard]] std::string Flat(const std::string& text);
// Appends a piece, behind the separator where there is something; an empty piece is none.
void Join(std::string& list, const std::string& piece, const char* separator = ", ");
// The lines of a text, without their ends and without empty ones at its end.
[[nodiscard]] std::vector<std::string> SplitLines(const std::string& text);

}  // namespace wbexport
