// The comparison for a terminal: a line a change under the name of its table, one line that sums
// up. Of two readings, what sums up comes first.
#include "compare/lines.h"
#include "compare/text.h"
#include "compare/writer.h"

namespace wbcompare {

namespace {

class Writer {
 public:
  Writer(const Document& document, const WriteOptions& options, std::ostream& out)
      : document_(document), options_(options), out_(out) {}

  void Write() {
    const Comparison& comparison = document_.comparison;
    WriteSide("old", document_.old_label, document_.before.info);
    WriteSide("new", document_.new_label, document_.after.info);
    for (const std::string& sentence : comparison.lead) out_ << In("\033[1m", sentence) << '\n';
    for (const std::string& note : comparison.notes) out_ << note << '\n';
    for (const Group& group : comparison.groups) {
      out_ << '\n' << In("\033[1;34m", Heading(group, comparison)) << '\n';
      for (std::size_t i = group.first; i < group.end; ++i) WriteChange(comparison.changes[i]);
    }
    out_ << '\n';
    for (const Unknown& unknown : comparison.unknown) out_ << UnknownText(unknown) << '\n';
    if (comparison.lead.empty()) out_ << In("\033[1m", Summary(comparison)) << '\n';
  }

 private:
  std::string In(const char* code, const std::string& text) const {
    return options_.colour ? code + text + "\033[0m" : text;
  }
  void WriteSide(const char* which, const std::string& label, const LcWorkbookFileInfo& info) {
    out_ << which << ": " << Shown(label) << " (" << SourceText(info) << ")\n";
  }

  void WriteChange(const Change& change) {
    static constexpr const char* kColours[] = {"\033[32m", "\033[33m", "\033[1;31m"};
    static constexpr const char* kSigns[] = {"+", "-", "~", "~"};
    const Line line = lines_.Describe(change);
    const std::string severity = NameOf(change.severity);
    out_ << "  ";
    if (document_.comparison.lead.empty()) {
      out_ << In(kColours[static_cast<int>(change.severity)], severity)
           << std::string(10 - severity.size(), ' ');
    }
    out_ << (change.guess ? "?" : kSigns[static_cast<int>(change.action)]) << ' '
         << Subject(change, line) << (change.action == Action::kChanged ? ": " : " ")
         << Predicate(change, line) << '\n';
    if (line.is_text) WriteDiff(line);
  }

  void WriteDiff(const Line& line) {
    for (const std::string& text : UnifiedDiff(line.from.value_or(""), line.to.value_or(""))) {
      const char* colour = text[0] == '+'   ? "\033[32m"
                           : text[0] == '-' ? "\033[31m"
                           : text[0] == '@' ? "\033[36m"
                                            : "";
      out_ << "      " << (*colour != '\0' ? In(colour, Shown(text)) : Shown(text)) << '\n';
    }
  }

  const Document& document_;
  const WriteOptions& options_;
  std::ostream& out_;
  Lines lines_;
};

}  // namespace

void WriteText(const Document& document, const WriteOptions& options, std::ostream& out) {
  Writer(document, options, out).Write();
}

}  // namespace wbcompare
