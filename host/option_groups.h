// The options of the command line, in the groups that commands share. Each operation declares a
// group with its help; parsing fills the options, which must outlive the application.
#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>
#include <vector>

#include "host/options.h"

namespace wbhost {

// A text option that may be left out; the last one given counts. It takes any text as it stands,
// the empty one and `[a,b]` too, since names in a database look like anything.
CLI::Option* AddText(CLI::App& app, const std::string& name, std::optional<std::string>& target,
                     const std::string& help, const char* type = "TEXT");
// Takes the names of a list alone, and offers the nearest of them otherwise.
[[nodiscard]] CLI::Validator OneOf(const std::vector<std::string>& names);

void AddConnection(CLI::App& app, ConnectionOptions& options,
                   const char* group = "Connection (the sample database when none is given)");
// What decides how a server is read.
void AddRouteChoices(CLI::App& app, ChoiceOptions& options);
// What is read. Where --exclude is about something else, it goes without.
enum class Exclude { kWith, kWithout };
void AddChoices(CLI::App& app, ChoiceOptions& options, Exclude exclude = Exclude::kWith);
void AddReading(CLI::App& app, ChoiceOptions& options);
void AddQuiet(CLI::App& app, ReportOptions& options);
void AddProgress(CLI::App& app, ReportOptions& options);
void AddReports(CLI::App& app, ReportOptions& options);
// The output of a workbook, of a comparison and of an answer that is neither.
void AddOutput(CLI::App& app, OutputOptions& options);
void AddComparisonOutput(CLI::App& app, OutputOptions& options);
void AddAnswerOutput(CLI::App& app, OutputOptions& options);
// What a comparison leaves out.
void AddIgnore(CLI::App& app, Options& options);
// What diff and lint have beside an import.
void AddDiff(CLI::App& app, Options& options);
void AddLint(CLI::App& app, Options& options);

}  // namespace wbhost
