// The man page.
#include <fmt/format.h>

#include <algorithm>
#include <map>

#include "host/config_file.h"
#include "host/documents/documents.h"

namespace wbhost {
namespace {

// The characters that roff takes for something else: it would print a hyphen for the dash of an
// option and curled quotes, which no shell takes back.
const char* RoffName(char c) {
  switch (c) {
    case '\\':
      return "\\e";
    case '-':
      return "\\-";
    case '\'':
      return "\\(aq";
    case '`':
      return "\\(ga";
    case '^':
      return "\\(ha";
    case '~':
      return "\\(ti";
    default:
      return nullptr;
  }
}

std::string Escape(std::string_view text) {
  std::string out;
  for (const char c : text) {
    if (c == '.' && (out.empty() || out.back() == '\n')) out += "\\&";  // else a request
    if (const char* name = RoffName(c); name != nullptr) {
      out += name;
    } else {
      out += c;
    }
  }
  return out;
}

std::string Bold(std::string_view text) { return "\\fB" + Escape(text) + "\\fR"; }
std::string Italic(std::string_view text) { return "\\fI" + Escape(text) + "\\fR"; }

std::string Sentence(const std::string& text) {
  return text.empty() || text.back() == '.' ? text : text + ".";
}

std::string Arguments(const CommandEntry& command) {
  std::string text;
  for (const OptionEntry& argument : command.arguments) {
    const std::string name = Italic(argument.names[0]);
    text += argument.required ? " " + name : " [" + name + "]";
  }
  return text;
}

std::string Usage(const CommandEntry& command) {
  std::string line = Bold("wbimport " + command.name) + Arguments(command);
  if (!command.options.empty()) line += " [" + Italic("OPTION") + "]...";
  return line;
}

std::string Synopsis(const OptionTable& table) {
  std::string text;
  for (const CommandEntry& command : table.commands) {
    text += (text.empty() ? "" : ".br\n") + Usage(command) + "\n";
  }
  return text;
}

std::string Commands(const OptionTable& table) {
  std::string text;
  for (const CommandEntry& command : table.commands) {
    text += ".TP\n" + Bold(command.name) + Arguments(command);
    text += "\n" + Escape(Sentence(command.help)) + "\n";
    for (const OptionEntry& argument : command.arguments) {
      text += fmt::format("{}: {}\n", Italic(argument.names[0]), Escape(Sentence(argument.help)));
    }
  }
  return text;
}

// One option as the page has it: the same names with the same help stand once for all commands.
struct Described {
  const OptionEntry* option;
  std::vector<std::string> commands;
};

bool IsSame(const OptionEntry& a, const OptionEntry& b) {
  return a.names == b.names && a.help == b.help && a.group == b.group;
}

std::vector<Described> AllOptions(const OptionTable& table) {
  std::vector<Described> all;
  const auto add = [&all](const OptionEntry& option, const std::string& command) {
    const auto known = std::find_if(all.begin(), all.end(), [&option](const Described& each) {
      return IsSame(*each.option, option);
    });
    if (known == all.end()) {
      all.push_back({&option, {command}});
    } else {
      known->commands.push_back(command);
    }
  };
  for (const OptionEntry& option : table.program.options) add(option, "");
  for (const CommandEntry& command : table.commands) {
    for (const OptionEntry& option : command.options) {
      if (option.names.back() != "--help") add(option, command.name);  // every command's own
    }
  }
  return all;
}

std::string OptionLine(const OptionEntry& option) {
  std::string line;
  for (const std::string& name : option.names) {
    line += (line.empty() ? "" : ", ") + Bold(name);
    if (!option.value.empty()) line += " " + Italic(option.value);
  }
  return line;
}

std::string OptionSection(const OptionEntry& option) {
  std::string text = ".TP\n" + OptionLine(option) + "\n" + Escape(Sentence(option.help)) + "\n";
  const bool named = std::all_of(
      option.values.begin(), option.values.end(),
      [&option](const auto& value) { return option.help.find(value) != std::string::npos; });
  if (!named) text += Escape(fmt::format("One of {}.", fmt::join(option.values, ", "))) + "\n";
  if (option.repeats && option.help.find("repeat") == std::string::npos) {
    text += "May be repeated.\n";
  }
  return text;
}

// The commands that take most of the group's options: the others say theirs.
std::vector<std::string> CommandsOf(const std::vector<const Described*>& group) {
  std::map<std::vector<std::string>, int> counts;
  for (const Described* each : group) ++counts[each->commands];
  return std::max_element(counts.begin(), counts.end(),
                          [](const auto& a, const auto& b) { return a.second < b.second; })
      ->first;
}

std::string GroupSection(const std::string& name, const std::vector<const Described*>& group) {
  const auto of = [](const std::vector<std::string>& commands) {
    return Escape(fmt::format("For {}.", fmt::join(commands, ", "))) + "\n";
  };
  const std::vector<std::string> commands = CommandsOf(group);
  std::string text = ".SS " + Escape(name) + "\n";
  text += commands.front().empty() ? "For every command.\n" : of(commands);
  for (const Described* each : group) {
    text += OptionSection(*each->option);
    if (each->commands != commands) text += of(each->commands);
  }
  return text;
}

std::string OptionsOf(const OptionTable& table) {
  const std::vector<Described> all = AllOptions(table);
  std::vector<std::string> names;
  std::map<std::string, std::vector<const Described*>> groups;
  for (const Described& each : all) {
    const std::string& name = each.option->group;
    if (groups.find(name) == groups.end()) names.push_back(name);
    groups[name].push_back(&each);
  }
  std::string text;
  for (const std::string& name : names) text += GroupSection(name, groups[name]);
  return text;
}

// What the help of the commands ends with: examples, and what else there is to say.
std::string Notes(const OptionTable& table) {
  std::string text;
  const auto add = [&text](const CommandEntry& command, const std::string& name) {
    if (command.notes.empty()) return;
    text += fmt::format(".SS {}\n.nf\n{}\n.fi\n", Escape(name), Escape(command.notes));
  };
  add(table.program, "wbimport");
  for (const CommandEntry& command : table.commands) add(command, "wbimport " + command.name);
  return text;
}

}  // namespace

Marks ManPageMarks(const OptionTable& table) {
  return {
      {"VERSION", WB_VERSION},
      {"MAN_SYNOPSIS", Synopsis(table)},
      {"MAN_COMMANDS", Commands(table)},
      {"MAN_OPTIONS", OptionsOf(table)},
      {"MAN_NOTES", Notes(table)},
      {"MAN_CONFIGURATION_KEYS", Escape(fmt::format("{}", fmt::join(ConfigKeys(), ", ")))},
  };
}

}  // namespace wbhost
