// How a catalogue of built-in functions gets into the workbook.
#include "catalogues/function_walk.h"

#include <memory>
#include <string>

#include "base/ascii.h"
#include "base/text.h"

namespace odbcimport {

void AddSystemFunctions(ImportSession& session, std::span<const FunctionRow> rows,
                        unsigned long announced) {
  LcWorkbookFunctionList* functions = session.sink.functions();
  if (functions == nullptr) return;
  // Without an owner even on Informix, whose catalog lists its own functions under "informix".
  const std::u16string owner;
  session.progress.StatusDialog(inLoopStart, iiGeneralFunctions, announced);
  LcWorkbookFunction* function = nullptr;
  for (const FunctionRow& row : rows) {
    const std::u16string name(row.name);
    const std::u16string signature(row.signature);
    if (function == nullptr || !base::EqualIgnoringCase(function->GetName(), name)) {
      function = functions->Append(std::make_unique<LcWorkbookFunction>(owner, name));
    }
    function->AddFunctionOverload(
        std::make_unique<LcWorkbookFunctionOverload>(signature, std::u16string(row.result))
            .release());
    session.progress.StatusDialog(inSystemFunctionItem, iiNone, 0, owner.c_str(), name.c_str(),
                                  signature.c_str());
  }
  session.progress.StatusDialog(inLoopEnd);
}

}  // namespace odbcimport
