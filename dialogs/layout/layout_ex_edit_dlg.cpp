#include "dialogs/layout/layout_ex_edit_dlg.h"

#include "dialogs/layout/layout_list_edit_dlg.h"
#include "dialogs/layout/size_fields.h"
#include "framework/control_names.h"
#include "kivfcl/display_rate.h"

#include <algorithm>
#include <limits>

namespace {

constexpr int kMostColumns = 20;
constexpr int kMostRows = 5;
constexpr int kMostRepeats = 200;
constexpr int kLargestOffset = 1000;
constexpr CPoint kFileTools(16, -40);  // from the dialog's bottom-left corner

struct PartIds {
  int image;
  int use;
  int height;
  int rows;
  int equalRows;
};
// In the order of the blocks.
constexpr std::array kPartIds{
    PartIds{IDC_HEADER_IMAGE, IDC_HEADER_USE, IDC_HEADER_HEIGHT, IDC_HEADER_ROWS,
            IDC_HEADER_EQUAL_ROWS},
    PartIds{IDC_LIST_IMAGE, IDC_LIST_USE, IDC_LIST_HEIGHT, IDC_LIST_ROWS, IDC_LIST_EQUAL_ROWS},
    PartIds{IDC_FOOTER_IMAGE, IDC_FOOTER_USE, IDC_FOOTER_HEIGHT, IDC_FOOTER_ROWS,
            IDC_FOOTER_EQUAL_ROWS},
};
constexpr std::array kShownOnIds{IDC_SHOW_ON_FIRST, IDC_SHOW_ON_MIDDLE, IDC_SHOW_ON_LAST};

}  // namespace

BEGIN_MESSAGE_MAP(CLayoutExEditDlg, CBlockEditDlg)
  ON_EN_KILLFOCUS(IDC_HEADER_HEIGHT, &CLayoutExEditDlg::OnSizeLeft)
  ON_EN_KILLFOCUS(IDC_HEADER_ROWS, &CLayoutExEditDlg::OnSizeLeft)
  ON_EN_KILLFOCUS(IDC_LIST_HEIGHT, &CLayoutExEditDlg::OnSizeLeft)
  ON_EN_KILLFOCUS(IDC_LIST_ROWS, &CLayoutExEditDlg::OnSizeLeft)
  ON_EN_KILLFOCUS(IDC_FOOTER_HEIGHT, &CLayoutExEditDlg::OnSizeLeft)
  ON_EN_KILLFOCUS(IDC_FOOTER_ROWS, &CLayoutExEditDlg::OnSizeLeft)
  ON_EN_KILLFOCUS(IDC_LAYOUT_WIDTH, &CLayoutExEditDlg::OnSizeLeft)
  ON_EN_KILLFOCUS(IDC_LAYOUT_COLUMNS, &CLayoutExEditDlg::OnSizeLeft)
  ON_EN_KILLFOCUS(IDC_LIST_REPEAT, &CLayoutExEditDlg::OnFieldForOkLeft)
  ON_EN_KILLFOCUS(IDC_LIST_OFFSET, &CLayoutExEditDlg::OnFieldForOkLeft)
  ON_EN_KILLFOCUS(IDC_OUTER_LINE_WIDTH, &CLayoutExEditDlg::OnFieldLeft)
  ON_EN_KILLFOCUS(IDC_INNER_LINE_WIDTH, &CLayoutExEditDlg::OnFieldLeft)
  ON_CONTROL_RANGE(BN_CLICKED, IDC_HEADER_EQUAL_ROWS, IDC_FOOTER_EQUAL_ROWS,
                   &CLayoutExEditDlg::OnEqualRowsOf)
  ON_BN_CLICKED(IDC_LAYOUT_EQUAL_COLUMNS, &CLayoutExEditDlg::OnEqualAllColumns)
  ON_BN_CLICKED(IDC_HEADER_USE, &CLayoutExEditDlg::OnUse)
  ON_BN_CLICKED(IDC_LIST_USE, &CLayoutExEditDlg::OnUse)
  ON_BN_CLICKED(IDC_FOOTER_USE, &CLayoutExEditDlg::OnUse)
  ON_BN_CLICKED(IDC_OUTER_LINE, &CLayoutExEditDlg::OnSwitched)
  ON_BN_CLICKED(IDC_INNER_LINE, &CLayoutExEditDlg::OnSwitched)
  ON_CONTROL_RANGE(BN_CLICKED, IDC_OUTER_LINE_COLOUR, IDC_OUTER_LINE_COLOUR,
                   &CLayoutExEditDlg::OnLineColor)
  ON_CONTROL_RANGE(BN_CLICKED, IDC_INNER_LINE_COLOUR, IDC_INNER_LINE_COLOUR,
                   &CLayoutExEditDlg::OnLineColor)
