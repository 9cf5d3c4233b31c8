// The one object that a host creates per import: lends it a connection, sets its choices, and asks
// it to import. See docs/embedding.md.
#pragma once

#include <atomic>
#include <memory>
#include <string>

#include "importer/workbook/import.h"
#include "platform/platform.h"

class LcODBCDatatypeList;
namespace odbcimport {
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

  // Settles the type of the server, decides on a route once and runs it. Returns what the route
  // returns; `status` becomes 4 when the import was cancelled, 9 when it was stopped, and is
  // left alone otherwise. Callable more than once: the facts about the server are kept, so a host
  // that moves to another connection resets choices.dbms_type to dbmsUnknown. It works on choices,
  // targets and handles as they are when it is called. False, with nothing done, while this
  // importer imports already, in a callback or on another thread.
  [[nodiscard]] bool ImportItems(unsigned short& status) override;

  // Lend and withdraw the ODBC handles, which stay the host's. Always true.
  bool SyncLogin(void* henv, void* hdbc) override;
  bool SyncLogin(LcWorkbookDatabase* database) override;
  bool UnSyncLogin() override;

  [[nodiscard]] int GetDBMSVersion() const;                 // major version, 0 until known
  [[nodiscard]] LeDBMSType GetDBMSType() const;             // what the last import settled on
  [[nodiscard]] const std::u16string& GetDBMSName() const;  // empty until known

  // The ways of reading a catalog, and what a host may want to know of each.
  enum class RouteKind { kODBC, kInformix, kNative, kExact };
  struct Route {
    RouteKind kind;
    const char16_t* name;         // in the workbook file
    bool uses_catalog_functions;  // those of ODBC, in place of SQL of its own
    bool lists_owners;            // has a reading for ibOwnerNames
    bool lists_columns;           // has a reading for ibColumnNames
  };
  [[nodiscard]] static const Route& GetRoute(RouteKind kind);

  // A route, why it is taken, and what was known of the server when it was decided.
  struct RouteDecision {
    RouteKind route = RouteKind::kODBC;
    std::string reason;         // one English sentence part, UTF-8
    std::string dialect;        // the name of the exact route's, UTF-8; empty on the others
    std::string why_not_exact;  // where that was wanted and is not possible: a part of the reason
    std::u16string dbms_name;
    int dbms_version = 0;
    LeDBMSType dbms_type = dbmsUnknown;
  };
  // The route that ImportItems would take now, for a host that wants to show it. Asks the driver
  // for the server's name where it is not known, and the server whether a dialect fits where the
  // exact reading is wanted, as ImportItems does, and changes nothing.
  [[nodiscard]] RouteDecision DecideRoute() const;
  // The route that the last ImportItems took; null before the first.
  [[nodiscard]] const RouteDecision* GetRouteTaken() const { return route_taken_.get(); }

 protected:
  virtual bool IsIUS();

 private:
  void (*callback_)(enumImpNotify, void*);
  LcWorkbook* workbook_;
  std::unique_ptr<odbcimport::ServerFacts> server_;
  std::shared_ptr<LcODBCDatatypeList> types_;
  LcImpItemInfo current_item_;
  std::unique_ptr<RouteDecision> route_taken_;
  std::atomic<bool> importing_{false};
};

// Starts the module: loads the message library msgtext.dll, beside the module or in `folder` when
// that is not null, and makes its texts the module's. Must succeed before an import; starting twice
// is fine. On failure `why` says which file was looked for and where; otherwise it is empty, or
// tells of a settings file that is left out because it cannot be read. From any thread; while an
// import runs it keeps the library that is there, and fails where there is none.
[[nodiscard]] LC_EXPORT bool OdbcImportStart(const char* folder, std::string& why);
// Gives the message library back. From any thread: while imports run, the end of the last of them
// does it.
LC_EXPORT void OdbcImportStop();
