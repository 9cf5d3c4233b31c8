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
  if (overload != nullptr) overloads_.emplace_back(overload);
}

struct LcWorkbookFunctionList::Index {
  FirstMatchIndex by_name;
};

LcWorkbookFunctionList::LcWorkbookFunctionList() = default;
LcWorkbookFunctionList::~LcWorkbookFunctionList() { OnClearing(); }

LcWorkbookFunction* LcWorkbookFunctionList::FindFunction(const std::u16string& owner,
                                                         const std::u16string& name) const {
  if (!index_) index_ = std::make_unique<Index>();
  index_->by_name.TakeIn(
      GetCount(),
      [this](std::size_t at) {
        LcWorkbookFunction* function = GetAt(at);
        // From here on the function tells of a new name; the list stays logically unchanged.
        if (function != nullptr) {
          function->indexing_list_ = const_cast<LcWorkbookFunctionList*>(this);
        }
        return function != nullptr;
      },
      [this](std::size_t at) {
        return HashPair(HashText(GetAt(at)->GetOwner()), HashText(GetAt(at)->GetName()));
      },
      [this](std::size_t a, std::size_t b) {
        return GetAt(a)->GetName() == GetAt(b)->GetName() &&
               GetAt(a)->GetOwner() == GetAt(b)->GetOwner();
      });
  const std::size_t at =
      index_->by_name.Find(HashPair(HashText(owner), HashText(name)), [&](std::size_t position) {
        const LcWorkbookFunction* function = GetAt(position);
        return function->GetName() == name && function->GetOwner() == owner;
      });
  return at == FirstMatchIndex::kNotFound ? nullptr : GetAt(at);
}

void LcWorkbookFunctionList::OnChanged() {
  if (index_) index_->by_name.Clear();
}

void LcWorkbookFunctionList::OnClearing() {
  for (LcWorkbookFunction* function : *this) {
    if (function != nullptr) function->indexing_list_ = nullptr;
  }
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
