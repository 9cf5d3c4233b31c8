// The workbook file's speed in bytes of JSON a second, and the memory that a workbook's column
// takes with its name and type.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <sstream>
#include <string>

#include "base/utf.h"
#include "importer/workbook/workbook_file.h"

namespace {

constexpr int kColumns = 12;

void Fill(LcWorkbook& workbook, int tables) {
  auto* type = new LcWorkbookDatatype();
  type->SetTypeName(u"VARCHAR");
  type->SetPhysicalCode(8);
  type->SetSizeModifiable(true);
  workbook.data_types.AddDataType(type);
  for (int t = 0; t < tables; ++t) {
    LcWorkbookTable* table = workbook.tables.Append(std::make_unique<LcWorkbookTable>());
    table->SetOwner(u"owner");
    table->SetName(u"customer_orders_" + base::ToUtf16(std::to_string(t)));
    for (int c = 0; c < kColumns; ++c) {
      auto* column = new LcWorkbookColumn();
      column->SetName(u"column_name_" + base::ToUtf16(std::to_string(c)));
      column->SetDataType(type->Copy(), true, true);
      column->SetPhysicalCode(8);
      column->SetPrecision(40);
      table->AddColumn(column);
    }
    table->GetPrimaryKey().AddKeyColumn(table->GetColumn(0));
  }
}

// A stream that only counts, so that the writer is measured alone.
class CountingBuffer : public std::streambuf {
 public:
  std::int64_t count = 0;

 protected:
  std::streamsize xsputn(const char* /*text*/, std::streamsize size) override {
    count += size;
    return size;
  }
  int_type overflow(int_type c) override {
    ++count;
    return traits_type::not_eof(c);
  }
};

void WriteJson(benchmark::State& state) {
  LcWorkbook workbook;
  Fill(workbook, static_cast<int>(state.range(0)));
  std::int64_t bytes = 0;
  for ([[maybe_unused]] auto _ : state) {
    CountingBuffer buffer;
    std::ostream out(&buffer);
    WriteWorkbookFile(workbook, {}, out);
    bytes += buffer.count;
  }
  state.SetBytesProcessed(bytes);
}
BENCHMARK(WriteJson)->Arg(1000)->Unit(benchmark::kMillisecond);

void ReadJson(benchmark::State& state) {
  LcWorkbook source;
  Fill(source, static_cast<int>(state.range(0)));
  std::ostringstream out;
  WriteWorkbookFile(source, {}, out);
  const std::string text = out.str();
  for ([[maybe_unused]] auto _ : state) {
    LcWorkbook workbook;
    LcWorkbookFileInfo info;
    std::string why;
    if (!ReadWorkbookFile(text, workbook, info, why)) state.SkipWithError(why.c_str());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(text.size()) *
                          static_cast<std::int64_t>(state.iterations()));
}
BENCHMARK(ReadJson)->Arg(1000)->Unit(benchmark::kMillisecond);

void ColumnMemory(benchmark::State& state) {
  const auto tables = static_cast<int>(state.range(0));
  double bytes = 0;
  for ([[maybe_unused]] auto _ : state) {
    const std::size_t before = mallinfo2().uordblks;
    LcWorkbook workbook;
    Fill(workbook, tables);
    bytes = static_cast<double>(mallinfo2().uordblks - before);
  }
  state.counters["bytes_per_column"] = bytes / (tables * kColumns);  // its share of the table too
}
BENCHMARK(ColumnMemory)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

}  // namespace
