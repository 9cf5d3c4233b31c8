// Measures the workbook's parts and holds them to their goals. Prints a table and ends with 1 when
// a goal is missed; with --json prints one array of {what, value, goal, at_least} for bench/run,
// which judges.
#include "bench/parts.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace {

using Runs = std::vector<benchmark::BenchmarkReporter::Run>;

// Keeps the runs by name ("LookUp<Tables>/1000"): of repetitions the fastest, which other programs
// on the machine have disturbed least.
class Collector : public benchmark::ConsoleReporter {
 public:
  explicit Collector(bool quiet) : quiet_(quiet) {}
  bool ReportContext(const Context& context) override {
    return quiet_ || ConsoleReporter::ReportContext(context);
  }
  void ReportRuns(const Runs& runs) override {
    if (!quiet_) ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
      if (run.error_occurred) failed_ = true;
      if (run.run_type == Run::RT_Aggregate) continue;
      const auto [kept, added] =
          runs_.try_emplace(run.run_name.function_name + "/" + run.run_name.args, run);
      if (run.GetAdjustedCPUTime() < kept->second.GetAdjustedCPUTime()) kept->second = run;
    }
  }
  bool HasFailed() const { return failed_; }
  double Time(const std::string& name) const { return runs_.at(name).GetAdjustedCPUTime(); }
  double Counter(const std::string& name, const char* counter) const {
    return runs_.at(name).counters.at(counter);
  }

 private:
  const bool quiet_;
  bool failed_ = false;
  std::map<std::string, Run> runs_;
};

struct Goal {
  std::string what;
  double value;
  double limit;
  bool at_least = false;
  bool IsMet() const { return at_least ? value >= limit : value <= limit; }
};

std::vector<Goal> Judge(const Collector& measured) {
  constexpr double kLargestGrowth = 5;
  std::vector<Goal> goals;
  for (const char* what :
       {"Tables", "TablesById", "Columns", "Datatypes", "DatatypesByCode", "Functions"}) {
    const std::string name = fmt::format("LookUp<{}>/", what);
    goals.push_back(
        {fmt::format("look-up, {}: among {} / among {}", what, wbparts::kLong, wbparts::kShort),
         measured.Time(name + std::to_string(wbparts::kLong)) /
             measured.Time(name + std::to_string(wbparts::kShort)),
         kLargestGrowth});
  }
  goals.push_back({"workbook file written, MB/s",
                   measured.Counter("WriteJson/1000", "bytes_per_second") / 1e6, 100, true});
  goals.push_back({"workbook file read, MB/s",
                   measured.Counter("ReadJson/1000", "bytes_per_second") / 1e6, 20, true});
  goals.push_back({"bytes a column with name and type",
                   measured.Counter("ColumnMemory/10000", "bytes_per_column"), 400});
  return goals;
}

}  // namespace

int main(int argc, char** argv) {
  const auto end = std::remove_if(argv + 1, argv + argc, [](const char* argument) {
    return std::string_view(argument) == "--json";
  });
  const bool json = end != argv + argc;
  argc = static_cast<int>(end - argv);
  benchmark::Initialize(&argc, argv);
  Collector collector(json);
  benchmark::RunSpecifiedBenchmarks(&collector);
  if (collector.HasFailed()) return 1;
  std::vector<Goal> goals;
  try {
    goals = Judge(collector);
  } catch (const std::out_of_range&) {  // a filter left measurements out
    fmt::print(stderr, "not everything was measured, so nothing is judged\n");
    return 1;
  }
  std::string list;
  for (const Goal& goal : goals) {
    if (json) {
      list +=
          fmt::format(R"({}{{"what": "{}", "value": {:.2f}, "goal": {}, "at_least": {}}})",
                      list.empty() ? "" : ", ", goal.what, goal.value, goal.limit, goal.at_least);
    } else {
      fmt::print("{:60} {:9.2f} {}{:5}{}\n", goal.what, goal.value,
                 goal.at_least ? ">=" : "<=", goal.limit, goal.IsMet() ? "" : "  missed");
    }
  }
  if (json) fmt::print("[{}]\n", list);
  return json || std::all_of(goals.begin(), goals.end(), [](const Goal& g) { return g.IsMet(); })
             ? 0
             : 1;
}
