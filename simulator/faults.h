// The faults that a connection string asks for, and the place where every driver call meets them.
#pragma once

#include <array>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "simulator/functions.h"

namespace catalogsim {

// Numbers from `first` to `last`, counted from 1.
struct Range {
  std::uint64_t first = 1;
  std::uint64_t last = UINT64_MAX;
  [[nodiscard]] bool Has(std::uint64_t number) const { return number >= first && number <= last; }
};

struct FunctionFault {
  FunctionId function;
  Range calls;
  std::string state;
};

// A fault at a row of a result. Rows and results are counted from 1; results over the connection.
struct RowFault {
  enum class Kind { kError, kDeleted, kNoTotal };
  Kind kind;
  Range rows;
  Range results;
  int column = 1;  // kNoTotal
};

struct SlowFault {
  FunctionId function;
  int milliseconds;
};

struct FaultPlan {
  std::vector<FunctionFault> calls;
  std::vector<RowFault> rows;
  std::vector<Range> fetches;  // fetch calls that fail, counted in each result
  std::vector<SlowFault> slow;
  std::vector<FunctionId> missing;
  std::vector<int> long_names;  // result columns, from 1
  bool growing_columns = false;
  std::uint64_t fail_call = 0;  // of all calls; 0: none
  std::string fail_state = "HY000";
  std::uint64_t drop_call = 0;
  std::string log_file;
};

// Counts the calls of one connection, writes its log, and says which call has to fail. Diagnostics
// are no calls: a driver manager asks for them by itself, and they can't fail in a sensible way.
class CallGate {
 public:
  // Empty, or what is wrong with the plan (a log that cannot be written).
  [[nodiscard]] std::string Install(FaultPlan plan);
  [[nodiscard]] const FaultPlan& plan() const { return plan_; }

  // Begins to count all calls; what went before belongs to opening the connection.
  void StartCounting() { counting_ = true; }
  // Counts a call and waits where it is to be slow. Returns the SQLSTATE to fail with, or null.
  const char* Enter(FunctionId function);
  void Leave(FunctionId function, const void* handle, SQLRETURN result);

  // The n-th call of all from now on fails, or loses the connection. 0: none, and whole again.
  void FailCallFromNow(std::uint64_t n) { plan_.fail_call = n == 0 ? 0 : calls_ + n; }
  void DropCallFromNow(std::uint64_t n);

  [[nodiscard]] bool IsDropped() const { return dropped_; }
  [[nodiscard]] std::uint64_t calls() const { return calls_; }
  [[nodiscard]] std::uint64_t faults() const { return faults_; }
  std::uint64_t NextResult() { return ++results_; }
  void CountFault() { ++faults_; }

 private:
  FaultPlan plan_;
  bool counting_ = false;
  bool dropped_ = false;
  bool has_function_faults_ = false;
  std::uint64_t calls_ = 0;
  std::uint64_t faults_ = 0;
  std::uint64_t results_ = 0;
  std::array<std::uint64_t, kFunctionIds> calls_by_function_{};
  struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };
  std::unique_ptr<std::FILE, CloseFile> log_;
};

}  // namespace catalogsim
