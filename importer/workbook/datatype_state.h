// What copies of a data type share, and how a changed type tells the lists that have indexed it.
// Private to the library.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "importer/workbook/datatype.h"

// The look-ups of a list of data types.
enum LeDatatypeLookup : unsigned {
  kByTypeName,
  kByOtherTypeName,
  kByName,
  kByExtendedTypeName,
  kByPhysicalName,  // the type name, ignoring case
  kByPhysicalCode,
  kByPhysicalCodeAndName,
  kByExtendedId,
  kLookupCount,
};
[[nodiscard]] constexpr unsigned LookupBit(LeDatatypeLookup lookup) { return 1U << lookup; }

// Counts the changes that made an index stale, for a list and its copies, which share their types.
struct LcDatatypeChanges {
  void Count(unsigned lookups) {
    for (unsigned i = 0; i < kLookupCount; ++i) count[i] += (lookups >> i) & 1U;
  }
  std::array<std::uint64_t, kLookupCount> count{};
};

// The sizes are not here but in each type: they are what a column changes on its copy.
struct LcWorkbookDatatype::State {
  LC_POOLED
  // How many types have this state. A copy of a state starts with the one that it is made for.
  struct Users {
    Users() = default;
    Users(const Users& /*other*/) {}
    Users& operator=(const Users&) = delete;
    std::atomic<std::uint32_t> count{1};
  };
  Users users;
  std::u16string name;
  std::u16string type_name;
  std::u16string other_type_name;
  std::u16string owner;
  LcText database_type;
  std::u16string base_owner;
  std::u16string base_extended_type_name;
  std::vector<std::u16string> extended_type_names;
  std::vector<std::shared_ptr<const LcWorkbookDatatype>> components;
  std::shared_ptr<LcDatatypeChanges> changes;  // null until a list has indexed the type
  long extended_id = 0;
  int physical_code = 0;
  int base_code = 0;
  enumDataType generic_code = dtUnknown;
  enumDataType generic_base_code = dtUnknown;
  enumDataTypeGroup type_group = dgCharacter;
  enumDataTypeGroup base_type_group = dgCharacter;
  bool distinct = false;
};
