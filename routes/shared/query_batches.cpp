// The queries for tables, views and local synonyms with their columns.
#include "routes/shared/query_batches.h"

#include <algorithm>
#include <cstddef>

#include "routes/shared/catalog_queries.h"
#include "routes/shared/restrictions.h"

namespace odbcimport {
namespace {

// Entries of the selection per statement, well below Oracle's limit of a statement's length.
constexpr int kTablesPerText = 200;
constexpr std::size_t kSynonymsPerText = 300;

using Texts = std::vector<std::u16string>;

Texts BuildOracleTableColumnBatches(const LcImportChoices& choices) {
  Texts texts;
  const OracleColumnSource& source = GetOracleColumnSource(choices);
  const int selected = static_cast<int>(choices.selected_tables.GetCount());
  for (int first = 0; first < selected; first += kTablesPerText) {
    const int last = std::min(first + kTablesPerText, selected) - 1;
    std::u16string sql(source.base);
    AddSpecificTablesAndViews(choices, sql, dbmsOracle, source.catalog_view, first, last);
    sql += source.order_by;
    texts.push_back(std::move(sql));
  }
  return texts;
}

// One text for the synonyms at the positions `first` to `last` - 1 of the selection.
//
// A batch without a local synonym gets " AND ()" when another batch has one, and the server refuses
// it. Required (OracleReadsManySynonymsInBatches): without the condition every synonym would be
// read instead, and leaving the batch out would hide from the user that the selection holds none
// there.
std::u16string OracleSynonymBatch(const LcImportChoices& choices, const LocalSynonymPieces& pieces,
                                  bool any_local, std::size_t first, std::size_t last) {
  std::u16string sql(pieces.base);
  if (any_local) sql += u" AND (";
  bool first_written = true;
  for (std::size_t i = first; i < last; ++i) {
    const LcTableInfo* entry = choices.selected_synonyms.GetAt(i);
    if (entry == nullptr || !IsLocalSynonym(*entry, dbmsOracle)) continue;
    if (!first_written) sql += u" OR";
    first_written = false;
    AppendSynonymCondition(pieces, *entry, sql);
  }
  if (any_local) sql += u")";
  sql += pieces.order_by;
  return sql;
}

Texts BuildOracleSynonymBatches(const LcImportChoices& choices, const LocalSynonymPieces& pieces) {
  Texts texts;
  const std::size_t selected = choices.selected_synonyms.GetCount();
  const bool any_local = CountLocalSynonyms(choices, dbmsOracle) != 0;
  std::size_t first = 0;
  do {  // once without a selection: every synonym
    const std::size_t last = std::min(first + kSynonymsPerText, selected);
    texts.push_back(OracleSynonymBatch(choices, pieces, any_local, first, last));
    first = last;
  } while (first < selected);
  return texts;
}

// Required (catalog_queries_test): no owner clause where nothing is selected, unlike the single
// text. A synonym often belongs to another owner than its table, and a clause would lose those.
std::u16string InformixSynonymText(const LcImportChoices& choices,
                                   const LocalSynonymPieces& pieces) {
  std::u16string sql(pieces.base);
  bool first_written = true;
  for (const LcTableInfo* entry : choices.selected_synonyms.Present()) {
    if (!IsLocalSynonym(*entry, dbmsInformix)) continue;
    sql += first_written ? u" AND (" : u" OR";
    first_written = false;
    AppendSynonymCondition(pieces, *entry, sql);
  }
  if (!first_written) sql += u")";
  sql += pieces.order_by;
  return sql;
}

}  // namespace

Texts BuildTableColumnQueries(const LcImportChoices& choices, int server_type, bool is_ius) {
  if (server_type == dbmsOracle && !choices.selected_tables.IsEmpty()) {
    return BuildOracleTableColumnBatches(choices);
  }
  std::optional<std::u16string> sql = BuildTableColumnQuery(choices, server_type, is_ius);
  return sql ? Texts{*std::move(sql)} : Texts();
}

std::optional<Texts> BuildLocalSynonymQueries(const LcImportChoices& choices, int server_type,
                                              bool is_ius) {
  const LocalSynonymPieces* pieces = FindLocalSynonymPieces(server_type, is_ius);
  if (pieces == nullptr) return std::nullopt;
  switch (server_type) {
    case dbmsInformix:
      return Texts{InformixSynonymText(choices, *pieces)};
    case dbmsOracle:
      return BuildOracleSynonymBatches(choices, *pieces);
    default: {
      std::optional<std::u16string> sql = BuildLocalSynonymQuery(choices, server_type, is_ius);
      if (!sql) return std::nullopt;
      return Texts{*std::move(sql)};
    }
  }
}

}  // namespace odbcimport
