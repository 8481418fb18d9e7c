#include "dialogs/layout/page_edit_dlg.h"

#include "dialogs/colour/sel_color_dlg.h"
#include "dialogs/font/sel_font_ex_dlg.h"
#include "framework/code_page.h"
#include "framework/control_names.h"
#include "framework/data_exchange.h"
#include "framework/device_context.h"
#include "framework/file_dialog.h"
#include "framework/message_box.h"
#include "framework/module_state.h"
#include "kivfcl/display_bitmap.h"

#include <array>
#include <cstdio>
#include <type_traits>
#include <utility>

using quorvel::CelList;
using quorvel::PairOfLengths;

namespace {

constexpr UINT kAllFontFields = static_cast<UINT>(-1);
constexpr COLORREF kFirstTextColor = RGB(0, 0, 0);
constexpr COLORREF kFirstBackColor = RGB(0xFF, 0xFF, 0xFF);
constexpr UINT kFirstCommand = IDM_EDIT_TEXT;
constexpr UINT kLastCommand = IDM_EQUAL_ROWS;
constexpr int kTextEditEdge = 1;

struct MenuDeleter {
  void operator()(HMENU menu) const { ::DestroyMenu(menu); }
};
using OwnedMenu = std::unique_ptr<std::remove_pointer_t<HMENU>, MenuDeleter>;

HCURSOR LoadDragCursor(int id) {
  return ::LoadCursorW(AfxGetResourceHandle(), MAKEINTRESOURCEW(id));
}

CString ReadOutText(const char* format, const PairOfLengths& lengths) {
  constexpr int kLongest = 700;  // two doubles with all their digits
  std::array<char, kLongest> text{};
  std::snprintf(text.data(), text.size(), format, lengths.first, lengths.second);
  return {text.data()};
}

bool IsPressed(int key) { return ::GetKeyState(key) < 0; }

}  // namespace

BEGIN_MESSAGE_MAP(CPageEditDlg, CKivDialog)
  ON_WM_LBUTTONDOWN(&CPageEditDlg::OnLButtonDown)
  ON_WM_LBUTTONUP(&CPageEditDlg::OnLButtonUp)
  ON_WM_LBUTTONDBLCLK(&CPageEditDlg::OnLButtonDblClk)
  ON_WM_RBUTTONUP(&CPageEditDlg::OnRButtonUp)
  ON_WM_MOUSEMOVE(&CPageEditDlg::OnMouseMove)
  ON_MESSAGE(WM_SETCURSOR, &CPageEditDlg::OnSetCursor)
  ON_MESSAGE(WM_CAPTURECHANGED, &CPageEditDlg::OnCaptureChanged)
  ON_MESSAGE(WM_KEYDOWN, &CPageEditDlg::OnKeyDown)
  ON_MESSAGE(WM_SETFOCUS, &CPageEditDlg::OnSetFocus)
  ON_MESSAGE(WM_CONTEXTMENU, &CPageEditDlg::OnContextMenu)
  ON_NOTIFY_RANGE(TTN_GETDISPINFOW, kFirstCommand, kLastCommand, &CPageEditDlg::OnToolTipText)
  ON_COMMAND(IDM_EDIT_TEXT, &CPageEditDlg::OnEditText)
  ON_COMMAND(IDM_EDIT_FONT, &CPageEditDlg::OnEditFont)
  ON_CONTROL_RANGE(0, IDM_ALIGN_TOP, IDM_ALIGN_BOTTOM, &CPageEditDlg::OnAlignVertically)
  ON_CONTROL_RANGE(0, IDM_ALIGN_LEFT, IDM_ALIGN_RIGHT, &CPageEditDlg::OnAlignHorizontally)
  ON_COMMAND(IDM_MERGE_CELLS, &CPageEditDlg::OnMerge)
  ON_COMMAND(IDM_SPLIT_CELLS, &CPageEditDlg::OnSplit)
  ON_BN_CLICKED(IDC_LAYOUT_TEXT_COLOUR, &CPageEditDlg::OnTextColor)
  ON_BN_CLICKED(IDC_LAYOUT_BACK_COLOUR, &CPageEditDlg::OnBackColor)
  ON_BN_CLICKED(IDC_LAYOUT_TEXT_COLOUR_ARROW, &CPageEditDlg::OnChooseTextColor)
  ON_BN_CLICKED(IDC_LAYOUT_BACK_COLOUR_ARROW, &CPageEditDlg::OnChooseBackColor)
  ON_CBN_SELCHANGE(IDC_LAYOUT_INSERTION, &CPageEditDlg::OnInsertion)
  ON_CONTROL(CBN_SELENDOK, IDC_LAYOUT_INSERTION, &CPageEditDlg::OnInsertionTaken)
  ON_CONTROL(CBN_CLOSEUP, IDC_LAYOUT_INSERTION, &CPageEditDlg::OnInsertionClosed)
  ON_BN_CLICKED(IDC_LAYOUT_APPEND, &CPageEditDlg::OnSwitched)
  ON_COMMAND(IDM_OPEN_LAYOUT, &CPageEditDlg::OnOpen)
  ON_COMMAND(IDM_SAVE_LAYOUT, &CPageEditDlg::OnSave)
