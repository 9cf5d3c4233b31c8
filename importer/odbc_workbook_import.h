// The one object that a host creates per import: lends it a connection, sets its choices, and asks
// it to import. See docs/embedding.md.
#pragma once

#include <memory>
#include <string>

#include "importer/workbook/import.h"
#include "platform/platform.h"

class LcODBCDatatypeList;
namespace odbcimport {
class ImportSession;
struct ServerFacts;
}  // namespace odbcimport

class LC_EXPORT LcODBCWorkbookImport : public LcWorkbookImport {
 public:
  // `callback` may be null: nothing is reported then. `workbook` stays the caller's and must
  // outlive the importer.
  LcODBCWorkbookImport(void (*callback)(enumImpNotify, void*), LcWorkbook* workbook);
  // A copy has the same choices, handles and facts, and shares the type list.
  LcODBCWorkbookImport(const LcODBCWorkbookImport& other);
  LcODBCWorkbookImport& operator=(const LcODBCWorkbookImport& other);
  ~LcODBCWorkbookImport() override;
  const char* GetRuntimeClass() const override;

  // Settles the type of the server and runs the route that reads its catalog. Returns what the
  // route returns; `status` becomes 4 when the import was cancelled, 9 when it was stopped, and is
  // left alone otherwise. Callable more than once: the facts about the server are kept, so a host
  // that moves to another connection resets choices.dbms_type to dbmsUnknown.
  bool ImportItems(unsigned short& status) override;

  // Lend and withdraw the ODBC handles, which stay the host's. Always true.
  bool SyncLogin(void* henv, void* hdbc) override;
  bool SyncLogin(LcWorkbookDatabase* database) override;
  bool UnSyncLogin() override;

  int GetDBMSVersion() const;                 // major version, 0 until known
  LeDBMSType GetDBMSType() const;             // what the last route decision settled on
  const std::u16string& GetDBMSName() const;  // empty until known

  // The route that ImportItems would take now, for a host that wants to show it. Asks the driver
  // for the server's name where it is not known, as ImportItems does.
  enum class RouteKind { kODBC, kInformix, kNative };
  struct RouteDecision {
    RouteKind route = RouteKind::kODBC;
    std::string reason;  // one English sentence part, UTF-8
  };
  RouteDecision DecideRoute();

 protected:
  virtual bool IsIUS();

 private:
  std::unique_ptr<odbcimport::ImportSession> NewSession();

  void (*callback_)(enumImpNotify, void*);
  LcWorkbook* workbook_;
  std::unique_ptr<odbcimport::ServerFacts> server_;
  std::shared_ptr<LcODBCDatatypeList> types_;
  LcImpItemInfo current_item_;
};

// Starts the module: loads the message library msgtext.dll, beside the module or in `folder` when
// that is not null, and makes its texts the module's. Must succeed before an import; starting twice
// is fine. On failure `why` says which file was looked for and where.
LC_EXPORT bool OdbcImportStart(const char* folder, std::string& why);
// Gives the message library back.
LC_EXPORT void OdbcImportStop();
