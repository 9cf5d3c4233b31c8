// A piece of the page's data as JSON text, put together from its parts. A text and nothing else: it
// can be thrown away where memory has run out, and names cannot leave the script element that it
// stands in, since it has no "<".
#pragma once

#include <concepts>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace wbexport {

class PageValue {
 public:
  PageValue() = default;  // null
  PageValue(std::string_view utf8);
  PageValue(const std::string& utf8) : PageValue(std::string_view(utf8)) {}
  PageValue(const char* utf8) : PageValue(std::string_view(utf8)) {}
  template <class Number>
  requires std::integral<Number> PageValue(Number value) : kind_(kScalar) {
    if constexpr (std::same_as<Number, bool>) {
      text_ = value ? "true" : "false";
    } else {
      text_ = std::to_string(value);
    }
  }
  PageValue(std::initializer_list<PageValue> elements) : PageValue(Array()) {
    for (const PageValue& element : elements) Add(element);
  }
  [[nodiscard]] static PageValue Array() { return PageValue(kArray); }
  [[nodiscard]] static PageValue Array(const std::vector<std::string>& texts) {
    PageValue list = Array();
    for (const std::string& text : texts) list.Add(text);
    return list;
  }
  [[nodiscard]] static PageValue Object() { return PageValue(kObject); }
  [[nodiscard]] static PageValue Object(
      std::initializer_list<std::pair<const char*, PageValue>> members) {
    PageValue object = Object();
    for (const auto& [key, value] : members) object.Set(key, value);
    return object;
  }

  // An element of an array; a member of an object, whose key needs no escape.
  void Add(const PageValue& element) {
    Separate();
    element.AppendTo(text_);
  }
  void Set(std::string_view key, const PageValue& value) {
    Separate();
    ((text_ += '"') += key) += "\":";
    value.AppendTo(text_);
  }

  [[nodiscard]] bool IsNull() const { return kind_ == kNull; }
  [[nodiscard]] bool IsEmpty() const { return text_.empty(); }
  void AppendTo(std::string& out) const;

 private:
  enum Kind { kNull, kScalar, kArray, kObject };
  explicit PageValue(Kind kind) : kind_(kind) {}
  void Separate() {
    if (!text_.empty()) text_ += ',';
  }

  std::string text_;  // without the brackets
  Kind kind_ = kNull;
};

}  // namespace wbexport
