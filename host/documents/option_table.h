// The commands and options as data, read off the declarations of the command line.
#pragma once

#include <string>
#include <vector>

namespace wbhost {

struct OptionEntry {
  std::vector<std::string> names;   // "-o", "--output"; the name of a command's argument
  std::string value;                // what stands behind it, such as FILE; empty: a switch
  std::vector<std::string> values;  // the few texts that can stand there; empty: any text
  bool is_list = false;             // several of them, parted by commas
  bool repeats = false;             // may be given more than once
  bool required = false;
  std::string group;
  std::string help;
};

struct CommandEntry {
  std::string name;
  std::string help;
  std::string notes;  // what its help ends with, several lines: examples first
  std::vector<OptionEntry> arguments;
  std::vector<OptionEntry> options;  // in the order of their declaration
};

struct OptionTable {
  CommandEntry program;  // with the options that stand before or behind any command
  std::vector<CommandEntry> commands;
};

[[nodiscard]] OptionTable MakeOptionTable();

}  // namespace wbhost
