// What a schema says, as texts that can be compared.
#include "tests/real/facts.h"

#include <gtest/gtest.h>
#include <utf8.h>

#include <algorithm>
#include <iterator>

#include "importer/odbc_workbook_import.h"

namespace real {
namespace {

std::string Narrow(const std::u16string& text) { return utf8::utf16to8(text); }

std::string Qualified(const std::string& owner, const std::string& name) {
  return owner.empty() ? name : owner + "." + name;
}

void AddTable(const LcWorkbookTable& table, Facts& facts) {
  const std::string owner = Narrow(table.GetOwner(false));
  const std::string name = Narrow(table.GetName());
  facts.insert(TableFact(table.GetType() == ttView, owner, name));
  for (int i = 0; i < table.GetColumnCount(); ++i) {
    const LcWorkbookColumn* column = table.GetColumn(i);
    facts.insert(ColumnFact(owner, name, Narrow(column->GetName()), column->IsRequired()));
  }
  std::vector<std::vector<std::string>> key;
  for (const LcWorkbookColumn* column : table.GetPrimaryKey().GetColumns()) {
    key.push_back({owner, name, Narrow(column->GetName())});
  }
  AddKeyFacts(key, facts);
  for (const auto& foreign_key : table.GetForeignKeys()) {
    if (foreign_key->GetRole() != fkMirror) continue;
    const LcWorkbookTable* referenced = foreign_key->GetPartner()->GetTable();
    const auto from = foreign_key->GetKey()->GetColumns();
    const auto to = foreign_key->GetForeignKey()->GetColumns();
    for (std::size_t i = 0; i < from.size() && i < to.size(); ++i) {
      facts.insert(PairFact(owner, name, Narrow(from[i]->GetName()),
                            Narrow(referenced->GetOwner(false)), Narrow(referenced->GetName()),
                            Narrow(to[i]->GetName())));
    }
  }
}

const std::function<void(int)>* listener = nullptr;  // the callback has no context
int events = 0;

void Listen(enumImpNotify /*notify*/, void* /*record*/) { (*listener)(events++); }

}  // namespace

std::string TableFact(bool view, const std::string& owner, const std::string& table) {
  return (view ? "view " : "table ") + Qualified(owner, table);
}

std::string ColumnFact(const std::string& owner, const std::string& table,
                       const std::string& column, bool required) {
  return "column " + Qualified(owner, table) + "." + column + (required ? " required" : "");
}

std::string PairFact(const std::string& owner, const std::string& table, const std::string& column,
                     const std::string& to_owner, const std::string& to_table,
                     const std::string& to_column) {
  return "pair " + Qualified(owner, table) + "." + column + " -> " + Qualified(to_owner, to_table) +
         "." + to_column;
}

void AddKeyFacts(const std::vector<std::vector<std::string>>& rows, Facts& facts) {
  for (std::size_t i = 0; i < rows.size();) {
    std::string fact = "key " + Qualified(rows[i][0], rows[i][1]) + ": " + rows[i][2];
    const std::size_t first = i++;
    for (; i < rows.size() && rows[i][0] == rows[first][0] && rows[i][1] == rows[first][1]; ++i) {
      fact += ", " + rows[i][2];
    }
    facts.insert(fact);
  }
}

void ExpectDifferences(const Facts& server, const Facts& imported,
                       const std::vector<Difference>& meant) {
  Facts missing;
  Facts added;
  std::set_difference(server.begin(), server.end(), imported.begin(), imported.end(),
                      std::inserter(missing, missing.end()));
  std::set_difference(imported.begin(), imported.end(), server.begin(), server.end(),
                      std::inserter(added, added.end()));
  Facts differences;
  for (const std::string& fact : missing) differences.insert("-" + fact);
  for (const std::string& fact : added) differences.insert("+" + fact);

  for (const Difference& difference : meant) {
    for (const std::string& fact : difference.facts) {
      const auto found = differences.find(fact);
      if (found == differences.end()) {
        ADD_FAILURE() << "no longer different: " << fact << "\n(" << difference.reason << ")";
      } else {
        differences.erase(found);
      }
    }
  }
  for (const std::string& fact : differences) ADD_FAILURE() << fact;
}

void RunImport(void* henv, void* hdbc, const std::u16string& catalog, Import& import,
               const std::function<void(int)>& on_event, std::uint32_t items) {
  listener = &on_event;
  events = 0;
  LcODBCWorkbookImport importer(on_event ? &Listen : nullptr, &import.workbook);
  importer.SyncLogin(henv, hdbc);
  importer.choices.item_mask = items;
  importer.choices.keys = true;
  importer.choices.foreign_keys = true;
  importer.choices.catalog = catalog;
  import.result = importer.ImportItems(import.status);
  importer.UnSyncLogin();
  for (const LcWorkbookTable* table : import.workbook.tables) AddTable(*table, import.facts);
}

}  // namespace real
