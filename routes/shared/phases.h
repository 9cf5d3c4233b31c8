// The skeleton of a route: a table of its phases, and the one place where a run begins and ends and
// where exceptions are caught.
//
// A route is a class with a table of Phase, the operations of the table, and these members:
//   static constexpr bool kReportsEnd;  // whether the host hears of the end of a whole import
//   void Release();                     // drops what the run has held, whatever ended it
//   bool result = true;                 // what the last phase that has a result gave
// Its entry operation makes one and hands it to RunRoute.
#pragma once

#include <cxxabi.h>

#include <cstdint>
#include <new>

#include "session/session.h"

namespace odbcimport {

constexpr std::uint32_t kWhateverIsWanted = 0;

template <class Route>
struct Phase {
  std::uint32_t items;  // runs when the host wants any of these; kWhateverIsWanted: always
  const char* name;
  // False when the import ends with it: the host has stopped it, or what follows would be wrong.
  bool (Route::*run)();
};

// Takes down in the workbook that what follows was not read, and why. Does without where there is
// no memory even for that.
void NoteEarlyEnd(ImportSession& session, const char16_t* reason) noexcept;

// Runs the phases in their order. Returns the route's result, false when memory ran out, the host
// threw or its callback took something out of the workbook; `status` as in
// LcODBCWorkbookImport::ImportItems. What was read before an early end stays in the workbook. Lets
// no exception out, but for a callback's that ends its thread: that goes on to the thread's end.
// The runtime hands over a null reference where a thread ends, which nobody looks at.
template <class Route, std::size_t kCount>
[[nodiscard]] __attribute__((no_sanitize("null"))) bool RunRoute(
    ImportSession& session, Route& route, const Phase<Route> (&phases)[kCount],
    unsigned short& status) {
  session.progress.BeginRoute();
  try {
    session.progress.StatusDialog(inImportStart);
    bool goes_on = true;
    for (const Phase<Route>& phase : phases) {
      if (phase.items != kWhateverIsWanted && !session.HasItem(phase.items)) continue;
      goes_on = (route.*phase.run)();
      if (!goes_on) break;
    }
    if (goes_on && Route::kReportsEnd) session.progress.StatusDialog(inImportEnd);
  } catch (const std::bad_alloc&) {
    route.result = false;
    route.Release();  // makes room for the note
    NoteEarlyEnd(session, u"memory ran out");
  } catch (const ListsChanged&) {
    route.result = false;
    NoteEarlyEnd(session, u"the host took out of the workbook what was in use");
  } catch (const abi::__forced_unwind&) {
    route.Release();
    session.progress.EndRoute(status);
    throw;  // whoever catches it and does not is ended by the runtime, and the process with it
  } catch (...) {
    route.result = false;
  }
  route.Release();
  session.progress.EndRoute(status);
  return route.result;
}

}  // namespace odbcimport
