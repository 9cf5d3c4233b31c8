// Functions, procedures, operators and aggregates.
#include "importer/workbook/functions.h"

#include "importer/workbook/first_match_index.h"

LcWorkbookProcedure::LcWorkbookProcedure() = default;
LcWorkbookProcedure::LcWorkbookProcedure(const std::u16string& owner, const std::u16string& name)
    : owner_(owner), name_(name) {}
LcWorkbookProcedure::~LcWorkbookProcedure() = default;
const char* LcWorkbookProcedure::GetRuntimeClass() const { return "LcWorkbookProcedure"; }

LcWorkbookFunctionOverload::LcWorkbookFunctionOverload() = default;
LcWorkbookFunctionOverload::LcWorkbookFunctionOverload(const std::u16string& signature,
                                                       const std::u16string& result)
    : signature_(signature), result_(result) {}
LcWorkbookFunctionOverload::~LcWorkbookFunctionOverload() = default;
const char* LcWorkbookFunctionOverload::GetRuntimeClass() const {
  return "LcWorkbookFunctionOverload";
}

LcWorkbookFunction::LcWorkbookFunction() = default;
LcWorkbookFunction::LcWorkbookFunction(const std::u16string& owner, const std::u16string& name)
    : owner_(owner), name_(name) {}
LcWorkbookFunction::~LcWorkbookFunction() = default;
const char* LcWorkbookFunction::GetRuntimeClass() const { return "LcWorkbookFunction"; }

void LcWorkbookFunction::SetName(const std::u16string& name) {
  if (name_ == name) return;
  name_ = name;
  if (indexing_list_ != nullptr) indexing_list_->OnChanged();
}

void LcWorkbookFunction::SetOwner(const std::u16string& owner) {
  if (owner_ == owner) return;
  owner_ = owner;
  if (indexing_list_ != nullptr) indexing_list_->OnChanged();
}

void LcWorkbookFunction::AddFunctionOverload(LcWorkbookFunctionOverload* overload) {
  std::unique_ptr<LcWorkbookFunctionOverload> owned(overload);  // also where there is no room
  if (owned != nullptr) overloads_.push_back(std::move(owned));
}

struct LcWorkbookFunctionList::Index {
  TextIndex<LcWorkbookFunction> by_name;
};

LcWorkbookFunctionList::LcWorkbookFunctionList() : index_(std::make_unique<Index>()) {}
LcWorkbookFunctionList::~LcWorkbookFunctionList() { LcWorkbookFunctionList::OnClearing(); }

LcWorkbookFunction* LcWorkbookFunctionList::FindFunction(const std::u16string& owner,
                                                         const std::u16string& name) const {
  const auto entry_at = [this](std::size_t at) {
    LcWorkbookFunction* function = GetAt(at);
    // From here on the function tells of a new name; the list stays logically unchanged.
    if (function != nullptr) function->indexing_list_ = const_cast<LcWorkbookFunctionList*>(this);
    return function;
  };
  index_->by_name.TakeIn(GetCount(), entry_at, [](const LcWorkbookFunction& f) {
    return TextKey{f.owner_, f.name_};
  });
  return index_->by_name.Find({owner, name});
}

void LcWorkbookFunctionList::OnChanged() { index_->by_name.Clear(); }

void LcWorkbookFunctionList::OnClearing() {
  for (LcWorkbookFunction* function : Present()) function->indexing_list_ = nullptr;
}

LcWorkbookOperator::LcWorkbookOperator(const std::u16string& name,
                                       const std::u16string& description)
    : name_(name), description_(description) {}
LcWorkbookOperator::~LcWorkbookOperator() = default;
const char* LcWorkbookOperator::GetRuntimeClass() const { return "LcWorkbookOperator"; }

LcWorkbookAggregate::LcWorkbookAggregate(const std::u16string& name,
                                         const std::u16string& description)
    : name_(name), description_(description) {}
LcWorkbookAggregate::~LcWorkbookAggregate() = default;
const char* LcWorkbookAggregate::GetRuntimeClass() const { return "LcWorkbookAggregate"; }
