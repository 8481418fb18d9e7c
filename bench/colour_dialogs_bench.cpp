// The colour dialogs against the platform: opening against its own colour dialog, a step of a drag in
// either field against windows that only paint what the step changes, the field's picture against
// plain writes of as many pixels.
#include "bench/bare_picker.h"
#include "bench/bare_select_page.h"
#include "bench/benchmarks.h"
#include "bench/opening.h"
#include "bench/timing.h"
#include "dialogs/colour/edit_sel_color.h"
#include "driver/controls.h"
#include "driver/dialog_owner.h"
#include "driver/modal_script.h"
#include "driver/picture.h"
#include "res/ids.h"

#include <quorvel/quorvel.h>

// Need <windows.h> above.
#include <commctrl.h>
#include <commdlg.h>

#include <array>
#include <cstring>
#include <stdexcept>

namespace quorvel::bench {

namespace {

using driver::Control;
using driver::DialogWithControl;
using driver::ModalScript;
using driver::Painted;
using driver::ReadPixels;

constexpr COLORREF kColor = RGB(51, 102, 255);
constexpr int kWarmUps = 20;

void RunPlatformDialog(HWND owner) {
  std::array<COLORREF, 16> made{};
  CHOOSECOLORW chosen{};
  chosen.lStructSize = sizeof chosen;
  chosen.hwndOwner = owner;
  chosen.rgbResult = kColor;
  chosen.lpCustColors = made.data();
  chosen.Flags = CC_FULLOPEN | CC_RGBINIT;
  ::ChooseColorW(&chosen);
}

/// In the look that it has in a program whose manifest asks for version 6 of the controls, as ours
/// always has.
void RunPlatformDialogInOurLook(HWND owner) {
  const driver::ModuleContext context(::GetModuleHandleW(L"Quorvel.dll"));
  context.Run([owner] { RunPlatformDialog(owner); });
}

void OpenGrid() {
  COLORREF color = kColor;
  __SelColorDlg(nullptr, &color, nullptr);
}

void OpenTabs() {
  COLORREF color = kColor;
  __SelColorDlgEx(nullptr, &color, nullptr);
}

void OpenEditor() {
  COLORREF color = kColor;
  __EditColorDlg(nullptr, &color, nullptr);
}

void OpenPicker() {
  COLORREF color = kColor;
  __SelRGBDlg(&color);
}

struct Opening {
  const char* name;
  void (*open)();
  double mostTimesPlatform;
};

constexpr std::array kOpenings{Opening{"__SelColorDlg", OpenGrid, 1.0},
                               Opening{"__SelColorDlgEx", OpenTabs, 1.3},
                               Opening{"__EditColorDlg", OpenEditor, 1.3},
                               Opening{"__SelRGBDlg", OpenPicker, 1.0}};

/// Dialogs whose template has all of their controls: what the platform needs for it is a floor.
struct Floor {
  const char* name;
  UINT templateId;
  void (*open)();
};

constexpr std::array kFloors{Floor{"__SelColorDlg", IDD_COLOUR_GRID, OpenGrid},
                             Floor{"__SelRGBDlg", IDD_COLOUR_PICKER, OpenPicker}};

void Append(std::vector<Row>& rows, const std::vector<Row>& more) {
  rows.insert(rows.end(), more.begin(), more.end());
}

void Require(bool holds, const char* complaint) {
  if (!holds) {
    throw std::runtime_error(complaint);
  }
}

/// There and back again between 0 and `highest`.
int Bounced(int way, int highest) {
  const int there = way % (2 * highest);
  return there <= highest ? there : 2 * highest - there;
}

/// Where the mouse is after so many steps of a drag through a field: no two steps that follow each
/// other have the same place.
CPoint PlaceOfStep(int step, const CSize& field) {
  constexpr int kRight = 3;
  constexpr int kDown = 2;
  return {Bounced(kRight * step, field.cx - 1), Bounced(kDown * step, field.cy - 1)};
}

/// The seconds from a mouse move to the last pixel that it changes.
double TimeOfMove(HWND window, const CPoint& point) {
  const LONGLONG start = Ticks();
  ::SendMessageW(window, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(point.x, point.y));
  ::RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  ::GdiFlush();
  return Seconds(start, Ticks());
}

/// Drags in `window`'s field, whose corner is at `corner`; the bare window makes the same step after
/// each one. The medians.
template <class BareWindow>
Pair DragMedians(HWND window, BareWindow& bare, const CPoint& corner, const CSize& field, int runs,
                 const std::function<void(const CPoint& point)>& prepare) {
  std::vector<double> ours;
  std::vector<double> theirs;
  ::SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(corner.x, corner.y));
  for (int step = 1; step <= kWarmUps + runs; ++step) {
    const CPoint inField = PlaceOfStep(step, field);
    const CPoint point(corner.x + inField.x, corner.y + inField.y);
    prepare(point);
    const double oursTook = TimeOfMove(window, point);
    const double theirsTook = TimeOfMove(bare.Window(), point);
    if (step > kWarmUps) {
      ours.push_back(oursTook);
      theirs.push_back(theirsTook);
    }
  }
  const CPoint last = PlaceOfStep(kWarmUps + runs, field);
  ::SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(corner.x + last.x, corner.y + last.y));
  return {Median(ours), Median(theirs)};
}