END_MESSAGE_MAP()

CPageEditDlg::CPageEditDlg(UINT templateId, const quorvel::EditorSettings& settings,
                           const PageEditHost& host, CWnd* parent)
    : CKivDialog(templateId, parent),
      m_settings(settings),
      m_host(host),
      m_nAppend(settings.appendsAtFirst ? 1 : 0) {
  m_btnTextColor.m_color = kFirstTextColor;
  m_btnBackColor.m_color = kFirstBackColor;
}

void CPageEditDlg::DoDataExchange(CDataExchange* pDX) {
  CKivDialog::DoDataExchange(pDX);
  DDX_Control(pDX, IDC_LAYOUT_TEXT_COLOUR, m_btnTextColor);
  DDX_Control(pDX, IDC_LAYOUT_BACK_COLOUR, m_btnBackColor);
  DDX_Control(pDX, IDC_LAYOUT_TEXT_COLOUR_ARROW, m_btnTextArrow);
  DDX_Control(pDX, IDC_LAYOUT_BACK_COLOUR_ARROW, m_btnBackArrow);
  DDX_Control(pDX, IDC_LAYOUT_INSERTION, m_cmbInsertion);
  // Before the fields: one that is refused does not keep the box from being read.
  DDX_Check(pDX, IDC_LAYOUT_APPEND, m_nAppend);
}

BOOL CPageEditDlg::OnInitDialog() {
  m_bClosing = false;
  ReadSettings();
  CKivDialog::OnInitDialog();
  m_btnTextColor.Recolor(m_btnTextColor.m_color);
  m_btnBackColor.Recolor(m_btnBackColor.m_color);
  m_bmpArrow = quorvel::LoadDisplayBitmap(IDB_DROP_ARROW);
  m_btnTextArrow.SetBitmap(m_bmpArrow.get());
  m_btnBackArrow.SetBitmap(m_bmpArrow.get());
  FillInsertions();
  quorvel::NameControls(m_hWnd, {{IDC_LAYOUT_TEXT_COLOUR, L"文字の色"},
                                 {IDC_LAYOUT_TEXT_COLOUR_ARROW, L"文字の色を選ぶ"},
                                 {IDC_LAYOUT_BACK_COLOUR, L"背景の色"},
                                 {IDC_LAYOUT_BACK_COLOUR_ARROW, L"背景の色を選ぶ"},
                                 {IDC_LAYOUT_INSERTION, L"ｾﾙに入れる項目"}});
  return TRUE;
}

std::optional<CKivRegistry> CPageEditDlg::Registry() const {
  if (m_host.env == nullptr) {
    return std::nullopt;
  }
  return m_host.env->GetRegistry(m_settings.section);
}

void CPageEditDlg::ReadSettings() {
  if (const std::optional<CKivRegistry> registry = Registry()) {
    registry->ReadRegistry("TextColor", &m_btnTextColor.m_color, sizeof(COLORREF));
    registry->ReadRegistry("BackColor", &m_btnBackColor.m_color, sizeof(COLORREF));
    for (CKivColorButton* const button : {&m_btnTextColor, &m_btnBackColor}) {
      button->m_color = quorvel::PlainColor(button->m_color);
    }
    if (m_settings.appendSetting != nullptr) {
      registry->ReadRegistry(m_settings.appendSetting, &m_nAppend, sizeof m_nAppend);
      m_nAppend = m_nAppend != 0 ? 1 : 0;
    }
  }
}

void CPageEditDlg::WriteSettings() {
  if (std::optional<CKivRegistry> registry = Registry()) {
    registry->WriteRegistry("TextColor", REG_BINARY, &m_btnTextColor.m_color, sizeof(COLORREF));
    registry->WriteRegistry("BackColor", REG_BINARY, &m_btnBackColor.m_color, sizeof(COLORREF));
    if (m_settings.appendSetting != nullptr) {
      registry->WriteRegistry(m_settings.appendSetting, REG_BINARY, &m_nAppend, sizeof m_nAppend);
    }
  }
}

