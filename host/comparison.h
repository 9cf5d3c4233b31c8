// What the commands that compare have in common: the comparison as its options want it, and its
// result in a format.
#pragma once

#include "compare/changes.h"
#include "compare/writer.h"
#include "host/options.h"
#include "host/outcome.h"
#include "host/output_file.h"
#include "host/schema_source.h"

namespace wbhost {

// Throws a Failure for words that nobody knows.
[[nodiscard]] wbcompare::Options ComparisonOptions(const Options& given);

// Where a comparison goes.
class ComparisonSheet {
 public:
  // Throws a Failure where the file cannot be written.
  explicit ComparisonSheet(const OutputOptions& options);
  [[nodiscard]] const OutputFile& output() const { return output_; }
  // Compares and writes. Differences of `fails_from` and worse count for the outcome. Throws a
  // Failure.
  void Write(const Schema& before, const Schema& after, const wbcompare::Options& options,
             wbcompare::Severity fails_from, Outcome& outcome) const;

 private:
  const OutputFile output_;
  const wbcompare::Format& format_;
};

}  // namespace wbhost
