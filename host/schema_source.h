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
std::string LabelOf(const ConnectionOptions& options, const Connection& connection);

// Throws a Failure where the file cannot be read or is none.
Schema ReadSchema(const std::string& file);
// Imports from the connection of the command line with its choices over those given. What
// --exclude names is imported: the command leaves it out of its answer.
Schema ImportSchema(Run& run, Choices otherwise, const OutputFile& output, Outcome& outcome);

}  // namespace wbhost
