#include "dialogs/layout/layout_edit_dlg.h"

#include "dialogs/layout/size_fields.h"
#include "framework/control_names.h"
#include "kivfcl/display_rate.h"

#include <array>

namespace {

constexpr int kMost = 20;

constexpr int kToolsAboveImage = 24;
constexpr int kFileToolsWidth = 48;
constexpr std::array kMarginControls{IDC_LAYOUT_MARGIN, IDC_LAYOUT_MARGIN_LABEL,
                                     IDC_LAYOUT_MARGIN_UNIT, IDC_LAYOUT_SHOW_FRAME};

}  // namespace

BEGIN_MESSAGE_MAP(CLayoutEditDlg, CPageEditDlg)
  ON_EN_KILLFOCUS(IDC_LAYOUT_ROWS, &CLayoutEditDlg::OnCountLeft)
  ON_EN_KILLFOCUS(IDC_LAYOUT_COLUMNS, &CLayoutEditDlg::OnCountLeft)
  ON_EN_KILLFOCUS(IDC_LAYOUT_HEIGHT, &CLayoutEditDlg::OnHeightLeft)
  ON_EN_KILLFOCUS(IDC_LAYOUT_WIDTH, &CLayoutEditDlg::OnWidthLeft)
  ON_EN_KILLFOCUS(IDC_LAYOUT_MARGIN, &CLayoutEditDlg::OnFieldForOkLeft)
  ON_EN_KILLFOCUS(IDC_OUTER_LINE_WIDTH, &CLayoutEditDlg::OnFieldLeft)
  ON_EN_KILLFOCUS(IDC_INNER_LINE_WIDTH, &CLayoutEditDlg::OnFieldLeft)
  ON_BN_CLICKED(IDC_LAYOUT_EQUAL_ROWS, &CLayoutEditDlg::OnEqualRows)
  ON_BN_CLICKED(IDC_LAYOUT_EQUAL_COLUMNS, &CLayoutEditDlg::OnEqualColumns)
  ON_BN_CLICKED(IDC_OUTER_LINE, &CLayoutEditDlg::OnSwitched)
  ON_BN_CLICKED(IDC_INNER_LINE, &CLayoutEditDlg::OnSwitched)
  ON_CONTROL_RANGE(BN_CLICKED, IDC_OUTER_LINE_COLOUR, IDC_OUTER_LINE_COLOUR,
                   &CLayoutEditDlg::OnLineColor)
  ON_CONTROL_RANGE(BN_CLICKED, IDC_INNER_LINE_COLOUR, IDC_INNER_LINE_COLOUR,
                   &CLayoutEditDlg::OnLineColor)
END_MESSAGE_MAP()

CLayoutEditDlg::CLayoutEditDlg(CKivSysEnv* env, CLayoutPageData* page,
                               const CStringArray* insertions, const CDWordArray* numbers,
                               double dotsPerMm, int lineMode, CPoint* position, CWnd* parent)
    : CPageEditDlg(IDD_LAYOUT, quorvel::kGridEditor,
                   {env, insertions, numbers, dotsPerMm, position}, parent),
      m_pCallersPage(page),
      m_page(*page),
      m_bLineMode(lineMode != 0) {
  SetCurrentView(&m_view);
  ReadPage();
  if (m_bLineMode) {
    m_lines.Read(m_page);
    m_fMargin = 0.0F;
    m_nShowFrame = 1;
  }
}

/// What a page gives to the fields, but for its lines.
void CLayoutEditDlg::ReadPage() {
  ReadSizes();
  m_fMargin = m_page.GetMargin();
  m_nShowFrame = m_page.GetShowFrame();
}

void CLayoutEditDlg::ReadSizes() {
  m_nRows = m_page.GetNumRow();
  m_nColumns = m_page.GetNumCol();
  m_fHeight = m_page.GetAllLengthRow();
  m_fWidth = m_page.GetAllLengthCol();
}

void CLayoutEditDlg::DoDataExchange(CDataExchange* pDX) {
  CPageEditDlg::DoDataExchange(pDX);
  DDX_Count(pDX, IDC_LAYOUT_ROWS, m_nRows, kMost);
  DDX_Count(pDX, IDC_LAYOUT_COLUMNS, m_nColumns, kMost);
  DDX_Length(pDX, IDC_LAYOUT_HEIGHT, m_fHeight, 0);
  DDX_Length(pDX, IDC_LAYOUT_WIDTH, m_fWidth, 0);
  DDX_Length(pDX, IDC_LAYOUT_MARGIN, m_fMargin, 0);
  DDX_Check(pDX, IDC_LAYOUT_SHOW_FRAME, m_nShowFrame);
  m_lines.Exchange(pDX);
}

