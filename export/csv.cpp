// A line for each column, as RFC 4180 has it: fields parted by commas, lines ended by CR LF, and in
// quotes what holds a comma, a quote or a line end. For spreadsheets and scripts.
#include <algorithm>
#include <array>
#include <map>

#include "base/utf.h"
#include "export/facts.h"
#include "export/writers.h"

namespace wbexport {

namespace {

constexpr std::array kTitles = {"database",      "owner",    "table",     "kind",       "position",
                                "column",        "type",     "nullable",  "key",        "default",
                                "generated",     "identity", "collation", "references", "comment",
                                "table comment", "import"};

class Sheet {
 public:
  explicit Sheet(std::ostream& out) : out_(out) {}

  void Field(const std::string& text) {
    if (!first_) out_ << ',';
    first_ = false;
    if (text.find_first_of(",\"\r\n") == std::string::npos) {
      out_ << text;
      return;
    }
    out_ << '"';
    for (const char c : text) {
      if (c == '"') out_ << '"';
      out_ << c;
    }
    out_ << '"';
  }
  void EndLine() {
    out_ << "\r\n";
    first_ = true;
  }

 private:
  std::ostream& out_;
  bool first_ = true;
};

// "sales.customer.id": what the columns refer to, by column.
using References = std::map<const LcWorkbookColumn*, std::string>;

References FindReferences(const Relationships& relationships, const LcWorkbookTable& table) {
  References references;
  const auto add = [&](const LcWorkbookColumn* column, const std::string& target) {
    std::string& list = references[column];
    list += (list.empty() ? "" : "; ") + target;
  };
  for (const std::size_t at : relationships.From(table)) {
    const Relationship& r = relationships.All()[at];
    for (std::size_t i = 0; i < std::min(r.from_columns.size(), r.to_columns.size()); ++i) {
      add(r.from_columns[i], DisplayName(*r.to) + "." + Display(r.to_columns[i]->GetName()));
    }
  }
  if (table.GetDetails() == nullptr) return references;
  for (const LcOutsideKey& key : table.GetDetails()->outside_keys) {
    const std::string target = DisplayName(key.target_owner.View(), key.target_table.View());
    for (std::size_t i = 0; i < std::min(key.columns.size(), key.target_columns.size()); ++i) {
      add(key.columns[i], target + "." + Display(key.target_columns[i].View()));
    }
  }
  return references;
}

}  // namespace

bool WriteCsv(const Document& document, const Options& /*options*/, std::ostream& out,
              Notes& notes) {
  const LcWorkbookFileInfo& info = document.info;
  const Relationships relationships(document.workbook);
  Sheet sheet(out);
  for (const char* title : kTitles) sheet.Field(title);
  sheet.EndLine();
  const std::string title = DatabaseTitle(info);
  const std::string database = title.empty() ? Display(info.dbms_name) : title;
  bool has_lines = false;
  for (const LcWorkbookTable* table : document.workbook.tables.Present()) {
    has_lines = has_lines || table->GetColumnCount() > 0;
    const References references = FindReferences(relationships, *table);
    const std::vector<LcWorkbookColumn*> key = table->GetPrimaryKey().GetColumns();
    for (int i = 0; i < table->GetColumnCount(); ++i) {
      const LcWorkbookColumn& column = *table->GetColumn(i);
      static const LcColumnDetails kNone;
      const LcColumnDetails& details =
          column.GetDetails() == nullptr ? kNone : *column.GetDetails();
      const auto name_of = [](auto value) {
        const char16_t* name = LcNameOf(value);
        return name == nullptr ? std::string() : base::ToUtf8(name);
      };
      const auto in_key = std::find(key.begin(), key.end(), &column);
      const auto reference = references.find(&column);
      std::string generated = name_of(details.generated);
      if (!generated.empty()) generated += ": " + DisplayLines(details.expression.View());
      if (generated.empty() && column.IsGeneratedKey() && details.identity == idNone) {
        generated = "by the server";
      }
      sheet.Field(database);
      sheet.Field(Display(table->GetOwner(true)));
      sheet.Field(Display(table->GetName()));
      sheet.Field(KindName(*table));
      sheet.Field(std::to_string(i + 1));
      sheet.Field(Display(column.GetName()));
      sheet.Field(TypeText(column));
      sheet.Field(column.IsRequired() ? "no" : "yes");
      sheet.Field(in_key != key.end()     ? std::to_string(in_key - key.begin() + 1)
                  : column.IsPrimaryKey() ? "1"
                                          : "");
      sheet.Field(DisplayLines(details.default_text.View()));
      sheet.Field(generated);
      sheet.Field(name_of(details.identity));
      sheet.Field(Display(details.collation.View()));
      sheet.Field(reference == references.end() ? "" : reference->second);
      sheet.Field(DisplayLines(details.comment.View()));
      sheet.Field(CommentOf(*table));
      sheet.Field(info.incomplete ? "incomplete" : "complete");
      sheet.EndLine();
    }
  }
  // The mark has no column to stand beside.
  if (info.incomplete && !has_lines) {
    sheet.Field(database);
    for (std::size_t i = 2; i < kTitles.size(); ++i) sheet.Field("");
    sheet.Field("incomplete");
    sheet.EndLine();
  }
  if (info.incomplete) notes.push_back(IncompleteText(info));
  for (const LcNotRead& missing : document.workbook.details.not_read) {
    notes.push_back("Not read: " + Facts::OfNotRead(missing));
  }
  return true;
}

}  // namespace wbexport
