// The servers that a script can be written for, as data: how names and texts are quoted, what a
// table can hold, and how the kinds of types are called.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "importer/workbook/table.h"

namespace wbexport::sql {

// Which sizes stand behind a type's name.
enum class Sizes { kNone, kLength, kPrecision };

// How a server calls the types of one physical code.
struct TypeName {
  int code;  // physical, as the workbook has it
  std::string_view name;
  Sizes sizes;
};

// Where a comment on a table or column stands.
enum class Comments { kStatements, kClauses, kNowhere };

// Which names are the same to a server: those whose ASCII letters differ in case alone, or with
// them those whose letters differ in case and marks.
enum class Sameness { kExact, kAscii, kLetters };

// An option of the workbook and the clause that it is in a script. In the clause `{}` stands for
// the value as it is, `{literal}` for it as a text, `{name}` for it as a name, `{names}` for names
// parted by commas, `{list}` for a list of settings in PostgreSQL's form ("{a=1,b=2}") and
// `{options}` for such a list as `"a" '1'`. The clause of an option that is there alone counts,
// whatever its value.
struct OptionClause {
  std::string_view option;
  std::string_view clause;
};

class Target {
 public:
  std::string_view name{};                // of the dialect that reads such a server
  std::string_view shell{};               // what loads the script and stops at the first error
  std::string_view prelude{};             // statements that the rest of the script counts on
  std::string_view translated_prelude{};  // and where it is another server's schema
  std::string_view quotes{};              // the opening and the closing one
  std::string_view any_type{};            // for a column whose type has no counterpart
  std::string_view any_number{};          // for one without a size, or with one that is too large
  std::string_view auto_increment{};      // behind a column that the server numbers
  std::u16string_view usual_action{};     // of a foreign key that says none
  Comments comments = Comments::kNowhere;
  bool backslash_escapes = false;  // in texts
  bool has_schemas = false;        // that a script makes
  bool has_databases = false;      // whose name may stand before a table's
  bool has_types = false;  // CREATE TYPE, CREATE DOMAIN, identity columns with their sequence
  bool has_sequences = false;
  bool types_sequences = false;      // AS type, OWNED BY
  bool has_index_methods = false;    // USING method
  bool has_deferrable = false;       // foreign keys
  bool has_deferrable_keys = false;  // primary and unique ones
  bool has_match = false;
  bool adds_keys = false;  // ALTER TABLE ... ADD CONSTRAINT; else keys stand inside their table
  bool adds_foreign_keys = false;
  bool indexes_inside = false;           // of the table
  bool auto_increment_with_key = false;  // a numbered column says PRIMARY KEY itself
  bool allows_no_columns = false;
  bool needs_types = false;
  bool needs_lengths = false;  // of texts that vary
  bool says_null = false;      // where a column may be NULL
  bool default_in_parentheses = false;
  bool quotes_collations = false;
  bool bare_expressions = false;  // in indexes
  bool quotes_odd_types = false;
  bool names_view_columns = false;
  bool options_by_commas = false;    // of a table
  bool delimiters = false;           // the shell needs DELIMITER for bodies with semicolons
  std::size_t longest_comment = 0;   // UTF-16 units, of a column or index, twice that of a table
  std::size_t longest_name = 0;      // characters, or bytes; 0: any
  bool names_in_bytes = false;       // UTF-8
  bool names_of_two_bytes = false;   // no characters beyond U+FFFF
  bool names_end_in_blanks = false;  // may do so
  Sameness same_tables = Sameness::kExact;
  Sameness same_columns = Sameness::kExact;
  std::u16string_view reserved_prefix{};                  // of the server's own tables, lower case
  std::span<const std::u16string_view> system_columns{};  // names that no column may have
  int most_columns = 0;                                   // of a table; 0: any
  std::span<const TypeName> types{};
  std::span<const OptionClause> table_prefixes{};      // between CREATE and TABLE
  std::span<const OptionClause> table_options{};       // behind the columns
  std::span<const OptionClause> type_options{};        // of a column, right behind its type
  std::span<const OptionClause> column_options{};      // behind its default
  std::span<const OptionClause> constraint_options{};  // behind keys and NOT NULL
  std::span<const OptionClause> key_prefixes{};        // between UNIQUE and its columns
  std::span<const OptionClause> key_options{};         // behind them
  std::span<const OptionClause> check_options{};
  std::span<const OptionClause> foreign_key_options{};       // behind ON DELETE
  std::span<const OptionClause> late_foreign_key_options{};  // behind DEFERRABLE
  std::span<const OptionClause> index_options{};             // behind an index's columns
  std::span<const OptionClause> index_part_options{};        // behind each of them, before DESC
  std::span<const OptionClause> index_order_options{};       // and behind it
  std::span<const OptionClause> sequence_options{};
  std::span<const OptionClause> range_options{};
  std::span<const OptionClause> routine_options{};
  std::span<const OptionClause> server_options{};         // of a foreign server
  std::span<const OptionClause> foreign_table_options{};  // behind the columns
  std::span<const OptionClause> view_prefixes{};          // between CREATE and VIEW
  std::span<const OptionClause> view_options{};           // before AS
  std::span<const OptionClause> view_suffixes{};          // behind the text

  [[nodiscard]] std::string Quote(std::u16string_view name) const;
  [[nodiscard]] std::string Literal(std::u16string_view text) const;
  // An expression where a column's name is usual: in parentheses where it has none.
  [[nodiscard]] std::string Expression(std::u16string_view text) const;
  // The type that stands for a column of another server's; empty where there is no counterpart.
  [[nodiscard]] std::string TypeFor(const LcWorkbookColumn& column) const;
  // The clauses of the options that are there, each with a blank before it, in the table's order.
  [[nodiscard]] std::string Clauses(const LcOptions& options,
                                    std::span<const OptionClause> table) const;
  // A list of settings in PostgreSQL's form, with that sign between names and values.
  [[nodiscard]] std::string Settings(std::string_view list, std::string_view sign) const;
  // A name that stands with its schema, both in quotes, is itself; any other is quoted.
  [[nodiscard]] std::string QuoteLoose(std::u16string_view text) const;

 private:
  [[nodiscard]] std::string SizedNumber(std::string_view type_name,
                                        const LcWorkbookDatatype& type) const;
  [[nodiscard]] std::string QuoteEach(std::u16string_view names) const;
};

// `{a,"b c"}` as its elements: PostgreSQL's form of a list of texts.
[[nodiscard]] std::vector<std::string> Elements(std::string_view text);

// Null where no script is written for such a server. Names of dialects, exact case.
[[nodiscard]] const Target* FindTarget(std::string_view name);
std::span<const Target> AllTargets();

}  // namespace wbexport::sql
