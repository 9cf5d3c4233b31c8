#include "export/facts.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/utf.h"

namespace wbexport {

namespace {

std::string Show(const LcText& text) { return DisplayLine(text.View()); }

std::string Named(const char16_t* name) { return name == nullptr ? std::string() : Display(name); }

// Options that are there or not there; their values are "1" or "yes", and "0" or "no".
constexpr std::u16string_view kFlags[] = {
    u"deterministic",    u"enabled",       u"enforced",
    u"hidden",           u"ignored",       u"invisible",
    u"leakproof",        u"no inherit",    u"nulls not distinct",
    u"row security",     u"rowid",         u"security definer",
    u"shadow table",     u"strict",        u"system versioned",
    u"unlogged",         u"valid",         u"validated",
    u"without overlaps", u"without rowid", u"without system versioning",
};

std::string Show(const LcOptions::Option& option) {
  const bool is_flag =
      std::find(std::begin(kFlags), std::end(kFlags), option.name.View()) != std::end(kFlags);
  const std::string name = Show(option.name);
  const std::u16string_view value = option.value.View();
  if (is_flag && (value == u"1" || value == u"yes" || value == u"YES")) return name;
  if (is_flag && (value == u"0" || value == u"no")) return "not " + name;
  return name + " " + Show(option.value);
}

// "fillfactor 70, engine InnoDB, without rowid"
std::string Show(const LcOptions& options) {
  std::string list;
  for (const LcOptions::Option& option : options.All()) Join(list, Show(option));
  return list;
}

std::string Show(LeDeferrable deferrable) {
  switch (deferrable) {
    case dfNot:
      break;
    case dfImmediate:
      return "deferrable";
    case dfDeferred:
      return "deferrable, initially deferred";
  }
  return "";
}

Fact MakeFact(std::string kind, const LcText& name, std::string text, const LcText& comment) {
  Fact fact;
  fact.kind = std::move(kind);
  fact.name = Display(name.View());
  fact.text = std::move(text);
  fact.comment = DisplayLines(comment.View());
  return fact;
}

std::string Parts(const LcIndexDetails& index, bool included) {
  std::string list;
  for (const LcIndexPart& part : index.parts) {
    if (part.included != included) continue;
    std::string text =
        part.column != nullptr ? Display(part.column->GetName()) : Show(part.expression);
    if (part.descending) text += " desc";
    const std::string options = Show(part.options);
    if (!options.empty()) text += " [" + options + "]";
    Join(list, text);
  }
  return list;
}

// Whether an index only holds up a key that is told already.
bool IsOfKey(const LcIndexDetails& index, const LcTableDetails& table) {
  if (index.predicate.IsPresent() || index.comment.IsPresent() || !index.options.IsEmpty()) {
    return false;
  }
  const auto holds_up = [&](const LcKeyDetails& key) {
    return key.name == index.name &&
           std::equal(index.parts.begin(), index.parts.end(), key.columns.begin(),
                      key.columns.end(), [](const LcIndexPart& part, const auto* column) {
                        return part.column == column && !part.descending && !part.included &&
                               part.options.IsEmpty();
                      });
  };
  return (table.primary_key && holds_up(*table.primary_key)) ||
         std::any_of(table.unique_keys.begin(), table.unique_keys.end(), holds_up);
}

std::string QuotedLabel(const LcText& label) {
  std::string quoted = "'";
  for (const char c : Display(label.View()))
    quoted += c == '\'' ? std::string("''") : std::string(1, c);
  return quoted + "'";
}

}  // namespace

void Join(std::string& list, const std::string& piece, const char* separator) {
  if (piece.empty()) return;
  if (!list.empty()) list += separator;
  list += piece;
}

std::string CommentOf(const LcWorkbookTable& table) {
  const LcTableDetails* details = table.GetDetails();
  return details == nullptr ? std::string() : DisplayLines(details->comment.View());
}

std::string CommentOf(const LcWorkbookColumn& column) {
  const LcColumnDetails* details = column.GetDetails();
  return details == nullptr ? std::string() : DisplayLines(details->comment.View());
}

std::string ViewTextOf(const LcWorkbookTable& table) {
  const LcTableDetails* details = table.GetDetails();
  return details == nullptr ? std::string() : DisplayLines(details->view_text.View());
}

std::string Flat(const std::string& text) { return DisplayLine(base::ToUtf16(text)); }

std::vector<std::string> SplitLines(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t at = 0; at <= text.size();) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    lines.push_back(text.substr(at, end - at));
    at = end + 1;
  }
  while (!lines.empty() && lines.back().find_first_not_of(" \t") == std::string::npos)
    lines.pop_back();
  return lines;
}

