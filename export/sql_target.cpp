#include "export/sql_target.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "base/utf.h"

namespace wbexport::sql {
namespace {

// clang-format off
constexpr std::array kPostgresqlTypes = {
    TypeName{10,  "boolean",          Sizes::kNone},      TypeName{11,  "smallint",         Sizes::kNone},
    TypeName{12,  "bigint",           Sizes::kNone},      TypeName{14,  "bytea",            Sizes::kNone},
    TypeName{13,  "bytea",            Sizes::kNone},      TypeName{18,  "bytea",            Sizes::kNone},
    TypeName{9,  "text",             Sizes::kNone},      TypeName{0,   "character",        Sizes::kLength},
    TypeName{1,   "numeric",          Sizes::kPrecision}, TypeName{2,   "numeric",          Sizes::kPrecision},
    TypeName{3,   "integer",          Sizes::kNone},      TypeName{4,   "smallint",         Sizes::kNone},
    TypeName{5,   "double precision", Sizes::kNone},      TypeName{6,   "real",             Sizes::kNone},
    TypeName{7,   "double precision", Sizes::kNone},      TypeName{15,   "date",             Sizes::kNone},
    TypeName{16,  "time",             Sizes::kNone},      TypeName{17,  "timestamp",        Sizes::kNone},
    TypeName{8,  "character varying", Sizes::kLength},
};
constexpr std::array kMariadbTypes = {
    TypeName{10,  "tinyint(1)",       Sizes::kNone},      TypeName{11,  "tinyint",          Sizes::kNone},
    TypeName{12,  "bigint",           Sizes::kNone},      TypeName{14,  "longblob",         Sizes::kNone},
    TypeName{13,  "varbinary",        Sizes::kLength},    TypeName{18,  "binary",           Sizes::kLength},
    TypeName{9,  "longtext",         Sizes::kNone},      TypeName{0,   "char",             Sizes::kLength},
    TypeName{1,   "decimal",          Sizes::kPrecision}, TypeName{2,   "decimal",          Sizes::kPrecision},
    TypeName{3,   "int",              Sizes::kNone},      TypeName{4,   "smallint",         Sizes::kNone},
    TypeName{5,   "double",           Sizes::kNone},      TypeName{6,   "float",            Sizes::kNone},
    TypeName{7,   "double",           Sizes::kNone},      TypeName{15,   "date",             Sizes::kNone},
    TypeName{16,  "time",             Sizes::kNone},      TypeName{17,  "datetime(6)",      Sizes::kNone},
    TypeName{8,  "varchar",          Sizes::kLength},
};
constexpr std::array kSqliteTypes = {
    TypeName{10,  "BOOLEAN",          Sizes::kNone},      TypeName{11,  "TINYINT",          Sizes::kNone},
    TypeName{12,  "BIGINT",           Sizes::kNone},      TypeName{14,  "BLOB",             Sizes::kNone},
    TypeName{13,  "BLOB",             Sizes::kNone},      TypeName{18,  "BLOB",             Sizes::kNone},
    TypeName{9,  "TEXT",             Sizes::kNone},      TypeName{0,   "CHAR",             Sizes::kLength},
    TypeName{1,   "NUMERIC",          Sizes::kPrecision}, TypeName{2,   "DECIMAL",          Sizes::kPrecision},
    TypeName{3,   "INTEGER",          Sizes::kNone},      TypeName{4,   "SMALLINT",         Sizes::kNone},
    TypeName{5,   "DOUBLE",           Sizes::kNone},      TypeName{6,   "REAL",             Sizes::kNone},
    TypeName{7,   "DOUBLE",           Sizes::kNone},      TypeName{15,   "DATE",             Sizes::kNone},
    TypeName{16,  "TIME",             Sizes::kNone},      TypeName{17,  "TIMESTAMP",        Sizes::kNone},
    TypeName{8,  "VARCHAR",          Sizes::kLength},
};

constexpr std::array kPostgresqlTablePrefixes = {OptionClause{"unlogged", "UNLOGGED"}};
constexpr std::array kPostgresqlTableOptions = {
    OptionClause{"partition key", "PARTITION BY {}"}, OptionClause{"storage parameters", "WITH ({list})"}};
constexpr std::array kPostgresqlTypeOptions = {OptionClause{"collation", "COLLATE {name}"}};
constexpr std::array kPostgresqlKeyPrefixes = {OptionClause{"nulls not distinct", "NULLS NOT DISTINCT"}};
constexpr std::array kPostgresqlCheckOptions = {
    OptionClause{"no inherit", "NO INHERIT"}, OptionClause{"validated", "NOT VALID"}};
constexpr std::array kPostgresqlForeignKeyOptions = {
    OptionClause{"on delete columns", "({names})"}};
constexpr std::array kPostgresqlLateForeignKeyOptions = {OptionClause{"validated", "NOT VALID"}};
constexpr std::array kPostgresqlIndexOptions = {
    OptionClause{"nulls not distinct", "NULLS NOT DISTINCT"}, OptionClause{"storage parameters", "WITH ({list})"}};
constexpr std::array kPostgresqlIndexPartOptions = {
    OptionClause{"collation", "COLLATE {name}"}, OptionClause{"operator class", "{name}"}};
constexpr std::array kPostgresqlIndexOrderOptions = {OptionClause{"nulls", "NULLS {}"}};
constexpr std::array kPostgresqlSequenceOptions = {OptionClause{"cache", "CACHE {}"}};
constexpr std::array kPostgresqlRoutineOptions = {
    OptionClause{"volatility", "{}"}, OptionClause{"strict", "STRICT"},
    OptionClause{"leakproof", "LEAKPROOF"}, OptionClause{"security definer", "SECURITY DEFINER"},
    OptionClause{"parallel", "PARALLEL {}"}, OptionClause{"cost", "COST {}"}, OptionClause{"rows", "ROWS {}"},
    OptionClause{"settings", "{}"}};
constexpr std::array kPostgresqlServerOptions = {
    OptionClause{"server type", "TYPE {literal}"}, OptionClause{"server version", "VERSION {literal}"},
    OptionClause{"foreign wrapper", "FOREIGN DATA WRAPPER {name}"}, OptionClause{"server options", "OPTIONS ({options})"}};
constexpr std::array kPostgresqlForeignTableOptions = {
    OptionClause{"foreign server", "SERVER {name}"}, OptionClause{"foreign options", "OPTIONS ({options})"}};
constexpr std::array kPostgresqlViewOptions = {OptionClause{"storage parameters", "WITH ({list})"}};

constexpr std::array kMariadbTableOptions = {
    OptionClause{"engine", "ENGINE={}"}, OptionClause{"character set", "DEFAULT CHARSET={}"},
    OptionClause{"collation", "COLLATE={}"}, OptionClause{"create options", "{}"},
    OptionClause{"system versioned", "WITH SYSTEM VERSIONING"}};
constexpr std::array kMariadbColumnOptions = {
    OptionClause{"on update", "ON UPDATE {}"}, OptionClause{"invisible", "INVISIBLE"},
    OptionClause{"without system versioning", "WITHOUT SYSTEM VERSIONING"}};
constexpr std::array kMariadbIndexOptions = {OptionClause{"ignored", "IGNORED"}};
constexpr std::array kMariadbIndexPartOptions = {OptionClause{"prefix", "({})"}};
constexpr std::array kMariadbSequenceOptions = {OptionClause{"cache", "CACHE {}"}};
constexpr std::array kMariadbRoutineOptions = {
    OptionClause{"deterministic", "DETERMINISTIC"}, OptionClause{"data access", "{}"},
    OptionClause{"security", "SQL SECURITY {}"}};
constexpr std::array kMariadbViewPrefixes = {
    OptionClause{"algorithm", "ALGORITHM={}"}, OptionClause{"security", "SQL SECURITY {}"}};
constexpr std::array kMariadbViewSuffixes = {OptionClause{"check option", "WITH {} CHECK OPTION"}};

constexpr std::array kSqliteTableOptions = {
    OptionClause{"without rowid", "WITHOUT ROWID"}, OptionClause{"strict", "STRICT"}};
constexpr std::array kSqliteConstraintOptions = {OptionClause{"on conflict", "ON CONFLICT {}"}};
constexpr std::array kSqliteIndexPartOptions = {OptionClause{"collation", "COLLATE {}"}};

constexpr std::array<std::u16string_view, 6> kPostgresqlSystemColumns = {u"tableoid", u"xmin", u"cmin",
                                                                         u"xmax", u"cmax", u"ctid"};
constexpr std::array<std::u16string_view, 4> kMariadbSystemColumns = {u"db_row_id", u"db_trx_id", u"db_roll_ptr",
                                                                      u"fts_doc_id"};

constexpr Target kPostgresql = {
    .name = "postgresql",
    .shell = "psql --set ON_ERROR_STOP=1 --file FILE",
    .prelude = "SET client_encoding = 'UTF8';\nSET client_min_messages = warning;\n"
               "SET check_function_bodies = false;\n",
    .quotes = "\"\"",
    .any_type = "text",
    .auto_increment = " GENERATED BY DEFAULT AS IDENTITY",
    .usual_action = u"no action",
    .comments = Comments::kStatements,
    .has_schemas = true, .has_databases = true, .has_types = true, .has_sequences = true, .types_sequences = true,
    .has_index_methods = true, .has_deferrable = true, .has_deferrable_keys = true, .has_match = true, .adds_keys = true,
    .adds_foreign_keys = true, .allows_no_columns = true, .needs_types = true, .quotes_collations = true,
    .names_view_columns = true,
    .longest_name = 63, .names_in_bytes = true, .names_end_in_blanks = true,
    .system_columns = kPostgresqlSystemColumns, .most_columns = 1600,
    .types = kPostgresqlTypes,
    .table_prefixes = kPostgresqlTablePrefixes,
    .table_options = kPostgresqlTableOptions,
    .type_options = kPostgresqlTypeOptions,
    .key_prefixes = kPostgresqlKeyPrefixes,
    .check_options = kPostgresqlCheckOptions,
    .foreign_key_options = kPostgresqlForeignKeyOptions,
    .late_foreign_key_options = kPostgresqlLateForeignKeyOptions,
    .index_options = kPostgresqlIndexOptions,
    .index_part_options = kPostgresqlIndexPartOptions,
    .index_order_options = kPostgresqlIndexOrderOptions,
    .sequence_options = kPostgresqlSequenceOptions,
    .routine_options = kPostgresqlRoutineOptions,
    .server_options = kPostgresqlServerOptions,
    .foreign_table_options = kPostgresqlForeignTableOptions,
    .view_options = kPostgresqlViewOptions,
};
constexpr Target kMariadb = {
    .name = "mariadb",
    .shell = "mariadb DATABASE < FILE",
    .prelude = "SET NAMES utf8mb4;\nSET sql_mode = 'STRICT_TRANS_TABLES,NO_ENGINE_SUBSTITUTION';\n",
    .translated_prelude = "SET innodb_strict_mode = OFF;\n",
    .quotes = "``",
    .any_type = "longtext",
    .any_number = "decimal(65,30)",
    .auto_increment = " AUTO_INCREMENT",
    .usual_action = u"restrict",
    .comments = Comments::kClauses,
    .backslash_escapes = true, .has_databases = true, .has_sequences = true, .adds_foreign_keys = true,
    .indexes_inside = true, .needs_types = true, .needs_lengths = true, .says_null = true, .delimiters = true,
    .longest_comment = 1024, .longest_name = 64, .names_of_two_bytes = true, .same_columns = Sameness::kLetters,
    .system_columns = kMariadbSystemColumns, .most_columns = 1017,
    .types = kMariadbTypes,
    .table_options = kMariadbTableOptions,
    .column_options = kMariadbColumnOptions,
    .index_options = kMariadbIndexOptions,
    .index_part_options = kMariadbIndexPartOptions,
    .sequence_options = kMariadbSequenceOptions,
    .routine_options = kMariadbRoutineOptions,
    .view_prefixes = kMariadbViewPrefixes,
    .view_suffixes = kMariadbViewSuffixes,
};
constexpr Target kSqlite = {
    .name = "sqlite",
    .shell = "sqlite3 -bail DATABASE < FILE",
    .quotes = "\"\"",
    .usual_action = u"no action",
    .comments = Comments::kNowhere,
    .has_deferrable = true, .auto_increment_with_key = true, .default_in_parentheses = true,
    .bare_expressions = true, .quotes_odd_types = true, .names_view_columns = true, .options_by_commas = true,
    .names_end_in_blanks = true, .same_tables = Sameness::kAscii, .same_columns = Sameness::kAscii,
    .reserved_prefix = u"sqlite_", .most_columns = 2000,
    .types = kSqliteTypes,
    .table_options = kSqliteTableOptions,
    .constraint_options = kSqliteConstraintOptions,
    .index_part_options = kSqliteIndexPartOptions,
};
constexpr std::array kTargets = {kPostgresql, kMariadb, kSqlite};
// clang-format on

std::string Doubling(std::u16string_view text, char quote, char close, bool backslash_too) {
  std::string quoted(1, quote);
  for (const char c : base::ToUtf8(text)) {
    if (c == close || (backslash_too && c == '\\')) quoted += c;
    quoted += c;
  }
  return quoted + close;
}

}  // namespace

std::vector<std::string> Elements(std::string_view text) {
  std::vector<std::string> elements;
  if (text.size() < 2 || text.front() != '{') return elements;
  text = text.substr(1, text.size() - 2);
  std::string element;
  bool quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\\' && i + 1 < text.size()) {
      element += text[++i];
    } else if (text[i] == '"') {
      quoted = !quoted;
    } else if (text[i] == ',' && !quoted) {
      elements.push_back(std::exchange(element, {}));
    } else {
      element += text[i];
    }
  }
  if (!element.empty()) elements.push_back(element);
  return elements;
}

