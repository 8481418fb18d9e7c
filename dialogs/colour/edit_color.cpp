#include "dialogs/colour/edit_color.h"

#include "framework/code_page.h"
#include "framework/control_names.h"
#include "framework/number_text.h"
#include "framework/wide_font.h"
#include "kivfcl/display_rate.h"

#include <cmath>
#include <optional>

using quorvel::ColorModel;
using quorvel::kColorModelTexts;
using quorvel::kMostComponents;

namespace {

constexpr int kLastRow = kMostComponents - 1;
constexpr UINT kNoId = 0xFFFF;

}  // namespace

BEGIN_MESSAGE_MAP(CEditColor, CDialog)
  ON_WM_PAINT(&CEditColor::OnPaint)
  ON_CBN_SELCHANGE(kColorModelId, &CEditColor::OnModelSelected)
  ON_NOTIFY_RANGE(KIVSLIDER_MOVING, kFirstColorSliderId, kFirstColorSliderId + kLastRow,
                  &CEditColor::OnSlider)
  ON_NOTIFY_RANGE(KIVSLIDER_MOVED, kFirstColorSliderId, kFirstColorSliderId + kLastRow,
                  &CEditColor::OnSlider)
  ON_CONTROL_RANGE(EN_KILLFOCUS, kFirstColorValueId, kFirstColorValueId + kLastRow,
                   &CEditColor::OnEditLeft)
END_MESSAGE_MAP()

CEditColor::CEditColor(CKivSysEnv* env, COLORREF color, CWnd* parent)
    : CDialog(IDD_COLOUR_EDIT_PAGE, parent),
      m_pSysEnv(env),
      m_color(color),
      m_edited(ColorModel::kRgb, color) {}

BOOL CEditColor::OnInitDialog() {
  CDialog::OnInitDialog();
  CreateControls();
  EnterModel(ColorModel::kRgb);
  return TRUE;
}

void CEditColor::CreateControls() {
  const double rate = __KivFcl_GetDispRate();
  m_font.reset();
  if (m_pSysEnv != nullptr) {
    LOGFONTA font = m_pSysEnv->GetCtrlFont();
    font.lfHeight = std::lround(font.lfHeight * rate);
    const LOGFONTW wide = quorvel::WideLogFont(font);
    m_font.reset(::CreateFontIndirectW(&wide));
  }
  m_layout = quorvel::LayOutEditColor(GetDlgItemRect(IDC_COLOUR_PLACE), rate);
  m_cmbModel.CreateChild(L"ComboBox", 0, CBS_DROPDOWNLIST | WS_TABSTOP | WS_VISIBLE,
                         m_layout.model, this, kColorModelId);
  SetControlFont(m_cmbModel);
  quorvel::NameControl(m_cmbModel.m_hWnd, L"色の表し方");
  m_cmbModel.ResetContent();
  for (const quorvel::ColorModelTexts& texts : kColorModelTexts) {
    m_cmbModel.AddString(texts.name);
  }
  for (int row = 0; row < kMostComponents; ++row) {
    CreateRow(row, m_layout.rows[static_cast<std::size_t>(row)]);
  }
}

void CEditColor::CreateRow(int row, const quorvel::ColorComponentRow& place) {
  auto& [label, slider, edit] = RowAt(row);
  label.CreateChild(L"Static", 0, SS_CENTERIMAGE | SS_NOPREFIX, place.label, this, kNoId);
  SetControlFont(label);
  slider.Create(WS_VISIBLE | WS_TABSTOP, place.slider, this, static_cast<UINT>(IdOfSlider(row)),
                KIVSLIDER_HORIZONTAL);
  edit.CreateChild(L"Edit", 0, WS_BORDER | WS_TABSTOP | ES_NUMBER, place.edit, this,
                   static_cast<UINT>(IdOfEdit(row)));
  // More than any number here needs. A field that does not scroll measures what is pasted digit by
  // digit, on some platforms for minutes.
  constexpr WPARAM kMostDigits = 9;
  ::SendMessageW(edit.m_hWnd, EM_SETLIMITTEXT, kMostDigits, 0);
  SetControlFont(edit);
}

