#include "gallery/gallery_window.h"

#include "driver/controls.h"
#include "gallery/resource.h"
#include "gallery/settings.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <utility>

namespace quorvel::gallery {

namespace {

constexpr const wchar_t* kClassName = L"QuorvelGallery";
constexpr int kMousePickId = 100;
constexpr int kLogLabelId = 101;
constexpr int kLogId = 102;
constexpr int kGroupsId = 103;
constexpr int kResetId = 104;
/// The first exhibit's button; the others follow.
constexpr int kFirstButtonId = 1000;
/// The first exhibit's value; the others follow.
constexpr int kFirstValueId = 2000;
/// That of the first exhibit, if its value has one; the others follow.
constexpr int kFirstPictureId = 3000;
/// The first exhibit's entry; the others follow.
constexpr int kFirstEntryId = 4000;
// In lines of text.
constexpr int kRowLines = 2;
constexpr int kLogLines = 7;

/// In the order of Group.
constexpr std::array kGroupNames{L"図面", L"色", L"文字", L"帳票", L"帳票の部品"};
/// Of the page, among the settings that are kept.
constexpr const wchar_t* kShownPage = L"shown-page";

/// Keeps a window from being drawn step by step while it lives.
class QuietWindow {
public:
  explicit QuietWindow(HWND window) : m_window(window) {
    SendMessageW(m_window, WM_SETREDRAW, FALSE, 0);
  }
  ~QuietWindow() {
    SendMessageW(m_window, WM_SETREDRAW, TRUE, 0);
    RedrawWindow(m_window, nullptr, nullptr, RDW_ERASE | RDW_INVALIDATE | RDW_ALLCHILDREN);
  }
  QuietWindow(const QuietWindow&) = delete;
  QuietWindow& operator=(const QuietWindow&) = delete;

private:
  HWND m_window;
};

/// The screen's device context with a control's font in it.
class TextMeasure {
public:
  explicit TextMeasure(HWND control) : m_control(control), m_dc(GetDC(control)) {
    auto* const font = reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0));
    m_previous = SelectObject(m_dc, font);
  }
  ~TextMeasure() {
    SelectObject(m_dc, m_previous);
    ReleaseDC(m_control, m_dc);
  }
  TextMeasure(const TextMeasure&) = delete;
  TextMeasure& operator=(const TextMeasure&) = delete;

  SIZE Extent(const std::wstring& text) const {
    SIZE extent{};
    GetTextExtentPoint32W(m_dc, text.c_str(), static_cast<int>(text.size()), &extent);
    return extent;
  }

private:
  HWND m_control;
  HDC m_dc;
  HGDIOBJ m_previous = nullptr;
};

HINSTANCE Instance() {
  return GetModuleHandleW(nullptr);
}

void RegisterGalleryClass() {
  WNDCLASSW windowClass{};
  // The dialog procedure moves the focus and keeps it while other windows are active.
  windowClass.lpfnWndProc = DefDlgProcW;
  windowClass.cbWndExtra = DLGWINDOWEXTRA;
  windowClass.hInstance = Instance();
  windowClass.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
  windowClass.hIcon = LoadIconW(nullptr, reinterpret_cast<LPCWSTR>(IDI_APPLICATION));
  windowClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  windowClass.lpszClassName = kClassName;
  if (RegisterClassW(&windowClass) == 0 && GetLastError() != ERROR_CLASS_ALREADY_EXISTS) {
    throw std::runtime_error("the window class could not be registered");
  }
}

}  // namespace

GalleryWindow::GalleryWindow(std::vector<Exhibit> exhibits) : m_exhibits(std::move(exhibits)) {
  RegisterGalleryClass();
  m_window.reset(
      CreateDialogParamW(Instance(), MAKEINTRESOURCEW(IDD_GALLERY), nullptr, OnMessage, 0));
  if (m_window == nullptr) {
    throw std::runtime_error("the window could not be created");
  }
  SetWindowLongPtrW(Handle(), DWLP_USER, reinterpret_cast<LONG_PTR>(this));
  for (const Exhibit& exhibit : m_exhibits) {
    m_initial.push_back(exhibit.kept.bytes());
  }
  CreateControls();
  MeasureLabels();
  ShowGroup(m_group);
  ShowWindow(Handle(), SW_SHOW);
  SetFocus(m_groups);
}

