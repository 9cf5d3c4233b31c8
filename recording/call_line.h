// A copied call as a line of a recording: one JSON object, as docs/recordings.md describes it.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "recording/call_bytes.h"
#include "recording/name_rules.h"

namespace recording {

// Makes lines of the calls of one recording, in their order.
class LineMaker {
 public:
  // `rules` hides names; null: everything is written as it is.
  explicit LineMaker(std::unique_ptr<NameRules> rules) : rules_(std::move(rules)) {}

  // Takes one call and appends its line, with the line's end.
  void Append(CallReader& call, Bytes& out);
  void AppendNote(CallReader& note, Bytes& out);

 private:
  void AppendFields(CallReader& call, std::string_view function, Bytes& out);
  void AppendBuffer(CallReader& call, std::string_view function, Bytes& out);
  void AppendParameters(CallReader& call, Bytes& out);
  void AppendRows(CallReader& call, Bytes& out);
  void AppendColumns(CallReader& call, Bytes& out);
  void AppendRow(CallReader& call, Bytes& out);
  void SeeOwners();
  void AppendDiagnostics(CallReader& call, Bytes& out);
  void AppendCell(const Cell& cell, Role role, Bytes& out);
  void AppendText(std::string_view bytes, bool wide, Role role, Bytes& out);
  void BeginAnswer();

  std::unique_ptr<NameRules> rules_;
  bool secret_ = false;                // the answer belongs to the connection string
  bool database_ = false;              // it is the name of the database
  std::int64_t folder_bytes_ = 0;      // that were cut from that name
  std::string utf8_;                   // scratch
  std::vector<ColumnCopied> columns_;  // of the last fetch
  bool all_columns_ = true;            // from the first on
  std::vector<Cell> row_;
};

}  // namespace recording
