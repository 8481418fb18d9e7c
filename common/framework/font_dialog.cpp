#include "framework/font_dialog.h"

#include "framework/code_page.h"
#include "framework/device_context.h"
#include "framework/message_box.h"
#include "framework/wide_font.h"

#include <dlgs.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

// The platform's names for its controls.
constexpr int kFaces = cmb1;
constexpr int kStyles = cmb2;

/// A list inside a combo box, in the windows' own texts.
class ListOfCombo {
public:
  explicit ListOfCombo(HWND combo) : m_hWnd(combo) {}

  int Selected() const { return static_cast<int>(Send(CB_GETCURSEL)); }
  void Select(int index) const { Send(CB_SETCURSEL, index); }

  std::wstring Text(int index) const {
    const LRESULT length = Send(CB_GETLBTEXTLEN, index);
    if (length == CB_ERR) {
      return {};
    }
    std::wstring text(static_cast<std::size_t>(length), L'\0');
    Send(CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(text.data()));
    return text;
  }

  void SetRedraw(bool redraw) const { Send(WM_SETREDRAW, redraw ? 1 : 0); }

  int Find(const std::wstring& face) const {
    return static_cast<int>(Send(CB_FINDSTRINGEXACT, -1, reinterpret_cast<LPARAM>(face.c_str())));
  }

  LPARAM Remove(int index) const {
    const LPARAM data = Send(CB_GETITEMDATA, index);
    Send(CB_DELETESTRING, index);
    return data;
  }
  void Append(const std::wstring& face, LPARAM data) const {
    // Inserted, which does not sort.
    const LRESULT index = Send(CB_INSERTSTRING, -1, reinterpret_cast<LPARAM>(face.c_str()));
    Send(CB_SETITEMDATA, static_cast<int>(index), data);
  }

private:
  LRESULT Send(UINT message, int index = 0, LPARAM parameter = 0) const {
    return ::SendMessageW(m_hWnd, message, static_cast<WPARAM>(index), parameter);
  }

  HWND m_hWnd;
};

bool IsVertical(const std::wstring& face) {
  return face.starts_with(L'@');
}

/// The name as a LOGFONTA can hold it; nothing where code page 932 lacks a character or the name is
/// too long.
std::optional<std::string> NarrowFace(std::wstring_view face) {
  if (!quorvel::IsInCodePage(face)) {
    return std::nullopt;
  }
  std::string narrow = quorvel::CodePageFromWide(face);
  return narrow.size() < LF_FACESIZE ? std::optional(std::move(narrow)) : std::nullopt;
}

/// Calls `visit` with each font of a face until it returns false.
template <class Visit>
void EnumerateFonts(std::wstring_view face, Visit visit) {
  const auto call = [](const LOGFONTW* font, const TEXTMETRICW*, DWORD type,
                       LPARAM parameter) -> int {
    return (*reinterpret_cast<Visit*>(parameter))(*font, type) ? 1 : 0;
  };
  LOGFONTW query{};
  query.lfCharSet = DEFAULT_CHARSET;
  face.copy(std::begin(query.lfFaceName), LF_FACESIZE - 1);
  const CWnd screen;
  const CClientDC deviceContext(&screen);
  ::EnumFontFamiliesExW(deviceContext.Handle(), &query, call, reinterpret_cast<LPARAM>(&visit), 0);
}

/// Whether the system's list of faces has this name. A face has a name in each of some languages, of
/// which the list has one.
bool IsListed(std::wstring_view face) {
  bool found = false;
  EnumerateFonts(L"", [&](const LOGFONTW& font, DWORD type) {
    const std::wstring_view name = std::begin(font.lfFaceName);
    found = (type & TRUETYPE_FONTTYPE) != 0 &&
            ::CompareStringOrdinal(name.data(), static_cast<int>(name.size()), face.data(),
                                   static_cast<int>(face.size()), TRUE) == CSTR_EQUAL;
    return !found;
  });
  return found;
}

