#include "dialogs/colour/sel_rgb.h"

#include "framework/control_names.h"
#include "framework/module_state.h"
#include "framework/number_text.h"
#include "kivfcl/display_pixels.h"
#include "kivfcl/display_rate.h"

#include <algorithm>
#include <array>

using quorvel::FieldColour;
using quorvel::kHighestPosition;
using quorvel::PickerValues;
using quorvel::RgbColour;
using quorvel::ScrollCode;

BEGIN_MESSAGE_MAP(CSelRGB, CDialog)
  ON_WM_LBUTTONDOWN(&CSelRGB::OnLButtonDown)
  ON_WM_LBUTTONUP(&CSelRGB::OnLButtonUp)
  ON_WM_MOUSEMOVE(&CSelRGB::OnMouseMove)
  ON_MESSAGE(WM_CAPTURECHANGED, &CSelRGB::OnCaptureChanged)
  ON_WM_HSCROLL(&CSelRGB::OnHScroll)
  ON_WM_VSCROLL(&CSelRGB::OnVScroll)
  ON_MESSAGE(WM_DRAWITEM, &CSelRGB::OnDrawItem)
  ON_MESSAGE(WM_QUERYDRAGICON, &CSelRGB::OnQueryDragIcon)
  ON_CONTROL_RANGE(EN_UPDATE, IDC_PICKER_BRIGHTNESS, IDC_PICKER_RED, &CSelRGB::OnEditUpdate)
  ON_CONTROL_RANGE(EN_KILLFOCUS, IDC_PICKER_BRIGHTNESS, IDC_PICKER_RED, &CSelRGB::OnEditLeft)
END_MESSAGE_MAP()

namespace {

constexpr int kMarkerWidth = 3;
/// A field's digits and its sign fit.
constexpr int kMostDigits = 6;

constexpr std::array kBars{IDC_PICKER_RED_BAR,        IDC_PICKER_GREEN_BAR,
                           IDC_PICKER_BLUE_BAR,       IDC_PICKER_BAR_SCROLL,
                           IDC_PICKER_BRIGHTNESS_SPIN, IDC_PICKER_SATURATION_SPIN,
                           IDC_PICKER_HUE_SPIN};

RgbColour ChannelsOf(COLORREF color) {
  return {GetRValue(color), GetGValue(color), GetBValue(color)};
}

COLORREF ColorOf(const RgbColour& colour) {
  return RGB(static_cast<BYTE>(colour.red), static_cast<BYTE>(colour.green),
             static_cast<BYTE>(colour.blue));
}

}  // namespace

/// The dialog writes into its fields: until the guard dies, their notifications are not heard.
class CSelRGB::Changing {
public:
  explicit Changing(CSelRGB& dialog) : m_dialog(dialog) { m_dialog.m_bSyncEnabled = false; }
  ~Changing() { m_dialog.m_bSyncEnabled = true; }
  Changing(const Changing&) = delete;
  Changing& operator=(const Changing&) = delete;

private:
  CSelRGB& m_dialog;
};

CSelRGB::CSelRGB(COLORREF color, CWnd* parent)
    : CDialog(IDD_COLOUR_PICKER, parent), m_color(color) {}

BOOL CSelRGB::OnInitDialog() {
  CDialog::OnInitDialog();
  m_bDragging = false;
  const CSize size = FieldSize();
  // Made for the field at the standard font; at another it is stretched to the field.
  m_bmpField.reset(static_cast<HBITMAP>(
      ::LoadImageW(AfxGetResourceHandle(), MAKEINTRESOURCEW(IDB_HUE_SATURATION), IMAGE_BITMAP,
                   size.cx, size.cy, LR_DEFAULTCOLOR)));

  NameFields();
  const Changing changing(*this);
  for (const int bar : kBars) {
    ::SetScrollRange(GetDlgItem(bar), SB_CTL, 0, kHighestPosition, FALSE);
  }
  for (int id = IDC_PICKER_BRIGHTNESS; id <= IDC_PICKER_RED; ++id) {
    ::SendMessageW(GetDlgItem(id), EM_SETLIMITTEXT, kMostDigits, 0);
  }
  const RgbColour colour = ChannelsOf(m_color);
  const PickerValues values = quorvel::ValuesOfColour(colour);
  ShowChannels(colour);
  ShowHue(values.hue);
  ShowSaturation(values.saturation);
  ShowBrightness(values.brightness);
  m_ptMarker = quorvel::MarkerOfValues(values, size);
  return TRUE;
}

