// A dialect's statement with its marks, and what it becomes for one import: a text with `?` and the
// values that are bound to them. No value ever becomes part of the text, but a name quoted where
// the dialect says that the server takes no parameter.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "routes/exact/version.h"

namespace odbcimport::exact {

// What the host chose and what is known by now; the marks of a statement are filled from it.
struct MarkValues {
  using Texts = std::vector<std::string>;  // UTF-8

  bool system = false;
  Texts owners;        // chosen; none: not narrowed
  Texts table_owners;  // pairwise: an empty owner is any
  Texts table_names;
  Texts table_ids;      // found
  bool by_ids = false;  // narrowed to table_ids
  bool has_schema = false;
  std::string schema;  // in hand
  bool has_table = false;
  std::string table_schema;  // of the table in hand
  std::string table_name;
  Texts type_ids;  // pairwise, in use
  Texts type_modifiers;
  bool by_types = false;
  Version version;
};

// How names are quoted, for ?name().
struct NameQuotes {
  std::string open;
  std::string close;
  [[nodiscard]] bool IsKnown() const { return !open.empty(); }
};

struct FilledStatement {
  std::string text;
  std::vector<std::string> parameters;
  // A mark was left out because a list was longer than the dialect allows: everything is read.
  bool reads_all = false;
};

class StatementText {
 public:
  // Takes the statement apart. False, with the reason in `why` and the offset of what is wrong in
  // `where`, when a mark cannot be understood.
  [[nodiscard]] bool Parse(std::string_view sql, std::string& why, std::size_t& where);

  // `list_limit` 0: lists may have any length.
  [[nodiscard]] FilledStatement Fill(const MarkValues& values, const NameQuotes& quotes,
                                     std::size_t list_limit) const;
  // The statement as a shell sees it: every mark is a comment.
  [[nodiscard]] const std::string& Source() const { return source_; }
  [[nodiscard]] bool UsesNames() const { return uses_names_; }

 private:
  enum class Condition : std::uint8_t {
    kAlways,
    kOwners,
    kTables,
    kIds,
    kSystem,
    kSchema,
    kEach,
    kTypes,
    kVersion,
  };
  enum class Form : std::uint8_t { kOne, kList, kArray, kJson, kName };
  enum class Value : std::uint8_t { kOwner, kTable, kTableId, kSchema, kTypeId, kTypeModifier };

  // A text, behind which a value stands.
  struct Piece {
    std::string text;
    bool has_value = false;
    Form form = Form::kOne;
    Value value = Value::kOwner;
  };
  struct Node {
    Condition condition = Condition::kAlways;
    VersionBounds bounds;
    std::vector<Piece> pieces;  // where the condition holds
    std::vector<Node> other;    // where it does not
  };
  class Parser;

  [[nodiscard]] static bool Holds(const Node& node, const MarkValues& values);
  [[nodiscard]] static const MarkValues::Texts* ListOf(Condition condition, Value value,
                                                       const MarkValues& values);
  [[nodiscard]] static const std::string& OneOf(Condition condition, Value value,
                                                const MarkValues& values);
  [[nodiscard]] static bool IsTooLong(const Node& node, const MarkValues& values,
                                      std::size_t list_limit);
  static void FillNodes(const std::vector<Node>& nodes, const MarkValues& values,
                        const NameQuotes& quotes, std::size_t list_limit, FilledStatement& out);
  static void FillPiece(Condition condition, const Piece& piece, const MarkValues& values,
                        const NameQuotes& quotes, FilledStatement& out);

  std::string source_;
  std::vector<Node> nodes_;
  bool uses_names_ = false;
};

// `name` between the quotes, with a closing quote inside doubled.
[[nodiscard]] std::string QuoteName(std::string_view name, const NameQuotes& quotes);

}  // namespace odbcimport::exact
