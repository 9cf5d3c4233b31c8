// The base of every workbook class and of the module's exported classes, and the list class that
// they are kept in.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <memory>
#include <new>
#include <utility>
#include <vector>

#include "importer/workbook/export.h"
#include "importer/workbook/pool.h"

class LcArchive;  // a host's own storage; the module never makes one

class LC_WORKBOOK_EXPORT LcObject {
 public:
  LC_POOLED
  // A class that asks for a wider alignment than the pool has is the heap's.
  static void* operator new(std::size_t size, std::align_val_t alignment) {
    return ::operator new(size, alignment);
  }
  static void operator delete(void* memory, std::align_val_t alignment) {
    ::operator delete(memory, alignment);
  }

  // The class's name, for a host that tells objects apart at run time.
  virtual const char* GetRuntimeClass() const;
  virtual ~LcObject();
  // A host that stores objects its own way overrides this; the module never calls it.
  virtual void Serialize(LcArchive& archive);
  // Diagnostic hooks; they do nothing.
  virtual void AssertValid() const;
  virtual void Dump(std::ostream& out) const;

 protected:
  LcObject() = default;
  LcObject(const LcObject&) = default;
  LcObject& operator=(const LcObject&) = default;
};

// A list that owns its entries. An entry can be empty (null): a walk sees null there.
// A copied list shares its entries with its source; an entry is deleted with the last list that
// holds it. Positions are 0-based.
template <class T>
class LcObjectList {
 public:
  LcObjectList() = default;
  LcObjectList(const LcObjectList&) = default;
  LcObjectList& operator=(const LcObjectList&) = default;
  LcObjectList(LcObjectList&&) noexcept = default;
  LcObjectList& operator=(LcObjectList&&) noexcept = default;
  virtual ~LcObjectList() = default;

  // Takes ownership of `entry`, which may be null (an empty entry), and returns it.
  T* Append(std::unique_ptr<T> entry) {
    T* raw = entry.get();
    std::shared_ptr<T> shared(entry.release(), std::default_delete<T>(), LcPoolAllocator<T>());
    entries_.push_back(std::move(shared));
    OnAppended(raw);
    return raw;
  }
  [[nodiscard]] std::size_t GetCount() const { return entries_.size(); }
  [[nodiscard]] bool IsEmpty() const { return entries_.empty(); }
  // Null when the entry is empty or there is no such position.
  [[nodiscard]] T* GetAt(std::size_t position) const {
    return position < entries_.size() ? entries_[position].get() : nullptr;
  }
  // Removes all entries and deletes those that no other list shares.
  void EmptyList() {
    OnClearing();
    entries_.clear();
    OnChanged();
  }

  // Walks the entries in list order, empty ones included (as null).
  class Iterator {
   public:
    explicit Iterator(const std::shared_ptr<T>* at) : at_(at) {}
    T* operator*() const { return at_->get(); }
    Iterator& operator++() {
      ++at_;
      return *this;
    }
    bool operator==(const Iterator& other) const { return at_ == other.at_; }
    bool operator!=(const Iterator& other) const { return at_ != other.at_; }

   private:
    const std::shared_ptr<T>* at_;
  };
  Iterator begin() const { return Iterator(entries_.data()); }
  Iterator end() const { return Iterator(entries_.data() + entries_.size()); }

  // The entries that are there, in list order, for a walk that has no use for empty ones. Valid
  // like an iterator: as long as the list is not changed.
  class PresentEntries {
   public:
    class Iterator {
     public:
      Iterator(const std::shared_ptr<T>* at, const std::shared_ptr<T>* end) : at_(at), end_(end) {
        SkipEmpty();
      }
      T* operator*() const { return at_->get(); }
      Iterator& operator++() {
        ++at_;
        SkipEmpty();
        return *this;
      }
      bool operator==(const Iterator& other) const { return at_ == other.at_; }
      bool operator!=(const Iterator& other) const { return at_ != other.at_; }

     private:
      void SkipEmpty() {
        while (at_ != end_ && *at_ == nullptr) ++at_;
      }
      const std::shared_ptr<T>* at_;
      const std::shared_ptr<T>* end_;
    };
    explicit PresentEntries(const std::vector<std::shared_ptr<T>>& entries)
        : begin_(entries.data()), end_(entries.data() + entries.size()) {}
    Iterator begin() const { return {begin_, end_}; }
    Iterator end() const { return {end_, end_}; }

   private:
    const std::shared_ptr<T>* begin_;
    const std::shared_ptr<T>* end_;
  };
  [[nodiscard]] PresentEntries Present() const { return PresentEntries(entries_); }

 protected:
  // For lists with an index or with entries that know their list: called after an append (null for
  // an empty entry), before the list is emptied, and after any change but an append.
  virtual void OnAppended(T* /*entry*/) {}
  virtual void OnClearing() {}
  virtual void OnChanged() {}

  std::vector<std::shared_ptr<T>> entries_;
};
