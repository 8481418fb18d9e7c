#include "soak/editor_user.h"

#include "dialogs/layout/page_edit_dlg.h"
#include "driver/controls.h"
#include "kivdata/layout_ex_page_data.h"
#include "kivdata/layout_page_data.h"
#include "res/ids.h"
#include "support/held_key.h"
#include "support/sound_page.h"

#include <algorithm>
#include <array>
#include <fstream>

namespace quorvel::test {

namespace {

using driver::kFileNameField;

constexpr int kMessageBoxText = 0xFFFF;
constexpr std::array kBoxButtons{IDOK, IDYES, IDNO, IDCANCEL};

constexpr std::array kMouseMessages{UINT{WM_LBUTTONDOWN}, UINT{WM_LBUTTONUP},
                                    UINT{WM_MOUSEMOVE},   UINT{WM_MOUSEMOVE},
                                    UINT{WM_LBUTTONDBLCLK}, UINT{WM_RBUTTONUP}};
constexpr std::array kPictures{IDC_LAYOUT_IMAGE, IDC_HEADER_IMAGE, IDC_LIST_IMAGE,
                               IDC_FOOTER_IMAGE};
/// Fields that are read when they are left, and what they take or refuse.
constexpr std::array kCountFields{IDC_LAYOUT_ROWS, IDC_LAYOUT_COLUMNS, IDC_HEADER_ROWS,
                                  IDC_LIST_ROWS,   IDC_FOOTER_ROWS,    IDC_LIST_REPEAT,
                                  IDC_LIST_OFFSET};
constexpr std::array kLengthFields{IDC_LAYOUT_HEIGHT, IDC_LAYOUT_WIDTH,     IDC_LAYOUT_MARGIN,
                                   IDC_HEADER_HEIGHT, IDC_LIST_HEIGHT,      IDC_FOOTER_HEIGHT,
                                   IDC_OUTER_LINE_WIDTH, IDC_INNER_LINE_WIDTH};
constexpr std::array kCounts{L"1", L"2", L"3", L"5", L"8", L"2*6", L"20"};
constexpr std::array kLengths{L"0", L"1", L"29.75", L"120", L"１０００/3", L"1e12"};
constexpr std::array kRefused{L"", L"0", L"21", L"-1", L"1e13", L"abc", L"inf"};
constexpr std::array kKeys{VK_LEFT, VK_RIGHT, VK_UP, VK_DOWN, VK_F2, VK_F8, VK_APPS};
constexpr std::array kModifiers{VK_CONTROL, VK_SHIFT};
constexpr std::array kTexts{L"", L"図", L"A&B", L"図面名称", L"<M>1 図番</M>", L"</M><M>", L"%s%n",
                            L"\xD83D\xDE00", L"long enough to be cut off at the edge of its cell"};

CPageEditDlg* EditorOf(HWND dialog) {
  return dynamic_cast<CPageEditDlg*>(CWnd::FromHandlePermanent(dialog));
}

/// Where windows are taken away from above all dialogs of the thread.
void UncoverAll() {
  ::EnumThreadWindows(
      ::GetCurrentThreadId(),
      [](HWND window, LPARAM) -> BOOL {
        ::RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
        return TRUE;
      },
      0);
}

std::vector<HWND> PicturesOf(HWND editor) {
  std::vector<HWND> pictures;
  for (const int id : kPictures) {
    if (const HWND picture = ::GetDlgItem(editor, id); picture != nullptr) {
      pictures.push_back(picture);
    }
  }
  return pictures;
}

/// Opens an editor's view to the test.
class OpenEditor : public CPageEditDlg {
public:
  static CPageView* ViewAt(CPageEditDlg& editor, const CPoint& point) {
    CPageView* (CPageEditDlg::*const viewAt)(const CPoint&) = &OpenEditor::ViewAt;
    return (editor.*viewAt)(point);
  }

protected:
  using CPageEditDlg::ViewAt;
};

/// The grids in use.
std::vector<const PageBlock*> BlocksOf(HWND dialog) {
  std::vector<const PageBlock*> blocks;
  if (CPageEditDlg* const editor = EditorOf(dialog); editor != nullptr) {
    for (const HWND picture : PicturesOf(dialog)) {
      const CRect area(driver::ClientRectOf(picture));
      if (const CPageView* const view = OpenEditor::ViewAt(*editor, area.TopLeft())) {
        blocks.push_back(&view->Block());
      }
    }
  }
  return blocks;
}

std::string TextOf(const PageBlock& block) {
  std::string text = std::to_string(block.Rows()) + "x" + std::to_string(block.Cols());
  for (int row = 0; row < block.Rows(); ++row) {
    text += " " + std::to_string(block.RowLength(row));
  }
  for (int col = 0; col < block.Cols(); ++col) {
    text += " " + std::to_string(block.ColLength(col));
  }
  for (int index = 0; index < block.CelCount(); ++index) {
    const CLayoutCelData& cel = *block.CelAt(index);
    text += "|";
    text += cel.TextView();
    for (const int part :
         {int{cel.GetSelected()}, int{cel.GetRowMeargeSize()}, int{cel.GetColMeargeSize()}}) {
      text += " " + std::to_string(part);
    }
  }
  return text;
}

/// A field for a number that is read when it is left.
struct NumberField {
  HWND window;
  bool isCount;  ///< of rows or columns, not a length
};

/// Those into which a user can type now. The list editor has none.
std::vector<NumberField> NumberFieldsOf(HWND editor) {
  std::vector<NumberField> fields;
  const auto add = [&](const auto& ids, bool isCount) {
    for (const int id : ids) {
      const HWND field = ::GetDlgItem(editor, id);
      if (driver::ClassName(field) == L"Edit" && ::IsWindowVisible(field) != FALSE &&
          ::IsWindowEnabled(field) != FALSE) {
        fields.push_back({field, isCount});
      }
    }
  };
  add(kCountFields, true);
  add(kLengthFields, false);
  return fields;
}

void WriteBytes(const std::filesystem::path& file, std::string_view bytes) {
  std::ofstream(file, std::ios::binary) << bytes;
}

}  // namespace

// ---- Files

FilesOfUser::FilesOfUser()
    : m_folder(std::filesystem::temp_directory_path() /
               (L"quorvel soak " + std::to_wstring(::GetCurrentProcessId()))) {
  std::filesystem::remove_all(m_folder);
  std::filesystem::create_directories(m_folder / L"folder.mtpld");
  constexpr double kDotsPerMm = 11.811;
  constexpr BYTE kLines = 4;
  CLayoutPageData page;
  page.DividePage(kLines, kLines, kDotsPerMm);
  page.GetCelAt(0)->SetText("図面名称");
  page.SaveFileW((m_folder / L"格子.mtpld").c_str());
  CLayoutExPageData extended;
  extended.DividePage(CLayoutExPageData::LISTTYPE_LIST, kLines, kLines, kDotsPerMm);
  extended.SaveFileW((m_folder / L"表.mtpld2").c_str());
  extended.SaveFileW((m_folder / L"of the other kind.mtpld").c_str());
  page.SaveFileW((m_folder / L"of the other kind.mtpld2").c_str());
  WriteBytes(m_folder / L"empty.mtpld", "");
  WriteBytes(m_folder / L"no page.mtpld2", "this is no page at all");
  for (const wchar_t* const name :
       {L"格子.mtpld", L"表.mtpld2", L"of the other kind.mtpld", L"of the other kind.mtpld2",
        L"empty.mtpld", L"no page.mtpld2", L"missing.mtpld", L"folder.mtpld", L"new",
        L"no such folder\\new.mtpld"}) {
    m_names.push_back((m_folder / name).make_preferred().wstring());
  }
}

FilesOfUser::~FilesOfUser() {
  std::error_code ignored;
  std::filesystem::remove_all(m_folder, ignored);
}

// ---- Whatever is on top

EditorUser::~EditorUser() {
  for (const int key : kModifiers) {
    HoldKey(key, false);
  }
}

void EditorUser::Work(HWND dialog) {
  if (driver::VisibleMenu() != nullptr) {
    AnswerMenu(dialog);
  } else if (::GetDlgItem(dialog, kMessageBoxText) != nullptr) {
    AnswerMessageBox(dialog);
  } else if (::GetDlgItem(dialog, kFileNameField) != nullptr) {
    AnswerFileDialog(dialog);
  } else if (constexpr int kRarity = 3; driver::VisibleDialogs().size() > 1 && OneIn(kRarity)) {
    Answer(dialog);  // or a user would hardly ever be back in the editor
  } else {
    RandomUser::Work(dialog);
  }
}

void EditorUser::Close(HWND dialog) {
  if (driver::VisibleMenu() != nullptr) {
    ::PostMessageW(dialog, WM_KEYDOWN, VK_ESCAPE, 1);
  } else if (driver::VisibleDialogs().size() == 1 && m_lastCommand == IDOK && OneIn(2)) {
    ::PostMessageW(dialog, WM_COMMAND, IDOK, 0);  // which may be refused
  } else {
    RandomUser::Close(dialog);
  }
}

void EditorUser::Answer(HWND dialog) {
  const int answer = OneOf(std::array{IDOK, IDCANCEL});
  Record("answer", dialog, answer);
  ::PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(answer), 0);
}

