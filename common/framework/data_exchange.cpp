#include "framework/data_exchange.h"

#include "framework/code_page.h"
#include "framework/message_box.h"
#include "framework/number_text.h"
#include "framework/window_text.h"

#include <optional>

namespace quorvel {

void ShowFieldText(HWND control, const CString& text) {
  // Unchanged text stays as it is: no flicker, and the caret stays where the user put it.
  const std::wstring wide = WideFromCodePage(text.View());
  if (WindowText(control) != wide) {
    ::SetWindowTextW(control, wide.c_str());
  }
}

CString FieldText(HWND control) { return CString(CodePageFromWide(WindowText(control))); }

}  // namespace quorvel

namespace {

/// Reads a field with `parse`, which gives nothing for a text that it refuses.
template <class Number, class Parse>
void ReadNumber(CDataExchange* pDX, HWND control, Number& value, Parse parse, const char* message) {
  const std::optional<Number> number = parse(quorvel::FieldText(control).View());
  if (!number) {
    pDX->Fail(message);
  }
  value = *number;
}

}  // namespace

HWND CDataExchange::PrepareEditCtrl(int id) {
  m_hWndLastControl = m_pDlgWnd->GetDlgItem(id);
  return m_hWndLastControl;
}

void CDataExchange::Fail(const char* message) {
  AfxMessageBox(message, MB_OK | MB_ICONEXCLAMATION);
  if (m_hWndLastControl != nullptr) {
    ::SetFocus(m_hWndLastControl);
    ::SendMessageW(m_hWndLastControl, EM_SETSEL, 0, -1);
  }
  throw CFieldRefused();
}

void DDX_Control(CDataExchange* pDX, int id, CWnd& control) {
  if (control.m_hWnd == nullptr) {
    control.SubclassDlgItem(static_cast<UINT>(id), pDX->m_pDlgWnd);
  }
}

void DDX_Check(CDataExchange* pDX, int id, int& value) {
  const HWND control = pDX->m_pDlgWnd->GetDlgItem(id);
  if (pDX->m_bSaveAndValidate != FALSE) {
    value = ::SendMessageW(control, BM_GETCHECK, 0, 0) == BST_UNCHECKED ? 0 : 1;
  } else {
    ::SendMessageW(control, BM_SETCHECK, value != 0 ? BST_CHECKED : BST_UNCHECKED, 0);
  }
}

void DDX_Text(CDataExchange* pDX, int id, CString& value) {
  const HWND control = pDX->PrepareEditCtrl(id);
  if (pDX->m_bSaveAndValidate == FALSE) {
    quorvel::ShowFieldText(control, value);
    return;
  }
  const std::wstring text = quorvel::WindowText(control);
  if (text == quorvel::WideFromCodePage(value.View())) {
    return;  // untouched: the caller's own bytes stay, also those that are no characters
  }
  if (!quorvel::IsInCodePage(text)) {
    pDX->Fail("使用できない文字が含まれています。");
  }
  value = CString(quorvel::CodePageFromWide(text));
}

void DDX_Text(CDataExchange* pDX, int id, int& value) {
  const HWND control = pDX->PrepareEditCtrl(id);
  if (pDX->m_bSaveAndValidate == FALSE) {
    CString text;
    text.Format("%d", value);
    quorvel::ShowFieldText(control, text);
    return;
  }
  ReadNumber(pDX, control, value, quorvel::ParseInteger, "整数を入力してください。");
}

void DDX_Text(CDataExchange* pDX, int id, double& value) {
  const HWND control = pDX->PrepareEditCtrl(id);
  if (pDX->m_bSaveAndValidate == FALSE) {
    quorvel::ShowFieldText(control, quorvel::ShortestText(value));
    return;
  }
  ReadNumber(pDX, control, value, quorvel::ParseNumber, "数値を入力してください。");
}

void DDX_CBIndex(CDataExchange* pDX, int id, int& index) {
  const HWND control = pDX->m_pDlgWnd->GetDlgItem(id);
  if (pDX->m_bSaveAndValidate == FALSE) {
    ::SendMessageW(control, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
  } else {
    index = static_cast<int>(::SendMessageW(control, CB_GETCURSEL, 0, 0));
  }
}

void DDV_MinMaxInt(CDataExchange* pDX, int value, int lowest, int highest) {
  if (pDX->m_bSaveAndValidate == FALSE || (lowest <= value && value <= highest)) {
    return;
  }
  CString message;
  message.Format("%d から %d までの整数を入力してください。", lowest, highest);
  pDX->Fail(message);
}

void DDV_MinMaxDouble(CDataExchange* pDX, const double& value, double lowest, double highest) {
  if (pDX->m_bSaveAndValidate == FALSE || (lowest <= value && value <= highest)) {
    return;
  }
  pDX->Fail(quorvel::ShortestText(lowest) + " から " + quorvel::ShortestText(highest) +
            " までの数値を入力してください。");
}
