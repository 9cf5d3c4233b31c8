// The order of a script.
#include "export/sql_script.h"

#include "base/utf.h"
#include "export/sql_parts.h"

namespace wbexport::sql {
namespace {

void WriteHead(Context& context) {
  context.out << "-- Schema of " << SourceText(context.info) << ".\n";
  if (context.info.incomplete) context.out << "-- " << IncompleteText(context.info) << '\n';
  for (const LcNotRead& missing : context.workbook.details.not_read) {
    context.out << "-- Not read: " << Display(missing.kind.View());
    if (missing.name.IsPresent()) {
      context.out << ' ' << ShowName(missing.owner.View(), missing.name.View());
    }
    context.out << ": " << Display(missing.reason.View()) << '\n';
  }
  context.out << "-- Load it with: " << context.target.shell << '\n'
              << "-- It makes the schema alone: no rows, rights, owners or policies.\n";
  if (!context.target.prelude.empty()) context.out << '\n' << context.target.prelude;
  if (context.translated) context.out << context.target.translated_prelude;
}

}  // namespace

void WriteScript(const Document& document, const Target& target, std::ostream& out, Notes& notes) {
  Context context(document, target, out);
  WriteHead(context);
  WriteSchemas(context);
  WriteExtensions(context);
  WriteCollations(context);
  WriteTypes(context);
  WriteSequences(context);
  WriteRoutines(context, RoutineTime::kBeforeTables);
  WriteForeignServers(context);
  WriteTables(context);
  WriteParts(context);
  WriteKeys(context);
  WriteInheritance(context);
  WriteSequenceOwners(context);
  WriteRoutines(context, RoutineTime::kBeforeViews);
  WriteViews(context);
  WriteIndexes(context);  // of materialized views too
  WriteForeignKeys(context);
  WriteTriggers(context);
  WriteComments(context);
  const std::string left_out = context.LeftOut();
  if (!left_out.empty()) {
    notes.push_back("left out of the script, each with a comment where it belongs: " + left_out);
  }
}

}  // namespace wbexport::sql
