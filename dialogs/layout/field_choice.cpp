#include "dialogs/layout/field_choice.h"

namespace quorvel {

namespace {

constexpr int kFirstCount = 4;           // the first of those that count records
constexpr int kLastCount = 6;
constexpr int kFirstConditional = 7;     // the first of those that choose records by a condition
constexpr int kLastWithField2 = 9;
constexpr int kLastAskedForField2 = 10;

bool HasCondition(int type) { return type >= kFirstConditional; }
bool IsAskedForField2(int type) { return HasCondition(type) && type <= kLastAskedForField2; }

}  // namespace

const char* FieldTypeText(int type) {
  return 0 <= type && type < kFieldTypeCount ? kFieldTypes[static_cast<std::size_t>(type)].data()
                                             : "";
}

FieldEnabling EnablingOf(int type) {
  return {.field1 = type < kFirstCount || type > kLastCount,
          .condition = HasCondition(type),
          .field2 = HasCondition(type) && type <= kLastWithField2};
}

FieldPart MissingPart(const FieldChoice& choice) {
  if (choice.field1.IsEmpty()) {
    return FieldPart::kField1;
  }
  if (HasCondition(choice.type) && choice.value.IsEmpty()) {
    return FieldPart::kValue;
  }
  if (IsAskedForField2(choice.type) && choice.field2.IsEmpty()) {
    return FieldPart::kField2;
  }
  return FieldPart::kNone;
}

void StoreFieldChoice(const FieldChoice& choice, CKivValInfoOneData& info) {
  const bool hasCondition = HasCondition(choice.type);
  info.SetValType(kFirstFieldType + static_cast<unsigned int>(choice.type));
  info.SetFieldName(choice.field1);
  info.SetFindValue(hasCondition ? choice.value.GetString() : "");
  info.SetRefField(IsAskedForField2(choice.type) ? choice.field2.GetString() : "");
  // No place in a list is stored as 255.
  info.SetFindType(hasCondition ? static_cast<unsigned char>(choice.comparison) : 0);
  info.SetUseDesimalPointBeam(choice.useDecimals);
  info.SetBeam(static_cast<unsigned char>(choice.decimals));
  info.SetUse3Figures(choice.grouping);
}

int FieldTypeOf(unsigned int valType) {
  const unsigned int type = valType - kFirstFieldType;
  return type < static_cast<unsigned int>(kFieldTypeCount) ? static_cast<int>(type) : -1;
}

int FindFieldName(const CStringArray& names, const CString& name) {
  for (INT_PTR i = 0; i < names.GetSize(); ++i) {
    if (names.GetAt(i) == name) {
      return static_cast<int>(i);
    }
  }
  return -1;
}

}  // namespace quorvel