bool CPageEditDlg::ReadField() {
  const HWND focus = ::GetFocus();
  const bool inDialog = ::IsChild(m_hWnd, focus) != FALSE;
  if (m_bClosing || focus == GetDlgItem(IDCANCEL) || (m_bRefused && !inDialog)) {
    return false;
  }
  return ReadFields();
}

bool CPageEditDlg::ReadFields() {
  m_bRefused = UpdateData(TRUE) == FALSE;
  if (!m_bRefused) {
    OnFieldsRead();
  }
  return !m_bRefused;
}

void CPageEditDlg::OnFieldLeft() { ReadField(); }

void CPageEditDlg::OnFieldForOkLeft() {
  if (::GetFocus() != GetDlgItem(IDOK)) {
    ReadField();
  }
}

void CPageEditDlg::OnSwitched() { ReadFields(); }

void CPageEditDlg::Close(INT_PTR result) {
  m_bClosing = true;
  EndDialog(result);
}

// ---- The mouse

void CPageEditDlg::PassOn(UINT message, UINT flags, const CPoint& point) {
  Default(message, flags, MAKELPARAM(point.x, point.y));
}

void CPageEditDlg::OnLButtonDown(UINT flags, CPoint point) {
  EndTyping();
  m_range.reset();
  m_bOpenedByDoubleClick = false;
  m_nToggledCel = -1;
  CPageView* const view = ViewAt(point);
  if (view == nullptr) {
    PassOn(WM_LBUTTONDOWN, flags, point);
    return;
  }
  TakeView(*view);
  m_drag = StartDrag(view->FromDialog(point));
  ShowDragCursor();
  ::SetCapture(m_hWnd);
}

CPageEditDlg::Drag CPageEditDlg::StartDrag(const CPoint& point) {
  if (m_settings.firstTest == quorvel::FirstTest::kBorder) {
    if (m_pView->TakeBorder(point)) {
      return Drag::kBorder;
    }
    m_nAnchorCel = m_pView->CelAt(point);
    return Drag::kCels;
  }
  m_nAnchorCel = m_pView->CelAt(point, quorvel::kCelMargin);
  return m_nAnchorCel < 0 && m_pView->TakeBorder(point) ? Drag::kBorder : Drag::kCels;
}

void CPageEditDlg::ShowDragCursor() const {
  const int id = m_drag == Drag::kCels            ? IDC_CURSOR_SELECT_CELLS
                 : m_pView->Border()->IsRow() ? IDC_CURSOR_DRAG_ROW
                                              : IDC_CURSOR_DRAG_COLUMN;
  ::SetCursor(LoadDragCursor(id));
}

void CPageEditDlg::OnMouseMove(UINT flags, CPoint point) {
  if (m_drag == Drag::kBorder && m_pView->DialogArea().Contains(point)) {
    const CPoint viewPoint = m_pView->FromDialog(point);
    if (const std::optional<PairOfLengths> lengths = m_pView->DragBorder(viewPoint)) {
      ShowReadOut(viewPoint, *lengths);
    }
  }
  PassOn(WM_MOUSEMOVE, flags, point);
}

void CPageEditDlg::OnLButtonUp(UINT flags, CPoint point) {
  // The end of the double click that opened the text field; a real mouse gives it to the field.
  if (m_bOpenedByDoubleClick) {
    m_bOpenedByDoubleClick = false;
    PassOn(WM_LBUTTONUP, flags, point);
    return;
  }
  EndTyping();
  const Drag drag = m_drag;
  if (drag == Drag::kNone) {
    PassOn(WM_LBUTTONUP, flags, point);
    return;
  }
  m_drag = Drag::kNone;  // before the capture goes, which would forget the drag
  ::ReleaseCapture();
  ::SetCursor(::LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW)));
  if (drag == Drag::kBorder) {
    EndBorderDrag(point);
  } else {
    EndCelDrag(point);
  }
}

void CPageEditDlg::EndCelDrag(const CPoint& point) {
  const int anchor = m_nAnchorCel;
  m_nAnchorCel = -1;
  if (!m_pView->DialogArea().Contains(point)) {
    return;
  }
  const int end = m_pView->CelAt(m_pView->FromDialog(point));
  if (anchor < 0 || end < 0) {
    return;
  }
  const bool adds = m_settings.shiftAdds && IsPressed(VK_SHIFT);
  m_pView->InvalidateCels(quorvel::SelectCels(Block(), anchor, end, adds));
  if (anchor == end && Block().CelAt(end)->GetSelected() == 0) {
    m_nToggledCel = end;
  }
  RefreshCommands();
  OnSelected(anchor == end ? end : -1);
}

