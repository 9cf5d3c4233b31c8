// `wbimport import` and `wbimport render`: a workbook, read from a server or from a file, is
// written in one of the formats.
#include <fmt/format.h>
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <utility>

#include "export/writer.h"
#include "host/commands.h"
#include "host/dialect_file.h"
#include "host/host_session.h"
#include "host/interrupt.h"
#include "host/nearest.h"
#include "host/resolve_names.h"
#include "host/schema_source.h"
#include "host/stamp.h"
#include "host/text.h"

namespace wbhost {
namespace {

// What is written, and where to.
class Sheet {
 public:
  // Throws a Failure for options that the format has no use for. With `keeps` a workbook that the
  // format cannot show is written as a workbook file of another name: a server gave it once.
  Sheet(const OutputOptions& options, bool keeps)
      : options_(options),
        format_(Choose(options)),
        output_(options.file, format_.write_folder),
        keeps_(keeps) {
    if (options.compact && !format_.compacts) {
      throw Failure(ExitCode::kUsage,
                    fmt::format("--compact: {} has no compact form, {} has", format_.name,
                                FormatsWith(&wbexport::Format::compacts)));
    }
    if (format_.draws) return;
    const char* option = options.around   ? "--around"
                         : options.whole  ? "--whole"
                         : options.detail ? "--detail"
                                          : nullptr;
    if (option == nullptr) return;
    throw Failure(ExitCode::kUsage,
                  fmt::format("{}: {} has no diagram; these formats have one: {}", option,
                              format_.name, FormatsWith(&wbexport::Format::draws)));
  }

  const OutputFile& output() const { return output_; }

  // `system` lists what is the server's own too.
  void Write(const LcWorkbook& workbook, const LcWorkbookFileInfo& info, bool system,
             Screen& screen) const {
    if (options_.around) CheckAround(workbook, *options_.around);
    wbexport::Options options;
    options.colour = output_.IsStandardOutput() && WantsColour(STDOUT_FILENO);
    options.compact = options_.compact;
    options.all_functions = options_.all_functions;
    options.system = system;
    options.around = options_.around.value_or("");
    options.distance = options_.distance;
    options.detail = DetailOf(options_.detail.value_or(""));
    // What an import read before it was cancelled is written all the same.
    options.is_cancelled = [before = GetInterruptWish()] {
      return before != InterruptWish::kCancel && GetInterruptWish() == InterruptWish::kCancel;
    };
    options.whole = options_.whole;
    options.dialect_out = options_.dialect_out;
    std::vector<std::string> notes;
    const bool written =
        output_.IsFolder() ? output_.WriteFolder([&](const std::string& folder) {
          return format_.write_folder({workbook, info}, options, folder, notes);
        })
                           : output_.Write([&](std::ostream& out) {
                               return format_.write({workbook, info}, options, out, notes);
                             });
    if (!written) {
      const ExitCode code = options.is_cancelled() ? ExitCode::kCancelled : ExitCode::kOutput;
      const std::string why = notes.empty() ? "nothing could be written" : notes.back();
      if (!keeps_) throw Failure(code, why);
      screen.SayError(why);
      throw Failure(code, Keep(workbook, info));
    }
    for (const std::string& note : notes) screen.Say(note);
    const bool has_extension = !std::filesystem::path(options_.file).extension().empty();
    if (!options_.format && has_extension) {
      screen.Say(fmt::format("no format has the extension of {}: it holds {}", options_.file,
                             format_.name));
    }
  }

 private:
  // Says where the workbook is now: in a file that was not there before.
  std::string Keep(const LcWorkbook& workbook, const LcWorkbookFileInfo& info) const {
    const std::string start = output_.IsStandardOutput() ? "wbimport-kept" : options_.file;
    // The format for programs, which is the workbook file.
    const wbexport::Format& format = wbexport::DefaultFormat(false);
    std::string file = fmt::format("{}.{}", start, format.extensions);
    for (int number = 2; std::filesystem::exists(std::filesystem::symlink_status(file)); ++number) {
      file = fmt::format("{}-{}.{}", start, number, format.extensions);
    }
    try {
      std::vector<std::string> notes;
      const bool written = OutputFile(file).Write([&](std::ostream& out) {
        return format.write({workbook, info}, {}, out, notes);
      });
      if (written) return fmt::format("what was read is kept in {}, for wbimport render", file);
    } catch (const Failure& failure) {
      return fmt::format("what was read is lost: {}", failure.what());
    }
    return "what was read is lost";
  }

  static std::string FormatsWith(bool wbexport::Format::*feature) {
    std::string names;
    for (const wbexport::Format& format : wbexport::AllFormats()) {
      if (format.*feature) names += fmt::format("{}{}", names.empty() ? "" : ", ", format.name);
    }
    return names;
  }

  static wbexport::Detail DetailOf(const std::string& name) {
    return name == "full"    ? wbexport::Detail::kFull
           : name == "keys"  ? wbexport::Detail::kKeys
           : name == "names" ? wbexport::Detail::kNames
                             : wbexport::Detail::kAuto;
  }

