// Imports from the Informix practice servers, for tests.
#pragma once

#include "routes/informix/informix_route.h"
#include "tests/routes/route_run.h"

namespace odbcimport::test {

class InformixImport : public RouteRun {
 public:
  // `name` is "informix" or "informix-7"; the statements change its catalog.
  explicit InformixImport(const std::string& name, const Lines& statements = {})
      : RouteRun(&informix::ImportInformixItems, dbmsInformix,
                 wbtest::Connection::OpenSimulator(name)) {
    for (const std::string& statement : statements) connection().Execute(statement);
    server.dbms_version = name == "informix" ? 9 : 7;
    server.is_ius = server.dbms_version == 9;
    base.targets.data_types = nullptr;
  }

  // The workbook's types are in use only where they are imported.
  bool Run() override {
    if ((base.choices.item_mask & ibDataTypes) != 0) base.targets.data_types = &workbook.data_types;
    return RouteRun::Run();
  }
};

}  // namespace odbcimport::test
