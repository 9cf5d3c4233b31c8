// What a schema says, as texts that can be compared.
#include "tests/support/facts.h"

#include <gtest/gtest.h>
#include <utf8.h>

#include <algorithm>
#include <iterator>

namespace wbtest {
namespace {

std::string Qualified(const std::string& owner, const std::string& name) {
  return owner.empty() ? name : owner + "." + name;
}

SchemaRows RowsOf(const LcWorkbookTable& table) {
  SchemaRows rows;
  const auto row_of = [](const LcWorkbookTable& of, const LcWorkbookColumn& column) {
    return std::vector<std::string>{utf8::utf16to8(of.GetOwner(false)),
                                    utf8::utf16to8(of.GetName()), utf8::utf16to8(column.GetName())};
  };
  rows.tables.push_back({utf8::utf16to8(table.GetOwner(false)), utf8::utf16to8(table.GetName()),
                         table.GetType() == ttView ? "VIEW" : "TABLE"});
  for (int i = 0; i < table.GetColumnCount(); ++i) {
    rows.columns.push_back(row_of(table, *table.GetColumn(i)));
    rows.columns.back().emplace_back(table.GetColumn(i)->IsRequired() ? "NO" : "YES");
  }
  for (const LcWorkbookColumn* column : table.GetPrimaryKey().GetColumns()) {
    rows.keys.push_back(row_of(table, *column));
  }
  for (const auto& foreign_key : table.GetForeignKeys()) {
    if (foreign_key->GetRole() != fkMirror) continue;
    const auto from = foreign_key->GetKey()->GetColumns();
    const auto to = foreign_key->GetForeignKey()->GetColumns();
    for (std::size_t i = 0; i < from.size() && i < to.size(); ++i) {
      rows.pairs.push_back(row_of(table, *from[i]));
      const auto end = row_of(*foreign_key->GetPartner()->GetTable(), *to[i]);
      rows.pairs.back().insert(rows.pairs.back().end(), end.begin(), end.end());
    }
  }
  return rows;
}

}  // namespace

Facts FactsOf(const SchemaRows& rows) {
  Facts facts;
  for (const auto& row : rows.tables) {
    facts.insert((row[2] == "VIEW" ? "view " : "table ") + Qualified(row[0], row[1]));
  }
  for (const auto& row : rows.columns) {
    facts.insert("column " + Qualified(row[0], row[1]) + "." + row[2] +
                 (row[3] == "NO" ? " required" : ""));
  }
  for (const auto& row : rows.pairs) {
    facts.insert("pair " + Qualified(row[0], row[1]) + "." + row[2] + " -> " +
                 Qualified(row[3], row[4]) + "." + row[5]);
  }
  for (auto row = rows.keys.begin(); row != rows.keys.end();) {
    const std::string table = Qualified((*row)[0], (*row)[1]);
    std::string fact = "key " + table + ": " + (*row)[2];
    while (++row != rows.keys.end() && Qualified((*row)[0], (*row)[1]) == table) {
      fact += ", " + (*row)[2];
    }
    facts.insert(fact);
  }
  return facts;
}

Facts FactsOf(const LcWorkbook& workbook) {
  Facts facts;
  for (const LcWorkbookTable* table : workbook.tables) {
    if (table->GetType() != ttSynonym) facts.merge(FactsOf(RowsOf(*table)));
  }
  return facts;
}

void ExpectDifferences(const Facts& server, const Facts& imported,
                       const std::vector<Difference>& meant) {
  Facts differences;
  const auto add = [&](const char* sign, const Facts& some, const Facts& others) {
    Facts missing;
    std::set_difference(some.begin(), some.end(), others.begin(), others.end(),
                        std::inserter(missing, missing.end()));
    for (const std::string& fact : missing) differences.insert(sign + fact);
  };
  add("-", server, imported);
  add("+", imported, server);
  for (const Difference& difference : meant) {
    for (const std::string& fact : difference.facts) {
      EXPECT_FALSE(differences.extract(fact).empty())
          << "no longer different: " << fact << "\n(" << difference.reason << ")";
    }
  }
  for (const std::string& fact : differences) ADD_FAILURE() << fact;
}

}  // namespace wbtest
