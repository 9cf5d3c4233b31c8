// The skeleton of a route: a table of its phases, and the one place where a run begins and ends and
// where exceptions are caught.
//
// A route is a class with a table of Phase, the operations of the table, and these members:
//   static constexpr bool kReportsEnd;  // whether the host hears of the end of a whole import
//   void Release();                     // drops what the run has held, whatever ended it
//   bool result = true;                 // what the last phase that has a result gave
// Its entry operation makes one and hands it to RunRoute.
#pragma once

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

// Takes down in the workbook that what follows was not read. Does without where there is no memory
// even for that.
void NoteOutOfMemory(ImportSession& session) noexcept;

// Runs the phases in their order. Returns the route's result, false when memory ran out or the host
// threw; `status` as in LcODBCWorkbookImport::ImportItems. What was read before an early end stays
// in the workbook. Lets no exception out.
template <class Route, std::size_t kCount>
[[nodiscard]] bool RunRoute(ImportSession& session, Route& route,
                            const Phase<Route> (&phases)[kCount], unsigned short& status) {
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
    NoteOutOfMemory(session);
  } catch (...) {
    route.result = false;
  }
  route.Release();
  session.progress.EndRoute(status);
  return route.result;
}

}  // namespace odbcimport
