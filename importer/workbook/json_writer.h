// Writes JSON to a stream as it goes, without a tree in memory: a workbook of millions of columns
// is larger as a tree than it is itself. Private to the library.
//
// The compact form has no blanks, a line for each entry of the lists at the top, and leaves out
// members that are zero, empty, false or null unless their key is a kept one.
#pragma once

#include <charconv>
#include <cstdint>
#include <cstring>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class JsonWriter {
 public:
  explicit JsonWriter(std::ostream& out, bool compact = false) : out_(&out), compact_(compact) {
    buffer_.resize(kFlushAt + kSlack);
  }
  // Keeps what is written, for Kept().
  explicit JsonWriter(bool compact) : out_(nullptr), compact_(compact) {}
  ~JsonWriter() { Flush(); }
  JsonWriter(const JsonWriter&) = delete;
  JsonWriter& operator=(const JsonWriter&) = delete;

  void BeginObject() { Open('{'); }
  void EndObject() { Close('}'); }
  void BeginArray() { Open('['); }
  void EndArray() { Close(']'); }
  // The next value or key starts on a new line with this many spaces.
  void NewLine(int indent) {
    if (!compact_) {
      indent_ = indent;
    } else if (indent == kEntryIndent) {
      indent_ = 0;
    }
  }
  // `key` is written as it stands: plain ASCII letters.
  void Key(std::string_view key) {
    FlushWhenFull();
    key_ = {size_, first_};
    KeptKey(key);
    droppable_ = compact_;
  }
  // The key of a member that the compact form has whatever its value.
  void KeptKey(std::string_view key) {
    Separate();
    char* to = Reserve(key.size() + 4);
    *to++ = '"';
    std::memcpy(to, key.data(), key.size());
    to += key.size();
    *to++ = '"';
    *to++ = ':';
    if (!compact_) *to++ = ' ';
    Took(to);
    first_ = true;
  }
  // A key that is a name from a server; kept.
  void TextKey(std::u16string_view key) {
    Text(key);
    Put(compact_ ? ":" : ": ");
    first_ = true;
  }
  void Text(std::u16string_view text);
  // Forgets what was kept: what is written from here on goes on in a list that has entries already.
  void Restart() {
    size_ = 0;
    first_ = false;
  }
  // Entries of the list in hand, as another writer that was restarted has made them.
  void Entries(std::string_view json) {
    Flush();
    out_->write(json.data(), static_cast<std::streamsize>(json.size()));
  }
  // What was written, of a writer that keeps it; valid until it writes again.
  [[nodiscard]] std::string_view Kept() const { return {buffer_.data(), size_}; }
  // A value that is JSON already.
  void Raw(std::string_view json) {
    Separate();
    Put(json);
  }
  // The same for an object, which the compact form leaves out where it is empty.
  void RawObject(std::string_view json) {
    if (json == "{}" && Dropped()) return;
    Raw(json);
  }
  void Bool(bool value) {
    if (!value && Dropped()) return;
    Separate();
    Put(value ? "true" : "false");
  }
  void Null() {
    if (Dropped()) return;
    Separate();
    Put("null");
  }
  template <class Integer>
  void Number(Integer value) {
    if (value == 0 && Dropped()) return;
    Separate();
    constexpr std::size_t kDigits = 24;
    char* const to = Reserve(kDigits);
    Took(std::to_chars(to, to + kDigits, value).ptr);
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
  void KeptMember(std::string_view key, const std::u16string& text) {
    KeptKey(key);
    Text(text);
  }
  // Hands everything written so far to the stream; a writer that keeps it goes on keeping it.
  void Flush();

 private:
  static constexpr std::size_t kFlushAt = 1 << 16;
  static constexpr std::size_t kSlack = 1 << 12;

  static constexpr int kEntryIndent = 4;  // of the entries of the lists at the top

  // Where a key begins, with the comma before it, and what stood before that.
  struct Place {
    std::size_t at = 0;
    bool first = false;
    bool droppable = true;
  };

  // Room for so many more bytes; where the next one goes.
  char* Reserve(std::size_t bytes) {
    if (size_ + bytes > buffer_.size()) buffer_.resize((size_ + bytes) * 2);
    return buffer_.data() + size_;
  }
  // What was reserved is written up to there.
  void Took(const char* end) { size_ = static_cast<std::size_t>(end - buffer_.data()); }
  void Put(char c) {
    *Reserve(1) = c;
    ++size_;
  }
  void Put(std::string_view text) {
    std::memcpy(Reserve(text.size()), text.data(), text.size());
    size_ += text.size();
  }

  void FlushWhenFull() {
    if (!first_ && size_ >= kFlushAt) Flush();
  }
  // Before every value and key: the buffer when it is full, the comma and the line break. Not
  // between a key and its value, nor behind a bracket: what may be taken back stays in the buffer.
  void Separate() {
    FlushWhenFull();
    droppable_ = false;
    if (!first_) Put(indent_ >= 0 || compact_ ? "," : ", ");
    first_ = false;
    if (indent_ >= 0) BreakLine();
  }
  void BreakLine() {
    const auto blanks = static_cast<std::size_t>(indent_);
    char* to = Reserve(blanks + 1);
    *to = '\n';
    std::memset(to + 1, ' ', blanks);
    size_ += blanks + 1;
    indent_ = -1;
  }
  // Takes back the key just written, where its value is one that the compact form leaves out.
  bool Dropped() {
    if (!droppable_) return false;
    TakeBack(key_);
    return true;
  }
  void TakeBack(const Place& place) {
    size_ = place.at;
    first_ = place.first;
    droppable_ = false;
  }
  void Open(char bracket) {
    if (compact_) open_.push_back({key_.at, key_.first, droppable_});
    Separate();
    Put(bracket);
    first_ = true;
  }
  void Close(char bracket) {
    if (compact_) {
      const Place place = open_.back();
      open_.pop_back();
      indent_ = -1;
      if (place.droppable && first_) return TakeBack(place);
    }
    if (indent_ >= 0) BreakLine();
    Put(bracket);
    first_ = false;
  }

  std::ostream* const out_;  // null: what is written stays here
  std::string buffer_;       // all of it room; what is written is the first `size_` bytes
  std::size_t size_ = 0;
  const bool compact_;
  std::vector<Place> open_;  // of the objects and lists that are open, in the compact form
  Place key_;                // the last key
  bool droppable_ = false;   // that key may still be taken back
  int indent_ = -1;          // below 0: no line break is due
  bool first_ = true;        // nothing stands before the next value but a bracket or a key
};
