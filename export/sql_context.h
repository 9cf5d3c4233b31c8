// What all parts of a script share: where it goes, for which server, and how things are named
// there.
#pragma once

#include <fmt/format.h>

#include <map>
#include <optional>
#include <ostream>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "export/model.h"
#include "export/sql_names.h"
#include "export/sql_target.h"

namespace wbexport::sql {

// When a routine can be made: before the tables, once tables are there that its parameters or its
// result are rows of, or among the views, in the order in which they mention one another.
enum class RoutineTime { kBeforeTables, kBeforeViews, kAmongViews };

class Context {
 public:
  Context(const Document& document, const Target& target, std::ostream& out);

  const LcWorkbook& workbook;
  const LcWorkbookFileInfo& info;
  const Target& target;
  std::ostream& out;
  // The script is for another server than the workbook was read from.
  const bool translated;

  // The name of a thing in its schema, as the target needs it: the schema stands before it where
  // the target has schemas, or where it is not the one that the script is loaded into.
  [[nodiscard]] std::string Name(std::u16string_view schema, std::u16string_view name) const;
  [[nodiscard]] std::string Name(const LcWorkbookTable& table) const;
  // A schema with the dot behind it; empty where names go without.
  [[nodiscard]] std::string Schema(std::u16string_view schema) const;
  [[nodiscard]] std::string Quote(const LcWorkbookColumn& column) const {
    return target.Quote(names.In(column));
  }
  [[nodiscard]] std::string Quote(const std::vector<LcWorkbookColumn*>& columns) const;  // "a", "b"
  // Says which names of a table are others here.
  void SayRenamed(const LcWorkbookTable& table);
  [[nodiscard]] bool IsDefaultSchema(const std::u16string& schema) const {
    return schema == default_schema_;
  }
  [[nodiscard]] std::string Literal(const LcText& text) const {
    return target.Literal(text.View());
  }
  // An expression or a query in the server's own words.
  [[nodiscard]] std::string Expression(const LcText& text) const;
  // The names that mean the default schema when nothing stands before them, for targets that look
  // for names along a path.
  void WriteSearchPath();

  // The sequence that is a column's own; null where there is none.
  [[nodiscard]] const LcSequenceDetails* SequenceOf(const LcWorkbookColumn& column) const;
  // Whether a key, an index or a foreign key is on the column.
  [[nodiscard]] bool IsInKey(const LcWorkbookColumn& column);
  // The name of a key, an index or a foreign key. In a translation it is another one where the
  // target has had it already, since servers differ in what names have to be unique in; empty for a
  // primary key that has no name of its own.
  [[nodiscard]] std::string UniqueName(const LcWorkbookTable& table, std::u16string_view name);

  // The name under which a key or an index was written; nothing where it was not.
  [[nodiscard]] std::optional<std::u16string> GivenName(const LcWorkbookTable& table,
                                                        std::u16string_view name) const;

  // Writes a statement whose text may hold semicolons.
  void WriteBody(const std::string& statement);

  // Writes a comment of one line for what the script leaves out, and counts it.
  void LeaveOut(const std::string& what, const char* kind);
  // "3 checks, 1 views": what was left out, for a note; empty for nothing.
  [[nodiscard]] std::string LeftOut() const;

  [[nodiscard]] RoutineTime TimeOf(const LcRoutineDetails& routine) const;
  // Whether the script makes this table: it has columns, and is no view, no synonym, no table of
  // the server's own; one of another server only on the kind of server it was read from.
  [[nodiscard]] bool Makes(const LcWorkbookTable& table) const;
  [[nodiscard]] bool HasTooManyColumns(const LcWorkbookTable& table) const;

  std::unordered_map<std::u16string, bool> odd_types;  // whether they need quotes

  // Columns of the table in hand whose lengths make its rows too long for the server.
  std::set<const LcWorkbookColumn*> too_long;

  // What a statement in hand has to leave out, said behind it.
  std::vector<std::string> pending;

 private:
  // What a table is called in the script, if the server takes it.
  [[nodiscard]] std::u16string Wanted(std::u16string_view schema, std::u16string_view name) const;

  std::u16string default_schema_;

 public:
  const Names names;

 private:
  std::map<std::string, int> left_out_;
  std::set<std::u16string> tables_;  // their names, and those of views
  std::set<std::u16string> views_;
  std::unordered_map<std::u16string, const LcSequenceDetails*> sequences_;  // by their columns
  std::set<std::u16string> names_;  // of what is unique in a schema, or in all of it
  std::map<std::pair<const LcWorkbookTable*, std::u16string>, std::u16string> given_;
  std::set<const LcWorkbookColumn*> in_keys_;
  bool keys_known_ = false;
};

// What has to be there before a routine can be made, as a text that mentions it.
[[nodiscard]] std::u16string MentionsOf(const LcRoutineDetails& routine);

// "owner.name" for people, or the name alone.
[[nodiscard]] std::string ShowName(std::u16string_view schema, std::u16string_view name);

// A table that SQLite makes beside a virtual one.
[[nodiscard]] bool IsShadow(const LcWorkbookTable& table);
// A table that a module of SQLite's keeps.
[[nodiscard]] bool IsVirtual(const LcWorkbookTable& table);
// A table whose rows another server has, of which the workbook says how to reach it.
[[nodiscard]] bool IsForeign(const LcWorkbookTable& table);
// Tables with rows of their own or of another server: no view, no synonym, none of the server's
// own.
[[nodiscard]] bool IsPlainTable(const LcWorkbookTable& table);
// Views, materialized ones too.
[[nodiscard]] bool IsView(const LcWorkbookTable& table);
// Whether the table is a part of another one that the script makes.
[[nodiscard]] const LcWorkbookTable* ParentOf(const LcWorkbook& workbook,
                                              const LcWorkbookTable& table);
// The tables that the script makes, parts before what they are parts of: a key or index of the
// whole then takes those of the parts, with their names.
[[nodiscard]] std::vector<const LcWorkbookTable*> PartsFirst(const LcWorkbook& workbook);
// A check that its server keeps with a column.
[[nodiscard]] bool IsColumnCheck(const LcCheckDetails& check);

}  // namespace wbexport::sql
