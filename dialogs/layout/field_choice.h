// What the field editor offers and decides: the thirteen types of a field macro and what each of
// them needs.
//
//   FieldChoice choice{.type = 9, .field1 = "金額", ...};
//   if (MissingPart(choice) == FieldPart::kNone) {
//     StoreFieldChoice(choice, info);
//     text = info.GetMacroString(FieldTypeText(choice.type));
//   }
#pragma once

#include "framework/collections.h"
#include "framework/cstring.h"
#include "kivdata/val_info_one_data.h"

#include <array>
#include <cstddef>

namespace quorvel {

/// A type's value in the settings is its place in the list and this; settings with less are no
/// macro.
inline constexpr unsigned int kFirstFieldType = 200;
inline constexpr int kFieldTypeCount = 13;

inline constexpr std::size_t kFieldTypeTextSize = 32;
using FieldTypeEntry = std::array<char, kFieldTypeTextSize>;  ///< filled up with zero bytes
inline constexpr std::array<FieldTypeEntry, kFieldTypeCount> kFieldTypes{{
    {"値"},
    {"小計"},
    {"累計"},
    {"合計"},
    {"小計カウント"},
    {"累計カウント"},
    {"合計カウント"},
    {"抽出小計"},
    {"抽出累計"},
    {"抽出合計"},
    {"抽出小計カウント"},
    {"抽出累計カウント"},
    {"抽出合計カウント"},
}};

/// In the order of the settings' numbers.
inline constexpr std::array kComparisons{"＝", "≠", "＞", "≧", "＜", "≦"};
inline constexpr std::array kDecimalPlaces{"0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "10"};

/// Empty where no type is selected.
const char* FieldTypeText(int type);

/// Places in lists count from 0, -1 is none.
struct FieldChoice {
  int type = 0;
  CString field1{};
  int comparison = 0;
  CString value{};
  CString field2{};
  int useDecimals = 0;
  int decimals = 0;
  int grouping = 0;
};

/// Which controls a type leaves enabled.
struct FieldEnabling {
  bool field1;
  bool condition;  ///< the comparison and its value
  bool field2;
};
FieldEnabling EnablingOf(int type);

enum class FieldPart { kNone, kField1, kValue, kField2 };
/// The first part that a confirmed choice lacks. The first field is asked for with every type. The
/// second one is asked for with one type more than it is enabled for, 抽出小計カウント: hosts'
/// layouts carry it there.
FieldPart MissingPart(const FieldChoice& choice);

/// Sets all settings; those that the type does not have become empty or 0.
void StoreFieldChoice(const FieldChoice& choice, CKivValInfoOneData& info);

/// The place of a type's value in the list; -1 where the list has none.
int FieldTypeOf(unsigned int valType);

/// The first name that is byte for byte `name`; -1 where there is none.
int FindFieldName(const CStringArray& names, const CString& name);

}  // namespace quorvel