  static void CheckAround(const LcWorkbook& workbook, const std::string& around) {
    if (wbexport::HasTableToDrawAround(workbook, around)) return;
    const bool with_owner = !ParseQualifiedName(around).owner.empty();
    std::vector<std::string> names;
    for (const LcWorkbookTable* table : workbook.tables.Present()) {
      names.push_back(DisplayName(with_owner ? table->GetOwner(true) : u"", table->GetName()));
    }
    throw Failure(ExitCode::kUsage,
                  fmt::format("--around: there is no table '{}' to draw the surroundings of{}",
                              around, DidYouMean(around, names)));
  }

  static const wbexport::Format& Choose(const OutputOptions& options) {
    if (options.format) return *wbexport::FindFormat(*options.format);  // checked with the options
    return wbexport::DefaultFormat(OutputFile(options.file).IsStandardOutput() &&
                                   isatty(STDOUT_FILENO) != 0);
  }

  const OutputOptions& options_;
  const wbexport::Format& format_;
  const OutputFile output_;
  const bool keeps_;
};

// What was read, for the line at the end.
std::string Summary(const ImportResult& result) {
  const LcWorkbook& workbook = *result.workbook;
  std::size_t counts[3] = {};  // by enumTableType
  for (const LcWorkbookTable* table : workbook.tables) {
    if (table != nullptr) ++counts[table->GetType()];
  }
  const std::pair<std::size_t, const char*> kinds[] = {
      {counts[ttTable], "table"},
      {counts[ttView], "view"},
      {counts[ttSynonym], "synonym"},
      {workbook.table_names.GetCount(), "name"},
      {workbook.column_names.GetCount(), "column name"},
  };
  std::string text;
  for (const auto& [count, kind] : kinds) {
    if (count == 0) continue;
    text += fmt::format("{}{} {}{}", text.empty() ? "" : ", ", count, kind, count == 1 ? "" : "s");
  }
  return fmt::format("{} in {:.1f} s", text.empty() ? "done" : "read " + text, result.seconds);
}

// Who asks for the exact reading learns that it is another one.
void SayWhyNotExact(Run& run, const Choices& choices, const ImportResult& result) {
  if (choices.reading != Choices::Reading::kExact || result.why_not_exact.empty()) return;
  run.screen.Say("the exact reading is not possible: " + result.why_not_exact);
}

// The process ends soon, and its memory with it: faster than a workbook piece by piece.
void KeepToTheEnd(std::unique_ptr<LcWorkbook> workbook) {
  static std::unique_ptr<LcWorkbook>& kept = *new std::unique_ptr<LcWorkbook>;
  kept = std::move(workbook);
}

}  // namespace

void RunImport(Run& run, Outcome& outcome) {
  const OutputOptions& wanted = run.options.output;
  Choices choices = ReadChoices(run.options.choices);
  TakeDialectFile(choices);
  if ((choices.ItemMask() & ibColumnNames) != 0 && !choices.HasSingleTable()) {
    throw Failure(ExitCode::kUsage,
                  "column-names needs a single table: --table [OWNER.]NAME, or singleTable in the "
                  "request file");
  }
  if ((choices.ItemMask() & ibColumnNames) == 0 && choices.names.table) {
    run.screen.Say(
        "--table only says whose column names are read, with --items column-names; --select-table "
        "imports a table alone");
  }
  const Sheet sheet(wanted, true);
  const std::u16string stamp = wanted.stamp ? TimeStamp() : u"";
  HostSession session(run, choices, sheet.output());
  const std::uint32_t items = choices.ItemMask();
  if (!session.RepeatsChoices()) {
    ResolveNames(choices, items, wanted.around, session.runner(), run.screen);
  }
  choices.items = items;
  session.NoteChoices(choices);
  const auto name_result = [&](ImportResult& result) {
    // What an exact reading was asked for can be asked again, by a later comparison.
    if (result.info.route == u"exact") result.info.choices = WriteRequest(choices);
    result.info.title = ToUtf16(wanted.title.value_or(""));
    result.info.imported_at = stamp;
  };
  session.SetRest([&](Outcome& end) {
    ImportResult rest = session.runner().TakeRest();
    if (rest.workbook == nullptr) return;
    name_result(rest);
    session.runner().Judge(rest, end);
    sheet.Write(*rest.workbook, rest.info, choices.importer.include_system, run.screen);
    if (!sheet.output().IsStandardOutput()) end.SetWritten(wanted.file);
  });
  ImportResult result = session.runner().Run(choices.importer, items);
  name_result(result);
  SayWhyNotExact(run, choices, result);
  session.runner().Judge(result, outcome);
  session.Finish(outcome);
  sheet.Write(*result.workbook, result.info, choices.importer.include_system, run.screen);
  const bool to_file = !sheet.output().IsStandardOutput();
  if (to_file) outcome.SetWritten(wanted.file);
  if (outcome.IsOk() && session.SaysTheEnd(to_file)) {
    run.screen.Say(Summary(result) + (to_file ? ", wrote " + wanted.file : ""));
  }
  KeepToTheEnd(std::move(result.workbook));
}

void RunRender(Run& run) {
  const std::string& file = run.options.render_file;
  const Sheet sheet(run.options.output, false);
  sheet.output().Check();
  Schema schema = file == "-" ? ReadSchemaFromStandardInput() : ReadSchema(file);
  if (run.options.output.title) schema.info.title = ToUtf16(*run.options.output.title);
  sheet.Write(*schema.workbook, schema.info, run.options.output.system, run.screen);
}

}  // namespace wbhost
