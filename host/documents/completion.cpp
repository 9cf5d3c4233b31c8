// What the completions for bash, zsh and fish ask of the option table.
#include <fmt/format.h>

#include <algorithm>

#include "host/documents/documents.h"

namespace wbhost {
namespace {

// What a shell offers where a value stands.
enum class Offer { kNothing, kValues, kList, kFiles, kFolders, kVariables, kDataSources };

Offer OfferFor(const OptionEntry& option) {
  if (!option.values.empty()) return option.is_list ? Offer::kList : Offer::kValues;
  if (option.value == "FOLDER") return Offer::kFolders;
  if (option.value == "VAR") return Offer::kVariables;
  if (option.names.back() == "--dsn") return Offer::kDataSources;
  const bool is_argument = option.names.back().front() != '-';
  return option.value == "FILE" || is_argument ? Offer::kFiles : Offer::kNothing;
}

std::string Words(const std::vector<std::string>& words) {
  return fmt::format("{}", fmt::join(words, " "));
}

// A command's own options and those of the program that go with it.
std::vector<OptionEntry> OptionsOf(const CommandEntry& command, const OptionTable& table) {
  std::vector<OptionEntry> options = command.options;
  for (const OptionEntry& option : table.program.options) {
    const bool is_own = std::any_of(
        command.options.begin(), command.options.end(),
        [&option](const OptionEntry& own) { return own.names.back() == option.names.back(); });
    if (!is_own) options.push_back(option);
  }
  return options;
}

std::vector<std::string> LongNames(const std::vector<OptionEntry>& options) {
  std::vector<std::string> names;
  names.reserve(options.size());
  for (const OptionEntry& option : options) names.push_back(option.names.back());
  return names;
}

// The help without the list of values, which the shell offers anyway.
std::string ShortHelp(const OptionEntry& option) {
  return option.values.empty() ? option.help : option.help.substr(0, option.help.find(": "));
}

// `text` with a backslash before each of `characters`.
std::string Escaped(const std::string& text, std::string_view characters) {
  std::string out;
  for (const char c : text) {
    if (characters.find(c) != std::string_view::npos) out += '\\';
    out += c;
  }
  return out;
}

// `text` in single quotes, for bash and zsh.
std::string Quoted(const std::string& text) {
  std::string out = "'";
  for (const char c : text) out += c == '\'' ? "'\\''" : std::string(1, c);
  return out + "'";
}

// --- bash

std::string BashOffer(const OptionEntry& option) {
  const std::string values = Words(option.values);
  switch (OfferFor(option)) {
    case Offer::kNothing:
      return "offer=nothing";
    case Offer::kValues:
      return fmt::format("offer=values values='{}'", values);
    case Offer::kList:
      return fmt::format("offer=list values='{}'", values);
    case Offer::kFiles:
      return "offer=files";
    case Offer::kFolders:
      return "offer=folders";
    case Offer::kVariables:
      return "offer=variables";
    case Offer::kDataSources:
      return "offer=data-sources";
  }
  return {};
}

void AddBashCommand(const CommandEntry& command, const std::vector<OptionEntry>& options,
                    Marks& marks) {
  for (const OptionEntry& option : options) {
    if (option.value.empty()) continue;
    std::string patterns;
    for (const std::string& name : option.names) {
      patterns += fmt::format("{}'{} {}'", patterns.empty() ? "" : " | ", command.name, name);
    }
    marks["BASH_VALUES"] += fmt::format("    {}) {} ;;\n", patterns, BashOffer(option));
  }
  marks["BASH_OPTIONS"] +=
      fmt::format("      {}) values='{}' ;;\n", Quoted(command.name), Words(LongNames(options)));
  if (command.arguments.empty()) return;
  marks["BASH_ARGUMENTS"] +=
      fmt::format("      {}) {} ;;\n", command.name, BashOffer(command.arguments.front()));
}

// --- zsh

// The part of a specification of _arguments that tells what a value is.
std::string ZshValue(const OptionEntry& option) {
  const std::string message = Escaped(option.value.empty() ? option.names[0] : option.value, ":");
  const std::string values = Words(option.values);
  switch (OfferFor(option)) {
    case Offer::kNothing:
      return fmt::format(":{}: ", message);
    case Offer::kValues:
      return fmt::format(":{}:({})", message, values);
    case Offer::kList:
      return fmt::format(":{}: _values -s , value {}", message, values);
    case Offer::kFiles:
      return fmt::format(":{}:_files", message);
    case Offer::kFolders:
      return fmt::format(":{}:_files -/", message);
    case Offer::kVariables:
      return fmt::format(":{}:_parameters", message);
    case Offer::kDataSources:
      return fmt::format(":{}:_wbimport_data_sources", message);
  }
  return {};
}

std::string ZshOption(const OptionEntry& option) {
  const std::string help = "[" + Escaped(ShortHelp(option), "[]:") + "]";
  // The names that one use of the option takes out of what is offered.
  const std::string taken = option.repeats ? "*" : "(" + Words(option.names) + ")";
  std::string lines;
  for (const std::string& name : option.names) {
    std::string specification = taken + name;
    if (!option.value.empty() && name[1] == '-') specification += "=";  // or as the next word
    specification += help;
    if (!option.value.empty()) specification += ZshValue(option);
    lines += "        " + Quoted(specification) + "\n";
  }
  return lines;
}

void AddZshCommand(const CommandEntry& command, const std::vector<OptionEntry>& options,
                   Marks& marks) {
  marks["ZSH_COMMANDS"] += "    " + Quoted(command.name + ":" + Escaped(command.help, ":")) + "\n";
  std::string specifications;
  for (const OptionEntry& option : options) specifications += ZshOption(option);
  for (std::size_t i = 0; i < command.arguments.size(); ++i) {
    specifications +=
        fmt::format("        {}\n", Quoted(std::to_string(i + 1) + ZshValue(command.arguments[i])));
  }
  marks["ZSH_ARGUMENTS"] +=
      fmt::format("      {})\n        arguments=(\n{}        ) ;;\n", command.name, specifications);
}

// --- fish

std::string FishQuoted(const std::string& text) { return "'" + Escaped(text, "\\'") + "'"; }

std::string FishValue(const OptionEntry& option) {
  const std::string values = Words(option.values);
  switch (OfferFor(option)) {
    case Offer::kNothing:
      return " -x";
    case Offer::kValues:
      return " -x -a " + FishQuoted(values);
    case Offer::kList:
      return " -x -a " + FishQuoted(fmt::format(
                             "(__fish_complete_list , 'string split \" \" \"{}\"')", values));
    case Offer::kFiles:
      return " -r -F";
    case Offer::kFolders:
      return " -x -a '(__fish_complete_directories)'";
    case Offer::kVariables:
      return " -x -a '(set --names)'";
    case Offer::kDataSources:
      return " -x -a '(__wbimport_data_sources)'";
  }
  return {};
}

std::string FishOption(const OptionEntry& option, const std::string& condition) {
  std::string line = "complete -c wbimport" + condition;
  for (const std::string& name : option.names) {
    line += name[1] == '-' ? " -l " + name.substr(2) : " -s " + name.substr(1);
  }
  if (!option.value.empty()) line += FishValue(option);
  return line + " -d " + FishQuoted(ShortHelp(option)) + "\n";
}

void AddFishCommand(const CommandEntry& command, Marks& marks) {
  std::string& lines = marks["FISH_COMPLETIONS"];
  const std::string condition = fmt::format(" -n '__fish_seen_subcommand_from {}'", command.name);
  lines += fmt::format("complete -c wbimport -n __fish_use_subcommand -a {} -d {}\n", command.name,
                       FishQuoted(command.help));
  for (const OptionEntry& option : command.options) lines += FishOption(option, condition);
  for (const OptionEntry& argument : command.arguments) {
    lines += "complete -c wbimport" + condition + FishValue(argument) + "\n";
  }
}

}  // namespace

Marks CompletionMarks(const OptionTable& table) {
  Marks marks;
  std::vector<std::string> commands;
  AddBashCommand(table.program, table.program.options, marks);
  for (const OptionEntry& option : table.program.options) {
    marks["ZSH_OPTIONS"] += ZshOption(option);
    marks["FISH_COMPLETIONS"] += FishOption(option, "");
  }
  for (const CommandEntry& command : table.commands) {
    commands.push_back(command.name);
    const std::vector<OptionEntry> options = OptionsOf(command, table);
    AddBashCommand(command, options, marks);
    AddZshCommand(command, options, marks);
    AddFishCommand(command, marks);
  }
  marks["COMMANDS"] = Words(commands);
  return marks;
}

}  // namespace wbhost
