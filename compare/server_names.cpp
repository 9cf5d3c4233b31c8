#include "compare/server_names.h"

#include "base/utf.h"

namespace wbcompare {

namespace {

base::NamedKind KindOf(Object object) {
  switch (object) {
    case Object::kPrimaryKey:
      return base::NamedKind::kPrimaryKey;
    case Object::kUniqueKey:
      return base::NamedKind::kUniqueKey;
    case Object::kForeignKey:
      return base::NamedKind::kForeignKey;
    case Object::kIndex:
      return base::NamedKind::kIndex;
    case Object::kCheck:
      return base::NamedKind::kCheck;
    case Object::kSequence:
      return base::NamedKind::kSequence;
    default:
      return base::NamedKind::kOther;
  }
}

// The columns that its server may have named the object after.
std::vector<std::string> ColumnsOf(Object object, const ObjectRef& ref,
                                   const LcWorkbookTable& table) {
  std::vector<std::string> columns;
  const auto add = [&](const LcWorkbookColumn* column) {
    columns.push_back(column == nullptr ? "expr" : base::ToUtf8(column->GetName()));
  };
  if (const auto* key = std::get_if<const LcKeyDetails*>(&ref); key != nullptr) {
    if ((*key)->kind == kkUnique) {
      for (const LcWorkbookColumn* column : (*key)->columns) add(column);
    }
  } else if (const auto* foreign = std::get_if<ForeignKeyRef>(&ref); foreign != nullptr) {
    for (const LcWorkbookColumn* column : PartsOf(*foreign, ShownNames()).columns) add(column);
  } else if (const auto* index = std::get_if<const LcIndexDetails*>(&ref); index != nullptr) {
    for (const LcIndexPart& part : (*index)->parts) add(part.column);
  } else if (object == Object::kCheck) {
    for (int i = 0; i < table.GetColumnCount(); ++i) add(table.GetColumn(i));
  }
  return columns;
}

}  // namespace

Product FindProduct(const LcWorkbookFileInfo& info) {
  return base::FindProduct(base::ToUtf8(info.dbms_name));
}

bool IsServersTable(Product product, const LcWorkbookTable& table) {
  return product == Product::kSQLite && table.GetName().starts_with(u"sqlite_");
}

bool IsServerMade(Product product, Object object, const ObjectRef& ref, const std::string& name,
                  const LcWorkbookTable* table) {
  if (name.empty()) return true;
  const base::NamedKind kind = KindOf(object);
  if (const auto* sequence = std::get_if<const LcSequenceDetails*>(&ref); sequence != nullptr) {
    if (product == Product::kPostgreSQL && !(*sequence)->owner_table.IsPresent()) return false;
    return base::IsMadeName(product, kind, name, base::ToUtf8((*sequence)->owner_table.View()),
                            {base::ToUtf8((*sequence)->owner_column.View())});
  }
  if (table == nullptr) {
    return product != Product::kPostgreSQL && base::IsMadeName(product, kind, name, "", {});
  }
  // Only PostgreSQL's names have columns in them.
  return base::IsMadeName(product, kind, name, base::ToUtf8(table->GetName()),
                          product == Product::kPostgreSQL ? ColumnsOf(object, ref, *table)
                                                          : std::vector<std::string>());
}

}  // namespace wbcompare
