// The workbook's JSON form: the workbook file, which other programs read. UTF-8; names that are no
// valid UTF-16 get U+FFFD in place of what cannot be written.
#pragma once

#include <cstdint>
#include <istream>
#include <ostream>
#include <string>
#include <string_view>

#include "importer/workbook/enums.h"
#include "importer/workbook/export.h"
#include "importer/workbook/workbook.h"

constexpr int kWorkbookFileVersion = 1;
// Components of a data type that lie deeper than this in it are neither written nor read.
constexpr int kDeepestComponent = 16;

// Where a workbook came from and how its import ended.
struct LcWorkbookFileInfo {
  std::u16string dbms_name;  // empty: the driver gave none
  std::int32_t dbms_version = 0;
  LeDBMSType dbms_type = dbmsUnknown;
  std::u16string route;  // u"odbc", u"informix", u"native" or u"exact", the one that ran
  bool result = false;
  std::uint16_t status = 0;  // 0, 4 (cancelled) or 9 (stopped)
  std::uint32_t errors_shown = 0;
  bool incomplete = false;  // the import was cut short: stopped, cancelled or disconnected
  // Optional members, left out of the file where they are empty.
  std::u16string dialect;      // of the exact reading
  std::u16string database;     // its name on the server, or the name of its file
  std::u16string title;        // what people call the database
  std::u16string imported_at;  // UTC, ISO 8601
  std::u16string name_case;    // how the server compares names: u"exact" or u"ignored"
  std::string choices;         // the request that ran: a request file's JSON object, UTF-8
};

// Writes the file. `out` tells of failures by its state. Much of a large workbook's text is made on
// a second thread, which ends before this returns; the stream is used on the caller's alone.
LC_WORKBOOK_EXPORT void WriteWorkbookFile(const LcWorkbook& workbook,
                                          const LcWorkbookFileInfo& info, std::ostream& out);

// The same file in a fraction of its size: without indentation, and without the members that are
// zero, empty, false or null, which readers take as such.
LC_WORKBOOK_EXPORT void WriteCompactWorkbookFile(const LcWorkbook& workbook,
                                                 const LcWorkbookFileInfo& info, std::ostream& out);

// Reads a file into an empty workbook. Fields that are left out are zero, empty, false or null, but
// "format", "version" and the names of things have to be there; fields that are not known are
// skipped. False when `text` is no workbook file: `why` then says where (line and column, or the
// field as in `tables[3].columns[0].name`) and what is wrong, and the workbook is left empty.
[[nodiscard]] LC_WORKBOOK_EXPORT bool ReadWorkbookFile(std::string_view text, LcWorkbook& workbook,
                                                       LcWorkbookFileInfo& info, std::string& why);
// The same from a stream, piece by piece: the text is never in memory as a whole.
[[nodiscard]] LC_WORKBOOK_EXPORT bool ReadWorkbookFile(std::istream& in, LcWorkbook& workbook,
                                                       LcWorkbookFileInfo& info, std::string& why);
