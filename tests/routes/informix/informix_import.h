// Imports from the Informix practice servers, for tests: a route of the choice on a connection
// whose catalog a test has changed, with what was reported and what arrived as texts.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "catalogues/type_lists.h"
#include "importer/route.h"
#include "tests/support/connection.h"

namespace odbcimport::test {

using Lines = std::vector<std::string>;
using Route = bool (*)(ImportSession&, unsigned short&);

// The texts of the practice servers are ASCII.
std::string Narrow(std::u16string_view text);
std::u16string Wide(const std::string& text);

class InformixImport {
 public:
  // Tables, views and keys are wanted until a test says otherwise. `server` is "informix" or
  // "informix-7"; the statements change its catalog.
  explicit InformixImport(const std::string& server, const Lines& statements = {});
  ~InformixImport();

  bool Run(Route route = &ImportInformixItems);
  ImportSession Session();
  void SelectTable(const char16_t* owner, const char16_t* name);
  LcTableInfo* SelectSynonym(const char16_t* owner, const char16_t* name,
                             const LcSynonymDetails& details);

  // "6 owner|table|column", "4 1 12", "2 1 0", "3".
  Lines events;
  std::function<void(const std::string&)> on_event;

  // "joe.books synonym" in workbook order.
  Lines Tables() const;
  LcWorkbookTable* Table(const std::string& owner, const std::string& name) const;
  // "card_id serial !" with "!" required, "*" generated; see the definition for sizes.
  Lines Columns(const std::string& owner, const std::string& name) const;
  Lines PrimaryKey(const std::string& owner, const std::string& name) const;
  // "branch_id > library.staff branch_id" of the keys that the table holds; "<" for mirror keys.
  Lines ForeignKeys(const std::string& owner, const std::string& name) const;

  wbtest::Connection& connection() { return *connection_; }

  class Base : public LcWorkbookImport {
   public:
    using LcWorkbookImport::LcWorkbookImport;
    bool ImportItems(unsigned short&) override { return false; }
    bool SyncLogin(void*, void*) override { return false; }
    bool SyncLogin(LcWorkbookDatabase*) override { return false; }
    bool UnSyncLogin() override { return false; }
  };
  LcWorkbook workbook;
  Base base{&workbook};
  ServerFacts server;
  LcImpItemInfo current_item;
  unsigned short status = 0;

 private:
  static void Callback(enumImpNotify notify, void* record);
  std::unique_ptr<wbtest::Connection> connection_;
  std::shared_ptr<LcODBCDatatypeList> own_types_;
};

// Every setting of a type in one line: codes, names, sizes, base, then its components in brackets.
std::string Describe(const LcWorkbookDatatype* type);

}  // namespace odbcimport::test
