// The connection that a host has lent, with what is known of the server behind it.
#pragma once

#include "importer/workbook/import.h"
#include "session/server_facts.h"

namespace odbcimport {

class Connection {
 public:
  Connection(const LcWorkbookImport& base, ServerFacts& server) : base_(base), server_(server) {}

  [[nodiscard]] void* henv() const { return base_.henv; }
  [[nodiscard]] void* hdbc() const { return base_.hdbc; }
  [[nodiscard]] ServerFacts& server() { return server_; }
  [[nodiscard]] const ServerFacts& server() const { return server_; }

 private:
  const LcWorkbookImport& base_;
  ServerFacts& server_;
};

}  // namespace odbcimport