BOOL CLayoutEditDlg::OnInitDialog() {
  CPageEditDlg::OnInitDialog();
  if (m_bLineMode) {
    for (const int id : kMarginControls) {
      ::ShowWindow(GetDlgItem(id), SW_HIDE);
    }
    m_lines.Init(this);
    CPageLines::Name(this);
  } else {
    m_lines.Hide(this);
  }
  m_view.Attach(IDC_LAYOUT_IMAGE, this);
  quorvel::NameControl(m_view.m_hWnd, L"ﾚｲｱｳﾄのｲﾒｰｼﾞ");
  const CRect& image = m_view.DialogArea();
  const int top = image.top - quorvel::DisplayPixels(kToolsAboveImage);
  CreateCelTools({image.left, top});
  CreateFileTools({image.right - quorvel::DisplayPixels(kFileToolsWidth), top}, m_bLineMode);
  LayOutViews();
  RefreshCommands();
  MoveToCallersPosition(Host().position);
  return TRUE;
}

CPageView* CLayoutEditDlg::ViewAt(const CPoint& point) {
  return m_view.DialogArea().Contains(point) ? &m_view : nullptr;
}

void CLayoutEditDlg::LayOutViews() { m_view.LayOut(); }

// ---- Fields

void CLayoutEditDlg::OnCountLeft() {
  if (ReadField()) {
    ApplyCounts();
  }
}

void CLayoutEditDlg::OnHeightLeft() {
  if (ReadField()) {
    ApplyHeight(false);
  }
}

void CLayoutEditDlg::OnWidthLeft() {
  if (ReadField()) {
    ApplyWidth(false);
  }
}

void CLayoutEditDlg::OnEqualRows() { ApplyHeight(true); }

void CLayoutEditDlg::OnEqualColumns() { ApplyWidth(true); }

/// The page stays as large as it is.
void CLayoutEditDlg::ApplyCounts() {
  if (m_nRows == m_page.GetNumRow() && m_nColumns == m_page.GetNumCol()) {
    return;
  }
  EndTextEdit();
  CancelDrag();
  quorvel::DivideWithin(m_block, m_nRows, m_nColumns, Host().dotsPerMm);
  LayOutViews();
  RefreshCommands();
}

void CLayoutEditDlg::ApplyHeight(bool equal) {
  if (equal || !quorvel::IsSameLength(m_fHeight, m_page.GetAllLengthRow())) {
    EndTextEdit();
    m_block.SetHeight(m_fHeight, equal);
    LayOutViews();
  }
}

void CLayoutEditDlg::ApplyWidth(bool equal) {
  if (equal || !quorvel::IsSameLength(m_fWidth, m_page.GetAllLengthCol())) {
    EndTextEdit();
    m_block.SetWidth(m_fWidth, equal);
    LayOutViews();
  }
}

void CLayoutEditDlg::OnLineColor(UINT buttonId) {
  m_lines.PickColor(buttonId, Host().env, this);
}

// ---- Files

bool CLayoutEditDlg::OpenPage(const std::wstring& path) {
  CLayoutPageData opened;
  if (opened.OpenFileW(path.c_str()) == 0) {
    return false;
  }
  CancelDrag();
  m_page = opened;
  ReadPage();
  UpdateData(FALSE);
  LayOutViews();
  RefreshCommands();
  return true;
}

// ---- The end

void CLayoutEditDlg::OnOK() {
  WriteSettings();
  EndTextEdit();
  UpdateData(TRUE);  // of a field that is refused the last number counts
  // Enter confirms without leaving the field that was typed in.
  ApplyCounts();
  ApplyHeight(false);
  ApplyWidth(false);
  if (m_bLineMode) {
    m_page.SetType(1);
    m_lines.Store(m_page);
  } else {
    m_page.SetType(0);
    m_page.SetMargin(m_fMargin);
    m_page.SetShowFrame(m_nShowFrame);
  }
  *m_pCallersPage = m_page;
  Close(IDOK);
}

void CLayoutEditDlg::OnCancel() {
  WriteSettings();
  Close(IDCANCEL);
}
