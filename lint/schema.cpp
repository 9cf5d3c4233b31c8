#include "lint/schema.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "base/text.h"
#include "base/utf.h"

namespace wblint {
namespace {

bool IsOwnTable(const LcWorkbookTable& table) {
  if (table.GetType() != ttTable) return false;
  const LcTableDetails* details = table.GetDetails();
  if (details == nullptr) return true;
  // SQLite's tables beside a virtual one.
  if (details->options.Find(u"shadow table").IsPresent()) return false;
  if (details->options.Find(u"using").IsPresent()) return false;
  return details->kind == tkTable || details->kind == tkPartitionedTable ||
         details->kind == tkUnknown;
}

bool IsNamed(const LcWorkbookTable& table) {
  if (table.GetType() == ttSynonym) return false;
  const LcTableDetails* details = table.GetDetails();
  if (details == nullptr) return true;
  return details->kind != tkPartition && details->kind != tkSystemTable &&
         !details->options.Find(u"shadow table").IsPresent() &&
         !details->options.Find(u"using").IsPresent();
}

Columns Const(const std::vector<LcWorkbookColumn*>& columns) {
  return {columns.begin(), columns.end()};
}

void AddKeys(Table& entry) {
  const LcTableDetails* details = entry.table->GetDetails();
  const auto add = [&](const LcKeyDetails& key) {
    entry.keys.push_back(
        {Shown(key.name.View()), Const(key.columns), key.kind == kkPrimary, false});
  };
  if (details != nullptr && details->primary_key != nullptr) {
    add(*details->primary_key);
  } else if (!entry.table->GetPrimaryKey().IsEmpty()) {
    entry.keys.push_back({"", Const(entry.table->GetPrimaryKey().GetColumns()), true, false});
  }
  if (details == nullptr) return;
  for (const LcKeyDetails& key : details->unique_keys) add(key);
  for (const LcIndexDetails& index : details->indexes) {
    // What is kept of a key's own index stands beside the key, under its name or a server's.
    const std::string name = Shown(index.name.View());
    const auto key = std::find_if(entry.keys.begin(), entry.keys.end(),
                                  [&](const Key& each) { return each.name == name; });
    if (key != entry.keys.end() && !name.empty()) {
      key->nulls_equal = index.options.Find(u"nulls not distinct").IsPresent();
    } else if (!index.name.View().starts_with(u"sqlite_autoindex_")) {
      entry.indexes.push_back(&index);
    }
  }
}

void AddReferences(Table& entry) {
  for (const auto& key : entry.table->GetForeignKeys()) {
    if (key->GetRole() != fkMirror || key->GetKey() == nullptr || key->GetForeignKey() == nullptr) {
      continue;
    }
    Reference reference;
    reference.columns = Const(key->GetKey()->GetColumns());
    reference.target_columns = Const(key->GetForeignKey()->GetColumns());
    reference.details = key->GetDetails();
    if (reference.columns.empty() || reference.target_columns.empty()) continue;
    reference.target = reference.target_columns.front()->GetParentTable();
    if (reference.details != nullptr) reference.name = Shown(reference.details->name.View());
    entry.references.push_back(std::move(reference));
  }
  if (entry.table->GetDetails() == nullptr) return;
  for (const LcOutsideKey& key : entry.table->GetDetails()->outside_keys) {
    entry.references.push_back(
        {Shown(key.details.name.View()), nullptr, Const(key.columns), {}, &key.details});
  }
}

// What was left out by choice or by failure is not known.
unsigned KnownOf(const LcWorkbook& workbook, const LcWorkbookFileInfo& info) {
  unsigned known = knKeys | knForeignKeys;
  if (info.route == u"exact") known |= knUniqueKeys | knIndexes | knComments;
  const nlohmann::json choices = nlohmann::json::parse(info.choices, nullptr, false);
  const auto is_off = [&](const char* name) {
    const auto found = choices.find(name);
    return found != choices.end() && found->is_boolean() && !found->get<bool>();
  };
  if (is_off("keys")) {
    known &= ~(knKeys | knUniqueKeys | knIndexes);
  }
  if (is_off("foreignKeys")) known &= ~knForeignKeys;
  for (const LcNotRead& missing : workbook.details.not_read) {
    if (missing.name.IsPresent()) continue;
    const std::u16string_view kind = missing.kind.View();
    if (kind == u"keys" || kind == u"constraints") known &= ~(knKeys | knUniqueKeys);
    if (kind == u"foreign_keys" || kind == u"constraints") known &= ~knForeignKeys;
    if (kind == u"indexes") known &= ~(knIndexes | knUniqueKeys);
    if (kind == u"comments") known &= ~knComments;
  }
  return known;
}

}  // namespace

Schema::Schema(const LcWorkbook& the_workbook, const LcWorkbookFileInfo& the_info,
               const Options& options)
    : workbook(the_workbook), info(the_info), known(KnownOf(the_workbook, the_info)) {
  for (const LcWorkbookTable* table : workbook.tables.Present()) {
    if (options.leaves_out && options.leaves_out(table->GetOwner(false), table->GetName())) {
      continue;
    }
    if (IsNamed(*table)) named.push_back(table);
    if (!IsOwnTable(*table)) continue;
    places.emplace(table, tables.size());
    Table& entry = tables.emplace_back();
    entry.table = table;
    AddKeys(entry);
    AddReferences(entry);
  }
  for (const Table& entry : tables) {
    for (const Reference& reference : entry.references) {
      const auto place = places.find(reference.target);
      if (place != places.end() && reference.target != entry.table) {
        tables[place->second].referred = true;
      }
    }
  }
}

const Table* Schema::Find(const LcWorkbookTable* table) const {
  const auto place = places.find(table);
  return place == places.end() ? nullptr : &tables[place->second];
}

std::string Shown(std::u16string_view name) {
  std::u16string shown(name);
  for (char16_t& c : shown) c = base::ShownCharacter(c);
  return base::ToUtf8(shown);
}

std::string Shown(const LcWorkbookTable& table) {
  const std::u16string& owner = table.GetOwner(false);
  return owner.empty() ? Shown(table.GetName()) : Shown(owner) + "." + Shown(table.GetName());
}

std::string Shown(const Columns& columns) {
  std::string list;
  for (const LcWorkbookColumn* column : columns) {
    list += (list.empty() ? "" : ", ") + Shown(column->GetName());
  }
  return list;
}

std::string Some(const std::vector<std::string>& names, std::size_t most) {
  std::string list;
  for (std::size_t i = 0; i < names.size() && i < most; ++i) {
    list += (list.empty() ? "" : ", ") + names[i];
  }
  if (names.size() > most) list += " and " + std::to_string(names.size() - most) + " more";
  return list;
}

Columns PlainColumns(const LcIndexDetails& index) {
  Columns columns;
  const std::u16string_view method = index.method.View();
  if (index.predicate.IsPresent() || !(method.empty() || method == u"btree")) return {};
  for (const LcIndexPart& part : index.parts) {
    if (part.included) continue;
    if (part.column == nullptr || part.descending || !part.options.IsEmpty()) return {};
    columns.push_back(part.column);
  }
  return columns;
}

bool BeginsWith(const Columns& columns, const Columns& first) {
  return columns.size() >= first.size() && std::equal(first.begin(), first.end(), columns.begin());
}

bool BeginsWithAll(const Columns& columns, const Columns& wanted) {
  return columns.size() >= wanted.size() &&
         std::is_permutation(wanted.begin(), wanted.end(), columns.begin());
}

}  // namespace wblint
