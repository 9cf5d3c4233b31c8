// Data types and lists of them.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "importer/workbook/enums.h"
#include "importer/workbook/object.h"
#include "importer/workbook/text.h"

struct LcDatatypeChanges;

// A data type. A type is copied for every column, so copies share their contents until one of them
// is changed; a copy costs one small allocation.
class LC_WORKBOOK_EXPORT LcWorkbookDatatype : public LcObject {
 public:
  // A type with all texts empty, all codes and sizes 0 and all flags false.
  LcWorkbookDatatype();
  ~LcWorkbookDatatype() override;
  LcWorkbookDatatype& operator=(const LcWorkbookDatatype&) = delete;
  const char* GetRuntimeClass() const override;

  // A new independent object; the caller owns it.
  [[nodiscard]] LcWorkbookDatatype* Copy() const;

  void SetName(const std::u16string& name);  // of a field of a row type
  [[nodiscard]] const std::u16string& GetName() const;
  void SetTypeName(const std::u16string& name);
  [[nodiscard]] const std::u16string& GetTypeName() const;
  void SetOtherTypeName(const std::u16string& name);
  [[nodiscard]] const std::u16string& GetOtherTypeName() const;
  void SetOwner(const std::u16string& owner);
  [[nodiscard]] const std::u16string& GetOwner() const;
  // The type as the server spells it, sizes included: "numeric(10,2)". Absent: not read.
  void SetDatabaseType(const LcText& type);
  [[nodiscard]] const LcText& GetDatabaseType() const;

  void SetPhysicalCode(int code);
  [[nodiscard]] int GetPhysicalCode() const;
  void SetGenericCode(enumDataType code);
  [[nodiscard]] enumDataType GetGenericCode() const;
  void SetTypeGroup(enumDataTypeGroup group);
  [[nodiscard]] enumDataTypeGroup GetTypeGroup() const;

  // Sizes in the server's own unit (characters, digits or bytes).
  void SetLength(unsigned long length) { length_ = length; }
  unsigned long GetLength() const { return length_; }
  void SetPrecision(unsigned short precision) { precision_ = precision; }
  unsigned short GetPrecision() const { return precision_; }
  void SetScale(unsigned short scale) { scale_ = scale; }
  unsigned short GetScale() const { return scale_; }
  void SetLong(bool is_long) { long_ = is_long; }
  [[nodiscard]] bool IsLong() const { return long_; }
  void SetSizeModifiable(bool modifiable) { size_modifiable_ = modifiable; }
  [[nodiscard]] bool IsSizeModifiable() const { return size_modifiable_; }

  // Copies that share their contents have the same id: they differ in what stands above at most.
  // It says nothing of types whose ids differ, nor of a type that was changed since.
  [[nodiscard]] const void* GetContentsId() const { return state_; }

  // The base of a distinct type, or the element of a collection.
  void SetBaseCode(int code);
  [[nodiscard]] int GetBaseCode() const;
  void SetBaseOwner(const std::u16string& owner);
  [[nodiscard]] const std::u16string& GetBaseOwner() const;
  void SetBaseExtendedTypeName(const std::u16string& name);
  [[nodiscard]] const std::u16string& GetBaseExtendedTypeName() const;
  void SetGenericBaseCode(enumDataType code);
  [[nodiscard]] enumDataType GetGenericBaseCode() const;
  void SetBaseTypeGroup(enumDataTypeGroup group);
  [[nodiscard]] enumDataTypeGroup GetBaseTypeGroup() const;
  void SetDistinct(bool distinct);
  [[nodiscard]] bool IsDistinct() const;

  // Named, row and collection types.
  void SetExtendedId(long id);  // the server's id of the type; 0 for a built-in type
  [[nodiscard]] long GetExtendedId() const;
  // Sets the name at `position`, adding empty names before it when there are fewer.
  void SetExtendedTypeName(const std::u16string& name, unsigned position);
  void AddExtendedTypeName(const std::u16string& name);
  // Empty when there is no such name.
  [[nodiscard]] const std::u16string& GetExtendedTypeName(int position) const;
  [[nodiscard]] int GetExtendedTypeNameCount() const;
  // The type owns the component, and its copies share it: it is complete when it is added.
  void AddComponent(LcWorkbookDatatype* component);
  [[nodiscard]] int GetComponentCount() const;
  [[nodiscard]] const LcWorkbookDatatype* GetComponent(
      int position) const;  // null when there is none

 private:
  friend class LcWorkbookDatatypeList;
  struct State;
  LcWorkbookDatatype(const LcWorkbookDatatype& other);
  State& Change();
  void LetGo();
  template <class T>
  void Set(T State::*field, const T& value, unsigned lookups = 0);
  void Changed(unsigned lookups);
  void StartIndexing(const std::shared_ptr<LcDatatypeChanges>& changes);

  State* state_;  // counts its users
  unsigned long length_ = 0;
  std::uint16_t precision_ = 0;
  std::uint16_t scale_ = 0;
  bool long_ : 1 = false;
  bool size_modifiable_ : 1 = false;
  bool indexed_ : 1 = false;  // a list's index has taken it in
};

// Data types in the order in which they were added. Look-ups take constant time and give the first
// match in list order, null when there is none; the list keeps the type.
class LC_WORKBOOK_EXPORT LcWorkbookDatatypeList : public LcObjectList<LcWorkbookDatatype> {
 public:
  LcWorkbookDatatypeList();
  // A copy shares the types with its source.
  LcWorkbookDatatypeList(const LcWorkbookDatatypeList& other);
  LcWorkbookDatatypeList& operator=(const LcWorkbookDatatypeList& other);
  ~LcWorkbookDatatypeList() override;
  virtual const char* GetRuntimeClass() const;
  virtual void Serialize(LcArchive& archive);
  virtual void AssertValid() const;
  virtual void Dump(std::ostream& out) const;

  // The list owns the type.
  void AddDataType(LcWorkbookDatatype* type);
  // `kind` tells which name is compared; exact case.
  [[nodiscard]] LcWorkbookDatatype* GetDataTypeByName(const std::u16string& name,
                                                      enumTypeNameType kind) const;
  // With a name, the type name must be equal too (ignoring case).
  [[nodiscard]] LcWorkbookDatatype* GetDataTypeByPhysicalCode(int code,
                                                              const char16_t* name = nullptr) const;
  // Compares the type name, ignoring case.
  [[nodiscard]] LcWorkbookDatatype* GetDataTypeByPhysicalName(const std::u16string& name) const;
  [[nodiscard]] LcWorkbookDatatype* GetDataTypeByExtendedId(long id) const;

 protected:
  void OnChanged() override;

 private:
  struct Index;
  std::unique_ptr<Index> index_;
};
