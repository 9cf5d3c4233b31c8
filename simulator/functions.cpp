// See functions.h.
#include "simulator/functions.h"

#include "simulator/text.h"

namespace catalogsim {

FunctionId FunctionByName(std::string_view name) {
  for (const Function& function : kFunctions)
    if (EqualIgnoringCase(function.name, name)) return function.id;
  return 0;
}

std::string_view FunctionName(FunctionId id) {
  for (const Function& function : kFunctions)
    if (function.id == id) return function.name;
  return "?";
}

}  // namespace catalogsim
