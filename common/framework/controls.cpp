#include "framework/controls.h"

#include "framework/code_page.h"

#include <array>
#include <limits>
#include <memory>
#include <string>
#include <string_view>

namespace {

/// The clipboard, opened for reading for as long as the guard lives.
class ClipboardReader {
public:
  explicit ClipboardReader(HWND window) : m_bOpen(::OpenClipboard(window) != FALSE) {}
  ~ClipboardReader() {
    if (m_bOpen) {
      ::CloseClipboard();
    }
  }
  ClipboardReader(const ClipboardReader&) = delete;
  ClipboardReader& operator=(const ClipboardReader&) = delete;

  std::wstring Text() const {
    const HANDLE data = m_bOpen ? ::GetClipboardData(CF_UNICODETEXT) : nullptr;
    if (data == nullptr) {
      return {};
    }
    const auto unlock = [data](const void*) { ::GlobalUnlock(data); };
    const std::unique_ptr<const void, decltype(unlock)> locked(::GlobalLock(data), unlock);
    if (!locked) {
      return {};
    }
    // Another program need not have ended it.
    const std::wstring_view all(static_cast<const wchar_t*>(locked.get()),
                                ::GlobalSize(data) / sizeof(wchar_t));
    return std::wstring(all.substr(0, all.find(L'\0')));
  }

private:
  bool m_bOpen;
};

}  // namespace

LRESULT CEdit::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  const bool closingKey = wParam == VK_RETURN || wParam == VK_ESCAPE;
  if (m_bComposing && closingKey) {
    // Asked for by whatever loop runs the dialog, the system's own as well.
    if (message == WM_GETDLGCODE) {
      return DLGC_WANTALLKEYS;
    }
    if (message == WM_KEYDOWN) {
      return 0;
    }
  }
  bool refused = false;
  switch (message) {
    case WM_CHAR: {
      const auto character = static_cast<wchar_t>(wParam);
      refused = !quorvel::IsInCodePage(std::wstring_view(&character, 1));
      break;
    }
    case WM_PASTE:
      refused = !quorvel::IsInCodePage(ClipboardReader(m_hWnd).Text());
      break;
    case WM_IME_STARTCOMPOSITION:
      m_bComposing = true;
      break;
    case WM_IME_ENDCOMPOSITION:
    case WM_KILLFOCUS:
      m_bComposing = false;
      break;
    default:
      break;
  }
  if (refused) {
    ::MessageBeep(MB_OK);
    return 0;
  }
  return CWnd::WindowProc(message, wParam, lParam);
}

void CListCtrl::InsertColumn(int column, const char* heading, int width) {
  std::wstring text = quorvel::WideFromCodePage(CString(heading).View());
  LVCOLUMNW description{};
  description.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
  description.pszText = text.data();
  description.cx = width;
  description.iSubItem = column;
  ::SendMessageW(m_hWnd, LVM_INSERTCOLUMNW, static_cast<WPARAM>(column),
                 reinterpret_cast<LPARAM>(&description));
}

int CListCtrl::AppendRow() {
  LVITEMW item{};
  item.iItem = std::numeric_limits<int>::max();
  return static_cast<int>(
      ::SendMessageW(m_hWnd, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item)));
}

void CListCtrl::SetItemTextCallback(int row, int column) {
  LVITEMW item{};
  item.iSubItem = column;
  item.pszText = LPSTR_TEXTCALLBACKW;
  ::SendMessageW(m_hWnd, LVM_SETITEMTEXTW, static_cast<WPARAM>(row),
                 reinterpret_cast<LPARAM>(&item));
}

void CListCtrl::SetItemText(int row, int column, const char* text) {
  std::wstring wide = quorvel::WideFromCodePage(CString(text).View());
  LVITEMW item{};
  item.iSubItem = column;
  item.pszText = wide.data();
  ::SendMessageW(m_hWnd, LVM_SETITEMTEXTW, static_cast<WPARAM>(row),
                 reinterpret_cast<LPARAM>(&item));
}

CString CListCtrl::GetItemText(int row, int column) const {
  return CString(quorvel::CodePageFromWide(GetItemTextWide(row, column)));
}

std::wstring CListCtrl::GetItemTextWide(int row, int column) const {
  // The control tells how much it copied, never how much there is: grow until it fits.
  std::wstring text(256, L'\0');
  for (;;) {
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    const auto length = static_cast<std::size_t>(::SendMessageW(
        m_hWnd, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item)));
    if (length + 1 < text.size()) {
      return {item.pszText, length};  // the control may answer with text of its own
    }
    text.resize(2 * text.size());
  }
}