END_MESSAGE_MAP()

CLayoutExEditDlg::CLayoutExEditDlg(CKivSysEnv* env, CLayoutExPageData* page,
                                   const CStringArray* fields, const CStringArray* insertions,
                                   const CDWordArray* numbers, double dotsPerMm, CPoint* position,
                                   CWnd* parent)
    : CBlockEditDlg(IDD_LAYOUT_EX, quorvel::kExtendedEditor,
                    {env, insertions, numbers, dotsPerMm, position}, fields, m_page, parent),
      m_pCallersPage(page),
      m_page(*page) {
  ReadPage();
}

void CLayoutExEditDlg::ReadPage() {
  ReadSizes();
  for (Part& part : m_parts) {
    part.use = m_page.GetUse(part.type);
  }
  for (std::size_t kind = 0; kind < kPageKindCount; ++kind) {
    m_shownOn[kind] = m_page.GetListShowByPage(static_cast<int>(kind));
  }
  m_nRepeat = m_page.GetRepeatRow();
  m_nOffset = static_cast<int>(m_page.GetStIndex());
  m_lines.Read(m_page);
}

void CLayoutExEditDlg::ReadSizes() {
  m_nColumns = m_page.GetNumCol();
  m_fWidth = m_page.GetAllLengthCol();
  for (Part& part : m_parts) {
    part.rows = m_page.GetNumRow(part.type);
    part.height = m_page.GetAllLengthRow(part.type);
  }
}

void CLayoutExEditDlg::DoDataExchange(CDataExchange* pDX) {
  CBlockEditDlg::DoDataExchange(pDX);
  for (std::size_t i = 0; i < kBlockCount; ++i) {
    DDX_Check(pDX, kPartIds[i].use, m_parts[i].use);
  }
  for (std::size_t kind = 0; kind < kPageKindCount; ++kind) {
    DDX_Check(pDX, kShownOnIds[kind], m_shownOn[kind]);
  }
  DDX_Length(pDX, IDC_LAYOUT_WIDTH, m_fWidth, 0);
  DDX_Count(pDX, IDC_LAYOUT_COLUMNS, m_nColumns, kMostColumns);
  for (std::size_t i = 0; i < kBlockCount; ++i) {
    DDX_Length(pDX, kPartIds[i].height, m_parts[i].height, 1);
    DDX_Count(pDX, kPartIds[i].rows, m_parts[i].rows, kMostRows);
  }
  DDX_Count(pDX, IDC_LIST_REPEAT, m_nRepeat, kMostRepeats);
  DDX_Count(pDX, IDC_LIST_OFFSET, m_nOffset, kLargestOffset);
  m_lines.Exchange(pDX);
}

BOOL CLayoutExEditDlg::OnInitDialog() {
  CBlockEditDlg::OnInitDialog();
  m_lines.Init(this);
  CPageLines::Name(this);
  NameParts();
  for (std::size_t i = 0; i < kBlockCount; ++i) {
    m_parts[i].view.Attach(static_cast<UINT>(kPartIds[i].image), this);
  }
  CPoint corner(GetWindowRect().left, GetWindowRect().bottom);
  ::ScreenToClient(m_hWnd, &corner);
  CreateFileTools({corner.x + quorvel::DisplayPixels(kFileTools.x),
                   corner.y + quorvel::DisplayPixels(kFileTools.y)},
                  false);
  EnableUsed();
  LayOutViews();
  RefreshCommands();
  MoveToCallersPosition(Host().position);
  return TRUE;
}

