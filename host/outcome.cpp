// How a run of the program ends.
#include "host/outcome.h"

namespace wbhost {

void Outcome::Add(ExitCode code) {
  if (code != ExitCode::kOk) seen_ |= Bit(code);
}

ExitCode Outcome::Code() const {
  for (const ExitCode code :
       {ExitCode::kConnection, ExitCode::kOutput, ExitCode::kUsage, ExitCode::kCancelled,
        ExitCode::kStopped, ExitCode::kImportFalse, ExitCode::kErrorsShown}) {
    if (Has(code)) return code;
  }
  return ExitCode::kOk;
}

}  // namespace wbhost
