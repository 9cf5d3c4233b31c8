// Cases of query builders in a text file.
#include "tests/routes/query_cases.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "base/utf.h"

namespace odbcimport::test {
namespace {

using base::ToUtf16;

std::vector<std::string> Split(const std::string& text, char separator) {
  std::vector<std::string> pieces;
  std::istringstream in(text);
  for (std::string piece; std::getline(in, piece, separator);) pieces.push_back(piece);
  return pieces;
}

std::string CutBehind(std::string& text, char separator) {
  const auto at = text.find(separator);
  if (at == std::string::npos) return "";
  std::string rest = text.substr(at + 1);
  text.resize(at);
  return rest;
}

}  // namespace

std::unique_ptr<LcTableInfo> MakeEntry(std::string text, enumTableType type) {
  auto entry = std::make_unique<LcTableInfo>();
  entry->type = type;
  entry->synonym.base_table_id = std::atoi(CutBehind(text, '#').c_str());
  entry->synonym.database_name = ToUtf16(CutBehind(text, '@'));
  const auto dot = text.find('.');
  if (dot != std::string::npos) entry->owner = ToUtf16(text.substr(0, dot));
  entry->name = ToUtf16(dot == std::string::npos ? text : text.substr(dot + 1));
  return entry;
}

QueryCase::QueryCase(const std::string& head) {
  const std::map<std::string, std::uint32_t> items = {{"tables", ibTables},
                                                      {"views", ibViews},
                                                      {"table_names", ibTableNames},
                                                      {"view_names", ibViewNames},
                                                      {"synonym_names", ibSynonymNames}};
  std::istringstream in(head);
  in >> builder >> server;
  for (std::string key; in >> key;) {
    const std::string value = CutBehind(key, '=');
    if (const auto item = items.find(key); item != items.end()) choices.item_mask |= item->second;
    if (key == "system") choices.include_system = true;
    if (key == "ius") is_ius = true;
    if (key == "owner") choices.owner_restriction = ToUtf16(value);
    if (key == "single") choices.single_table_name = ToUtf16(value);
    for (const std::string& name : Split(value, ',')) {
      if (key == "select") choices.selected_tables.Append(MakeEntry(name, ttTable));
      if (key == "select_views") choices.selected_tables.Append(MakeEntry(name, ttView));
      if (key == "synonyms") choices.selected_synonyms.Append(MakeEntry(name, ttSynonym));
      if (key == "synonym_tables") choices.selected_synonyms.Append(MakeEntry(name, ttTable));
      if (key != "owners") continue;
      choices.selected_owners.Append(std::make_unique<LcOwnerInfo>())->name = ToUtf16(name);
    }
    if (key != "remote") continue;
    std::vector<std::string> parts = Split(value, '/');
    parts.resize(4);
    remote = {0, 0, ToUtf16(parts[0]), ToUtf16(parts[1]), ToUtf16(parts[2]), ToUtf16(parts[3])};
  }
}

QueryBuilder OneText(std::function<std::optional<std::u16string>(const QueryCase&)> builder) {
  return [builder = std::move(builder)](const QueryCase& wanted) {
    const std::optional<std::u16string> text = builder(wanted);
    return text ? QueryTexts{*text} : QueryTexts();
  };
}

void ExpectQueryTexts(const std::string& file, int at_least,
                      const std::map<std::string, QueryBuilder>& builders) {
  std::ifstream in(WB_SOURCE_DIR "/tests/routes/" + file);
  std::vector<std::pair<std::string, std::vector<std::string>>> cases;
  for (std::string line; std::getline(in, line);) {
    if (line.rfind("== ", 0) == 0) {
      cases.push_back({line.substr(3), {}});
    } else if (!cases.empty() && line.rfind('#', 0) != 0) {
      cases.back().second.push_back(line);
    }
  }
  EXPECT_GE(static_cast<int>(cases.size()), at_least);
  for (const auto& [head, expected] : cases) {
    const QueryCase wanted(head);
    std::vector<std::string> actual;
    for (const std::u16string& text : builders.at(wanted.builder)(wanted)) {
      actual.push_back(base::ToUtf8(text));
    }
    if (actual.empty()) actual.push_back("none");
    EXPECT_EQ(actual, expected) << head;
  }
}

}  // namespace odbcimport::test
