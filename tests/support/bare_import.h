// An importer that imports nothing itself: the choices, targets and handles of a session.
#pragma once

#include "importer/workbook/import.h"

namespace wbtest {

class BareImport : public LcWorkbookImport {
 public:
  using LcWorkbookImport::LcWorkbookImport;
  bool ImportItems(unsigned short&) override { return false; }
  bool SyncLogin(void*, void*) override { return false; }
  bool SyncLogin(LcWorkbookDatabase*) override { return false; }
  bool UnSyncLogin() override { return false; }
};

}  // namespace wbtest
