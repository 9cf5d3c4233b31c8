// What a server offers besides tables: procedures, functions with overloads, operators, aggregates.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "importer/workbook/object.h"

class LC_WORKBOOK_EXPORT LcWorkbookProcedure : public LcObject {
 public:
  LcWorkbookProcedure();
  LcWorkbookProcedure(const std::u16string& owner, const std::u16string& name);
  ~LcWorkbookProcedure() override;
  const char* GetRuntimeClass() const override;

  void SetName(const std::u16string& name) { name_ = name; }
  [[nodiscard]] const std::u16string& GetName() const { return name_; }
  void SetOwner(const std::u16string& owner) { owner_ = owner; }
  [[nodiscard]] const std::u16string& GetOwner() const { return owner_; }
  void SetQualifier(const std::u16string& qualifier) { qualifier_ = qualifier; }
  [[nodiscard]] const std::u16string& GetQualifier() const { return qualifier_; }
  void SetServer(const std::u16string& server) { server_ = server; }
  [[nodiscard]] const std::u16string& GetServer() const { return server_; }

 private:
  std::u16string owner_;
  std::u16string name_;
  std::u16string qualifier_;
  std::u16string server_;
};

// One way of calling a function.
class LC_WORKBOOK_EXPORT LcWorkbookFunctionOverload : public LcObject {
 public:
  LcWorkbookFunctionOverload();
  LcWorkbookFunctionOverload(const std::u16string& signature, const std::u16string& result);
  ~LcWorkbookFunctionOverload() override;
  const char* GetRuntimeClass() const override;

  void SetText(const std::u16string& signature) { signature_ = signature; }
  [[nodiscard]] const std::u16string& GetText() const { return signature_; }
  [[nodiscard]] const std::u16string& GetResultType() const { return result_; }  // empty: not known

 private:
  std::u16string signature_;
  std::u16string result_;
};

class LcWorkbookFunctionList;

class LC_WORKBOOK_EXPORT LcWorkbookFunction : public LcObject {
 public:
  LcWorkbookFunction();
  LcWorkbookFunction(const std::u16string& owner, const std::u16string& name);
  ~LcWorkbookFunction() override;
  const char* GetRuntimeClass() const override;

  void SetName(const std::u16string& name);
  [[nodiscard]] const std::u16string& GetName() const { return name_; }
  void SetOwner(const std::u16string& owner);
  [[nodiscard]] const std::u16string& GetOwner() const { return owner_; }
  // The function owns the overload.
  void AddFunctionOverload(LcWorkbookFunctionOverload* overload);
  [[nodiscard]] const std::vector<std::unique_ptr<LcWorkbookFunctionOverload>>& GetOverloads()
      const {
    return overloads_;
  }

 private:
  friend class LcWorkbookFunctionList;
  std::u16string owner_;
  std::u16string name_;
  std::vector<std::unique_ptr<LcWorkbookFunctionOverload>> overloads_;
  LcWorkbookFunctionList* indexing_list_ =
      nullptr;  // told of a new owner or name; null: not indexed
};

class LC_WORKBOOK_EXPORT LcWorkbookFunctionList : public LcObjectList<LcWorkbookFunction> {
 public:
  LcWorkbookFunctionList();
  LcWorkbookFunctionList(const LcWorkbookFunctionList&) = delete;
  LcWorkbookFunctionList& operator=(const LcWorkbookFunctionList&) = delete;
  ~LcWorkbookFunctionList() override;
  // The first function of that owner and name (exact case), null when there is none. Constant time.
  [[nodiscard]] LcWorkbookFunction* FindFunction(const std::u16string& owner,
                                                 const std::u16string& name) const;

 protected:
  void OnChanged() override;
  void OnClearing() override;

 private:
  friend class LcWorkbookFunction;
  struct Index;
  std::unique_ptr<Index> index_;
};

class LC_WORKBOOK_EXPORT LcWorkbookOperator : public LcObject {
 public:
  LcWorkbookOperator(const std::u16string& name, const std::u16string& description);
  ~LcWorkbookOperator() override;
  const char* GetRuntimeClass() const override;
  [[nodiscard]] const std::u16string& GetName() const { return name_; }
  [[nodiscard]] const std::u16string& GetDescription() const { return description_; }

 private:
  std::u16string name_;
  std::u16string description_;
};

class LC_WORKBOOK_EXPORT LcWorkbookAggregate : public LcObject {
 public:
  LcWorkbookAggregate(const std::u16string& name, const std::u16string& description);
  ~LcWorkbookAggregate() override;
  const char* GetRuntimeClass() const override;
  [[nodiscard]] const std::u16string& GetName() const { return name_; }
  [[nodiscard]] const std::u16string& GetDescription() const { return description_; }

 private:
  std::u16string name_;
  std::u16string description_;
};

using LcWorkbookProcedureList = LcObjectList<LcWorkbookProcedure>;
using LcWorkbookOperatorList = LcObjectList<LcWorkbookOperator>;
using LcWorkbookAggregateList = LcObjectList<LcWorkbookAggregate>;