/// The selected font's family as the system lists it; empty where that cannot be told. GetTextFace
/// would tell the name that was asked for, whatever language that is in.
std::wstring SelectedFamily(HDC deviceContext) {
  const UINT size = ::GetOutlineTextMetricsW(deviceContext, 0, nullptr);
  std::vector<BYTE> bytes(size);
  if (size == 0 || ::GetOutlineTextMetricsW(
                       deviceContext, size,
                       reinterpret_cast<OUTLINETEXTMETRICW*>(bytes.data())) == 0) {
    return {};
  }
  // What is declared as a pointer to the name is its distance from the beginning.
  OUTLINETEXTMETRICW metrics{};
  std::memcpy(&metrics, bytes.data(), sizeof metrics);
  return reinterpret_cast<const wchar_t*>(bytes.data() +
                                          reinterpret_cast<std::uintptr_t>(metrics.otmpFamilyName));
}

/// Replaces the face by the one that the system takes for it where it can take TrueType only.
void PutStandIn(LOGFONTW& font) {
  LOGFONTW query = font;
  query.lfOutPrecision = OUT_TT_ONLY_PRECIS;
  const quorvel::OwnedFont created(::CreateFontIndirectW(&query));
  const CWnd screen;
  const CClientDC deviceContext(&screen);
  const quorvel::SelectedObject selected(deviceContext.Handle(), created.get());
  const std::wstring family = SelectedFamily(deviceContext.Handle());
  if (family.empty() || family.size() >= LF_FACESIZE) {
    ::GetTextFaceW(deviceContext.Handle(), LF_FACESIZE, std::begin(font.lfFaceName));
    return;
  }
  std::ranges::fill(font.lfFaceName, L'\0');
  family.copy(std::begin(font.lfFaceName), LF_FACESIZE - 1);
}

/// A character set that the face has: `wanted` if it has that one, or else its first.
BYTE CharSetOf(std::wstring_view face, BYTE wanted) {
  std::optional<BYTE> first;
  bool found = wanted == DEFAULT_CHARSET;
  EnumerateFonts(face, [&](const LOGFONTW& font, DWORD) {
    first = first.value_or(font.lfCharSet);
    found = found || font.lfCharSet == wanted;
    return !found;
  });
  return found ? wanted : first.value_or(wanted);
}

/// What a check box decides: any other value of the same meaning stays.
BYTE Effect(BYTE before, BYTE now) {
  return (before != 0) == (now != 0) ? before : now;
}

}  // namespace

CFontDialog::CFontDialog(const LOGFONTA* initial, DWORD flags, HDC printer, CWnd* parent)
    : CDialog(0, parent) {
  m_cf.Flags = flags;
  m_cf.hDC = printer;
  if (printer != nullptr) {
    m_cf.Flags |= CF_PRINTERFONTS;
  }
  if (initial != nullptr) {
    m_font = *initial;
    m_cf.Flags |= CF_INITTOLOGFONTSTRUCT;
  }
}

INT_PTR CFontDialog::RunModal() {
  m_bOpened = false;
  m_bAccepted = false;
  // The platform writes into the record while the dialog is open, even if it is cancelled then.
  m_platformFont = quorvel::WideLogFont(m_font);
  if ((m_cf.Flags & CF_INITTOLOGFONTSTRUCT) != 0 && !IsListed(m_platformFont.lfFaceName)) {
    // For a face that it does not list the platform would show another one, Wine its very first.
    PutStandIn(m_platformFont);
  }
  m_cf.lStructSize = sizeof m_cf;
  m_cf.hwndOwner = ModalOwnerWindow();
  m_cf.lpLogFont = &m_platformFont;
  m_cf.Flags |= CF_ENABLEHOOK;
  m_cf.lpfnHook = &CFontDialog::Hook;
  m_cf.lCustData = reinterpret_cast<LPARAM>(this);
  const BOOL confirmed = ::ChooseFontW(&m_cf);
  // Wine answers TRUE for a dialog that could not be created, Windows does not.
  if (confirmed != FALSE && m_bAccepted) {
    TakeResult();
    return IDOK;
  }
  return m_bOpened ? IDCANCEL : -1;
}

UINT_PTR CALLBACK CFontDialog::Hook(HWND window, UINT message, WPARAM /*wParam*/, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    const auto& record = *reinterpret_cast<const CHOOSEFONTW*>(lParam);
    auto* dialog = reinterpret_cast<CFontDialog*>(record.lCustData);
    dialog->m_bOpened = true;
    dialog->InitWindow(window);
  }
  return 0;  // who has the focus is settled
}

