// The comparison for the comment of a pull request: a table a table, texts of views folded away.
#include <algorithm>

#include "compare/lines.h"
#include "compare/text.h"
#include "compare/writer.h"

namespace wbcompare {

namespace {

std::size_t LongestRun(std::string_view text, char wanted) {
  std::size_t longest = 0;
  std::size_t run = 0;
  for (const char c : text) {
    run = c == wanted ? run + 1 : 0;
    longest = std::max(longest, run);
  }
  return longest;
}

// A code span in a table's cell, whatever the text is.
std::string Code(const std::string& text) {
  if (text.empty()) return "";
  const std::string fence(LongestRun(text, '`') + 1, '`');
  std::string shown = Shown(text);
  for (std::size_t at = shown.find('|'); at != std::string::npos; at = shown.find('|', at + 2)) {
    shown.insert(at, 1, '\\');
  }
  const bool padded = shown.front() == '`' || shown.back() == '`' || shown.front() == ' ';
  return padded ? fence + " " + shown + " " + fence : fence + shown + fence;
}

// Plain text in which no character means anything.
std::string Plain(const std::string& text) {
  std::string escaped;
  for (const char c : Shown(text)) {
    if (std::string_view("\\`*_[]<>|#&~").find(c) != std::string_view::npos) escaped += '\\';
    escaped += c;
  }
  return escaped;
}

class Writer {
 public:
  Writer(const Document& document, std::ostream& out) : document_(document), out_(out) {}

  void Write() {
    const Comparison& comparison = document_.comparison;
    out_ << "### " << Summary(comparison) << "\n\n"
         << "From " << Code(document_.old_label) << " (" << Plain(SourceText(document_.before.info))
         << ") to " << Code(document_.new_label) << " (" << Plain(SourceText(document_.after.info))
         << ").\n";
    for (const std::string& note : comparison.notes) out_ << '\n' << Plain(note) << '\n';
    for (const Group& group : comparison.groups) WriteGroup(group);
    if (comparison.unknown.empty()) return;
    out_ << "\n#### Not known\n\n";
    for (const Unknown& unknown : comparison.unknown) {
      out_ << "- " << Plain(UnknownText(unknown)) << '\n';
    }
  }

 private:
  void WriteGroup(const Group& group) {
    out_ << "\n#### " << Plain(Heading(group, document_.comparison))
         << "\n\n| | change | from | to |\n|---|---|---|---|\n";
    std::vector<Line> texts;
    for (std::size_t i = group.first; i < group.end; ++i) {
      const Change& change = document_.comparison.changes[i];
      Line line = lines_.Describe(change);
      WriteRow(change, line);
      if (line.is_text) texts.push_back(std::move(line));
    }
    for (const Line& line : texts) WriteText(line);
  }

  void WriteRow(const Change& change, const Line& line) {
    const bool breaking = change.severity == Severity::kBreaking;
    const std::string severity = NameOf(change.severity);
    std::string what = Spoken(NameOf(change.object));
    const bool at_top = change.old_table == nullptr && change.new_table == nullptr;
    const std::string name =
        at_top && !line.owner.empty() ? line.owner + "." + line.name : line.name;
    if (!name.empty()) what += " " + Code(name);
    if (change.action == Action::kChanged) {
      what += ": " + Plain(Spoken(line.property));
    } else if (change.action == Action::kRenamed) {
      what += " " + Plain(RenameText(change, line));
    } else {
      what += std::string(" ") + NameOf(change.action);
    }
    const auto cell = [&](const std::optional<std::string>& text) {
      return text && !line.is_text ? Code(*text) : std::string();
    };
    const bool rates = document_.comparison.lead.empty();
    out_ << "| "
         << (!rates     ? ""
             : breaking ? "**" + severity + "**"
                        : severity)
         << " | " << what << " | " << cell(line.from) << " | " << cell(line.to) << " |\n";
  }

  void WriteText(const Line& line) {
    const std::vector<std::string> diff = UnifiedDiff(line.from.value_or(""), line.to.value_or(""));
    std::size_t run = 2;
    for (const std::string& text : diff) run = std::max(run, LongestRun(text, '`'));
    const std::string fence(run + 1, '`');
    out_ << "\n<details><summary>The text" << (line.name.empty() ? "" : " of " + Plain(line.name))
         << "</summary>\n\n"
         << fence << "diff\n";
    for (const std::string& text : diff) out_ << Shown(text) << '\n';
    out_ << fence << "\n\n</details>\n";
  }

  const Document& document_;
  std::ostream& out_;
  Lines lines_;
};

}  // namespace

void WriteMarkdown(const Document& document, const WriteOptions& /*options*/, std::ostream& out) {
  Writer(document, out).Write();
}

}  // namespace wbcompare
