#include "dialogs/layout/field_choice.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace quorvel::test {
namespace {

FieldChoice FullChoice(int type) {
  return {.type = type,
          .field1 = "数量",
          .comparison = 3,
          .value = "10",
          .field2 = "金額",
          .useDecimals = 1,
          .decimals = 2,
          .grouping = 1};
}

TEST(FieldChoice, TypesStandInTheirOrder) {
  constexpr std::array kTexts{"値",           "小計",         "累計",     "合計",     "小計カウント",
                              "累計カウント", "合計カウント", "抽出小計", "抽出累計", "抽出合計",
                              "抽出小計カウント", "抽出累計カウント", "抽出合計カウント"};
  ASSERT_EQ(kTexts.size(), static_cast<std::size_t>(kFieldTypeCount));
  for (int type = 0; type < kFieldTypeCount; ++type) {
    EXPECT_STREQ(FieldTypeText(type), kTexts[static_cast<std::size_t>(type)]);
    EXPECT_EQ(kFieldTypes[static_cast<std::size_t>(type)].back(), '\0');
  }
  EXPECT_STREQ(FieldTypeText(-1), "");
  EXPECT_STREQ(FieldTypeText(kFieldTypeCount), "");
}

TEST(FieldChoice, EachTypeEnablesItsOwnControls) {
  struct Row {
    bool field1;
    bool condition;
    bool field2;
  };
  constexpr std::array<Row, kFieldTypeCount> kRows{{{true, false, false},
                                                    {true, false, false},
                                                    {true, false, false},
                                                    {true, false, false},
                                                    {false, false, false},
                                                    {false, false, false},
                                                    {false, false, false},
                                                    {true, true, true},
                                                    {true, true, true},
                                                    {true, true, true},
                                                    {true, true, false},
                                                    {true, true, false},
                                                    {true, true, false}}};
  for (int type = 0; type < kFieldTypeCount; ++type) {
    const FieldEnabling enabling = EnablingOf(type);
    const Row& row = kRows[static_cast<std::size_t>(type)];
    EXPECT_EQ(enabling.field1, row.field1) << type;
    EXPECT_EQ(enabling.condition, row.condition) << type;
    EXPECT_EQ(enabling.field2, row.field2) << type;
  }
  EXPECT_TRUE(EnablingOf(-1).field1);
  EXPECT_FALSE(EnablingOf(-1).condition);
  EXPECT_FALSE(EnablingOf(-1).field2);
}

TEST(FieldChoice, PartsAreAskedForInTheirOrder) {
  for (int type = -1; type < kFieldTypeCount; ++type) {
    FieldChoice choice = FullChoice(type);
    EXPECT_EQ(MissingPart(choice), FieldPart::kNone) << type;
    choice.field2 = "";
    EXPECT_EQ(MissingPart(choice),
              7 <= type && type <= 10 ? FieldPart::kField2 : FieldPart::kNone) << type;
    choice.value = "";
    EXPECT_EQ(MissingPart(choice), type >= 7 ? FieldPart::kValue : FieldPart::kNone) << type;
    choice.field1 = "";
    EXPECT_EQ(MissingPart(choice), FieldPart::kField1) << type;
  }
}

TEST(FieldChoice, WhatATypeLacksIsStoredEmpty) {
  for (int type = 0; type < kFieldTypeCount; ++type) {
    CKivValInfoOneData info;
    info.SetFindValue("旧");
    info.SetRefField("旧");
    info.SetFindType(5);
    StoreFieldChoice(FullChoice(type), info);
    EXPECT_EQ(info.GetValType(), static_cast<unsigned>(200 + type));
    EXPECT_EQ(info.GetFieldName(), "数量");
    EXPECT_EQ(info.GetFindValue(), type >= 7 ? "10" : "") << type;
    EXPECT_EQ(info.GetFindType(), type >= 7 ? 3 : 0) << type;
    EXPECT_EQ(info.GetRefField(), 7 <= type && type <= 10 ? "金額" : "") << type;
    EXPECT_EQ(info.GetUseDesimalPointBeam(), 1);
    EXPECT_EQ(info.GetBeam(), 2);
    EXPECT_EQ(info.GetUse3Figures(), 1);
  }
}

TEST(FieldChoice, NoPlaceInAListIsStoredAs255) {
  FieldChoice choice = FullChoice(9);
  choice.comparison = -1;
  choice.decimals = -1;
  CKivValInfoOneData info;
  StoreFieldChoice(choice, info);
  EXPECT_EQ(info.GetFindType(), 255);
  EXPECT_EQ(info.GetBeam(), 255);
}

TEST(FieldChoice, TypesAreFoundByTheirValue) {
  EXPECT_EQ(FieldTypeOf(0), -1);
  EXPECT_EQ(FieldTypeOf(199), -1);
  EXPECT_EQ(FieldTypeOf(200), 0);
  EXPECT_EQ(FieldTypeOf(212), 12);
  EXPECT_EQ(FieldTypeOf(213), -1);
  EXPECT_EQ(FieldTypeOf(0xFFFFFFFFU), -1);
}

TEST(FieldChoice, NamesAreFoundByteForByteAndTheFirstOneFirst) {
  CStringArray names;
  for (const char* name : {"price", "PRICE", "Price", "価格", "PRICE"}) {
    names.Add(name);
  }
  EXPECT_EQ(FindFieldName(names, "PRICE"), 1);
  EXPECT_EQ(FindFieldName(names, "Price"), 2);
  EXPECT_EQ(FindFieldName(names, "価格"), 3);
  EXPECT_EQ(FindFieldName(names, "pric"), -1);
  EXPECT_EQ(FindFieldName(CStringArray(), "price"), -1);
}

/// Settings, macro, settings: for every type, with names that a macro's text could trip over.
TEST(FieldChoice, ComesBackFromItsMacro) {
  std::string everyByte;
  for (int byte = 1; byte < 256; ++byte) {
    everyByte += static_cast<char>(byte);
  }
  for (const std::string& name :
       {std::string("金額"), std::string("a\"b\"\"c"), std::string("<F type=200>"),
        std::string("100%d %s"), std::string("\x83\x5c\x95\x5c\x94\x5c"), std::string("\x81"),
        std::string(" \r\n\t"), everyByte, std::string(5000, '"')}) {
    for (int type = 0; type < kFieldTypeCount; ++type) {
      FieldChoice choice = FullChoice(type);
      choice.field1 = name.c_str();
      choice.field2 = (name + "2").c_str();
      choice.value = (name + "3").c_str();
      CKivValInfoOneData info;
      StoreFieldChoice(choice, info);
      const CString macro = info.GetMacroString(FieldTypeText(type));
      CKivValInfoOneData read;
      ASSERT_EQ(read.SetMacroString(macro, 1), 1) << type;
      EXPECT_EQ(FieldTypeOf(read.GetValType()), type);
      EXPECT_EQ(read.GetFieldName(), choice.field1);
      EXPECT_EQ(read.GetFindValue(), info.GetFindValue());
      EXPECT_EQ(read.GetRefField(), info.GetRefField());
      EXPECT_EQ(read.GetFindType(), info.GetFindType());
      EXPECT_EQ(read.GetBeam(), info.GetBeam());
      EXPECT_EQ(read.GetUseDesimalPointBeam(), 1);
      EXPECT_EQ(read.GetUse3Figures(), 1);
      EXPECT_EQ(read.GetMacroString(FieldTypeText(type)), macro);
    }
  }
}

}  // namespace
}  // namespace quorvel::test
