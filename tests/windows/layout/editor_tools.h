// What the tests of all layout editors work them with: tool bars, menus, fields and files.
#pragma once

#include "driver/picture.h"
#include "framework/geometry.h"
#include "support/work.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace quorvel::test {

inline constexpr int kCelTextEdit = 200;

/// A command of a tool bar or a menu, carried out when the call returns.
inline void Command(HWND dialog, UINT command) { ::SendMessageW(dialog, WM_COMMAND, command, 0); }

/// A button's click, carried out when the call returns.
inline void Press(HWND dialog, int id) { ::SendMessageW(Control(dialog, id), BM_CLICK, 0, 0); }

inline bool IsChecked(HWND dialog, int id) {
  return ::SendMessageW(Control(dialog, id), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

/// Puts a text into a field and leaves it for another control.
inline void TypeAndLeave(HWND dialog, int id, const wchar_t* text, int other = IDOK) {
  ::SetFocus(Control(dialog, id));
  ::SetWindowTextW(Control(dialog, id), text);
  ::SetFocus(Control(dialog, other));
}

/// A key of the keyboard, heard of at once.
inline void Type(HWND edit, wchar_t character) {
  ::SendMessageW(edit, WM_CHAR, static_cast<WPARAM>(character), 0);
}

/// Chooses an item of a list as its user does.
inline void ChooseItem(HWND dialog, int id, int item) {
  const HWND list = Control(dialog, id);
  ::SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(item), 0);
  ::SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE), reinterpret_cast<LPARAM>(list));
}

inline LRESULT ChosenItem(HWND dialog, int id) {
  return ::SendMessageW(Control(dialog, id), CB_GETCURSEL, 0, 0);
}

// ---- Fields

/// Types a text that is refused, is told so, and cancels; what the message says. `editor` is run with a
/// script.
template <class Editor>
std::wstring RefusalOf(Editor& editor, int controlOfEditor, int id, const wchar_t* text) {
  std::wstring message;
  ModalScript script;
  script.When(Painted(DialogWithControl(controlOfEditor)), [&](HWND dialog) {
    const HWND next = ::GetNextDlgTabItem(dialog, Control(dialog, id), FALSE);
    TypeAndLeave(dialog, id, text, ::GetDlgCtrlID(next));
  });
  script.When(MessageBoxShown(), [&](HWND box) {
    message = Text(box, 0xFFFF);
    Click(box, IDOK);
  });
  script.When(Focused(controlOfEditor, id), [&](HWND dialog) {
    EXPECT_EQ(Text(dialog, id), text);  // what was typed stays
    Click(dialog, IDCANCEL);
  });
  EXPECT_FALSE(editor.Run(script));
  return message;
}

/// The fields of a line lie behind its check box.
namespace line_field {

inline constexpr int kType = 1;
inline constexpr int kColour = 2;
inline constexpr int kWidth = 3;

}  // namespace line_field

inline void ExpectLineTypes(HWND dialog, int line) {
  constexpr std::array kTypes{L"実線", L"破線", L"点線", L"一点鎖線", L"二点鎖線", L"なし"};
  const HWND list = Control(dialog, line + line_field::kType);
  ASSERT_EQ(::SendMessageW(list, CB_GETCOUNT, 0, 0), 6);
  for (std::size_t i = 0; i < kTypes.size(); ++i) {
    ::SendMessageW(list, CB_SETCURSEL, i, 0);
    EXPECT_EQ(Text(list), kTypes[i]);
  }
}

// ---- Pictures

/// Where the picture in a control is not the grey around the page.
inline CRect DrawnArea(HWND dialog, int image) {
  constexpr std::uint32_t kGrey = 0xBFBFBF;
  const driver::Picture picture = driver::ReadPixels(Control(dialog, image));
  CRect area(picture.width, picture.height, 0, 0);
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      if (picture.At(x, y) != kGrey) {
        area = {std::min<int>(area.left, x), std::min<int>(area.top, y),
                std::max<int>(area.right, x + 1), std::max<int>(area.bottom, y + 1)};
      }
    }
  }
  return area;
}

// ---- Tool bars

/// In the order in which they were made.
inline std::vector<HWND> ToolBars(HWND dialog) {
  std::vector<HWND> bars;
  for (HWND bar = nullptr;
       (bar = ::FindWindowExW(dialog, bar, TOOLBARCLASSNAMEW, nullptr)) != nullptr;) {
    bars.push_back(bar);
  }
  return bars;
}

/// A button of a tool bar; a gap has no command.
struct ToolButton {
  int command = 0;
  int image = 0;
  friend bool operator==(const ToolButton&, const ToolButton&) = default;
};

inline std::vector<ToolButton> ToolButtons(HWND bar) {
  std::vector<ToolButton> buttons;
  const auto count = static_cast<int>(::SendMessageW(bar, TB_BUTTONCOUNT, 0, 0));
  for (int i = 0; i < count; ++i) {
    TBBUTTON button{};
    ::SendMessageW(bar, TB_GETBUTTON, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&button));
    buttons.push_back(button.fsStyle == BTNS_SEP ? ToolButton{}
                                                 : ToolButton{button.idCommand, button.iBitmap});
  }
  return buttons;
}