void GalleryWindow::LoadSettings() {
  for (std::size_t index = 0; index < m_exhibits.size(); ++index) {
    const Exhibit& exhibit = m_exhibits[index];
    const std::wstring name(exhibit.name.begin(), exhibit.name.end());
    if (const std::optional<Bytes> kept = LoadSetting(name)) {
      exhibit.kept.restore(*kept);
      ShowValue(index);
    }
  }
  std::uint32_t page = 0;
  if (const std::optional<Bytes> kept = LoadSetting(kShownPage);
      kept && ByteReader(*kept).Get(page) && page < kGroupNames.size()) {
    ShowGroup(static_cast<Group>(page));
  }
}

void GalleryWindow::SaveSettings() const {
  for (const Exhibit& exhibit : m_exhibits) {
    SaveSetting(std::wstring(exhibit.name.begin(), exhibit.name.end()), exhibit.kept.bytes());
  }
  SaveSetting(kShownPage, ByteWriter().Put(static_cast<std::uint32_t>(m_group)).Written());
}

void GalleryWindow::ShowGroup(Group group) {
  const QuietWindow quiet(Handle());
  m_group = group;
  SendMessageW(m_groups, LB_SETCURSEL, static_cast<WPARAM>(group), 0);
  for (std::size_t index = 0; index < m_rows.size(); ++index) {
    const Row& row = m_rows[index];
    const int show = m_exhibits[index].group == group ? SW_SHOWNA : SW_HIDE;
    for (const HWND control : {row.button, row.value, row.entry, row.picture}) {
      if (control != nullptr) {
        ShowWindow(control, show);
      }
    }
  }
  ShowWindow(m_mousePick, group == Group::kDrawing ? SW_SHOWNA : SW_HIDE);
  LayOut();
}

void GalleryWindow::AllowMousePick(bool allow) {
  SendMessageW(m_mousePick, BM_SETCHECK, allow ? BST_CHECKED : BST_UNCHECKED, 0);
}

RunReport GalleryWindow::Run(std::size_t index) {
  const Exhibit& exhibit = m_exhibits[index];
  if (exhibit.group != m_group) {
    ShowGroup(exhibit.group);
  }
  const std::wstring before = exhibit.value();
  const RunOptions options{.allowMousePick =
                               SendMessageW(m_mousePick, BM_GETCHECK, 0, 0) == BST_CHECKED};
  const Outcome outcome = exhibit.run(options);
  RunReport report{outcome, exhibit.value(), {}};
  report.line = exhibit.entry + L" in: " + before + L" -> " + outcome + L", " + report.value;
  ShowValue(index);
  Log(report.line);
  return report;
}

void GalleryWindow::RunMessageLoop() {
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (IsDialogMessageW(Handle(), &message) == FALSE) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
  }
}

INT_PTR CALLBACK GalleryWindow::OnMessage(HWND window, UINT message, WPARAM wParam,
                                          LPARAM lParam) noexcept {
  auto* gallery = reinterpret_cast<GalleryWindow*>(GetWindowLongPtrW(window, DWLP_USER));
  return gallery == nullptr ? FALSE : gallery->Answer(message, wParam, lParam);
}

INT_PTR GalleryWindow::Answer(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      return OnCommand(LOWORD(wParam), HIWORD(wParam)) ? TRUE : FALSE;
    case WM_DRAWITEM:
      return OnDrawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam)) ? TRUE : FALSE;
    case WM_CTLCOLORSTATIC:
      return OnColorStatic(wParam, lParam);
    case WM_SIZE:
      LayOut();
      return TRUE;
    case WM_GETMINMAXINFO:
      LimitSize(*reinterpret_cast<MINMAXINFO*>(lParam));
      return TRUE;
    case WM_CLOSE:
      m_window.reset();
      return TRUE;
    case WM_DESTROY:
      PostQuitMessage(0);
      return TRUE;
    default:
      return FALSE;
  }
}

