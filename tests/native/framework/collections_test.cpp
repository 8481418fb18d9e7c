#include "framework/collections.h"

#include <gtest/gtest.h>

namespace {

TEST(CArray, GrowsByAddingAndBySize) {
  CArray<CString, CString&> names;
  CString name("線");
  EXPECT_EQ(names.Add(name), 0);
  EXPECT_EQ(names.Add(name), 1);
  EXPECT_EQ(names.GetSize(), 2);
  EXPECT_EQ(names.GetCount(), 2);
  names.SetSize(3);
  EXPECT_TRUE(names.GetAt(2).IsEmpty());
  names.SetSize(1);
  EXPECT_STREQ(names[0], "線");
  EXPECT_FALSE(names.IsEmpty());
  names.RemoveAll();
  EXPECT_TRUE(names.IsEmpty());
}

TEST(CArray, WhatStandsBehindARemovedElementMovesUp) {
  CDWordArray numbers;
  for (const DWORD number : {4U, 5U, 6U}) {
    numbers.Add(number);
  }
  numbers.RemoveAt(1);
  ASSERT_EQ(numbers.GetSize(), 2);
  EXPECT_EQ(numbers[0], 4U);
  EXPECT_EQ(numbers[1], 6U);
  EXPECT_THROW(numbers.RemoveAt(2), CInvalidArgException);
  EXPECT_THROW(numbers.RemoveAt(-1), CInvalidArgException);
  EXPECT_EQ(numbers.GetSize(), 2);
}

TEST(CArray, RefusesAnyIndexOutside) {
  CByteArray states;
  states.SetSize(2);
  states.SetAt(1, 7);
  EXPECT_EQ(states.GetAt(1), 7);
  EXPECT_THROW(states.SetAt(2, 1), CInvalidArgException);
  EXPECT_THROW(states.SetAt(-1, 1), CInvalidArgException);
  EXPECT_THROW(states.GetAt(2), CInvalidArgException);
  const CByteArray& constStates = states;
  EXPECT_THROW(constStates.GetAt(-1), CInvalidArgException);
  EXPECT_EQ(constStates[0], 0);
  EXPECT_THROW(states.SetSize(-1), CInvalidArgException);
  EXPECT_EQ(states.GetSize(), 2);
  EXPECT_EQ(states.GetAt(1), 7);
}

TEST(CArray, HoldsTextsAndNumbersOfHosts) {
  CStringArray fields;
  fields.Add("部品名");
  fields.Add(CString("数量"));
  EXPECT_STREQ(fields[1], "数量");
  CDWordArray numbers;
  numbers.Add(0xFFFFFFFFU);
  EXPECT_EQ(numbers[0], 0xFFFFFFFFU);
  numbers[0] = 1;
  EXPECT_EQ(numbers.GetAt(0), 1U);
}

}  // namespace
