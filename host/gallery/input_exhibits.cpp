#include "gallery/input_exhibits.h"

#include "driver/controls.h"
#include "driver/text.h"
#include "gallery/exhibit_work.h"
#include "gallery/value_text.h"

#include <quorvel/quorvel.h>

// Needs <windows.h> above.
#include <commctrl.h>

#include <algorithm>
#include <array>
#include <initializer_list>
#include <memory>
#include <span>
#include <utility>
#include <vector>

namespace quorvel::gallery {

namespace {

using driver::Click;
using driver::ClickAt;
using driver::Control;
using driver::ModalScript;
using driver::PressKey;
using driver::ReplaceText;
using driver::Text;

// The dialogs' controls.
constexpr int kCommentId = 10000;
constexpr int kTextId = 10001;
constexpr int kDpiId = 1939;
constexpr int kPointXId = 4056;
constexpr int kPointYId = 4057;
constexpr int kPointZId = 4059;
constexpr int kMousePickId = 4060;
constexpr int kPaperNameId = 13367;
constexpr int kPaperWidthId = 13368;
constexpr int kPaperHeightId = 13369;
constexpr int kPaperSizeId = 13521;
constexpr int kClearAllId = 13322;
constexpr int kCheckListId = 4030;

constexpr const wchar_t* kTextTitle = L"文字列入力";
constexpr const wchar_t* kScaleTitle = L"縮尺入力";
constexpr const wchar_t* kDpiTitle = L"解像度入力";
constexpr const wchar_t* kPointTitle = L"座標入力";
constexpr const wchar_t* kPaperTitle = L"ﾕｰｻﾞｰ用紙設定";
constexpr const wchar_t* kCheckListTitle = L"表示する線種";

Outcome PointOutcome(INT_PTR result) {
  constexpr INT_PTR kPointConfirmed = 0;
  constexpr INT_PTR kPointMousePick = 2;
  switch (result) {
    case kPointConfirmed:
      return kConfirmed;
    case kPointMousePick:
      return kMousePick;
    default:
      return kCancelled;
  }
}

template <std::size_t Size>
std::wstring PointText(const std::array<double, Size>& point) {
  std::wstring text = L"point={";
  for (const double& coordinate : point) {
    text += (&coordinate == point.data() ? L"" : L", ") + Number(coordinate);
  }
  return text + L"}";
}

/// The first element is the field Y, the second the field X.
std::wstring CoordinatesInWords(std::span<const double> point) {
  return L"X " + Number(point[1]) + L"　Y " + Number(point[0]);
}

/// Of numbers that live as long as their owner.
KeptValue KeepNumbers(std::span<double> numbers, const std::shared_ptr<void>& owner) {
  return {.bytes =
              [numbers, owner] {
                ByteWriter writer;
                for (const double number : numbers) {
                  writer.Put(number);
                }
                return writer.Written();
              },
          .restore =
              [numbers, owner](const Bytes& bytes) {
                ByteReader reader(bytes);
                std::vector<double> read(numbers.size());
                for (double& number : read) {
                  if (!reader.GetNumber(number)) {
                    return false;
                  }
                }
                if (!reader.IsAtEnd()) {
                  return false;
                }
                std::ranges::copy(read, numbers.begin());
                return true;
              }};
}

/// Controls with the texts that they show, or that are typed into them.
using FieldTexts = std::vector<std::pair<int, std::wstring>>;

/// A visit of a point dialog: looks at the fields, types into them and presses the button.
TourStop PointStop(std::function<void()> setUp, bool allowMousePick, const FieldTexts& shown,
                   const FieldTexts& typed, int buttonId, Outcome outcome, std::wstring value) {
  return {
      .options = {.allowMousePick = allowMousePick},
      .title = kPointTitle,
      .setUp = std::move(setUp),
      .work =
          [=](HWND dialog, ModalScript&) {
            Expect(driver::IsShown(dialog, kMousePickId) == allowMousePick,
                   "the mouse button is wrongly shown or hidden");
            for (const auto& [id, text] : shown) {
              ExpectText(dialog, id, text);
            }
            for (const auto& [id, text] : typed) {
              ReplaceText(Control(dialog, id), text);
            }
            Click(dialog, buttonId);
          },
      .outcome = outcome,
      .value = std::move(value),
  };
}

/// The paper in hand.
struct Paper {
  CString name;
  int width = 0;
  int height = 0;
  int clearAll = 0;
};

KeptValue KeepPaper(const std::shared_ptr<Paper>& paper) {
  return {.bytes =
              [paper] {
                return ByteWriter()
                    .PutText(paper->name)
                    .Put(paper->width)
                    .Put(paper->height)
                    .Written();
              },
          .restore =
              [paper](const Bytes& bytes) {
                ByteReader reader(bytes);
                Paper read;
                if (!reader.GetText(read.name) || !reader.Get(read.width) ||
                    !reader.Get(read.height) || !reader.IsAtEnd()) {
                  return false;
                }
                *paper = read;
                return true;
              }};
}

TourStop PaperStop(std::function<void()> setUp,
                   std::function<void(HWND dialog, ModalScript& script)> work, Outcome outcome,
                   std::wstring value) {
  return {
      .options = {},
      .title = kPaperTitle,
      .setUp = std::move(setUp),
      .work = std::move(work),
      .outcome = outcome,
      .value = std::move(value),
  };
}

/// Holds once the paper dialog's size label shows `size`.
driver::Condition PaperSizeShown(HWND dialog, std::wstring size) {
  return {"size label " + driver::Utf8(size), [dialog, size = std::move(size)] {
            return Text(dialog, kPaperSizeId) == size ? dialog : nullptr;
          }};
}

/// The items in hand.
struct CheckList {
  CArray<CString, CString&> items;
  CByteArray states;

