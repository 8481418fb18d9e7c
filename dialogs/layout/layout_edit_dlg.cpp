#include "dialogs/layout/layout_edit_dlg.h"

#include "framework/file_dialog.h"
#include "framework/message_box.h"
#include "kivfcl/calc_text.h"

#include <array>
#include <cmath>

namespace {

constexpr int kFewest = 1;
constexpr int kMost = 20;
constexpr double kLongest = 1e12;  ///< that a page takes, millimetres
/// Totals that differ by less are one: dragged lengths need not sum to the last bit.
constexpr double kSameLength = 1e-9;

constexpr int kToolsAboveImage = 24;
constexpr int kFileToolsWidth = 48;
constexpr std::array kFileTools{TOOLITEM{IDM_OPEN_LAYOUT, 0, FALSE},
                                TOOLITEM{IDM_SAVE_LAYOUT, 1, FALSE}};

constexpr const char* kExtension = "*.mtpld";
constexpr const char* kFilter = "ﾐﾙﾄﾗｽ 印刷ﾚｲｱｳﾄﾌｧｲﾙ (*.mtpld)|*.mtpld||";
constexpr DWORD kFileFlags = OFN_HIDEREADONLY | OFN_PATHMUSTEXIST | OFN_FILEMUSTEXIST |
                             OFN_EXPLORER | OFN_NODEREFERENCELINKS;

constexpr std::array kMarginControls{IDC_LAYOUT_MARGIN, IDC_LAYOUT_MARGIN_LABEL,
                                     IDC_LAYOUT_MARGIN_UNIT, IDC_LAYOUT_SHOW_FRAME};

// A refused number leaves the member as it was. A page may have more rows than can be made here:
// they are not refused as long as they stay.

void ExchangeCount(CDataExchange* pDX, int id, int& count) {
  int read = count;
  DDX_CalcText(pDX, id, read);
  if (read != count) {
    DDV_MinMaxInt(pDX, read, kFewest, kMost);
  }
  count = read;
}

template <class Number>
void ExchangeLength(CDataExchange* pDX, int id, Number& length) {
  Number read = length;
  DDX_CalcText(pDX, id, read, 0, 0);
  DDV_MinMaxDouble(pDX, read, 0.0, kLongest);
  length = read;
}

}  // namespace

BEGIN_MESSAGE_MAP(CLayoutEditDlg, CPageEditDlg)
  ON_EN_KILLFOCUS(IDC_LAYOUT_ROWS, &CLayoutEditDlg::OnCountLeft)
  ON_EN_KILLFOCUS(IDC_LAYOUT_COLUMNS, &CLayoutEditDlg::OnCountLeft)
  ON_EN_KILLFOCUS(IDC_LAYOUT_HEIGHT, &CLayoutEditDlg::OnHeightLeft)
  ON_EN_KILLFOCUS(IDC_LAYOUT_WIDTH, &CLayoutEditDlg::OnWidthLeft)
  ON_EN_KILLFOCUS(IDC_LAYOUT_MARGIN, &CLayoutEditDlg::OnFieldLeft)
  ON_EN_KILLFOCUS(IDC_OUTER_LINE_WIDTH, &CLayoutEditDlg::OnFieldLeft)
  ON_EN_KILLFOCUS(IDC_INNER_LINE_WIDTH, &CLayoutEditDlg::OnFieldLeft)
  ON_BN_CLICKED(IDC_LAYOUT_APPEND, &CLayoutEditDlg::OnFieldLeft)
  ON_BN_CLICKED(IDC_LAYOUT_EQUAL_ROWS, &CLayoutEditDlg::OnEqualRows)
  ON_BN_CLICKED(IDC_LAYOUT_EQUAL_COLUMNS, &CLayoutEditDlg::OnEqualColumns)
  ON_BN_CLICKED(IDC_OUTER_LINE, &CLayoutEditDlg::OnLineSwitched)
  ON_BN_CLICKED(IDC_INNER_LINE, &CLayoutEditDlg::OnLineSwitched)
  ON_BN_CLICKED(IDC_OUTER_LINE_COLOUR, &CLayoutEditDlg::OnOuterColor)
  ON_BN_CLICKED(IDC_INNER_LINE_COLOUR, &CLayoutEditDlg::OnInnerColor)
  ON_COMMAND(IDM_OPEN_LAYOUT, &CLayoutEditDlg::OnOpen)
  ON_COMMAND(IDM_SAVE_LAYOUT, &CLayoutEditDlg::OnSave)
