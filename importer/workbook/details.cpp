#include "importer/workbook/details.h"

#include <algorithm>

namespace {

template <class Enum>
struct Named {
  Enum value;
  const char16_t* name;
};

constexpr Named<LeTableKind> kTableKinds[] = {
    {tkTable, u"table"},
    {tkView, u"view"},
    {tkMaterializedView, u"materialized view"},
    {tkPartitionedTable, u"partitioned table"},
    {tkPartition, u"partition"},
    {tkForeignTable, u"foreign table"},
    {tkTemporaryTable, u"temporary table"},
    {tkSystemTable, u"system table"},
    {tkSynonym, u"synonym"},
};
constexpr Named<LeGenerated> kGenerated[] = {{gnStored, u"stored"}, {gnVirtual, u"virtual"}};
constexpr Named<LeIdentity> kIdentities[] = {
    {idAlways, u"always"}, {idByDefault, u"by default"}, {idAutoIncrement, u"auto increment"}};
constexpr Named<LeKeyKind> kKeyKinds[] = {{kkPrimary, u"primary"}, {kkUnique, u"unique"}};
constexpr Named<LeDeferrable> kDeferrables[] = {{dfImmediate, u"immediate"},
                                                {dfDeferred, u"deferred"}};
constexpr Named<LeTypeKind> kTypeKinds[] = {{tyEnum, u"enum"},
                                            {tyDomain, u"domain"},
                                            {tyComposite, u"composite"},
                                            {tyRange, u"range"},
                                            {tyDistinct, u"distinct"}};
constexpr Named<LeRoutineKind> kRoutineKinds[] = {{rkFunction, u"function"},
                                                  {rkProcedure, u"procedure"},
                                                  {rkAggregate, u"aggregate"},
                                                  {rkWindow, u"window"}};

template <class Enum, std::size_t N>
const char16_t* NameIn(const Named<Enum> (&table)[N], Enum value) {
  for (const Named<Enum>& row : table) {
    if (row.value == value) return row.name;
  }
  return nullptr;
}

template <class Enum, std::size_t N>
bool FindIn(const Named<Enum> (&table)[N], std::u16string_view name, Enum& value) {
  for (const Named<Enum>& row : table) {
    if (row.name != name) continue;
    value = row.value;
    return true;
  }
  return false;
}

}  // namespace

const char16_t* LcNameOf(LeTableKind kind) { return NameIn(kTableKinds, kind); }
const char16_t* LcNameOf(LeGenerated generated) { return NameIn(kGenerated, generated); }
const char16_t* LcNameOf(LeIdentity identity) { return NameIn(kIdentities, identity); }
const char16_t* LcNameOf(LeKeyKind kind) { return NameIn(kKeyKinds, kind); }
const char16_t* LcNameOf(LeDeferrable deferrable) { return NameIn(kDeferrables, deferrable); }
const char16_t* LcNameOf(LeTypeKind kind) { return NameIn(kTypeKinds, kind); }
const char16_t* LcNameOf(LeRoutineKind kind) { return NameIn(kRoutineKinds, kind); }

bool LcFindByName(std::u16string_view name, LeTableKind& value) {
  return FindIn(kTableKinds, name, value);
}
bool LcFindByName(std::u16string_view name, LeGenerated& value) {
  return FindIn(kGenerated, name, value);
}
bool LcFindByName(std::u16string_view name, LeIdentity& value) {
  return FindIn(kIdentities, name, value);
}
bool LcFindByName(std::u16string_view name, LeKeyKind& value) {
  return FindIn(kKeyKinds, name, value);
}
bool LcFindByName(std::u16string_view name, LeDeferrable& value) {
  return FindIn(kDeferrables, name, value);
}
bool LcFindByName(std::u16string_view name, LeTypeKind& value) {
  return FindIn(kTypeKinds, name, value);
}
bool LcFindByName(std::u16string_view name, LeRoutineKind& value) {
  return FindIn(kRoutineKinds, name, value);
}

LcOptions::LcOptions(const LcOptions& other)
    : options_(other.options_ ? std::make_unique<List>(*other.options_) : nullptr) {}

LcOptions& LcOptions::operator=(LcOptions other) noexcept {
  options_ = std::move(other.options_);
  return *this;
}

void LcOptions::Set(const LcText& name, const LcText& value) {
  if (options_ == nullptr) options_ = std::make_unique<List>();
  const auto at = std::lower_bound(options_->begin(), options_->end(), name,
                                   [](const Option& option, const LcText& wanted) {
                                     return option.name.View() < wanted.View();
                                   });
  if (at != options_->end() && at->name == name) {
    at->value = value;
  } else {
    options_->insert(at, {name, value});
  }
}

LcText LcOptions::Find(std::u16string_view name) const {
  for (const Option& option : All()) {
    if (option.name.View() == name) return option.value;
  }
  return {};
}

const LcOptions::List& LcOptions::All() const {
  static const List none;
  return options_ != nullptr ? *options_ : none;
}
