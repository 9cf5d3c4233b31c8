// One run of an import, as a route sees it: what the host chose, where the results go, the borrowed
// connection, what is known of the server, and the way to report. A session lives for one run and
// owns nothing; the importer behind it outlives it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "importer/workbook/import.h"

class LcODBCRecordList;

namespace odbcimport {

using NotifyCallback = void (*)(enumImpNotify, void*);

// What a route found out about the server when it was decided on; each route that asks has its own.
struct RouteFinding {
  virtual ~RouteFinding() = default;
};

// Facts about the server that persist between runs of one importer.
struct ServerFacts {
  std::u16string dbms_name;            // SQL_DBMS_NAME; empty until asked
  LeDBMSType dbms_type = dbmsUnknown;  // the type that the route decision settled on
  std::int32_t dbms_version = 0;       // major version; 0 until known
  bool is_ius = false;                 // Informix Universal Server
  std::u16string system_owner;         // owner of the system tables; empty: none found
  bool owner_support_known = false;
  bool owner_supported = false;
  std::uint16_t foreign_key_counter = 0;
  std::shared_ptr<const RouteFinding> finding;  // of the last decision; null: there was none
};

class ImportSession {
 public:
  ImportSession(LcWorkbookImport& base, LcWorkbook* workbook, ServerFacts& server,
                std::shared_ptr<LcWorkbookDatatypeList> own_types, NotifyCallback callback,
                LcImpItemInfo& current_item);
  // Ends what a route that failed half-way has begun.
  ~ImportSession();
  ImportSession(const ImportSession&) = delete;
  ImportSession& operator=(const ImportSession&) = delete;

  LcImportChoices& choices;
  LcImportTargets& targets;
  LcWorkbook* const workbook;  // null: the routes with own SQL refuse to run
  ServerFacts& server;
  LcImpItemInfo& current_item;  // owner (text1) and name (text2) of the table in hand

  void* henv() const { return base_.henv; }
  void* hdbc() const { return base_.hdbc; }
  bool IsIUS() const { return server.is_ius; }
  bool HasItem(std::uint32_t bits) const { return (choices.item_mask & bits) != 0; }

  // The importer's own list of built-in types.
  LcWorkbookDatatypeList& own_types() const { return *own_types_; }
  // The list that types are created from: the host's target list or, failing that, the own list.
  LcWorkbookDatatypeList& TypesInForce() const;

  // Reports to the host's callback: an LcImpProgStartInfo for 2 (its count is always 0) and 4, an
  // LcImpItemInfo for 6, 8, 9 and 10 (a null text becomes an empty one), null for all others.
  void StatusDialog(enumImpNotify notify, enumImpItemType item_type = iiNone,
                    unsigned long count = 0, const char16_t* text1 = nullptr,
                    const char16_t* text2 = nullptr, const char16_t* text3 = nullptr,
                    bool flag = true) const;

  bool WasImportStoppedOrCancelled() const { return base_.WasImportStoppedOrCancelled(); }
  bool IsRunning() const { return base_.running; }
  void SetKeyType(LcWorkbookForeignKey* key) const { base_.SetKeyType(key); }

  // Runs a catalog query through the fetch layer, which shows failures to the user: a statement
  // that failed leaves `rows` empty.
  void RunQuery(const std::u16string& sql, LcODBCRecordList& rows) const;

  // The beginning and the end that all routes share: busy cursor and running mark; at the end the
  // host's reason for an early end goes into `status` (4 cancelled, 9 stopped).
  void BeginRoute();
  void EndRoute(unsigned short& status);

 private:
  LcWorkbookImport& base_;
  std::shared_ptr<LcWorkbookDatatypeList> own_types_;
  NotifyCallback callback_;
  bool cursor_shown_ = false;
};

}  // namespace odbcimport
