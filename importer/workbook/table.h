// Tables with their columns and keys.
//
// A table owns its columns and its foreign keys; a foreign key owns its two key lists; key lists
// only refer to columns. A relationship is two foreign keys: the forward key that the referenced
// table holds and the mirror key, with the sides swapped, that the referencing table holds.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "importer/workbook/datatype.h"
#include "importer/workbook/details.h"
#include "importer/workbook/enums.h"
#include "importer/workbook/info.h"
#include "importer/workbook/name.h"
#include "importer/workbook/object.h"

class LcWorkbookTable;
class LcWorkbookTableList;

class LC_WORKBOOK_EXPORT LcWorkbookColumn : public LcObject {
 public:
  LcWorkbookColumn();
  ~LcWorkbookColumn() override;
  LcWorkbookColumn(const LcWorkbookColumn&) = delete;
  LcWorkbookColumn& operator=(const LcWorkbookColumn&) = delete;
  const char* GetRuntimeClass() const override;

  void SetName(const std::u16string& name);
  void SetName(const LcName& name);  // whose characters it then shares
  [[nodiscard]] const std::u16string& GetName() const { return name_.Text(); }
  // Both record the table that the column belongs to; AddColumn does so as well.
  void SetTable(LcWorkbookTable* table);
  void SetParentTable(LcWorkbookTable* table);
  [[nodiscard]] LcWorkbookTable* GetParentTable() const { return table_; }

  // Gives the column its own type object, which it owns (null: none). `assign` is always true;
  // `from_list` is false for a complex type that was put together for this column alone.
  void SetDataType(LcWorkbookDatatype* type, bool assign, bool from_list);
  [[nodiscard]] LcWorkbookDatatype* GetDataType() const {
    return type_.get();
  }  // null when not known

  void SetPhysicalCode(int code) { physical_code_ = code; }
  [[nodiscard]] int GetPhysicalCode() const { return physical_code_; }
  void SetWidth(int width) { width_ = width; }  // in the server's own unit
  [[nodiscard]] int GetWidth() const { return width_; }
  void SetPrecision(unsigned long precision);  // kept in 32 bits
  unsigned long GetPrecision() const { return precision_; }
  void SetScale(unsigned short scale) { scale_ = scale; }
  unsigned short GetScale() const { return scale_; }

  void SetRequired(bool required) { required_ = required; }
  [[nodiscard]] bool IsRequired() const { return required_; }
  void SetReadOnly(bool read_only) { read_only_ = read_only; }
  [[nodiscard]] bool IsReadOnly() const { return read_only_; }
  void SetGeneratedKey(bool generated) { generated_key_ = generated; }
  [[nodiscard]] bool IsGeneratedKey() const { return generated_key_; }
  void SetPrimaryKey(bool key) { primary_key_ = key; }
  [[nodiscard]] bool IsPrimaryKey() const { return primary_key_; }

  // The smallest and the largest unit of an interval qualifier.
  void SetIntervalMin(enumIntervalPart part) { interval_min_ = static_cast<std::uint8_t>(part); }
  [[nodiscard]] enumIntervalPart GetIntervalMin() const {
    return static_cast<enumIntervalPart>(interval_min_);
  }
  void SetIntervalMax(enumIntervalPart part) { interval_max_ = static_cast<std::uint8_t>(part); }
  [[nodiscard]] enumIntervalPart GetIntervalMax() const {
    return static_cast<enumIntervalPart>(interval_max_);
  }
  void SetExtendedTypeName(const std::u16string& name);
  [[nodiscard]] const std::u16string& GetExtendedTypeName() const;

  // The server's number of the column, which FindColumnById searches; 0 when not read.
  void SetColumnId(std::int32_t id);
  [[nodiscard]] std::int32_t GetColumnId() const { return column_id_; }

  // What only the exact reading knows; null where there is nothing. The column owns it.
  [[nodiscard]] const LcColumnDetails* GetDetails() const { return details_.get(); }
  LcColumnDetails& ChangeDetails();  // makes them where there are none

 private:
  friend class LcWorkbookTable;

  LcName name_;
  LcWorkbookTable* table_ = nullptr;
  std::unique_ptr<LcWorkbookDatatype> type_;
  std::unique_ptr<std::u16string> extended_type_name_;  // null for the many without one
  std::unique_ptr<LcColumnDetails> details_;
  std::int32_t physical_code_ = 0;
  std::int32_t width_ = 0;
  std::uint32_t precision_ = 0;
  std::int32_t column_id_ = 0;
  std::uint16_t scale_ = 0;
  std::uint8_t interval_min_ = 0;
  std::uint8_t interval_max_ = 0;
  // One byte together: a column is what a workbook holds most of.
  bool required_ : 1 = false;
  bool read_only_ : 1 = false;
  bool generated_key_ : 1 = false;
  bool primary_key_ : 1 = false;
  bool indexed_by_name_ : 1 = false;  // its table's index has taken it in
  bool indexed_by_id_ : 1 = false;
};

