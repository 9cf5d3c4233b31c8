// DBML: the tables with their keys, indexes and references, for tools that draw or document them.
// What DBML has no words for (checks, triggers, view texts) stands in notes and comments.
#include <fmt/format.h>

#include <algorithm>
#include <set>
#include <unordered_set>

#include "base/utf.h"
#include "export/facts.h"
#include "export/writers.h"

namespace wbexport {

namespace {

std::string Escaped(const std::string& text, char quote) {
  std::string escaped;
  for (const char c : text) {
    if (c == quote || c == '\\') escaped += '\\';
    escaped += c;
  }
  return escaped;
}

// A name: in double quotes it may hold anything.
std::string Name(std::u16string_view name) { return '"' + Escaped(Display(name), '"') + '"'; }
std::string Name(std::u16string_view schema, std::u16string_view name) {
  return schema.empty() ? Name(name) : Name(schema) + "." + Name(name);
}
std::string Name(const LcWorkbookTable& table) {
  return Name(table.GetOwner(true), table.GetName());
}

// A text over one line or several.
std::string Text(const std::string& text) {
  const bool lines = text.find('\n') != std::string::npos;
  const char* quotes = lines ? "'''" : "'";
  return quotes + Escaped(text, '\'') + quotes;
}

// An expression; DBML has no way to write a backtick in one.
std::string Expression(const LcText& expression) {
  const std::string text = DisplayLine(expression.View());
  return text.find('`') == std::string::npos ? "`" + text + "`" : Text(text);
}

std::string Settings(const std::vector<std::string>& settings) {
  std::string list;
  for (const std::string& setting : settings) Join(list, setting);
  return list.empty() ? "" : " [" + list + "]";
}

class Script {
 public:
  Script(const Document& document, std::ostream& out)
      : workbook_(document.workbook),
        info_(document.info),
        out_(out),
        relationships_(document.workbook),
        facts_(document) {
    for (const LcTypeDetails& type : workbook_.details.types) {
      if (type.kind != tyEnum) continue;
      const std::string name = Name(type.schema.View(), type.name.View());
      enums_.emplace(DisplayName(type.schema.View(), type.name.View()), name);
      enums_.emplace(Display(type.name.View()), name);
    }
  }

  void Write() {
    WriteHead();
    for (const LcTypeDetails& type : workbook_.details.types) WriteType(type);
    for (const LcWorkbookTable* table : workbook_.tables.Present()) {
      if (!facts_.IsFolded(*table)) WriteTable(*table);
    }
    out_ << '\n';
    for (const Relationship& r : relationships_.All()) WriteReference(r);
  }

 private:
  void Comment(const std::string& text) { out_ << "// " << Flat(text) << '\n'; }

  void WriteHead() {
    Comment(SourceText(info_));
    if (info_.incomplete) Comment(IncompleteText(info_));
    for (const LcNotRead& missing : workbook_.details.not_read) {
      Comment("Not read: " + Facts::OfNotRead(missing));
    }
    const std::u16string& title = !info_.title.empty()      ? info_.title
                                  : !info_.database.empty() ? info_.database
                                                            : info_.dbms_name;
    if (title.empty()) return;
    out_ << "\nProject " << Name(title) << " {\n";
    if (!info_.dbms_name.empty()) {
      out_ << "  database_type: " << Text(Display(info_.dbms_name)) << '\n';
    }
    out_ << "  Note: " << Text(SourceText(info_)) << "\n}\n";
  }

  void WriteType(const LcTypeDetails& type) {
    const Fact fact = Facts::OfType(type);
    if (type.kind != tyEnum || fact.text.empty() || fact.text == "''") {
      Comment(fact.kind + " " + fact.name + ": " + fact.text);
      return;
    }
    if (!written_types_.insert(fact.name).second) return;
    out_ << '\n';
    if (!fact.comment.empty()) Comment(fact.comment);
    out_ << "Enum " << Name(type.schema.View(), type.name.View()) << " {\n";
    for (const LcText& label : type.labels) {
      out_ << "  " << (label.View().empty() ? "// the empty text" : Name(label.View())) << '\n';
    }
    out_ << "}\n";
  }

  // Keys of one column stand with it, those of several among the indexes.
  static bool IsSingle(const LcKeyDetails& key, const LcWorkbookColumn& column) {
    return key.columns.size() == 1 && key.columns[0] == &column;
  }

