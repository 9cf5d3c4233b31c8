// Readers of what else a schema has: triggers, types, sequences and routines.
#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "routes/exact/constraints.h"
#include "routes/exact/model.h"
#include "routes/exact/selection.h"

namespace odbcimport::exact {

class TriggerReader : public RowReader {
 public:
  explicit TriggerReader(Model& model) : model_(model) {}
  void Mark() override { mark_ = all_.size(); }
  void Undo() override { all_.resize(mark_); }
  void Read(const Row& row) override;
  void Finish();

 private:
  struct Trigger {
    std::uint32_t table = kNoTable;
    std::string name;
    LcTriggerDetails details;
  };
  Model& model_;
  std::vector<Trigger> all_;
  std::size_t mark_ = 0;
};

// A row a type, or one for each of its labels or attributes.
class TypeReader : public RowReader {
 public:
  TypeReader(Model& model, const Selection& selection) : model_(model), selection_(selection) {}
  void Mark() override { mark_ = all_.size(); }
  void Undo() override;
  void Read(const Row& row) override;
  // Into the workbook's details, and into the host's list of types where that is wanted.
  void Finish(const Constraints& constraints, LcWorkbookDatatypeList* list);

 private:
  struct Type {
    std::string schema;
    std::string name;
    std::string kind;
    std::int64_t id = 0;
    std::vector<std::pair<std::int64_t, LcText>> labels;
    std::vector<std::pair<std::int64_t, LcTypeAttribute>> attributes;
    LcTypeDetails details;
  };
  [[nodiscard]] Type& Find(const Row& row, std::string_view schema, bool& is_new);
  void ReadFacts(const Row& row, Type& type);
  [[nodiscard]] std::unique_ptr<LcWorkbookDatatype> ListEntry(const Type& type);
  static void TakeParts(Type& type);

  Model& model_;
  const Selection& selection_;
  std::vector<Type> all_;
  std::size_t mark_ = 0;
};

class SequenceReader : public RowReader {
 public:
  SequenceReader(Model& model, const Selection& selection) : model_(model), selection_(selection) {}
  void Mark() override { mark_ = all_.size(); }
  void Undo() override { all_.resize(mark_); }
  void Read(const Row& row) override;
  void Finish();

 private:
  void ReadOwner(const Row& row, std::string_view schema, LcSequenceDetails& details);

  Model& model_;
  const Selection& selection_;
  std::vector<LcSequenceDetails> all_;
  std::size_t mark_ = 0;
};

// Routines and, after them, their parameters.
class RoutineReader : public RowReader {
 public:
  RoutineReader(Model& model, const Selection& selection) : model_(model), selection_(selection) {}
  void Mark() override { mark_ = all_.size(); }
  void Undo() override;
  void Read(const Row& row) override;
  void ReadParameter(const Row& row);
  // Into the workbook's details and its lists of functions and procedures, as far as the items ask.
  void Finish(std::uint32_t items);

 private:
  struct Routine {
    LcRoutineDetails details;
    LcText arguments;  // as the server spells them; absent: put together from the parameters
    std::vector<std::pair<std::int64_t, LcParameterDetails>> parameters;
  };
  [[nodiscard]] std::u16string SignatureOf(const Routine& routine) const;

  Model& model_;
  const Selection& selection_;
  std::vector<Routine> all_;
  std::unordered_map<std::string, std::size_t> places_;
  std::size_t mark_ = 0;
};

class ParameterReader : public RowReader {
 public:
  explicit ParameterReader(RoutineReader& routines) : routines_(routines) {}
  void Read(const Row& row) override { routines_.ReadParameter(row); }

 private:
  RoutineReader& routines_;
};

}  // namespace odbcimport::exact
