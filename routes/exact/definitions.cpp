#include "routes/exact/definitions.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "routes/exact/definition.h"

namespace odbcimport::exact {
namespace {

bool SaysSomething(const TableDefinition& table) {
  return !table.columns.empty() || !table.keys.empty() || !table.foreign_keys.empty() ||
         !table.checks.empty();
}

void SetOption(TextStore& texts, LcOptions& options, const char16_t* name,
               const std::string& value) {
  if (!value.empty()) options.Set(name, texts.Get(value));
}

LcText NameOrNone(TextStore& texts, const std::string& name) {
  return name.empty() ? LcText() : texts.Get(name);
}

void DefineColumn(TextStore& texts, const DefinedColumn& defined, LcWorkbookColumn& column) {
  const bool plain = defined.collation.empty() && defined.expression.empty() &&
                     defined.not_null_name.empty() && defined.on_null.empty() &&
                     !defined.auto_increment && !defined.is_rowid;
  if (plain) return;
  LcColumnDetails& details = column.ChangeDetails();
  if (!defined.collation.empty()) details.collation = texts.Get(defined.collation);
  if (!defined.expression.empty()) details.expression = texts.Get(defined.expression);
  if (defined.auto_increment) {
    details.identity = idAutoIncrement;
    column.SetGeneratedKey(true);
  }
  if (defined.is_rowid) details.options.Set(u"rowid", u"1");
  SetOption(texts, details.options, u"not null constraint", defined.not_null_name);
  SetOption(texts, details.options, u"on conflict", defined.on_null);
}

// The columns of a text; fewer where the server knows one by another name.
std::vector<LcWorkbookColumn*> ColumnsOf(Model& model, std::uint32_t table,
                                         const std::vector<std::string>& names) {
  std::vector<LcWorkbookColumn*> columns;
  for (const std::string& name : names) {
    if (LcWorkbookColumn* column = model.FindColumn(table, name); column != nullptr) {
      columns.push_back(column);
    }
  }
  return columns;
}

void DefineKey(TextStore& texts, const DefinedKey& defined, LcKeyDetails& key) {
  key.name = NameOrNone(texts, defined.name);
  SetOption(texts, key.options, u"on conflict", defined.on_conflict);
}

// What rows call a key is the name of the index that the server made for it.
void DefineKeysOf(Model& model, std::uint32_t place) {
  TextStore& texts = model.catalog.texts();
  const TableEntry& entry = model.tables[place];
  LcTableDetails& details = entry.table->ChangeDetails();
  std::vector<LcKeyDetails*> unnamed;
  for (LcKeyDetails& key : details.unique_keys) unnamed.push_back(&key);
  for (const DefinedKey& defined : entry.definition->keys) {
    const std::vector<LcWorkbookColumn*> columns = ColumnsOf(model, place, defined.columns);
    if (defined.primary) {
      LcKeyDetails* const primary = details.primary_key.get();
      if (primary != nullptr && primary->columns == columns) DefineKey(texts, defined, *primary);
      continue;
    }
    const auto found = std::find_if(unnamed.begin(), unnamed.end(), [&](const LcKeyDetails* key) {
      return key->columns == columns;
    });
    // One that is written twice has one index: the first name is its name.
    if (found == unnamed.end()) continue;
    DefineKey(texts, defined, **found);
    unnamed.erase(found);
  }
}

// The keys that the server counts from the last one of the text, of the same columns and target.
void DefineForeignKeysOf(Model& model, std::uint32_t place,
                         const std::vector<Constraint*>& constraints) {
  TextStore& texts = model.catalog.texts();
  const std::vector<DefinedForeignKey>& all = model.tables[place].definition->foreign_keys;
  std::vector<bool> used(constraints.size(), false);
  for (auto defined = all.rbegin(); defined != all.rend(); ++defined) {
    for (std::size_t i = 0; i < constraints.size(); ++i) {
      Constraint& constraint = *constraints[i];
      const auto same_column = [](const std::string& name, const Constraint::Part& part) {
        return FoldCase(name) == FoldCase(part.column);
      };
      if (used[i] || FoldCase(constraint.target_table) != FoldCase(defined->target_table) ||
          !std::equal(defined->columns.begin(), defined->columns.end(), constraint.parts.begin(),
                      constraint.parts.end(), same_column)) {
        continue;
      }
      used[i] = true;
      constraint.defined_name = NameOrNone(texts, defined->name);
      constraint.deferrable = defined->deferrable;
      break;
    }
  }
}

}  // namespace

void TakeDefinition(Model& model, std::string_view text, TableEntry& entry) {
  TextStore& texts = model.catalog.texts();
  LcTableDetails& details = entry.table->ChangeDetails();
  if (entry.kind == tkView || entry.kind == tkMaterializedView) {
    details.view_text = texts.Get(ReadViewQuery(text));
    return;
  }
  auto definition = std::make_unique<TableDefinition>(
      ReadTableDefinition(text, model.catalog.dialect().backslash_escapes));
  SetOption(texts, details.options, u"using", definition->module);
  if (definition->without_rowid) details.options.Set(u"without rowid", u"1");
  if (definition->strict) details.options.Set(u"strict", u"1");
  if (SaysSomething(*definition)) entry.definition = std::move(definition);
}

void DefineColumns(Model& model) {
  TextStore& texts = model.catalog.texts();
  for (std::uint32_t i = 0; i < model.tables.size(); ++i) {
    const TableEntry& entry = model.tables[i];
    if (entry.definition == nullptr || !entry.wanted) continue;
    for (const DefinedColumn& defined : entry.definition->columns) {
      LcWorkbookColumn* const column = model.FindColumn(i, defined.name);
      if (column != nullptr) DefineColumn(texts, defined, *column);
    }
    for (const DefinedCheck& defined : entry.definition->checks) {
      LcCheckDetails& check = entry.table->ChangeDetails().checks.emplace_back();
      check.name = NameOrNone(texts, defined.name);
      check.expression = texts.Get(defined.expression);
    }
  }
}

void DefineKeys(Model& model) {
  for (std::uint32_t i = 0; i < model.tables.size(); ++i) {
    const TableEntry& entry = model.tables[i];
    if (entry.definition != nullptr && entry.wanted) DefineKeysOf(model, i);
  }
}

void DefineForeignKeys(Model& model, Constraints& constraints) {
  std::vector<std::vector<Constraint*>> of_table(model.tables.size());
  for (Constraint& constraint : constraints.all()) {
    if (constraint.sort != Constraint::Sort::kForeign || constraint.table == kNoTable) continue;
    if (model.tables[constraint.table].definition == nullptr) continue;
    of_table[constraint.table].push_back(&constraint);
  }
  for (std::uint32_t i = 0; i < of_table.size(); ++i) {
    if (of_table[i].empty()) continue;
    std::stable_sort(of_table[i].begin(), of_table[i].end(),
                     [](const Constraint* a, const Constraint* b) {
                       return ReadNumber(a->id, 0) < ReadNumber(b->id, 0);
                     });
    DefineForeignKeysOf(model, i, of_table[i]);
  }
}

void DefinitionReader::Read(const Row& row) {
  const std::uint32_t table = model_.FindTable(row);
  if (table == kNoTable) return;
  const Dialect& dialect = model_.catalog.dialect();
  const TableDefinition definition =
      ReadTableDefinition(row.Text(Field::kDefinition), dialect.backslash_escapes);
  TextStore& texts = model_.catalog.texts();
  const auto action = [&](const std::string& written) {
    return texts.Get(written.empty() ? dialect.unwritten_action : written);
  };
  for (const DefinedForeignKey& defined : definition.foreign_keys) {
    Constraint* const constraint = constraints_.FindForeignKey(table, defined.name);
    if (constraint == nullptr) continue;
    constraint->on_update = action(defined.on_update);
    constraint->on_delete = action(defined.on_delete);
  }
}

}  // namespace odbcimport::exact