/// Labels alike stand beside the fields of each block.
void CLayoutExEditDlg::NameParts() const {
  quorvel::NameControls(m_hWnd, {{IDC_HEADER_HEIGHT, L"ﾍｯﾀﾞｰの高さ"},
                                 {IDC_HEADER_ROWS, L"ﾍｯﾀﾞｰの行数"},
                                 {IDC_HEADER_IMAGE, L"ﾍｯﾀﾞｰのｲﾒｰｼﾞ"},
                                 {IDC_LIST_HEIGHT, L"ﾘｽﾄの高さ"},
                                 {IDC_LIST_ROWS, L"ﾘｽﾄの行数"},
                                 {IDC_LIST_REPEAT, L"ﾘｽﾄの回数"},
                                 {IDC_LIST_IMAGE, L"ﾘｽﾄのｲﾒｰｼﾞ"},
                                 {IDC_FOOTER_HEIGHT, L"ﾌｯﾀｰの高さ"},
                                 {IDC_FOOTER_ROWS, L"ﾌｯﾀｰの行数"},
                                 {IDC_FOOTER_IMAGE, L"ﾌｯﾀｰのｲﾒｰｼﾞ"}});
}

// ---- Views

/// kBlockCount for none.
std::size_t CLayoutExEditDlg::CurrentIndex() const {
  std::size_t index = 0;
  while (index < kBlockCount && &m_parts[index].view != CurrentView()) {
    ++index;
  }
  return index;
}

CLayoutExPageData::LISTTYPE CLayoutExEditDlg::CurrentBlock() const {
  return m_parts[CurrentIndex()].type;
}

CPageView* CLayoutExEditDlg::ViewAt(const CPoint& point) {
  for (Part& part : m_parts) {
    if (part.use != 0 && part.view.DialogArea().Contains(point)) {
      return &part.view;
    }
  }
  return nullptr;
}

void CLayoutExEditDlg::TakeView(CPageView& view) {
  if (&view != CurrentView()) {
    DeselectCels();
    SetCurrentView(&view);
    RefreshCommands();
  }
}

CPageView* CLayoutExEditDlg::ViewBeyond(int down) {
  const std::size_t current = CurrentIndex();
  if (current < kBlockCount && down < 0) {
    for (std::size_t i = current; i > 0; --i) {
      if (m_parts[i - 1].use != 0) {
        return &m_parts[i - 1].view;
      }
    }
    return nullptr;
  }
  for (std::size_t i = current < kBlockCount ? current + 1 : 0; i < kBlockCount; ++i) {
    if (m_parts[i].use != 0) {
      return &m_parts[i].view;
    }
  }
  return nullptr;
}

bool CLayoutExEditDlg::OnDoubleClicked(CPageView* view, const CPoint& /*point*/) {
  if (view != nullptr) {
    OpenListEditor(*view);
  }
  return false;
}

bool CLayoutExEditDlg::OpenCurrentBlock() {
  const std::size_t current = CurrentIndex();
  const bool isUsed = current < kBlockCount && m_parts[current].use != 0;
  if (CPageView* const view = isUsed ? CurrentView() : ViewBeyond(1)) {
    EndTyping();
    OpenListEditor(*view);
  }
  return true;
}

void CLayoutExEditDlg::OpenListEditor(CPageView& view) {
  TakeView(view);
  CLayoutListEditDlg dialog(Host().env, this, &m_page, Fields(), Host().insertions, Host().numbers,
                            Host().dotsPerMm, CurrentBlock(), nullptr, nullptr);
  dialog.DoModal();
  OnPageChanged();
  OnTextGiven();
}

/// One scale for all: the smallest that any of them needs.
void CLayoutExEditDlg::LayOutViews() {
  double scale = std::numeric_limits<double>::max();
  for (const Part& part : m_parts) {
    scale = std::min(scale, part.view.ScaleToFit());
  }
  for (Part& part : m_parts) {
    part.view.LayOutAt(scale);
  }
}

void CLayoutExEditDlg::OnPageChanged() {
  CancelDrag();
  ReadSizes();
  LayOutViews();
  RefreshCommands();
  UpdateData(FALSE);
}

// ---- Fields

