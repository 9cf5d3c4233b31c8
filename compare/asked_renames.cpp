#include "compare/asked_renames.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/utf.h"

namespace wbcompare {

namespace {

// A name parted at its dots; double quotes keep them, two in quotes stand for one.
std::vector<std::string> Parts(const std::string& text) {
  std::vector<std::string> parts(1);
  bool quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '"' && quoted && i + 1 < text.size() && text[i + 1] == '"') {
      parts.back() += '"';
      ++i;
    } else if (c == '"') {
      quoted = !quoted;
    } else if (c == '.' && !quoted) {
      parts.emplace_back();
    } else {
      parts.back() += c;
    }
  }
  return parts;
}

// A table under a written name; one of several owners' counts where no owner is given and there is
// no other.
const LcWorkbookTable* FindTable(const LcWorkbook& workbook, const Names& names,
                                 const std::string& owner, const std::string& name) {
  const LcWorkbookTable* found = nullptr;
  for (const LcWorkbookTable* table : workbook.tables) {
    if (table == nullptr || names.Name(table->GetName()) != names.Name(base::ToUtf16(name)))
      continue;
    if (!owner.empty() && names.Name(table->GetOwner(false)) != names.Name(base::ToUtf16(owner))) {
      continue;
    }
    if (found != nullptr) return nullptr;
    found = table;
  }
  return found;
}

int FindColumn(const LcWorkbookTable& table, const Names& names, const std::string& name) {
  for (int i = 0; i < table.GetColumnCount(); ++i) {
    if (names.Name(table.GetColumn(i)->GetName()) == names.Name(base::ToUtf16(name))) return i;
  }
  return -1;
}

// A table of that owner, which stands for the owner.
const LcWorkbookTable* FindOwner(const LcWorkbook& workbook, const Names& names,
                                 const std::vector<std::string>& parts) {
  if (parts.size() != 1) return nullptr;
  const std::string wanted = names.Name(base::ToUtf16(parts[0]));
  for (const LcWorkbookTable* table : workbook.tables) {
    if (table != nullptr && names.Name(table->GetOwner(false)) == wanted) return table;
  }
  return nullptr;
}

struct FoundColumn {
  const LcWorkbookTable* table = nullptr;
  int column = -1;
};
FoundColumn FindColumn(const LcWorkbook& workbook, const Names& names,
                       const std::vector<std::string>& parts) {
  if (parts.size() < 2) return {};
  const std::string owner = parts.size() == 3 ? parts[0] : std::string();
  const LcWorkbookTable* table = FindTable(workbook, names, owner, parts[parts.size() - 2]);
  if (table == nullptr) return {};
  return {table, FindColumn(*table, names, parts.back())};
}

}  // namespace

bool AskedRenames::ResolveOne(Context& context, const Options::Rename& rename, std::string& why) {
  const std::vector<std::string> from = Parts(rename.from);
  const std::vector<std::string> to = Parts(rename.to);
  const LcWorkbook& before = context.before.workbook;
  const LcWorkbook& after = context.after.workbook;
  const Names& names = context.new_names;
  int meanings = 0;
  const LcWorkbookTable* old_owner = FindOwner(before, names, from);
  const LcWorkbookTable* new_owner = FindOwner(after, names, to);
  if (old_owner != nullptr && new_owner != nullptr) {
    ++meanings;
    owners.emplace_back(old_owner, new_owner);
    context.old_names.RenameOwner(names.Name(old_owner->GetOwner(false)),
                                  names.Name(new_owner->GetOwner(false)));
  }
  const auto table_of = [&](const LcWorkbook& workbook, const std::vector<std::string>& parts) {
    return parts.size() > 2
               ? nullptr
               : FindTable(workbook, names, parts.size() == 2 ? parts[0] : "", parts.back());
  };
  const LcWorkbookTable* old_table = table_of(before, from);
  const LcWorkbookTable* new_table = table_of(after, to);
  if (old_table != nullptr && new_table != nullptr) {
    ++meanings;
    tables.emplace_back(old_table, new_table);
  }
  // The new column's table may have got another name too, so that its name alone is enough.
  const FoundColumn old_column = FindColumn(before, names, from);
  if (old_column.column >= 0) {
    const FoundColumn new_column = FindColumn(after, names, to);
    if (to.size() == 1 || new_column.column >= 0) {
      ++meanings;
      columns[old_column.table].emplace_back(from.back(), to.back());
    }
  }
  if (meanings == 1) return true;
  why = fmt::format("--rename {}={}: {}", rename.from, rename.to,
                    meanings == 0
                        ? "no owner, table or column has that name before and the other after"
                        : "more than one thing has these names; give the owner and the table too");
  return false;
}

bool AskedRenames::Resolve(Context& context, std::string& why) {
  return std::all_of(
      context.options.renames.begin(), context.options.renames.end(),
      [&](const Options::Rename& rename) { return ResolveOne(context, rename, why); });
}

std::vector<std::pair<int, int>> AskedRenames::ColumnsIn(const LcWorkbookTable& before,
                                                         const LcWorkbookTable& after) const {
  std::vector<std::pair<int, int>> found;
  const auto wanted = columns.find(&before);
  if (wanted == columns.end()) return found;
  for (const auto& [from, to] : wanted->second) {
    const int a = FindColumn(before, ShownNames(), from);
    const int b = FindColumn(after, ShownNames(), to);
    if (a >= 0 && b >= 0) found.emplace_back(a, b);
  }
  return found;
}

}  // namespace wbcompare
