// Sees whether a host's callback took something out of the workbook's lists, which a route holds
// pointers into.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <vector>

#include "importer/workbook/import.h"

namespace odbcimport {

// Ends a route before it looks at what is no longer there. RunRoute catches it.
struct ListsChanged {};

// Of one list the first and the last entry, which it keeps alive so that no new one can have their
// addresses. Appending leaves both in place; emptying a list, cutting it and filling it anew do
// not.
class ListWatch {
 public:
  // Takes the list as it is now; it may be null.
  template <class T>
  void Take(const LcObjectList<T>* list) {
    if (list == nullptr) return;
    const auto& entries = EntriesOf<T>::Of(*list);
    count_ = entries.size();
    Keep(first_, count_ > 0 ? entries.front() : nullptr);
    Keep(last_, count_ > 0 ? entries.back() : nullptr);
  }
  // Whether all that was there when it was taken is there still.
  template <class T>
  [[nodiscard]] bool Holds(const LcObjectList<T>* list) const {
    if (list == nullptr || count_ == 0) return true;
    const auto& entries = EntriesOf<T>::Of(*list);
    return entries.size() >= count_ && entries.front() == first_ && entries[count_ - 1] == last_;
  }

 private:
  // A derived class may name the entries; they are shared pointers of the list's own kind.
  template <class T>
  struct EntriesOf : LcObjectList<T> {
    [[nodiscard]] static const std::vector<std::shared_ptr<T>>& Of(const LcObjectList<T>& list) {
      return list.*(&EntriesOf::entries_);
    }
  };
  template <class T>
  static void Keep(std::shared_ptr<const void>& kept, const std::shared_ptr<T>& entry) {
    if (kept != entry) kept = entry;
  }
  static void Keep(std::shared_ptr<const void>& kept, std::nullptr_t) { kept = nullptr; }

  std::size_t count_ = 0;
  std::shared_ptr<const void> first_;
  std::shared_ptr<const void> last_;
};

// All lists that an import fills. The targets are borrowed.
class TargetWatch {
 public:
  explicit TargetWatch(const LcImportTargets& targets) : targets_(targets) {}

  void Take() {
    Each([](ListWatch& watch, const auto* list) { watch.Take(list); });
  }
  // Throws ListsChanged where something is gone since then.
  void Check() {
    Each([](const ListWatch& watch, const auto* list) {
      if (!watch.Holds(list)) throw ListsChanged();
    });
  }

 private:
  template <class Visit>
  void Each(const Visit& visit) {
    visit(watches_[0], targets_.owner_names);
    visit(watches_[1], targets_.table_names);
    visit(watches_[2], targets_.column_names);
    visit(watches_[3], targets_.tables);
    visit(watches_[4], targets_.data_types);
    visit(watches_[5], targets_.operators);
    visit(watches_[6], targets_.boolean_functions);
    visit(watches_[7], targets_.functions);
    visit(watches_[8], targets_.aggregates);
    visit(watches_[9], targets_.procedures);
  }

  const LcImportTargets& targets_;
  std::array<ListWatch, 10> watches_;
};

}  // namespace odbcimport