void EditorUser::AnswerMenu(HWND dialog) {
  constexpr int kMostSteps = 12;
  const int steps = Number(0, kMostSteps);
  // A command that is not possible leaves the menu open.
  const int key = OneIn(2) ? VK_RETURN : VK_ESCAPE;
  Record("menu", dialog, steps, key);
  for (int down = 0; down < steps; ++down) {
    ::PostMessageW(dialog, WM_KEYDOWN, VK_DOWN, 1);
  }
  ::PostMessageW(dialog, WM_KEYDOWN, static_cast<WPARAM>(key), 1);
}

void EditorUser::AnswerMessageBox(HWND box) {
  std::vector<int> buttons;
  std::ranges::copy_if(kBoxButtons, std::back_inserter(buttons),
                       [box](int id) { return ::GetDlgItem(box, id) != nullptr; });
  const int answer = buttons.empty() ? IDCANCEL : OneOf(buttons);
  Record("message box", box, answer);
  ::PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(answer), 0);
}

void EditorUser::AnswerFileDialog(HWND dialog) {
  const int file = Number(0, static_cast<int>(m_files.Names().size()) - 1);
  const int answer = OneOf(std::array{IDOK, IDOK, IDCANCEL});
  Record("file", dialog, file, answer);
  ::SetDlgItemTextW(dialog, kFileNameField,
                    m_files.Names()[static_cast<std::size_t>(file)].c_str());
  ::PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(answer), 0);
}

