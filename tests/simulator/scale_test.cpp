// Generated catalogs (Scale=) of the servers with an exact reading: every fact of every generated
// table, as it follows from the numbers alone.
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <utf8.h>

#include <algorithm>
#include <array>
#include <string>

#include "tests/simulator/host.h"
#include "tests/simulator/servers.h"
#include "tests/support/facts.h"

namespace {

using wbtest::Facts;

std::string Utf8(const LcText& text) { return utf8::utf16to8(text.Text()); }

constexpr int kTables = 50;
constexpr int kColumns = 7;
constexpr int kKeys = 2;

struct Spelling {
  const char* server;
  const char* table;   // with its owner, before the number
  const char* column;  // before the number
  // Of columns 1, 2, ...; again from the first.
  std::array<const char*, 5> types;
  const char* primary;  // names of keys and indexes, before the table's number
  const char* foreign;
  const char* index;
  bool lists_key_index;  // that of a primary key beside the others
  const char* action;    // of a foreign key that says none
};

const Spelling kSpellings[] = {
    {"sqlserver-2019",
     "sales.bulk_",
     "c",
     {"int", "int", "varchar(40)", "decimal(9,2)", "date"},
     "PK_bulk_",
     "FK_bulk_",
     "IX_bulk_",
     true,
     "no action"},
    {"oracle-19",
     "BULK.BULK_",
     "C",
     {"NUMBER(10)", "NUMBER(10)", "VARCHAR2(40)", "NUMBER(9,2)", "DATE"},
     "PK_BULK_",
     "FK_BULK_",
     "IX_BULK_",
     true,
     "no action"},
    {"db2-11",
     "BULK.BULK_",
     "C",
     {"INTEGER", "INTEGER", "VARCHAR(40)", "DECIMAL(9,2)", "DATE"},
     "PK_BULK_",
     "FK_BULK_",
     "IX_BULK_",
     true,
     "no action"},
    {"informix-14",
     "bulk.bulk_",
     "c",
     {"INTEGER", "INTEGER", "VARCHAR(40)", "DECIMAL(9,2)", "DATE"},
     "pk_bulk_",
     "fk_bulk_",
     "ix_bulk_",
     false,
     "restrict"},
};

// Key k of a table leads from column k + 1 to the primary key of an earlier table, that of the
// first to itself.
Facts Expected(const Spelling& spelling) {
  Facts facts;
  for (int n = 1; n <= kTables; ++n) {
    const std::string table = fmt::format("{}{:06}", spelling.table, n);
    const auto column = [&](int c) { return fmt::format("{}{:02}", spelling.column, c); };
    facts.insert("table " + table);
    for (int c = 1; c <= kColumns; ++c) {
      facts.insert(fmt::format("column {}.{}{}", table, column(c), c == 1 ? " required" : ""));
      facts.insert(fmt::format("type {}.{} {}", table, column(c),
                               spelling.types.at(static_cast<std::size_t>(c - 1) % 5)));
    }
    facts.insert(fmt::format("key {}: {}", table, column(1)));
    facts.insert(fmt::format("key name {} {}{:06}", table, spelling.primary, n));
    if (spelling.lists_key_index) {
      facts.insert(
          fmt::format("index {} {}{:06} unique: {}", table, spelling.primary, n, column(1)));
    }
    for (int k = 1; k <= kKeys; ++k) {
      const int target = 1 + (n * 7919 + k) % std::max(n - 1, 1);
      facts.insert(fmt::format("pair {}.{} -> {}{:06}.{}", table, column(k + 1), spelling.table,
                               target, column(1)));
      facts.insert(fmt::format("reference {} {}{:06}_{} {} enforced", table, spelling.foreign, n, k,
                               spelling.action));
      facts.insert(
          fmt::format("index {} {}{:06}_{}: {}", table, spelling.index, n, k, column(k + 1)));
    }
  }
  return facts;
}

// What the workbook says of the generated tables, and only of them.
Facts Found(const LcWorkbook& workbook, const Spelling& spelling) {
  Facts facts;
  for (const std::string& fact : wbtest::FactsOf(workbook)) {
    if (fact.find(spelling.table) != std::string::npos) facts.insert(fact);
  }
  for (const LcWorkbookTable* of : workbook.tables) {
    const std::string table =
        utf8::utf16to8(of->GetOwner(false)) + "." + utf8::utf16to8(of->GetName());
    if (!table.starts_with(spelling.table)) continue;
    for (int i = 0; i < of->GetColumnCount(); ++i) {
      const LcWorkbookColumn& column = *of->GetColumn(i);
      facts.insert(fmt::format("type {}.{} {}", table, utf8::utf16to8(column.GetName()),
                               Utf8(column.GetDataType()->GetDatabaseType())));
    }
    const LcTableDetails& details = *of->GetDetails();
    facts.insert(fmt::format("key name {} {}", table, Utf8(details.primary_key->name)));
    for (const LcIndexDetails& index : details.indexes) {
      std::string fact =
          fmt::format("index {} {}{}:", table, Utf8(index.name), index.unique ? " unique" : "");
      for (const LcIndexPart& part : index.parts) {
        fact += " " + utf8::utf16to8(part.column->GetName());
      }
      facts.insert(fact);
    }
    for (const auto& key : of->GetForeignKeys()) {
      if (key->GetRole() != fkMirror) continue;
      const LcForeignKeyDetails& reference = *key->GetDetails();
      EXPECT_EQ(reference.on_update, reference.on_delete);
      facts.insert(fmt::format("reference {} {} {}{}", table, Utf8(reference.name),
                               Utf8(reference.on_delete), reference.enforced ? " enforced" : ""));
    }
    EXPECT_TRUE(details.checks.empty() && details.unique_keys.empty() &&
                details.outside_keys.empty())
        << table;
  }
  return facts;
}

class GeneratedCatalog : public testing::TestWithParam<Spelling> {};

TEST_P(GeneratedCatalog, HasExactlyTheseFacts) {
  const Spelling& spelling = GetParam();
  const wbtest::TemporaryFolder folder;
  const wbtest::ScopedVariable cache("XDG_CACHE_HOME", folder.path().c_str());
  const auto connection = wbtest::Connection::OpenSimulator(
      spelling.server, fmt::format("Scale={};Columns={};ForeignKeys={}", kTables, kColumns, kKeys));
  const wbtest::MessageRecorder messages;
  const simtest::Outcome outcome =
      simtest::ImportAll(*connection, false, simtest::HostAct::kNothing, 0, {}, rdExact);
  EXPECT_TRUE(outcome.result);
  EXPECT_THAT(messages.shown(), testing::IsEmpty());
  wbtest::ExpectDifferences(Expected(spelling), Found(*outcome.workbook, spelling), {});
}

INSTANTIATE_TEST_SUITE_P(Servers, GeneratedCatalog, testing::ValuesIn(kSpellings),
                         [](const auto& test) { return simtest::TestName(test.param.server); });

}  // namespace
