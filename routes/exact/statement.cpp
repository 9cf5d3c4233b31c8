// Taking a statement apart at its marks, and filling them.
#include "routes/exact/statement.h"

#include <array>
#include <optional>

#include "base/text.h"
#include "routes/exact/sql_text.h"

namespace odbcimport::exact {
namespace {

constexpr std::string_view kMarkBegin = "/*@";
constexpr std::string_view kElse = "@else";
constexpr std::string_view kEnd = "/*@end*/";

std::string_view TakeWord(std::string_view& text) {
  text = base::TrimSpace(text);
  const std::size_t end = text.find_first_of(" \t\r\n");
  const std::string_view word = text.substr(0, end);
  text.remove_prefix(word.size());
  return word;
}

// An element of an array or of JSON: in double quotes, `\` before a quote and before itself.
// Control characters are escaped for JSON only, which has no other way of saying them.
void AppendQuoted(std::string_view text, bool json, std::string& out) {
  constexpr std::string_view kHex = "0123456789abcdef";
  out += '"';
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (json && byte < 0x20) {
      out += "\\u00";
      out += kHex[byte >> 4];
      out += kHex[byte & 0xF];
      continue;
    }
    if (c == '"' || c == '\\') out += '\\';
    out += c;
  }
  out += '"';
}

std::string Join(const MarkValues::Texts& texts, bool json) {
  std::string out(1, json ? '[' : '{');
  for (const std::string& text : texts) {
    if (out.size() > 1) out += ',';
    AppendQuoted(text, json, out);
  }
  out += json ? ']' : '}';
  return out;
}

}  // namespace

std::string QuoteName(std::string_view name, const NameQuotes& quotes) {
  std::string out = quotes.open;
  for (const char c : name) {
    out += c;
    if (quotes.close == std::string_view(&c, 1)) out += c;
  }
  return out + quotes.close;
}

class StatementText::Parser {
 public:
  Parser(std::string_view sql, StatementText& statement) : sql_(sql), statement_(statement) {}

  bool Run(std::string& why, std::size_t& where) {
    const bool good = ReadNodes(statement_.nodes_, false);
    why = why_;
    where = at_;
    return good;
  }

 private:
  struct ConditionName {
    std::string_view name;
    Condition condition;
    std::vector<std::pair<std::string_view, Value>> values;
    bool one_value;
  };

  static const std::vector<ConditionName>& Conditions() {
    static const std::vector<ConditionName> names = {
        {"owners", Condition::kOwners, {{"owner", Value::kOwner}}, false},
        {"tables",
         Condition::kTables,
         {{"owner", Value::kOwner}, {"table", Value::kTable}, {"schema", Value::kSchema}},
         false},
        {"ids", Condition::kIds, {{"table_id", Value::kTableId}}, false},
        {"system", Condition::kSystem, {}, false},
        {"schema", Condition::kSchema, {{"schema", Value::kSchema}}, true},
        {"each", Condition::kEach, {{"schema", Value::kSchema}, {"table", Value::kTable}}, true},
        {"types",
         Condition::kTypes,
         {{"type_id", Value::kTypeId}, {"type_modifier", Value::kTypeModifier}},
         false},
        {"since", Condition::kVersion, {}, false},
        {"before", Condition::kVersion, {}, false},
    };
    return names;
  }

  bool Fail(std::string why) {
    why_ = std::move(why);
    return false;
  }

  // Up to the end of the statement, or to the `@end` of the mark that the nodes stand in.
  bool ReadNodes(std::vector<Node>& nodes, bool inside) {
    while (at_ < sql_.size()) {
      const SqlSpan span = FindSpan(sql_, at_);
      const std::string_view text = sql_.substr(at_, span.end - at_);
      if (span.part == SqlPart::kBlockComment && text.starts_with(kMarkBegin)) {
        if (text == kEnd) {
          if (!inside) return Fail("@end without @else");
          at_ = span.end;
          return true;
        }
        if (!ReadMark(text, span.end, nodes)) return false;
        continue;
      }
      if (span.part == SqlPart::kText && text.find('?') != std::string_view::npos) {
        at_ += text.find('?');
        return Fail("a ? outside a mark");
      }
      // Comments for people need not travel.
      if (span.part == SqlPart::kText || span.part == SqlPart::kQuoted) {
        AppendText(text, nodes);
      } else {
        AppendText(" ", nodes);
      }
      at_ = span.end;
    }
    return inside ? Fail("@else without @end") : true;
  }

