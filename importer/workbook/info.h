// Name-only entries for a host's selection dialogs, and the records that notifications carry.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "importer/workbook/enums.h"
#include "importer/workbook/object.h"

class LcWorkbookDatatype;

// An owner (schema, creator).
class LC_WORKBOOK_EXPORT LcOwnerInfo : public LcObject {
 public:
  LcOwnerInfo();
  ~LcOwnerInfo() override;
  const char* GetRuntimeClass() const override;

  std::u16string name;
};

// What a synonym stands for. All texts are empty and all numbers 0 for a table or view.
struct LcSynonymDetails {
  std::int32_t synonym_id = 0;
  std::int32_t base_table_id = 0;  // 0 for a synonym of a table in another database
  std::u16string server_name;
  std::u16string database_name;  // Oracle: the database link
  std::u16string base_owner;
  std::u16string base_table_name;
};

// A table, view or synonym by name.
class LC_WORKBOOK_EXPORT LcTableInfo : public LcObject {
 public:
  LcTableInfo();
  ~LcTableInfo() override;
  const char* GetRuntimeClass() const override;

  std::u16string name;
  std::u16string owner;  // empty: no owner
  enumTableType type = ttTable;
  LcSynonymDetails synonym;
};

// A column of the single table that a host asked for.
class LC_WORKBOOK_EXPORT LcWBColumnInfo : public LcObject {
 public:
  LcWBColumnInfo();
  ~LcWBColumnInfo() override;
  const char* GetRuntimeClass() const override;

  std::u16string name;
  std::unique_ptr<LcWorkbookDatatype> data_type;  // null when the type is not known
};

using LcOwnerInfoList = LcObjectList<LcOwnerInfo>;
using LcTableInfoList = LcObjectList<LcTableInfo>;
using LcWBColumnInfoList = LcObjectList<LcWBColumnInfo>;

// Record of the notifications 6, 8, 9 and 10. It lives for one callback.
class LC_WORKBOOK_EXPORT LcImpItemInfo : public LcObject {
 public:
  LcImpItemInfo();
  ~LcImpItemInfo() override;
  const char* GetRuntimeClass() const override;

  std::u16string text1;
  std::u16string text2;
  std::u16string text3;
  bool flag = true;
};

// Record of the notifications 2 and 4. It lives for one callback.
class LC_WORKBOOK_EXPORT LcImpProgStartInfo : public LcObject {
 public:
  LcImpProgStartInfo();
  ~LcImpProgStartInfo() override;
  const char* GetRuntimeClass() const override;

  enumImpItemType item_type = iiNone;
  std::uint32_t count = 0;
};
