// Typed access to the fields of a parsed JSON value that knows where in the file it is, so that a
// refusal names the field. Private to the library.
#pragma once

#include <cstdint>
#include <limits>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "base/utf.h"

// Why a file was refused: "tables[3].columns[0].name: expected a text". Does not leave the reader.
struct JsonRefusal {
  std::string why;
};

class JsonField {
 public:
  JsonField(const nlohmann::json& value, const JsonField* parent, std::string_view key)
      : value_(&value), parent_(parent), key_(key) {}
  JsonField(const nlohmann::json& value, const JsonField* parent, std::size_t index)
      : value_(&value), parent_(parent), index_(index) {}

  [[noreturn]] void Refuse(const std::string& reason) const {
    throw JsonRefusal{Path() + ": " + reason};
  }
  [[nodiscard]] std::string Path() const {
    if (key_.empty()) return (parent_ ? parent_->Path() : "") + "[" + std::to_string(index_) + "]";
    return (parent_ ? parent_->Path() + "." : "") + std::string(key_);
  }

  [[nodiscard]] bool IsNull() const { return value_->is_null(); }
  void ExpectObject() const {
    if (!value_->is_object()) Refuse("expected an object");
  }
  [[nodiscard]] std::u16string Text() const {
    if (!value_->is_string()) Refuse("expected a text");
    return base::ToUtf16(value_->get_ref<const std::string&>());
  }
  [[nodiscard]] bool Flag() const {
    if (!value_->is_boolean()) Refuse("expected true or false");
    return value_->get<bool>();
  }
  template <class Integer>
  [[nodiscard]] Integer Number() const {
    constexpr Integer kMin = std::numeric_limits<Integer>::min();
    constexpr Integer kMax = std::numeric_limits<Integer>::max();
    if (value_->is_number_unsigned()) {
      const auto number = value_->get<std::uint64_t>();
      if (number <= static_cast<std::uint64_t>(kMax)) return static_cast<Integer>(number);
    } else if (value_->is_number_integer()) {
      const auto number = value_->get<std::int64_t>();
      if (number >= static_cast<std::int64_t>(kMin)) return static_cast<Integer>(number);
    }
    Refuse("expected a whole number from " + std::to_string(kMin) + " to " + std::to_string(kMax));
  }

  // Calls `read(field)` for the member when it is there.
  template <class Read>
  void IfGiven(std::string_view key, Read read) const {
    const auto found = value_->find(key);
    if (found != value_->end()) read(JsonField(*found, this, key));
  }
  // Calls `read(field)` for every element of the list when it is there.
  template <class Read>
  void ForEach(std::string_view key, Read read) const {
    IfGiven(key, [&](const JsonField& list) {
      if (!list.value_->is_array()) list.Refuse("expected a list");
      for (std::size_t i = 0; i < list.value_->size(); ++i) {
        read(JsonField((*list.value_)[i], &list, i));
      }
    });
  }

  // Calls `read(name, field)` for every member of the object.
  template <class Read>
  void ForEachMember(Read read) const {
    ExpectObject();
    for (const auto& [name, value] : value_->items()) read(name, JsonField(value, this, name));
  }
  // The value as JSON text.
  [[nodiscard]] std::string Raw() const { return value_->dump(); }

  // The member's value; empty, false or 0 when it is left out.
  [[nodiscard]] std::u16string Text(std::string_view key) const {
    std::u16string text;
    IfGiven(key, [&](const JsonField& field) { text = field.Text(); });
    return text;
  }
  [[nodiscard]] std::u16string RequiredText(std::string_view key) const {
    ExpectObject();
    if (!value_->contains(key)) Refuse("has no field \"" + std::string(key) + "\"");
    return Text(key);
  }
  [[nodiscard]] bool Flag(std::string_view key) const {
    bool flag = false;
    IfGiven(key, [&](const JsonField& field) { flag = field.Flag(); });
    return flag;
  }
  template <class Integer>
  [[nodiscard]] Integer Number(std::string_view key) const {
    Integer number = 0;
    IfGiven(key, [&](const JsonField& field) { number = field.Number<Integer>(); });
    return number;
  }

 private:
  const nlohmann::json* value_;
  const JsonField* parent_;
  std::string_view key_;  // empty: an element of a list
  std::size_t index_ = 0;
};
