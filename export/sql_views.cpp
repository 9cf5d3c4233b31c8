// Views in the order of their dependence, and comments on everything.
#include "base/utf.h"
#include "export/sql_order.h"
#include "export/sql_parts.h"

namespace wbexport::sql {
namespace {

void WriteView(Context& context, const LcWorkbookTable& view) {
  const LcTableDetails* details = view.GetDetails();
  const std::string name = DisplayName(view);
  if (details == nullptr || !details->view_text.IsPresent()) {
    context.LeaveOut(fmt::format("view {}, whose text was not read", name), "views");
    return;
  }
  if (context.translated) {
    context.LeaveOut(
        fmt::format("view {}, whose text is {}'s", name, base::ToUtf8(context.info.dialect)),
        "views");
    return;
  }
  const Target& target = context.target;
  std::string text = context.Expression(details->view_text);
  while (!text.empty() && (text.back() == ';' || text.back() == ' ' || text.back() == '\n')) {
    text.pop_back();
  }
  const bool materialized = details->kind == tkMaterializedView;
  context.out << "\nCREATE" << target.Clauses(details->options, target.view_prefixes)
              << (materialized ? " MATERIALIZED" : "") << " VIEW " << context.Name(view);
  if (target.names_view_columns && view.GetColumnCount() > 0) {
    std::vector<LcWorkbookColumn*> columns;
    for (int i = 0; i < view.GetColumnCount(); ++i) columns.push_back(view.GetColumn(i));
    context.out << " (" << context.Quote(columns) << ')';
  }
  context.out << target.Clauses(details->options, target.view_options) << " AS\n"
              << text << target.Clauses(details->options, target.view_suffixes) << ";\n";
  // A view that can be written to may have defaults of its own.
  for (int i = 0; target.has_types && i < view.GetColumnCount(); ++i) {
    const LcColumnDetails* column = view.GetColumn(i)->GetDetails();
    if (column == nullptr || !column->default_text.IsPresent()) continue;
    context.out << fmt::format("ALTER VIEW {} ALTER COLUMN {} SET DEFAULT {};\n",
                               context.Name(view), context.Quote(*view.GetColumn(i)),
                               base::ToUtf8(column->default_text.View()));
  }
}

void Comment(Context& context, const char* kind, const std::string& name, const LcText& text) {
  if (!text.IsPresent()) return;
  context.out << fmt::format("COMMENT ON {} {} IS {};\n", kind, name, context.Literal(text));
}

const char* RelationWord(const LcWorkbookTable& table) {
  const LcTableDetails* details = table.GetDetails();
  const LeTableKind kind = details != nullptr ? details->kind : tkUnknown;
  if (kind == tkMaterializedView) return "MATERIALIZED VIEW";
  if (kind == tkForeignTable || IsForeign(table)) return "FOREIGN TABLE";
  return table.GetType() == ttView ? "VIEW" : "TABLE";
}

void WriteTableComments(Context& context, const LcWorkbookTable& table) {
  const Target& target = context.target;
  const std::string name = context.Name(table);
  const LcTableDetails* details = table.GetDetails();
  if (details != nullptr) Comment(context, RelationWord(table), name, details->comment);
  for (int i = 0; i < table.GetColumnCount(); ++i) {
    const LcWorkbookColumn& column = *table.GetColumn(i);
    if (column.GetDetails() == nullptr) continue;
    Comment(context, "COLUMN", name + "." + context.Quote(column), column.GetDetails()->comment);
  }
  const auto constraint = [&](const LcText& text, const LcText& constraint_name) {
    const auto given = context.GivenName(table, constraint_name.View());
    if (given) Comment(context, "CONSTRAINT", target.Quote(*given) + " ON " + name, text);
  };
  for (const auto& key : table.GetForeignKeys()) {
    if (key->GetRole() == fkMirror && key->GetDetails() != nullptr) {
      constraint(key->GetDetails()->comment, key->GetDetails()->name);
    }
  }
  if (details == nullptr) return;
  if (details->primary_key != nullptr) {
    constraint(details->primary_key->comment, details->primary_key->name);
  }
  for (const LcKeyDetails& key : details->unique_keys) constraint(key.comment, key.name);
  for (const LcCheckDetails& check : details->checks) constraint(check.comment, check.name);
  for (const LcOutsideKey& key : details->outside_keys) {
    constraint(key.details.comment, key.details.name);
  }
  for (const LcIndexDetails& index : details->indexes) {
    const auto given = context.GivenName(table, index.name.View());
    if (given) {
      Comment(context, "INDEX", context.Name(table.GetOwner(false), *given), index.comment);
    }
  }
  for (const LcTriggerDetails& trigger : details->triggers) {
    Comment(context, "TRIGGER", target.Quote(trigger.name.View()) + " ON " + name, trigger.comment);
  }
}

// Targets without comments get them as comments of the script.
void WriteRemarks(Context& context) {
  const auto remark = [&](const std::string& what, const LcText& text) {
    if (text.IsPresent())
      context.LeaveOut("comment on " + what + ": " + Display(text.View()), "comments");
  };
  for (const LcWorkbookTable* table : context.workbook.tables.Present()) {
    const std::string name = DisplayName(*table);
    if (table->GetDetails() != nullptr) remark(name, table->GetDetails()->comment);
    for (int i = 0; i < table->GetColumnCount(); ++i) {
      const LcWorkbookColumn& column = *table->GetColumn(i);
      if (column.GetDetails() == nullptr) continue;
      remark(name + "." + Display(column.GetName()), column.GetDetails()->comment);
    }
  }
}

std::string RoutineArguments(const LcRoutineDetails& routine) {
  std::string list;
  for (const LcParameterDetails& parameter : routine.parameters) {
    const std::u16string_view mode = parameter.mode.View();
    if (mode == u"table" || (mode == u"out" && routine.kind != rkProcedure)) continue;
    list += list.empty() ? "" : ", ";
    if (mode == u"variadic") list += "VARIADIC ";
    list += base::ToUtf8(parameter.type.View());
  }
  // Of an aggregate those before ORDER BY too.
  const LcText arguments = routine.options.Find(u"arguments");
  if (arguments.IsPresent()) return base::ToUtf8(arguments.View());
  return list.empty() && routine.kind == rkAggregate ? "*" : list;
}

const char* RoutineWord(LeRoutineKind kind) {
  return kind == rkProcedure ? "PROCEDURE" : kind == rkAggregate ? "AGGREGATE" : "FUNCTION";
}

}  // namespace

void WriteViews(Context& context) {
  std::vector<const LcWorkbookTable*> views;
  std::vector<const LcRoutineDetails*> routines;
  std::vector<Mentioning> things;
  for (const LcRoutineDetails& routine : context.workbook.details.routines) {
    if (context.TimeOf(routine) != RoutineTime::kAmongViews) continue;
    routines.push_back(&routine);
    things.push_back({routine.name.Text(), MentionsOf(routine)});
  }
  for (const LcWorkbookTable* table : context.workbook.tables) {
    if (table == nullptr || !IsView(*table)) continue;
    views.push_back(table);
    const LcTableDetails* details = table->GetDetails();
    things.push_back({table->GetName(), details != nullptr ? details->view_text.Text() : u""});
  }
  for (const std::size_t at : OrderByMentions(things)) {
    if (at < routines.size()) {
      context.out << '\n';
      WriteRoutine(context, *routines[at]);
    } else {
      WriteView(context, *views[at - routines.size()]);
    }
  }
}

void WriteComments(Context& context) {
  if (context.target.comments == Comments::kNowhere) {
    WriteRemarks(context);
    return;
  }
  if (context.target.comments != Comments::kStatements) return;
  const LcWorkbookDetails& details = context.workbook.details;
  context.out << '\n';
  for (const LcSchemaDetails& schema : details.schemas) {
    Comment(context, "SCHEMA", context.target.Quote(schema.name.View()), schema.comment);
  }
  if (!context.translated) {
    for (const LcTypeDetails& type : details.types) {
      const std::string name = context.Name(type.schema.View(), type.name.View());
      const bool domain = type.kind == tyDomain || type.kind == tyDistinct;
      Comment(context, domain ? "DOMAIN" : "TYPE", name, type.comment);
      for (const LcCheckDetails& check : type.checks) {
        Comment(context, "CONSTRAINT",
                context.target.Quote(check.name.View()) + " ON DOMAIN " + name, check.comment);
      }
    }
    for (const LcRoutineDetails& routine : details.routines) {
      Comment(context, RoutineWord(routine.kind),
              context.Name(routine.schema.View(), routine.name.View()) + "(" +
                  RoutineArguments(routine) + ")",
              routine.comment);
    }
  }
  for (const LcSequenceDetails& sequence : details.sequences) {
    Comment(context, "SEQUENCE", context.Name(sequence.schema.View(), sequence.name.View()),
            sequence.comment);
  }
  for (const LcWorkbookTable* table : context.workbook.tables) {
    if (table != nullptr) WriteTableComments(context, *table);
  }
}

}  // namespace wbexport::sql