void EditorUser::DoStep(HWND dialog, HWND window) {
  if (EditorOf(dialog) != nullptr) {
    DoStepInEditor(dialog, window);
  } else {
    RandomUser::DoStep(dialog, window);
  }
}

std::string EditorUser::FaultNow(HWND dialog) {
  for (const PageBlock* const block : BlocksOf(dialog)) {
    if (std::string fault = FaultOf(*block); !fault.empty()) {
      return fault;
    }
  }
  return {};
}

std::string EditorUser::StateOf(HWND dialog) {
  std::string state;
  for (const PageBlock* const block : BlocksOf(dialog)) {
    state += TextOf(*block);
  }
  return state;
}

// ---- The layout editors

void EditorUser::DoStepInEditor(HWND editor, HWND window) {
  const int id = ::GetDlgCtrlID(window);
  if (id == IDOK || id == IDCANCEL) {
    EndNowAndThen(editor);
    return;
  }
  switch (Number(0, 12)) {
    case 0:
    case 1:
    case 2:
      SendMouseToPicture(editor);
      return;
    case 3:
      SendDrag(editor);
      return;
    case 4:
      SendCelCommand(editor);
      return;
    case 5:
      Insert(editor);
      return;
    case 6:
      LeaveNumber(editor);
      return;
    case 7:
      SendKey(editor);
      return;
    case 8:
      TypeIntoCel(editor);
      return;
    case 9:
      if (constexpr int kRarity = 10; OneIn(kRarity)) {
        Record("uncover", editor);
        UncoverAll();
      }
      return;
    default:
      RandomUser::DoStep(editor, window);
      return;
  }
}

/// Now and then, or there would be nothing but openings.
void EditorUser::EndNowAndThen(HWND editor) {
  constexpr int kRarity = 8;
  if (OneIn(kRarity)) {
    const int command = OneOf(std::array{IDOK, IDCANCEL});
    Record("end", editor, command);
    ::SendMessageW(editor, WM_COMMAND, static_cast<WPARAM>(command), 0);
    EndBurst();
  }
}

/// In the dialog's client pixels.
CRect EditorUser::PictureOf(HWND editor) { return driver::ClientRectOf(OneOf(PicturesOf(editor))); }

