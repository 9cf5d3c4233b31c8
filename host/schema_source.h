// Where commands that look at a schema get it from: a workbook file, or an import.
#pragma once

#include <memory>
#include <string>

#include "host/choices.h"
#include "host/commands.h"
#include "host/connection.h"
#include "host/output_file.h"
#include "importer/workbook/workbook_file.h"

namespace wbhost {

struct Schema {
  std::unique_ptr<LcWorkbook> workbook = std::make_unique<LcWorkbook>();
  LcWorkbookFileInfo info;
  std::string label;  // what people call it
};

// What people call a connection, without its secrets.
[[nodiscard]] std::string LabelOf(const ConnectionOptions& options, const Connection& connection);

// Read a workbook file as it comes, kMostWorkbookBytes of it at most. Throw a Failure where it
// cannot be read or is none.
[[nodiscard]] Schema ReadSchema(const std::string& file);
[[nodiscard]] Schema ReadSchemaFromStandardInput();
// Imports from the connection of the command line with its choices over those given. What
// --exclude names is imported: the command leaves it out of its answer.
[[nodiscard]] Schema ImportSchema(Run& run, Choices otherwise, const OutputFile& output,
                                  Outcome& outcome);

}  // namespace wbhost
