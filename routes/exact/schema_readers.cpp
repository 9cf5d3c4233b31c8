#include "routes/exact/schema_readers.h"

#include <array>
#include <utility>

namespace odbcimport::exact {
namespace {

struct OfName {
  std::string_view name;
  Comments::Of of;
};
constexpr std::array<OfName, 6> kOfNames = {{{"relation", Comments::Of::kRelation},
                                             {"schema", Comments::Of::kSchema},
                                             {"type", Comments::Of::kType},
                                             {"routine", Comments::Of::kRoutine},
                                             {"constraint", Comments::Of::kConstraint},
                                             {"trigger", Comments::Of::kTrigger}}};

}  // namespace

void SchemaReader::Read(const Row& row) {
  const std::string_view name = row.Text(Field::kSchema);
  if (row.Has(Field::kSchemaId)) {
    model_.schemas_by_id.Add(row.Number(Field::kSchemaId),
                             static_cast<std::uint32_t>(model_.schemas.size()));
  }
  model_.schemas.emplace_back(name);
  if (!details_ || !selection_.WantsSchema(name)) return;
  TextStore& texts = model_.catalog.texts();
  LcSchemaDetails details;
  details.name = texts.Get(name);
  details.comment = texts.Get(row.Text(Field::kComment));
  if (!details.comment && row.Has(Field::kSchemaId)) {
    details.comment = model_.comments.Find(Comments::Of::kSchema, row.Number(Field::kSchemaId));
  }
  details.is_default = row.Has(Field::kIsDefault) ? row.Flag(Field::kIsDefault)
                                                  : name == model_.catalog.server().schema;
  model_.TakeOptions(row, details.options);
  model_.catalog.session().sink.workbook()->details.schemas.push_back(std::move(details));
}

void NameReader::Read(const Row& row) {
  model_.names.Add(
      row.Text(Field::kOf), row.Number(Field::kId),
      {model_.catalog.texts().Get(row.Text(Field::kName)), row.Flag(Field::kIsDefault)});
}

void CommentReader::Read(const Row& row) {
  const std::string_view of = row.Text(Field::kOf);
  for (const OfName& name : kOfNames) {
    if (name.name != of) continue;
    model_.comments.Add(name.of, row.Number(Field::kId), row.Number(Field::kPosition),
                        model_.catalog.texts().Get(row.Text(Field::kComment)));
  }
}

void NotReadReader::Read(const Row& row) {
  std::string_view schema;
  if (!model_.FindSchema(row, schema) || !selection_.WantsSchema(schema)) return;
  model_.catalog.AddNotRead(row.Text(Field::kKind), schema, row.Text(Field::kName),
                            model_.catalog.texts().Get(row.Text(Field::kReason)),
                            !row.Flag(Field::kFailed));
}

}  // namespace odbcimport::exact
