#include "gallery/gallery_window.h"

#include "driver/controls.h"
#include "gallery/resource.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace quorvel::gallery {

namespace {

constexpr const wchar_t* kClassName = L"QuorvelGallery";
constexpr int kMousePickId = 100;
constexpr int kLogLabelId = 101;
constexpr int kLogId = 102;
/// The first exhibit's button; the others follow.
constexpr int kFirstButtonId = 1000;
/// The first exhibit's value; the others follow.
constexpr int kFirstValueId = 2000;
/// That of the first exhibit, if its value has one; the others follow.
constexpr int kFirstPictureId = 3000;
// In lines of text.
constexpr int kRowLines = 2;
constexpr int kPreviewColumns = 20;

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
  CreateControls();
  MeasureLabels();
  LayOut();
  ShowWindow(Handle(), SW_SHOW);
  SetFocus(m_rows.front().button);
}

void GalleryWindow::AllowMousePick(bool allow) {
  SendMessageW(m_mousePick, BM_SETCHECK, allow ? BST_CHECKED : BST_UNCHECKED, 0);
}

RunReport GalleryWindow::Run(std::size_t index) {
  const Exhibit& exhibit = m_exhibits[index];
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
  // The return key comes as IDOK and means the button with the focus.
  const int buttonId = id == IDOK ? GetDlgCtrlID(GetFocus()) : id;
  const int index = buttonId - kFirstButtonId;
  if (notification != BN_CLICKED || index < 0 || index >= static_cast<int>(m_exhibits.size())) {
    return false;
  }
  Run(static_cast<std::size_t>(index));
  return true;
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
  for (std::size_t index = 0; index < m_exhibits.size(); ++index) {
    const int offset = static_cast<int>(index);
    const Exhibit& exhibit = m_exhibits[index];
    const DWORD valueStyle = exhibit.preview ? SS_LEFT : SS_CENTERIMAGE | SS_ENDELLIPSIS;
    m_rows.push_back({
        CreateControl(L"BUTTON", exhibit.label, BS_PUSHBUTTON | WS_TABSTOP,
                      kFirstButtonId + offset),
        CreateControl(L"STATIC", exhibit.value(), SS_NOPREFIX | valueStyle, kFirstValueId + offset),
        PictureWidth(exhibit) > 0
            ? CreateControl(L"STATIC", L"", SS_OWNERDRAW, kFirstPictureId + offset)
            : nullptr,
    });
  }
  m_mousePick =
      CreateControl(L"BUTTON", L"マウス指定を許す(&M)", BS_AUTOCHECKBOX | WS_TABSTOP, kMousePickId);
  m_logLabel = CreateControl(L"STATIC", L"記録(&L):", SS_LEFT, kLogLabelId);
  m_log = CreateControl(L"LISTBOX", L"",
                        LBS_NOINTEGRALHEIGHT | WS_BORDER | WS_VSCROLL | WS_HSCROLL | WS_TABSTOP,
                        kLogId);
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
    m_buttonWidth = std::max(m_buttonWidth, TextWidth(exhibit.label) + 2 * m_lineHeight);
  }
}

void GalleryWindow::LayOut() {
  RECT client{};
  GetClientRect(Handle(), &client);
  const int gap = m_lineHeight / 2;
  const int rowHeight = kRowLines * m_lineHeight;
  const int width = std::max(0, static_cast<int>(client.right) - 2 * gap);
  int top = gap;
  for (std::size_t index = 0; index < m_rows.size(); ++index) {
    const Row& row = m_rows[index];
    const Exhibit& exhibit = m_exhibits[index];
    const int height = HeightOfRow(exhibit);
    MoveWindow(row.button, gap, top + (height - rowHeight) / 2, m_buttonWidth, rowHeight, TRUE);
    int left = 2 * gap + m_buttonWidth;
    if (row.picture != nullptr) {
      const int inset = exhibit.preview ? 0 : gap;
      MoveWindow(row.picture, left, top + inset, PictureWidth(exhibit), height - 2 * inset, TRUE);
      left += PictureWidth(exhibit) + gap;
    }
    // A text of many lines keeps away from that of the next row.
    const int valueHeight = height - (exhibit.preview ? m_lineHeight : 0);
    MoveWindow(row.value, left, top, std::max(0, width + gap - left), valueHeight, TRUE);
    top += height + gap / 2;
  }
  MoveWindow(m_mousePick, gap, top, width, rowHeight, TRUE);
  top += rowHeight;
  MoveWindow(m_logLabel, gap, top, width, m_lineHeight, TRUE);
  top += m_lineHeight + gap / 2;
  MoveWindow(m_log, gap, top, width, std::max(0, static_cast<int>(client.bottom) - gap - top),
             TRUE);
}

int GalleryWindow::HeightOfRow(const Exhibit& exhibit) const {
  return (exhibit.preview ? exhibit.previewLines : kRowLines) * m_lineHeight;
}

/// 0 where the exhibit has no picture.
int GalleryWindow::PictureWidth(const Exhibit& exhibit) const {
  const int columns = exhibit.preview ? kPreviewColumns : exhibit.color ? kRowLines : 0;
  return columns * std::max(m_lineHeight, 1);
}

void GalleryWindow::LimitSize(MINMAXINFO& info) const {
  // The rows, the option and a log of a few lines, with the buttons beside some text.
  constexpr int kOtherLines = 12;
  int height = kOtherLines * m_lineHeight;
  int picture = 0;
  for (const Exhibit& exhibit : m_exhibits) {
    height += HeightOfRow(exhibit) + m_lineHeight / 2;
    picture = std::max(picture, PictureWidth(exhibit));
  }
  info.ptMinTrackSize = {2 * m_buttonWidth + picture, height};
}

void GalleryWindow::ShowValue(std::size_t index) {
  const Row& row = m_rows[index];
  SetWindowTextW(row.value, m_exhibits[index].value().c_str());
  if (row.picture != nullptr) {
    InvalidateRect(row.picture, nullptr, FALSE);
  }
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
