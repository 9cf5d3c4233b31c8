// simdjson, beside the headers of ODBC, which define BOOL for themselves.
#pragma once

#pragma push_macro("BOOL")
#undef BOOL
#include <simdjson.h>
#pragma pop_macro("BOOL")

namespace catalogsim {
namespace json = simdjson::ondemand;
}  // namespace catalogsim
