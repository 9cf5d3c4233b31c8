// Cases of query builders in a text file: "== builder server words" and the texts that are
// expected.
#pragma once

#include <functional>
#include <map>
#include <memory>
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

// Returns what the builder returns.
using QueryBuilder = std::function<bool(const QueryCase&, QueryTexts&)>;
// A builder of one text, which is `before` at first; one that leaves it alone has made none.
QueryBuilder OneText(const std::function<bool(const QueryCase&, std::u16string&)>& builder,
                     const std::u16string& before = u"as it was");

// `file` lies in tests/routes. "false" stands before the texts of a builder that returned false.
void ExpectQueryTexts(const std::string& file, int at_least,
                      const std::map<std::string, QueryBuilder>& builders);

}  // namespace odbcimport::test
