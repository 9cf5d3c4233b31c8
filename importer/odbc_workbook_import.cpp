// The importer's life cycle, and the boundary of the module: what goes wrong inside a route comes
// out as false.
#include "importer/odbc_workbook_import.h"

#include "catalogues/type_lists.h"
#include "importer/route_decision.h"
#include "routes/generic/generic_route.h"
#include "routes/informix/informix_route.h"
#include "routes/native/native_import.h"
#include "session/session.h"

using odbcimport::ImportSession;

LcODBCWorkbookImport::LcODBCWorkbookImport(void (*callback)(enumImpNotify, void*),
                                           LcWorkbook* workbook)
    : LcWorkbookImport(workbook),
      callback_(callback),
      workbook_(workbook),
      server_(std::make_unique<odbcimport::ServerFacts>()),
      types_(std::make_shared<LcODBCDatatypeList>(dbmsUnknown, 0)) {}

LcODBCWorkbookImport::LcODBCWorkbookImport(const LcODBCWorkbookImport& other)
    : LcWorkbookImport(other),
      callback_(other.callback_),
      workbook_(other.workbook_),
      server_(std::make_unique<odbcimport::ServerFacts>(*other.server_)),
      types_(other.types_),
      current_item_(other.current_item_) {}

LcODBCWorkbookImport& LcODBCWorkbookImport::operator=(const LcODBCWorkbookImport& other) {
  if (this == &other) return *this;
  LcWorkbookImport::operator=(other);
  callback_ = other.callback_;
  workbook_ = other.workbook_;
  *server_ = *other.server_;
  types_ = other.types_;
  current_item_ = other.current_item_;
  return *this;
}

LcODBCWorkbookImport::~LcODBCWorkbookImport() = default;

const char* LcODBCWorkbookImport::GetRuntimeClass() const { return "LcODBCWorkbookImport"; }

bool LcODBCWorkbookImport::SyncLogin(void* environment, void* connection) {
  henv = environment;
  hdbc = connection;
  return true;
}

bool LcODBCWorkbookImport::SyncLogin(LcWorkbookDatabase* database) {
  return database != nullptr ? SyncLogin(database->henv, database->hdbc) : UnSyncLogin();
}

bool LcODBCWorkbookImport::UnSyncLogin() {
  henv = nullptr;
  hdbc = nullptr;
  return true;
}

int LcODBCWorkbookImport::GetDBMSVersion() const { return server_->dbms_version; }
LeDBMSType LcODBCWorkbookImport::GetDBMSType() const { return server_->dbms_type; }
const std::u16string& LcODBCWorkbookImport::GetDBMSName() const { return server_->dbms_name; }
bool LcODBCWorkbookImport::IsIUS() { return server_->is_ius; }

std::unique_ptr<ImportSession> LcODBCWorkbookImport::NewSession() {
  return std::make_unique<ImportSession>(*this, workbook_, *server_, types_, callback_,
                                         current_item_);
}

LcODBCWorkbookImport::RouteDecision LcODBCWorkbookImport::DecideRoute() try {
  return odbcimport::DecideRoute(*NewSession(), login != nullptr ? &login->connect_text : nullptr);
} catch (...) {
  return {};
}

bool LcODBCWorkbookImport::ImportItems(unsigned short& status) try {
  const std::unique_ptr<ImportSession> session = NewSession();
  const RouteDecision decision =
      odbcimport::DecideRoute(*session, login != nullptr ? &login->connect_text : nullptr);
  switch (decision.route) {
    case RouteKind::kODBC:
      return odbcimport::generic::ImportODBCItems(*session, status);
    case RouteKind::kInformix:
      return odbcimport::informix::ImportInformixItems(*session, status);
    case RouteKind::kNative:
      return odbcimport::native::ImportNativeItems(*session, status);
  }
  return false;
} catch (...) {
  // Out of memory, or a callback or a service of the host that threw.
  if (cancelled) status = 4;
  return false;
}