Facts::Facts(const Document& document)
    : product_(base::FindProduct(base::ToUtf8(document.info.dbms_name))) {
  for (const LcWorkbookTable* table : document.workbook.tables.Present()) {
    const LcTableDetails* details = table->GetDetails();
    if (details == nullptr || !details->parent_table.IsPresent()) continue;
    const LcWorkbookTable* parent = document.workbook.tables.FindTable(
        details->parent_owner.Text(), details->parent_table.Text());
    if (parent == nullptr || parent == table) continue;
    folded_.emplace(table, parent);
    parts_[parent].push_back(table);
  }
  // A file may make tables parts of one another: those stand for themselves.
  std::unordered_map<const LcWorkbookTable*, const LcWorkbookTable*> reached;
  std::vector<const LcWorkbookTable*> open;
  for (const auto& [parent, parts] : parts_) {
    if (folded_.count(parent) == 0) open.push_back(parent);
  }
  while (!open.empty()) {
    const LcWorkbookTable* parent = open.back();
    open.pop_back();
    const auto found = parts_.find(parent);
    if (found == parts_.end()) continue;
    for (const LcWorkbookTable* part : found->second) reached.emplace(part, parent);
    open.insert(open.end(), found->second.begin(), found->second.end());
  }
  std::erase_if(parts_, [&](const auto& entry) { return reached.count(entry.second[0]) == 0; });
  folded_ = std::move(reached);
}

std::vector<const LcWorkbookTable*> Facts::PartsOf(const LcWorkbookTable& table) const {
  std::vector<const LcWorkbookTable*> all;
  std::vector<const LcWorkbookTable*> open = {&table};
  while (!open.empty()) {
    const LcWorkbookTable* next = open.back();
    open.pop_back();
    if (next != &table) all.push_back(next);
    const auto found = parts_.find(next);
    if (found != parts_.end())
      open.insert(open.end(), found->second.rbegin(), found->second.rend());
  }
  return all;
}

std::string Facts::OfPart(const LcWorkbookTable& part, const LcWorkbookTable& of) const {
  const LcWorkbookTable* parent = folded_.at(&part);
  std::string text =
      part.GetOwner(true) == of.GetOwner(true) ? Display(part.GetName()) : DisplayName(part);
  const LcText bound = part.GetDetails()->options.Find(u"partition bound");
  if (bound.IsPresent()) text += ": " + Show(bound);
  if (parent != &of) text += ", of " + Display(parent->GetName());
  return text;
}

std::vector<std::string> Facts::OfColumn(const LcWorkbookColumn& column) {
  std::vector<std::string> remarks;
  const LcColumnDetails* details = column.GetDetails();
  if (details == nullptr || details->identity == idNone) {
    if (column.IsGeneratedKey()) remarks.emplace_back("generated");
  } else if (details->identity == idAutoIncrement) {
    remarks.emplace_back("auto increment");
  } else {
    remarks.push_back("identity " + Named(LcNameOf(details->identity)));
  }
  if (details != nullptr) {
    if (details->default_text.IsPresent()) {
      remarks.push_back("default " + Show(details->default_text));
    }
    if (details->generated != gnNone) {
      remarks.push_back(Named(LcNameOf(details->generated)) + " " + Show(details->expression));
    }
    if (details->collation.IsPresent()) remarks.push_back("collation " + Show(details->collation));
  }
  const bool computed =
      details != nullptr && (details->generated != gnNone || details->identity == idAlways);
  if (column.IsReadOnly() && !computed) remarks.emplace_back("read only");
  if (details != nullptr && !details->options.IsEmpty()) remarks.push_back(Show(details->options));
  return remarks;
}

bool Facts::IsMade(base::NamedKind kind, const LcText& name, const LcWorkbookTable& table,
                   const std::vector<const LcWorkbookColumn*>& columns) const {
  if (!name.IsPresent()) return true;
  std::vector<std::string> names;
  if (product_ == base::Product::kPostgreSQL) {  // whose names have columns in them
    for (const LcWorkbookColumn* column : columns) {
      names.push_back(column == nullptr ? "expr" : base::ToUtf8(column->GetName()));
    }
  }
  return base::IsMadeName(product_, kind, base::ToUtf8(name.View()), base::ToUtf8(table.GetName()),
                          names);
}