bool GalleryWindow::OnCommand(int id, int notification) {
  if (id == kGroupsId) {
    const LRESULT selected = SendMessageW(m_groups, LB_GETCURSEL, 0, 0);
    if (notification == LBN_SELCHANGE && selected != LB_ERR) {
      ShowGroup(static_cast<Group>(selected));
    }
    return true;
  }
  // The return key comes as IDOK and means the button with the focus.
  const int buttonId = id == IDOK ? GetDlgCtrlID(GetFocus()) : id;
  if (notification != BN_CLICKED) {
    return false;
  }
  if (buttonId == IDCANCEL) {
    PostMessageW(Handle(), WM_CLOSE, 0, 0);
    return true;
  }
  if (buttonId == kResetId) {
    ResetValues();
    return true;
  }
  const int index = buttonId - kFirstButtonId;
  if (index < 0 || index >= static_cast<int>(m_exhibits.size())) {
    return false;
  }
  Run(static_cast<std::size_t>(index));
  return true;
}

INT_PTR GalleryWindow::OnColorStatic(WPARAM deviceContext, LPARAM control) {
  const int id = GetDlgCtrlID(reinterpret_cast<HWND>(control));
  if (id < kFirstEntryId) {
    return FALSE;
  }
  auto* const context = reinterpret_cast<HDC>(deviceContext);
  SetTextColor(context, GetSysColor(COLOR_GRAYTEXT));
  SetBkColor(context, GetSysColor(COLOR_BTNFACE));
  return reinterpret_cast<INT_PTR>(GetSysColorBrush(COLOR_BTNFACE));
}

bool GalleryWindow::OnDrawItem(const DRAWITEMSTRUCT& item) const {
  const std::size_t index = item.CtlID - kFirstPictureId;
  if (index >= m_exhibits.size()) {
    return false;
  }
  if (m_exhibits[index].preview) {
    FillRect(item.hDC, &item.rcItem, GetSysColorBrush(COLOR_BTNFACE));
    m_exhibits[index].preview(item.hDC, item.rcItem);
    return true;
  }
  SetDCBrushColor(item.hDC, m_exhibits[index].color());
  FillRect(item.hDC, &item.rcItem, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
  FrameRect(item.hDC, &item.rcItem, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
  return true;
}

void GalleryWindow::CreateControls() {
  m_groups = CreateControl(L"LISTBOX", L"設定の種類",
                           LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_BORDER | WS_TABSTOP, kGroupsId);
  for (const wchar_t* const name : kGroupNames) {
    SendMessageW(m_groups, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name));
  }
  for (std::size_t index = 0; index < m_exhibits.size(); ++index) {
    m_rows.push_back(CreateRow(index));
  }
  m_mousePick = CreateControl(L"BUTTON", L"原点と基準点は画面でも指定できる(&M)",
                              BS_AUTOCHECKBOX | WS_TABSTOP, kMousePickId);
  m_logLabel = CreateControl(L"STATIC", L"呼び出しの記録(&L):", SS_LEFT, kLogLabelId);
  m_log = CreateControl(L"LISTBOX", L"",
                        LBS_NOINTEGRALHEIGHT | WS_BORDER | WS_VSCROLL | WS_HSCROLL | WS_TABSTOP,
                        kLogId);
  m_reset =
      CreateControl(L"BUTTON", L"初期値に戻す(&I)", BS_PUSHBUTTON | WS_TABSTOP, kResetId);
  m_close = CreateControl(L"BUTTON", L"閉じる", BS_PUSHBUTTON | WS_TABSTOP, IDCANCEL);
}

GalleryWindow::Row GalleryWindow::CreateRow(std::size_t index) {
  const int offset = static_cast<int>(index);
  const Exhibit& exhibit = m_exhibits[index];
  const DWORD valueStyle = exhibit.preview ? SS_LEFT : SS_CENTERIMAGE | SS_ENDELLIPSIS;
  return {
      .button = CreateControl(L"BUTTON", exhibit.label, BS_PUSHBUTTON | WS_TABSTOP,
                              kFirstButtonId + offset),
      .value = CreateControl(L"STATIC", exhibit.shown(), SS_NOPREFIX | valueStyle,
                             kFirstValueId + offset),
      .entry = CreateControl(L"STATIC", exhibit.entry,
                             SS_NOPREFIX | SS_CENTERIMAGE | (exhibit.preview ? SS_LEFT : SS_RIGHT),
                             kFirstEntryId + offset),
      .picture = PictureWidth(exhibit) > 0
                     ? CreateControl(L"STATIC", L"", SS_OWNERDRAW, kFirstPictureId + offset)
                     : nullptr,
  };
}

HWND GalleryWindow::CreateControl(const wchar_t* className, const std::wstring& text, DWORD style,
                                  int id) {
  const HWND control = CreateWindowExW(
      0, className, text.c_str(), WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, Handle(),
      reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), Instance(), nullptr);
  if (control == nullptr) {
    throw std::runtime_error("a control could not be created");
  }
  const auto font = static_cast<WPARAM>(SendMessageW(Handle(), WM_GETFONT, 0, 0));
  SendMessageW(control, WM_SETFONT, font, FALSE);
  return control;
}