END_MESSAGE_MAP()

CLayoutEditDlg::CLayoutEditDlg(CKivSysEnv* env, CLayoutPageData* page,
                               const CStringArray* insertions, const CDWordArray* numbers,
                               double dotsPerMm, int lineMode, CPoint* position, CWnd* parent)
    : CPageEditDlg(IDD_LAYOUT, quorvel::kGridEditor,
                   {env, insertions, numbers, dotsPerMm, position}, parent),
      m_pCallersPage(page),
      m_page(*page),
      m_bLineMode(lineMode != 0) {
  SetCurrentView(m_view);
  ReadPage();
  if (m_bLineMode) {
    m_outerLine.Read(m_page.GetByEdgeOutLine(), m_page.GetOutLineStatus());
    m_innerLine.Read(m_page.GetByEdgeInLine(), m_page.GetInLineStatus());
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
  ExchangeCount(pDX, IDC_LAYOUT_ROWS, m_nRows);
  ExchangeCount(pDX, IDC_LAYOUT_COLUMNS, m_nColumns);
  ExchangeLength(pDX, IDC_LAYOUT_HEIGHT, m_fHeight);
  ExchangeLength(pDX, IDC_LAYOUT_WIDTH, m_fWidth);
  ExchangeLength(pDX, IDC_LAYOUT_MARGIN, m_fMargin);
  DDX_Check(pDX, IDC_LAYOUT_SHOW_FRAME, m_nShowFrame);
  m_outerLine.Exchange(pDX);
  m_innerLine.Exchange(pDX);
}

BOOL CLayoutEditDlg::OnInitDialog() {
  m_bClosing = false;
  CPageEditDlg::OnInitDialog();
  if (m_bLineMode) {
    for (const int id : kMarginControls) {
      ::ShowWindow(GetDlgItem(id), SW_HIDE);
    }
    m_outerLine.Init(this);
    m_innerLine.Init(this);
  } else {
    m_outerLine.Hide(this);
    m_innerLine.Hide(this);
  }
  m_view.Attach(IDC_LAYOUT_IMAGE, this);
  CreateCelTools({m_view.DialogArea().left, m_view.DialogArea().top - kToolsAboveImage});
  CreateFileTools();
  LayOutViews();
  RefreshCommands();
  MoveToCallersPosition(Host().position);
  return TRUE;
}

void CLayoutEditDlg::CreateFileTools() {
  const CPoint position(m_view.DialogArea().right - kFileToolsWidth,
                        m_view.DialogArea().top - kToolsAboveImage);
  m_fileTools.CreateToolCtrl(this, quorvel::kToolStyle, kFileTools.data(),
                             static_cast<int>(kFileTools.size()), IDB_FILE_TOOLS,
                             static_cast<int>(kFileTools.size()), position, 0,
                             m_bLineMode ? TRUE : FALSE);
}

CPageView* CLayoutEditDlg::ViewAt(const CPoint& point) {
  return m_view.DialogArea().Contains(point) ? &m_view : nullptr;
}

void CLayoutEditDlg::LayOutViews() { m_view.LayOut(); }

// ---- Fields

/// Reads the fields where one of them has been left. A dialog that closes or is being cancelled reads
/// none of them so, and the user is not told of a refused one again when Windows change places.
bool CLayoutEditDlg::ReadField() {
  const HWND focus = ::GetFocus();
  const bool inDialog = ::IsChild(m_hWnd, focus) != FALSE;
  if (m_bClosing || focus == GetDlgItem(IDCANCEL) || (m_bRefused && !inDialog)) {
    return false;
  }
  m_bRefused = UpdateData(TRUE) == FALSE;
  return !m_bRefused;
}

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

void CLayoutEditDlg::OnFieldLeft() { ReadField(); }

void CLayoutEditDlg::OnEqualRows() { ApplyHeight(true); }

void CLayoutEditDlg::OnEqualColumns() { ApplyWidth(true); }

/// New rows and columns make the page larger, which the fields show.
void CLayoutEditDlg::ApplyCounts() {
  if (m_nRows == m_page.GetNumRow() && m_nColumns == m_page.GetNumCol()) {
    return;
  }
  EndTextEdit();
  CancelDrag();
  m_block.Divide(m_nRows, m_nColumns, Host().dotsPerMm);
  ReadSizes();
  UpdateData(FALSE);
  LayOutViews();
  RefreshCommands();
}

void CLayoutEditDlg::ApplyHeight(bool equal) {
  if (equal || std::abs(m_fHeight - m_page.GetAllLengthRow()) > kSameLength) {
    EndTextEdit();
    m_block.SetHeight(m_fHeight, equal);
    LayOutViews();
  }
}

void CLayoutEditDlg::ApplyWidth(bool equal) {
  if (equal || std::abs(m_fWidth - m_page.GetAllLengthCol()) > kSameLength) {
    EndTextEdit();
    m_block.SetWidth(m_fWidth, equal);
    LayOutViews();
  }
}

void CLayoutEditDlg::OnLineSwitched() {
  if (UpdateData(TRUE) != FALSE) {
    m_outerLine.EnableByCheck(this);
    m_innerLine.EnableByCheck(this);
  }
}

void CLayoutEditDlg::OnOuterColor() { m_outerLine.PickColor(Host().env, this); }

void CLayoutEditDlg::OnInnerColor() { m_innerLine.PickColor(Host().env, this); }

// ---- Files

void CLayoutEditDlg::OnOpen() {
  EndTextEdit();
  CFileDialog dialog(TRUE, kExtension, "", kFileFlags, kFilter, this);
  if (dialog.DoModal() != IDOK) {
    return;
  }
  CLayoutPageData opened;
  if (opened.OpenFileW(dialog.GetPathNameWide().c_str()) == 0) {
    AfxMessageBox("ﾌｧｲﾙが正常に読み込み出来ません。", MB_ICONEXCLAMATION);
    return;
  }
  CancelDrag();
  m_page = opened;
  ReadPage();
  UpdateData(FALSE);
  LayOutViews();
  RefreshCommands();
}

void CLayoutEditDlg::OnSave() {
  EndTextEdit();
  if (UpdateData(TRUE) == FALSE) {
    return;
  }
  CFileDialog dialog(FALSE, kExtension, "", kFileFlags | OFN_OVERWRITEPROMPT, kFilter, this);
  if (dialog.DoModal() == IDOK) {
    m_page.SaveFileW(dialog.GetPathNameWide().c_str());
  }
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
    const PEN_STATUS outer = m_outerLine.Status();
    const PEN_STATUS inner = m_innerLine.Status();
    m_page.SetType(1);
    m_page.SetByEdgeOutLine(m_outerLine.IsOn());
    m_page.SetByEdgeInLine(m_innerLine.IsOn());
    m_page.SetOutLineStatus(&outer);
    m_page.SetInLineStatus(&inner);
  } else {
    m_page.SetType(0);
    m_page.SetMargin(m_fMargin);
    m_page.SetShowFrame(m_nShowFrame);
  }
  *m_pCallersPage = m_page;
  m_bClosing = true;
  EndDialog(IDOK);
}

void CLayoutEditDlg::OnCancel() {
  WriteSettings();
  m_bClosing = true;
  EndDialog(IDCANCEL);
}