void CPageEditDlg::EndBorderDrag(const CPoint& point) {
  DropReadOut();
  const bool counts = m_pView->DialogArea().Contains(point);
  if (counts) {
    m_pView->DragBorder(m_pView->FromDialog(point));
    m_pView->StoreBorder();
  }
  m_pView->DropBorder();
  if (counts) {
    LayOutViews();
  }
}

void CPageEditDlg::OnLButtonDblClk(UINT /*flags*/, CPoint point) {
  EndTyping();
  if (m_drag == Drag::kNone) {
    m_bOpenedByDoubleClick = OnDoubleClicked(ViewAt(point), point);
  }
}

bool CPageEditDlg::OnDoubleClicked(CPageView* view, const CPoint& point) {
  // A double click begins with a click, and that one deselects the only selected cell.
  if (m_nToggledCel >= 0 && view != nullptr && view == m_pView && !Block().IsSelected() &&
      view->CelAt(view->FromDialog(point)) == m_nToggledCel) {
    m_pView->InvalidateCels(quorvel::SelectCels(Block(), m_nToggledCel, m_nToggledCel, false));
    RefreshCommands();
  }
  m_nToggledCel = -1;
  return OpenTextEdit();
}

void CPageEditDlg::OnRButtonUp(UINT /*flags*/, CPoint point) {
  EndTyping();
  if (m_drag == Drag::kBorder && OnRightDuringDrag()) {
    return;
  }
  CPageView* const view = ViewAt(point);
  if (view == nullptr || view != m_pView) {
    return;
  }
  const CLayoutCelData* const cel = Block().CelAt(view->CelAt(view->FromDialog(point)));
  if (cel != nullptr && cel->GetSelected() != 0) {
    CPoint screenPoint = point;
    ::ClientToScreen(m_hWnd, &screenPoint);
    ShowCelMenu(screenPoint);
  }
}

LRESULT CPageEditDlg::OnSetCursor(WPARAM wParam, LPARAM lParam) {
  CPoint point;
  ::GetCursorPos(&point);
  ::ScreenToClient(m_hWnd, &point);
  if (m_drag != Drag::kNone && m_pView->DialogArea().Contains(point)) {
    ShowDragCursor();
    return TRUE;
  }
  return Default(WM_SETCURSOR, wParam, lParam);
}

LRESULT CPageEditDlg::OnCaptureChanged(WPARAM wParam, LPARAM lParam) {
  CancelDrag();
  return Default(WM_CAPTURECHANGED, wParam, lParam);
}

void CPageEditDlg::CancelDrag() {
  if (m_drag == Drag::kNone) {
    return;
  }
  m_drag = Drag::kNone;
  m_nAnchorCel = -1;
  DropReadOut();
  m_pView->DropBorder();
  if (::GetCapture() == m_hWnd) {
    ::ReleaseCapture();
  }
}

void CPageEditDlg::ShowReadOut(const CPoint& point, const PairOfLengths& lengths) {
  if (m_pReadOut == nullptr) {
    m_pReadOut = std::make_unique<CToolTip>();
    m_pReadOut->Create(m_pView);
  }
  m_pReadOut->Request(point, ReadOutText(m_settings.readOut, lengths));
}

void CPageEditDlg::DropReadOut() {
  if (m_pReadOut != nullptr) {
    m_pReadOut->Hide();
    m_pReadOut->DestroyWindow();
    m_pReadOut.reset();
  }
}

// ---- The keyboard

BOOL CPageEditDlg::PreTranslateMessage(MSG* message) {
  const bool mayBeOurs =
      message->message == WM_KEYDOWN && m_pTextEdit == nullptr && m_drag == Drag::kNone;
  return mayBeOurs && HandleKey(*message) ? TRUE : CKivDialog::PreTranslateMessage(message);
}

bool CPageEditDlg::HandleKey(const MSG& message) {
  const bool onlyControl = IsPressed(VK_CONTROL) && !IsPressed(VK_MENU);
  switch (message.wParam) {
    case VK_F2:
      HandleF2();
      return true;
    case VK_F8:
      SwitchRange();
      return true;
    case VK_RETURN:
      return onlyControl && OpenCurrentBlock();
    case 'O':
      return onlyControl && RunFileCommand(IDM_OPEN_LAYOUT);
    case 'S':
      return onlyControl && RunFileCommand(IDM_SAVE_LAYOUT);
    default:
      break;
  }
  if (!MovesSelection(message)) {
    return false;
  }
  HandleArrow(message.wParam);
  return true;
}