/// The commands of the dialog's first tool bar that are enabled.
inline std::vector<int> EnabledTools(HWND dialog) {
  std::vector<int> commands;
  const HWND bar = ToolBars(dialog).at(0);
  for (const ToolButton& button : ToolButtons(bar)) {
    if (button.command != 0 &&
        ::SendMessageW(bar, TB_ISBUTTONENABLED, static_cast<WPARAM>(button.command), 0) != 0) {
      commands.push_back(button.command);
    }
  }
  return commands;
}

/// What a pointer that rests on a button is told, by command.
inline std::wstring ToolTipOf(HWND bar, int command) {
  std::array<wchar_t, 128> text{};
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;
  tool.hwnd = bar;
  tool.uId = static_cast<UINT_PTR>(command);
  tool.lpszText = text.data();
  auto* const tips = reinterpret_cast<HWND>(::SendMessageW(bar, TB_GETTOOLTIPS, 0, 0));
  ::SendMessageW(tips, TTM_GETTEXTW, text.size(), reinterpret_cast<LPARAM>(&tool));
  return text.data();
}

/// Each button of each tool bar tells its command's text.
inline void ExpectToolTips(HWND dialog) {
  constexpr int kFirst = 31000;
  constexpr std::array kTexts{L"ﾃｷｽﾄ編集", L"ﾌｫﾝﾄ編集", L"上寄せ",   L"縦中央",       L"下寄せ",
                              L"左寄せ",   L"横中央",   L"右寄せ",   L"罫線編集",     L"ｾﾙを合成",
                              L"ｾﾙ合成を解除", L"ﾚｲｱｳﾄを開く", L"ﾚｲｱｳﾄを保存"};
  for (const HWND bar : ToolBars(dialog)) {
    for (const ToolButton& button : ToolButtons(bar)) {
      if (button.command != 0) {
        EXPECT_EQ(ToolTipOf(bar, button.command),
                  kTexts.at(static_cast<std::size_t>(button.command - kFirst)));
      }
    }
  }
}

// ---- Menus

/// A line has no command.
struct ShownItem {
  UINT command = 0;
  std::wstring text;
  bool enabled = false;
  friend bool operator==(const ShownItem&, const ShownItem&) = default;
};
inline void PrintTo(const ShownItem& item, std::ostream* stream) {
  *stream << item.command << (item.enabled ? "" : " greyed");
}

inline std::vector<ShownItem> MenuItems(HWND menuWindow) {
  constexpr UINT kGetMenu = 0x01E1;  // MN_GETHMENU
  auto* const menu = reinterpret_cast<HMENU>(::SendMessageW(menuWindow, kGetMenu, 0, 0));
  std::vector<ShownItem> items;
  for (int i = 0; i < ::GetMenuItemCount(menu); ++i) {
    std::array<wchar_t, 64> text{};
    ::GetMenuStringW(menu, static_cast<UINT>(i), text.data(), static_cast<int>(text.size()),
                     MF_BYPOSITION);
    const UINT state = ::GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION);
    items.push_back((state & MF_SEPARATOR) != 0
                        ? ShownItem{}
                        : ShownItem{::GetMenuItemID(menu, i), text.data(),
                                    (state & MF_GRAYED) == 0});
  }
  return items;
}

inline bool IsOffered(const std::vector<ShownItem>& items, UINT command) {
  return std::any_of(items.begin(), items.end(), [command](const ShownItem& item) {
    return item.command == command && item.enabled;
  });
}

// ---- Files

/// A folder of a test's own, emptied before and after; its name is hard for code pages.
class FolderOfPages {
public:
  FolderOfPages() {
    std::filesystem::remove_all(m_folder);
    std::filesystem::create_directories(m_folder);
  }
  ~FolderOfPages() { std::filesystem::remove_all(m_folder); }
  FolderOfPages(const FolderOfPages&) = delete;
  FolderOfPages& operator=(const FolderOfPages&) = delete;

  const std::filesystem::path& Path() const { return m_folder; }
  std::wstring PathOf(const char* name) const {
    return (m_folder / name).make_preferred().wstring();
  }

private:
  std::filesystem::path m_folder = std::filesystem::temp_directory_path() / L"quorvel 配置 ソ";
};

inline Condition FileDialogShown() { return Painted(DialogWithControl(kFileNameField)); }

/// Steps that choose a file by a command of the editor that has a control.
inline void ChooseFile(ModalScript& script, int controlOfEditor, UINT command,
                       const std::wstring& path) {
  script.When(Painted(DialogWithControl(controlOfEditor)),
              [command](HWND dialog) { ::PostMessageW(dialog, WM_COMMAND, command, 0); });
  script.When(FileDialogShown(), [path](HWND dialog) {
    ::SetDlgItemTextW(dialog, kFileNameField, path.c_str());
    ::PostMessageW(dialog, WM_COMMAND, IDOK, 0);
  });
}

}  // namespace quorvel::test