void CSelRGB::NameFields() const {
  quorvel::NameControls(m_hWnd, {{IDC_PICKER_FIELD, L"色合いと鮮やかさ"},
                                 {IDC_PICKER_BAR, L"明るさの帯"},
                                 {IDC_PICKER_BAR_SCROLL, L"明るさの調整"},
                                 {IDC_PICKER_SWATCH, L"現在の色の見本"},
                                 {IDC_PICKER_HUE_SPIN, L"色合いの調整"},
                                 {IDC_PICKER_SATURATION_SPIN, L"鮮やかさの調整"},
                                 {IDC_PICKER_BRIGHTNESS_SPIN, L"明るさの調整"}});
}

void CSelRGB::OnOK() {
  m_color = ColorOf(ColourOfBars());
  CDialog::OnOK();
}

int& CSelRGB::LastOf(int editId) {
  switch (editId) {
    case IDC_PICKER_RED:
      return m_last.colour.red;
    case IDC_PICKER_GREEN:
      return m_last.colour.green;
    case IDC_PICKER_BLUE:
      return m_last.colour.blue;
    case IDC_PICKER_HUE:
      return m_last.picker.hue;
    case IDC_PICKER_SATURATION:
      return m_last.picker.saturation;
    default:
      return m_last.picker.brightness;
  }
}

int CSelRGB::ShownIn(int editId) {
  return quorvel::ParseInteger(GetDlgItemText(editId).View()).value_or(LastOf(editId));
}

int CSelRGB::PositionOf(int barId) const { return ::GetScrollPos(GetDlgItem(barId), SB_CTL); }

RgbColour CSelRGB::ColourOfBars() const {
  return {PositionOf(IDC_PICKER_RED_BAR), PositionOf(IDC_PICKER_GREEN_BAR),
          PositionOf(IDC_PICKER_BLUE_BAR)};
}

CSize CSelRGB::FieldSize() const {
  CRect client;
  ::GetClientRect(GetDlgItem(IDC_PICKER_FIELD), &client);
  return {std::max(client.Width(), 1), std::max(client.Height(), 1)};
}

CPoint CSelRGB::FieldCorner() const {
  POINT corner{0, 0};
  ::MapWindowPoints(GetDlgItem(IDC_PICKER_FIELD), m_hWnd, &corner, 1);
  return corner;
}

// What did not change is not written: a field that is written again loses its selection, and every
// write is painted.
void CSelRGB::ShowNumber(int editId, int value) {
  if (ShownIn(editId) != value || ::GetWindowTextLengthW(GetDlgItem(editId)) == 0) {
    SetDlgItemNumber(editId, value);
  }
  LastOf(editId) = value;
}

void CSelRGB::ShowChannels(const RgbColour& colour) {
  ::SetScrollPos(GetDlgItem(IDC_PICKER_RED_BAR), SB_CTL, colour.red, TRUE);
  ::SetScrollPos(GetDlgItem(IDC_PICKER_GREEN_BAR), SB_CTL, colour.green, TRUE);
  ::SetScrollPos(GetDlgItem(IDC_PICKER_BLUE_BAR), SB_CTL, colour.blue, TRUE);
  ShowNumber(IDC_PICKER_RED, colour.red);
  ShowNumber(IDC_PICKER_GREEN, colour.green);
  ShowNumber(IDC_PICKER_BLUE, colour.blue);
}

