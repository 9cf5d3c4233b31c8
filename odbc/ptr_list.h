// Lists of pointers with iterators, exported for hosts: they hold fetch objects or record lists
// that live elsewhere.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <vector>

#include "odbc/fetch.h"
#include "odbc/record_list.h"
#include "platform/platform.h"

// A doubly linked list of pointers. It does not own what they point to. Its nodes come in blocks.
template <class T>
class TPtrList {
 public:
  struct Node;
  using Position = Node*;  // null: past either end

  TPtrList() = default;
  // Copies the pointers in order.
  TPtrList(const TPtrList& other) { AppendAll(other); }
  TPtrList& operator=(const TPtrList& other) {
    if (this != &other) {
      RemoveAll();
      AppendAll(other);
    }
    return *this;
  }
  ~TPtrList() = default;

  [[nodiscard]] std::size_t GetCount() const { return count_; }
  [[nodiscard]] bool IsEmpty() const { return count_ == 0; }
  [[nodiscard]] Position GetHeadPosition() const { return head_; }
  [[nodiscard]] Position GetTailPosition() const { return tail_; }
  // The neighbours of a position of this list, null at the ends; and the pointer that it holds.
  static Position After(Position position) { return position->next; }
  static Position Before(Position position) { return position->previous; }
  [[nodiscard]] static T* GetAt(Position position) { return position->item; }
  // The first position that holds the pointer, or null.
  [[nodiscard]] Position Find(const T* item) const;

  Position AddTail(T* item);
  Position AddHead(T* item);
  // The position must be one of this list; iterators that stand on it must not be used any more.
  void RemoveAt(Position position);
  void RemoveAll();

  struct Node {
    Node* previous = nullptr;
    Node* next = nullptr;
    T* item = nullptr;
  };

 private:
  static constexpr std::size_t kNodesPerBlock = 10;

  Node* TakeNode(T* item);
  void AppendAll(const TPtrList& other) {
    for (Position at = other.head_; at != nullptr; at = at->next) AddTail(at->item);
  }

  Node* head_ = nullptr;
  Node* tail_ = nullptr;
  Node* free_ = nullptr;  // chained by `next`
  std::size_t count_ = 0;
  std::vector<std::unique_ptr<std::array<Node, kNodesPerBlock>>> blocks_;
};

// A walk over the pointers of a container.
template <class T>
class TIterator {
 public:
  using Position = typename TPtrList<T>::Position;

  // Moves to the head; returns the position, null for an empty list or no list.
  virtual Position First() = 0;
  // Returns the current position and moves on to the one after it.
  virtual Position Next() = 0;
  [[nodiscard]] virtual bool IsDone() const = 0;
  // The pointer at the current position, or null. Item forwards to CurrentItem.
  [[nodiscard]] virtual T* CurrentItem() const = 0;
  [[nodiscard]] virtual T* Item() const = 0;
  // Moves to the tail; returns the position.
  virtual Position Last() = 0;
  // Returns the current position and moves back to the one before it.
  virtual Position Previous() = 0;
  // Moves to the first position that holds the pointer. False, with the position unchanged, when
  // there is none.
  [[nodiscard]] virtual bool Find(const T* item) = 0;
  // Takes the current pointer out of the list, moves on and returns it. A read-only iterator
  // returns null and changes nothing.
  virtual T* RemoveCurrent() = 0;
  virtual ~TIterator() = default;

 protected:
  TIterator() = default;
  TIterator(const TIterator&) = default;
  TIterator& operator=(const TIterator&) = default;
};

template <class T>
class TPtrListIterator : public TIterator<T> {
 public:
  using Position = typename TIterator<T>::Position;

  // Stands at the head. The list is borrowed and may be null. Every iterator that is made from a
  // list is read-only.
  explicit TPtrListIterator(TPtrList<T>* list)
      : list_(list), current_(list != nullptr ? list->GetHeadPosition() : nullptr) {}
  TPtrListIterator(const TPtrListIterator&) = default;
  TPtrListIterator& operator=(const TPtrListIterator&) = default;
  ~TPtrListIterator() override = default;

  Position First() override;
  Position Next() override;
  bool IsDone() const override { return current_ == nullptr; }
  T* CurrentItem() const override {
    return current_ != nullptr ? TPtrList<T>::GetAt(current_) : nullptr;
  }
  T* Item() const override { return CurrentItem(); }
  Position Last() override;
  Position Previous() override;
  bool Find(const T* item) override;
  T* RemoveCurrent() override;

 protected:
  // For an iterator class that may remove.
  void SetReadOnly(bool read_only) { read_only_ = read_only; }

 private:
  TPtrList<T>* list_;
  Position current_;
  bool read_only_ = true;
};

extern template class LC_EXPORT TPtrList<LcODBCFetch>;
extern template class LC_EXPORT TIterator<LcODBCFetch>;
extern template class LC_EXPORT TPtrListIterator<LcODBCFetch>;
extern template class LC_EXPORT TPtrList<LcODBCRecordList>;
extern template class LC_EXPORT TIterator<LcODBCRecordList>;
extern template class LC_EXPORT TPtrListIterator<LcODBCRecordList>;

using LcODBCFetchList = TPtrList<LcODBCFetch>;
using LcODBCFetchListIter = TPtrListIterator<LcODBCFetch>;
using LcODBCRecordListList = TPtrList<LcODBCRecordList>;
using LcODBCRecordListListIter = TPtrListIterator<LcODBCRecordList>;
