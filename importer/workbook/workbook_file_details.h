// The optional members of the workbook file: what only the exact reading knows. Private to the
// library.
#pragma once

#include "importer/workbook/json_fields.h"
#include "importer/workbook/json_writer.h"
#include "importer/workbook/table.h"
#include "importer/workbook/workbook.h"
#include "importer/workbook/workbook_file.h"

namespace workbookfile {

// Each writes the members that are there into the object that is open, and nothing for others.
void WriteSource(JsonWriter& json, const LcWorkbookFileInfo& info);
void WriteTableDetails(JsonWriter& json, const LcWorkbookTable& table);
void WriteColumnDetails(JsonWriter& json, const LcWorkbookColumn& column);
void WriteForeignKeyDetails(JsonWriter& json, const LcForeignKeyDetails* details);
void WriteWorkbookDetails(JsonWriter& json, const LcWorkbookDetails& details);

// Each reads the members that are there. Throw JsonRefusal.
void ReadSource(const JsonField& source, LcWorkbookFileInfo& info);
void ReadTableDetails(const JsonField& field,
                      LcWorkbookTable& table);  // once its columns are there
void ReadColumnDetails(const JsonField& field, LcWorkbookColumn& column);
void ReadForeignKeyDetails(const JsonField& field, LcWorkbookForeignKey& key);
[[nodiscard]] LcOptions ReadOptions(const JsonField& options);
[[nodiscard]] LcSchemaDetails ReadSchema(const JsonField& field);
[[nodiscard]] LcTypeDetails ReadType(const JsonField& field);
[[nodiscard]] LcSequenceDetails ReadSequence(const JsonField& field);
[[nodiscard]] LcRoutineDetails ReadRoutine(const JsonField& field);
[[nodiscard]] LcNotRead ReadNotRead(const JsonField& field);

}  // namespace workbookfile