void GalleryWindow::MeasureLabels() {
  m_lineHeight = static_cast<int>(TextMeasure(m_mousePick).Extent(L"記").cy);
  for (const Exhibit& exhibit : m_exhibits) {
    m_buttonWidth = std::max({m_buttonWidth, TextWidth(exhibit.label) + 2 * m_lineHeight,
                              exhibit.preview ? TextWidth(exhibit.entry) + m_lineHeight : 0});
    m_entryWidth = std::max(m_entryWidth, TextWidth(exhibit.entry));
  }
  for (const wchar_t* const name : kGroupNames) {
    m_groupsWidth = std::max(m_groupsWidth, TextWidth(name) + 2 * m_lineHeight);
  }
}

void GalleryWindow::LayOut() {
  RECT client{};
  GetClientRect(Handle(), &client);
  const int gap = m_lineHeight / 2;
  const int buttonHeight = kRowLines * m_lineHeight;
  const int width = std::max(0, static_cast<int>(client.right) - 2 * gap);
  // The pages are as high as the highest; the log has what is left above the buttons.
  const int buttonsTop = static_cast<int>(client.bottom) - gap - buttonHeight;
  const int right = static_cast<int>(client.right) - gap;
  MoveWindow(m_close, right - m_buttonWidth, buttonsTop, m_buttonWidth, buttonHeight, TRUE);
  MoveWindow(m_reset, right - 2 * m_buttonWidth - gap, buttonsTop, m_buttonWidth, buttonHeight,
             TRUE);
  const int pageBottom = gap + HeightOfHighestPage();
  const int logTop = pageBottom + gap + m_lineHeight;
  MoveWindow(m_groups, gap, gap, m_groupsWidth, pageBottom - gap, TRUE);
  MoveWindow(m_logLabel, gap, pageBottom + gap / 2, width, m_lineHeight, TRUE);
  MoveWindow(m_log, gap, logTop, width, std::max(0, buttonsTop - gap - logTop), TRUE);
  const int left = 2 * gap + m_groupsWidth;
  const int top = LayOutRows(left, gap, right);
  MoveWindow(m_mousePick, left, top, std::max(0, right - left), buttonHeight, TRUE);
}

