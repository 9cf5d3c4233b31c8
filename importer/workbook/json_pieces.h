// Parses a JSON object piece by piece: each member of the top object, and each element of a list
// there, is handed on as a tree of its own and then forgotten. So a file of a hundred thousand
// tables needs memory for one of them. Private to the library.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "importer/workbook/json_fields.h"

class JsonPieces : public nlohmann::json_sax<nlohmann::json> {
 public:
  // `input` is a text or a stream. Throws JsonRefusal with line and column, or with the field, when
  // it is not one JSON object or is nested too deep; lets through what OnMember and OnElement
  // throw.
  template <class Input>
  void Parse(Input& input) {
    nlohmann::json::sax_parse(input, static_cast<nlohmann::json_sax<nlohmann::json>*>(this));
  }

 protected:
  // A list is announced by OnList, then come its elements.
  virtual void OnList(const std::string& key) = 0;
  virtual void OnElement(const std::string& key, std::size_t index,
                         const nlohmann::json& value) = 0;
  virtual void OnMember(const std::string& key, const nlohmann::json& value) = 0;

 private:
  using Json = nlohmann::json;
  // Room for the deepest data type; a file nested deeper is an attack or an accident.
  static constexpr std::size_t kDeepest = 64;

  bool null() override { return Value(nullptr); }
  bool boolean(bool value) override { return Value(value); }
  bool number_integer(std::int64_t value) override { return Value(value); }
  bool number_unsigned(std::uint64_t value) override { return Value(value); }
  bool number_float(double value, const std::string& /*text*/) override { return Value(value); }
  bool string(std::string& value) override { return Value(std::move(value)); }
  bool binary(Json::binary_t& /*value*/) override { return false; }  // not in JSON texts

  bool start_object(std::size_t /*size*/) override {
    if (!in_top_) return in_top_ = true;
    return Open(Json::object());
  }
  bool end_object() override {
    if (open_.empty()) return true;  // the top object itself
    return Close();
  }
  bool start_array(std::size_t /*size*/) override {
    ExpectTop();
    if (!open_.empty() || in_list_) return Open(Json::array());
    in_list_ = true;
    index_ = 0;
    OnList(top_key_);
    return true;
  }
  bool end_array() override {
    if (!open_.empty()) return Close();
    in_list_ = false;
    return true;
  }
  bool key(std::string& name) override {
    (open_.empty() ? top_key_ : key_) = std::move(name);
    return true;
  }
  // The library's message holds line, column, what was read and what was expected.
  bool parse_error(std::size_t /*position*/, const std::string& /*last_token*/,
                   const Json::exception& error) override {
    static constexpr std::string_view kBefore = "parse error at ";
    const std::string_view what = error.what();
    const std::size_t at = what.find(kBefore);
    throw JsonRefusal{
        std::string(at == std::string_view::npos ? what : what.substr(at + kBefore.size()))};
  }

  void ExpectTop() const {
    if (!in_top_) throw JsonRefusal{"line 1, column 1: expected an object"};
  }
  // Puts the value where it belongs in the open piece; there must be one.
  Json* Place(Json&& value) {
    Json& parent = *open_.back();
    if (parent.is_array()) return &parent.emplace_back(std::move(value));
    return &(parent[key_] = std::move(value));
  }
  bool Value(Json&& value) {
    ExpectTop();
    if (open_.empty()) {
      HandOn(value);
    } else {
      Place(std::move(value));
    }
    return true;
  }
  bool Open(Json&& container) {
    if (open_.size() >= kDeepest) throw JsonRefusal{top_key_ + ": nested too deep"};
    if (open_.empty()) {
      piece_ = std::move(container);
      open_.push_back(&piece_);
    } else {
      open_.push_back(Place(std::move(container)));
    }
    return true;
  }
  bool Close() {
    open_.pop_back();
    if (open_.empty()) HandOn(piece_);
    return true;
  }
  void HandOn(const Json& piece) {
    if (in_list_) {
      OnElement(top_key_, index_++, piece);
    } else {
      OnMember(top_key_, piece);
    }
  }

  bool in_top_ = false;
  bool in_list_ = false;   // of the top object
  std::size_t index_ = 0;  // of the next element of that list
  std::string top_key_;
  std::string key_;  // of the innermost open object
  Json piece_;
  std::vector<Json*> open_;  // the containers of the piece that are not complete yet
};
