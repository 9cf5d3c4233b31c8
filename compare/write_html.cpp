// One self-contained page without a script: the tables that differ, whole, with what differs
// marked.
#include <unordered_map>
#include <unordered_set>

#include "base/markup.h"
#include "base/utf.h"
#include "compare/lines.h"
#include "compare/objects.h"
#include "compare/text.h"
#include "compare/writer.h"
#include "embedded_wbcompare.h"

namespace wbcompare {

namespace {

std::string Escape(const std::string& text) { return base::EscapeMarkup(Shown(text)); }

// Two readings are not rated.
std::string Badge(Severity severity, const Comparison& comparison) {
  if (!comparison.lead.empty()) return {};
  return std::string("<span class=\"badge ") + NameOf(severity) + "\">" + NameOf(severity) +
         "</span>";
}

// A value that was and one that is.
std::string FromTo(const Fact& from, const Fact& to) {
  std::string text;
  if (from) text += "<del>" + Escape(*from) + "</del>";
  if (from && to) text += " ";
  if (to) text += "<ins>" + Escape(*to) + "</ins>";
  return text;
}

class Page {
 public:
  Page(const Document& document, std::ostream& out)
      : comparison_(document.comparison), document_(document), out_(out) {}

  void Write() {
    WriteHead();
    WriteContents();
    for (std::size_t i = 0; i < comparison_.groups.size(); ++i) WriteGroup(i);
    if (!comparison_.unknown.empty()) {
      out_ << "<h2>Not known</h2>\n<ul>\n";
      for (const Unknown& unknown : comparison_.unknown) {
        out_ << "<li>" << Escape(UnknownText(unknown)) << "</li>\n";
      }
      out_ << "</ul>\n";
    }
  }

 private:
  // The changes of the columns of one table.
  struct ColumnChanges {
    std::unordered_map<const LcWorkbookColumn*, std::vector<const Change*>> of_new;
    std::unordered_map<const LcWorkbookColumn*, std::vector<const LcWorkbookColumn*>> gone_behind;
    std::unordered_map<const LcWorkbookColumn*, const LcWorkbookColumn*> now;
  };

  void WriteHead() {
    const auto side = [&](const char* which, const std::string& label,
                          const LcWorkbookFileInfo& info) {
      out_ << "<span>" << which << ": <b>" << Escape(label) << "</b> (" << Escape(SourceText(info))
           << ")</span>";
    };
    out_ << "<h1>" << Escape(Summary(comparison_)) << "</h1>\n<p class=\"facts\">";
    side("old", document_.old_label, document_.before.info);
    side("new", document_.new_label, document_.after.info);
    out_ << "</p>\n";
    for (const std::string& note : comparison_.notes) {
      out_ << "<p class=\"hint\">" << Escape(note) << "</p>\n";
    }
  }

  void WriteContents() {
    if (comparison_.groups.size() < 2) return;
    out_ << "<ul class=\"contents\">\n";
    for (std::size_t i = 0; i < comparison_.groups.size(); ++i) {
      const Group& group = comparison_.groups[i];
      Severity worst = Severity::kHarmless;
      for (std::size_t at = group.first; at < group.end; ++at) {
        worst = std::max(worst, comparison_.changes[at].severity);
      }
      out_ << "<li><a href=\"#g" << i << "\">" << Escape(Heading(group, comparison_)) << "</a> "
           << Badge(worst, comparison_) << "</li>\n";
    }
    out_ << "</ul>\n";
  }

  void WriteGroup(std::size_t at) {
    const Group& group = comparison_.groups[at];
    out_ << "<section id=\"g" << at << "\">\n<h2>" << Escape(Heading(group, comparison_))
         << "</h2>\n<div class=\"sheet\"><table><thead><tr><th></th><th>change</th><th>from</th>"
            "<th>to</th></tr></thead><tbody>\n";
    std::vector<Line> texts;
    for (std::size_t i = group.first; i < group.end; ++i) {
      const Change& change = comparison_.changes[i];
      Line line = lines_.Describe(change);
      WriteRow(change, line);
      if (line.is_text) texts.push_back(std::move(line));
    }
    out_ << "</tbody></table></div>\n";
    for (const Line& line : texts) WriteText(line);
    if (group.old_table != nullptr || group.new_table != nullptr) WriteTable(group);
    out_ << "</section>\n";
  }

  void WriteRow(const Change& change, const Line& line) {
    std::string what = Subject(change, line);
    if (change.action == Action::kRenamed) {
      what += " " + RenameText(change, line);
    } else if (change.action == Action::kChanged) {
      what += ": " + Spoken(line.property);
    } else {
      what += std::string(" ") + NameOf(change.action);
    }
    const auto cell = [&](const std::optional<std::string>& text) {
      return text && !line.is_text ? Escape(*text) : std::string();
    };
    out_ << "<tr><td>" << Badge(change.severity, comparison_) << "</td><td>" << Escape(what)
         << "</td><td class=\"type\">" << cell(line.from) << "</td><td class=\"type\">"
         << cell(line.to) << "</td></tr>\n";
  }

