// Measures a comparison of two workbook files against the reading of them, and prints one JSON
// object: times, their ratio, the memory of both workbooks and the most that was in use.
//
// Usage: wbdiffbench OLD NEW [FORMAT]
//        wbdiffbench --make FILE TABLES COLUMNS EVERY  makes a file with so many tables of so many
//            columns; the type of every EVERYth column differs from that in a file with another
//            number there (0: none), every 1000th table has another name, every 500th is missing
#include <malloc.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <memory>
#include <string>

#include "base/utf.h"
#include "bench/support.h"
#include "compare/writer.h"
#include "importer/workbook/workbook_file.h"

namespace {

std::u16string Numbered(const char* text, int number) {
  return base::ToUtf16(text + std::to_string(number));
}

const char16_t* const kTypes[] = {u"integer", u"character varying(40)",   u"numeric(12,3)", u"date",
                                  u"text",    u"timestamp with time zone"};

void AddColumn(LcWorkbookTable& table, int number, bool changed) {
  auto column = std::make_unique<LcWorkbookColumn>();
  column->SetName(number == 0 ? u"id" : Numbered("column_name_", number));
  auto type = std::make_unique<LcWorkbookDatatype>();
  const char16_t* text = changed ? u"character varying(41)" : kTypes[number % 6];
  type->SetTypeName(text);
  type->SetDatabaseType(text);
  column->SetDataType(type.release(), true, true);
  column->SetColumnId(number + 1);
  column->SetRequired(number % 3 == 0);
  if (number % 5 == 4) column->ChangeDetails().default_text = LcText(u"'none'::text");
  table.AddColumn(column.release());
}

void AddKeys(LcWorkbookTable& table, LcWorkbookTable* target, int number) {
  LcWorkbookColumn* id = table.GetColumn(0);
  table.GetPrimaryKey().AddKeyColumn(id);
  LcTableDetails& details = table.ChangeDetails();
  details.kind = tkTable;
  details.primary_key = std::make_unique<LcKeyDetails>();
  details.primary_key->name = Numbered("pk_", number);
  details.primary_key->columns = {id};
  LcIndexDetails& index = details.indexes.emplace_back();
  index.name = Numbered("ix_", number);
  index.method = LcText(u"btree");
  index.parts.resize(1);
  index.parts[0].column = table.GetColumn(1);
  if (target == nullptr) return;
  auto names = std::make_shared<LcForeignKeyDetails>();
  names->name = Numbered("fk_", number);
  names->on_delete = LcText(u"cascade");
  auto* forward = new LcWorkbookForeignKey();
  auto* mirror = new LcWorkbookForeignKey();
  forward->SetKey(target->GetColumn(0));
  forward->SetForeignKey(table.GetColumn(1));
  mirror->SetKey(table.GetColumn(1));
  mirror->SetForeignKey(target->GetColumn(0));
  LcWorkbookForeignKey::Pair(forward, mirror);
  for (LcWorkbookForeignKey* key : {forward, mirror}) key->SetDetails(names);
  target->AddForeignKey(forward);
  table.AddForeignKey(mirror);
}

bool Make(const char* file, int tables, int columns, int every) {
  LcWorkbook workbook;
  int number = 0;
  for (int t = 0; t < tables; ++t) {
    if (every != 0 && t % 500 == 250) continue;
    auto table = std::make_unique<LcWorkbookTable>();
    table->SetOwner(u"sales");
    table->SetName(Numbered(every != 0 && t % 1000 == 100 ? "renamed_" : "customer_orders_", t));
    for (int c = 0; c < columns; ++c) {
      AddColumn(*table, c, every != 0 && c > 1 && ++number % every == 0);
    }
    LcWorkbookTable* target =
        t % 2 == 1 ? workbook.tables.GetAt(workbook.tables.GetCount() / 2) : nullptr;
    AddKeys(*workbook.tables.Append(std::move(table)), target, t);
  }
  LcWorkbookFileInfo info;
  info.dbms_name = u"PostgreSQL";
  info.dbms_version = 15;
  info.route = u"exact";
  info.result = true;
  std::ofstream out(file, std::ios::binary);
  WriteWorkbookFile(workbook, info, out);
  return static_cast<bool>(out.flush());
}

struct Read {
  LcWorkbook workbook;
  LcWorkbookFileInfo info;
};
std::unique_ptr<Read> ReadFile(const char* file) {
  auto read = std::make_unique<Read>();
  std::ifstream in(file, std::ios::binary);
  std::string why;
  if (ReadWorkbookFile(in, read->workbook, read->info, why)) return read;
  std::fprintf(stderr, "wbdiffbench: %s: %s\n", file, why.c_str());
  std::exit(2);
}

void Measure(const char* old_file, const char* new_file, const char* format) {
  std::unique_ptr<Read> before;
  std::unique_ptr<Read> after;
  const std::size_t start = bench::ResidentBytes();
  bench::ResetPeak();
  const double read = bench::Seconds([&] {
    before = ReadFile(old_file);
    after = ReadFile(new_file);
  });
  malloc_trim(0);
  const std::size_t held = bench::ResidentBytes() - start;
  wbcompare::Comparison comparison;
  const wbcompare::Side old_side{before->workbook, before->info};
  const wbcompare::Side new_side{after->workbook, after->info};
  std::string why;
  bool compared = false;
  const double compare = bench::Seconds(
      [&] { compared = wbcompare::Compare(old_side, new_side, {}, comparison, why); });
  std::ofstream nowhere("/dev/null");
  const double write = bench::Seconds([&] {
    wbcompare::FindFormat(format)->write({old_side, new_side, comparison, old_file, new_file}, {},
                                         nowhere);
  });
  const auto peak = static_cast<double>(bench::PeakResidentBytes() - start);
  std::printf(
      "{\"tables\": %zu, \"changes\": %zu, \"compared\": %s, \"read_s\": %.3f, \"compare_s\": "
      "%.3f, \"write_s\": %.3f, \"time_ratio\": %.3f, \"workbooks_mib\": %.1f, \"peak_mib\": %.1f, "
      "\"memory_ratio\": %.3f}\n",
      before->workbook.tables.GetCount(), comparison.changes.size(), compared ? "true" : "false",
      read, compare, write, (read + compare + write) / read, static_cast<double>(held) / (1 << 20),
      peak / (1 << 20), peak / static_cast<double>(held));
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 6 && std::strcmp(argv[1], "--make") == 0) {
    return Make(argv[2], std::atoi(argv[3]), std::atoi(argv[4]), std::atoi(argv[5])) ? 0 : 6;
  }
  const char* format = argc == 4 ? argv[3] : "json";
  if (argc < 3 || argc > 4 || wbcompare::FindFormat(format) == nullptr) {
    std::fprintf(stderr,
                 "usage: wbdiffbench OLD NEW [FORMAT]\n"
                 "       wbdiffbench --make FILE TABLES COLUMNS EVERY\n");
    return 2;
  }
  Measure(argv[1], argv[2], format);
  return 0;
}
