// Schemas as small JSON objects that tests can edit: what stands in a workbook file, but with every
// foreign key once, at its table, and the tables that it refers to by their names.
#pragma once

#include <memory>
#include <nlohmann/json.hpp>
#include <random>
#include <set>
#include <string>

#include "compare/changes.h"
#include "importer/workbook/workbook.h"
#include "importer/workbook/workbook_file.h"

namespace wbtest {

using Json = nlohmann::json;

// A workbook with what its file says of its origin.
struct Read {
  explicit Read(const std::string& file);
  wbcompare::Side side() const { return {workbook, info}; }
  LcWorkbook workbook;
  LcWorkbookFileInfo info;
};

// A schema without anything in it; `top` is merged over the members of the file.
Json EmptySchema(const Json& top = Json::object());
Json Table(const std::string& owner, const std::string& name, const Json& columns = Json::array());
Json Column(const std::string& name, const std::string& type = "integer", bool required = false);

// The workbook file of a schema, with its tables in a random order.
std::unique_ptr<Read> ReadSchema(const Json& schema, std::mt19937& random);
std::unique_ptr<Read> ReadSchema(const Json& schema);

// Every change as a line: "changed column s.t.c data-type: integer -> bigint", with " (guess)"
// behind a guess; sorted.
std::multiset<std::string> Tell(const wbcompare::Comparison& comparison);
// The lines of the comparison the other way round.
std::multiset<std::string> Mirrored(const wbcompare::Comparison& comparison);
std::multiset<std::string> Differences(const Json& before, const Json& after,
                                       const wbcompare::Options& options = {});

}  // namespace wbtest