BOOL CFontDialog::OnInitDialog() {
  const BOOL letSystemSetFocus = CDialog::OnInitDialog();
  ListVerticalFacesLast();
  // The platform selects styles and sizes by itself when a face is selected.
  m_bFacePicked = false;
  m_bStylePicked = false;
  return letSystemSetFocus;
}

void CFontDialog::ListVerticalFacesLast() {
  const ListOfCombo faces(GetDlgItem(kFaces));
  const std::wstring selected = faces.Text(faces.Selected());
  std::vector<std::pair<std::wstring, LPARAM>> vertical;
  m_bMovingFaces = true;
  faces.SetRedraw(false);
  // The platform has sorted them: what begins with this sign stands together, in front.
  for (std::wstring face = faces.Text(0); IsVertical(face); face = faces.Text(0)) {
    const LPARAM data = faces.Remove(0);
    vertical.emplace_back(std::move(face), data);
  }
  for (const auto& [face, data] : vertical) {
    faces.Append(face, data);
  }
  faces.SetRedraw(true);
  m_bMovingFaces = false;
  if (!vertical.empty() && !selected.empty()) {
    faces.Select(faces.Find(selected));
  }
}

void CFontDialog::TellPlatform(int id, UINT notification) {
  CallPreviousProc(WM_COMMAND, MAKEWPARAM(id, notification),
                   reinterpret_cast<LPARAM>(GetDlgItem(id)));
}

LRESULT CFontDialog::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_DELETEITEM && m_bMovingFaces) {
    return TRUE;  // the item's data lives on
  }
  const int id = LOWORD(wParam);
  if (message != WM_COMMAND || id == IDOK || id == IDCANCEL) {
    return CDialog::WindowProc(message, wParam, lParam);
  }
  const UINT code = HIWORD(wParam);
  const bool picks = code == CBN_SELCHANGE || code == CBN_EDITCHANGE;
  m_bFacePicked = m_bFacePicked || (picks && id == kFaces);
  m_bStylePicked = m_bStylePicked || (picks && id == kStyles);
  const LRESULT result = CallPreviousProc(message, wParam, lParam);
  HandleCommand(wParam, lParam);
  return result;
}

void CFontDialog::OnOK() {
  if (UpdateData(TRUE) == FALSE) {
    return;
  }
  LOGFONTW chosen{};
  ::SendMessageW(m_hWnd, WM_CHOOSEFONT_GETLOGFONT, 0, reinterpret_cast<LPARAM>(&chosen));
  if (m_bFacePicked && !NarrowFace(chosen.lfFaceName)) {
    AfxMessageBox("このフォントの名前は使用できません。別のフォントを選択してください。");
    GotoDlgCtrl(GetDlgItem(kFaces));
    return;
  }
  OnAccepted();
  m_bAccepted = true;
  TellPlatform(IDOK, BN_CLICKED);
}

void CFontDialog::TakeResult() {
  const LOGFONTW& chosen = m_platformFont;
  m_font.lfHeight = chosen.lfHeight;
  m_font.lfUnderline = Effect(m_font.lfUnderline, chosen.lfUnderline);
  m_font.lfStrikeOut = Effect(m_font.lfStrikeOut, chosen.lfStrikeOut);
  if (m_bFacePicked || m_bStylePicked) {
    m_font.lfWeight = chosen.lfWeight;
    m_font.lfItalic = Effect(m_font.lfItalic, chosen.lfItalic);
  }
  const std::optional<std::string> face =
      m_bFacePicked ? NarrowFace(chosen.lfFaceName) : std::nullopt;
  if (face) {
    std::ranges::fill(m_font.lfFaceName, '\0');
    face->copy(std::begin(m_font.lfFaceName), LF_FACESIZE - 1);
    m_font.lfPitchAndFamily = chosen.lfPitchAndFamily;
    // A template without the platform's list of character sets gives none back.
    m_font.lfCharSet = CharSetOf(chosen.lfFaceName, m_font.lfCharSet);
  }
}

void CFontDialog::OnCancel() {
  EndDialog(IDCANCEL);
}

void CFontDialog::EndDialog(INT_PTR nResult) {
  // The platform's own way out: it has no other that works with its loop.
  if (m_hWnd != nullptr && nResult != IDOK) {
    TellPlatform(IDCANCEL, BN_CLICKED);
  }
}
