// Readers of what stands around the tables: schemas, the names behind numbers, comments by number,
// and what the server itself says that it does not tell.
#pragma once

#include "routes/exact/model.h"
#include "routes/exact/selection.h"

namespace odbcimport::exact {

class SchemaReader : public RowReader {
 public:
  // `details` false: names only.
  SchemaReader(Model& model, const Selection& selection, bool details)
      : model_(model), selection_(selection), details_(details) {}
  void Read(const Row& row) override;

 private:
  Model& model_;
  const Selection& selection_;
  bool details_;
};

class NameReader : public RowReader {
 public:
  explicit NameReader(Model& model) : model_(model) {}
  void Read(const Row& row) override;

 private:
  Model& model_;
};

class CommentReader : public RowReader {
 public:
  explicit CommentReader(Model& model) : model_(model) {}
  void Read(const Row& row) override;

 private:
  Model& model_;
};

class NotReadReader : public RowReader {
 public:
  NotReadReader(Model& model, const Selection& selection) : model_(model), selection_(selection) {}
  void Read(const Row& row) override;

 private:
  Model& model_;
  const Selection& selection_;
};

}  // namespace odbcimport::exact