/// The comparison is worth nothing unless both show the same.
void RequireSamePicker(HWND picker, HWND bare) {
  for (const int id : {IDC_PICKER_FIELD, IDC_PICKER_BAR, IDC_PICKER_SWATCH}) {
    Require(ReadPixels(Control(picker, id)) == ReadPixels(Control(bare, id)),
            "the bare picker paints something else");
  }
  for (const int id : {IDC_PICKER_RED, IDC_PICKER_GREEN, IDC_PICKER_BLUE, IDC_PICKER_HUE,
                       IDC_PICKER_SATURATION}) {
    Require(driver::Text(picker, id) == driver::Text(bare, id),
            "the bare picker shows other numbers");
  }
  for (const int id : {IDC_PICKER_RED_BAR, IDC_PICKER_GREEN_BAR, IDC_PICKER_BLUE_BAR,
                       IDC_PICKER_HUE_SPIN, IDC_PICKER_SATURATION_SPIN}) {
    Require(::GetScrollPos(Control(picker, id), SB_CTL) == ::GetScrollPos(Control(bare, id), SB_CTL),
            "the bare picker shows other positions");
  }
}

/// Runs a dialog that a script works; the script's problem is the benchmark's error.
void RunScripted(ModalScript& script, void (*open)()) {
  open();
  if (!script.Finished()) {
    throw std::runtime_error(script.Problem());
  }
}

Row PickerDrag(int runs) {
  Pair seconds;
  ModalScript script;
  script.When(Painted(DialogWithControl(IDC_PICKER_FIELD)), [&](HWND picker) {
    const CRect field(driver::ClientRectOf(Control(picker, IDC_PICKER_FIELD)));
    BarePicker bare(picker, {GetRValue(kColor), GetGValue(kColor), GetBValue(kColor)});
    const auto prepare = [&](const CPoint& point) {
      bare.Prepare({point.x - field.left, point.y - field.top}, field.Size());
    };
    seconds = DragMedians(picker, bare, field.TopLeft(), field.Size(), runs, prepare);
    RequireSamePicker(picker, bare.Window());
    driver::PressKey(picker, VK_ESCAPE);
  });
  RunScripted(script, OpenPicker);
  return TimesAsLong("picker, drag step in the field", "bare windows", seconds, 1.5, runs);
}

void RequireSamePage(HWND page, const BareSelectPage& bare) {
  Require(ReadPixels(Control(page, kFieldPictureId)) == ReadPixels(bare.FieldWindow()),
          "the bare page paints another field");
  Require(ReadPixels(Control(page, IDC_COLOUR_BRIGHTNESS)) == ReadPixels(bare.SliderWindow()),
          "the bare page paints another slider");
  const driver::Picture ours = ReadPixels(page);
  const driver::Picture theirs = ReadPixels(bare.Window());
  const CRect& swatch = bare.Swatch();
  for (int y = swatch.top; y < swatch.bottom; ++y) {
    for (int x = swatch.left; x < swatch.right; ++x) {
      Require(ours.At(x, y) == theirs.At(x, y), "the bare page paints another swatch");
    }
  }
}

