#include "kivfcl/calc_text.h"

#include "framework/number_text.h"
#include "kivfcl/expression.h"

#include <string_view>

using quorvel::Calculation;
using quorvel::CalculationFault;

namespace {

/// Of the text at fault in a message, so that the message stays readable.
constexpr int kLongestQuotation = 40;

bool IsBlank(std::string_view text) {
  return quorvel::HalfWidthForm(text).find_first_not_of(" \t\r\n") == std::string::npos;
}

CString Refusal(std::string_view text, CalculationFault fault, const char* wanted) {
  if (IsBlank(text)) {
    return CString(wanted) + "を入力してください。";
  }
  const CString quoted = CString("「") + quorvel::Shortened(text, kLongestQuotation) + "」";
  switch (fault) {
    case CalculationFault::kDivisionByZero:
      return quoted + " は 0 で割っているため計算できません。";
    case CalculationFault::kTooLarge:
      return quoted + " の値が大きすぎます。";
    case CalculationFault::kNoWholeNumber:
      return quoted + " の値が整数になりません。";
    default:
      return quoted + " は数値または計算式ではありません。";
  }
}

/// `calculate` reads a text as the number's type can hold it, `textOf` shows a number.
template <class Number, class Calculate, class TextOf>
void Exchange(CDataExchange* pDX, int id, Number& value, const char* wanted, Calculate calculate,
              TextOf textOf) {
  const HWND field = pDX->PrepareEditCtrl(id);
  const CString text = quorvel::FieldText(field);
  const Calculation read = calculate(text.View());
  const auto number = static_cast<Number>(read.value);
  const bool isValid = read.fault == CalculationFault::kNone;
  const bool showsValue = isValid && textOf(number) == textOf(value);
  if (showsValue) {
    return;
  }
  if (pDX->m_bSaveAndValidate == FALSE) {
    quorvel::ShowFieldText(field, textOf(value));
    return;
  }
  if (!isValid) {
    pDX->Fail(Refusal(text.View(), read.fault, wanted));
  }
  value = number;
}

template <class Number, class Calculate>
void ExchangeDecimal(CDataExchange* pDX, int id, Number& value, int fewestDecimals,
                     Calculate calculate) {
  Exchange(pDX, id, value, "数値", calculate, [fewestDecimals](Number number) {
    return quorvel::DecimalText(number, fewestDecimals);
  });
}

}  // namespace

void DDX_CalcText(CDataExchange* pDX, int id, int& value) {
  Exchange(pDX, id, value, "整数", quorvel::CalculateInt, [](int number) {
    CString text;
    text.Format("%d", number);
    return text;
  });
}

void DDX_CalcText(CDataExchange* pDX, int id, float& value, short fewestDecimals,
                  short /*reserved*/) {
  ExchangeDecimal(pDX, id, value, fewestDecimals, quorvel::CalculateFloat);
}

void DDX_CalcText(CDataExchange* pDX, int id, double& value, short fewestDecimals,
                  short /*reserved*/) {
  ExchangeDecimal(pDX, id, value, fewestDecimals, quorvel::Calculate);
}
