// Look-ups by name and id among 1,000 and among 100,000 entries. The program compares the two: a
// look-up that costs many times as much in the long list no longer takes constant time.
#include <benchmark/benchmark.h>

#include <random>
#include <string>
#include <vector>

#include "base/utf.h"
#include "bench/parts.h"
#include "importer/workbook/workbook.h"

namespace {

using wbparts::kLong;
using wbparts::kShort;

std::u16string Name(int i) { return u"some_name_" + base::ToUtf16(std::to_string(i)); }

// What is looked up: a list of `count` entries, and the key of its i-th.
struct Tables {
  using Key = std::pair<std::u16string, std::u16string>;
  explicit Tables(int count) {
    for (int i = 0; i < count; ++i) {
      auto table = std::make_unique<LcWorkbookTable>();
      table->SetOwner(KeyOf(i).first);
      table->SetName(KeyOf(i).second);
      list.Append(std::move(table));
    }
  }
  static Key KeyOf(int i) { return {u"owner" + base::ToUtf16(std::to_string(i % 10)), Name(i)}; }
  const void* Find(const Key& key) const { return list.FindTable(key.first, key.second); }
  LcWorkbookTableList list;
};

struct TablesById {
  using Key = int;
  explicit TablesById(int count) {
    for (int i = 0; i < count; ++i) {
      list.Append(std::make_unique<LcWorkbookTable>())->SetSynonymId(KeyOf(i));
    }
  }
  static Key KeyOf(int i) { return i + 1; }
  const void* Find(int id) const { return list.FindTableById(id); }
  LcWorkbookTableList list;
};

struct Columns {
  using Key = std::u16string;
  explicit Columns(int count) {
    for (int i = 0; i < count; ++i) {
      auto* column = new LcWorkbookColumn();
      column->SetName(KeyOf(i));
      table.AddColumn(column);
    }
  }
  static Key KeyOf(int i) { return Name(i); }
  const void* Find(const Key& name) const { return table.FindColumn(name); }
  LcWorkbookTable table;
};

struct Datatypes {
  using Key = std::u16string;
  explicit Datatypes(int count) {
    for (int i = 0; i < count; ++i) {
      auto* type = new LcWorkbookDatatype();
      type->SetTypeName(KeyOf(i));
      list.AddDataType(type);
    }
  }
  static Key KeyOf(int i) { return Name(i); }
  const void* Find(const Key& name) const { return list.GetDataTypeByPhysicalName(name); }
  LcWorkbookDatatypeList list;
};

struct DatatypesByCode {
  using Key = int;
  explicit DatatypesByCode(int count) {
    for (int i = 0; i < count; ++i) {
      auto* type = new LcWorkbookDatatype();
      type->SetPhysicalCode(KeyOf(i));
      list.AddDataType(type);
    }
  }
  static Key KeyOf(int i) { return i; }
  const void* Find(int code) const { return list.GetDataTypeByPhysicalCode(code); }
  LcWorkbookDatatypeList list;
};

struct Functions {
  using Key = std::u16string;
  explicit Functions(int count) {
    for (int i = 0; i < count; ++i) {
      list.Append(std::make_unique<LcWorkbookFunction>(u"owner", KeyOf(i)));
    }
  }
  static Key KeyOf(int i) { return Name(i); }
  const void* Find(const Key& name) const { return list.FindFunction(u"owner", name); }
  LcWorkbookFunctionList list;
};

// A key that is looked up is made anew from text, as a reader makes it from a row's cells.
std::u16string Made(const std::u16string& text) { return {text.data(), text.size()}; }
std::pair<std::u16string, std::u16string> Made(
    const std::pair<std::u16string, std::u16string>& texts) {
  return {Made(texts.first), Made(texts.second)};
}
int Made(int number) { return number; }

// Entries in random order, so that the long list does not profit from neighbours. The keys are as
// many for both lists and stand in the order of their use: what differs is the look-up.
template <class Subject>
void LookUp(benchmark::State& state) {
  const auto count = static_cast<int>(state.range(0));
  Subject subject(count);
  std::mt19937 random(1);
  constexpr int kKeys = 1 << 16;
  std::vector<typename Subject::Key> keys;
  keys.reserve(kKeys);
  for (int i = 0; i < kKeys; ++i) {
    keys.push_back(Subject::KeyOf(static_cast<int>(random() % static_cast<unsigned>(count))));
  }
  std::size_t at = 0;
  for ([[maybe_unused]] auto _ : state) {
    const void* found = subject.Find(Made(keys[at++ & (keys.size() - 1)]));
    if (found == nullptr) state.SkipWithError("not found");
    benchmark::DoNotOptimize(found);
  }
}

void BothLengths(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(kShort)->Arg(kLong)->MinTime(0.02)->Repetitions(15);
}

BENCHMARK(LookUp<Tables>)->Apply(BothLengths);
BENCHMARK(LookUp<TablesById>)->Apply(BothLengths);
BENCHMARK(LookUp<Columns>)->Apply(BothLengths);
BENCHMARK(LookUp<Datatypes>)->Apply(BothLengths);
BENCHMARK(LookUp<DatatypesByCode>)->Apply(BothLengths);
BENCHMARK(LookUp<Functions>)->Apply(BothLengths);

}  // namespace
