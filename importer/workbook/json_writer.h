// Writes JSON to a stream as it goes, without a tree in memory: a workbook of millions of columns
// is larger as a tree than it is itself. Private to the library.
#pragma once

#include <charconv>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

class JsonWriter {
 public:
  explicit JsonWriter(std::ostream& out) : out_(out) { buffer_.reserve(kFlushAt + kSlack); }
  ~JsonWriter() { Flush(); }
  JsonWriter(const JsonWriter&) = delete;
  JsonWriter& operator=(const JsonWriter&) = delete;

  void BeginObject() { Open('{'); }
  void EndObject() { Close('}'); }
  void BeginArray() { Open('['); }
  void EndArray() { Close(']'); }
  // The next value or key starts on a new line with this many spaces.
  void NewLine(int indent) { indent_ = indent; }
  // `key` is written as it stands: plain ASCII letters.
  void Key(std::string_view key) {
    Separate();
    buffer_ += '"';
    buffer_ += key;
    buffer_ += "\": ";
    first_ = true;
  }
  // A key that is a name from a server.
  void TextKey(std::u16string_view key) {
    Text(key);
    buffer_ += ": ";
    first_ = true;
  }
  void Text(std::u16string_view text);
  // A value that is JSON already.
  void Raw(std::string_view json) {
    Separate();
    buffer_ += json;
  }
  void Bool(bool value) {
    Separate();
    buffer_ += value ? "true" : "false";
  }
  void Null() {
    Separate();
    buffer_ += "null";
  }
  template <class Integer>
  void Number(Integer value) {
    Separate();
    char digits[24];
    buffer_.append(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
  }

  void Member(std::string_view key, const std::u16string& text) {
    Key(key);
    Text(text);
  }
  void Member(std::string_view key, const char16_t* text) {
    Key(key);
    Text(text);
  }
  void Member(std::string_view key, bool value) {
    Key(key);
    Bool(value);
  }
  template <class Integer>
  void Member(std::string_view key, Integer value) {
    Key(key);
    Number(value);
  }
  // Hands everything written so far to the stream.
  void Flush();

 private:
  static constexpr std::size_t kFlushAt = 1 << 16;
  static constexpr std::size_t kSlack = 1 << 12;

  // Before every value and key: the comma, the line break, and the buffer when it is full.
  void Separate() {
    if (!first_) buffer_ += indent_ >= 0 ? "," : ", ";
    first_ = false;
    if (indent_ >= 0) BreakLine();
    if (buffer_.size() >= kFlushAt) Flush();
  }
  void BreakLine() {
    buffer_ += '\n';
    buffer_.append(static_cast<std::size_t>(indent_), ' ');
    indent_ = -1;
  }
  void Open(char bracket) {
    Separate();
    buffer_ += bracket;
    first_ = true;
  }
  void Close(char bracket) {
    if (indent_ >= 0) BreakLine();
    buffer_ += bracket;
    first_ = false;
  }

  std::ostream& out_;
  std::string buffer_;
  int indent_ = -1;    // below 0: no line break is due
  bool first_ = true;  // nothing stands before the next value but a bracket or a key
};
