// What is installed beside the program, man page and completions for shells, is made of its option
// table, so that it cannot tell anything else than `--help` does. The prose and the shell code are
// files of this folder, in which a word such as @MAN_OPTIONS@ stands for what the table gives.
#pragma once

#include <map>
#include <string>

#include "host/documents/option_table.h"

namespace wbhost {

// Texts by the names of their marks, without the @.
using Marks = std::map<std::string, std::string>;

// @VERSION@, and MAN_SYNOPSIS, MAN_COMMANDS, MAN_OPTIONS, MAN_NOTES, MAN_CONFIGURATION_KEYS in
// roff.
[[nodiscard]] Marks ManPageMarks(const OptionTable& table);

// @COMMANDS@ (names with a blank between), and what each shell asks for: BASH_VALUES, BASH_OPTIONS,
// BASH_ARGUMENTS; ZSH_COMMANDS, ZSH_OPTIONS, ZSH_ARGUMENTS; FISH_COMPLETIONS.
[[nodiscard]] Marks CompletionMarks(const OptionTable& table);

// The text with every mark replaced. Throws std::runtime_error for a mark that is not known.
[[nodiscard]] std::string ReplaceMarks(const std::string& text, const Marks& marks);

}  // namespace wbhost