std::string Target::Quote(std::u16string_view text) const {
  return Doubling(text, quotes[0], quotes[1], false);
}

std::string Target::Literal(std::u16string_view text) const {
  return Doubling(text, '\'', '\'', backslash_escapes);
}

std::string Target::TypeFor(const LcWorkbookColumn& column) const {
  const LcWorkbookDatatype* type = column.GetDataType();
  if (type == nullptr) return "";
  const auto row = std::find_if(types.begin(), types.end(), [&](const TypeName& t) {
    return t.code == type->GetPhysicalCode();
  });
  if (row == types.end()) return "";
  const unsigned long precision = type->GetPrecision();
  switch (row->sizes) {
    case Sizes::kLength:
      if (type->GetLength() != 0) return fmt::format("{}({})", row->name, type->GetLength());
      if (needs_lengths) return std::string(any_type);
      break;
    case Sizes::kPrecision:
      if (precision != 0) return SizedNumber(row->name, *type);
      if (!any_number.empty()) return std::string(any_number);
      break;
    case Sizes::kNone:
      break;
  }
  return std::string(row->name);
}

// A scale below zero or above the precision is PostgreSQL's alone: the others get as many digits
// as such a number has.
std::string Target::SizedNumber(std::string_view type_name, const LcWorkbookDatatype& type) const {
  int scale = static_cast<std::int16_t>(type.GetScale());
  int digits = static_cast<int>(type.GetPrecision());
  if (scale < 0) digits -= std::exchange(scale, 0);
  digits = std::max(digits, scale);
  const bool fits = any_number.empty() || (digits <= 65 && scale <= 38);  // MariaDB's limits
  return fits ? fmt::format("{}({},{})", type_name, digits, scale) : std::string(any_number);
}

