// A whole import on each route from a driver that answers anything, then the workbook file written,
// read back and written again, and every writer but the pictures, which Graphviz lays out in a
// process of its own.
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "export/writer.h"
#include "fuzz/input.h"
#include "fuzz/scripted_driver.h"
#include "importer/odbc_workbook_import.h"
#include "importer/workbook/workbook_file.h"

namespace {

struct Quiet : platform::MessageBox {
  void Show(const std::u16string& /*text*/, int /*help_context*/) override {}
};

// Nobody's settings, whatever the machine has.
struct NoSettings : platform::SettingsStore {
  std::optional<std::uint32_t> ReadDWORD(const std::u16string&, const std::u16string&) override {
    return {};
  }
};

// Ends imports that a hostile driver makes long: one result, and all of them.
LcODBCWorkbookImport* running = nullptr;
int notifications = 0;
void OnNotify(enumImpNotify, void*) {
  if (++notifications > 20'000) running->running = false;
}

std::string FileOf(const LcWorkbook& workbook, const LcWorkbookFileInfo& info) {
  std::ostringstream out;
  WriteWorkbookFile(workbook, info, out);
  return out.str();
}

void Write(const LcWorkbook& workbook, const LcWorkbookFileInfo& info, std::uint8_t choice,
           std::uint8_t which) {
  constexpr const char* kDialects[] = {"", "postgresql", "mariadb", "sqlite"};
  wbexport::Options options;
  options.system = options.all_functions = (choice & 1) != 0;
  options.dialect_out = kDialects[choice / 2 % 4];
  options.whole = true;
  const std::vector<wbexport::Format>& formats = wbexport::AllFormats();
  const wbexport::Format& format = formats[which % formats.size()];
  const std::string_view name = format.name;
  if (name == "svg" || name == "png") return;
  std::ostringstream out;
  std::vector<std::string> notes;
  if (!format.write({workbook, info}, options, out, notes) && notes.empty()) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  platform::Services& services = platform::GetServices();
  services.message_box = std::make_shared<Quiet>();
  services.settings = std::make_shared<NoSettings>();
  services.result_limits = {5'000, 1 << 22};

  fuzz::Input input(data, size);
  const auto choice = input.Take<std::uint8_t>();
  const auto which = input.Take<std::uint8_t>();
  LcWorkbook workbook;
  LcWorkbookFileInfo info;
  {
    const fuzz::ScriptedDriver driver(input);
    int handle = 0;
    LcODBCWorkbookImport importer(&OnNotify, &workbook);
    // cppcheck-suppress danglingLifetime // taken back before the importer goes
    running = &importer;
    notifications = 0;
    // The built-in functions are many, and the same each time.
    constexpr std::uint32_t kFunctions = ibBooleanFunctions | ibFunctions | ibAggregates;
    importer.choices.item_mask =
        0xffffffff & ~((choice & 1) != 0 ? ibOwnerNames : 0U) & ~(which % 8 != 0 ? kFunctions : 0U);
    importer.choices.keys = importer.choices.foreign_keys = true;
    importer.choices.include_system = (choice & 2) != 0;
    importer.choices.reading = (choice & 4) != 0 ? rdExact : rdCompatible;
    importer.choices.single_table_name = u"T";
    if ((choice & 8) != 0) {
      importer.choices.selected_tables.Append(std::make_unique<LcTableInfo>())->name = u"T";
      auto* synonym = importer.choices.selected_synonyms.Append(std::make_unique<LcTableInfo>());
      synonym->name = u"S";
      synonym->synonym.base_table_name = u"T";
      synonym->synonym.database_name = u"far";
    }
    importer.SyncLogin(&handle, &handle);
    unsigned short status = 0;
    info.result = importer.ImportItems(status);
    info.status = status;
    if (const auto* taken = importer.GetRouteTaken()) {
      info.dbms_name = taken->dbms_name;
      info.dbms_version = taken->dbms_version;
      info.dbms_type = taken->dbms_type;
      info.route = LcODBCWorkbookImport::GetRoute(taken->route).name;
    }
    running = nullptr;
  }
  // What was read from anybody at all can be written, and reads back as the same.
  const std::string file = FileOf(workbook, info);
  LcWorkbook read;
  LcWorkbookFileInfo read_info;
  std::string why;
  if (!ReadWorkbookFile(file, read, read_info, why)) std::abort();
  if (FileOf(read, read_info) != file) std::abort();
  Write(workbook, info, choice, which);
  return 0;
}
