// What all entry points share. An entry point checks nothing that the driver manager has checked
// (handles, states, null pointers where they make no sense); it meets the faults, does its work,
// and leaves a line in the log.
#pragma once

#include <exception>

#include "simulator/handles.h"

#define CATALOGSIM_ENTRY extern "C" __attribute__((visibility("default"))) SQLRETURN SQL_API

namespace catalogsim {

// Runs `body` as a call of `function` on `handle`. No exception leaves the driver.
template <class AnyHandle, class Body>
[[nodiscard]] SQLRETURN RunCall(Connection& connection, AnyHandle& handle, FunctionId function,
                                Body body) {
  SQLRETURN result = SQL_ERROR;
  try {
    handle.ClearDiagnostics();
    const char* const state = connection.gate().Enter(function);
    result = state != nullptr ? handle.Fail(state, "simulated fault") : body();
  } catch (const std::exception& failure) {
    result = handle.Fail("HY000", failure.what());
  }
  connection.gate().Leave(function, &handle, result);
  return result;
}

template <class Body>
[[nodiscard]] SQLRETURN OnStatement(SQLHSTMT handle, FunctionId function, Body body) {
  auto& statement = *static_cast<Statement*>(handle);
  return RunCall(statement.connection(), statement, function, [&] { return body(statement); });
}

template <class Body>
[[nodiscard]] SQLRETURN OnConnection(SQLHDBC handle, FunctionId function, Body body) {
  auto& connection = *static_cast<Connection*>(handle);
  return RunCall(connection, connection, function, [&] { return body(connection); });
}

}  // namespace catalogsim
