#include "export/sql_context.h"

#include <algorithm>
#include <unordered_map>

#include "base/utf.h"
#include "export/facts.h"
#include "export/sql_lists.h"
#include "export/sql_order.h"

namespace wbexport::sql {
namespace {

// The schema that names without one mean: the server's default, else the only one there is.
std::u16string DefaultSchema(const LcWorkbook& workbook) {
  for (const LcSchemaDetails& schema : workbook.details.schemas) {
    if (schema.is_default) return schema.name.Text();
  }
  const LcWorkbookTable* first = nullptr;
  for (const LcWorkbookTable* table : workbook.tables.Present()) {
    if (first != nullptr && table->GetOwner(false) != first->GetOwner(false)) return {};
    first = table;
  }
  return first != nullptr ? first->GetOwner(false) : std::u16string();
}

LeTableKind KindOf(const LcWorkbookTable& table) {
  return table.GetDetails() != nullptr ? table.GetDetails()->kind : tkUnknown;
}

// Names with a zero between them, which none of them has.
std::u16string OwnerKey(std::u16string_view schema, std::u16string_view table,
                        std::u16string_view column) {
  std::u16string key(schema);
  key += u'\0';
  key += table;
  key += u'\0';
  return key += column;
}

}  // namespace

Context::Context(const Document& document, const Target& the_target, std::ostream& stream)
    : workbook(document.workbook),
      info(document.info),
      target(the_target),
      out(stream),
      translated(base::ToUtf8(document.info.dialect) != the_target.name),
      default_schema_(DefaultSchema(document.workbook)),
      names(translated ? Names(the_target, document.workbook,
                               [this](const LcWorkbookTable& table) {
                                 return Wanted(table.GetOwner(false), table.GetName());
                               })
                       : Names(the_target)) {
  for (const LcWorkbookTable* table : workbook.tables.Present()) {
    (IsView(*table) ? views_ : tables_).insert(Lowered(table->GetName()));
    const std::u16string* renamed = names.Of(*table);
    if (translated) names_.insert(Lowered(renamed != nullptr ? *renamed : table->GetName()));
  }
  for (const LcSequenceDetails& sequence : workbook.details.sequences) {
    if (!sequence.owner_column.IsPresent()) continue;
    sequences_.emplace(
        OwnerKey(sequence.schema.View(), sequence.owner_table.View(), sequence.owner_column.View()),
        &sequence);
  }
}

// Where there are no schemas at all, names of one that is not the default one begin with it.
std::u16string Context::Wanted(std::u16string_view schema, std::u16string_view name) const {
  const bool begins =
      translated && !target.has_databases && !schema.empty() && schema != default_schema_;
  return begins ? std::u16string(schema) + u'.' + std::u16string(name) : std::u16string(name);
}

std::string Context::Schema(std::u16string_view schema) const {
  const bool goes_without =
      !target.has_databases || (!target.has_schemas && schema == default_schema_);
  if (schema.empty() || goes_without) return "";
  return target.Quote(translated ? names.Fit(schema) : std::u16string(schema)) + ".";
}

std::string Context::Name(std::u16string_view schema, std::u16string_view name) const {
  const std::u16string wanted = Wanted(schema, name);
  return Schema(schema) + target.Quote(translated ? names.Fit(wanted) : wanted);
}

std::string Context::Name(const LcWorkbookTable& table) const {
  const std::u16string* renamed = names.Of(table);
  if (renamed == nullptr) return Name(table.GetOwner(false), table.GetName());
  return Schema(table.GetOwner(false)) + target.Quote(*renamed);
}

std::string Context::Quote(const std::vector<LcWorkbookColumn*>& columns) const {
  std::string list;
  for (const LcWorkbookColumn* column : columns) Join(list, Quote(*column));
  return list;
}

void Context::SayRenamed(const LcWorkbookTable& table) {
  if (const std::u16string* name = names.Of(table)) {
    LeaveOut(fmt::format("the name of {}, which is {} here", DisplayName(table), Display(*name)),
             "names");
  }
  for (int i = 0; i < table.GetColumnCount(); ++i) {
    const std::u16string* name = names.Of(*table.GetColumn(i));
    if (name == nullptr) continue;
    LeaveOut(fmt::format("the name of {}.{}, which is {} here", DisplayName(table),
                         Display(table.GetColumn(i)->GetName()), Display(*name)),
             "names");
  }
}

const LcSequenceDetails* Context::SequenceOf(const LcWorkbookColumn& column) const {
  const LcWorkbookTable& table = *column.GetParentTable();
  const auto found =
      sequences_.find(OwnerKey(table.GetOwner(false), table.GetName(), column.GetName()));
  return found == sequences_.end() ? nullptr : found->second;
}

bool Context::IsInKey(const LcWorkbookColumn& column) {
  if (!std::exchange(keys_known_, true)) {
    const auto add = [&](const std::vector<LcWorkbookColumn*>& columns) {
      in_keys_.insert(columns.begin(), columns.end());
    };
    for (const LcWorkbookTable* table : workbook.tables.Present()) {
      add(table->GetPrimaryKey().GetColumns());
      for (const auto& key : table->GetForeignKeys()) {
        if (key->GetKey() != nullptr) add(key->GetKey()->GetColumns());
      }
      const LcTableDetails* details = table->GetDetails();
      if (details == nullptr) continue;
      for (const LcKeyDetails& key : details->unique_keys) add(key.columns);
      for (const LcOutsideKey& key : details->outside_keys) add(key.columns);
      for (const LcIndexDetails& index : details->indexes) {
        for (const LcIndexPart& part : index.parts) {
          if (part.column != nullptr) in_keys_.insert(part.column);
        }
      }
    }
  }
  return in_keys_.count(&column) != 0;
}

std::string Context::UniqueName(const LcWorkbookTable& table, std::u16string_view name) {
  if (!translated || name.empty()) return base::ToUtf8(name);
  if (name == u"PRIMARY") return "";
  std::u16string unique = names.Fit(name);
  if (!names_.insert(Lowered(unique)).second) {
    unique =
        names.FitBeside(table.GetName() + u'_' + std::u16string(name), names_, Sameness::kAscii);
  }
  given_.insert_or_assign({&table, std::u16string(name)}, unique);
  return base::ToUtf8(unique);
}

std::optional<std::u16string> Context::GivenName(const LcWorkbookTable& table,
                                                 std::u16string_view name) const {
  if (!translated) return std::u16string(name);
  const auto found = given_.find({&table, std::u16string(name)});
  return found == given_.end() ? std::nullopt : std::optional(found->second);
}

std::string Context::Expression(const LcText& text) const {
  std::string words = base::ToUtf8(text.View());
  return target.has_types && !translated ? WithPlainLists(words) : words;
}

void Context::WriteSearchPath() {
  if (!target.has_schemas || default_schema_.empty()) return;
  out << fmt::format("SELECT pg_catalog.set_config('search_path', {}, false);\n",
                     target.Literal(base::ToUtf16(target.Quote(default_schema_))));
}

void Context::WriteBody(const std::string& statement) {
  std::string text = statement;
  while (!text.empty() && (text.back() == '\n' || text.back() == ' ' || text.back() == ';')) {
    text.pop_back();
  }
  // A body's last END wants its semicolon in SQLite's shell and takes one in the others.
  if (!target.delimiters) {
    out << text << ";\n";
    return;
  }
  std::string delimiter = "//";
  while (text.find(delimiter) != std::string::npos) delimiter += '/';
  out << "DELIMITER " << delimiter << '\n' << text << delimiter << "\nDELIMITER ;\n";
}

void Context::LeaveOut(const std::string& what, const char* kind) {
  out << "-- Left out: " << what << ".\n";
  ++left_out_[kind];
}

std::string Context::LeftOut() const {
  std::string text;
  for (const auto& [kind, count] : left_out_) {
    text += fmt::format("{}{} {}", text.empty() ? "" : ", ", count, kind);
  }
  return text;
}

RoutineTime Context::TimeOf(const LcRoutineDetails& routine) const {
  const std::u16string text = MentionsOf(routine);
  if (MentionsAny(text, views_) || routine.kind == rkAggregate) return RoutineTime::kAmongViews;
  return MentionsAny(text, tables_) ? RoutineTime::kBeforeViews : RoutineTime::kBeforeTables;
}

bool Context::Makes(const LcWorkbookTable& table) const {
  return IsPlainTable(table) && !IsShadow(table) &&
         !(translated && (IsForeign(table) || IsVirtual(table))) &&
         (table.GetColumnCount() > 0 || target.allows_no_columns) &&
         !(translated && HasTooManyColumns(table));
}

bool Context::HasTooManyColumns(const LcWorkbookTable& table) const {
  return target.most_columns != 0 && table.GetColumnCount() > target.most_columns;
}

std::u16string MentionsOf(const LcRoutineDetails& routine) {
  std::u16string text = routine.result.Text();
  for (const LcParameterDetails& parameter : routine.parameters) {
    text += u' ' + parameter.type.Text() + u' ' + parameter.default_text.Text();
  }
  // A body that the server keeps taken apart, not as a text, is bound to what it mentions, and so
  // is an aggregate to its functions.
  const bool bound = routine.text.View().starts_with(u"BEGIN ATOMIC") ||
                     routine.text.View().starts_with(u"RETURN ") || routine.kind == rkAggregate;
  if (bound) text += u' ' + routine.text.Text();
  return text;
}

bool IsShadow(const LcWorkbookTable& table) {
  return table.GetDetails() != nullptr &&
         table.GetDetails()->options.Find(u"shadow table").IsPresent();
}

bool IsVirtual(const LcWorkbookTable& table) {
  return table.GetDetails() != nullptr && table.GetDetails()->options.Find(u"using").IsPresent();
}

bool IsForeign(const LcWorkbookTable& table) {
  return table.GetDetails() != nullptr &&
         table.GetDetails()->options.Find(u"foreign wrapper").IsPresent();
}

std::string ShowName(std::u16string_view schema, std::u16string_view name) {
  return schema.empty() ? Display(name) : Display(schema) + "." + Display(name);
}

bool IsPlainTable(const LcWorkbookTable& table) {
  if (table.GetType() != ttTable) return false;
  switch (KindOf(table)) {
    case tkUnknown:
      return table.GetColumnCount() > 0;
    case tkTable:
    case tkPartitionedTable:
    case tkPartition:
      return true;
    case tkForeignTable:
      return IsForeign(table);
    default:
      return false;
  }
}

bool IsView(const LcWorkbookTable& table) { return table.GetType() == ttView; }

const LcWorkbookTable* ParentOf(const LcWorkbook& workbook, const LcWorkbookTable& table) {
  const LcTableDetails* details = table.GetDetails();
  if (details == nullptr || !details->parent_table.IsPresent()) return nullptr;
  const LcWorkbookTable* parent =
      workbook.tables.FindTable(details->parent_owner.Text(), details->parent_table.Text());
  return parent != nullptr && IsPlainTable(*parent) ? parent : nullptr;
}

std::vector<const LcWorkbookTable*> PartsFirst(const LcWorkbook& workbook) {
  constexpr int kDeepest = 64;  // parts of parts; a circle ends there
  std::vector<std::pair<int, const LcWorkbookTable*>> tables;
  for (const LcWorkbookTable* table : workbook.tables) {
    if (table == nullptr || !IsPlainTable(*table)) continue;
    int depth = 0;
    for (const LcWorkbookTable* at = table; depth < kDeepest && at != nullptr; ++depth) {
      at = ParentOf(workbook, *at);
    }
    tables.emplace_back(depth, table);
  }
  std::stable_sort(tables.begin(), tables.end(),
                   [](const auto& a, const auto& b) { return a.first > b.first; });
  std::vector<const LcWorkbookTable*> ordered;
  ordered.reserve(tables.size());
  for (const auto& [depth, table] : tables) ordered.push_back(table);
  return ordered;
}

bool IsColumnCheck(const LcCheckDetails& check) {
  return check.options.Find(u"level").View() == u"Column";
}

}  // namespace wbexport::sql
