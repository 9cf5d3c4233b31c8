// The table of routes. When each is taken stands in route_decision.cpp.
#include "importer/routes.h"

#include "routes/exact/exact_import.h"
#include "routes/generic/generic_route.h"
#include "routes/informix/informix_route.h"
#include "routes/native/native_route.h"

namespace odbcimport {
namespace {

using RouteKind = LcODBCWorkbookImport::RouteKind;

// clang-format off
//   kind                  name         catalog   lists   lists
//                                      functions owners  columns  run
constexpr RouteRow kRoutes[] = {
    {{RouteKind::kODBC,     u"odbc",     true,     true,   true},   generic::ImportODBCItems},
    {{RouteKind::kInformix, u"informix", false,    false,  true},   informix::ImportInformixItems},
    {{RouteKind::kNative,   u"native",   false,    false,  false},  native::ImportNativeItems},
    {{RouteKind::kExact,    u"exact",    false,    true,   true},   exact::ImportExactItems},
};
// clang-format on

}  // namespace

const RouteRow& FindRoute(RouteKind kind) {
  for (const RouteRow& row : kRoutes) {
    if (row.kind == kind) return row;
  }
  return kRoutes[0];
}

}  // namespace odbcimport
