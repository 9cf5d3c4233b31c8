// The operations of the pointer lists, instantiated for the two that hosts use.
#include "odbc/ptr_list.h"

template <class T>
typename TPtrList<T>::Position TPtrList<T>::Find(const T* item) const {
  Position at = head_;
  while (at != nullptr && at->item != item) at = at->next;
  return at;
}

template <class T>
typename TPtrList<T>::Node* TPtrList<T>::TakeNode(T* item) {
  if (free_ == nullptr) {
    blocks_.push_back(std::make_unique<std::array<Node, kNodesPerBlock>>());
    for (Node& node : *blocks_.back()) {
      node.next = free_;
      free_ = &node;
    }
  }
  Node* node = free_;
  free_ = node->next;
  *node = Node{nullptr, nullptr, item};
  ++count_;
  return node;
}

template <class T>
typename TPtrList<T>::Position TPtrList<T>::AddTail(T* item) {
  Node* node = TakeNode(item);
  node->previous = tail_;
  (tail_ != nullptr ? tail_->next : head_) = node;
  tail_ = node;
  return node;
}

template <class T>
typename TPtrList<T>::Position TPtrList<T>::AddHead(T* item) {
  Node* node = TakeNode(item);
  node->next = head_;
  (head_ != nullptr ? head_->previous : tail_) = node;
  head_ = node;
  return node;
}

template <class T>
void TPtrList<T>::RemoveAt(Position position) {
  (position->previous != nullptr ? position->previous->next : head_) = position->next;
  (position->next != nullptr ? position->next->previous : tail_) = position->previous;
  position->next = free_;
  free_ = position;
  --count_;
}

template <class T>
void TPtrList<T>::RemoveAll() {
  head_ = tail_ = free_ = nullptr;
  count_ = 0;
  blocks_.clear();
}

template <class T>
typename TPtrListIterator<T>::Position TPtrListIterator<T>::First() {
  current_ = list_ != nullptr ? list_->GetHeadPosition() : nullptr;
  return current_;
}

template <class T>
typename TPtrListIterator<T>::Position TPtrListIterator<T>::Next() {
  const Position before = current_;
  if (current_ != nullptr) current_ = TPtrList<T>::After(current_);
  return before;
}

template <class T>
typename TPtrListIterator<T>::Position TPtrListIterator<T>::Last() {
  current_ = list_ != nullptr ? list_->GetTailPosition() : nullptr;
  return current_;
}

template <class T>
typename TPtrListIterator<T>::Position TPtrListIterator<T>::Previous() {
  const Position before = current_;
  if (current_ != nullptr) current_ = TPtrList<T>::Before(current_);
  return before;
}

template <class T>
bool TPtrListIterator<T>::Find(const T* item) {
  const Position found = list_ != nullptr ? list_->Find(item) : nullptr;
  if (found != nullptr) current_ = found;
  return found != nullptr;
}

template <class T>
T* TPtrListIterator<T>::RemoveCurrent() {
  if (read_only_ || current_ == nullptr) return nullptr;
  const Position removed = current_;
  T* item = TPtrList<T>::GetAt(removed);
  current_ = TPtrList<T>::After(removed);
  list_->RemoveAt(removed);
  return item;
}

template class TPtrList<LcODBCFetch>;
template class TIterator<LcODBCFetch>;
template class TPtrListIterator<LcODBCFetch>;
template class TPtrList<LcODBCRecordList>;
template class TIterator<LcODBCRecordList>;
template class TPtrListIterator<LcODBCRecordList>;