  explicit CheckList(std::initializer_list<const char*> names) {
    for (const char* name : names) {
      CString item(name);
      items.Add(item);
    }
    states.SetSize(items.GetSize());
  }

  void Tick(std::initializer_list<int> newStates) {
    INT_PTR index = 0;
    for (const int state : newStates) {
      states.SetAt(index++, static_cast<BYTE>(state));
    }
  }

  std::wstring Value() const {
    std::wstring text = L"states={";
    for (INT_PTR index = 0; index < states.GetSize(); ++index) {
      text += (index == 0 ? L"" : L", ") + std::to_wstring(states.GetAt(index));
    }
    return text + L"}";
  }

  /// The names of what is ticked.
  std::wstring Ticked() const {
    std::wstring text;
    for (INT_PTR index = 0; index < states.GetSize(); ++index) {
      if (states.GetAt(index) != 0) {
        text += (text.empty() ? L"" : L"、") + Wide(items.GetAt(index));
      }
    }
    return text.empty() ? L"なし" : text;
  }

  Bytes Kept() const {
    Bytes bytes;
    for (INT_PTR index = 0; index < states.GetSize(); ++index) {
      bytes.push_back(states.GetAt(index));
    }
    return bytes;
  }
  bool Restore(const Bytes& bytes) {
    if (bytes.size() != static_cast<std::size_t>(states.GetSize())) {
      return false;
    }
    INT_PTR index = 0;
    for (const BYTE state : bytes) {
      states.SetAt(index++, state);
    }
    return true;
  }
};

constexpr int kNameColumn = 0;
constexpr int kCheckColumn = 1;

/// A click into the middle of one cell of the check list.
void ClickCell(HWND list, int row, int column) {
  RECT cell{};
  cell.top = column;
  cell.left = LVIR_LABEL;
  const LRESULT found = SendMessageW(list, LVM_GETSUBITEMRECT, static_cast<WPARAM>(row),
                                     reinterpret_cast<LPARAM>(&cell));
  Expect(found != 0, "the list has no row " + std::to_string(row));
  ClickAt(list, {(cell.left + cell.right) / 2, (cell.top + cell.bottom) / 2});
}

}  // namespace

Exhibit InputTextExhibit() {
  const auto text = std::make_shared<CString>("平面図");
  const auto setUp = [text] { *text = "初期値 ABC"; };
  return {
      .name = "input-text",
      .group = Group::kDrawing,
      .entry = L"__InputTextDlg",
      .label = L"図面名称(&T)",
      .shown = [text] { return Wide(*text); },
      .value = [text] { return NamedText(L"text", *text); },
      .kept = {.bytes = [text] { return ByteWriter().PutText(*text).Written(); },
               .restore =
                   [text](const Bytes& bytes) {
                     ByteReader reader(bytes);
                     CString read;
                     return reader.GetText(read) && reader.IsAtEnd() && (*text = read, true);
                   }},
      .run =
          [text](const RunOptions&) {
            return ConfirmedIf(__InputTextDlg("文字列入力", "文字列を入力してください", text.get(),
                                              nullptr) != FALSE);
          },
      .tour =
          {
              {
                  .options = {},
                  .title = kTextTitle,
                  .setUp = setUp,
                  .work =
                      [](HWND dialog, ModalScript&) {
                        ExpectText(dialog, kCommentId, L"文字列を入力してください");
                        ExpectText(dialog, kTextId, L"初期値 ABC");
                        ReplaceText(Control(dialog, kTextId), L"表示能力 100%d ｶﾅ");
                        Click(dialog, IDOK);
                      },
                  .outcome = kConfirmed,
                  .value = L"text=\"表示能力 100%d ｶﾅ\"",
              },
              {
                  .options = {},
                  .title = kTextTitle,
                  .setUp = setUp,
                  .work =
                      [](HWND dialog, ModalScript&) {
                        ReplaceText(Control(dialog, kTextId), L"捨てる文字列");
                        Click(dialog, IDCANCEL);
                      },
                  .outcome = kCancelled,
                  .value = L"text=\"初期値 ABC\"",
              },
          },
  };
}

Exhibit InputScaleExhibit() {
  const auto scale = std::make_shared<double>(100.0);
  const auto setUp = [scale] { *scale = 1000.4; };
  return {
      .name = "input-scale",
      .group = Group::kDrawing,
      .entry = L"__InputScaleDlg",
      .label = L"縮尺(&S)",
      .shown = [scale] { return L"1 / " + Number(*scale); },
      .value = [scale] { return NamedNumber(L"scale", *scale); },
      .kept = KeepNumbers(std::span(scale.get(), 1), scale),
      .run =
          [scale](const RunOptions&) {
            return ConfirmedIf(__InputScaleDlg("縮尺入力", "図面の縮尺を入力してください",
                                               scale.get(), nullptr) != FALSE);
          },
      .tour =
          {
              {
                  .options = {},
                  .title = kScaleTitle,
                  .setUp = setUp,
                  .work =
                      [](HWND dialog, ModalScript&) {
                        ExpectText(dialog, kCommentId, L"図面の縮尺を入力してください");
                        ExpectText(dialog, kTextId, L"1000");
                        ReplaceText(Control(dialog, kTextId), L"500.5");
                        Click(dialog, IDOK);
                      },
                  .outcome = kConfirmed,
                  .value = L"scale=500.5",
              },
              {
                  .options = {},
                  .title = kScaleTitle,
                  .setUp = setUp,
                  .work =
                      [](HWND dialog, ModalScript&) {
                        ReplaceText(Control(dialog, kTextId), L"20");
                        Click(dialog, IDCANCEL);
                      },
                  .outcome = kCancelled,
                  .value = L"scale=1000.4",
              },
          },
  };
}

Exhibit InputDpiExhibit() {
  const auto dpi = std::make_shared<int>(400);
  const auto setUp = [dpi] { *dpi = 300; };
  return {
      .name = "input-dpi",
      .group = Group::kDrawing,
      .entry = L"__InputDpiDlg",
      .label = L"画像の解像度(&D)",
      .shown = [dpi] { return std::to_wstring(*dpi) + L" dpi"; },
      .value = [dpi] { return L"dpi=" + std::to_wstring(*dpi); },
      .kept = {.bytes = [dpi] { return ByteWriter().Put(*dpi).Written(); },
               .restore =
                   [dpi](const Bytes& bytes) {
                     return bytes.size() == sizeof *dpi && ByteReader(bytes).Get(*dpi);
                   }},
      .run =
          [dpi](const RunOptions&) {
            return ConfirmedIf(__InputDpiDlg(dpi.get(), nullptr) != FALSE);
          },
      .tour =
          {
              {
                  .options = {},
                  .title = kDpiTitle,
                  .setUp = setUp,
                  .work =
                      [](HWND dialog, ModalScript&) {
                        ExpectText(dialog, kDpiId, L"300");
                        ReplaceText(Control(dialog, kDpiId), L"1200");
                        Click(dialog, IDOK);
                      },
                  .outcome = kConfirmed,
                  .value = L"dpi=1200",
              },
              {
                  .options = {},
                  .title = kDpiTitle,
                  .setUp = setUp,
                  .work =
                      [](HWND dialog, ModalScript&) {
                        // There is no cancel button: the escape key does it.
                        ReplaceText(Control(dialog, kDpiId), L"72");
                        PressKey(Control(dialog, kDpiId), VK_ESCAPE);
                      },
                  .outcome = kCancelled,
                  .value = L"dpi=300",
              },
          },
  };
}

Exhibit InputPointXYExhibit() {
  using Point = std::array<double, 2>;
  const auto point = std::make_shared<Point>(Point{100.0, 200.0});
  const auto setUp = [point] { *point = {100.0, -0.12345}; };
  const FieldTexts shown{{kPointXId, L"-0.123"}, {kPointYId, L"100.000"}};
  return {
      .name = "input-point-xy",
      .group = Group::kDrawing,
      .entry = L"__InputPointXYDlg",
      .label = L"図面の原点(&X)",
      .shown = [point] { return CoordinatesInWords(*point); },
      .value = [point] { return PointText(*point); },
      .kept = KeepNumbers(std::span(*point), point),
      .run =
          [point](const RunOptions& options) {
            return PointOutcome(
                __InputPointXYDlg(point->data(), options.allowMousePick ? TRUE : FALSE, nullptr));
          },
      .tour =
          {
              PointStop(setUp, true, shown, {{kPointXId, L"1.5"}, {kPointYId, L"-2.25"}}, IDOK,
                        kConfirmed, L"point={-2.25, 1.5}"),
              PointStop(setUp, true, shown, {{kPointXId, L"7"}, {kPointYId, L"8"}}, kMousePickId,
                        kMousePick, L"point={100, -0.12345}"),
              PointStop(setUp, false, shown, {{kPointXId, L"7"}, {kPointYId, L"8"}}, IDCANCEL,
                        kCancelled, L"point={100, -0.12345}"),
          },
  };
}

Exhibit InputPointXYZExhibit() {
  using Point = std::array<double, 3>;
  const auto point = std::make_shared<Point>(Point{100.0, 200.0, 300.0});
  const auto setUp = [point] { *point = {10.0, 20.0, 1.23456}; };
  const FieldTexts shown{{kPointXId, L"20.000"}, {kPointYId, L"10.000"}, {kPointZId, L"1.235"}};
  const FieldTexts typed{{kPointXId, L"1e3"}, {kPointYId, L"0.0625"}, {kPointZId, L"-9.75"}};
  return {
      .name = "input-point-xyz",
      .group = Group::kDrawing,
      .entry = L"__InputPointXYZDlg",
      .label = L"測量の基準点(&Z)",
      .shown =
          [point] {
            return CoordinatesInWords(*point) + L"　Z " + Number(point->back());
          },
      .value = [point] { return PointText(*point); },
      .kept = KeepNumbers(std::span(*point), point),
      .run =
          [point](const RunOptions& options) {
            return PointOutcome(
                __InputPointXYZDlg(point->data(), options.allowMousePick ? TRUE : FALSE, nullptr));
          },
      .tour =
          {
              PointStop(setUp, true, shown, typed, IDOK, kConfirmed,
                        L"point={0.0625, 1000, -9.75}"),
              PointStop(setUp, true, shown, typed, kMousePickId, kMousePick,
                        L"point={10, 20, 1.23456}"),
              PointStop(setUp, false, shown, typed, IDCANCEL, kCancelled,
                        L"point={10, 20, 1.23456}"),
          },
  };
}

Exhibit UserPaperExhibit() {
  const auto paper = std::make_shared<Paper>(Paper{"A3", 420, 297, 0});
  const auto setUp = [paper](int clearAll) {
    return [paper, clearAll] { *paper = {"A3", 420, 297, clearAll}; };
  };
  constexpr int kNotSet = 7;  // shows whether the entry wrote the flag
  return {
      .name = "user-paper",
      .group = Group::kDrawing,
      .entry = L"__UserPaperSetDlg",
      .label = L"用紙(&P)",
      .shown =
          [paper] {
            return Wide(paper->name) + L"　" + std::to_wstring(paper->width) + L" × " +
                   std::to_wstring(paper->height) + L" mm";
          },
      .value =
          [paper] {
            return NamedText(L"name", paper->name) + L" width=" + std::to_wstring(paper->width) +
                   L" height=" + std::to_wstring(paper->height) + L" clearAll=" +
                   std::to_wstring(paper->clearAll);
          },
      .kept = KeepPaper(paper),
      .run =
          [paper](const RunOptions&) {
            if (__UserPaperSetDlg(nullptr, &paper->name, &paper->width, &paper->height,
                                  &paper->clearAll, nullptr) == 0) {
              return kCancelled;
            }
            return paper->clearAll != 0 ? kClearAll : kConfirmed;
          },
      .tour =
          {
              PaperStop(
                  setUp(kNotSet),
                  [](HWND dialog, ModalScript& script) {
                    ExpectText(dialog, kPaperNameId, L"");
                    ExpectText(dialog, kPaperSizeId, L"(420x297)");
                    ReplaceText(Control(dialog, kPaperNameId), L"長尺図面");
                    ReplaceText(Control(dialog, kPaperWidthId), L"1189");
                    ReplaceText(Control(dialog, kPaperHeightId), L"420");
                    script.When(PaperSizeShown(dialog, L"(1189x420)"),
                                [](HWND worked) { Click(worked, IDOK); });
                  },
                  kConfirmed, L"name=\"長尺図面(1189x420)\" width=1189 height=420 clearAll=0"),
              PaperStop(
                  setUp(kNotSet),
                  [](HWND dialog, ModalScript&) {
                    ReplaceText(Control(dialog, kPaperNameId), L"捨てる用紙");
                    ReplaceText(Control(dialog, kPaperWidthId), L"10");
                    Click(dialog, kClearAllId);
                  },
                  kClearAll, L"name=\"A3\" width=420 height=297 clearAll=1"),
              PaperStop(
                  setUp(kNotSet),
                  [](HWND dialog, ModalScript&) {
                    ReplaceText(Control(dialog, kPaperNameId), L"捨てる用紙");
                    ReplaceText(Control(dialog, kPaperHeightId), L"10");
                    Click(dialog, IDCANCEL);
                  },
                  kCancelled, L"name=\"A3\" width=420 height=297 clearAll=0"),
          },
  };
}

Exhibit CheckListExhibit() {
  const auto list = std::make_shared<CheckList>(
      std::initializer_list<const char*>{"外形線", "寸法線", "中心線", "かくれ線", "想像線"});
  const CString title("表示する線種");
  const auto setUp = [list] { list->Tick({1, 0, 0, 5, 0}); };
  setUp();
  return {
      .name = "check-list",
      .group = Group::kDrawing,
      .entry = L"__CheckListDlg",
      .label = L"表示する線種(&C)",
      .shown = [list] { return list->Ticked(); },
      .value = [list] { return list->Value(); },
      .kept = {.bytes = [list] { return list->Kept(); },
               .restore = [list](const Bytes& bytes) { return list->Restore(bytes); }},
      .run =
          [list, title](const RunOptions&) {
            const INT_PTR result = __CheckListDlg(&title, &list->items, &list->states);
            return result < 0 ? kNotShown : ConfirmedIf(result == IDOK);
          },
      .tour =
          {
              {
                  .options = {},
                  .title = kCheckListTitle,
                  .setUp = setUp,
                  .work =
                      [](HWND dialog, ModalScript&) {
                        const HWND control = Control(dialog, kCheckListId);
                        ClickCell(control, 1, kCheckColumn);
                        ClickCell(control, 0, kNameColumn);
                        PressKey(control, VK_SPACE);
                        Click(dialog, IDOK);
                      },
                  .outcome = kConfirmed,
                  .value = L"states={0, 1, 0, 1, 0}",
              },
              {
                  .options = {},
                  .title = kCheckListTitle,
                  .setUp = setUp,
                  .work =
                      [](HWND dialog, ModalScript&) {
                        ClickCell(Control(dialog, kCheckListId), 4, kCheckColumn);
                        Click(dialog, IDCANCEL);
                      },
                  .outcome = kCancelled,
                  .value = L"states={1, 0, 0, 5, 0}",
              },
          },
  };
}

}  // namespace quorvel::gallery