void EditorUser::SendMouseToPicture(HWND editor) {
  const CPoint point = PointAround(PictureOf(editor));
  const UINT message = OneOf(kMouseMessages);
  const bool isDown = message == WM_LBUTTONDOWN || message == WM_MOUSEMOVE;
  Record("picture", editor, static_cast<int>(message), MAKELONG(point.x, point.y));
  ::SendMessageW(editor, message, isDown ? MK_LBUTTON : 0, MAKELPARAM(point.x, point.y));
}

/// Now and then the other button ends it.
void EditorUser::SendDrag(HWND editor) {
  constexpr int kRarity = 4;
  const CRect picture = PictureOf(editor);
  const auto send = [&](UINT message) {
    const CPoint point = PointAround(picture);
    Record("drag", editor, static_cast<int>(message), MAKELONG(point.x, point.y));
    ::SendMessageW(editor, message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON,
                   MAKELPARAM(point.x, point.y));
  };
  send(WM_LBUTTONDOWN);
  for (int steps = Number(0, 3); steps > 0; --steps) {
    send(WM_MOUSEMOVE);
  }
  send(OneIn(kRarity) ? WM_RBUTTONUP : WM_LBUTTONUP);
}

void EditorUser::SendCelCommand(HWND editor) {
  constexpr int kRarity = 20;
  const int command = Number(IDM_EDIT_TEXT, IDM_EQUAL_ROWS);
  const bool isOfSystem =
      command == IDM_EDIT_FONT || command == IDM_OPEN_LAYOUT || command == IDM_SAVE_LAYOUT;
  if (isOfSystem && !OneIn(kRarity)) {
    return;  // the system's dialogs take their time
  }
  Record("command", editor, command);
  ::SendMessageW(editor, WM_COMMAND, static_cast<WPARAM>(command), 0);
}

void EditorUser::Insert(HWND editor) {
  Choose(driver::Control(editor, IDC_LAYOUT_INSERTION));
}

void EditorUser::LeaveNumber(HWND editor) {
  const std::vector<NumberField> fields = NumberFieldsOf(editor);
  if (fields.empty()) {
    return;
  }
  const NumberField number = OneOf(fields);
  constexpr int kRarity = 16;  // a message box takes its time
  const std::wstring text = OneIn(kRarity)    ? OneOf(kRefused)
                            : number.isCount ? OneOf(kCounts)
                                             : OneOf(kLengths);
  Record("number", number.window, static_cast<int>(text.size()), text.empty() ? 0 : text.front());
  ::SetWindowTextW(number.window, text.c_str());
  ::SendMessageW(editor, WM_COMMAND, MAKEWPARAM(::GetDlgCtrlID(number.window), EN_KILLFOCUS),
                 reinterpret_cast<LPARAM>(number.window));
}

void EditorUser::SendKey(HWND editor) {
  const HWND edit = ::GetDlgItem(editor, static_cast<int>(kCelTextEditId));
  if (edit != nullptr && OneIn(2)) {
    const int key = OneIn(2) ? VK_RETURN : VK_ESCAPE;
    Record("key", edit, key);
    ::PostMessageW(edit, WM_KEYDOWN, static_cast<WPARAM>(key), 1);
  } else if (OneIn(3)) {
    const int key = OneOf(kModifiers);
    const bool down = OneIn(2);
    Record(down ? "hold" : "release", editor, key);
    HoldKey(key, down);
  } else {
    PressKey(editor, OneOf(kKeys));
  }
}

/// Into the cell's own field or, where the editor has one, the line for texts.
void EditorUser::TypeIntoCel(HWND editor) {
  const int id = OneIn(2) ? static_cast<int>(kCelTextEditId) : IDC_LAYOUT_TEXT_LINE;
  if (const HWND edit = ::GetDlgItem(editor, id); edit != nullptr) {
    const int text = Number(0, static_cast<int>(kTexts.size()) - 1);
    const int code = OneIn(2) ? EN_CHANGE : EN_KILLFOCUS;
    Record("cell", edit, text, code);
    ::SetWindowTextW(edit, kTexts[static_cast<std::size_t>(text)]);
    ::SendMessageW(edit, EM_SETMODIFY, TRUE, 0);
    ::SendMessageW(editor, WM_COMMAND, MAKEWPARAM(id, code), reinterpret_cast<LPARAM>(edit));
  }
}

}  // namespace quorvel::test
