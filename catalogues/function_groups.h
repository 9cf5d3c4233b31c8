// Catalogues that repeat a signature for many types are written as groups, one line for all of its
// types. FunctionExpansion turns the groups into a catalogue's rows at compile time.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "catalogues/function_walk.h"

namespace odbcimport {

using TypeSequence = std::span<const std::u16string_view>;

// A type of a sequence whose result is not the group's.
struct ResultException {
  std::u16string_view type;
  std::u16string_view result;
};

// Overloads that differ in one type. In `signature` and `result` a '$' stands for that type.
struct FunctionGroup {
  std::u16string_view name;
  std::u16string_view signature;
  std::u16string_view result;
  TypeSequence types = {};  // empty: one row, without a '$'
  std::span<const ResultException> exceptions = {};
};

[[nodiscard]] constexpr bool EveryGroup(const FunctionGroup&) { return true; }

// The rows, `kRows`, of those groups of the array `kGroups` that `kTaken` says yes to.
template <const auto& kGroups, auto kTaken = EveryGroup>
class FunctionExpansion {
  // Calls visit(group, type) for each row.
  template <class Visit>
  static constexpr void ForEachRow(Visit visit) {
    for (const auto& group : kGroups) {
      if (!kTaken(group)) continue;
      if (group.types.empty()) visit(group, std::u16string_view());
      for (std::u16string_view type : group.types) visit(group, type);
    }
  }
  // Calls put(character) for each character of a row's signature.
  template <class Put>
  static constexpr void Substitute(const FunctionGroup& group, std::u16string_view type, Put put) {
    for (char16_t c : group.signature) {
      if (c != u'$') {
        put(c);
      } else {
        for (char16_t t : type) put(t);
      }
    }
  }
  [[nodiscard]] static constexpr std::u16string_view Result(const FunctionGroup& group,
                                                            std::u16string_view type) {
    for (const ResultException& exception : group.exceptions) {
      if (exception.type == type) return exception.result;
    }
    return group.result == u"$" ? type : group.result;
  }

  struct Size {
    std::size_t rows = 0;
    std::size_t characters = 0;
  };
  [[nodiscard]] static constexpr Size Measure() {
    Size size;
    ForEachRow([&](const FunctionGroup& group, std::u16string_view type) {
      ++size.rows;
      Substitute(group, type, [&](char16_t) { ++size.characters; });
    });
    return size;
  }
  static constexpr Size kSize = Measure();

  [[nodiscard]] static constexpr std::array<char16_t, kSize.characters> WriteSignatures() {
    std::array<char16_t, kSize.characters> text{};
    std::size_t at = 0;
    ForEachRow([&](const FunctionGroup& group, std::u16string_view type) {
      Substitute(group, type, [&](char16_t c) { text[at++] = c; });
    });
    return text;
  }
  // The signatures of all rows, one behind the other.
  static constexpr std::array<char16_t, kSize.characters> kSignatures = WriteSignatures();

  [[nodiscard]] static constexpr std::array<FunctionRow, kSize.rows> MakeRows() {
    std::array<FunctionRow, kSize.rows> rows{};
    std::size_t row = 0;
    std::size_t begin = 0;
    ForEachRow([&](const FunctionGroup& group, std::u16string_view type) {
      std::size_t length = 0;
      Substitute(group, type, [&](char16_t) { ++length; });
      rows[row++] = {group.name, {kSignatures.data() + begin, length}, Result(group, type)};
      begin += length;
    });
    return rows;
  }

 public:
  static constexpr std::array<FunctionRow, kSize.rows> kRows = MakeRows();
};

}  // namespace odbcimport