// Key columns in key order. Positions may be left empty (a driver's key sequence can be the
// column's place in the table); reading skips them.
class LC_WORKBOOK_EXPORT LcWorkbookKeyList : public LcObject {
 public:
  LcWorkbookKeyList();
  LcWorkbookKeyList(const LcWorkbookKeyList& other);
  LcWorkbookKeyList& operator=(const LcWorkbookKeyList& other);
  ~LcWorkbookKeyList() override;
  const char* GetRuntimeClass() const override;

  void AddKeyColumn(LcWorkbookColumn* column);
  // Puts the column at the 0-based position, in front of one that is there already. False, with
  // nothing inserted, for a position below 0 or above 32767.
  bool InsertKeyColumn(LcWorkbookColumn* column, int position);
  [[nodiscard]] int GetCount() const;  // without the empty positions
  [[nodiscard]] bool IsEmpty() const { return GetCount() == 0; }
  // The columns in key order, empty positions left out.
  [[nodiscard]] std::vector<LcWorkbookColumn*> GetColumns() const;
  // The same, for a walk: `visit(column)` for each.
  template <class Visit>
  void ForEachColumn(Visit visit) const {
    if (first_ != nullptr) visit(first_);
    if (positions_ == nullptr) return;
    for (LcWorkbookColumn* column : *positions_) {
      if (column != nullptr) visit(column);
    }
  }

 private:
  using Positions = std::vector<LcWorkbookColumn*>;  // null: an empty one
  Positions& Spread();
  // Most keys have one column, which lies here; the columns of other keys are all in the list.
  LcWorkbookColumn* first_ = nullptr;
  std::unique_ptr<Positions> positions_;
};

enum LeForeignKeyRole : std::uint8_t {
  fkForward = 0,  // held by the referenced table
  fkMirror = 1,   // held by the referencing table, sides swapped
};

class LC_WORKBOOK_EXPORT LcWorkbookForeignKey : public LcObject {
 public:
  LcWorkbookForeignKey();
  ~LcWorkbookForeignKey() override;
  LcWorkbookForeignKey(const LcWorkbookForeignKey&) = delete;
  LcWorkbookForeignKey& operator=(const LcWorkbookForeignKey&) = delete;
  const char* GetRuntimeClass() const override;

  // The key side: the columns of the table that holds the key. The column form adds to the side;
  // the list form replaces it and takes ownership of the list.
  void SetKey(LcWorkbookColumn* column);
  void SetKey(LcWorkbookKeyList* columns);
  // The foreign side: the columns of the other table.
  void SetForeignKey(LcWorkbookColumn* column);
  void SetForeignKey(LcWorkbookKeyList* columns);
  [[nodiscard]] const LcWorkbookKeyList* GetKey() const { return key_.get(); }   // may be null
  const LcWorkbookKeyList* GetForeignKey() const { return foreign_key_.get(); }  // may be null

  void SetOneToOne(bool one_to_one) { one_to_one_ = one_to_one; }
  [[nodiscard]] bool IsOneToOne() const { return one_to_one_; }

  void SetRole(LeForeignKeyRole role) { role_ = role; }
  [[nodiscard]] LeForeignKeyRole GetRole() const { return role_; }
  // Makes `forward` and `mirror` the two keys of one relationship: sets roles and partners.
  static void Pair(LcWorkbookForeignKey* forward, LcWorkbookForeignKey* mirror);
  [[nodiscard]] LcWorkbookForeignKey* GetPartner() const {
    return partner_;
  }  // null when it has none
  // The table that holds the key, null before AddForeignKey.
  [[nodiscard]] LcWorkbookTable* GetTable() const { return table_; }

  // What only the exact reading knows; null where there is nothing. Partners share it.
  [[nodiscard]] const LcForeignKeyDetails* GetDetails() const { return details_.get(); }
  void SetDetails(std::shared_ptr<const LcForeignKeyDetails> details) {
    details_ = std::move(details);
  }
  [[nodiscard]] const std::shared_ptr<const LcForeignKeyDetails>& ShareDetails() const {
    return details_;
  }

 private:
  friend class LcWorkbookTable;
  std::unique_ptr<LcWorkbookKeyList> key_;
  std::unique_ptr<LcWorkbookKeyList> foreign_key_;
  LcWorkbookForeignKey* partner_ = nullptr;
  LcWorkbookTable* table_ = nullptr;
  std::shared_ptr<const LcForeignKeyDetails> details_;
  LeForeignKeyRole role_ = fkForward;
  bool one_to_one_ = false;
};

class LC_WORKBOOK_EXPORT LcWorkbookTable : public LcObject {
 public:
  LcWorkbookTable();
  ~LcWorkbookTable() override;
  LcWorkbookTable(const LcWorkbookTable&) = delete;
  LcWorkbookTable& operator=(const LcWorkbookTable&) = delete;
  const char* GetRuntimeClass() const override;

