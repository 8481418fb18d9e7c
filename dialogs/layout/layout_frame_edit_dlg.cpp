#include "dialogs/layout/layout_frame_edit_dlg.h"

#include "dialogs/colour/sel_color.h"
#include "framework/control_names.h"
#include "framework/data_exchange.h"
#include "kivfcl/display_bitmap.h"

using quorvel::FrameLine;

namespace {

constexpr std::array kPresetIds{IDC_FRAME_NONE, IDC_FRAME_OUTER, IDC_FRAME_INNER};
constexpr std::array kPresetPictures{IDB_PRESET_NONE, IDB_PRESET_OUTER, IDB_PRESET_INNER};
// Lines in the order of FrameLine.
constexpr std::array kLineIds{IDC_LINE_TOP,  IDC_LINE_INNER_HORIZONTAL, IDC_LINE_BOTTOM,
                              IDC_LINE_LEFT, IDC_LINE_INNER_VERTICAL,   IDC_LINE_RIGHT};
constexpr std::array kLinePictures{IDB_LINE_TOP,  IDB_LINE_INNER_HORIZONTAL, IDB_LINE_BOTTOM,
                                   IDB_LINE_LEFT, IDB_LINE_INNER_VERTICAL,   IDB_LINE_RIGHT};

// The second one is spelt so.
constexpr std::array kStyles{"規定値", "実線 0.1m", "実線 0.3mm", "実線 0.5mm", "実線 1.0mm"};

}  // namespace

BEGIN_MESSAGE_MAP(CLayoutFrameEditDlg, CKivDialog)
  ON_WM_PAINT(&CLayoutFrameEditDlg::OnPaint)
  ON_BN_CLICKED(IDC_FRAME_NONE, &CLayoutFrameEditDlg::OnNone)
  ON_BN_CLICKED(IDC_FRAME_OUTER, &CLayoutFrameEditDlg::OnOuter)
  ON_BN_CLICKED(IDC_FRAME_INNER, &CLayoutFrameEditDlg::OnInner)
  ON_CONTROL_RANGE(BN_CLICKED, IDC_LINE_TOP, IDC_LINE_RIGHT, &CLayoutFrameEditDlg::OnLine)
  ON_BN_CLICKED(IDC_FRAME_COLOUR, &CLayoutFrameEditDlg::OnColour)
END_MESSAGE_MAP()

CLayoutFrameEditDlg::CLayoutFrameEditDlg(CKivSysEnv* env, CLayoutExPageData* page,
                                         CLayoutExPageData::LISTTYPE block, CPoint* position,
                                         CWnd* parent)
    : CKivDialog(IDD_LAYOUT_FRAME, parent),
      m_pSysEnv(env),
      m_pPage(page),
      m_block(block),
      m_pPosition(position) {}

void CLayoutFrameEditDlg::DoDataExchange(CDataExchange* pDX) {
  CKivDialog::DoDataExchange(pDX);
  DDX_Control(pDX, IDC_FRAME_STYLE, m_listStyle);
  DDX_Control(pDX, IDC_FRAME_COLOUR, m_btnColor);
  for (std::size_t i = 0; i < kPresetCount; ++i) {
    DDX_Control(pDX, kPresetIds[i], m_btnPresets[i]);
  }
  for (std::size_t i = 0; i < kLineButtonCount; ++i) {
    DDX_Control(pDX, kLineIds[i], m_btnLines[i]);
  }
  DDX_Control(pDX, IDC_FRAME_PREVIEW, m_preview);
}

BOOL CLayoutFrameEditDlg::OnInitDialog() {
  CKivDialog::OnInitDialog();
  m_lines = quorvel::ReadFrameLines(*m_pPage, m_block);
  m_rcPreview = m_preview.Area();
  LoadPictures();
  for (std::size_t i = 0; i < kPresetCount; ++i) {
    m_captions[i].SubclassWindow(::GetWindow(m_btnPresets[i].m_hWnd, GW_HWNDPREV));
  }
  FillStyles();
  const bool hasInner = m_lines.multiRow != 0 || m_lines.multiColumn != 0;
  ::EnableWindow(GetDlgItem(IDC_FRAME_INNER), hasInner ? TRUE : FALSE);
  ::EnableWindow(GetDlgItem(IDC_LINE_INNER_HORIZONTAL), m_lines.multiRow);
  ::EnableWindow(GetDlgItem(IDC_LINE_INNER_VERTICAL), m_lines.multiColumn);
  ShowLines();
  m_btnColor.Recolor(m_colorLine);
  quorvel::NameControls(m_hWnd, {{IDC_FRAME_COLOUR, L"線の色"}});
  MoveToCallersPosition(m_pPosition);
  return TRUE;
}

void CLayoutFrameEditDlg::LoadPictures() {
  for (std::size_t i = 0; i < kPresetCount; ++i) {
    m_bmpPresets[i] = quorvel::LoadDisplayBitmap(kPresetPictures[i]);
    m_btnPresets[i].SetBitmap(m_bmpPresets[i].get());
  }
  for (std::size_t i = 0; i < kLineButtonCount; ++i) {
    m_bmpLines[i] = quorvel::LoadDisplayBitmap(kLinePictures[i]);
    m_btnLines[i].SetBitmap(m_bmpLines[i].get());
  }
}

void CLayoutFrameEditDlg::FillStyles() {
  m_listStyle.ResetContent();
  for (const char* style : kStyles) {
    m_listStyle.AddString(style);
  }
  m_listStyle.SetCurSel(0);
}

void CLayoutFrameEditDlg::ShowLines() {
  for (std::size_t i = 0; i < kLineButtonCount; ++i) {
    m_btnLines[i].ShowOn(m_lines.shown[i] != 0);
  }
  // The painting of the dialog paints the preview.
  ::InvalidateRect(m_hWnd, &m_rcPreview, TRUE);
}

void CLayoutFrameEditDlg::OnPaint() {
  const CPaintDC paint(this);
  m_preview.Draw();
}

void CLayoutFrameEditDlg::OnNone() {
  quorvel::HideAllLines(m_lines);
  ShowLines();
}

void CLayoutFrameEditDlg::OnOuter() {
  quorvel::ShowOuterLines(m_lines);
  ShowLines();
}

void CLayoutFrameEditDlg::OnInner() {
  quorvel::ShowInnerLines(m_lines);
  ShowLines();
}

void CLayoutFrameEditDlg::OnLine(UINT id) {
  quorvel::ToggleLine(m_lines, static_cast<FrameLine>(id - IDC_LINE_TOP));
  ShowLines();
}

void CLayoutFrameEditDlg::OnColour() {
  CSelColor dialog(m_pSysEnv, m_colorLine, nullptr, this);
  if (dialog.DoModal() == IDOK) {
    m_colorLine = dialog.m_colorSel;
    m_btnColor.Recolor(m_colorLine);
  }
}

void CLayoutFrameEditDlg::OnOK() {
  quorvel::WriteFrameLines(m_lines, *m_pPage, m_block);
  CKivDialog::OnOK();
}
