// Reading the texts of CREATE statements.
#include "routes/exact/definition.h"

#include <algorithm>

#include "routes/exact/definition_tokens.h"

namespace odbcimport::exact {
namespace {

std::string LowerCase(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

bool IsSameName(std::string_view a, std::string_view b) { return LowerCase(a) == LowerCase(b); }

// Up to the parenthesis or comma that ends what stands here; those inside parentheses do not.
void SkipItem(DefinitionTokens& tokens) {
  while (!tokens.AtEnd() && !tokens.Is(',') && !tokens.Is(')')) {
    if (tokens.Is('(')) {
      tokens.TakeParentheses();
    } else {
      tokens.Next();
    }
  }
}

class DefinedTableReader {
 public:
  DefinedTableReader(std::string_view text, bool backslash_escapes, TableDefinition& table)
      : tokens_(text, backslash_escapes), table_(table) {}

  void Run() {
    tokens_.TakeWord("CREATE");
    if (tokens_.TakeWord("VIRTUAL")) return ReadVirtual();
    while (!tokens_.AtEnd() && !tokens_.Is('(')) tokens_.Next();
    if (!tokens_.Take('(')) return;
    while (!tokens_.AtEnd() && !tokens_.Is(')')) {
      ReadElement();
      if (!tokens_.Take(',')) break;
    }
    tokens_.Take(')');
    ReadOptions();
    SettleRowid();
  }

 private:
  void ReadVirtual() {
    while (!tokens_.AtEnd() && !tokens_.TakeWord("USING")) tokens_.Next();
    const std::size_t begin = tokens_.begin();
    while (!tokens_.AtEnd()) tokens_.Next();
    table_.module = tokens_.Text(begin, tokens_.last_end());
  }

  bool IsTableConstraint() const {
    return tokens_.IsWord("CONSTRAINT") || tokens_.IsWord("PRIMARY") || tokens_.IsWord("UNIQUE") ||
           tokens_.IsWord("CHECK") || tokens_.IsWord("FOREIGN");
  }

  void ReadElement() {
    if (IsTableConstraint()) {
      while (IsTableConstraint()) ReadTableConstraint();  // the comma between them may be missing
    } else {
      DefinedColumn column;
      column.name = tokens_.TakeName();
      const bool is_integer = ReadColumn(column);
      if (is_integer) integers_.push_back(column.name);
      if (is_integer || SaysSomething(column)) table_.columns.push_back(std::move(column));
    }
    SkipItem(tokens_);
  }

  void ReadTableConstraint() {
    std::string name;
    if (tokens_.TakeWord("CONSTRAINT")) name = tokens_.TakeName();
    if (tokens_.TakeWord("PRIMARY")) {
      tokens_.TakeWord("KEY");
      ReadTableKey(std::move(name), true);
    } else if (tokens_.TakeWord("UNIQUE")) {
      if (tokens_.TakeWord("KEY") || tokens_.TakeWord("INDEX")) name = tokens_.TakeName();
      ReadTableKey(std::move(name), false);
    } else if (tokens_.TakeWord("CHECK")) {
      table_.checks.push_back({std::move(name), std::string(tokens_.TakeParentheses()), {}});
      ReadConflict();
    } else if (tokens_.TakeWord("FOREIGN")) {
      tokens_.TakeWord("KEY");
      if (!tokens_.Is('(')) tokens_.TakeName();
      DefinedForeignKey key;
      key.name = std::move(name);
      bool auto_increment = false;
      ReadColumnList(key.columns, auto_increment);
      if (tokens_.TakeWord("REFERENCES")) ReadReference(key);
      table_.foreign_keys.push_back(std::move(key));
    }
  }

  void ReadTableKey(std::string name, bool primary) {
    DefinedKey key;
    key.name = std::move(name);
    key.primary = primary;
    bool auto_increment = false;
    ReadColumnList(key.columns, auto_increment);
    key.on_conflict = ReadConflict();
    if (auto_increment && key.columns.size() == 1) {
      for (DefinedColumn& column : table_.columns) {
        if (IsSameName(column.name, key.columns.front())) column.auto_increment = true;
      }
    }
    table_.keys.push_back(std::move(key));
  }

  // Of every part the name in front; what follows is its order or its collation.
  void ReadColumnList(std::vector<std::string>& columns, bool& auto_increment) {
    if (!tokens_.Take('(')) return;
    while (!tokens_.AtEnd() && !tokens_.Is(')')) {
      columns.push_back(tokens_.TakeName());
      while (!tokens_.AtEnd() && !tokens_.Is(',') && !tokens_.Is(')')) {
        if (tokens_.IsWord("AUTOINCREMENT")) auto_increment = true;
        if (tokens_.Is('(')) {
          tokens_.TakeParentheses();
        } else {
          tokens_.Next();
        }
      }
      if (!tokens_.Take(',')) break;
    }
    tokens_.Take(')');
  }

  // "replace" of ON CONFLICT REPLACE; empty where it is not there.
  std::string ReadConflict() {
    if (!tokens_.IsWord("ON")) return {};
    const DefinitionTokens here = tokens_;
    if (tokens_.TakeWord("ON") && tokens_.TakeWord("CONFLICT")) {
      return LowerCase(tokens_.TakeName());
    }
    tokens_ = here;
    return {};
  }

  static bool SaysSomething(const DefinedColumn& column) {
    return !column.collation.empty() || !column.expression.empty() ||
           !column.not_null_name.empty() || !column.on_null.empty();
  }

  // True when the type is INTEGER, and spelled so.
  bool ReadColumn(DefinedColumn& column) {
    std::string name;  // of the constraint that follows
    bool in_type = true;
    bool is_integer = false;
    int type_words = 0;
    while (!tokens_.AtEnd() && !tokens_.Is(',') && !tokens_.Is(')')) {
      if (tokens_.TakeWord("CONSTRAINT")) {
        name = tokens_.TakeName();
        in_type = false;
      } else if (tokens_.kind() == DefinitionTokens::Kind::kWord &&
                 ReadColumnConstraint(column, name)) {
        in_type = false;
      } else if (tokens_.Is('(')) {
        tokens_.TakeParentheses();
        ++type_words;
      } else {
        if (in_type) {
          is_integer = ++type_words == 1 && IsInteger();
        }
        tokens_.Next();
      }
    }
    return is_integer && type_words == 1;
  }

  bool IsInteger() const {
    DefinitionTokens here = tokens_;
    return tokens_.IsWord("INTEGER") || (tokens_.kind() == DefinitionTokens::Kind::kQuoted &&
                                         IsSameName(here.TakeName(), "INTEGER"));
  }

  // One constraint of a column; false, and nothing is passed, where there is none.
  bool ReadColumnConstraint(DefinedColumn& column, std::string& name) {
    if (tokens_.TakeWord("PRIMARY")) {
      ReadColumnKey(column, std::move(name), true);
    } else if (tokens_.TakeWord("UNIQUE")) {
      ReadColumnKey(column, std::move(name), false);
    } else if (tokens_.TakeWord("NOT")) {
      if (tokens_.TakeWord("NULL")) {
        column.not_null_name = std::move(name);
        column.on_null = ReadConflict();
      } else if (tokens_.TakeWord("DEFERRABLE")) {
        tokens_.TakeWord("INITIALLY");
      }
    } else if (tokens_.TakeWord("CHECK")) {
      table_.checks.push_back(
          {std::move(name), std::string(tokens_.TakeParentheses()), column.name});
    } else if (tokens_.TakeWord("DEFAULT")) {
      ReadDefault();
    } else if (tokens_.TakeWord("COLLATE")) {
      column.collation = tokens_.TakeName();
    } else if (tokens_.TakeWord("REFERENCES")) {
      DefinedForeignKey key;
      key.name = std::move(name);
      key.columns.push_back(column.name);
      ReadReference(key);
      table_.foreign_keys.push_back(std::move(key));
    } else if (tokens_.IsWord("DEFERRABLE")) {
      DefinedForeignKey none;
      ReadDeferrable(table_.foreign_keys.empty() ? none : table_.foreign_keys.back());
    } else if (tokens_.TakeWord("AS")) {
      column.expression = tokens_.TakeParentheses();
    } else if (!ReadGenerated()) {
      return false;
    }
    name.clear();
    return true;
  }

  bool ReadGenerated() {
    if (!tokens_.IsWord("GENERATED")) return false;
    const DefinitionTokens here = tokens_;
    if (tokens_.TakeWord("GENERATED") && tokens_.TakeWord("ALWAYS")) return true;
    tokens_ = here;
    return false;
  }

  void ReadDefault() {
    if (tokens_.Is('+') || tokens_.Is('-')) tokens_.Next();
    if (!tokens_.Is('(')) {
      tokens_.Next();
      // 1.5e-3 is several tokens.
      while (tokens_.Is('.') || tokens_.Is('-') || tokens_.Is('+')) {
        tokens_.Next();
        tokens_.Next();
      }
    }
    if (tokens_.Is('(')) tokens_.TakeParentheses();
  }

  void ReadColumnKey(DefinedColumn& column, std::string name, bool primary) {
    tokens_.TakeWord("KEY");
    DefinedKey key;
    key.name = std::move(name);
    key.primary = primary;
    key.columns.push_back(column.name);
    // A descending key of its own column is no other name for the row's number.
    if (tokens_.TakeWord("DESC")) {
      descending_ = descending_ || primary;
    } else {
      tokens_.TakeWord("ASC");
    }
    key.on_conflict = ReadConflict();
    if (tokens_.TakeWord("AUTOINCREMENT")) column.auto_increment = true;
    table_.keys.push_back(std::move(key));
  }

  void ReadReference(DefinedForeignKey& key) {
    key.target_table = tokens_.TakeName();
    if (tokens_.Take('.')) key.target_table = tokens_.TakeName();
    bool auto_increment = false;
    ReadColumnList(key.target_columns, auto_increment);
    for (;;) {
      const DefinitionTokens here = tokens_;
      if (tokens_.TakeWord("ON")) {
        if (tokens_.TakeWord("DELETE")) {
          key.on_delete = ReadAction();
        } else if (tokens_.TakeWord("UPDATE")) {
          key.on_update = ReadAction();
        } else if (tokens_.TakeWord("INSERT")) {
          ReadAction();
        } else {
          tokens_ = here;
          return;
        }
      } else if (tokens_.TakeWord("MATCH")) {
        tokens_.TakeName();
      } else if (!ReadDeferrable(key)) {
        return;
      }
    }
  }

  std::string ReadAction() {
    std::string action = LowerCase(tokens_.TakeName());
    if (action == "set" || action == "no") action += ' ' + LowerCase(tokens_.TakeName());
    return action;
  }

  bool ReadDeferrable(DefinedForeignKey& key) {
    if (!tokens_.IsWord("NOT") && !tokens_.IsWord("DEFERRABLE")) return false;
    const DefinitionTokens here = tokens_;
    const bool is_not = tokens_.TakeWord("NOT");
    if (!tokens_.TakeWord("DEFERRABLE")) {
      tokens_ = here;
      return false;
    }
    LeDeferrable deferrable = dfImmediate;
    if (tokens_.TakeWord("INITIALLY")) {
      if (tokens_.IsWord("DEFERRED")) deferrable = dfDeferred;
      tokens_.Next();
    }
    key.deferrable = is_not ? dfNot : deferrable;
    return true;
  }

  void ReadOptions() {
    for (; !tokens_.AtEnd(); tokens_.Next()) {
      if (tokens_.IsWord("STRICT")) table_.strict = true;
      if (tokens_.IsWord("ROWID")) table_.without_rowid = true;
    }
  }

  void SettleRowid() {
    if (table_.without_rowid || descending_) return;
    for (const DefinedKey& key : table_.keys) {
      if (!key.primary || key.columns.size() != 1) continue;
      const std::string& name = key.columns.front();
      const bool is_integer =
          std::any_of(integers_.begin(), integers_.end(),
                      [&](const std::string& integer) { return IsSameName(integer, name); });
      if (!is_integer) continue;
      for (DefinedColumn& column : table_.columns) {
        if (IsSameName(column.name, name)) column.is_rowid = true;
      }
    }
  }

  DefinitionTokens tokens_;
  TableDefinition& table_;
  std::vector<std::string> integers_;  // columns of the type INTEGER
  bool descending_ = false;
};

// A part of an index: an expression, and behind it its collation and order.
IndexDefinition::Part ReadPart(DefinitionTokens& tokens) {
  IndexDefinition::Part part;
  const std::size_t begin = tokens.begin();
  std::size_t end = begin;
  std::size_t count = 0;
  bool is_name = false;
  std::string name;
  while (!tokens.AtEnd() && !tokens.Is(',') && !tokens.Is(')')) {
    if (count > 0 && tokens.TakeWord("COLLATE")) {
      part.collation = tokens.TakeName();
      continue;
    }
    if (count > 0 && (tokens.TakeWord("ASC") || tokens.TakeWord("DESC"))) continue;
    if (count > 0 && tokens.TakeWord("NULLS")) {
      tokens.Next();
      continue;
    }
    // What looked like the end was not: `a COLLATE x || b`.
    part.collation.clear();
    ++count;
    if (tokens.Is('(')) {
      tokens.TakeParentheses();
      is_name = false;
    } else {
      is_name = count == 1 && tokens.kind() != DefinitionTokens::Kind::kOther;
      const DefinitionTokens here = tokens;
      name = tokens.TakeName();
      if (name.empty()) {
        tokens = here;
        tokens.Next();
      }
    }
    end = tokens.last_end();
  }
  part.is_column = is_name && count == 1;
  part.expression = part.is_column ? name : std::string(tokens.Text(begin, end));
  return part;
}

}  // namespace

TableDefinition ReadTableDefinition(std::string_view text, bool backslash_escapes) {
  TableDefinition table;
  DefinedTableReader(text, backslash_escapes, table).Run();
  return table;
}

IndexDefinition ReadIndexDefinition(std::string_view text) {
  IndexDefinition index;
  DefinitionTokens tokens(text);
  while (!tokens.AtEnd() && !tokens.Is('(')) tokens.Next();
  if (!tokens.Take('(')) return index;
  while (!tokens.AtEnd() && !tokens.Is(')')) {
    index.parts.push_back(ReadPart(tokens));
    if (!tokens.Take(',')) break;
  }
  tokens.Take(')');
  if (!tokens.TakeWord("WHERE")) return index;
  const std::size_t begin = tokens.begin();
  while (!tokens.AtEnd()) tokens.Next();
  index.predicate = tokens.Text(begin, tokens.last_end());
  return index;
}

TriggerDefinition ReadTriggerDefinition(std::string_view text) {
  TriggerDefinition trigger;
  DefinitionTokens tokens(text);
  while (!tokens.AtEnd() && !tokens.TakeWord("TRIGGER")) tokens.Next();
  if (tokens.TakeWord("IF")) {
    tokens.TakeWord("NOT");
    tokens.TakeWord("EXISTS");
  }
  tokens.TakeName();
  if (tokens.Take('.')) tokens.TakeName();
  trigger.timing = "before";  // where nothing is written
  if (tokens.TakeWord("AFTER")) {
    trigger.timing = "after";
  } else if (tokens.TakeWord("INSTEAD")) {
    tokens.TakeWord("OF");
    trigger.timing = "instead of";
  } else {
    tokens.TakeWord("BEFORE");
  }
  trigger.events = LowerCase(tokens.TakeName());
  if (!tokens.TakeWord("OF")) return trigger;
  const char* separator = " of ";
  do {
    trigger.events += separator + tokens.TakeName();
    separator = ", ";
  } while (tokens.Take(','));
  return trigger;
}

std::string_view ReadViewQuery(std::string_view text) {
  DefinitionTokens tokens(text);
  while (!tokens.AtEnd() && !tokens.IsWord("VIEW")) tokens.Next();
  tokens.Next();
  while (!tokens.AtEnd() && !tokens.TakeWord("AS")) {
    if (tokens.Is('(')) {
      tokens.TakeParentheses();
    } else {
      tokens.Next();
    }
  }
  const std::size_t begin = tokens.begin();
  while (!tokens.AtEnd()) tokens.Next();
  return tokens.Text(begin, tokens.last_end());
}

}  // namespace odbcimport::exact