void CEditColor::SetControlFont(const CWnd& control) const {
  const auto font = m_font != nullptr
                        ? reinterpret_cast<WPARAM>(m_font.get())
                        : static_cast<WPARAM>(::SendMessageW(m_hWnd, WM_GETFONT, 0, 0));
  ::SendMessageW(control.m_hWnd, WM_SETFONT, font, FALSE);
}

int CEditColor::GetNeededHeight() const { return m_layout.bottom; }

void CEditColor::SetColor(COLORREF color) {
  m_color = color;
  EnterModel(m_edited.Model());
  InvalidateRect(GetDlgItemRect(IDC_COLOUR_SWATCH));
}

void CEditColor::EnterModel(ColorModel model) {
  m_edited = {model, m_color};
  m_cmbModel.SetCurSel(static_cast<int>(model));
  const auto& names = kColorModelTexts[static_cast<std::size_t>(model)].components;
  for (int row = 0; row < kMostComponents; ++row) {
    auto& [label, slider, edit] = RowAt(row);
    const int show = row < m_edited.Count() ? SW_SHOWNA : SW_HIDE;
    for (const HWND control : {label.m_hWnd, slider.m_hWnd, edit.m_hWnd}) {
      ::ShowWindow(control, show);
    }
    const char* const name = names[static_cast<std::size_t>(row)];
    label.SetWindowText(name);
    for (const HWND control : {slider.m_hWnd, edit.m_hWnd}) {
      quorvel::NameControl(control, quorvel::WideFromCodePage(name).c_str());
    }
    slider.SetRange(0, m_edited.Highest(row));
  }
  ShowComponents();
}

void CEditColor::ShowComponents() {
  for (int row = 0; row < m_edited.Count(); ++row) {
    const int value = m_edited.Component(row);
    auto& [label, slider, edit] = RowAt(row);
    if (!ShowsNumber(IdOfEdit(row), value)) {
      SetDlgItemNumber(IdOfEdit(row), value);
    }
    slider.SetPos(value);
    const auto [start, end] = m_edited.Gradient(row);
    slider.SetGradation(static_cast<int>(m_edited.Model()), start, end);
  }
}

void CEditColor::ApplyComponent(int row, int value) {
  m_edited.Set(row, value);
  m_color = m_edited.Color();
  ShowComponents();
  InvalidateRect(GetDlgItemRect(IDC_COLOUR_SWATCH));
}

void CEditColor::OnModelSelected() {
  const int selected = m_cmbModel.GetCurSel();
  if (selected >= 0) {
    EnterModel(static_cast<ColorModel>(selected));
  }
}

void CEditColor::OnSlider(const NMHDR& notification) {
  ApplyComponent(static_cast<int>(notification.idFrom) - kFirstColorSliderId,
                 reinterpret_cast<const NMKIVSLIDER&>(notification).nPos);
}

void CEditColor::OnEditLeft(UINT id) {
  const int row = static_cast<int>(id) - kFirstColorValueId;
  const std::optional<int> typed =
      quorvel::ParseInteger(GetDlgItemText(static_cast<int>(id)).View());
  if (typed && *typed != m_edited.Component(row)) {
    ApplyComponent(row, *typed);
  } else {
    ShowComponents();  // left empty, or written in another way: the field tells its value again
  }
}

void CEditColor::TakeTyped() {
  const HWND focus = ::GetFocus();
  for (int row = 0; row < kMostComponents; ++row) {
    if (focus != nullptr && focus == RowAt(row).edit.m_hWnd) {
      OnEditLeft(static_cast<UINT>(IdOfEdit(row)));
    }
  }
}

void CEditColor::OnPaint() {
  const CPaintDC paint(this);
  quorvel::FillFramed(paint.Handle(), GetDlgItemRect(IDC_COLOUR_SWATCH), m_color);
}