  void SetName(const std::u16string& name);
  [[nodiscard]] const std::u16string& GetName() const { return name_; }
  void SetOwner(const std::u16string& owner);
  // `display` asks for the form shown to a user, which here is the same.
  [[nodiscard]] const std::u16string& GetOwner(bool display) const;
  void SetType(enumTableType type) { type_ = type; }
  [[nodiscard]] enumTableType GetType() const { return type_; }

  // The table owns the column.
  void AddColumn(LcWorkbookColumn* column);
  // Room for so many columns, where their number is known before.
  void ReserveColumns(std::size_t count) { columns_.reserve(count); }
  [[nodiscard]] int GetColumnCount() const;
  // Null when there is none. Positions are 0-based; names in exact case; first match.
  [[nodiscard]] LcWorkbookColumn* GetColumn(int position) const;
  [[nodiscard]] LcWorkbookColumn* FindColumn(const std::u16string& name) const;
  [[nodiscard]] LcWorkbookColumn* FindColumnById(int id) const;

  [[nodiscard]] LcWorkbookKeyList& GetPrimaryKey() { return primary_key_; }
  [[nodiscard]] const LcWorkbookKeyList& GetPrimaryKey() const { return primary_key_; }

  // The table owns the key.
  void AddForeignKey(LcWorkbookForeignKey* key);
  // Takes the key out of the table and gives it back; null when the table does not hold it.
  std::unique_ptr<LcWorkbookForeignKey> RemoveForeignKey(LcWorkbookForeignKey* key);
  using ForeignKeys = std::vector<std::unique_ptr<LcWorkbookForeignKey>,
                                  LcPoolAllocator<std::unique_ptr<LcWorkbookForeignKey>>>;
  [[nodiscard]] const ForeignKeys& GetForeignKeys() const { return foreign_keys_; }

  // What a synonym stands for. For SQL Server tables the synonym id is the catalog's object id.
  void SetSynonymDetails(const LcSynonymDetails& details);
  [[nodiscard]] LcSynonymDetails GetSynonymDetails() const;
  void SetSynonymId(std::int32_t id);
  [[nodiscard]] std::int32_t GetSynonymId() const { return synonym_id_; }

  // What only the exact reading knows; null where there is nothing. The table owns it.
  [[nodiscard]] const LcTableDetails* GetDetails() const { return details_.get(); }
  LcTableDetails& ChangeDetails();  // makes them where there are none

 private:
  friend class LcWorkbookColumn;
  friend class LcWorkbookTableList;
  struct ColumnIndex;
  [[nodiscard]] bool WalksColumns() const;
  void OnColumnRenamed();
  void OnColumnIdChanged();

  std::u16string owner_;
  std::u16string name_;
  std::vector<std::unique_ptr<LcWorkbookColumn>, LcPoolAllocator<std::unique_ptr<LcWorkbookColumn>>>
      columns_;
  LcWorkbookKeyList primary_key_;
  ForeignKeys foreign_keys_;
  std::unique_ptr<LcSynonymDetails> synonym_;  // null for the many that are no synonym
  std::unique_ptr<LcTableDetails> details_;
  mutable std::unique_ptr<ColumnIndex> column_index_;
  LcWorkbookTableList* indexing_list_ = nullptr;  // told of a new owner, name or id
  std::int32_t synonym_id_ = 0;
  enumTableType type_ = ttTable;
  bool indexed_by_id_ = false;
  mutable std::uint8_t column_walks_ = 0;  // look-ups of columns that were walks
};

// Tables in the order in which they were read. Look-ups take constant time and give the first match
// in list order (exact case), null when there is none.
class LC_WORKBOOK_EXPORT LcWorkbookTableList : public LcObjectList<LcWorkbookTable> {
 public:
  LcWorkbookTableList();
  ~LcWorkbookTableList() override;
  LcWorkbookTableList(const LcWorkbookTableList&) = delete;
  LcWorkbookTableList& operator=(const LcWorkbookTableList&) = delete;

  [[nodiscard]] LcWorkbookTable* FindTable(const std::u16string& owner,
                                           const std::u16string& name) const;
  [[nodiscard]] LcWorkbookTable* FindTableNoOwner(const std::u16string& name) const;
  [[nodiscard]] LcWorkbookTable* FindTableById(int id) const;  // the integer in the synonym id
  // Removes and deletes, in one pass, every table from position `first` on up to the next empty
  // entry or the end. Keys of other tables that refer to a deleted table go with it.
  void RemoveTablesFrom(std::size_t first);

 protected:
  void OnClearing() override;
  void OnChanged() override;

 private:
  friend class LcWorkbookTable;
  struct Index;
  LcWorkbookTable* StartIndexing(std::size_t position) const;
  void OnTableRenamed();
  void OnTableIdChanged();

  std::unique_ptr<Index> index_;
};