Fact Facts::OfKey(const LcKeyDetails& key, const LcWorkbookTable& table) const {
  std::string text = "(" + DisplayColumns(key.columns) + ")";
  Join(text, Show(key.deferrable));
  Join(text, Show(key.options));
  Fact fact = MakeFact(Named(LcNameOf(key.kind)) + " key", key.name, text, key.comment);
  const auto kind =
      key.kind == kkPrimary ? base::NamedKind::kPrimaryKey : base::NamedKind::kUniqueKey;
  fact.made_name = IsMade(kind, key.name, table, {key.columns.begin(), key.columns.end()});
  return fact;
}

Fact Facts::OfIndex(const LcIndexDetails& index, const LcWorkbookTable& table) const {
  std::string text = Show(index.method);
  Join(text, "(" + Parts(index, false) + ")", " ");
  const std::string included = Parts(index, true);
  if (!included.empty()) text += " including (" + included + ")";
  if (index.predicate.IsPresent()) text += " where " + Show(index.predicate);
  Join(text, Show(index.options));
  Fact fact = MakeFact(index.unique ? "unique index" : "index", index.name, text, index.comment);
  std::vector<const LcWorkbookColumn*> columns;
  for (const LcIndexPart& part : index.parts) columns.push_back(part.column);
  fact.made_name = IsMade(base::NamedKind::kIndex, index.name, table, columns);
  return fact;
}

std::vector<Fact> Facts::OfTable(const LcWorkbookTable& table) const {
  std::vector<Fact> facts;
  const LcTableDetails* details = table.GetDetails();
  if (details == nullptr) return facts;
  if (details->primary_key) {
    Fact fact = OfKey(*details->primary_key, table);
    const LcKeyDetails& key = *details->primary_key;
    if (!fact.made_name || !fact.comment.empty() || key.deferrable != dfNot ||
        !key.options.IsEmpty()) {
      facts.push_back(std::move(fact));
    }
  }
  for (const LcKeyDetails& key : details->unique_keys) facts.push_back(OfKey(key, table));
  for (const LcIndexDetails& index : details->indexes) {
    if (!IsOfKey(index, *details)) facts.push_back(OfIndex(index, table));
  }
  std::vector<const LcWorkbookColumn*> all;
  for (int i = 0; i < table.GetColumnCount() && !details->checks.empty(); ++i) {
    all.push_back(table.GetColumn(i));
  }
  for (const LcCheckDetails& check : details->checks) {
    std::string text = Show(check.expression);
    Join(text, Show(check.options));
    facts.push_back(MakeFact("check", check.name, text, check.comment));
    facts.back().made_name = IsMade(base::NamedKind::kCheck, check.name, table, all);
  }
  for (const LcTriggerDetails& trigger : details->triggers) {
    std::string text = Show(trigger.timing);
    Join(text, Show(trigger.events), " ");
    Join(text, Show(trigger.options));
    facts.push_back(MakeFact("trigger", trigger.name, text, trigger.comment));
    facts.back().body = DisplayLines(trigger.text.View());
  }
  LcOptions others;
  for (const LcOptions::Option& option : details->options.All()) {
    const bool shown = IsFolded(table) && option.name == LcText(u"partition bound");
    if (!shown) others.Set(option.name, option.value);
  }
  if (!others.IsEmpty()) facts.push_back(MakeFact("options", {}, Show(others), {}));
  return facts;
}

std::string Facts::OfReference(const LcForeignKeyDetails* details) {
  if (details == nullptr) return "";
  std::string text;
  const auto action = [&](const char* when, const LcText& what) {
    if (what.IsPresent() && what.View() != u"no action") text += when + Show(what);
  };
  action(", on delete ", details->on_delete);
  action(", on update ", details->on_update);
  if (details->match.IsPresent() && details->match.View() != u"simple") {
    text += ", match " + Show(details->match);
  }
  if (details->deferrable != dfNot) text += ", " + Show(details->deferrable);
  if (!details->enforced) text += ", not enforced";
  if (!details->options.IsEmpty()) text += ", " + Show(details->options);
  return text;
}

