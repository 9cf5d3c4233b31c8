// Lists of data types with their look-ups.
#include <algorithm>
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

// Recasts `text` into `lowered`, which the result refers to.
std::u16string_view Lowered(std::u16string_view text, std::u16string& lowered) {
  lowered.resize(text.size());
  std::transform(text.begin(), text.end(), lowered.begin(), Lower);
  return lowered;
}

bool IsByNumber(LeDatatypeLookup lookup) {
  return lookup == kByPhysicalCode || lookup == kByExtendedId;
}

}  // namespace

struct LcWorkbookDatatypeList::Index {
  // One of the two indexes is used.
  struct Lookup {
    TextIndex<LcWorkbookDatatype> by_text;
    NumberIndex<LcWorkbookDatatype> by_number;
    std::uint64_t changes_seen = 0;
  };
  std::array<Lookup, kLookupCount> lookups;
  std::shared_ptr<LcDatatypeChanges> changes = std::make_shared<LcDatatypeChanges>();
  std::u16string lowered;
  std::array<char16_t, 2> code_text;

  void Clear(Lookup& lookup) {
    lookup.by_text.Clear();
    lookup.by_number.Clear();
  }

  TextKey CodeAndName(int code, std::u16string_view name) {
    code_text = {static_cast<char16_t>(code), static_cast<char16_t>(code >> 16)};
    return {{code_text.data(), code_text.size()}, Lowered(name, lowered)};
  }

  TextKey TextOf(LeDatatypeLookup lookup, const LcWorkbookDatatype& type) {
    switch (lookup) {
      case kByOtherTypeName:
        return {{}, type.GetOtherTypeName()};
      case kByName:
        return {{}, type.GetName()};
      case kByExtendedTypeName:
        return {{}, type.GetExtendedTypeName(0)};
      case kByPhysicalName:
        return {{}, Lowered(type.GetTypeName(), lowered)};
      case kByPhysicalCodeAndName:
        return CodeAndName(type.GetPhysicalCode(), type.GetTypeName());
      default:
        return {{}, type.GetTypeName()};
    }
  }

  // The look-up's index with every type of the list.
  Lookup& Prepare(const LcWorkbookDatatypeList& list, LeDatatypeLookup by) {
    Lookup& lookup = lookups[by];
    if (lookup.changes_seen != changes->count[by]) {
      Clear(lookup);
      lookup.changes_seen = changes->count[by];
    }
    const auto entry_at = [&](std::size_t at) {
      LcWorkbookDatatype* type = list.GetAt(at);
      if (type != nullptr) type->StartIndexing(changes);
      // A type without extended names is not one whose extended name is empty.
      const bool has_key =
          type != nullptr && (by != kByExtendedTypeName || type->GetExtendedTypeNameCount() > 0);
      return has_key ? type : nullptr;
    };
    if (IsByNumber(by)) {
      lookup.by_number.TakeIn(list.GetCount(), entry_at, [&](const LcWorkbookDatatype& type) {
        return by == kByExtendedId ? type.GetExtendedId() : long{type.GetPhysicalCode()};
      });
    } else {
      lookup.by_text.TakeIn(list.GetCount(), entry_at,
                            [&](const LcWorkbookDatatype& type) { return TextOf(by, type); });
    }
    return lookup;
  }

  LcWorkbookDatatype* Find(const LcWorkbookDatatypeList& list, LeDatatypeLookup by,
                           std::u16string_view text) {
    return Prepare(list, by).by_text.Find({{}, text});
  }
  LcWorkbookDatatype* Find(const LcWorkbookDatatypeList& list, LeDatatypeLookup by, long number) {
    return Prepare(list, by).by_number.Find(number);
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
      return index_->Find(*this, kByTypeName, name);
    case tnOtherTypeName:
      return index_->Find(*this, kByOtherTypeName, name);
    case tnName:
      return index_->Find(*this, kByName, name);
    case tnExtendedTypeName:
      return index_->Find(*this, kByExtendedTypeName, name);
  }
  return nullptr;
}

LcWorkbookDatatype* LcWorkbookDatatypeList::GetDataTypeByPhysicalCode(int code,
                                                                      const char16_t* name) const {
  if (name == nullptr) return index_->Find(*this, kByPhysicalCode, code);
  auto& by_text = index_->Prepare(*this, kByPhysicalCodeAndName).by_text;
  return by_text.Find(index_->CodeAndName(code, name));
}

LcWorkbookDatatype* LcWorkbookDatatypeList::GetDataTypeByPhysicalName(
    const std::u16string& name) const {
  auto& by_text = index_->Prepare(*this, kByPhysicalName).by_text;
  return by_text.Find({{}, Lowered(name, index_->lowered)});
}

LcWorkbookDatatype* LcWorkbookDatatypeList::GetDataTypeByExtendedId(long id) const {
  return index_->Find(*this, kByExtendedId, id);
}

void LcWorkbookDatatypeList::OnChanged() {
  for (Index::Lookup& lookup : index_->lookups) index_->Clear(lookup);
}