void CListCtrl::SetItemData(int row, LPARAM data) {
  LVITEMW item{};
  item.mask = LVIF_PARAM;
  item.iItem = row;
  item.lParam = data;
  ::SendMessageW(m_hWnd, LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

LPARAM CListCtrl::GetItemData(int row) const {
  LVITEMW item{};
  item.mask = LVIF_PARAM;
  item.iItem = row;
  ::SendMessageW(m_hWnd, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
  return item.lParam;
}

int CListCtrl::GetItemCount() const {
  return static_cast<int>(::SendMessageW(m_hWnd, LVM_GETITEMCOUNT, 0, 0));
}

void CTabCtrl::InsertItem(int index, const char* text) {
  std::wstring wide = quorvel::WideFromCodePage(CString(text).View());
  TCITEMW item{};
  item.mask = TCIF_TEXT;
  item.pszText = wide.data();
  ::SendMessageW(m_hWnd, TCM_INSERTITEMW, static_cast<WPARAM>(index),
                 reinterpret_cast<LPARAM>(&item));
}

int CTabCtrl::GetCurSel() const {
  return static_cast<int>(::SendMessageW(m_hWnd, TCM_GETCURSEL, 0, 0));
}

void CTabCtrl::SetCurSel(int index) {
  ::SendMessageW(m_hWnd, TCM_SETCURSEL, static_cast<WPARAM>(index), 0);
}

CRect CTabCtrl::GetDisplayRect(CRect rect) const {
  ::SendMessageW(m_hWnd, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&rect));
  return rect;
}

void CButton::SetBitmap(HBITMAP bitmap) {
  ::SendMessageW(m_hWnd, BM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(bitmap));
}

bool CButton::GetState() const {
  return (::SendMessageW(m_hWnd, BM_GETSTATE, 0, 0) & BST_PUSHED) != 0;
}

void CButton::SetState(bool pressed) {
  ::SendMessageW(m_hWnd, BM_SETSTATE, pressed ? TRUE : FALSE, 0);
}

void CListBox::ResetContent() { ::SendMessageW(m_hWnd, LB_RESETCONTENT, 0, 0); }

int CListBox::AddString(const char* text) {
  const std::wstring wide = quorvel::WideFromCodePage(CString(text).View());
  return static_cast<int>(
      ::SendMessageW(m_hWnd, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(wide.c_str())));
}

void CListBox::SetCurSel(int index) {
  ::SendMessageW(m_hWnd, LB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

void CComboBox::ResetContent() { ::SendMessageW(m_hWnd, CB_RESETCONTENT, 0, 0); }

int CComboBox::AddString(const char* text) {
  const std::wstring wide = quorvel::WideFromCodePage(CString(text).View());
  return static_cast<int>(
      ::SendMessageW(m_hWnd, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(wide.c_str())));
}

void CComboBox::AddStrings(const std::vector<std::wstring>& texts) {
  std::size_t characters = 0;
  for (const std::wstring& text : texts) {
    characters += text.size() + 1;
  }
  ::SendMessageW(m_hWnd, WM_SETREDRAW, FALSE, 0);
  ::SendMessageW(m_hWnd, CB_INITSTORAGE, texts.size(),
                 static_cast<LPARAM>(characters * sizeof(wchar_t)));
  for (const std::wstring& text : texts) {
    ::SendMessageW(m_hWnd, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
  }
  ::SendMessageW(m_hWnd, WM_SETREDRAW, TRUE, 0);
  Invalidate();
}

int CComboBox::FindStringExact(const char* text) const {
  const std::wstring wide = quorvel::WideFromCodePage(CString(text).View());
  return static_cast<int>(::SendMessageW(m_hWnd, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                         reinterpret_cast<LPARAM>(wide.c_str())));
}

int CComboBox::GetCurSel() const {
  return static_cast<int>(::SendMessageW(m_hWnd, CB_GETCURSEL, 0, 0));
}

void CComboBox::SetCurSel(int index) {
  // Not every platform lets the selection go when it is asked for an entry that is not there.
  const LRESULT count = ::SendMessageW(m_hWnd, CB_GETCOUNT, 0, 0);
  const int entry = 0 <= index && index < count ? index : -1;
  ::SendMessageW(m_hWnd, CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
}
