// What a recording with hidden names has in the place of each text: names become keyed hashes, the
// same for the same name and different in every recording; what people wrote (comments, literals,
// texts of views and bodies) is blanked; names of the server's own objects, types and everything
// that gives a schema its shape stay.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace recording {

// What a text is, as far as its place tells.
enum class Role : std::uint8_t {
  kPlain,       // stays
  kName,        // one name, whole
  kOwner,       // the name of an owner or catalog, which tells whether a row is the server's own
  kRoutine,     // the name of a function or procedure
  kSql,         // a statement of the module's own, whose texts in quotes are names
  kText,        // names among other words: a type, a list
  kDefinition,  // the same, with literals that go and types whose sizes stay
  kExpression,  // the same, where every number is a literal
  kBlank,       // what somebody wrote
};

class NameRules {
 public:
  NameRules();  // with a key of its own
  ~NameRules();
  NameRules(const NameRules&) = delete;
  NameRules& operator=(const NameRules&) = delete;

  // Tells which call the texts belong to that follow. `statement` is its number, 0 for none.
  void BeginCall(std::string_view function, std::uint32_t statement);
  // A number or text of the call, by its field.
  void NoteNumber(std::string_view field, std::int64_t number);
  void NoteText(std::string_view field, std::string_view text);

  [[nodiscard]] Role RoleOfField(std::string_view field) const;
  [[nodiscard]] Role RoleOfCell(int column) const;  // of a result, from 1
  [[nodiscard]] Role RoleOfPiece() const;           // of the column that the call named

  // Begins a row of a result; `owner` is told every owner's name in it before its texts are asked
  // for.
  void BeginRow();
  void SeeOwner(std::string_view owner);

  // The text in its role, UTF-8; valid until the next call.
  [[nodiscard]] std::string_view Apply(Role role, std::string_view text);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace recording
