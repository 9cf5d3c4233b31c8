// Cases of query builders in a text file: "== builder server words" and the texts that are
// expected.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "importer/workbook/import.h"

namespace odbcimport::test {

using QueryTexts = std::vector<std::u16string>;

struct QueryCase {
  explicit QueryCase(const std::string& head);  // what follows the "== "

  std::string builder;
  int server = 0;
  bool is_ius = false;
  LcImportChoices choices;
  LcSynonymDetails remote;  // of a word "remote=SERVER/DATABASE/OWNER/TABLE"
};

// [OWNER.]NAME[@LINK][#BASE TABLE ID]
std::unique_ptr<LcTableInfo> MakeEntry(std::string text, enumTableType type);

using QueryBuilder = std::function<QueryTexts(const QueryCase&)>;
// A builder of one text, or of none.
QueryBuilder OneText(std::function<std::optional<std::u16string>(const QueryCase&)> builder);

// `file` lies in tests/routes. "none" stands for no text.
void ExpectQueryTexts(const std::string& file, int at_least,
                      const std::map<std::string, QueryBuilder>& builders);

}  // namespace odbcimport::test