  static void AppendText(std::string_view text, std::vector<Node>& nodes) {
    if (nodes.empty() || nodes.back().condition != Condition::kAlways) {
      nodes.emplace_back().pieces.emplace_back();
    }
    nodes.back().pieces.back().text += text;
  }

  bool ReadMark(std::string_view comment, std::size_t end, std::vector<Node>& nodes) {
    std::string_view text = comment.substr(kMarkBegin.size());
    if (!text.ends_with("*/")) return Fail("a mark is not closed");
    text = base::TrimSpace(text.substr(0, text.size() - 2));
    const bool has_other = text.ends_with(kElse);
    if (has_other) text = base::TrimSpace(text.substr(0, text.size() - kElse.size()));

    const std::string_view word = TakeWord(text);
    const ConditionName* condition = nullptr;
    for (const ConditionName& candidate : Conditions()) {
      if (candidate.name == word) condition = &candidate;
    }
    if (condition == nullptr) return Fail("there is no mark @" + std::string(word));
    Node node;
    node.condition = condition->condition;
    if (node.condition == Condition::kVersion) {
      const Version bound(TakeWord(text));
      if (!bound.IsKnown()) return Fail("@" + std::string(word) + " needs a version");
      (word == "since" ? node.bounds.since : node.bounds.before) = bound;
    }
    if (!ReadPieces(base::TrimSpace(text), *condition, node)) return false;
    at_ = end;
    if (has_other && !ReadNodes(node.other, true)) return false;
    nodes.push_back(std::move(node));
    return true;
  }

  bool ReadPieces(std::string_view text, const ConditionName& condition, Node& node) {
    while (!text.empty()) {
      const SqlSpan span = FindSpan(text, 0);
      std::string_view part = text.substr(0, span.end);
      const std::size_t mark =
          span.part == SqlPart::kText ? part.find('?') : std::string_view::npos;
      if (node.pieces.empty() || node.pieces.back().has_value) node.pieces.emplace_back();
      node.pieces.back().text += part.substr(0, mark);
      if (mark == std::string_view::npos) {
        text.remove_prefix(span.end);
        continue;
      }
      text.remove_prefix(mark + 1);
      if (!ReadValue(text, condition, node.pieces.back())) return false;
    }
    return true;
  }

  // `list(owner)`, of which the question mark is read already.
  bool ReadValue(std::string_view& text, const ConditionName& condition, Piece& piece) {
    struct FormName {
      std::string_view name;
      Form form;
    };
    static constexpr std::array<FormName, 5> kForms = {{{"", Form::kOne},
                                                        {"list", Form::kList},
                                                        {"array", Form::kArray},
                                                        {"json", Form::kJson},
                                                        {"name", Form::kName}}};
    const std::size_t open = text.find('(');
    const std::size_t close = text.find(')');
    if (open == std::string_view::npos || close == std::string_view::npos || close < open) {
      return Fail(
          "a ? in a mark is followed by (value), list(value), array(value), json(value) or "
          "name(value)");
    }
    const std::string_view form = text.substr(0, open);
    const std::string_view name = base::TrimSpace(text.substr(open + 1, close - open - 1));
    std::optional<Form> found;
    for (const FormName& candidate : kForms) {
      if (candidate.name == form) found = candidate.form;
    }
    if (!found) return Fail("there is no ?" + std::string(form) + "()");
    const bool is_one = *found == Form::kOne || *found == Form::kName;
    for (const auto& [value_name, value] : condition.values) {
      if (value_name != name) continue;
      if (is_one != (condition.one_value || value == Value::kSchema)) continue;
      piece.has_value = true;
      piece.form = *found;
      piece.value = value;
      if (*found == Form::kName) statement_.uses_names_ = true;
      text.remove_prefix(close + 1);
      return true;
    }
    return Fail("the mark @" + std::string(condition.name) + " has no ?" + std::string(form) + "(" +
                std::string(name) + ")");
  }

