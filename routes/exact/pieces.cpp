#include "routes/exact/pieces.h"

#include <utility>

#include "routes/exact/catalog.h"
#include "routes/exact/row.h"

namespace odbcimport::exact {
namespace {

void TrimBlanks(std::string& text) { text.erase(text.find_last_not_of(' ') + 1); }

}  // namespace

Pieces::Pieces(Row& row) : row_(row) {
  for (const Field field : {Field::kText, Field::kDefinition, Field::kExpression}) {
    if (row.PlaceOf(field) != Row::kNoPlace) text_ = row.PlaceOf(field);
  }
  if (text_ != kNone && row.PlaceOf(Field::kPart) != Row::kNoPlace) {
    part_ = row.PlaceOf(Field::kPart);
  }
}

bool Pieces::IsSameObject() const {
  if (held_.empty()) return false;
  for (std::size_t i = 0; i < held_.size(); ++i) {
    if (i == part_ || i == text_) continue;
    const std::string_view value = row_.values()[i];
    const bool same =
        held_[i] ? value.data() != nullptr && value == *held_[i] : value.data() == nullptr;
    if (!same) return false;
  }
  return true;
}

void Pieces::Join() {
  const std::string_view piece = row_.values()[text_];
  const std::int64_t part = row_.Number(Field::kPart);
  if (piece.data() != nullptr) {
    Value& text = held_[text_];
    if (!text) text.emplace();
    if (part != last_part_ + 1 && !text->empty()) {
      TrimBlanks(*text);
      *text += '\n';
    }
    text->append(piece);
  }
  last_part_ = part;
}

void Pieces::Add(RowReader& reader) {
  if (IsSameObject()) return Join();
  std::vector<Value> next;
  next.reserve(row_.values().size());
  for (const std::string_view value : row_.values()) {
    next.push_back(value.data() != nullptr ? Value(value) : Value());
  }
  const std::int64_t part = row_.Number(Field::kPart);
  Flush(reader);
  held_ = std::move(next);
  last_part_ = part;
}

void Pieces::Flush(RowReader& reader) {
  if (held_.empty()) return;
  if (held_[text_]) TrimBlanks(*held_[text_]);
  for (std::size_t i = 0; i < held_.size(); ++i) {
    row_.values()[i] = held_[i] ? std::string_view(*held_[i]) : std::string_view();
  }
  reader.Read(row_);
  held_.clear();
}

}  // namespace odbcimport::exact
