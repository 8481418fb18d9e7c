#include "gallery/colour_exhibits.h"

#include "driver/controls.h"
#include "gallery/environment.h"
#include "gallery/exhibit_work.h"
#include "gallery/value_text.h"

#include <quorvel/quorvel.h>

// Needs <windows.h> above.
#include <commctrl.h>

#include <memory>
#include <stdexcept>
#include <utility>

namespace quorvel::gallery {

namespace {

using driver::Click;
using driver::ClickAt;
using driver::Control;
using driver::DialogWithTitle;
using driver::DoubleClickAt;
using driver::Drag;
using driver::Focus;
using driver::ModalScript;
using driver::Painted;
using driver::PressKey;
using driver::ReplaceText;
using driver::ShownPage;

// The dialogs' controls.
constexpr int kBasicBlueId = 13398;
constexpr int kBasicTealId = 13416;
constexpr int kNinthMadeColorId = 13429;
constexpr int kOtherColorId = 13323;
constexpr int kPickerFieldId = 13557;
constexpr int kPickerHueId = 13374;
constexpr int kPickerSaturationId = 13371;
constexpr int kPickerRedId = 13375;
constexpr int kPickerGreenId = 13373;
constexpr int kPickerBlueId = 13372;
constexpr int kTabsId = 1000;
constexpr int kModelId = 100;
constexpr int kFirstValueId = 110;   // the others follow
constexpr int kFirstSliderId = 120;  // the others follow
constexpr int kPaletteId = 2001;
constexpr int kPaletteAddId = 1010;
constexpr int kPaletteEditId = 1011;
constexpr int kPaletteDeleteId = 1012;
constexpr int kFieldId = 2009;
constexpr int kBrightnessId = 2010;

constexpr const wchar_t* kGridTitle = L"色設定";  // also of the dialog with tabs
constexpr const wchar_t* kPickerTitle = L"色の設定";
constexpr const wchar_t* kEditTitle = L"色編集";

constexpr int kListTab = 0;
constexpr int kEditTab = 1;
constexpr int kSelectTab = 2;

// In the list of models.
constexpr int kCmykBelowRgb = 1;
constexpr int kHsbBelowRgb = 2;

// Of the palette, at 100 %.
constexpr int kPaletteColumns = 6;
constexpr SIZE kPaletteItem{24, 16};  // on a display at 100 %

/// The colour in hand with the environment of its dialog.
struct ColorInHand {
  explicit ColorInHand(COLORREF color) : color(color) {}