  std::string Type(const LcWorkbookColumn& column) const {
    const std::string text = TypeText(column);
    const auto of_enum = enums_.find(text);
    if (of_enum != enums_.end()) return of_enum->second;
    return '"' + Escaped(text.empty() ? "unknown" : text, '"') + '"';
  }

  void WriteColumn(const LcWorkbookTable& table, const LcWorkbookColumn& column) {
    std::vector<std::string> settings;
    const std::vector<LcWorkbookColumn*> key = table.GetPrimaryKey().GetColumns();
    if (key.size() == 1 && key[0] == &column) settings.emplace_back("pk");
    const LcColumnDetails* details = column.GetDetails();
    const LeIdentity identity = details == nullptr ? idNone : details->identity;
    if (column.IsGeneratedKey() || identity != idNone) settings.emplace_back("increment");
    if (table.GetDetails() != nullptr) {
      const auto& keys = table.GetDetails()->unique_keys;
      const bool unique =
          std::any_of(keys.begin(), keys.end(),
                      [&](const LcKeyDetails& unique_key) { return IsSingle(unique_key, column); });
      if (unique) settings.emplace_back("unique");
    }
    if (column.IsRequired()) settings.emplace_back("not null");
    std::string note = CommentOf(column);
    if (details != nullptr && details->default_text.IsPresent()) {
      settings.push_back("default: " + Expression(details->default_text));
    }
    if (details != nullptr && details->generated != gnNone) {
      Join(note,
           Display(LcNameOf(details->generated)) + " " + DisplayLine(details->expression.View()),
           "\n");
    }
    if (!note.empty()) settings.push_back("note: " + Text(note));
    out_ << "  " << Name(column.GetName()) << ' ' << Type(column) << Settings(settings) << '\n';
  }

  void WriteKey(const std::vector<LcWorkbookColumn*>& columns,
                const std::vector<std::string>& settings) {
    std::string list;
    for (const LcWorkbookColumn* column : columns) Join(list, Name(column->GetName()));
    indexes_.push_back("(" + list + ")" + Settings(settings));
  }

  void WriteIndex(const LcIndexDetails& index) {
    std::string list;
    for (const LcIndexPart& part : index.parts) {
      if (part.included) continue;
      Join(list,
           part.column != nullptr ? Name(part.column->GetName()) : Expression(part.expression));
    }
    if (list.empty()) return;
    std::vector<std::string> settings;
    if (index.unique) settings.emplace_back("unique");
    if (index.name.IsPresent()) settings.push_back("name: " + Text(Display(index.name.View())));
    const std::u16string_view method = index.method.View();
    if (method == u"btree" || method == u"hash") settings.push_back("type: " + Display(method));
    std::string note = DisplayLines(index.comment.View());
    if (index.predicate.IsPresent()) {
      Join(note, "where " + DisplayLine(index.predicate.View()), "\n");
    }
    if (!note.empty()) settings.push_back("note: " + Text(note));
    indexes_.push_back("(" + list + ")" + Settings(settings));
  }

  void CollectIndexes(const LcWorkbookTable& table) {
    indexes_.clear();
    const LcTableDetails* details = table.GetDetails();
    const auto named = [](std::string what, const LcKeyDetails* key) {
      std::vector<std::string> settings = {std::move(what)};
      if (key != nullptr && key->name.IsPresent()) {
        settings.push_back("name: " + Text(Display(key->name.View())));
      }
      return settings;
    };
    const std::vector<LcWorkbookColumn*> key = table.GetPrimaryKey().GetColumns();
    if (key.size() > 1) {
      WriteKey(key, named("pk", details == nullptr ? nullptr : details->primary_key.get()));
    }
    if (details == nullptr) return;
    for (const LcKeyDetails& unique : details->unique_keys) {
      if (unique.columns.size() > 1) WriteKey(unique.columns, named("unique", &unique));
    }
    for (const LcIndexDetails& index : details->indexes) WriteIndex(index);
  }

