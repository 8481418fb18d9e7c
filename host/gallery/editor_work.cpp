#include "gallery/editor_work.h"

#include "driver/controls.h"
#include "driver/picture.h"
#include "gallery/exhibit_work.h"
#include "res/ids.h"

// Needs <windows.h> above.
#include <commctrl.h>

#include <algorithm>
#include <cstdint>
#include <system_error>
#include <utility>

namespace quorvel::gallery {

namespace {

using driver::Click;
using driver::ClickAt;
using driver::ClientRectOf;
using driver::Control;
using driver::DialogWithControl;
using driver::DialogWithTitle;
using driver::kFileNameField;
using driver::ModalScript;
using driver::Painted;

/// Around the page in its picture.
constexpr std::uint32_t kAroundPage = 0xBFBFBF;

CRect PageArea(HWND dialog, int imageId) {
  const driver::Picture picture = driver::ReadPixels(Control(dialog, imageId));
  CRect area(picture.width, picture.height, 0, 0);
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      if (picture.At(x, y) != kAroundPage) {
        area.left = std::min(area.left, LONG{x});
        area.top = std::min(area.top, LONG{y});
        area.right = std::max(area.right, LONG{x} + 1);
        area.bottom = std::max(area.bottom, LONG{y} + 1);
      }
    }
  }
  Expect(area.Width() > 0 && area.Height() > 0, "no page is to be seen");
  const RECT image = ClientRectOf(Control(dialog, imageId));
  area.OffsetRect(image.left, image.top);
  return area;
}

}  // namespace

TourFolder::~TourFolder() {
  if (!m_folder.empty()) {
    std::error_code ignored;
    std::filesystem::remove_all(m_folder, ignored);
  }
}

void TourFolder::Begin() {
  m_folder = std::filesystem::temp_directory_path() /
             (L"quorvel-tour-" + std::to_wstring(::GetCurrentProcessId()));
  std::filesystem::remove_all(m_folder);
  std::filesystem::create_directories(m_folder);
}

std::filesystem::path TourFolder::File(const wchar_t* name) const {
  return (m_folder / name).make_preferred();
}

void BorrowedMouse::MoveTo(HWND dialog, POINT point) {
  ::ClientToScreen(dialog, &point);
  ::GetCursorPos(&m_before);
  ::SetCursorPos(point.x, point.y);
}

void BorrowedMouse::GiveBack() const {
  ::SetCursorPos(m_before.x, m_before.y);
}

POINT PointAt(HWND dialog, int imageId, const PageBlock& block, double across, double down) {
  const CRect area = PageArea(dialog, imageId);
  return {area.left + static_cast<LONG>(area.Width() * across / block.Width()),
          area.top + static_cast<LONG>(area.Height() * down / block.Height())};
}

POINT CentreOf(HWND dialog, int imageId, const PageBlock& block, int row, int col) {
  constexpr double kHalf = 0.5;
  double across = block.ColLength(col) * kHalf;
  double down = block.RowLength(row) * kHalf;
  for (int before = 0; before < col; ++before) {
    across += block.ColLength(before);
  }
  for (int before = 0; before < row; ++before) {
    down += block.RowLength(before);
  }
  return PointAt(dialog, imageId, block, across, down);
}

void DragWithoutRelease(HWND dialog, POINT from, POINT to) {
  ::PostMessageW(dialog, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(from.x, from.y));
  ::PostMessageW(dialog, WM_MOUSEMOVE, MK_LBUTTON,
                 MAKELPARAM((from.x + to.x) / 2, (from.y + to.y) / 2));
  ::PostMessageW(dialog, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(to.x, to.y));
}

bool IsReadOutInSight() {
  bool isInSight = false;
  ::EnumThreadWindows(
      ::GetCurrentThreadId(),
      [](HWND window, LPARAM found) {
        if (driver::ClassName(window) == L"CToolTip" && ::IsWindowVisible(window) != FALSE &&
            ::GetUpdateRect(window, nullptr, FALSE) == FALSE) {
          *reinterpret_cast<bool*>(found) = true;
        }
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&isInSight));
  return isInSight;
}

void PressTool(HWND dialog, UINT command) {
  for (HWND bar = ::FindWindowExW(dialog, nullptr, TOOLBARCLASSNAMEW, nullptr); bar != nullptr;
       bar = ::FindWindowExW(dialog, bar, TOOLBARCLASSNAMEW, nullptr)) {
    RECT button{};
    if (::SendMessageW(bar, TB_GETRECT, command, reinterpret_cast<LPARAM>(&button)) != 0) {
      Expect(::SendMessageW(bar, TB_ISBUTTONENABLED, command, 0) != 0,
             "the tool " + std::to_string(command) + " is disabled");
      ClickAt(bar, {(button.left + button.right) / 2, (button.top + button.bottom) / 2});
      return;
    }
  }
  Expect(false, "no tool bar has the tool " + std::to_string(command));
}

void Then(ModalScript& script, const wchar_t* title, ModalScript::Action action) {
  script.When(Painted(DialogWithTitle(title)), std::move(action));
}

void EnterFileName(ModalScript& script, const std::filesystem::path& file) {
  script.When(Painted(DialogWithControl(kFileNameField)), [file](HWND dialog) {
    ::SetDlgItemTextW(dialog, kFileNameField, file.c_str());
    Click(dialog, IDOK);
  });
}

void PickInsertion(ModalScript& script, const wchar_t* title, int entry) {
  Then(script, title, [](HWND dialog) { Click(dialog, IDC_LAYOUT_INSERTION); });
  const auto findList = [title]() -> HWND {
    const HWND dialog = DialogWithTitle(title).find();
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    return dialog != nullptr &&
                   ::GetComboBoxInfo(Control(dialog, IDC_LAYOUT_INSERTION), &info) != FALSE &&
                   ::IsWindowVisible(info.hwndList) != FALSE
               ? info.hwndList
               : nullptr;
  };
  script.When({"the list of insertions", findList}, [entry](HWND list) {
    RECT item{};
    ::SendMessageW(list, LB_GETITEMRECT, static_cast<WPARAM>(entry),
                   reinterpret_cast<LPARAM>(&item));
    ClickAt(list, {(item.left + item.right) / 2, (item.top + item.bottom) / 2});
  });
}

}  // namespace quorvel::gallery