int GalleryWindow::LayOutRows(int left, int top, int right) const {
  const int gap = m_lineHeight / 2;
  const int buttonHeight = kRowLines * m_lineHeight;
  for (std::size_t index = 0; index < m_rows.size(); ++index) {
    const Row& row = m_rows[index];
    const Exhibit& exhibit = m_exhibits[index];
    if (exhibit.group != m_group) {
      continue;
    }
    const int height = HeightOfRow(exhibit);
    MoveWindow(row.button, left, top, m_buttonWidth, buttonHeight, TRUE);
    int valueLeft = left + gap + m_buttonWidth;
    if (row.picture != nullptr) {
      const int inset = exhibit.preview ? 0 : gap;
      MoveWindow(row.picture, valueLeft, top + inset, PictureWidth(exhibit), height - 2 * inset,
                 TRUE);
      valueLeft += PictureWidth(exhibit) + gap;
    }
    // At the right end of a row; below the button where there is room.
    int valueRight = right;
    if (exhibit.preview) {
      MoveWindow(row.entry, left, top + buttonHeight, m_buttonWidth, 2 * m_lineHeight, TRUE);
    } else {
      valueRight -= m_entryWidth + gap;
      MoveWindow(row.entry, right - m_entryWidth, top, m_entryWidth, buttonHeight, TRUE);
    }
    MoveWindow(row.value, valueLeft, top, std::max(0, valueRight - valueLeft), height, TRUE);
    top += height + gap;
  }
  return top;
}

int GalleryWindow::HeightOfHighestPage() const {
  const int gap = m_lineHeight / 2;
  std::array<int, kGroupNames.size()> heights{};
  for (const Exhibit& exhibit : m_exhibits) {
    heights.at(static_cast<std::size_t>(exhibit.group)) += HeightOfRow(exhibit) + gap;
  }
  heights.front() += kRowLines * m_lineHeight;  // the option
  return *std::ranges::max_element(heights);
}

int GalleryWindow::HeightOfRow(const Exhibit& exhibit) const {
  return (exhibit.preview ? exhibit.previewLines : kRowLines) * m_lineHeight;
}

/// 0 where the exhibit has no picture.
int GalleryWindow::PictureWidth(const Exhibit& exhibit) const {
  const int columns = exhibit.preview ? exhibit.previewColumns : exhibit.color ? kRowLines : 0;
  return columns * std::max(m_lineHeight, 1);
}

void GalleryWindow::LimitSize(MINMAXINFO& info) const {
  // The highest page, a log of a few lines and the buttons, with the values beside them.
  constexpr int kValueColumns = 16;
  int picture = 0;
  for (const Exhibit& exhibit : m_exhibits) {
    picture = std::max(picture, PictureWidth(exhibit));
  }
  RECT smallest{0, 0,
                m_groupsWidth + m_buttonWidth + picture + kValueColumns * m_lineHeight,
                HeightOfHighestPage() + (kLogLines + 2 * kRowLines) * m_lineHeight};
  AdjustWindowRect(&smallest, WS_OVERLAPPEDWINDOW, FALSE);
  info.ptMinTrackSize = {smallest.right - smallest.left, smallest.bottom - smallest.top};
}

void GalleryWindow::ShowValue(std::size_t index) {
  const Row& row = m_rows[index];
  SetWindowTextW(row.value, m_exhibits[index].shown().c_str());
  if (row.picture != nullptr) {
    InvalidateRect(row.picture, nullptr, FALSE);
  }
}

void GalleryWindow::ResetValues() {
  for (std::size_t index = 0; index < m_exhibits.size(); ++index) {
    m_exhibits[index].kept.restore(m_initial[index]);
    ShowValue(index);
  }
  Log(L"初期値に戻しました");
}

void GalleryWindow::Log(const std::wstring& line) {
  const LRESULT index =
      SendMessageW(m_log, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
  SendMessageW(m_log, LB_SETCURSEL, static_cast<WPARAM>(index), 0);
  m_logWidth = std::max(m_logWidth, TextWidth(line) + m_lineHeight);
  SendMessageW(m_log, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(m_logWidth), 0);
}

int GalleryWindow::TextWidth(const std::wstring& text) const {
  return static_cast<int>(TextMeasure(m_mousePick).Extent(text).cx);
}

}  // namespace quorvel::gallery