std::string Facts::NameOfReference(const Relationship& relationship) const {
  if (relationship.details == nullptr) return "";
  const bool made =
      IsMade(base::NamedKind::kForeignKey, relationship.details->name, *relationship.from,
             {relationship.from_columns.begin(), relationship.from_columns.end()});
  return made ? "" : Display(relationship.details->name.View());
}

std::vector<Fact> Facts::OutsideKeys(const LcWorkbookTable& table) const {
  std::vector<Fact> facts;
  if (table.GetDetails() == nullptr) return facts;
  for (const LcOutsideKey& key : table.GetDetails()->outside_keys) {
    std::string columns;
    for (const LcText& column : key.target_columns) Join(columns, Display(column.View()));
    facts.push_back(
        MakeFact("foreign key", key.details.name,
                 fmt::format("({}) -> {} ({}){}", DisplayColumns(key.columns),
                             DisplayName(key.target_owner.View(), key.target_table.View()), columns,
                             OfReference(&key.details)),
                 key.details.comment));
    facts.back().made_name = IsMade(base::NamedKind::kForeignKey, key.details.name, table,
                                    {key.columns.begin(), key.columns.end()});
  }
  return facts;
}

Fact Facts::OfType(const LcTypeDetails& type) {
  std::string text;
  if (type.base_type.IsPresent()) Join(text, "of " + Show(type.base_type));
  for (const LcText& label : type.labels) Join(text, QuotedLabel(label));
  for (const LcTypeAttribute& attribute : type.attributes) {
    Join(text, Display(attribute.name.View()) + " " + Show(attribute.type));
  }
  if (!type.nullable) Join(text, "not null");
  if (type.default_text.IsPresent()) Join(text, "default " + Show(type.default_text));
  for (const LcCheckDetails& check : type.checks) Join(text, "check " + Show(check.expression));
  Join(text, Show(type.options));
  Fact fact = MakeFact(Named(LcNameOf(type.kind)), type.name, text, type.comment);
  fact.name = DisplayName(type.schema.View(), type.name.View());
  return fact;
}

Fact Facts::OfSequence(const LcSequenceDetails& sequence) {
  std::string text = Show(sequence.type);
  const auto add = [&](const char* what, const LcText& number) {
    if (number.IsPresent()) Join(text, what + Show(number));
  };
  add("start ", sequence.start);
  add("increment ", sequence.increment);
  add("minimum ", sequence.minimum);
  add("maximum ", sequence.maximum);
  if (sequence.cycle) Join(text, "cycle");
  if (sequence.owner_table.IsPresent()) {
    Join(text, "of " + Display(sequence.owner_table.View()) + "." +
                   Display(sequence.owner_column.View()));
  }
  Join(text, Show(sequence.options));
  Fact fact = MakeFact("sequence", sequence.name, text, sequence.comment);
  fact.name = DisplayName(sequence.schema.View(), sequence.name.View());
  return fact;
}

Fact Facts::OfRoutine(const LcRoutineDetails& routine) {
  std::string parameters;
  for (const LcParameterDetails& parameter : routine.parameters) {
    std::string text;
    if (parameter.mode.IsPresent() && parameter.mode.View() != u"in") text = Show(parameter.mode);
    Join(text, Display(parameter.name.View()), " ");
    Join(text, Show(parameter.type), " ");
    if (parameter.default_text.IsPresent()) text += " = " + Show(parameter.default_text);
    Join(parameters, text);
  }
  std::string text = "(" + parameters + ")";
  if (routine.result.IsPresent()) text += " -> " + Show(routine.result);
  Join(text, Show(routine.language));
  Join(text, Show(routine.options));
  Fact fact = MakeFact(Named(LcNameOf(routine.kind)), routine.name, text, routine.comment);
  fact.name = DisplayName(routine.schema.View(), routine.name.View());
  fact.body = DisplayLines(routine.text.View());
  return fact;
}

std::string Facts::OfNotRead(const LcNotRead& missing) {
  std::string text = Display(missing.kind.View());
  if (missing.name.IsPresent() || missing.owner.IsPresent()) {
    text += " " + (missing.name.IsPresent() ? DisplayName(missing.owner.View(), missing.name.View())
                                            : Display(missing.owner.View()));
  }
  text += ": " + Show(missing.reason);
  return missing.withheld ? text + " (by design)" : text;
}

}  // namespace wbexport
