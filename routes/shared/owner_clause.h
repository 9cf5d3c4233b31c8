// The clause that keeps a catalog query to the chosen owner, or the server's own owners out of it.
// Every server words it alike, so the wording is one table of facts and one function. Informix
// alone tells its own tables apart by their numbers and has no rule here.
#pragma once

#include <string>
#include <string_view>

#include "importer/workbook/import.h"

namespace odbcimport {

// What the clause says for one server's catalog table.
struct OwnerRule {
  std::u16string_view column;  // with its correlation name
  // The server's system owners; empty for a server that marks system objects otherwise.
  std::u16string_view first_system_owner;
  std::u16string_view second_system_owner;
  // For servers without named system owners: what lets system objects in beside an owner's (with
  // its OR), and the condition that keeps them out (empty: they are never kept out).
  std::u16string_view include_system;
  std::u16string_view exclude_system;
};

inline constexpr OwnerRule kOwnerOracle{u"T.OWNER", u"SYS", u"SYSTEM", u"", u""};
inline constexpr OwnerRule kOwnerDB2Tables{u"T.TABSCHEMA", u"SYSIBM", u"SYSCAT", u"", u""};
inline constexpr OwnerRule kOwnerDB2Procedures{u"T.PROCSCHEMA", u"SYSIBM", u"SYSCAT", u"", u""};
// SQL Server and Sybase, whose system user has the number 0.
inline constexpr OwnerRule kOwnerSQLServer{u"U.name", u"", u"", u" OR T.uid = 0", u"T.uid <> 0"};
// Red Brick, whose system tables have no creator.
inline constexpr OwnerRule kOwnerRedBrick{u"T.CREATOR", u"", u"", u" OR T.CREATOR IS NULL",
                                          u"T.CREATOR IS NOT NULL"};
// Red Brick's keys: those of system tables come along whenever no owner is chosen.
inline constexpr OwnerRule kOwnerRedBrickKeys{u"T.CREATOR", u"", u"",
                                              u" OR T.CREATOR IS NULL OR T.TYPE = 'SYSTEM'", u""};

// The clause for the chosen owner and the include-system choice: with an owner, `joiner`, "(", the
// owner condition, what the include-system choice adds, ")"; without an owner and without system
// objects, `joiner` and the condition that keeps them out; else an empty text. `joiner` is " AND "
// or " WHERE " with the blanks that the text in hand asks for. The owner goes in as it stands.
//
// With the second system owner chosen the added condition reads "is not the first system owner",
// which lets in every other owner as well. Required (functions_queries_test): hosts count on it to
// list a whole server for its administrator, and reading "=" there would take those lists away.
[[nodiscard]] std::u16string OwnerClause(const LcImportChoices& choices, const OwnerRule& rule,
                                         std::u16string_view joiner);

}  // namespace odbcimport