void CSelRGB::ShowHue(int hue) {
  ::SetScrollPos(GetDlgItem(IDC_PICKER_HUE_SPIN), SB_CTL, hue, TRUE);
  ShowNumber(IDC_PICKER_HUE, hue);
}

void CSelRGB::ShowSaturation(int saturation) {
  ::SetScrollPos(GetDlgItem(IDC_PICKER_SATURATION_SPIN), SB_CTL, saturation, TRUE);
  ShowNumber(IDC_PICKER_SATURATION, saturation);
}

void CSelRGB::ShowBrightness(int brightness) {
  ::SetScrollPos(GetDlgItem(IDC_PICKER_BRIGHTNESS_SPIN), SB_CTL, brightness, TRUE);
  ::SetScrollPos(GetDlgItem(IDC_PICKER_BAR_SCROLL), SB_CTL,
                 quorvel::BarPositionOfBrightness(brightness), TRUE);
  ShowNumber(IDC_PICKER_BRIGHTNESS, brightness);
}

void CSelRGB::Repaint(int controlId) const {
  ::RedrawWindow(GetDlgItem(controlId), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
}

void CSelRGB::RepaintAll() const {
  Repaint(IDC_PICKER_SWATCH);
  Repaint(IDC_PICKER_FIELD);
  Repaint(IDC_PICKER_BAR);
}

void CSelRGB::OnLButtonDown(UINT /*keys*/, CPoint /*point*/) {
  m_bDragging = true;
  ::SetCapture(m_hWnd);
}

void CSelRGB::OnLButtonUp(UINT /*keys*/, CPoint point) {
  if (m_bDragging) {
    m_bDragging = false;
    ::ReleaseCapture();
    ApplyPoint(point);
  }
}

void CSelRGB::OnMouseMove(UINT /*keys*/, CPoint point) {
  if (m_bDragging) {
    ApplyPoint(point);
  }
}

LRESULT CSelRGB::OnCaptureChanged(WPARAM wParam, LPARAM lParam) {
  m_bDragging = false;
  return Default(WM_CAPTURECHANGED, wParam, lParam);
}

/// Takes a point of the dialog; nothing happens outside the field. The brightness stays.
void CSelRGB::ApplyPoint(const CPoint& point) {
  const CSize size = FieldSize();
  const std::optional<CPoint> inField = quorvel::PointInField(point, FieldCorner(), size);
  if (!inField) {
    return;
  }
  m_ptMarker = *inField;
  const FieldColour picked =
      quorvel::ColourAtPoint(m_ptMarker, size, ShownIn(IDC_PICKER_BRIGHTNESS));
  const Changing changing(*this);
  ShowChannels(picked.colour);
  ShowHue(picked.hue);
  ShowSaturation(picked.saturation);
  RepaintAll();
}

void CSelRGB::ApplyHue(int hue) {
  const CSize size = FieldSize();
  const Changing changing(*this);
  ShowHue(hue);
  m_ptMarker.x = quorvel::MarkerX(hue, size);
  const FieldColour picked =
      quorvel::ColourAtPoint(m_ptMarker, size, ShownIn(IDC_PICKER_BRIGHTNESS));
  ShowChannels(picked.colour);
  ShowSaturation(picked.saturation);
  RepaintAll();
}

void CSelRGB::ApplySaturation(int saturation) {
  const CSize size = FieldSize();
  const Changing changing(*this);
  ShowSaturation(saturation);
  m_ptMarker.y = quorvel::MarkerYOfSpinner(saturation, size);
  const FieldColour picked =
      quorvel::ColourAtPoint(m_ptMarker, size, ShownIn(IDC_PICKER_BRIGHTNESS));
  ShowChannels(picked.colour);
  ShowHue(picked.hue);
  RepaintAll();
}

void CSelRGB::ApplyBrightness(int brightness) {
  const Changing changing(*this);
  ShowBrightness(brightness);
  ShowChannels(quorvel::ColourOfValues(
      {ShownIn(IDC_PICKER_HUE), ShownIn(IDC_PICKER_SATURATION), brightness}));
  Repaint(IDC_PICKER_SWATCH);
}

void CSelRGB::ApplyColour(const RgbColour& colour) {
  const Changing changing(*this);
  const PickerValues values = quorvel::ValuesOfColour(colour);
  ShowChannels(colour);
  ShowHue(values.hue);
  ShowSaturation(values.saturation);
  ShowBrightness(values.brightness);
  m_ptMarker = quorvel::MarkerOfValues(values, FieldSize());
  RepaintAll();
}

void CSelRGB::OnHScroll(UINT code, int position, HWND bar) {
  const int barId = ::GetDlgCtrlID(bar);
  if (bar == nullptr || (barId != IDC_PICKER_RED_BAR && barId != IDC_PICKER_GREEN_BAR &&
                         barId != IDC_PICKER_BLUE_BAR)) {
    return;
  }
  const std::optional<int> stepped = quorvel::SteppedChannelBar(
      PositionOf(barId), static_cast<ScrollCode>(code), position);
  if (!stepped) {
    return;
  }
  RgbColour colour = ColourOfBars();
  (barId == IDC_PICKER_RED_BAR     ? colour.red
   : barId == IDC_PICKER_GREEN_BAR ? colour.green
                                   : colour.blue) = *stepped;
  ApplyColour(colour);
}

void CSelRGB::OnVScroll(UINT code, int position, HWND bar) {
  const int barId = bar != nullptr ? ::GetDlgCtrlID(bar) : 0;
  const auto scroll = static_cast<ScrollCode>(code);
  if (barId == IDC_PICKER_BAR_SCROLL) {
    const std::optional<int> stepped =
        quorvel::SteppedBrightnessBar(PositionOf(barId), scroll, position);
    if (stepped) {
      ApplyBrightness(quorvel::BrightnessOfBarPosition(*stepped));
    }
    return;
  }
  const std::optional<int> stepped = quorvel::SteppedSpinner(PositionOf(barId), scroll);
  if (!stepped) {
    return;
  }
  switch (barId) {
    case IDC_PICKER_HUE_SPIN:
      ApplyHue(*stepped);
      break;
    case IDC_PICKER_SATURATION_SPIN:
      ApplySaturation(*stepped);
      break;
    case IDC_PICKER_BRIGHTNESS_SPIN:
      ApplyBrightness(*stepped);
      break;
    default:
      break;
  }
}

void CSelRGB::OnEditUpdate(UINT id) {
  const int editId = static_cast<int>(id);
  if (!m_bSyncEnabled) {
    return;
  }
  const std::optional<double> typed = quorvel::ParseNumber(GetDlgItemText(editId).View());
  if (!typed) {
    return;  // emptied while typing: everything stays as it is
  }
  const int value = quorvel::TypedValue(*typed);
  if (!ShowsNumber(editId, value)) {
    const Changing changing(*this);
    SetDlgItemNumber(editId, value);
    const auto end = static_cast<WPARAM>(::GetWindowTextLengthW(GetDlgItem(editId)));
    ::SendMessageW(GetDlgItem(editId), EM_SETSEL, end, static_cast<LPARAM>(end));
  }
  if (value != LastOf(editId)) {
    ApplyEdit(editId, value);
  }
}

void CSelRGB::ApplyEdit(int editId, int value) {
  switch (editId) {
    case IDC_PICKER_HUE:
      ApplyHue(value);
      break;
    case IDC_PICKER_SATURATION:
      ApplySaturation(value);
      break;
    case IDC_PICKER_BRIGHTNESS:
      ApplyBrightness(value);
      break;
    default:
      // The field at hand shows its new value already.
      ApplyColour({ShownIn(IDC_PICKER_RED), ShownIn(IDC_PICKER_GREEN), ShownIn(IDC_PICKER_BLUE)});
      break;
  }
}

/// A field that was left empty shows its value again.
void CSelRGB::OnEditLeft(UINT id) {
  const int editId = static_cast<int>(id);
  const Changing changing(*this);
  ShowNumber(editId, LastOf(editId));
}

BOOL CSelRGB::PreTranslateMessage(MSG* message) {
  const int id = ::GetDlgCtrlID(message->hwnd);
  const bool steps = message->message == WM_KEYDOWN &&
                     (message->wParam == VK_UP || message->wParam == VK_DOWN) &&
                     IDC_PICKER_BRIGHTNESS <= id && id <= IDC_PICKER_RED;
  if (!steps) {
    return CDialog::PreTranslateMessage(message);
  }
  const int step = message->wParam == VK_UP ? 1 : -1;
  const int value = std::clamp(std::min(ShownIn(id), kHighestPosition) + step, 0, kHighestPosition);
  SetDlgItemNumber(id, value);  // as if it had been typed
  ::SendMessageW(message->hwnd, EM_SETSEL, 0, -1);
  return TRUE;
}

// NOLINTNEXTLINE(readability-convert-member-functions-to-static): called as a member by the map
LRESULT CSelRGB::OnQueryDragIcon(WPARAM /*wParam*/, LPARAM /*lParam*/) { return 0; }

LRESULT CSelRGB::OnDrawItem(WPARAM wParam, LPARAM lParam) {
  const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
  const CRect rect(item.rcItem);
  switch (item.CtlID) {
    case IDC_PICKER_SWATCH:
      quorvel::FillFramed(item.hDC, rect, ColorOf(ColourOfBars()));
      return TRUE;
    case IDC_PICKER_FIELD:
      DrawField(item.hDC, rect);
      return TRUE;
    case IDC_PICKER_BAR:
      DrawBar(item.hDC, rect);
      return TRUE;
    default:
      return Default(WM_DRAWITEM, wParam, lParam);
  }
}

void CSelRGB::DrawField(HDC deviceContext, const CRect& rect) const {
  const quorvel::PaintBuffer buffer(deviceContext, rect);
  const quorvel::MemoryDC picture(deviceContext);
  const quorvel::SelectedObject bitmap(picture.Handle(), m_bmpField.get());
  ::BitBlt(buffer.Handle(), rect.left, rect.top, rect.Width(), rect.Height(), picture.Handle(), 0,
           0, SRCCOPY);

  const double rate = __KivFcl_GetDispRate();
  const quorvel::OwnedPen pen(
      ::CreatePen(PS_SOLID, quorvel::PixelsAt(rate, kMarkerWidth), RGB(0, 0, 0)));
  const quorvel::SelectedObject selected(buffer.Handle(), pen.get());
  for (const quorvel::Segment& stroke : quorvel::MarkerStrokes(m_ptMarker, rect.Size(), rate)) {
    ::MoveToEx(buffer.Handle(), stroke.from.x, stroke.from.y, nullptr);
    ::LineTo(buffer.Handle(), stroke.to.x, stroke.to.y);
  }
}

void CSelRGB::DrawBar(HDC deviceContext, const CRect& rect) {
  const RgbColour pure =
      quorvel::PureColour(ShownIn(IDC_PICKER_HUE), ShownIn(IDC_PICKER_SATURATION));
  const int height = quorvel::BandHeight(rect.Height());
  int top = rect.top;
  for (const RgbColour& band : quorvel::BarBands(pure)) {
    quorvel::FillSolid(deviceContext, {rect.left, top, rect.right, top + height}, ColorOf(band));
    top += height;
  }
  // What 32 equal bands leave over.
  quorvel::FillSolid(deviceContext, {rect.left, top, rect.right, rect.bottom},
                     ::GetSysColor(COLOR_BTNFACE));
}