  // The comment, and what DBML has no words for.
  std::string Note(const LcWorkbookTable& table) const {
    std::string note = CommentOf(table);
    const std::string kind = KindName(table);
    if (table.GetType() == ttSynonym) {
      Join(note, "A synonym of " + SynonymTarget(table.GetSynonymDetails()) + ".", "\n");
    } else if (kind != "table") {
      Join(note, "A " + kind + ".", "\n");
    }
    for (const Fact& fact : facts_.OutsideKeys(table)) Join(note, "Refers to: " + fact.text, "\n");
    for (const Fact& fact : facts_.OfTable(table)) {
      if (fact.kind == "check" || fact.kind == "trigger" || fact.kind == "options") {
        Join(note, fact.kind + " " + fact.name + (fact.name.empty() ? "" : " ") + fact.text, "\n");
      }
    }
    const std::vector<const LcWorkbookTable*> parts = facts_.PartsOf(table);
    if (!parts.empty()) Join(note, Count(parts.size(), "partition", "partitions") + ".", "\n");
    return note;
  }

  void WriteTable(const LcWorkbookTable& table) {
    out_ << '\n';
    if (table.GetColumnCount() == 0) {
      Comment(KindName(table) + " " + DisplayName(table) + " has no columns");
      return;
    }
    if (!names_.insert(DisplayName(table)).second) {
      Comment("another " + KindName(table) + " " + DisplayName(table) + " is left out");
      return;
    }
    written_.insert(&table);
    out_ << "Table " << Name(table) << " {\n";
    std::unordered_set<std::string> columns;
    for (int i = 0; i < table.GetColumnCount(); ++i) {
      const LcWorkbookColumn& column = *table.GetColumn(i);
      if (columns.insert(Display(column.GetName())).second) {
        WriteColumn(table, column);
      } else {
        Comment("another column " + Display(column.GetName()) + " is left out");
      }
    }
    CollectIndexes(table);
    if (!indexes_.empty()) out_ << "\n  indexes {\n";
    for (const std::string& index : indexes_) out_ << "    " << index << '\n';
    if (!indexes_.empty()) out_ << "  }\n";
    const std::string note = Note(table);
    if (!note.empty()) out_ << "\n  Note: " << Text(note) << '\n';
    out_ << "}\n";
  }

  static std::string Side(const LcWorkbookTable& table,
                          const std::vector<LcWorkbookColumn*>& columns) {
    std::string list;
    for (const LcWorkbookColumn* column : columns) Join(list, Name(column->GetName()));
    return Name(table) + "." + (columns.size() == 1 ? list : "(" + list + ")");
  }

  // DBML refuses a reference between ends that have one already, and one from a column to itself.
  void WriteReference(const Relationship& r) {
    if (facts_.IsRepeated(r)) return;
    const std::string from = Side(*r.from, r.from_columns);
    const std::string to = Side(*r.to, r.to_columns);
    const bool fits = r.from_columns.size() == r.to_columns.size() && from != to &&
                      written_.count(r.from) != 0 && written_.count(r.to) != 0 &&
                      references_.insert(std::minmax(from, to)).second;
    if (!fits) {
      Comment("left out: " + from + " > " + to);
      return;
    }
    std::vector<std::string> settings;
    const auto action = [&](const char* when, const LcText& what) {
      static constexpr std::u16string_view kKnown[] = {u"no action", u"restrict", u"cascade",
                                                       u"set null", u"set default"};
      const bool known =
          std::find(std::begin(kKnown), std::end(kKnown), what.View()) != std::end(kKnown);
      if (known && what.View() != u"no action") settings.push_back(when + Display(what.View()));
    };
    std::string name;
    if (r.details != nullptr) {
      action("delete: ", r.details->on_delete);
      action("update: ", r.details->on_update);
      if (r.details->name.IsPresent()) name = " " + Name(r.details->name.View());
    }
    out_ << "Ref" << name << ": " << from << (r.one_to_one ? " - " : " > ") << to
         << Settings(settings) << '\n';
  }

  const LcWorkbook& workbook_;
  const LcWorkbookFileInfo& info_;
  std::ostream& out_;
  const Relationships relationships_;
  const Facts facts_;
  std::unordered_map<std::string, std::string> enums_;  // by the name that a column's type has
  std::unordered_set<std::string> written_types_;
  std::unordered_set<std::string> names_;
  std::unordered_set<const LcWorkbookTable*> written_;
  std::set<std::pair<std::string, std::string>> references_;
  std::vector<std::string> indexes_;
};

}  // namespace

bool WriteDbml(const Document& document, const Options& /*options*/, std::ostream& out,
               Notes& /*notes*/) {
  Script(document, out).Write();
  return true;
}

}  // namespace wbexport
