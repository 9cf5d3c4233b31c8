// See faults.h.
#include "simulator/faults.h"

#include <chrono>
#include <thread>

namespace catalogsim {
namespace {

// What a client does to clean up works on a lost connection, too: it never reaches the server.
bool WorksWithoutServer(FunctionId function) {
  return function == SQL_API_SQLFREEHANDLE || function == SQL_API_SQLFREESTMT ||
         function == SQL_API_SQLDISCONNECT || function == SQL_API_SQLGETCONNECTATTR;
}

}  // namespace

std::string CallGate::Install(FaultPlan plan) {
  plan_ = std::move(plan);
  has_function_faults_ = !plan_.calls.empty() || !plan_.slow.empty();
  if (plan_.log_file.empty()) return {};
  log_.reset(std::fopen(plan_.log_file.c_str(), "a"));
  return log_ ? std::string() : "the log " + plan_.log_file + " cannot be written";
}

const char* CallGate::Enter(FunctionId function) {
  // The driver manager asks which functions there are, once, as the last step of connecting.
  // unixODBC 2.3.11 jumps to address 0 when the connection is lost just there.
  const bool counted = counting_ && function != SQL_API_SQLGETFUNCTIONS;
  if (counted) ++calls_;
  const std::uint64_t call = ++calls_by_function_[function];
  if (counted && plan_.drop_call != 0 && calls_ >= plan_.drop_call) dropped_ = true;
  if (dropped_ && !WorksWithoutServer(function)) {
    ++faults_;
    return "08S01";
  }
  if (counted && plan_.fail_call != 0 && calls_ == plan_.fail_call) {
    ++faults_;
    return plan_.fail_state.c_str();
  }
  if (!has_function_faults_) return nullptr;
  for (const SlowFault& fault : plan_.slow)
    if (fault.function == function)
      std::this_thread::sleep_for(std::chrono::milliseconds(fault.milliseconds));
  for (const FunctionFault& fault : plan_.calls) {
    if (fault.function != function || !fault.calls.Has(call)) continue;
    ++faults_;
    return fault.state.c_str();
  }
  return nullptr;
}

void CallGate::Leave(FunctionId function, const void* handle, SQLRETURN result) {
  if (!log_) return;
  const std::string_view name = FunctionName(function);
  std::fprintf(log_.get(), "%llu %.*s %p %d\n", static_cast<unsigned long long>(calls_),
               static_cast<int>(name.size()), name.data(), handle, result);
  std::fflush(log_.get());  // the log is read after crashes, too
}

void CallGate::DropCallFromNow(std::uint64_t n) {
  plan_.drop_call = n == 0 ? 0 : calls_ + n;
  if (n == 0) dropped_ = false;
}

}  // namespace catalogsim