std::string Target::Expression(std::u16string_view text) const {
  return bare_expressions ? base::ToUtf8(text) : "(" + base::ToUtf8(text) + ")";
}

std::string Target::Clauses(const LcOptions& options, std::span<const OptionClause> table) const {
  std::string clauses;
  for (const OptionClause& row : table) {
    const LcText value = options.Find(base::ToUtf16(row.option));
    if (!value.IsPresent()) continue;
    const std::size_t open = row.clause.find('{');
    std::string clause(row.clause.substr(0, open));
    if (open != std::string_view::npos) {
      const std::size_t close = row.clause.find('}');
      const std::string_view form = row.clause.substr(open + 1, close - open - 1);
      clause += form == "name"      ? QuoteLoose(value.View())
                : form == "names"   ? QuoteEach(value.View())
                : form == "literal" ? Literal(value.View())
                : form == "list"    ? Settings(base::ToUtf8(value.View()), "=")
                : form == "options" ? Settings(base::ToUtf8(value.View()), " ")
                                    : base::ToUtf8(value.View());
      clause += row.clause.substr(close + 1);
    }
    clauses += options_by_commas && !clauses.empty() ? ", " : " ";
    clauses += clause;
  }
  return clauses;
}

std::string Target::QuoteEach(std::u16string_view names) const {
  std::string list;
  for (;;) {
    const std::size_t end = names.find(u", ");
    list += (list.empty() ? "" : ", ") + Quote(names.substr(0, end));
    if (end == std::u16string_view::npos) return list;
    names.remove_prefix(end + 2);
  }
}

std::string Target::QuoteLoose(std::u16string_view text) const {
  const bool qualified = text.size() > 4 && text.front() == u'"' && text.back() == u'"' &&
                         text.find(u"\".\"") != std::u16string_view::npos;
  return qualified ? base::ToUtf8(text) : Quote(text);
}

std::string Target::Settings(std::string_view list, std::string_view sign) const {
  std::string settings;
  for (const std::string& element : Elements(list)) {
    const std::size_t at = element.find('=');
    if (!settings.empty()) settings += ", ";
    // Names of settings may have a prefix and a dot, those of options are any.
    const std::string word = element.substr(0, at);
    settings += sign == "=" ? word : Quote(base::ToUtf16(word));
    if (at == std::string::npos) continue;
    settings += std::string(sign) + Literal(base::ToUtf16(element.substr(at + 1)));
  }
  return settings;
}

const Target* FindTarget(std::string_view name) {
  const auto* found = std::find_if(kTargets.begin(), kTargets.end(),
                                   [&](const Target& target) { return target.name == name; });
  return found == kTargets.end() ? nullptr : found;
}

std::span<const Target> AllTargets() { return kTargets; }

}  // namespace wbexport::sql
