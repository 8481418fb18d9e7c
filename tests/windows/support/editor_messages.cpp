#include "support/editor_messages.h"

#include "driver/controls.h"
#include "framework/code_page.h"
#include "res/ids.h"
#include "support/held_key.h"

#include <gtest/gtest.h>

// Needs <windows.h> above.
#include <dlgs.h>

#include <array>
#include <cmath>
#include <string>

namespace quorvel::test {

namespace {

constexpr std::array kMouseMessages{UINT{WM_LBUTTONDOWN}, UINT{WM_LBUTTONUP},
                                    UINT{WM_MOUSEMOVE},   UINT{WM_MOUSEMOVE},
                                    UINT{WM_LBUTTONDBLCLK}, UINT{WM_RBUTTONUP}};
constexpr std::array kCounts{L"1", L"2", L"3", L"5", L"8", L"2*6", L"20"};
constexpr std::array kLengths{L"0", L"1", L"29.75", L"120", L"１０００/3", L"1e12"};
constexpr std::array kRefused{L"", L"0", L"21", L"-1", L"1e13", L"abc"};
constexpr std::array kKeys{VK_LEFT, VK_RIGHT, VK_UP, VK_DOWN, VK_F2, VK_F8, VK_APPS};
constexpr std::array kModifiers{VK_CONTROL, VK_SHIFT};
constexpr int kTextEdit = 200;
constexpr std::array kTexts{L"", L"図", L"A&B", L"図面名称", L"<M>1 図番</M>",
                            L"long enough to be cut off at the edge of its cell"};

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

}  // namespace

EditorMessages::~EditorMessages() {
  for (const int key : kModifiers) {
    HoldKey(key, false);
  }
}

void EditorMessages::Work(HWND dialog) {
  if (driver::VisibleMenu() != nullptr) {
    AnswerMenu(dialog);
  } else if (IsEditor(dialog)) {
    RandomMessages::Work(dialog);
  } else {
    Answer(dialog);
  }
}

void EditorMessages::Close(HWND dialog) {
  if (driver::VisibleMenu() != nullptr) {
    ::PostMessageW(dialog, WM_KEYDOWN, VK_ESCAPE, 1);
  } else if (IsEditor(dialog)) {
    ::PostMessageW(dialog, WM_COMMAND, m_lastCommand, 0);
  } else {
    RandomMessages::Close(dialog);
  }
}

void EditorMessages::SendOne(HWND dialog, HWND window) {
  const int id = ::GetDlgCtrlID(window);
  if (id == IDOK || id == IDCANCEL) {
    EndNowAndThen(dialog);
    return;
  }
  switch (Number(0, 12)) {
    case 0:
    case 1:
    case 2:
      SendMouseToPicture(dialog);
      return;
    case 3:
      SendDrag(dialog);
      return;
    case 4:
      SendCelCommand(dialog);
      return;
    case 5:
      Insert(dialog);
      return;
    case 6:
      LeaveNumber(dialog);
      return;
    case 7:
      SendKey(dialog);
      return;
    case 8:
      TypeIntoCel(dialog);
      return;
    case 9:
      if (constexpr int kRarity = 10; Number(1, kRarity) == 1) {
        UncoverAll();
      }
      return;
    default:
      RandomMessages::SendOne(dialog, window);
      return;
  }
}

void EditorMessages::AnswerMenu(HWND dialog) {
  for (int down = Number(0, 12); down > 0; --down) {
    ::PostMessageW(dialog, WM_KEYDOWN, VK_DOWN, 1);
  }
  // A command that is not possible leaves the menu open.
  ::PostMessageW(dialog, WM_KEYDOWN, Number(0, 1) == 0 ? VK_RETURN : VK_ESCAPE, 1);
}

void EditorMessages::Answer(HWND dialog) {
  const bool canConfirm = ::GetDlgItem(dialog, IDC_COLOUR_TABS) != nullptr ||
                          ::GetDlgItem(dialog, IDC_GRID_OTHER) != nullptr ||
                          (::GetDlgItem(dialog, cmb1) != nullptr &&
                           ::GetDlgItem(dialog, cmb2) != nullptr &&
                           ::GetDlgItem(dialog, cmb3) != nullptr);
  if (canConfirm && Number(0, 1) == 0) {
    ::PostMessageW(dialog, WM_COMMAND, IDOK, 0);
  } else {
    RandomMessages::Close(dialog);
  }
}

/// Now and then, or there would be nothing but openings.
void EditorMessages::EndNowAndThen(HWND editor) {
  constexpr int kRarity = 20;
  if (Number(1, kRarity) == 1) {
    ::SendMessageW(editor, WM_COMMAND, Number(0, 1) == 0 ? IDOK : IDCANCEL, 0);
  }
}

/// In the dialog's client pixels.
CRect EditorMessages::PictureOf(HWND editor) {
  return driver::ClientRectOf(OneOf(PicturesOf(editor)));
}

void EditorMessages::SendMouseToPicture(HWND editor) {
  const CPoint point = PointAround(PictureOf(editor));
  const UINT message = OneOf(kMouseMessages);
  const bool isDown = message == WM_LBUTTONDOWN || message == WM_MOUSEMOVE;
  ::SendMessageW(editor, message, isDown ? MK_LBUTTON : 0, MAKELPARAM(point.x, point.y));
}

/// Now and then the other button ends it.
void EditorMessages::SendDrag(HWND editor) {
  constexpr int kRarity = 4;
  const CRect picture = PictureOf(editor);
  const auto send = [&](UINT message) {
    const CPoint point = PointAround(picture);
    ::SendMessageW(editor, message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON,
                   MAKELPARAM(point.x, point.y));
  };
  send(WM_LBUTTONDOWN);
  for (int steps = Number(0, 3); steps > 0; --steps) {
    send(WM_MOUSEMOVE);
  }
  send(Number(1, kRarity) == 1 ? WM_RBUTTONUP : WM_LBUTTONUP);
}

void EditorMessages::SendCelCommand(HWND editor) {
  const int command = CelCommand();
  if (command != IDM_EDIT_FONT || Number(0, 9) == 0) {  // the font dialog takes its time
    ::SendMessageW(editor, WM_COMMAND, static_cast<WPARAM>(command), 0);
  }
}

void EditorMessages::Insert(HWND editor) {
  const HWND list = driver::Control(editor, IDC_LAYOUT_INSERTION);
  ::SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(Number(-1, 3)), 0);
  ::SendMessageW(editor, WM_COMMAND, MAKEWPARAM(IDC_LAYOUT_INSERTION, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(list));
}

void EditorMessages::LeaveNumber(HWND editor) {
  const NumberField number = OneOf(NumberFields());
  const HWND field = ::GetDlgItem(editor, number.id);
  if (field == nullptr || ::IsWindowVisible(field) == FALSE || ::IsWindowEnabled(field) == FALSE) {
    return;  // nobody can type there
  }
  constexpr int kRarity = 16;  // a message box takes its time
  ::SetWindowTextW(field, Number(1, kRarity) == 1 ? OneOf(kRefused)
                          : number.isCount        ? OneOf(kCounts)
                                                  : OneOf(kLengths));
  ::SendMessageW(editor, WM_COMMAND, MAKEWPARAM(number.id, EN_KILLFOCUS),
                 reinterpret_cast<LPARAM>(field));
}

void EditorMessages::SendKey(HWND editor) {
  const HWND edit = ::GetDlgItem(editor, kTextEdit);
  if (edit != nullptr && Number(0, 1) == 0) {
    ::PostMessageW(edit, WM_KEYDOWN, Number(0, 1) == 0 ? VK_RETURN : VK_ESCAPE, 1);
  } else if (Number(0, 2) == 0) {
    HoldKey(OneOf(kModifiers), Number(0, 1) == 0);
  } else {
    ::PostMessageW(::GetFocus(), WM_KEYDOWN, static_cast<WPARAM>(OneOf(kKeys)), 1);
  }
}

/// Into the cell's own field or, where the editor has one, the line for texts.
void EditorMessages::TypeIntoCel(HWND editor) {
  const int id = Number(0, 1) == 0 ? kTextEdit : IDC_LAYOUT_TEXT_LINE;
  if (const HWND edit = ::GetDlgItem(editor, id); edit != nullptr) {
    ::SetWindowTextW(edit, OneOf(kTexts));
    ::SendMessageW(edit, EM_SETMODIFY, TRUE, 0);
    ::SendMessageW(editor, WM_COMMAND, MAKEWPARAM(id, Number(0, 1) == 0 ? EN_CHANGE : EN_KILLFOCUS),
                   reinterpret_cast<LPARAM>(edit));
  }
}

void OpenEach(driver::ModalScript& script, int imageId, const std::vector<int>& commands,
              int countId) {
  const driver::Condition isEditor = driver::Painted(driver::DialogWithControl(imageId));
  const auto findOpened = [imageId] {
    const std::vector<HWND> dialogs = driver::VisibleDialogs();
    const bool isOpened = !dialogs.empty() && ::GetDlgItem(dialogs.front(), imageId) == nullptr;
    return isOpened ? dialogs.front() : nullptr;
  };
  const driver::Condition isOpened =
      driver::Painted({"a dialog above the editor", findOpened});
  script.When(isEditor, [imageId](HWND editor) {
    constexpr int kDragged = 5;
    constexpr CSize kFromBorders(8, 15);
    const CRect picture(driver::ClientRectOf(driver::Control(editor, imageId)));
    const CPoint centre((picture.left + picture.right) / 2, (picture.top + picture.bottom) / 2);
    driver::Drag(editor, centre, {centre.x, centre.y + kDragged});
    driver::ClickAt(editor, {centre.x + kFromBorders.cx, centre.y + kFromBorders.cy});
  });
  for (const int command : commands) {
    script.When(isEditor, [command](HWND editor) {
      ::PostMessageW(editor, WM_COMMAND, static_cast<WPARAM>(command), 0);
    });
    script.When(isOpened,
                [](HWND opened) { ::PostMessageW(opened, WM_COMMAND, IDCANCEL, 0); });
  }
  if (countId != 0) {
    script.When(isEditor, [countId](HWND editor) {
      ::SetWindowTextW(driver::Control(editor, countId), L"21");
      ::PostMessageW(editor, WM_COMMAND, MAKEWPARAM(countId, EN_KILLFOCUS), 0);
    });
    script.When(isOpened, [countId](HWND box) {
      const HWND editor = ::GetWindow(box, GW_OWNER);
      ::SetWindowTextW(driver::Control(editor, countId), std::to_wstring(kRowsForOpenings).c_str());
      ::PostMessageW(box, WM_COMMAND, IDCANCEL, 0);
    });
  }
  script.When(isEditor, [](HWND editor) { ::PostMessageW(editor, WM_CONTEXTMENU, 0, -1); });
  script.When(driver::MenuShown(), [](HWND /*menu*/) {
    ::PostMessageW(driver::VisibleDialogs().front(), WM_KEYDOWN, VK_ESCAPE, 1);
  });
  script.When(isEditor,
              [](HWND editor) { ::PostMessageW(editor, WM_COMMAND, IDCANCEL, 0); });
}

bool IsLength(double length) { return std::isfinite(length) && length >= 0.0; }

namespace {

/// Every grid position belongs to one cell.
void ExpectSoundMerges(const PageBlock& block) {
  const int rows = block.Rows();
  const int cols = block.Cols();
  std::vector<int> owners(static_cast<std::size_t>(block.CelCount()), 0);
  for (int index = 0; index < block.CelCount(); ++index) {
    const CLayoutCelData& cel = *block.CelAt(index);
    const int height = cel.GetRowMeargeSize();
    const int width = cel.GetColMeargeSize();
    ASSERT_EQ(height == 0, width == 0) << index;
    const int top = index / cols;
    const int left = index % cols;
    ASSERT_LE(top + height, rows) << index;
    ASSERT_LE(left + width, cols) << index;
    for (int row = top; row < top + height; ++row) {
      for (int col = left; col < left + width; ++col) {
        const int covered = row * cols + col;
        ++owners[static_cast<std::size_t>(covered)];
        if (covered != index) {
          EXPECT_EQ(block.CelAt(covered)->GetRowMeargeSize(), 0) << covered;
          EXPECT_EQ(block.CelAt(covered)->GetColMeargeSize(), 0) << covered;
        }
      }
    }
  }
  EXPECT_EQ(owners, std::vector<int>(owners.size(), 1));
}

/// Nothing is lost on the way to the system's characters and back.
void ExpectWholeCharacters(std::string_view text) {
  EXPECT_EQ(text.find('\0'), std::string_view::npos);
  EXPECT_EQ(CodePageFromWide(WideFromCodePage(text)), text);
}

}  // namespace

void ExpectSoundCels(const PageBlock& block) {
  ASSERT_EQ(block.CelCount(), block.Rows() * block.Cols());
  double height = 0.0;
  for (int row = 0; row < block.Rows(); ++row) {
    EXPECT_TRUE(IsLength(block.RowLength(row))) << row << ": " << block.RowLength(row);
    height += block.RowLength(row);
  }
  double width = 0.0;
  for (int col = 0; col < block.Cols(); ++col) {
    EXPECT_TRUE(IsLength(block.ColLength(col))) << col << ": " << block.ColLength(col);
    width += block.ColLength(col);
  }
  EXPECT_FLOAT_EQ(static_cast<float>(block.Height()), static_cast<float>(height));
  EXPECT_FLOAT_EQ(static_cast<float>(block.Width()), static_cast<float>(width));
  for (int index = 0; index < block.CelCount(); ++index) {
    ASSERT_NE(block.CelAt(index), nullptr) << index;
    ExpectWholeCharacters(block.CelAt(index)->TextView());
    EXPECT_LE(block.CelAt(index)->GetFont()->GetVPos(), 2) << index;
    EXPECT_LE(block.CelAt(index)->GetFont()->GetHPos(), 2) << index;
  }
  ExpectSoundMerges(block);
}

}  // namespace quorvel::test
