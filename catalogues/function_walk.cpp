// How a catalogue of built-in functions gets into the workbook.
#include "catalogues/function_walk.h"

#include <memory>

#include "catalogues/text.h"

namespace odbcimport {

FunctionWalk::FunctionWalk(ImportSession& session, unsigned long announced, const char16_t* owner)
    : session_(session), owner_(owner) {
  if (session_.targets.functions == nullptr) return;
  session_.StatusDialog(inLoopStart, iiGeneralFunctions, announced);
}

void FunctionWalk::Add(const char16_t* name, const char16_t* signature, const char16_t* result) {
  LcWorkbookFunctionList* functions = session_.targets.functions;
  if (functions == nullptr) return;
  if (function_ == nullptr || !EqualIgnoringCase(name_, name)) {
    function_ = functions->Append(std::make_unique<LcWorkbookFunction>(owner_, name));
    name_ = name;
  }
  function_->AddFunctionOverload(
      std::make_unique<LcWorkbookFunctionOverload>(signature, result).release());
  session_.StatusDialog(inSystemFunctionItem, iiNone, 0, owner_, name, signature, true);
}

void FunctionWalk::End() {
  if (session_.targets.functions == nullptr) return;
  session_.StatusDialog(inLoopEnd);
}

bool AddSystemFunctions(ImportSession& session, std::span<const FunctionRow> rows,
                        unsigned long announced, const char16_t* owner) {
  FunctionWalk walk(session, announced, owner);
  for (const FunctionRow& row : rows) walk.Add(row.name, row.signature, row.result);
  walk.End();
  return true;
}

}  // namespace odbcimport