  std::string_view sql_;
  StatementText& statement_;
  std::size_t at_ = 0;
  std::string why_;
};

bool StatementText::Parse(std::string_view sql, std::string& why, std::size_t& where) {
  source_ = std::string(sql);
  nodes_.clear();
  return Parser(source_, *this).Run(why, where);
}

bool StatementText::Holds(const Node& node, const MarkValues& values) {
  switch (node.condition) {
    case Condition::kAlways:
      return true;
    case Condition::kOwners:
      return !values.owners.empty();
    case Condition::kTables:
      return !values.table_names.empty();
    case Condition::kIds:
      return values.by_ids;
    case Condition::kSystem:
      return values.system;
    case Condition::kSchema:
      return values.has_schema;
    case Condition::kEach:
      return values.has_table;
    case Condition::kTypes:
      return values.by_types;
    case Condition::kVersion:
      return node.bounds.Fit(values.version);
  }
  return false;
}

const MarkValues::Texts* StatementText::ListOf(Condition condition, Value value,
                                               const MarkValues& values) {
  switch (value) {
    case Value::kOwner:
      return condition == Condition::kTables ? &values.table_owners : &values.owners;
    case Value::kTable:
      return &values.table_names;
    case Value::kTableId:
      return &values.table_ids;
    case Value::kTypeId:
      return &values.type_ids;
    case Value::kTypeModifier:
      return &values.type_modifiers;
    case Value::kSchema:
      break;
  }
  return nullptr;
}

const std::string& StatementText::OneOf(Condition condition, Value value,
                                        const MarkValues& values) {
  if (value == Value::kTable) return values.table_name;
  return condition == Condition::kEach ? values.table_schema : values.schema;
}

bool StatementText::IsTooLong(const Node& node, const MarkValues& values, std::size_t list_limit) {
  if (list_limit == 0) return false;
  for (const Piece& piece : node.pieces) {
    if (!piece.has_value || piece.form != Form::kList) continue;
    if (ListOf(node.condition, piece.value, values)->size() > list_limit) return true;
  }
  return false;
}

FilledStatement StatementText::Fill(const MarkValues& values, const NameQuotes& quotes,
                                    std::size_t list_limit) const {
  FilledStatement out;
  out.text.reserve(source_.size());
  FillNodes(nodes_, values, quotes, list_limit, out);
  return out;
}

void StatementText::FillNodes(const std::vector<Node>& nodes, const MarkValues& values,
                              const NameQuotes& quotes, std::size_t list_limit,
                              FilledStatement& out) {
  for (const Node& node : nodes) {
    const bool holds = Holds(node, values);
    const bool too_long = holds && IsTooLong(node, values, list_limit);
    if (too_long) out.reads_all = true;
    if (!holds || too_long) {
      FillNodes(node.other, values, quotes, list_limit, out);
      continue;
    }
    for (const Piece& piece : node.pieces) FillPiece(node.condition, piece, values, quotes, out);
  }
}

void StatementText::FillPiece(Condition condition, const Piece& piece, const MarkValues& values,
                              const NameQuotes& quotes, FilledStatement& out) {
  out.text += piece.text;
  if (!piece.has_value) return;
  switch (piece.form) {
    case Form::kName:
      out.text += QuoteName(OneOf(condition, piece.value, values), quotes);
      return;
    case Form::kOne:
      out.text += '?';
      out.parameters.push_back(OneOf(condition, piece.value, values));
      return;
    case Form::kArray:
    case Form::kJson:
      out.text += '?';
      out.parameters.push_back(
          Join(*ListOf(condition, piece.value, values), piece.form == Form::kJson));
      return;
    case Form::kList:
      break;
  }
  bool first = true;
  for (const std::string& text : *ListOf(condition, piece.value, values)) {
    out.text += first ? "?" : ", ?";
    first = false;
    out.parameters.push_back(text);
  }
}

}  // namespace odbcimport::exact
