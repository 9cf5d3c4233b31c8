// The comparison for programs: an object a change, one a line. diff.schema.json describes it.
#include <nlohmann/json.hpp>

#include "base/utf.h"
#include "compare/lines.h"
#include "compare/objects.h"
#include "compare/readings.h"
#include "compare/text.h"
#include "compare/writer.h"

namespace wbcompare {

namespace {

using Json = nlohmann::ordered_json;

void Dump(std::ostream& out, const Json& value) {
  out << value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

Json SideJson(const std::string& label, const LcWorkbookFileInfo& info) {
  return {{"label", label},
          {"database", base::ToUtf8(info.database)},
          {"title", base::ToUtf8(info.title)},
          {"dbmsName", base::ToUtf8(info.dbms_name)},
          {"dbmsVersion", info.dbms_version},
          {"route", base::ToUtf8(info.route)},
          {"dialect", base::ToUtf8(info.dialect)}};
}

Json Optional(const std::optional<std::string>& text) { return text ? Json(*text) : Json(); }

Json ChangeJson(const Change& change, const Line& line) {
  Json json = {{"action", NameOf(change.action)},
               {"object", NameOf(change.object)},
               {"severity", NameOf(change.severity)},
               {"owner", line.owner},
               {"table", line.table},
               {"name", line.name}};
  if (change.property != Property::kNone) {
    json["property"] = NameOf(change.property);
    if (change.property == Property::kOption) json["option"] = base::ToUtf8(change.option.View());
  }
  if (change.action == Action::kRenamed) {
    json["newName"] = line.new_name;
    json["guess"] = change.guess;
    json["because"] = line.because;
  }
  if (!line.new_table.empty() && (line.new_table != line.table || line.new_owner != line.owner)) {
    json["newOwner"] = line.new_owner;
    json["newTable"] = line.new_table;
  }
  if (change.action != Action::kRenamed) {
    json["from"] = Optional(line.from);
    json["to"] = Optional(line.to);
  }
  if (line.is_text) {
    json["diff"] = UnifiedDiff(line.from.value_or(""), line.to.value_or(""));
  }
  return json;
}

Json UnknownJson(const Unknown& unknown) {
  return {{"object", NameOf(unknown.object)},
          {"side", unknown.old_side ? "old" : "new"},
          {"reason", unknown.reason},
          {"count", unknown.count},
          {"names", unknown.names}};
}

// An array with an element a line.
class Array {
 public:
  Array(std::ostream& out, const char* key) : out_(out) { out_ << ",\n  \"" << key << "\": ["; }
  ~Array() { out_ << (any_ ? "\n  ]" : "]"); }
  Array(const Array&) = delete;
  Array& operator=(const Array&) = delete;
  void Add(const Json& element) {
    out_ << (any_ ? ",\n    " : "\n    ");
    any_ = true;
    Dump(out_, element);
  }

 private:
  std::ostream& out_;
  bool any_ = false;
};

}  // namespace

void WriteJson(const Document& document, const WriteOptions& /*options*/, std::ostream& out) {
  const Comparison& comparison = document.comparison;
  out << "{\n  \"format\": \"workbook-diff\", \"version\": 1,\n  \"old\": ";
  Dump(out, SideJson(document.old_label, document.before.info));
  out << ",\n  \"new\": ";
  Dump(out, SideJson(document.new_label, document.after.info));
  {
    Array notes(out, "notes");
    for (const std::string& note : comparison.notes) notes.Add(note);
  }
  {
    Array changes(out, "changes");
    Lines lines;
    for (const Group& group : comparison.groups) {
      for (std::size_t i = group.first; i < group.end; ++i) {
        const Change& change = comparison.changes[i];
        changes.Add(ChangeJson(change, lines.Describe(change)));
      }
    }
  }
  std::size_t unknown_count = 0;
  {
    Array unknown(out, "unknown");
    for (const Unknown& entry : comparison.unknown) {
      unknown.Add(UnknownJson(entry));
      unknown_count += entry.count;
    }
  }
  out << ",\n  \"summary\": ";
  Dump(out, {{"breaking", comparison.Count(Severity::kBreaking)},
             {"careful", comparison.Count(Severity::kCareful)},
             {"harmless", comparison.Count(Severity::kHarmless)},
             {"tables", comparison.tables},
             {"unknown", unknown_count}});
  if (!comparison.lead.empty()) {
    Array readings(out, "readings");
    for (const ReadingCount& kind : CountByKind(comparison.changes)) {
      readings.Add({{"object", NameOf(kind.object)},
                    {"property", NameOf(kind.property)},
                    {"oldLacks", kind.old_lacks},
                    {"newLacks", kind.new_lacks},
                    {"differ", kind.differ}});
    }
  }
  out << "\n}\n";
}

}  // namespace wbcompare