void CPageEditDlg::HandleF2() {
  const bool asks = IsPressed(VK_SHIFT) || IsPressed(VK_CONTROL);
  const std::optional<quorvel::BorderDrag> border =
      asks ? BorderOfSelection(IsPressed(VK_CONTROL)) : std::nullopt;
  if (!border || !AskLengths(*border)) {
    OpenTextEdit();
  }
}

std::optional<quorvel::BorderDrag> CPageEditDlg::BorderOfSelection(bool isRow) const {
  return HasSelection()
             ? quorvel::BorderBeyond(Block(), quorvel::FirstSelectedCel(Block()), isRow)
             : std::nullopt;
}

bool CPageEditDlg::RunFileCommand(UINT command) {
  if (m_fileTools.IsButtonEnabled(command) == FALSE) {
    return false;
  }
  ::PostMessageW(m_hWnd, WM_COMMAND, command, 0);
  return true;
}

/// Ctrl and an arrow key, unless they lead through the text of a field or open a list.
bool CPageEditDlg::MovesSelection(const MSG& message) {
  if (message.wParam < VK_LEFT || message.wParam > VK_DOWN || !IsPressed(VK_CONTROL)) {
    return false;
  }
  const LRESULT code = ::SendMessageW(message.hwnd, WM_GETDLGCODE, 0, 0);
  if ((code & DLGC_HASSETSEL) != 0) {
    return message.wParam == VK_UP || message.wParam == VK_DOWN;
  }
  return (code & DLGC_WANTARROWS) == 0;
}

/// Of the first selected cell; its view becomes the current one. -1 for none.
int CPageEditDlg::CelBeside(int down, int right) {
  int col = 0;
  bool upwards = false;
  if (m_pView != nullptr) {
    const int from = quorvel::FirstSelectedCel(Block());
    const int next = quorvel::NeighbourCel(Block(), from, down, right);
    if (next != from || down == 0) {
      return next;
    }
    int row = 0;
    Block().RowColOf(from, row, col);
    upwards = down < 0;
  }
  CPageView* const beyond = ViewBeyond(down);
  if (beyond == nullptr) {
    return -1;
  }
  TakeView(*beyond);
  return upwards ? quorvel::CelOfLastRow(Block(), col) : quorvel::CelOfFirstRow(Block(), col);
}

void CPageEditDlg::HandleArrow(WPARAM key) {
  const int down = key == VK_DOWN ? 1 : key == VK_UP ? -1 : 0;
  const int right = key == VK_RIGHT ? 1 : key == VK_LEFT ? -1 : 0;
  if (IsPressed(VK_SHIFT)) {
    StepBorder(down, right);
  } else if (!SelectRange(down, right)) {
    SelectNeighbour(down, right);
  }
}

void CPageEditDlg::SwitchRange() {
  if (m_range) {
    m_range.reset();
  } else if (HasSelection()) {
    const int first = quorvel::FirstSelectedCel(Block());
    m_range = Range{first, first};
  }
}

/// Cells may have been selected otherwise since.
bool CPageEditDlg::IsRangeSelected() const {
  const auto isSelected = [this](int index) {
    const CLayoutCelData* const cel = Block().CelAt(index);
    return cel != nullptr && cel->GetSelected() != 0;
  };
  return m_range && m_pView != nullptr && isSelected(m_range->anchor) && isSelected(m_range->end);
}

/// False where no range is being selected.
bool CPageEditDlg::SelectRange(int down, int right) {
  if (!IsRangeSelected()) {
    m_range.reset();
    return false;
  }
  m_range->end = quorvel::NeighbourCel(Block(), m_range->end, down, right);
  CelList changed = quorvel::DeselectAll(Block());
  const CelList selected =
      quorvel::SelectCels(Block(), m_range->anchor, m_range->end, true);
  changed.insert(changed.end(), selected.begin(), selected.end());
  m_pView->InvalidateCels(changed);
  RefreshCommands();
  OnTextGiven();
  return true;
}

void CPageEditDlg::StepBorder(int down, int right) {
  if (const std::optional<quorvel::BorderDrag> border = BorderOfSelection(down != 0)) {
    quorvel::StoreLengths(*border, quorvel::SteppedLengths(*border, Block(), down + right),
                          Block());
    LayOutViews();
  }
}

