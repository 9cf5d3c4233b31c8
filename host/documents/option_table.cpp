// Reads the declarations of the command line.
#include "host/documents/option_table.h"

#include <CLI/CLI.hpp>
#include <optional>
#include <sstream>

#include "export/writer.h"
#include "host/choices.h"
#include "host/declarations.h"
#include "host/samples.h"

namespace wbhost {
namespace {

template <class Entries>
std::vector<std::string> NamesOf(const Entries& entries) {
  std::vector<std::string> names;
  names.reserve(entries.size());
  for (const auto& entry : entries) names.emplace_back(entry.name);
  return names;
}

// The values that are checked after the parsing, where the reason of a refusal can say more.
std::vector<std::string> ValuesCheckedLater(const std::string& option) {
  if (option == "--sample") return NamesOf(AllSamples());
  if (option == "--items") return NamesOf(AllItems());
  if (option == "--format") return NamesOf(wbexport::AllFormats());
  return {};
}

std::vector<std::string> Split(const std::string& text) {
  std::vector<std::string> parts;
  std::istringstream in(text);
  for (std::string part; std::getline(in, part, ',');) parts.push_back(part);
  return parts;
}

OptionEntry ReadOption(const CLI::Option& option) {
  OptionEntry entry;
  for (const std::string& name : option.get_snames()) entry.names.push_back("-" + name);
  for (const std::string& name : option.get_lnames()) entry.names.push_back("--" + name);
  if (entry.names.empty()) entry.names.push_back(option.get_name(true));
  entry.group = option.get_group();
  entry.help = option.get_description();
  entry.required = option.get_required();
  if (option.get_type_size() == 0) return entry;
  // CLI11 gives NAME:{a,b} where only some texts are taken, and NAME:INT in [0 - 8] for a range.
  const std::string type = option.get_type_name();
  const std::size_t colon = type.find(':');
  entry.value = type.substr(0, colon);
  if (colon != std::string::npos && type[colon + 1] == '{') {
    entry.values = Split(type.substr(colon + 2, type.size() - colon - 3));
  } else {
    entry.values = ValuesCheckedLater(entry.names.back());
  }
  entry.is_list = option.get_delimiter() == ',';
  entry.repeats = option.get_multi_option_policy() == CLI::MultiOptionPolicy::TakeAll;
  return entry;
}

CommandEntry ReadCommand(const CLI::App& app) {
  CommandEntry command;
  command.name = app.get_name();
  command.help = app.get_description();
  command.notes = app.get_footer();
  for (const CLI::Option* option : app.get_options()) {
    if (option->get_group().empty()) continue;  // hidden
    (option->get_positional() ? command.arguments : command.options).push_back(ReadOption(*option));
  }
  return command;
}

}  // namespace

OptionTable MakeOptionTable() {
  CLI::App app;
  Options options;
  std::optional<std::string> config;
  DeclareCommandLine(app, options, config);
  OptionTable table;
  table.program = ReadCommand(app);
  for (const CLI::App* command : app.get_subcommands([](CLI::App*) { return true; })) {
    table.commands.push_back(ReadCommand(*command));
  }
  return table;
}

}  // namespace wbhost
