// Lists of data types with their look-ups.
#include <array>

#include "importer/workbook/datatype_state.h"
#include "importer/workbook/first_match_index.h"

namespace {

// Lower case of the letters that type names are made of; others stay as they are.
char16_t Lower(char16_t c) {
  const bool ascii = c >= u'A' && c <= u'Z';
  const bool latin_1 = c >= 0xC0 && c <= 0xDE && c != 0xD7;
  const bool greek_or_cyrillic = (c >= 0x391 && c <= 0x3A9) || (c >= 0x410 && c <= 0x42F);
  return static_cast<char16_t>(ascii || latin_1 || greek_or_cyrillic ? c + 0x20 : c);
}

bool SameIgnoringCase(std::u16string_view a, std::u16string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (Lower(a[i]) != Lower(b[i])) return false;
  }
  return true;
}

std::size_t HashIgnoringCase(std::u16string_view text) {
  std::size_t hash = 0xCBF29CE484222325U;
  for (const char16_t c : text) hash = (hash ^ Lower(c)) * 0x100000001B3U;
  return hash;
}

std::size_t HashCode(long code) { return static_cast<std::size_t>(code); }

// What a look-up compares: a text (case ignored or not), a number, or both.
struct Key {
  std::u16string_view text;
  long number = 0;
};

bool IgnoresCase(LeDatatypeLookup lookup) {
  return lookup == kByPhysicalName || lookup == kByPhysicalCodeAndName;
}

bool Same(LeDatatypeLookup lookup, const Key& a, const Key& b) {
  return a.number == b.number &&
         (IgnoresCase(lookup) ? SameIgnoringCase(a.text, b.text) : a.text == b.text);
}

std::size_t Hash(LeDatatypeLookup lookup, const Key& key) {
  return HashPair(IgnoresCase(lookup) ? HashIgnoringCase(key.text) : HashText(key.text),
                  HashCode(key.number));
}

Key KeyOf(LeDatatypeLookup lookup, const LcWorkbookDatatype& type) {
  switch (lookup) {
    case kByTypeName:
    case kByPhysicalName:
      return {type.GetTypeName()};
    case kByOtherTypeName:
      return {type.GetOtherTypeName()};
    case kByName:
      return {type.GetName()};
    case kByExtendedTypeName:
      return {type.GetExtendedTypeName(0)};
    case kByPhysicalCode:
      return {{}, type.GetPhysicalCode()};
    case kByPhysicalCodeAndName:
      return {type.GetTypeName(), type.GetPhysicalCode()};
    case kByExtendedId:
      return {{}, type.GetExtendedId()};
    case kLookupCount:
      break;
  }
  return {};
}

}  // namespace

struct LcWorkbookDatatypeList::Index {
  struct Lookup {
    FirstMatchIndex positions;
    std::uint64_t changes_seen = 0;
  };
  std::array<Lookup, kLookupCount> lookups;
  std::shared_ptr<LcDatatypeChanges> changes = std::make_shared<LcDatatypeChanges>();

  LcWorkbookDatatype* Find(const LcWorkbookDatatypeList& list, LeDatatypeLookup lookup,
                           const Key& key) {
    FirstMatchIndex& positions = lookups[lookup].positions;
    if (lookups[lookup].changes_seen != changes->count[lookup]) {
      positions.Clear();
      lookups[lookup].changes_seen = changes->count[lookup];
    }
    positions.TakeIn(
        list.GetCount(),
        [&](std::size_t at) {
          LcWorkbookDatatype* type = list.GetAt(at);
          if (type == nullptr) return false;
          type->StartIndexing(changes);
          // A type without extended names is not one whose extended name is empty.
          return lookup != kByExtendedTypeName || type->GetExtendedTypeNameCount() > 0;
        },
        [&](std::size_t at) { return Hash(lookup, KeyOf(lookup, *list.GetAt(at))); },
        [&](std::size_t a, std::size_t b) {
          return Same(lookup, KeyOf(lookup, *list.GetAt(a)), KeyOf(lookup, *list.GetAt(b)));
        });
    return list.GetAt(positions.Find(Hash(lookup, key), [&](std::size_t at) {
      return Same(lookup, KeyOf(lookup, *list.GetAt(at)), key);
    }));
  }
};

LcWorkbookDatatypeList::LcWorkbookDatatypeList() : index_(std::make_unique<Index>()) {}

LcWorkbookDatatypeList::LcWorkbookDatatypeList(const LcWorkbookDatatypeList& other)
    : LcObjectList<LcWorkbookDatatype>(other), index_(std::make_unique<Index>()) {
  index_->changes = other.index_->changes;
}

LcWorkbookDatatypeList& LcWorkbookDatatypeList::operator=(const LcWorkbookDatatypeList& other) {
  if (this == &other) return *this;
  LcObjectList<LcWorkbookDatatype>::operator=(other);
  index_ = std::make_unique<Index>();
  index_->changes = other.index_->changes;
  return *this;
}

LcWorkbookDatatypeList::~LcWorkbookDatatypeList() = default;
const char* LcWorkbookDatatypeList::GetRuntimeClass() const { return "LcWorkbookDatatypeList"; }
void LcWorkbookDatatypeList::Serialize(LcArchive& /*archive*/) {}
void LcWorkbookDatatypeList::AssertValid() const {}
void LcWorkbookDatatypeList::Dump(std::ostream& /*out*/) const {}

void LcWorkbookDatatypeList::AddDataType(LcWorkbookDatatype* type) {
  Append(std::unique_ptr<LcWorkbookDatatype>(type));
}

LcWorkbookDatatype* LcWorkbookDatatypeList::GetDataTypeByName(const std::u16string& name,
                                                              enumTypeNameType kind) const {
  switch (kind) {
    case tnTypeName:
      return index_->Find(*this, kByTypeName, {name});
    case tnOtherTypeName:
      return index_->Find(*this, kByOtherTypeName, {name});
    case tnName:
      return index_->Find(*this, kByName, {name});
    case tnExtendedTypeName:
      return index_->Find(*this, kByExtendedTypeName, {name});
  }
  return nullptr;
}

LcWorkbookDatatype* LcWorkbookDatatypeList::GetDataTypeByPhysicalCode(int code,
                                                                      const char16_t* name) const {
  if (name == nullptr) return index_->Find(*this, kByPhysicalCode, {{}, code});
  return index_->Find(*this, kByPhysicalCodeAndName, {name, code});
}

LcWorkbookDatatype* LcWorkbookDatatypeList::GetDataTypeByPhysicalName(
    const std::u16string& name) const {
  return index_->Find(*this, kByPhysicalName, {name});
}

LcWorkbookDatatype* LcWorkbookDatatypeList::GetDataTypeByExtendedId(long id) const {
  return index_->Find(*this, kByExtendedId, {{}, id});
}

void LcWorkbookDatatypeList::OnChanged() {
  for (Index::Lookup& lookup : index_->lookups) lookup.positions.Clear();
}