void CPageEditDlg::SelectNeighbour(int down, int right) {
  const int next = CelBeside(down, right);
  if (next < 0) {
    return;
  }
  CelList changed = quorvel::DeselectAll(Block());
  const CelList selected = quorvel::SelectCels(Block(), next, next, true);
  changed.insert(changed.end(), selected.begin(), selected.end());
  m_pView->InvalidateCels(changed);
  RefreshCommands();
  OnTextGiven();
}

LRESULT CPageEditDlg::OnKeyDown(WPARAM wParam, LPARAM lParam) {
  if (wParam == VK_SHIFT || wParam == VK_CONTROL) {
    return 0;
  }
  if (m_pTextEdit == nullptr) {
    return Default(WM_KEYDOWN, wParam, lParam);
  }
  if (wParam == VK_RETURN || wParam == VK_ESCAPE || wParam == VK_LEFT || wParam == VK_RIGHT) {
    EndTextEdit();
  }
  return 0;
}

/// The default handling would hand the focus on to the first field.
LRESULT CPageEditDlg::OnSetFocus(WPARAM wParam, LPARAM lParam) {
  return m_bKeepsFocus ? 0 : Default(WM_SETFOCUS, wParam, lParam);
}

/// From the keyboard the menu opens at the first selected cell.
LRESULT CPageEditDlg::OnContextMenu(WPARAM wParam, LPARAM lParam) {
  const std::optional<CRect> rect =
      HasSelection() ? m_pView->RectOf(quorvel::FirstSelectedCel(Block())) : std::nullopt;
  if (lParam != -1 || !rect) {
    return Default(WM_CONTEXTMENU, wParam, lParam);
  }
  CPoint point((rect->left + rect->right) / 2, (rect->top + rect->bottom) / 2);
  ::ClientToScreen(m_pView->m_hWnd, &point);
  EndTyping();
  ShowCelMenu(point);
  return 0;
}

// ---- Commands

bool CPageEditDlg::IsCommandPossible(UINT command) const {
  if (m_pView == nullptr) {
    return false;
  }
  switch (command) {
    case IDM_MERGE_CELLS:
      return Block().CanMerge();
    case IDM_SPLIT_CELLS:
      return Block().CanSplit();
    default:
      return Block().IsSelected();
  }
}

void CPageEditDlg::CreateCelTools(const CPoint& position) {
  constexpr int kImages = 11;
  m_celTools.CreateToolCtrl(this, quorvel::kToolStyle, m_settings.celTools.data(),
                            static_cast<int>(m_settings.celTools.size()), IDB_CELL_TOOLS, kImages,
                            position, 0, TRUE);
  quorvel::NameControl(m_celTools.m_hWnd, L"ｾﾙの編集");
}

void CPageEditDlg::CreateFileTools(const CPoint& position, bool disabled) {
  constexpr std::array kTools{TOOLITEM{IDM_OPEN_LAYOUT, 0, FALSE},
                              TOOLITEM{IDM_SAVE_LAYOUT, 1, FALSE}};
  constexpr int kCount = static_cast<int>(kTools.size());
  m_fileTools.CreateToolCtrl(this, quorvel::kToolStyle, kTools.data(), kCount, IDB_FILE_TOOLS,
                             kCount, position, 0, disabled ? TRUE : FALSE);
  quorvel::NameControl(m_fileTools.m_hWnd, L"ﾚｲｱｳﾄのﾌｧｲﾙ");
}

void CPageEditDlg::RefreshCommands() {
  for (const TOOLITEM& item : m_settings.celTools) {
    if (item.bSeparator == FALSE) {
      m_celTools.EnableButton(item.nCommand, IsCommandPossible(item.nCommand) ? TRUE : FALSE);
    }
  }
  if (HasInsertions()) {
    ::EnableWindow(m_cmbInsertion.m_hWnd, HasSelection() ? TRUE : FALSE);
  }
}

void CPageEditDlg::ShowCelMenu(const CPoint& screenPoint) {
  const OwnedMenu menu(::CreatePopupMenu());
  for (const quorvel::CelMenuItem& item : m_settings.celMenu) {
    if (item.text == nullptr) {
      ::AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
    } else {
      ::AppendMenuW(menu.get(), IsOffered(item.nCommand) ? MF_ENABLED : MF_GRAYED,
                    item.nCommand, quorvel::WideFromCodePage(item.text).c_str());
    }
  }
  ::TrackPopupMenu(menu.get(), TPM_RIGHTBUTTON, screenPoint.x, screenPoint.y, 0, m_hWnd, nullptr);
}

// NOLINTNEXTLINE(readability-convert-member-functions-to-static): called as a member by the map
void CPageEditDlg::OnToolTipText(const NMHDR& notification) {
  CKivToolCtrl::AnswerToolTip(notification);
}

