// The parts of a script, in the order in which they stand in it. Each writes whole statements and
// nothing where there is nothing to say.
#pragma once

#include <string>
#include <vector>

#include "export/sql_context.h"

namespace wbexport::sql {

// Before the tables.
void WriteSchemas(Context& context);
void WriteTypes(Context& context);
void WriteSequences(Context& context);

// Tables with their columns, and inside of them whatever the target cannot add later.
void WriteTables(Context& context);

// What stands around tables, for targets that add it to them.
void WriteKeys(Context& context);  // and checks
void WriteIndexes(Context& context);
void WriteForeignKeys(Context& context);

// What looks at tables.
void WriteRoutines(Context& context, RoutineTime time);  // those whose time it is
void WriteRoutine(Context& context, const LcRoutineDetails& routine);
void WriteViews(Context& context);  // with the routines that stand among them
void WriteTriggers(Context& context);
void WriteExtensions(Context& context);
void WriteCollations(Context& context);
void WriteForeignServers(Context& context);  // and their wrappers
void WriteParts(Context& context);           // makes tables parts of others
void WriteInheritance(Context& context);     // once they have their checks
void WriteSequenceOwners(Context& context);
void WriteComments(Context& context);

// Pieces that several parts need.
[[nodiscard]] std::string SequenceClauses(const Context& context,
                                          const LcSequenceDetails& sequence);
// A comment as a clause behind `before`, cut at so many UTF-16 units where the server asks for that
// (0: it does not); empty where there is none.
[[nodiscard]] std::string CommentClause(Context& context, const LcText& comment, const char* before,
                                        std::size_t most);
[[nodiscard]] std::string KeyClause(Context& context, const LcWorkbookTable& table,
                                    const LcKeyDetails& key);
// A key that has to stand with its column, as SQLite's that numbers rows; empty for any other.
[[nodiscard]] std::string ColumnKeyClause(Context& context, const LcWorkbookTable& table,
                                          const LcKeyDetails& key);
[[nodiscard]] std::string CheckClause(const Context& context, const LcCheckDetails& check);
[[nodiscard]] std::string ForeignKeyClause(Context& context, const LcWorkbookTable& table,
                                           const LcForeignKeyDetails* details,
                                           const std::vector<LcWorkbookColumn*>& columns,
                                           const std::string& target,
                                           const std::string& target_columns);
[[nodiscard]] std::string IndexParts(const Context& context, const LcIndexDetails& index);
// The keys, checks and foreign keys of a table as clauses inside its parentheses.
[[nodiscard]] std::vector<std::string> InnerConstraints(Context& context,
                                                        const LcWorkbookTable& table,
                                                        bool foreign_keys);

}  // namespace wbexport::sql
