// Puts functions with their overloads together from the rows of the catalog queries.
#include "routes/shared/function_assembly.h"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/ascii.h"
#include "base/text.h"
#include "routes/shared/name_boundary.h"

namespace odbcimport {
namespace {

// A row of an Informix function query, kept until all rows are sorted.
struct LcFunctionInfo : LcObject {
  std::u16string owner;
  std::u16string name;
  std::u16string parameters;
};
using LcFunctionInfoList = std::vector<std::unique_ptr<LcFunctionInfo>>;

std::u16string Cell(const LcODBCRecordList& rows, int row, int column) {
  return std::u16string(rows.View(row, column));
}

bool SortsBefore(const std::unique_ptr<LcFunctionInfo>& a,
                 const std::unique_ptr<LcFunctionInfo>& b) {
  int order = base::CompareIgnoringCase(a->owner, b->owner);
  if (order == 0) order = base::CompareIgnoringCase(a->name, b->name);
  if (order == 0) order = base::CompareIgnoringCase(a->parameters, b->parameters);
  return order < 0;
}

void AddOverload(LcWorkbookFunction& function, const std::u16string& name,
                 const std::u16string& parameters) {
  auto overload = std::make_unique<LcWorkbookFunctionOverload>();
  overload->SetText(name + u"(" + parameters + u")");
  function.AddFunctionOverload(overload.release());
}

}  // namespace

void AssembleFunctionsInformix(const ImportSession& session, const LcODBCRecordList& rows,
                               const InformixAssembly& how, LcWorkbookFunctionList& functions) {
  LcFunctionInfoList sorted;
  sorted.reserve(static_cast<std::size_t>(rows.GetRowCount()));
  for (int row = 1; row <= rows.GetRowCount(); ++row) {
    auto info = std::make_unique<LcFunctionInfo>();
    info->owner = Cell(rows, row, 1);
    info->name = Cell(rows, row, 2);
    info->parameters = Cell(rows, row, 3);
    sorted.push_back(std::move(info));
  }
  std::stable_sort(sorted.begin(), sorted.end(), SortsBefore);

  NameBoundary boundary(NameBoundary::Nameless::kBegins);
  LcWorkbookFunction* function = nullptr;
  for (const auto& info : sorted) {
    if (boundary.Next(info->owner, info->name)) {
      function = how.merge ? functions.FindFunction(info->owner, info->name) : nullptr;
      if (function == nullptr) {
        function = functions.Append(std::make_unique<LcWorkbookFunction>(info->owner, info->name));
      }
    }
    if (how.with_overloads && !info->parameters.empty()) {
      AddOverload(*function, info->name, info->parameters);
    }
    session.progress.StatusDialog(how.item, iiNone, 0, info->owner.c_str(), info->name.c_str(),
                                  info->parameters.c_str());
  }
}

void AssembleFunctionsDB2(const ImportSession& session, const LcODBCRecordList& rows,
                          LcWorkbookFunctionList& functions) {
  NameBoundary boundary(NameBoundary::Nameless::kBegins);
  LcWorkbookFunction* function = nullptr;
  std::u16string parameters;  // of the overload in the making
  long collected = 0;
  for (int row = 1; row <= rows.GetRowCount(); ++row) {
    if (boundary.Next(Cell(rows, row, 1), Cell(rows, row, 2))) {
      function =
          functions.Append(std::make_unique<LcWorkbookFunction>(boundary.owner(), boundary.name()));
      parameters.clear();
      collected = 0;
    }
    const std::u16string_view type = rows.View(row, 5);
    if (function != nullptr && !type.empty()) {
      if (!parameters.empty()) parameters += u", ";
      parameters += type;
      if (++collected == base::ParseInteger(rows.View(row, 3))) {
        AddOverload(*function, boundary.name(), parameters);
        parameters.clear();
        collected = 0;
      }
    }
    session.progress.StatusDialog(inFunctionItem, iiNone, 0, boundary.owner().c_str(),
                                  boundary.name().c_str(), parameters.c_str());
  }
}

}  // namespace odbcimport
