// CREATE statements in workbook order. References stand inside their table, which lets a table
// refer to one that comes later on servers that look at the reference when it is used (SQLite among
// them); what no workbook holds the text of (views) or no standard has (synonyms) is a comment.
#include <fmt/format.h>

#include <algorithm>
#include <set>

#include "base/letters.h"
#include "base/utf.h"
#include "export/model.h"
#include "export/sql_script.h"
#include "export/writers.h"

namespace wbexport {

namespace {

// A delimited identifier. It may hold anything but a zero, which would end the script.
std::string Quote(const std::u16string& name) {
  std::string quoted = "\"";
  for (const char c : base::ToUtf8(name)) {
    if (c == '\0') {
      quoted += "\u2400";
      continue;
    }
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + '"';
}

std::string Quote(const LcWorkbookTable& table) {
  const std::u16string& owner = table.GetOwner(false);
  return owner.empty() ? Quote(table.GetName()) : Quote(owner) + "." + Quote(table.GetName());
}

std::string Quote(const std::vector<LcWorkbookColumn*>& columns) {
  std::string list;
  for (const LcWorkbookColumn* column : columns) {
    if (!list.empty()) list += ", ";
    list += Quote(column->GetName());
  }
  return list;
}

// Type names are words, numbers and parentheses; any other is a named type in need of quotes.
std::string SqlType(const LcWorkbookColumn& column) {
  const std::string text = TypeText(column);
  const bool plain = std::all_of(text.begin(), text.end(), [](char c) {
    return base::IsLetterOrDigit(c) || c == '_' || c == ' ' || c == '(' || c == ')' || c == ',';
  });
  return plain ? text : Quote(base::ToUtf16(text));
}

class Script {
 public:
  Script(const Document& document, std::ostream& out)
      : workbook_(document.workbook),
        info_(document.info),
        out_(out),
        relationships_(document.workbook) {}

  void Write() {
    out_ << "-- Schema of " << SourceText(info_) << ".\n";
    if (info_.incomplete) out_ << "-- " << IncompleteText(info_) << '\n';
    std::set<std::u16string> owners;
    for (const LcWorkbookTable* table : workbook_.tables.Present()) {
      if (!IsCreated(*table) || table->GetOwner(false).empty()) continue;
      if (!owners.insert(table->GetOwner(false)).second) continue;
      if (owners.size() == 1) out_ << '\n';
      out_ << "CREATE SCHEMA " << Quote(table->GetOwner(false)) << ";\n";
    }
    for (const LcWorkbookTable* table : workbook_.tables.Present()) {
      out_ << '\n';
      if (IsCreated(*table)) {
        WriteTable(*table);
      } else {
        WriteComment(*table);
      }
    }
  }

 private:
  static bool IsCreated(const LcWorkbookTable& table) {
    return table.GetType() == ttTable && table.GetColumnCount() > 0;
  }

  void WriteTable(const LcWorkbookTable& table) {
    out_ << "CREATE TABLE " << Quote(table) << " (";
    const char* separator = "\n  ";
    for (int i = 0; i < table.GetColumnCount(); ++i) {
      const LcWorkbookColumn& column = *table.GetColumn(i);
      const std::string type = SqlType(column);
      out_ << separator << Quote(column.GetName()) << (type.empty() ? "" : " ") << type
           << (column.IsRequired() ? " NOT NULL" : "");
      separator = ",\n  ";
    }
    const std::vector<LcWorkbookColumn*> key = table.GetPrimaryKey().GetColumns();
    if (!key.empty()) out_ << ",\n  PRIMARY KEY (" << Quote(key) << ')';
    for (const std::size_t at : relationships_.From(table)) {
      const Relationship& r = relationships_.All()[at];
      if (!IsCreated(*r.to)) continue;
      out_ << fmt::format(",\n  FOREIGN KEY ({}) REFERENCES {} ({})", Quote(r.from_columns),
                          Quote(*r.to), Quote(r.to_columns));
    }
    out_ << "\n);\n";
    WriteRemarks(table);
  }

  // What a reader of the script wants to know and no clause that every server reads can say.
  void WriteRemarks(const LcWorkbookTable& table) {
    for (int i = 0; i < table.GetColumnCount(); ++i) {
      const LcWorkbookColumn& column = *table.GetColumn(i);
      const std::string name = Display(column.GetName());
      if (column.IsGeneratedKey()) out_ << "-- The server generates " << name << ".\n";
      if (SqlType(column).empty()) out_ << "-- The type of " << name << " is not known.\n";
    }
    for (const std::size_t at : relationships_.From(table)) {
      const Relationship& r = relationships_.All()[at];
      if (IsCreated(*r.to)) continue;
      out_ << fmt::format("-- ({}) refers to {} ({}).\n", DisplayColumns(r.from_columns),
                          DisplayName(*r.to), DisplayColumns(r.to_columns));
    }
  }

  // Names are shown without line breaks here: one would end the comment.
  void WriteComment(const LcWorkbookTable& table) {
    switch (table.GetType()) {
      case ttView:
        out_ << "-- View " << DisplayName(table) << ", whose text is not part of a workbook:\n";
        break;
      case ttSynonym:
        out_ << "-- Synonym " << DisplayName(table) << " of "
             << SynonymTarget(table.GetSynonymDetails()) << ":\n";
        break;
      case ttTable:
        out_ << "-- Table " << DisplayName(table) << " has no columns.\n";
        break;
    }
    for (int i = 0; i < table.GetColumnCount(); ++i) {
      const LcWorkbookColumn& column = *table.GetColumn(i);
      const std::string type = TypeText(column);
      out_ << "--   " << Display(column.GetName()) << (type.empty() ? "" : " ") << type
           << (column.IsRequired() ? " NOT NULL" : "") << '\n';
    }
  }

  const LcWorkbook& workbook_;
  const LcWorkbookFileInfo& info_;
  std::ostream& out_;
  const Relationships relationships_;
};

}  // namespace

bool WriteSql(const Document& document, const Options& options, std::ostream& out, Notes& notes) {
  const std::string dialect =
      options.dialect_out.empty() ? base::ToUtf8(document.info.dialect) : options.dialect_out;
  const sql::Target* target = sql::FindTarget(dialect);
  if (target != nullptr) {
    sql::WriteScript(document, *target, out, notes);
    return true;
  }
  if (!options.dialect_out.empty()) {
    std::string names;
    for (const sql::Target& each : sql::AllTargets()) {
      names += (names.empty() ? "" : ", ") + std::string(each.name);
    }
    notes.push_back(fmt::format("no script can be written for '{}'; there are {}", dialect, names));
    return false;
  }
  Script(document, out).Write();
  return true;
}

}  // namespace wbexport