void CPageEditDlg::OnEditText() { OpenTextEdit(); }

bool CPageEditDlg::OpenTextEdit() {
  if (!HasSelection()) {
    return false;
  }
  const int index = quorvel::FirstSelectedCel(Block());
  const std::optional<CRect> rect = m_pView->RectOf(index);
  if (m_pTextEdit != nullptr || !rect) {
    return false;
  }
  m_pTextEdit = std::make_unique<CKivKeyCtrlEdit>();
  const CRect place = m_pView->ToDialog(*rect).Grown(-kTextEditEdge, -kTextEditEdge);
  if (m_pTextEdit->Create(WS_CHILD | WS_VISIBLE | WS_BORDER | ES_WANTRETURN | ES_AUTOHSCROLL, place,
                          this, kCelTextEditId,
                          KIVKEY_ENTER | KIVKEY_ESCAPE | KIVKEY_ARROWS) == FALSE) {
    m_pTextEdit.reset();
    return false;
  }
  const HWND edit = m_pTextEdit->m_hWnd;
  // A new child lies below its siblings.
  ::SetWindowPos(edit, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  quorvel::NameControl(edit, L"ｾﾙのﾃｷｽﾄ");
  ::SendMessageW(edit, WM_SETFONT,
                 static_cast<WPARAM>(::SendMessageW(m_hWnd, WM_GETFONT, 0, 0)), TRUE);
  m_pTextEdit->SetWindowText(Block().CelAt(index)->GetText());
  ::SendMessageW(edit, EM_SETSEL, 0, -1);
  ::SendMessageW(edit, EM_SCROLLCARET, 0, 0);
  m_pView->SetEditedCel(index);
  ::SetFocus(edit);
  return true;
}

void CPageEditDlg::EndTextEdit() {
  if (m_pTextEdit == nullptr) {
    return;
  }
  // Taken out first: the messages of its end find no field.
  const std::unique_ptr<CKivKeyCtrlEdit> edit = std::move(m_pTextEdit);
  m_pView->SetEditedCel(-1);
  if (::SendMessageW(edit->m_hWnd, EM_GETMODIFY, 0, 0) != 0) {
    ::SendMessageW(edit->m_hWnd, EM_SETMODIFY, FALSE, 0);
    m_pView->InvalidateCels(quorvel::SetText(Block(), edit->GetWindowText()));
  }
  m_bKeepsFocus = true;
  ::SetFocus(m_hWnd);
  m_bKeepsFocus = false;
  quorvel::DropName(edit->m_hWnd);
  edit->DestroyWindow();
}

CString CPageEditDlg::SelectedText() const {
  return HasSelection() ? Block().CelAt(quorvel::FirstSelectedCel(Block()))->GetText() : CString();
}

void CPageEditDlg::OnEditFont() {
  EndTyping();
  if (!HasSelection()) {
    return;
  }
  const CLayoutCelData* const cel = Block().CelAt(quorvel::FirstSelectedCel(Block()));
  CKivFontEx font = *cel->GetFont();
  CSelFontExDlg dialog(m_host.env, "ｾﾙのﾌｫﾝﾄ編集", FALSE, kAllFontFields);
  if (dialog.Run(&font, m_host.dotsPerMm) == IDOK) {
    ChangeCels([&](quorvel::PageBlock& block) { return quorvel::SetFont(block, font); });
  }
}

void CPageEditDlg::OnAlignVertically(UINT command) {
  const BYTE place = static_cast<BYTE>(command - IDM_ALIGN_TOP);
  ChangeCels([&](quorvel::PageBlock& block) { return quorvel::SetVerticalPlace(block, place); });
}

void CPageEditDlg::OnAlignHorizontally(UINT command) {
  const BYTE place = static_cast<BYTE>(command - IDM_ALIGN_LEFT);
  ChangeCels([&](quorvel::PageBlock& block) { return quorvel::SetHorizontalPlace(block, place); });
}

void CPageEditDlg::OnMerge() {
  EndTyping();
  ChangeCels(&quorvel::MergeSelected);
  RefreshCommands();
}

void CPageEditDlg::OnSplit() {
  EndTyping();
  ChangeCels(&quorvel::SplitSelected);
  RefreshCommands();
}

void CPageEditDlg::OnTextColor() {
  ApplyColor(m_btnTextColor, &quorvel::SetTextColor);
}

void CPageEditDlg::OnBackColor() {
  ApplyColor(m_btnBackColor, &quorvel::SetBackColor);
}

void CPageEditDlg::OnChooseTextColor() {
  PickColor(IDC_LAYOUT_TEXT_COLOUR_ARROW, m_btnTextColor, &quorvel::SetTextColor);
}

void CPageEditDlg::OnChooseBackColor() {
  PickColor(IDC_LAYOUT_BACK_COLOUR_ARROW, m_btnBackColor, &quorvel::SetBackColor);
}

void CPageEditDlg::PickColor(int arrowId, CKivColorButton& button, CelCommand apply) {
  RECT arrow{};
  ::GetWindowRect(GetDlgItem(arrowId), &arrow);
  const bool atRight = m_settings.colorsOpenAt == quorvel::ColorsOpenAt::kRightCorner;
  CPoint corner(atRight ? arrow.right : arrow.left, arrow.bottom);
  CSelColorDlg dialog(m_host.env, button.m_color, &corner, this);
  if (dialog.DoModal() == IDOK) {
    button.Recolor(dialog.m_color);
    ApplyColor(button, apply);
  }
}

void CPageEditDlg::ApplyColor(const CKivColorButton& button, CelCommand apply) {
  ChangeCels([&](quorvel::PageBlock& block) { return apply(block, button.m_color); });
}

// ---- Insertions

bool CPageEditDlg::HasInsertions() const {
  return m_host.insertions != nullptr && m_host.insertions->GetSize() > 0;
}

void CPageEditDlg::FillInsertions() {
  if (!HasInsertions()) {
    for (const int id : {IDC_LAYOUT_INSERTION, IDC_LAYOUT_APPEND}) {
      ::ShowWindow(GetDlgItem(id), SW_HIDE);
    }
    return;
  }
  std::vector<std::wstring> names;
  names.reserve(static_cast<std::size_t>(m_host.insertions->GetSize()) + 1);
  names.emplace_back();
  for (INT_PTR i = 0; i < m_host.insertions->GetSize(); ++i) {
    names.push_back(quorvel::WideFromCodePage(m_host.insertions->GetAt(i).View()));
  }
  m_cmbInsertion.ResetContent();
  m_cmbInsertion.AddStrings(names);
  m_cmbInsertion.SetCurSel(0);
}

/// The arrow keys lead through an open list: only what it closes with is a choice.
void CPageEditDlg::OnInsertion() {
  if (::SendMessageW(m_cmbInsertion.m_hWnd, CB_GETDROPPEDSTATE, 0, 0) == 0) {
    Insert();
  }
}

void CPageEditDlg::OnInsertionTaken() { m_bInsertionTaken = true; }

void CPageEditDlg::OnInsertionClosed() {
  if (std::exchange(m_bInsertionTaken, false)) {
    Insert();
  }
}

void CPageEditDlg::Insert() {
  const int choice = m_cmbInsertion.GetCurSel();
  if (choice < 1 || !HasInsertions() || !HasSelection()) {
    return;
  }
  const CString tag = quorvel::InsertionTag(*m_host.insertions, m_host.numbers, choice);
  ChangeCels([&](quorvel::PageBlock& block) {
    return quorvel::InsertText(block, tag, m_nAppend != 0);
  });
  m_cmbInsertion.SetCurSel(0);
  OnInserted();
}

// ---- Files

/// None when the user cancels, and for an editor without files.
std::optional<std::wstring> CPageEditDlg::AskForFile(BOOL open) {
  constexpr DWORD kFlags = OFN_HIDEREADONLY | OFN_PATHMUSTEXIST | OFN_FILEMUSTEXIST |
                           OFN_EXPLORER | OFN_NODEREFERENCELINKS;
  if (m_settings.fileExtension == nullptr) {
    return std::nullopt;
  }
  CFileDialog dialog(open, m_settings.fileExtension, "",
                     open != FALSE ? kFlags : kFlags | OFN_OVERWRITEPROMPT, m_settings.fileFilter,
                     this);
  if (dialog.DoModal() != IDOK) {
    return std::nullopt;
  }
  return dialog.GetPathNameWide();
}

void CPageEditDlg::OnOpen() {
  EndTyping();
  const std::optional<std::wstring> path = AskForFile(TRUE);
  if (path && !OpenPage(*path)) {
    AfxMessageBox("ﾌｧｲﾙが正常に読み込み出来ません。", MB_ICONEXCLAMATION);
  }
}

void CPageEditDlg::OnSave() {
  EndTyping();
  if (!PrepareToSave()) {
    return;
  }
  if (const std::optional<std::wstring> path = AskForFile(FALSE)) {
    SavePage(*path);
  }
}
