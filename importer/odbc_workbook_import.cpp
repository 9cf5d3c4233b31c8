// The importer's life cycle, and the boundary of the module: what goes wrong inside a route comes
// out as false.
#include "importer/odbc_workbook_import.h"

#include <cxxabi.h>

#include "catalogues/type_lists.h"
#include "importer/module_use.h"
#include "importer/route_decision.h"
#include "importer/routes.h"
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
      current_item_(other.current_item_),
      route_taken_(other.route_taken_ ? std::make_unique<RouteDecision>(*other.route_taken_)
                                      : nullptr) {}

LcODBCWorkbookImport& LcODBCWorkbookImport::operator=(const LcODBCWorkbookImport& other) {
  if (this == &other) return *this;
  LcWorkbookImport::operator=(other);
  callback_ = other.callback_;
  workbook_ = other.workbook_;
  *server_ = *other.server_;
  types_ = other.types_;
  current_item_ = other.current_item_;
  route_taken_ =
      other.route_taken_ ? std::make_unique<RouteDecision>(*other.route_taken_) : nullptr;
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

const LcODBCWorkbookImport::Route& LcODBCWorkbookImport::GetRoute(RouteKind kind) {
  return odbcimport::FindRoute(kind);
}

LcODBCWorkbookImport::RouteDecision LcODBCWorkbookImport::DecideRoute() const {
  try {
    odbcimport::ServerFacts server = *server_;
    return odbcimport::DecideRoute(
        {choices, henv, hdbc, login != nullptr ? &login->connect_text : nullptr}, server);
  } catch (...) {
    return {};
  }
}

// The runtime hands over a null reference where a thread ends, which nobody looks at.
__attribute__((no_sanitize("null"))) bool LcODBCWorkbookImport::ImportItems(
    unsigned short& status) try {
  const odbcimport::ModuleUse use(importing_);
  if (!use.IsFirst()) return false;
  route_taken_ = nullptr;
  const RouteDecision decision = odbcimport::DecideRoute(
      {choices, henv, hdbc, login != nullptr ? &login->connect_text : nullptr}, *server_);
  choices.dbms_type = decision.dbms_type;
  route_taken_ = std::make_unique<RouteDecision>(decision);
  // A callback may change what the host chose; the marks alone count at once.
  LcODBCWorkbookImport settled(*this);
  ImportSession session(settled, workbook_, *server_, types_, callback_, current_item_, this);
  return odbcimport::FindRoute(decision.route).run(session, status);
} catch (const abi::__forced_unwind&) {
  throw;  // the host ends the thread
} catch (...) {
  // Memory ran out, or a service of the host threw, before the route began.
  if (cancelled) status = 4;
  return false;
}
