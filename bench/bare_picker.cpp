#include "bench/bare_picker.h"

#include "res/ids.h"

namespace quorvel::bench {

namespace {

constexpr int kMarkerWidth = 3;
/// Clear of the dialog in the middle of the screen.
constexpr POINT kCorner{20, 700};

HMODULE Product() {
  return ::GetModuleHandleW(L"Quorvel.dll");
}

COLORREF ColorOf(const RgbColour& colour) {
  return RGB(colour.red, colour.green, colour.blue);
}

}  // namespace

BarePicker::BarePicker(HWND owner, const RgbColour& colour)
    : m_context(Product()),
      m_colour(colour),
      m_values(ValuesOfColour(colour)),
      m_pen(::CreatePen(PS_SOLID, kMarkerWidth, RGB(0, 0, 0))) {
  m_context.Run([&] {
    m_window.reset(::CreateDialogParamW(Product(), MAKEINTRESOURCEW(IDD_COLOUR_PICKER), owner,
                                        Proc, reinterpret_cast<LPARAM>(this)));
  });
  CRect field;
  ::GetClientRect(::GetDlgItem(Window(), IDC_PICKER_FIELD), &field);
  m_picture = std::make_unique<ReadyPicture>(OwnedBitmap(static_cast<HBITMAP>(
      ::LoadImageW(Product(), MAKEINTRESOURCEW(IDB_HUE_SATURATION), IMAGE_BITMAP, field.Width(),
                   field.Height(), LR_DEFAULTCOLOR))));
  ShowFirst();
  ::SetWindowPos(Window(), nullptr, kCorner.x, kCorner.y, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
  ::UpdateWindow(Window());
}

void BarePicker::ShowFirst() {
  for (const int bar : {IDC_PICKER_RED_BAR, IDC_PICKER_GREEN_BAR, IDC_PICKER_BLUE_BAR,
                        IDC_PICKER_HUE_SPIN, IDC_PICKER_SATURATION_SPIN}) {
    ::SetScrollRange(::GetDlgItem(Window(), bar), SB_CTL, 0, kHighestPosition, FALSE);
  }
  constexpr int kUnlike = -1;
  Note(IDC_PICKER_RED, IDC_PICKER_RED_BAR, kUnlike, m_colour.red);
  Note(IDC_PICKER_GREEN, IDC_PICKER_GREEN_BAR, kUnlike, m_colour.green);
  Note(IDC_PICKER_BLUE, IDC_PICKER_BLUE_BAR, kUnlike, m_colour.blue);
  Note(IDC_PICKER_HUE, IDC_PICKER_HUE_SPIN, kUnlike, m_values.hue);
  Note(IDC_PICKER_SATURATION, IDC_PICKER_SATURATION_SPIN, kUnlike, m_values.saturation);
  Apply();
}

void BarePicker::Note(int editId, int barId, int before, int now) {
  if (now != before) {
    m_texts.emplace_back(editId, std::to_wstring(now));
    m_positions.emplace_back(barId, now);
  }
}

void BarePicker::Prepare(const CPoint& point, const CSize& field) {
  const FieldColour picked = ColourAtPoint(point, field, m_values.brightness);
  m_texts.clear();
  m_positions.clear();
  Note(IDC_PICKER_RED, IDC_PICKER_RED_BAR, m_colour.red, picked.colour.red);
  Note(IDC_PICKER_GREEN, IDC_PICKER_GREEN_BAR, m_colour.green, picked.colour.green);
  Note(IDC_PICKER_BLUE, IDC_PICKER_BLUE_BAR, m_colour.blue, picked.colour.blue);
  Note(IDC_PICKER_HUE, IDC_PICKER_HUE_SPIN, m_values.hue, picked.hue);
  Note(IDC_PICKER_SATURATION, IDC_PICKER_SATURATION_SPIN, m_values.saturation, picked.saturation);
  m_colour = picked.colour;
  m_values.hue = picked.hue;
  m_values.saturation = picked.saturation;
  m_strokes = MarkerStrokes(point, field);
  m_bands = BarBands(PureColour(picked.hue, picked.saturation));
}

INT_PTR CALLBACK BarePicker::Proc(HWND window, UINT message, WPARAM /*wParam*/, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    ::SetWindowLongPtrW(window, DWLP_USER, lParam);
    return TRUE;
  }
  const auto* const picker =
      reinterpret_cast<const BarePicker*>(::GetWindowLongPtrW(window, DWLP_USER));
  if (picker == nullptr) {
    return FALSE;
  }
  switch (message) {
    case WM_MOUSEMOVE:
      picker->Apply();
      return TRUE;
    case WM_DRAWITEM:
      picker->Draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
      return TRUE;
    default:
      return FALSE;
  }
}

void BarePicker::Apply() const {
  for (const auto& [id, position] : m_positions) {
    ::SetScrollPos(::GetDlgItem(Window(), id), SB_CTL, position, TRUE);
  }
  for (const auto& [id, text] : m_texts) {
    ::SetDlgItemTextW(Window(), id, text.c_str());
  }
  for (const int id : {IDC_PICKER_SWATCH, IDC_PICKER_FIELD, IDC_PICKER_BAR}) {
    ::InvalidateRect(::GetDlgItem(Window(), id), nullptr, FALSE);
  }
}

void BarePicker::Draw(const DRAWITEMSTRUCT& item) const {
  const CRect rect(item.rcItem);
  if (item.CtlID == IDC_PICKER_SWATCH) {
    FillFramed(item.hDC, rect, ColorOf(m_colour));
  } else if (item.CtlID == IDC_PICKER_FIELD) {
    ::BitBlt(item.hDC, 0, 0, rect.Width(), rect.Height(), m_picture->Handle(), 0, 0, SRCCOPY);
    const SelectedObject pen(item.hDC, m_pen.get());
    for (const Segment& stroke : m_strokes) {
      ::MoveToEx(item.hDC, stroke.from.x, stroke.from.y, nullptr);
      ::LineTo(item.hDC, stroke.to.x, stroke.to.y);
    }
  } else {
    const int height = BandHeight(rect.Height());
    int top = rect.top;
    for (const RgbColour& band : m_bands) {
      FillSolid(item.hDC, {rect.left, top, rect.right, top + height}, ColorOf(band));
      top += height;
    }
    FillSolid(item.hDC, {rect.left, top, rect.right, rect.bottom}, ::GetSysColor(COLOR_BTNFACE));
  }
}

}  // namespace quorvel::bench