Row SelectPageDrag(int runs) {
  constexpr int kSelectTab = 2;
  Pair seconds;
  ModalScript script;
  script.When(Painted(DialogWithControl(IDC_COLOUR_TABS)), [](HWND dialog) {
    ::SendMessageW(Control(dialog, IDC_COLOUR_TABS), TCM_SETCURFOCUS, kSelectTab, 0);
  });
  script.When(Painted(DialogWithControl(IDC_COLOUR_TABS)), [&](HWND dialog) {
    const HWND page = driver::ShownPage(dialog);
    const CRect field(driver::ClientRectOf(Control(page, IDC_COLOUR_FIELD)));
    BareSelectPage bare({225, 204, 255});  // as the dialog takes its colour
    seconds = DragMedians(page, bare, field.TopLeft(), field.Size(), runs,
                      [&](const CPoint& point) { bare.Prepare(point); });
    RequireSamePage(page, bare);
    driver::PressKey(dialog, VK_ESCAPE);
  });
  RunScripted(script, OpenTabs);
  return TimesAsLong("selected-colour page, drag step in the field", "bare windows", seconds, 1.5,
                     runs);
}

constexpr CSize kPicture{187, 106};
constexpr std::size_t kPictureLine = 564;  // 187 pixels of 3 bytes, in whole 4 bytes
constexpr int kFillsOfRun = 50;

using PictureBytes = std::vector<BYTE>;

/// One write of three bytes for each pixel, of a number that differs from pixel to pixel.
void FillPlainly(PictureBytes& bytes, unsigned first) {
  constexpr unsigned kStep = 0x010203;
  constexpr std::size_t kPixelBytes = 3;
  unsigned value = first;
  for (int y = 0; y < kPicture.cy; ++y) {
    BYTE* pixel = bytes.data() + static_cast<std::size_t>(y) * kPictureLine;
    for (int x = 0; x < kPicture.cx; ++x) {
      std::memcpy(pixel, &value, kPixelBytes);
      pixel += kPixelBytes;
      value += kStep;
    }
  }
}

template <class Fill>
double TimeOfFills(Fill fill) {
  const LONGLONG start = Ticks();
  for (int time = 0; time < kFillsOfRun; ++time) {
    fill(time);
  }
  return Seconds(start, Ticks());
}

Row PictureRebuild(int runs) {
  PictureBytes bytes(kPictureLine * kPicture.cy);
  return Compare(
      "selected-colour page, picture of a brightness", "plain writes", 2.0, runs,
      [&] {
        return TimeOfFills([&](int time) {
          FillHueSaturationPicture(kPicture, 5 * time, [&](int y) {
            return bytes.data() + static_cast<std::size_t>(y) * kPictureLine;
          });
        });
      },
      [&] {
        return TimeOfFills([&](int time) { FillPlainly(bytes, static_cast<unsigned>(time)); });
      });
}

}  // namespace

std::vector<Row> ColourDialogs(int runs) {
  std::vector<Row> rows;
  for (const Opening& opening : kOpenings) {
    Append(rows, CompareOpening(opening.name, "ChooseColor", opening.mostTimesPlatform, runs,
                                opening.open, RunPlatformDialog));
    Append(rows, CompareOpening(opening.name, "ChooseColor in our look", opening.mostTimesPlatform,
                                runs, opening.open, RunPlatformDialogInOurLook));
  }
  for (const Floor& floor : kFloors) {
    Append(rows, CompareOpening(floor.name, floor.templateId, runs, floor.open));
  }
  rows.push_back(PickerDrag(runs));
  rows.push_back(SelectPageDrag(kStepsOfRun * runs));
  rows.push_back(PictureRebuild(runs));
  return rows;
}

}  // namespace quorvel::bench
