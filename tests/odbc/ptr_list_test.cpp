// Pointer lists and their iterators.
#include "odbc/ptr_list.h"

#include <gtest/gtest.h>

namespace {

struct PtrList : testing::Test {
  PtrList() {
    // More than one block of nodes.
    for (LcODBCRecordList& record : records) list.AddTail(&record);
  }
  std::array<LcODBCRecordList, 25> records;
  LcODBCRecordList stranger;
  LcODBCRecordListList list;
};

// An iterator class of a host that may remove.
struct RemovingIterator : LcODBCRecordListListIter {
  explicit RemovingIterator(LcODBCRecordListList* list) : LcODBCRecordListListIter(list) {
    SetReadOnly(false);
  }
};

TEST_F(PtrList, IsCopiedAndWalkedFromBothEndsAndSearched) {
  LcODBCRecordListList copy;
  copy.AddTail(&stranger);
  copy = list;
  list.RemoveAll();
  LcODBCRecordListListIter iterator(&copy);
  for (LcODBCRecordList& record : records) {
    EXPECT_EQ(iterator.CurrentItem(), &record);
    EXPECT_EQ(LcODBCRecordListList::GetAt(iterator.Next()), &record);
  }
  EXPECT_TRUE(iterator.IsDone());
  EXPECT_EQ(iterator.Item(), nullptr);
  EXPECT_EQ(iterator.Last(), copy.GetTailPosition());
  for (std::size_t i = records.size(); i > 0; --i) {
    EXPECT_EQ(LcODBCRecordListList::GetAt(iterator.Previous()), &records[i - 1]);
  }
  EXPECT_TRUE(iterator.IsDone());
  EXPECT_EQ(iterator.Previous(), nullptr);

  EXPECT_TRUE(iterator.Find(&records[7]));
  EXPECT_FALSE(iterator.Find(&stranger));
  EXPECT_EQ(iterator.Item(), &records[7]) << "stays where it is";
}

TEST_F(PtrList, RemovesOnlyThroughAnIteratorThatMay) {
  LcODBCRecordListListIter reader(&list);
  EXPECT_EQ(reader.RemoveCurrent(), nullptr);
  EXPECT_EQ(list.GetCount(), records.size());

  RemovingIterator remover(&list);
  EXPECT_EQ(remover.RemoveCurrent(), &records[0]);
  EXPECT_EQ(remover.Item(), &records[1]);
  remover.Last();
  EXPECT_EQ(remover.RemoveCurrent(), &records[24]);
  EXPECT_TRUE(remover.IsDone());
  EXPECT_EQ(list.GetCount(), records.size() - 2);
  // A freed node serves again.
  list.AddHead(&records[0]);
  EXPECT_EQ(LcODBCRecordListList::GetAt(list.GetHeadPosition()), &records[0]);
}

TEST(PtrListIterator, IsAtNoPositionOfAnEmptyListOrNone) {
  LcODBCFetchList empty;
  for (LcODBCFetchList* list : {&empty, static_cast<LcODBCFetchList*>(nullptr)}) {
    LcODBCFetchListIter iterator(list);
    EXPECT_EQ(iterator.First(), nullptr);
    EXPECT_EQ(iterator.Last(), nullptr);
    EXPECT_EQ(iterator.Next(), nullptr);
    EXPECT_TRUE(iterator.IsDone());
    EXPECT_FALSE(iterator.Find(nullptr));
    EXPECT_EQ(iterator.RemoveCurrent(), nullptr);
  }
}

}  // namespace
