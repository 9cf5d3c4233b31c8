// The ODBC functions that the module calls, in place of driver manager and driver: a fuzzer's bytes
// say what each call answers, whatever was asked before. It keeps to the sizes of the buffers that
// it is given and to nothing else.
#pragma once

#include "fuzz/input.h"

namespace fuzz {

// Answers from `input`, which is borrowed, for its lifetime. When the bytes run out every result
// ends.
class ScriptedDriver {
 public:
  explicit ScriptedDriver(Input& input);
  ~ScriptedDriver();
  ScriptedDriver(const ScriptedDriver&) = delete;
  ScriptedDriver& operator=(const ScriptedDriver&) = delete;
};

}  // namespace fuzz
