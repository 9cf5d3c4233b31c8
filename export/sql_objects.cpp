// What stands before the tables and beside them: schemas, types, sequences, routines, triggers.
#include <algorithm>

#include "base/utf.h"
#include "export/sql_order.h"
#include "export/sql_parts.h"

namespace wbexport::sql {
namespace {

std::string TypeList(const Context& context, const LcTypeDetails& type) {
  std::string list;
  for (const LcText& label : type.labels) {
    list += (list.empty() ? "" : ", ") + context.Literal(label);
  }
  for (const LcTypeAttribute& attribute : type.attributes) {
    list += fmt::format("{}{} {}", list.empty() ? "" : ", ",
                        context.target.Quote(attribute.name.View()),
                        base::ToUtf8(attribute.type.View()));
  }
  return list;
}

void WriteType(Context& context, const LcTypeDetails& type) {
  const std::string name = context.Name(type.schema.View(), type.name.View());
  switch (type.kind) {
    case tyEnum:
      context.out << "CREATE TYPE " << name << " AS ENUM (" << TypeList(context, type) << ");\n";
      return;
    case tyComposite:
      context.out << "CREATE TYPE " << name << " AS (" << TypeList(context, type) << ");\n";
      return;
    case tyRange:
      context.out << "CREATE TYPE " << name
                  << " AS RANGE (SUBTYPE = " << base::ToUtf8(type.base_type.View())
                  << context.target.Clauses(type.options, context.target.range_options) << ");\n";
      return;
    case tyDistinct:
    case tyDomain:
      break;
  }
  context.out << "CREATE DOMAIN " << name << " AS " << base::ToUtf8(type.base_type.View())
              << context.target.Clauses(type.options, context.target.type_options);
  if (type.default_text.IsPresent()) {
    context.out << " DEFAULT " << base::ToUtf8(type.default_text.View());
  }
  if (!type.nullable) context.out << " NOT NULL";
  for (const LcCheckDetails& check : type.checks) {
    context.out << "\n  " << CheckClause(context, check);
  }
  context.out << ";\n";
}

std::u16string TypeMentions(const LcTypeDetails& type) {
  std::u16string text = type.base_type.Text() + u' ' + type.default_text.Text();
  for (const LcTypeAttribute& attribute : type.attributes) text += u' ' + attribute.type.Text();
  for (const LcCheckDetails& check : type.checks) text += u' ' + check.expression.Text();
  return text;
}

bool NumbersIdentity(const Context& context, const LcSequenceDetails& sequence) {
  const LcWorkbookTable* table =
      sequence.owner_table.IsPresent()
          ? context.workbook.tables.FindTable(sequence.schema.Text(), sequence.owner_table.Text())
          : nullptr;
  const LcWorkbookColumn* column =
      table != nullptr ? table->FindColumn(sequence.owner_column.Text()) : nullptr;
  return column != nullptr && column->GetDetails() != nullptr &&
         column->GetDetails()->identity != idNone;
}

std::string ParameterList(const Context& context, const LcRoutineDetails& routine) {
  std::string list;
  for (const LcParameterDetails& parameter : routine.parameters) {
    if (parameter.mode.View() == u"table") continue;  // a column of the result, which names it
    list += list.empty() ? "" : ", ";
    const std::string mode = base::ToUtf8(parameter.mode.View());
    const bool says_mode = context.target.has_types || routine.kind == rkProcedure;
    if (says_mode && !mode.empty()) list += mode + " ";
    if (parameter.name.IsPresent()) list += context.target.Quote(parameter.name.View()) + " ";
    list += base::ToUtf8(parameter.type.View());
    if (parameter.default_text.IsPresent()) {
      list += " DEFAULT " + base::ToUtf8(parameter.default_text.View());
    }
  }
  return list;
}

const char* KindWord(LeRoutineKind kind) {
  switch (kind) {
    case rkProcedure:
      return "PROCEDURE";
    case rkAggregate:
      return "AGGREGATE";
    case rkWindow:
    case rkFunction:
      break;
  }
  return "FUNCTION";
}

bool BeginsWithCreate(std::u16string_view text) {
  const std::string start = base::ToUtf8(text.substr(0, 6));
  return start == "CREATE" || start == "create";
}

// The body as the language wants it: a text between marks of PostgreSQL's, statements elsewhere.
std::string RoutineBody(const Context& context, const LcRoutineDetails& routine) {
  std::string text = base::ToUtf8(routine.text.View());
  if (!context.target.has_types) return text;
  const std::string language = "LANGUAGE " + context.target.Quote(routine.language.View()) + "\n";
  if (text.starts_with("BEGIN ATOMIC") || text.starts_with("RETURN ")) return language + text;
  if (const LcText library = routine.options.Find(u"library"); library.IsPresent()) {
    return language + "AS " + context.Literal(library) + ", " + context.Literal(routine.text);
  }
  std::string mark = "$body$";
  for (int i = 1; text.find(mark) != std::string::npos; ++i) mark = fmt::format("$body{}$", i);
  return language + "AS " + mark + text + mark;
}

// The arguments of an aggregate: some have a part that is ordered by.
std::string AggregateArguments(const Context& context, const LcRoutineDetails& routine) {
  const LcText arguments = routine.options.Find(u"arguments");
  if (arguments.IsPresent()) return base::ToUtf8(arguments.View());
  const std::string list = ParameterList(context, routine);
  return list.empty() ? "*" : list;
}

std::string RoutineStatement(Context& context, const LcRoutineDetails& routine) {
  const Target& target = context.target;
  const std::string name = context.Name(routine.schema.View(), routine.name.View());
  if (BeginsWithCreate(routine.text.View())) return base::ToUtf8(routine.text.View());
  if (routine.kind == rkAggregate) {
    return fmt::format("CREATE AGGREGATE {}({}) ({})", name, AggregateArguments(context, routine),
                       base::ToUtf8(routine.text.View()));
  }
  std::string statement = fmt::format("CREATE {} {}({})", KindWord(routine.kind), name,
                                      ParameterList(context, routine));
  if (routine.kind != rkProcedure && routine.result.IsPresent()) {
    statement += " RETURNS " + base::ToUtf8(routine.result.View());
  }
  if (routine.kind == rkWindow) statement += " WINDOW";
  statement += target.Clauses(routine.options, target.routine_options);
  if (target.comments == Comments::kClauses && routine.comment.IsPresent()) {
    statement += "\nCOMMENT " + context.Literal(routine.comment);
  }
  return statement + '\n' + RoutineBody(context, routine);
}

}  // namespace

void WriteRoutine(Context& context, const LcRoutineDetails& routine) {
  const std::string what = fmt::format("{} {}", base::ToUtf8(LcNameOf(routine.kind)),
                                       ShowName(routine.schema.View(), routine.name.View()));
  // Texts of aggregates that older files hold are the server's word for none.
  if (!routine.text.IsPresent() || routine.text.View() == u"aggregate_dummy") {
    context.LeaveOut(what + ", whose text was not read", "routines");
  } else if (context.translated) {
    context.LeaveOut(what, "routines");
  } else {
    context.WriteBody(RoutineStatement(context, routine));
  }
}

namespace {

// PostgreSQL's triggers can be off, or be for certain sessions only.
void WriteState(Context& context, const LcWorkbookTable& table, const LcTriggerDetails& trigger) {
  static constexpr std::pair<std::u16string_view, const char*> kStates[] = {
      {u"no", "DISABLE"}, {u"replica", "ENABLE REPLICA"}, {u"always", "ENABLE ALWAYS"}};
  for (const auto& [state, words] : kStates) {
    if (trigger.options.Find(u"enabled").View() != state) continue;
    context.out << fmt::format("ALTER TABLE {} {} TRIGGER {};\n", context.Name(table), words,
                               context.target.Quote(trigger.name.View()));
  }
}

// A trigger of a partitioned table has a copy on each part, which comes with it.
bool IsOfWhole(const Context& context, const LcWorkbookTable& table,
               const LcTriggerDetails& trigger) {
  const LcWorkbookTable* whole = ParentOf(context.workbook, table);
  if (whole == nullptr || whole->GetDetails() == nullptr) return false;
  const std::vector<LcTriggerDetails>& triggers = whole->GetDetails()->triggers;
  return std::any_of(triggers.begin(), triggers.end(),
                     [&](const LcTriggerDetails& other) { return other.name == trigger.name; });
}

}  // namespace

std::string SequenceClauses(const Context& context, const LcSequenceDetails& sequence) {
  std::string clauses;
  const auto add = [&](const char* word, const LcText& value) {
    if (value.IsPresent()) clauses += fmt::format(" {} {}", word, base::ToUtf8(value.View()));
  };
  add("START WITH", sequence.start);
  add("INCREMENT BY", sequence.increment);
  add("MINVALUE", sequence.minimum);
  // MariaDB's greatest number is one less.
  const bool greatest = sequence.maximum.View() == u"9223372036854775807";
  if (!(context.translated && greatest)) add("MAXVALUE", sequence.maximum);
  clauses += context.target.Clauses(sequence.options, context.target.sequence_options);
  if (sequence.cycle) clauses += " CYCLE";
  return clauses;
}

void WriteSchemas(Context& context) {
  const bool databases = context.translated && context.target.has_databases;
  if (!context.target.has_schemas && !databases) return;
  std::vector<std::u16string> names;
  for (const LcSchemaDetails& schema : context.workbook.details.schemas) {
    names.push_back(schema.name.Text());
  }
  for (const LcWorkbookTable* table : context.workbook.tables) {
    if (table != nullptr && !table->GetOwner(false).empty())
      names.push_back(table->GetOwner(false));
  }
  std::sort(names.begin(), names.end());
  names.erase(std::unique(names.begin(), names.end()), names.end());
  if (!names.empty()) context.out << '\n';
  for (const std::u16string& name : names) {
    // Another database of MariaDB's; the default one is that which the script is loaded into.
    if (!context.target.has_schemas && context.IsDefaultSchema(name)) continue;
    context.out << "CREATE SCHEMA IF NOT EXISTS "
                << context.target.Quote(context.translated ? context.names.Fit(name) : name)
                << ";\n";
  }
  context.WriteSearchPath();
}

void WriteTypes(Context& context) {
  const std::vector<LcTypeDetails>& types = context.workbook.details.types;
  if (types.empty()) return;
  context.out << '\n';
  if (context.translated || !context.target.has_types) {
    for (const LcTypeDetails& type : types) {
      context.LeaveOut("type " + ShowName(type.schema.View(), type.name.View()), "types");
    }
    return;
  }
  std::vector<Mentioning> things;
  for (const LcTypeDetails& type : types) things.push_back({type.name.Text(), TypeMentions(type)});
  for (const std::size_t at : OrderByMentions(things)) WriteType(context, types[at]);
}

void WriteSequences(Context& context) {
  bool first = true;
  for (const LcSequenceDetails& sequence : context.workbook.details.sequences) {
    if (NumbersIdentity(context, sequence)) continue;
    // In a translation its column says that the server numbers it.
    if (context.translated && sequence.owner_column.IsPresent()) continue;
    if (std::exchange(first, false)) context.out << '\n';
    if (!context.target.has_sequences) {
      context.LeaveOut("sequence " + ShowName(sequence.schema.View(), sequence.name.View()),
                       "sequences");
      continue;
    }
    context.out << "CREATE SEQUENCE " << context.Name(sequence.schema.View(), sequence.name.View());
    if (sequence.type.IsPresent() && !context.translated && context.target.types_sequences) {
      context.out << " AS " << base::ToUtf8(sequence.type.View());
    }
    context.out << SequenceClauses(context, sequence) << ";\n";
  }
}

void WriteSequenceOwners(Context& context) {
  if (!context.target.types_sequences) return;
  for (const LcSequenceDetails& sequence : context.workbook.details.sequences) {
    if (!sequence.owner_table.IsPresent() || NumbersIdentity(context, sequence)) continue;
    const LcWorkbookTable* table =
        context.workbook.tables.FindTable(sequence.schema.Text(), sequence.owner_table.Text());
    if (table == nullptr || !context.Makes(*table)) continue;
    context.out << fmt::format("ALTER SEQUENCE {} OWNED BY {}.{};\n",
                               context.Name(sequence.schema.View(), sequence.name.View()),
                               context.Name(*table),
                               context.target.Quote(sequence.owner_column.View()));
  }
}

void WriteRoutines(Context& context, RoutineTime time) {
  std::vector<const LcRoutineDetails*> routines;
  std::vector<Mentioning> things;
  for (const LcRoutineDetails& routine : context.workbook.details.routines) {
    if (context.TimeOf(routine) != time) continue;
    routines.push_back(&routine);
    things.push_back({routine.name.Text(), MentionsOf(routine)});
  }
  for (const std::size_t at : OrderByMentions(things)) {
    context.out << '\n';
    WriteRoutine(context, *routines[at]);
  }
}

void WriteTriggers(Context& context) {
  for (const LcWorkbookTable* table : context.workbook.tables.Present()) {
    if (table->GetDetails() == nullptr) continue;
    for (const LcTriggerDetails& trigger : table->GetDetails()->triggers) {
      if (IsOfWhole(context, *table, trigger)) continue;
      context.out << '\n';
      const std::string what =
          fmt::format("trigger {} of {}", Display(trigger.name.View()), DisplayName(*table));
      if (context.translated || !trigger.text.IsPresent()) {
        context.LeaveOut(what, "triggers");
      } else if (BeginsWithCreate(trigger.text.View())) {
        context.WriteBody(context.Expression(trigger.text));
        WriteState(context, *table, trigger);
      } else {
        context.WriteBody(fmt::format("CREATE TRIGGER {} {} {} ON {} FOR EACH ROW\n{}",
                                      context.Name(table->GetOwner(false), trigger.name.View()),
                                      base::ToUtf8(trigger.timing.View()),
                                      base::ToUtf8(trigger.events.View()), context.Name(*table),
                                      base::ToUtf8(trigger.text.View())));
      }
    }
  }
}

}  // namespace wbexport::sql