  COLORREF color;
  Environment environment;
};

using Hand = std::shared_ptr<ColorInHand>;
using Work = std::function<void(HWND dialog, ModalScript& script)>;

/// The first stop of an exhibit that keeps colours begins with none.
std::function<void()> BeginWith(const Hand& hand, COLORREF color) {
  return [hand, color] {
    hand->environment.BeginTour();
    hand->color = color;
  };
}

/// What the stops before have stored is still there.
std::function<void()> GoOnWith(const Hand& hand, COLORREF color) {
  return [hand, color] { hand->color = color; };
}

TourStop ColorStop(const wchar_t* title, std::function<void()> setUp, Work work, Outcome outcome,
                   COLORREF color, std::vector<Scene> scenes = {}) {
  return {
      .options = {},
      .title = title,
      .setUp = std::move(setUp),
      .scenes = std::move(scenes),
      .work = std::move(work),
      .outcome = outcome,
      .value = ColorText(color),
  };
}

/// The row of a colour dialog; `entry` opens it.
Exhibit ColorExhibit(std::string name, std::wstring entry, std::wstring label, const Hand& hand,
                     std::function<BOOL()> open, std::vector<TourStop> tour) {
  return {
      .name = std::move(name),
      .group = Group::kColours,
      .entry = std::move(entry),
      .label = std::move(label),
      .shown = [hand] { return ColorText(hand->color); },
      .value = [hand] { return ColorText(hand->color); },
      .kept = {.bytes = [hand] { return ByteWriter().Put(hand->color).Written(); },
               .restore =
                   [hand](const Bytes& bytes) {
                     return bytes.size() == sizeof hand->color &&
                            ByteReader(bytes).Get(hand->color);
                   }},
      .color = [hand] { return hand->color; },
      .run = [open = std::move(open)](
                 const RunOptions&) { return ConfirmedIf(open() != FALSE); },
      .tour = std::move(tour),
  };
}

/// Goes on once what was done so far is to be seen.
void Then(ModalScript& script, const wchar_t* title, ModalScript::Action action) {
  script.When(Painted(DialogWithTitle(title)), std::move(action));
}

void ClickTab(HWND dialog, int tab) {
  const HWND tabs = Control(dialog, kTabsId);
  RECT rect{};
  Expect(SendMessageW(tabs, TCM_GETITEMRECT, static_cast<WPARAM>(tab),
                      reinterpret_cast<LPARAM>(&rect)) != FALSE,
         "there is no tab " + std::to_string(tab));
  ClickAt(tabs, {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2});
}

void ExpectTab(HWND dialog, int tab) {
  Expect(SendMessageW(Control(dialog, kTabsId), TCM_GETCURSEL, 0, 0) == tab,
         "tab " + std::to_string(tab) + " is not selected");
}

/// Leads the list of models, which begins with RGB, so many entries down.
void SelectModel(HWND page, int entriesBelow) {
  const HWND model = Control(page, kModelId);
  Focus(model);
  for (int i = 0; i < entriesBelow; ++i) {
    PressKey(model, VK_DOWN);
  }
}

void ExpectComponents(HWND page, std::initializer_list<const wchar_t*> values) {
  int id = kFirstValueId;
  for (const wchar_t* value : values) {
    ExpectText(page, id++, value);
  }
}

/// The centre of a palette's entry, wherever the palette is scrolled to.
POINT CentreOfEntry(HWND palette, int index) {
  const int row = index / kPaletteColumns - GetScrollPos(palette, SB_VERT);
  const int column = index % kPaletteColumns;
  const UINT dots = GetDpiForWindow(palette);
  const int width = MulDiv(kPaletteItem.cx, static_cast<int>(dots), USER_DEFAULT_SCREEN_DPI);
  const int height = MulDiv(kPaletteItem.cy, static_cast<int>(dots), USER_DEFAULT_SCREEN_DPI);
  return {column * width + width / 2, row * height + height / 2};
}

std::vector<TourStop> SelectColorTour(const Hand& hand) {
  const Work makeColor = [](HWND dialog, ModalScript& script) {
    Click(dialog, kNinthMadeColorId);
    Click(dialog, kOtherColorId);
    Then(script, kPickerTitle, [](HWND picker) {
      ExpectText(picker, kPickerRedId, L"255");
      ReplaceText(Control(picker, kPickerRedId), L"200");
      ReplaceText(Control(picker, kPickerGreenId), L"100");
      ReplaceText(Control(picker, kPickerBlueId), L"50");
      Click(picker, IDOK);
    });
    Then(script, kGridTitle, [](HWND grid) { Click(grid, IDOK); });
  };
  return {
      ColorStop(
          kGridTitle, BeginWith(hand, RGB(255, 0, 128)),
          [](HWND dialog, ModalScript&) {
            Click(dialog, kBasicBlueId);
            Click(dialog, IDOK);
          },
          kConfirmed, RGB(0, 0, 255)),
      ColorStop(kGridTitle, GoOnWith(hand, RGB(255, 128, 64)), makeColor, kConfirmed,
                RGB(200, 100, 50)),
      ColorStop(
          kGridTitle, GoOnWith(hand, RGB(200, 100, 50)),
          [](HWND dialog, ModalScript&) {
            Expect(driver::FocusedControlId(dialog) == kNinthMadeColorId,
                   "the made colour was not kept");
            DoubleClickAt(Control(dialog, kBasicTealId), {5, 5});
          },
          kConfirmed, RGB(64, 128, 128)),
      ColorStop(
          kGridTitle, GoOnWith(hand, RGB(255, 128, 64)),
          [](HWND dialog, ModalScript&) {
            Click(dialog, kBasicBlueId);
            Click(dialog, IDCANCEL);
          },
          kCancelled, RGB(255, 128, 64)),
  };
}

/// On the page with the field: red, a little darker. The corner is the same colour at any scale.
void WorkField(HWND dialog, ModalScript& script) {
  const HWND page = ShownPage(dialog);
  const RECT field = driver::ClientRectOf(Control(page, kFieldId));
  Drag(page, {field.right - 1, field.top + 1}, {field.left, field.bottom});
  PressKey(Control(page, kBrightnessId), VK_NEXT);
  Then(script, kGridTitle, [](HWND worked) { Click(worked, IDOK); });
}

void AddToPalette(HWND dialog, ModalScript& script) {
  ExpectTab(dialog, kEditTab);
  ClickTab(dialog, kListTab);
  Then(script, kGridTitle, [](HWND worked) {
    Click(ShownPage(worked), kPaletteAddId);
    Click(worked, IDOK);
  });
}

void EditPaletteEntry(HWND dialog, ModalScript& script) {
  ExpectTab(dialog, kListTab);
  Click(ShownPage(dialog), kPaletteEditId);
  Then(script, kEditTitle, [](HWND editor) {
    ExpectComponents(ShownPage(editor), {L"51", L"102", L"153"});
    ReplaceText(Control(ShownPage(editor), kFirstValueId), L"255");
    Click(editor, IDOK);
  });
  Then(script, kGridTitle, [](HWND worked) { Click(worked, IDOK); });
}

void DeleteAndTakeRed(HWND dialog, ModalScript& script) {
  constexpr int kRedEntry = 27;
  ExpectTab(dialog, kListTab);
  Click(ShownPage(dialog), kPaletteDeleteId);
  script.When(driver::MessageBoxShown(), [](HWND box) { Click(box, IDYES); });
  Then(script, kGridTitle, [](HWND worked) {
    const HWND palette = Control(ShownPage(worked), kPaletteId);
    DoubleClickAt(palette, CentreOfEntry(palette, kRedEntry));
  });
}

std::vector<TourStop> SelectColorExTour(const Hand& hand) {
  const std::vector<Scene> otherPages{
      {.show = [](HWND dialog) { ClickTab(dialog, kEditTab); }},
      {.show = [](HWND dialog) { SelectModel(ShownPage(dialog), kCmykBelowRgb); },
       .picture = "select-color-ex-edit"},
      {.show =
           [](HWND dialog) {
             ExpectComponents(ShownPage(dialog), {L"127", L"127", L"0", L"0"});
             ClickTab(dialog, kSelectTab);
           },
       .picture = "select-color-ex-select"},
  };
  return {
      ColorStop(kGridTitle, BeginWith(hand, RGB(128, 128, 255)), WorkField, kConfirmed,
                RGB(230, 0, 0), otherPages),
      ColorStop(kGridTitle, GoOnWith(hand, RGB(51, 102, 153)), AddToPalette, kConfirmed,
                RGB(51, 102, 153)),
      ColorStop(kGridTitle, GoOnWith(hand, RGB(51, 102, 153)), EditPaletteEntry, kConfirmed,
                RGB(255, 102, 153)),
      ColorStop(kGridTitle, GoOnWith(hand, RGB(255, 102, 153)), DeleteAndTakeRed, kConfirmed,
                RGB(255, 0, 0)),
      ColorStop(
          kGridTitle, GoOnWith(hand, RGB(255, 102, 153)),
          [](HWND dialog, ModalScript&) {
            ExpectTab(dialog, kEditTab);  // no entry of the palette any more
            Click(dialog, IDCANCEL);
          },
          kCancelled, RGB(255, 102, 153)),
  };
}

/// Green in HSB: two fields are typed, the brightness is dragged to its end and raised by pages.
void EditInHsb(HWND dialog, ModalScript& script) {
  SelectModel(ShownPage(dialog), kHsbBelowRgb);
  Then(script, kEditTitle, [](HWND worked) {
    ExpectComponents(ShownPage(worked), {L"225", L"204", L"255"});
    ReplaceText(Control(ShownPage(worked), kFirstValueId), L"120");
  });
  // The focus leaves the field: its number counts.
  Then(script, kEditTitle, [](HWND worked) {
    ReplaceText(Control(ShownPage(worked), kFirstValueId + 1), L"255");
  });
  Then(script, kEditTitle, [](HWND worked) {
    const HWND brightness = Control(ShownPage(worked), kFirstSliderId + 2);
    RECT client{};
    GetClientRect(brightness, &client);
    const LONG middle = client.bottom / 2;
    Drag(brightness, {client.right / 2, middle}, {-client.right, middle});
    PressKey(brightness, VK_PRIOR);
    PressKey(brightness, VK_PRIOR);
  });
  Then(script, kEditTitle, [](HWND worked) {
    ExpectComponents(ShownPage(worked), {L"120", L"255", L"50"});
    Click(worked, IDOK);
  });
}

/// Half of the colour's light by the black of CMYK, confirmed out of the field.
void EditInCmyk(HWND dialog, ModalScript& script) {
  SelectModel(ShownPage(dialog), kCmykBelowRgb);
  Then(script, kEditTitle, [](HWND worked) {
    ExpectComponents(ShownPage(worked), {L"204", L"153", L"0", L"0"});
    ReplaceText(Control(ShownPage(worked), kFirstValueId + 3), L"128");
    PressKey(Control(ShownPage(worked), kFirstValueId + 3), VK_RETURN);
  });
}

std::vector<TourStop> EditColorTour(const Hand& hand) {
  const COLORREF color = RGB(51, 102, 255);
  return {
      ColorStop(kEditTitle, BeginWith(hand, color), EditInHsb, kConfirmed, RGB(0, 50, 0)),
      ColorStop(kEditTitle, GoOnWith(hand, color), EditInCmyk, kConfirmed, RGB(25, 51, 127)),
      ColorStop(
          kEditTitle, GoOnWith(hand, color),
          [](HWND dialog, ModalScript&) {
            ReplaceText(Control(ShownPage(dialog), kFirstValueId), L"9");
            Click(dialog, IDCANCEL);
          },
          kCancelled, color),
  };
}

/// To the field's last and fullest colour, at half brightness; the same at any scale.
void DragInPicker(HWND dialog, ModalScript& script) {
  const RECT field = driver::ClientRectOf(Control(dialog, kPickerFieldId));
  Drag(dialog, {field.left, field.bottom - 1}, {field.right - 1, field.top});
  Then(script, kPickerTitle, [](HWND worked) {
    ExpectText(worked, kPickerHueId, L"255");
    ExpectText(worked, kPickerSaturationId, L"256");
    Click(worked, IDOK);
  });
}

/// The red is typed, the blue stepped by an arrow key.
void TypeInPicker(HWND dialog, ModalScript& /*script*/) {
  ReplaceText(Control(dialog, kPickerRedId), L"51");
  PressKey(Control(dialog, kPickerBlueId), VK_UP);
  Click(dialog, IDOK);
}

std::vector<TourStop> SelectRgbTour(const Hand& hand) {
  const COLORREF turquoise = RGB(30, 224, 211);
  return {
      ColorStop(kPickerTitle, GoOnWith(hand, turquoise), TypeInPicker, kConfirmed,
                RGB(51, 224, 212)),
      ColorStop(kPickerTitle, GoOnWith(hand, RGB(128, 128, 128)), DragInPicker, kConfirmed,
                RGB(255, 0, 4)),
      ColorStop(
          kPickerTitle, GoOnWith(hand, turquoise),
          [](HWND dialog, ModalScript&) {
            ReplaceText(Control(dialog, kPickerRedId), L"51");
            Click(dialog, IDCANCEL);
          },
          kCancelled, turquoise),
  };
}

}  // namespace

Exhibit SelectColorExhibit() {
  const auto hand = std::make_shared<ColorInHand>(RGB(255, 128, 64));
  return ColorExhibit(
      "select-color", L"__SelColorDlg", L"線の色(&B)", hand,
      [hand] { return __SelColorDlg(hand->environment.Get(), &hand->color, nullptr); },
      SelectColorTour(hand));
}

Exhibit SelectColorExExhibit() {
  const auto hand = std::make_shared<ColorInHand>(RGB(128, 128, 255));
  return ColorExhibit(
      "select-color-ex", L"__SelColorDlgEx", L"塗りの色(&E)", hand,
      [hand] { return __SelColorDlgEx(hand->environment.Get(), &hand->color, nullptr); },
      SelectColorExTour(hand));
}

Exhibit EditColorExhibit() {
  const auto hand = std::make_shared<ColorInHand>(RGB(51, 102, 255));
  return ColorExhibit(
      "edit-color", L"__EditColorDlg", L"補助線の色(&H)", hand,
      [hand] { return __EditColorDlg(hand->environment.Get(), &hand->color, nullptr); },
      EditColorTour(hand));
}

Exhibit SelectRgbExhibit() {
  const auto hand = std::make_shared<ColorInHand>(RGB(51, 102, 255));
  return ColorExhibit(
      "select-rgb", L"__SelRGBDlg", L"背景の色(&R)", hand,
      [hand] { return __SelRGBDlg(&hand->color); }, SelectRgbTour(hand));
}

}  // namespace quorvel::gallery
