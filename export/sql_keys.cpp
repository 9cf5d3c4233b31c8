// Keys, checks, indexes and foreign keys, inside of their tables or added to them.
#include <algorithm>

#include "base/letters.h"
#include "base/utf.h"
#include "export/sql_parts.h"
#include "export/sql_translate.h"

namespace wbexport::sql {
namespace {

std::string ConstraintName(const Context& context, const std::string& name) {
  return name.empty() ? "" : "CONSTRAINT " + context.target.Quote(base::ToUtf16(name)) + " ";
}
std::string ConstraintName(const Context& context, const LcText& name) {
  return ConstraintName(context, base::ToUtf8(name.View()));
}

std::string Deferrable(bool offered, LeDeferrable deferrable) {
  if (!offered || deferrable == dfNot) return "";
  return deferrable == dfDeferred ? " DEFERRABLE INITIALLY DEFERRED" : " DEFERRABLE";
}

// The keys of a table: the primary one first. One that came without details has its columns alone.
std::vector<const LcKeyDetails*> KeysOf(const LcWorkbookTable& table) {
  std::vector<const LcKeyDetails*> keys;
  const LcTableDetails* details = table.GetDetails();
  if (details == nullptr) return keys;
  if (details->primary_key != nullptr) keys.push_back(details->primary_key.get());
  for (const LcKeyDetails& key : details->unique_keys) keys.push_back(&key);
  return keys;
}

// SQLite's name for the index of a key, which nothing else may have.
bool IsAutomatic(const LcIndexDetails& index) {
  return index.name.View().starts_with(u"sqlite_autoindex_");
}

bool HasColumns(const LcIndexDetails& index, const std::vector<LcWorkbookColumn*>& columns) {
  return std::equal(index.parts.begin(), index.parts.end(), columns.begin(), columns.end(),
                    [](const LcIndexPart& part, const LcWorkbookColumn* column) {
                      return part.column == column;
                    });
}

// The index that a key is kept by; it has the same name, or one of SQLite's.
const LcIndexDetails* FindIndex(const LcWorkbookTable& table, const LcKeyDetails& key) {
  if (table.GetDetails() == nullptr) return nullptr;
  for (const LcIndexDetails& index : table.GetDetails()->indexes) {
    const bool named = !key.name.View().empty() && index.name == key.name;
    if (named || (IsAutomatic(index) && HasColumns(index, key.columns))) return &index;
  }
  return nullptr;
}

bool IsOfConstraint(const LcWorkbookTable& table, const LcIndexDetails& index) {
  if (IsAutomatic(index)) return true;
  for (const LcKeyDetails* key : KeysOf(table)) {
    if (key->name == index.name) return true;
  }
  const std::vector<LcCheckDetails>& checks = table.GetDetails()->checks;
  return std::any_of(checks.begin(), checks.end(), [&](const LcCheckDetails& check) {
    return check.name == index.name && check.expression.View().starts_with(u"EXCLUDE ");
  });
}

std::string IncludeClause(const Context& context, const LcIndexDetails& index) {
  std::string included;
  for (const LcIndexPart& part : index.parts) {
    if (!part.included || part.column == nullptr) continue;
    included += (included.empty() ? "" : ", ") + context.Quote(*part.column);
  }
  return included.empty() ? "" : " INCLUDE (" + included + ")";
}

// The method of a MariaDB key behind its columns: tables in memory hash where nothing is said.
std::string MethodClause(const LcWorkbookTable& table, const LcText& method) {
  if (method.IsPresent()) return " USING " + base::ToUtf8(method.View());
  const bool in_memory = table.GetDetails()->options.Find(u"engine").View() == u"MEMORY";
  return in_memory ? " USING BTREE" : "";
}

std::string IndexClause(Context& context, const LcWorkbookTable& table,
                        const LcIndexDetails& index) {
  const Target& target = context.target;
  std::string clause = index.unique ? "UNIQUE " : "";
  if (target.indexes_inside) {
    // The method is a word before KEY, or comes behind the columns.
    const std::string method = base::ToUtf8(index.method.View());
    const bool leads = method == "FULLTEXT" || method == "SPATIAL" || method == "VECTOR";
    clause += (leads ? method + " " : "") + "KEY " +
              target.Quote(base::ToUtf16(context.UniqueName(table, index.name.View()))) + " (" +
              IndexParts(context, index) + ")";
    if (!leads && !context.translated) clause += MethodClause(table, index.method);
    clause += target.Clauses(index.options, target.index_options);
    clause += CommentClause(context, index.comment, " COMMENT ", target.longest_comment);
  }
  return clause;
}

void WriteIndex(Context& context, const LcWorkbookTable& table, const LcIndexDetails& index) {
  const Target& target = context.target;
  context.out << fmt::format(
      "CREATE {}INDEX {} ON {}{} ({})", index.unique ? "UNIQUE " : "",
      target.Quote(base::ToUtf16(context.UniqueName(table, index.name.View()))),
      context.Name(table),
      index.method.IsPresent() && target.has_index_methods && !context.translated
          ? " USING " + base::ToUtf8(index.method.View())
          : "",
      IndexParts(context, index));
  if (!context.translated) {
    context.out << IncludeClause(context, index)
                << target.Clauses(index.options, target.index_options);
  }
  if (index.predicate.IsPresent()) {
    context.out << " WHERE " << context.Expression(index.predicate);
  }
  context.out << ";\n";
}

bool CanBeTranslated(const LcIndexDetails& index) {
  static constexpr std::u16string_view kCommon[] = {u"", u"btree", u"BTREE", u"hash", u"HASH"};
  const bool common =
      std::find(std::begin(kCommon), std::end(kCommon), index.method.View()) != std::end(kCommon);
  return common && !index.predicate.IsPresent() &&
         std::all_of(index.parts.begin(), index.parts.end(),
                     [](const LcIndexPart& part) { return part.column != nullptr; });
}

// The foreign keys that a table holds, those to tables outside of the workbook too.
struct Reference {
  const LcForeignKeyDetails* details;
  std::vector<LcWorkbookColumn*> columns;
  std::string target;
  std::string target_columns;
};

// Whether the script makes a key of those columns of their table, as the target server asks of what
// is referred to: the columns of a key in any order, or the first ones of any index.
bool HasKey(Context& context, const std::vector<LcWorkbookColumn*>& columns) {
  const LcWorkbookTable& table = *columns.front()->GetParentTable();
  if (table.GetDetails() == nullptr) return false;
  const bool any_index = context.target.indexes_inside;
  const auto serves = [&](std::vector<LcWorkbookColumn*> key) {
    if (any_index) {
      return key.size() >= columns.size() &&
             std::equal(columns.begin(), columns.end(), key.begin());
    }
    return key.size() == columns.size() &&
           std::is_permutation(key.begin(), key.end(), columns.begin());
  };
  for (const LcKeyDetails* key : KeysOf(table)) {
    if (serves(key->columns)) return true;
  }
  for (const LcIndexDetails& index : table.GetDetails()->indexes) {
    if ((!index.unique && !any_index) || !CanBeTranslated(index)) continue;
    std::vector<LcWorkbookColumn*> parts;
    for (const LcIndexPart& part : index.parts) {
      if (!part.included) parts.push_back(part.column);
    }
    if (serves(parts)) return true;
  }
  return false;
}

// Why the target server would refuse a foreign key; null where it takes it.
const char* WhyRefused(Context& context, const std::vector<LcWorkbookColumn*>& columns,
                       const std::vector<LcWorkbookColumn*>& targets) {
  if (!context.Makes(*targets.front()->GetParentTable())) return "which is not made";
  if (!context.target.needs_types) return nullptr;
  if (!HasKey(context, targets)) return "which has no key of these columns here";
  const std::vector<std::string> pending = context.pending;
  const bool agree = std::equal(columns.begin(), columns.end(), targets.begin(), targets.end(),
                                [&](const LcWorkbookColumn* a, const LcWorkbookColumn* b) {
                                  return TranslatedType(context, *a) == TranslatedType(context, *b);
                                });
  context.pending = pending;
  return agree ? nullptr : "whose types differ";
}

std::vector<Reference> ReferencesOf(Context& context, const LcWorkbookTable& table) {
  std::vector<Reference> references;
  for (const auto& key : table.GetForeignKeys()) {
    if (key->GetRole() != fkMirror || key->GetKey() == nullptr || key->GetForeignKey() == nullptr) {
      continue;
    }
    const std::vector<LcWorkbookColumn*> targets = key->GetForeignKey()->GetColumns();
    if (targets.empty()) continue;
    const std::vector<LcWorkbookColumn*> columns = key->GetKey()->GetColumns();
    const char* const why = context.translated ? WhyRefused(context, columns, targets) : nullptr;
    if (why != nullptr) {
      context.LeaveOut(
          fmt::format("foreign key ({}) of {} to {}, {}", DisplayColumns(columns),
                      DisplayName(table), DisplayName(*targets.front()->GetParentTable()), why),
          "foreign keys");
      continue;
    }
    references.push_back({key->GetDetails(), key->GetKey()->GetColumns(),
                          context.Name(*targets.front()->GetParentTable()),
                          context.Quote(targets)});
  }
  if (table.GetDetails() == nullptr) return references;
  for (const LcOutsideKey& key : table.GetDetails()->outside_keys) {
    if (context.translated) {
      context.LeaveOut(fmt::format("foreign key {} of {} to {}", Display(key.details.name.View()),
                                   DisplayName(table),
                                   ShowName(key.target_owner.View(), key.target_table.View())),
                       "foreign keys");
      continue;
    }
    std::string columns;
    for (const LcText& column : key.target_columns) {
      columns += (columns.empty() ? "" : ", ") + context.target.Quote(column.View());
    }
    references.push_back({&key.details, key.columns,
                          context.Name(key.target_owner.View(), key.target_table.View()), columns});
  }
  return references;
}

bool IsNumbered(const Context& context, const LcWorkbookColumn& column) {
  if (context.translated) return NumbersRows(context, column) && CanNumberRows(context, column);
  return column.GetDetails() != nullptr && column.GetDetails()->identity != idNone;
}

std::string CheckText(const LcWorkbookTable& table, const LcCheckDetails& check) {
  return fmt::format("check {}{}of {}: {}", Display(check.name.View()),
                     check.name.View().empty() ? "" : " ", DisplayName(table),
                     DisplayLine(check.expression.View()));
}

bool Descends(const LcWorkbookTable& table, const LcKeyDetails& key) {
  const LcIndexDetails* index = FindIndex(table, key);
  return index != nullptr && !index->parts.empty() && index->parts.front().descending;
}

// SQLite numbers rows by a column whose key stands with it. Behind the columns a descending key
// would be the row's number, which it is not with its column.
bool StandsWithColumn(const Context& context, const LcWorkbookTable& table,
                      const LcKeyDetails& key) {
  return context.target.auto_increment_with_key && key.columns.size() == 1 &&
         (IsNumbered(context, *key.columns.front()) || Descends(table, key));
}

}  // namespace

std::string CommentClause(Context& context, const LcText& comment, const char* before,
                          std::size_t most) {
  if (!comment.IsPresent()) return "";
  std::u16string_view text = comment.View();
  if (context.translated && most != 0 && text.size() > most) {
    const bool halves = text[most] >= 0xDC00 && text[most] < 0xE000;
    text = text.substr(0, most - (halves ? 1 : 0));
    context.pending.push_back("the end of the comment " + Display(text.substr(0, 40)) + "...");
  }
  return before + context.target.Literal(text);
}

std::string KeyClause(Context& context, const LcWorkbookTable& table, const LcKeyDetails& key) {
  const Target& target = context.target;
  // What the key's own index says more of its columns stands with them.
  const LcIndexDetails* index = FindIndex(table, key);
  std::string columns = index != nullptr && !context.translated ? IndexParts(context, *index)
                                                                : context.Quote(key.columns);
  // A key's index has its name: where the primary one is always PRIMARY, none is given.
  const bool named = !(target.indexes_inside && key.kind == kkPrimary);
  std::string clause =
      (named ? ConstraintName(context, context.UniqueName(table, key.name.View())) : "") +
      (key.kind == kkPrimary ? "PRIMARY KEY" : "UNIQUE");
  if (index != nullptr && !context.translated) {
    clause += target.Clauses(index->options, target.key_prefixes);
  }
  clause += " (" + columns + ")";
  if (index != nullptr && !context.translated) {
    clause += IncludeClause(context, *index) + target.Clauses(index->options, target.key_options);
  }
  // A hash that MariaDB chose for long texts is not asked for.
  const LcText method = index != nullptr ? index->method : LcText();
  if (target.indexes_inside && !context.translated && method.View() != u"HASH") {
    clause += MethodClause(table, method);
  }
  if (index != nullptr) {
    if (target.indexes_inside) {
      clause += CommentClause(context, index->comment, " COMMENT ", target.longest_comment);
    }
  }
  if (!context.translated) clause += target.Clauses(key.options, target.constraint_options);
  return clause + Deferrable(target.has_deferrable_keys, key.deferrable);
}

std::string ColumnKeyClause(Context& context, const LcWorkbookTable& table,
                            const LcKeyDetails& key) {
  if (!StandsWithColumn(context, table, key)) return "";
  const bool conflict = !context.translated;
  return " " + ConstraintName(context, context.UniqueName(table, key.name.View())) + "PRIMARY KEY" +
         (Descends(table, key) ? " DESC" : "") +
         (conflict ? context.target.Clauses(key.options, context.target.constraint_options) : "") +
         (IsNumbered(context, *key.columns.front()) ? " AUTOINCREMENT" : "");
}

std::string CheckClause(const Context& context, const LcCheckDetails& check) {
  const std::string expression = context.Expression(check.expression);
  const std::string rest = context.target.Clauses(check.options, context.target.check_options);
  // An exclusion constraint is its whole text.
  if (expression.starts_with("EXCLUDE "))
    return ConstraintName(context, check.name) + expression + rest;
  return ConstraintName(context, check.name) + "CHECK (" + expression + ")" + rest;
}

std::string ForeignKeyClause(Context& context, const LcWorkbookTable& table,
                             const LcForeignKeyDetails* details,
                             const std::vector<LcWorkbookColumn*>& columns,
                             const std::string& target, const std::string& target_columns) {
  static const LcForeignKeyDetails kNone;
  const LcForeignKeyDetails& d = details != nullptr ? *details : kNone;
  std::string clause = fmt::format(
      "{}FOREIGN KEY ({}) REFERENCES {}{}",
      ConstraintName(context, context.UniqueName(table, d.name.View())), context.Quote(columns),
      target, target_columns.empty() ? "" : " (" + target_columns + ")");
  const bool required = std::any_of(columns.begin(), columns.end(), [](const auto* column) {
    return column->IsRequired() || column->IsPrimaryKey();
  });
  const auto add = [&](const char* word, const LcText& value, std::u16string_view usual) {
    if (!value.IsPresent() || value.View() == usual) return;
    // MariaDB sets no defaults, and NULL where a column takes it alone.
    const bool refused =
        context.target.indexes_inside &&
        (value.View() == u"set default" || (required && value.View() == u"set null"));
    if (context.translated && refused) {
      context.LeaveOut(
          fmt::format("{} {} of the foreign key ({}) of {}", word, Display(value.View()),
                      DisplayColumns(columns), DisplayName(table)),
          "actions");
      return;
    }
    clause += fmt::format(" {} {}", word, base::UpperAscii(base::ToUtf8(value.View())));
  };
  if (context.target.has_match) add("MATCH", d.match, u"simple");
  add("ON UPDATE", d.on_update, context.target.usual_action);
  add("ON DELETE", d.on_delete, context.target.usual_action);
  clause += context.target.Clauses(d.options, context.target.foreign_key_options);
  return clause + Deferrable(context.target.has_deferrable, d.deferrable) +
         context.target.Clauses(d.options, context.target.late_foreign_key_options);
}

std::string IndexParts(const Context& context, const LcIndexDetails& index) {
  const Target& target = context.target;
  std::string list;
  for (const LcIndexPart& part : index.parts) {
    if (part.included) continue;
    if (!list.empty()) list += ", ";
    list += part.column != nullptr ? context.Quote(*part.column)
                                   : target.Expression(part.expression.View());
    if (!context.translated) list += target.Clauses(part.options, target.index_part_options);
    if (part.descending) list += " DESC";
    if (!context.translated) list += target.Clauses(part.options, target.index_order_options);
  }
  return list;
}

std::vector<std::string> InnerConstraints(Context& context, const LcWorkbookTable& table,
                                          bool foreign_keys) {
  std::vector<std::string> clauses;
  for (const LcKeyDetails* key : KeysOf(table)) {
    if (key->kind == kkPrimary && StandsWithColumn(context, table, *key)) continue;
    clauses.push_back(KeyClause(context, table, *key));
  }
  if (const LcTableDetails* details = table.GetDetails(); details != nullptr) {
    for (const LcIndexDetails& index : details->indexes) {
      if (IsOfConstraint(table, index)) continue;
      if (context.target.indexes_inside && (!context.translated || CanBeTranslated(index))) {
        clauses.push_back(IndexClause(context, table, index));
      }
    }
    for (const LcCheckDetails& check : details->checks) {
      if (context.translated) {
        context.pending.push_back(CheckText(table, check));
      } else if (!IsColumnCheck(check)) {
        clauses.push_back(CheckClause(context, check));
      }
    }
  }
  if (foreign_keys) {
    for (const Reference& r : ReferencesOf(context, table)) {
      clauses.push_back(
          ForeignKeyClause(context, table, r.details, r.columns, r.target, r.target_columns));
    }
  }
  return clauses;
}

void WriteKeys(Context& context) {
  if (!context.target.adds_keys) return;
  for (const LcWorkbookTable* table : PartsFirst(context.workbook)) {
    if (table->GetDetails() == nullptr || !context.Makes(*table)) continue;
    std::vector<std::string> clauses;
    for (const LcKeyDetails* key : KeysOf(*table))
      clauses.push_back(KeyClause(context, *table, *key));
    for (const LcCheckDetails& check : table->GetDetails()->checks) {
      if (!context.translated) {
        clauses.push_back(CheckClause(context, check));
      } else {
        context.LeaveOut(CheckText(*table, check), "checks");
      }
    }
    if (clauses.empty()) continue;
    context.out << '\n';
    for (const std::string& clause : clauses) {
      context.out << fmt::format("ALTER TABLE {} ADD {};\n", context.Name(*table), clause);
    }
  }
}

void WriteIndexes(Context& context) {
  std::vector<const LcWorkbookTable*> tables = PartsFirst(context.workbook);
  for (const LcWorkbookTable* table : context.workbook.tables) {
    if (table != nullptr && IsView(*table)) tables.push_back(table);
  }
  for (const LcWorkbookTable* table : tables) {
    const bool view = IsView(*table);
    if (table->GetDetails() == nullptr || (!view && !context.Makes(*table))) continue;
    const bool inside = context.target.indexes_inside && IsPlainTable(*table);
    bool first = true;
    for (const LcIndexDetails& index : table->GetDetails()->indexes) {
      const bool left_out = context.translated && (view || !CanBeTranslated(index));
      if ((inside && !left_out) || IsOfConstraint(*table, index)) continue;
      if (std::exchange(first, false)) context.out << '\n';
      if (left_out) {
        context.LeaveOut(
            fmt::format("index {} of {}", Display(index.name.View()), DisplayName(*table)),
            "indexes");
      } else {
        WriteIndex(context, *table, index);
      }
    }
  }
}

void WriteForeignKeys(Context& context) {
  if (!context.target.adds_foreign_keys) return;
  for (const LcWorkbookTable* table : context.workbook.tables) {
    if (table == nullptr || !context.Makes(*table)) continue;
    const std::vector<Reference> references = ReferencesOf(context, *table);
    if (!references.empty()) context.out << '\n';
    for (const Reference& r : references) {
      context.out << fmt::format(
          "ALTER TABLE {} ADD {};\n", context.Name(*table),
          ForeignKeyClause(context, *table, r.details, r.columns, r.target, r.target_columns));
    }
  }
}

}  // namespace wbexport::sql