  void WriteText(const Line& line) {
    out_ << "<pre class=\"diff\">";
    for (const std::string& text : UnifiedDiff(line.from.value_or(""), line.to.value_or(""))) {
      const char* tag = text[0] == '+' ? "ins" : text[0] == '-' ? "del" : "span";
      out_ << '<' << tag << '>' << Escape(text) << "</" << tag << ">\n";
    }
    out_ << "</pre>\n";
  }

  ColumnChanges Collect(const Group& group) const {
    ColumnChanges changes;
    std::unordered_set<const LcWorkbookColumn*> gone;
    for (std::size_t i = group.first; i < group.end; ++i) {
      const Change& change = comparison_.changes[i];
      if (change.object != Object::kColumn) continue;
      const auto column = [](const ObjectRef& ref) {
        const auto* const* found = std::get_if<const LcWorkbookColumn*>(&ref);
        return found == nullptr ? nullptr : *found;
      };
      if (change.action == Action::kRemoved) {
        gone.insert(column(change.before));
      } else {
        changes.of_new[column(change.after)].push_back(&change);
        if (column(change.before) != nullptr)
          changes.now[column(change.before)] = column(change.after);
      }
    }
    // What is gone is shown behind the column that it stood behind.
    const LcWorkbookColumn* behind = nullptr;
    for (int i = 0; !gone.empty() && i < group.old_table->GetColumnCount(); ++i) {
      const LcWorkbookColumn* column = group.old_table->GetColumn(i);
      if (gone.count(column) != 0) {
        changes.gone_behind[behind].push_back(column);
        continue;
      }
      const auto now = changes.now.find(column);
      const LcWorkbookColumn* same =
          now != changes.now.end() ? now->second : group.new_table->FindColumn(column->GetName());
      if (same != nullptr) behind = same;
    }
    return changes;
  }

  // All columns of the table, those that changed marked.
  void WriteTable(const Group& group) {
    const bool both = group.old_table != nullptr && group.new_table != nullptr;
    const ColumnChanges changes = both ? Collect(group) : ColumnChanges();
    const LcWorkbookTable& table = group.new_table != nullptr ? *group.new_table : *group.old_table;
    const char* whole = both ? "" : group.new_table != nullptr ? "added" : "removed";
    out_ << "<details" << (both ? " open" : "")
         << "><summary>All columns</summary><div class=\"sheet\"><table><tbody>\n";
    const auto write_gone = [&](const LcWorkbookColumn* behind) {
      const auto gone = changes.gone_behind.find(behind);
      if (gone == changes.gone_behind.end()) return;
      for (const LcWorkbookColumn* column : gone->second) WriteColumn(*column, "removed", nullptr);
    };
    write_gone(nullptr);
    for (int i = 0; i < table.GetColumnCount(); ++i) {
      const LcWorkbookColumn* column = table.GetColumn(i);
      const auto found = changes.of_new.find(column);
      const bool changed = found != changes.of_new.end();
      const bool added = changed && found->second.front()->action == Action::kAdded;
      WriteColumn(*column,
                  added     ? "added"
                  : changed ? "changed"
                            : whole,
                  changed && !added ? &found->second : nullptr);
      write_gone(column);
    }
    out_ << "</tbody></table></div></details>\n";
  }

  void WriteColumn(const LcWorkbookColumn& column, const char* how,
                   const std::vector<const Change*>* changes) {
    const LcWorkbookColumn* before = nullptr;
    if (changes != nullptr) {
      before = std::get<const LcWorkbookColumn*>(changes->front()->before);
    }
    const auto fact = [&](Property property) {
      const Fact now = FactOf(&column, property, ShownNames());
      const Fact was = before == nullptr ? now : FactOf(before, property, ShownNames());
      return was == now ? Escape(now.value_or("")) : FromTo(was, now);
    };
    const std::string name = base::ToUtf8(column.GetName());
    const std::string old_name = before == nullptr ? name : base::ToUtf8(before->GetName());
    out_ << "<tr class=\"" << how << "\"><td class=\"name\">"
         << (old_name == name ? Escape(name) : FromTo(old_name, name)) << "</td><td class=\"type\">"
         << fact(Property::kDataType) << "</td><td class=\"marks\">" << fact(Property::kNullable)
         << "</td><td class=\"type\">" << fact(Property::kDefault) << "</td><td>"
         << fact(Property::kComment) << "</td></tr>\n";
  }

  const Comparison& comparison_;
  const Document& document_;
  std::ostream& out_;
  Lines lines_;
};

}  // namespace

void WriteHtml(const Document& document, const WriteOptions& /*options*/, std::ostream& out) {
  // The skeleton names what goes where; everything else in it is written as it stands.
  std::string_view rest = embedded::kDiff;
  while (true) {
    const std::size_t open = rest.find("{{");
    out << rest.substr(0, open);
    if (open == std::string_view::npos) break;
    const std::size_t close = rest.find("}}", open);
    const std::string_view place = rest.substr(open + 2, close - open - 2);
    rest.remove_prefix(close + 2);
    if (place == "title") out << Escape(Summary(document.comparison));
    if (place == "style") out << embedded::kStyle;
    if (place == "page") Page(document, out).Write();
  }
}

}  // namespace wbcompare