void CLayoutExEditDlg::OnSizeLeft() {
  if (ReadField()) {
    ApplySizes();
  }
}

/// New counts leave the page as large as it is.
void CLayoutExEditDlg::ApplySizes() {
  bool changed = false;
  const double dots = Host().dotsPerMm;
  for (Part& part : m_parts) {
    if (part.rows != m_page.GetNumRow(part.type) || m_nColumns != m_page.GetNumCol()) {
      const bool hadRows = m_page.GetNumRow(part.type) > 0;
      quorvel::DivideWithin(part.view.Block(), part.rows, m_nColumns, dots);
      if (!hadRows) {
        part.height = m_page.GetAllLengthRow(part.type);
      }
      changed = true;
    }
    if (!quorvel::IsSameLength(part.height, m_page.GetAllLengthRow(part.type))) {
      m_page.SetAllLengthRow(part.type, part.height, 0);
      changed = true;
    }
  }
  if (!quorvel::IsSameLength(m_fWidth, m_page.GetAllLengthCol())) {
    m_page.SetAllLengthCol(m_fWidth, 0);
    changed = true;
  }
  if (changed) {
    EndTextEdit();
    OnPageChanged();
  }
}

void CLayoutExEditDlg::OnEqualRowsOf(UINT id) {
  EndTyping();
  const Part& part = m_parts[id - IDC_HEADER_EQUAL_ROWS];
  m_page.SetAllLengthRow(part.type, part.height, 1);
  LayOutViews();
}

void CLayoutExEditDlg::OnEqualAllColumns() {
  EndTyping();
  m_page.SetAllLengthCol(m_fWidth, 1);
  LayOutViews();
}

void CLayoutExEditDlg::EnableUsed() const {
  for (std::size_t i = 0; i < kBlockCount; ++i) {
    const BOOL used = m_parts[i].use != 0 ? TRUE : FALSE;
    for (const int id : {kPartIds[i].height, kPartIds[i].rows, kPartIds[i].equalRows}) {
      ::EnableWindow(GetDlgItem(id), used);
    }
    if (m_parts[i].type == CLayoutExPageData::LISTTYPE_LIST) {
      ::EnableWindow(GetDlgItem(IDC_LIST_REPEAT), used);
    }
  }
}

/// A field that is refused keeps its block's fields enabled until it is mended.
void CLayoutExEditDlg::OnFieldsRead() {
  EnableUsed();
  m_lines.EnableByCheck(this);
}

void CLayoutExEditDlg::OnUse() {
  if (ReadFields()) {
    for (const Part& part : m_parts) {
      part.view.Invalidate();
    }
  }
}

void CLayoutExEditDlg::OnLineColor(UINT buttonId) {
  m_lines.PickColor(buttonId, Host().env, this);
}

// ---- Files and the end

bool CLayoutExEditDlg::OpenPage(const std::wstring& path) {
  CLayoutExPageData opened;
  if (opened.OpenFileW(path.c_str()) == 0) {
    return false;
  }
  CancelDrag();
  DeselectCels();
  SetCurrentView(nullptr);
  m_page = opened;
  ReadPage();
  m_lines.Init(this);
  OnPageChanged();
  EnableUsed();
  return true;
}

void CLayoutExEditDlg::OnOK() {
  WriteSettings();
  if (TakeTyped()) {
    return;
  }
  EndTextEdit();
  DeselectCels();
  UpdateData(TRUE);  // of a field that is refused the last number counts
  // Enter confirms without leaving the field that was typed in.
  ApplySizes();
  m_lines.Store(m_page);
  for (std::size_t kind = 0; kind < kPageKindCount; ++kind) {
    m_page.SetListShowByPage(static_cast<int>(kind), m_shownOn[kind]);
  }
  for (const Part& part : m_parts) {
    m_page.SetUse(part.type, part.use);
  }
  m_page.SetRepeatRow(static_cast<BYTE>(m_nRepeat));
  m_page.SetStIndex(m_nOffset);
  *m_pCallersPage = m_page;
  Close(IDOK);
}

void CLayoutExEditDlg::OnCancel() {
  WriteSettings();
  Close(IDCANCEL);
}
