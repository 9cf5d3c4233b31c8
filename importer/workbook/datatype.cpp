// Data types: contents that copies share until one of them changes.
#include "importer/workbook/datatype.h"

#include <memory>
#include <utility>

#include "importer/workbook/datatype_state.h"

LcWorkbookDatatype::LcWorkbookDatatype() : state_(new State) {}
LcWorkbookDatatype::~LcWorkbookDatatype() { LetGo(); }
const char* LcWorkbookDatatype::GetRuntimeClass() const { return "LcWorkbookDatatype"; }

LcWorkbookDatatype::LcWorkbookDatatype(const LcWorkbookDatatype& other)
    : LcObject(other),
      state_(other.state_),
      length_(other.length_),
      precision_(other.precision_),
      scale_(other.scale_),
      long_(other.long_),
      size_modifiable_(other.size_modifiable_) {
  state_->users.count.fetch_add(1, std::memory_order_relaxed);
}

void LcWorkbookDatatype::LetGo() {
  if (state_->users.count.fetch_sub(1, std::memory_order_acq_rel) == 1) delete state_;
}

LcWorkbookDatatype* LcWorkbookDatatype::Copy() const { return new LcWorkbookDatatype(*this); }

LcWorkbookDatatype::State& LcWorkbookDatatype::Change() {
  // Another thread that let go of its copy has done its reads.
  if (state_->users.count.load(std::memory_order_acquire) > 1) {
    State* own = new State(*state_);
    if (!indexed_) own->changes = nullptr;
    LetGo();
    state_ = own;
  }
  return *state_;
}

void LcWorkbookDatatype::StartIndexing(const std::shared_ptr<LcDatatypeChanges>& changes) {
  if (indexed_ && state_->changes == changes) return;
  Change().changes = changes;
  indexed_ = true;
}

// Records a new value. `lookups` are the look-ups that go by the field.
template <class T>
void LcWorkbookDatatype::Set(T State::*field, const T& value, unsigned lookups) {
  if (*state_.*field == value) return;
  Change().*field = value;
  Changed(lookups);
}

void LcWorkbookDatatype::Changed(unsigned lookups) {
  if (indexed_ && lookups != 0) state_->changes->Count(lookups);
}

void LcWorkbookDatatype::SetName(const std::u16string& name) {
  Set(&State::name, name, LookupBit(kByName));
}
const std::u16string& LcWorkbookDatatype::GetName() const { return state_->name; }

void LcWorkbookDatatype::SetTypeName(const std::u16string& name) {
  Set(&State::type_name, name,
      LookupBit(kByTypeName) | LookupBit(kByPhysicalName) | LookupBit(kByPhysicalCodeAndName));
}
const std::u16string& LcWorkbookDatatype::GetTypeName() const { return state_->type_name; }

void LcWorkbookDatatype::SetOtherTypeName(const std::u16string& name) {
  Set(&State::other_type_name, name, LookupBit(kByOtherTypeName));
}
const std::u16string& LcWorkbookDatatype::GetOtherTypeName() const {
  return state_->other_type_name;
}

void LcWorkbookDatatype::SetOwner(const std::u16string& owner) { Set(&State::owner, owner); }
const std::u16string& LcWorkbookDatatype::GetOwner() const { return state_->owner; }
void LcWorkbookDatatype::SetDatabaseType(const LcText& type) { Set(&State::database_type, type); }
const LcText& LcWorkbookDatatype::GetDatabaseType() const { return state_->database_type; }

void LcWorkbookDatatype::SetPhysicalCode(int code) {
  Set(&State::physical_code, code, LookupBit(kByPhysicalCode) | LookupBit(kByPhysicalCodeAndName));
}
int LcWorkbookDatatype::GetPhysicalCode() const { return state_->physical_code; }

void LcWorkbookDatatype::SetGenericCode(enumDataType code) { Set(&State::generic_code, code); }
enumDataType LcWorkbookDatatype::GetGenericCode() const { return state_->generic_code; }
void LcWorkbookDatatype::SetTypeGroup(enumDataTypeGroup group) { Set(&State::type_group, group); }
enumDataTypeGroup LcWorkbookDatatype::GetTypeGroup() const { return state_->type_group; }

void LcWorkbookDatatype::SetBaseCode(int code) { Set(&State::base_code, code); }
int LcWorkbookDatatype::GetBaseCode() const { return state_->base_code; }
void LcWorkbookDatatype::SetBaseOwner(const std::u16string& owner) {
  Set(&State::base_owner, owner);
}
const std::u16string& LcWorkbookDatatype::GetBaseOwner() const { return state_->base_owner; }
void LcWorkbookDatatype::SetBaseExtendedTypeName(const std::u16string& name) {
  Set(&State::base_extended_type_name, name);
}
const std::u16string& LcWorkbookDatatype::GetBaseExtendedTypeName() const {
  return state_->base_extended_type_name;
}
void LcWorkbookDatatype::SetGenericBaseCode(enumDataType code) {
  Set(&State::generic_base_code, code);
}
enumDataType LcWorkbookDatatype::GetGenericBaseCode() const { return state_->generic_base_code; }
void LcWorkbookDatatype::SetBaseTypeGroup(enumDataTypeGroup group) {
  Set(&State::base_type_group, group);
}
enumDataTypeGroup LcWorkbookDatatype::GetBaseTypeGroup() const { return state_->base_type_group; }
void LcWorkbookDatatype::SetDistinct(bool distinct) { Set(&State::distinct, distinct); }
bool LcWorkbookDatatype::IsDistinct() const { return state_->distinct; }

void LcWorkbookDatatype::SetExtendedId(long id) {
  Set(&State::extended_id, id, LookupBit(kByExtendedId));
}
long LcWorkbookDatatype::GetExtendedId() const { return state_->extended_id; }

void LcWorkbookDatatype::SetExtendedTypeName(const std::u16string& name, unsigned position) {
  const auto& names = state_->extended_type_names;
  if (position < names.size() && names[position] == name) return;
  auto& changed = Change().extended_type_names;
  if (position >= changed.size()) changed.resize(std::size_t{position} + 1);
  changed[position] = name;
  Changed(LookupBit(kByExtendedTypeName));
}

void LcWorkbookDatatype::AddExtendedTypeName(const std::u16string& name) {
  SetExtendedTypeName(name, static_cast<unsigned>(state_->extended_type_names.size()));
}

const std::u16string& LcWorkbookDatatype::GetExtendedTypeName(int position) const {
  static const std::u16string no_name;
  const auto& names = state_->extended_type_names;
  if (position < 0 || static_cast<std::size_t>(position) >= names.size()) return no_name;
  return names[static_cast<std::size_t>(position)];
}

int LcWorkbookDatatype::GetExtendedTypeNameCount() const {
  return static_cast<int>(state_->extended_type_names.size());
}

void LcWorkbookDatatype::AddComponent(LcWorkbookDatatype* component) {
  std::shared_ptr<const LcWorkbookDatatype> owned(component);  // also where there is no room
  if (owned != nullptr) Change().components.push_back(std::move(owned));
}

int LcWorkbookDatatype::GetComponentCount() const {
  return static_cast<int>(state_->components.size());
}

const LcWorkbookDatatype* LcWorkbookDatatype::GetComponent(int position) const {
  const auto& components = state_->components;
  if (position < 0 || static_cast<std::size_t>(position) >= components.size()) return nullptr;
  return components[static_cast<std::size_t>(position)].get();
}
