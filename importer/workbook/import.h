// The base of an importer: what the host chose, where the results go, and the host's marks.
#pragma once

#include <cstdint>
#include <string>

#include "importer/workbook/enums.h"
#include "importer/workbook/info.h"
#include "importer/workbook/workbook.h"

// What the host chose to import. Copies share the entries of the selection lists.
struct LcImportChoices {
  LeDBMSType dbms_type = dbmsUnknown;  // preset by the host or settled by ImportItems
  std::uint32_t item_mask = 0;         // LeItemBit
  std::u16string owner_restriction;    // empty: all owners
  bool include_system = false;         // system tables and the system owner too
  bool keys = false;                   // primary keys, or failing those unique indexes
  bool foreign_keys = false;
  std::u16string single_item_owner;  // owner of the single table; first choice for procedures
  std::u16string single_table_name;  // the table whose column names are wanted
  LcOwnerInfoList selected_owners;
  LcTableInfoList selected_tables;  // tables and views
  LcTableInfoList selected_synonyms;
  // The catalog (database) that is read: by the generic route, where empty means whatever the
  // driver takes for null, and by the exact reading of a server whose owners are its databases,
  // where it means the current one.
  std::u16string catalog;
  // Where the exact reading is asked for and not possible, the import is the compatible one.
  LeReading reading = rdCompatible;
  // The text of a dialect file for the exact reading, UTF-8; empty: a built-in one.
  std::string dialect;
};

// The workbook's lists that an import fills. Null: the host does not want that kind.
struct LcImportTargets {
  LcOwnerInfoList* owner_names = nullptr;
  LcTableInfoList* table_names = nullptr;
  LcWBColumnInfoList* column_names = nullptr;
  LcWorkbookTableList* tables = nullptr;
  LcWorkbookDatatypeList* data_types = nullptr;
  LcWorkbookOperatorList* operators = nullptr;
  LcWorkbookFunctionList* boolean_functions = nullptr;
  LcWorkbookFunctionList* functions = nullptr;
  LcWorkbookAggregateList* aggregates = nullptr;
  LcWorkbookProcedureList* procedures = nullptr;
};

class LC_WORKBOOK_EXPORT LcWorkbookImport : public LcObject {
 public:
  // The targets are the workbook's lists; none with a null workbook, which stays the caller's.
  explicit LcWorkbookImport(LcWorkbook* workbook);
  LcWorkbookImport(const LcWorkbookImport&) = default;
  LcWorkbookImport& operator=(const LcWorkbookImport&) = default;
  ~LcWorkbookImport() override;

  // `status` becomes 4 when the import was cancelled, 9 when it was stopped, else stays as it was.
  [[nodiscard]] virtual bool ImportItems(unsigned short& status) = 0;
  virtual bool SyncLogin(void* henv, void* hdbc) = 0;
  virtual bool SyncLogin(LcWorkbookDatabase* database) = 0;
  virtual bool UnSyncLogin() = 0;

  // True once the host has stopped or cancelled the import. The routes poll it between items.
  [[nodiscard]] bool WasImportStoppedOrCancelled() const { return cancelled || !running; }
  // Settles whether a completed key is one-to-one: it is when the columns of its foreign side are
  // exactly the primary key of their table, so that a row on the key side meets one row at most.
  void SetKeyType(LcWorkbookForeignKey* key) const;

  LcImportChoices choices;
  LcImportTargets targets;
  bool running = false;              // set by a route when it starts; a host clears it to stop
  bool cancelled = false;            // set by a host to cancel
  LcWorkbookLogin* login = nullptr;  // borrowed; may be null
  void* henv = nullptr;              // borrowed ODBC handles, set by SyncLogin
  void* hdbc = nullptr;
};
