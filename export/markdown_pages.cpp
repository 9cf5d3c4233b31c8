#include "export/markdown_pages.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>

namespace wbexport {

namespace {

template <class List>
void WriteDescribed(std::ostream& out, const char* title, const List& list) {
  bool any = false;
  for (const auto* entry : list.Present()) {
    if (!any) out << "\n## " << title << "\n\n";
    any = true;
    const bool described =
        !entry->GetDescription().empty() && entry->GetDescription() != entry->GetName();
    out << "- " << MarkdownPages::Escape(Display(entry->GetName()))
        << (described ? ": " + MarkdownPages::Escape(Display(entry->GetDescription())) : "")
        << '\n';
  }
}

// Behind a text, in italics and on one line; line ends of the comment become blanks.
std::string Comment(const std::string& comment) {
  const std::string flat = Flat(comment);
  return flat.empty() ? "" : ": *" + MarkdownPages::Escape(flat) + "*";
}

}  // namespace

std::string MarkdownPages::Escape(const std::string& text) {
  std::string escaped;
  for (const char c : text) {
    if (c == '&') {
      escaped += "&amp;";
    } else if (c == '<') {
      escaped += "&lt;";
    } else if (std::string_view("\\`*_{}[]#|~!>$^").find(c) != std::string_view::npos) {
      escaped += '\\';
      escaped += c;
    } else {
      escaped += c;
    }
  }
  return escaped;
}

MarkdownPages::MarkdownPages(const Document& document, const Options& options, const Links& links)
    : workbook_(document.workbook),
      info_(document.info),
      options_(options),
      links_(links),
      relationships_(document.workbook),
      facts_(document) {
  for (const LcWorkbookTable* table : workbook_.tables.Present()) {
    if (!facts_.IsFolded(*table)) tables_.push_back(table);
  }
}

std::string MarkdownPages::Link(const LcWorkbookTable& table) const {
  const std::string name = Escape(DisplayName(table));
  const auto link = links_.find(&table);
  return link == links_.end() ? name : fmt::format("[{}]({})", name, link->second);
}

void MarkdownPages::WriteMark(std::ostream& out) const {
  if (info_.incomplete) out << "\n**" << Escape(IncompleteText(info_)) << "**\n";
}

void MarkdownPages::WriteHead(std::ostream& out) const {
  const std::string title = DatabaseTitle(info_);
  out << "# " << (title.empty() ? "Schema" : Escape(title)) << "\n\n"
      << Escape(SourceText(info_)) << ": " << TableCounts(workbook_) << ".\n";
  WriteMark(out);
  const std::vector<LcNotRead>& not_read = workbook_.details.not_read;
  if (!not_read.empty()) out << "\nNot read:\n\n";
  for (const LcNotRead& missing : not_read) {
    out << "- " << Escape(Facts::OfNotRead(missing)) << '\n';
  }
}

void MarkdownPages::WriteTableList(std::ostream& out) const {
  if (tables_.empty()) return;
  const bool comments = std::any_of(tables_.begin(), tables_.end(),
                                    [](const auto* table) { return !CommentOf(*table).empty(); });
  out << "\n| Table | Kind | Columns | Refers to |" << (comments ? " Comment |" : "")
      << "\n|---|---|--:|---|" << (comments ? "---|" : "") << '\n';
  for (const LcWorkbookTable* table : tables_) {
    std::string targets;
    std::set<const LcWorkbookTable*> seen;
    for (const std::size_t at : relationships_.From(*table)) {
      const LcWorkbookTable* to = relationships_.All()[at].to;
      if (!seen.insert(to).second) continue;
      targets += (targets.empty() ? "" : ", ") + Link(*to);
    }
    out << fmt::format("| {} | {} | {} | {} |", Link(*table), KindName(*table),
                       table->GetColumnCount(), targets);
    if (comments) out << ' ' << Escape(Flat(CommentOf(*table))) << " |";
    out << '\n';
  }
}

void MarkdownPages::WriteKind(std::ostream& out, const LcWorkbookTable& table) const {
  const std::string kind = KindName(table);
  if (table.GetType() == ttSynonym) {
    out << "\nA synonym of " << Escape(SynonymTarget(table.GetSynonymDetails())) << ".\n";
  } else if (kind != "table") {
    out << "\nA " << kind << ".\n";
  }
  const std::vector<std::string> comment = SplitLines(CommentOf(table));
  if (!comment.empty()) out << '\n';
  for (const std::string& line : comment) {
    const std::string text = Flat(line);
    // These would make a list or a heading where a line begins with them.
    const bool marks = !text.empty() && std::string_view("-=+").find(text[0]) != std::string::npos;
    out << (marks ? "\\" : "") << Escape(text) << '\n';
  }
}

void MarkdownPages::WriteTable(std::ostream& out, const LcWorkbookTable& table) const {
  WriteKind(out, table);
  if (table.GetColumnCount() == 0) {
    out << "\nNo columns.\n";
  } else {
    WriteColumns(out, table);
  }
  WriteReferences(out, table);
  const std::vector<Fact> facts = facts_.OfTable(table);
  if (!facts.empty()) out << "\nKeys, indexes, checks and what else belongs to it:\n\n";
  for (const Fact& fact : facts) WriteFact(out, fact);
  WriteParts(out, table);
  const std::string text = ViewTextOf(table);
  if (text.empty()) return;
  out << "\nText:\n\n";
  WriteCode(out, text, "");
}

void MarkdownPages::WriteColumns(std::ostream& out, const LcWorkbookTable& table) const {
  bool comments = false;
  for (int i = 0; i < table.GetColumnCount(); ++i) {
    comments = comments || !CommentOf(*table.GetColumn(i)).empty();
  }
  out << "\n| Column | Type | Nullable | Key | |" << (comments ? " Comment |" : "")
      << "\n|---|---|---|---|---|" << (comments ? "---|" : "") << '\n';
  const std::vector<LcWorkbookColumn*> key = table.GetPrimaryKey().GetColumns();
  for (int i = 0; i < table.GetColumnCount(); ++i) {
    const LcWorkbookColumn& column = *table.GetColumn(i);
    std::string mark = column.IsPrimaryKey() ? "key" : "";
    for (std::size_t k = 0; k < key.size() && key.size() > 1; ++k) {
      if (key[k] == &column) mark = fmt::format("key {}", k + 1);
    }
    std::string remarks;
    for (const std::string& remark : Facts::OfColumn(column)) {
      remarks += (remarks.empty() ? "" : ", ") + Escape(remark);
    }
    out << fmt::format("| {} | {} | {} | {} | {} |", Escape(Display(column.GetName())),
                       Escape(TypeText(column)), column.IsRequired() ? "no" : "yes", mark, remarks);
    if (comments) out << ' ' << Escape(Flat(CommentOf(column))) << " |";
    out << '\n';
  }
}

void MarkdownPages::WriteReferences(std::ostream& out, const LcWorkbookTable& table) const {
  const std::vector<Fact> outside = facts_.OutsideKeys(table);
  if (!relationships_.From(table).empty() || !outside.empty()) out << "\nRefers to:\n\n";
  for (const std::size_t at : relationships_.From(table)) {
    const Relationship& r = relationships_.All()[at];
    WriteReference(out, r, r.from_columns, *r.to, r.to_columns);
    const std::string name = facts_.NameOfReference(r);
    out << Escape(Facts::OfReference(r.details) + (name.empty() ? "" : ", named " + name));
    if (r.details != nullptr) out << Comment(DisplayLines(r.details->comment.View()));
    out << '\n';
  }
  for (const Fact& fact : outside) WriteFact(out, fact);
  if (!relationships_.To(table).empty()) out << "\nReferred to by:\n\n";
  std::size_t repeated = 0;
  for (const std::size_t at : relationships_.To(table)) {
    const Relationship& r = relationships_.All()[at];
    if (facts_.IsRepeated(r)) {
      ++repeated;
      continue;
    }
    WriteReference(out, r, r.to_columns, *r.from, r.from_columns);
    out << '\n';
  }
  if (repeated != 0) out << "- and " << Count(repeated, "partition", "partitions") << '\n';
}

void MarkdownPages::WriteReference(std::ostream& out, const Relationship& r,
                                   const std::vector<LcWorkbookColumn*>& here,
                                   const LcWorkbookTable& other,
                                   const std::vector<LcWorkbookColumn*>& there) const {
  out << fmt::format("- ({}): {} ({}){}", Escape(DisplayColumns(here)), Link(other),
                     Escape(DisplayColumns(there)), r.one_to_one ? ", one to one" : "");
}

void MarkdownPages::WriteParts(std::ostream& out, const LcWorkbookTable& table) const {
  const std::vector<const LcWorkbookTable*> parts = facts_.PartsOf(table);
  if (parts.empty()) return;
  out << "\n" << Count(parts.size(), "partition", "partitions") << ":\n\n";
  for (const LcWorkbookTable* part : parts) {
    out << "- " << Escape(facts_.OfPart(*part, table)) << Comment(CommentOf(*part)) << '\n';
  }
}

void MarkdownPages::WriteFact(std::ostream& out, const Fact& fact) {
  out << "- " << fact.kind;
  if (!fact.made_name && !fact.name.empty()) out << " **" << Escape(fact.name) << "**";
  out << (fact.text.empty() ? "" : " ") << Escape(fact.text) << Comment(fact.comment) << '\n';
  if (!fact.body.empty()) {
    out << '\n';
    WriteCode(out, fact.body, "  ");
    out << '\n';
  }
}

// The fence is longer than any in the text.
void MarkdownPages::WriteCode(std::ostream& out, const std::string& text, const char* indent) {
  std::size_t longest = 0;
  std::size_t run = 0;
  for (const char c : text) {
    run = c == '`' ? run + 1 : 0;
    longest = std::max(longest, run);
  }
  const std::string fence(std::max<std::size_t>(3, longest + 1), '`');
  out << indent << fence << "sql\n";
  for (const std::string& line : SplitLines(text)) out << indent << line << '\n';
  out << indent << fence << '\n';
}

void MarkdownPages::WriteRest(std::ostream& out) const {
  const LcWorkbookDetails& details = workbook_.details;
  if (!details.schemas.empty()) out << "\n## Schemas\n\n";
  for (const LcSchemaDetails& schema : details.schemas) {
    out << "- " << Escape(Display(schema.name.View())) << (schema.is_default ? " (default)" : "")
        << Comment(DisplayLines(schema.comment.View())) << '\n';
  }
  const auto write = [&](const char* title, const auto& list, auto make) {
    if (!list.empty()) out << "\n## " << title << "\n\n";
    for (const auto& entry : list) WriteFact(out, make(entry));
  };
  write("Types of users", details.types, Facts::OfType);
  write("Sequences", details.sequences, Facts::OfSequence);
  write("Routines", details.routines, Facts::OfRoutine);
  bool any = false;
  for (const LcWorkbookDatatype* type : workbook_.data_types.Present()) {
    if (!any) out << "\n## Data types\n\n";
    any = true;
    const std::string other = Display(type->GetOtherTypeName());
    out << "- " << Escape(TypeName(*type)) << (other.empty() ? "" : " (" + Escape(other) + ")")
        << '\n';
  }
  WriteFunctions(out, "Boolean functions", workbook_.boolean_functions);
  WriteFunctions(out, "Functions", workbook_.functions);
  WriteDescribed(out, "Operators", workbook_.operators);
  WriteDescribed(out, "Aggregates", workbook_.aggregates);
  WriteProcedures(out);
}

void MarkdownPages::WriteProcedures(std::ostream& out) const {
  const ListedProcedures procedures = ProceduresToList({workbook_, info_}, options_);
  if (procedures.listed.empty() && procedures.left_out == 0) return;
  out << "\n## Procedures\n\n";
  for (const LcWorkbookProcedure* procedure : procedures.listed) {
    out << "- " << Escape(DisplayName(*procedure)) << '\n';
  }
  if (procedures.left_out == 0) return;
  out << (procedures.listed.empty() ? "" : "\n") << procedures.left_out
      << " of the server's own are left out; --system lists them.\n";
}

void MarkdownPages::WriteFunctions(std::ostream& out, const char* title,
                                   const LcWorkbookFunctionList& functions) {
  bool any = false;
  for (const LcWorkbookFunction* function : functions.Present()) {
    if (!any) out << "\n## " << title << "\n\n";
    any = true;
    out << "- " << Escape(DisplayName(function->GetOwner(), function->GetName())) << '\n';
    for (const auto& overload : function->GetOverloads()) {
      out << "  - " << Escape(Display(overload->GetText()));
      if (!overload->GetResultType().empty()) {
        out << ": " << Escape(Display(overload->GetResultType()));
      }
      out << '\n';
    }
  }
}

}  // namespace wbexport
