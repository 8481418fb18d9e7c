#include "gallery/font_exhibits.h"

#include "driver/controls.h"
#include "framework/device_context.h"
#include "framework/wide_font.h"
#include "gallery/exhibit_work.h"
#include "gallery/value_text.h"

#include <quorvel/quorvel.h>

#include <array>
#include <cstring>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>

namespace quorvel::gallery {

namespace {

using driver::Click;
using driver::Control;
using driver::DialogWithTitle;
using driver::ModalScript;
using driver::Painted;
using driver::ReplaceText;

// The dialogs' controls.
constexpr int kFaceId = 1136;
constexpr int kUnderlineId = 1041;
constexpr int kColourId = 2003;
constexpr int kBackColourId = 2004;
constexpr int kHeightId = 2005;
constexpr int kWidthId = 2006;
constexpr int kVerticalId = 2007;
constexpr int kHorizontalId = 2008;
constexpr int kGridOrangeId = 13395;

constexpr const wchar_t* kTitle = L"文字の書体";
constexpr const wchar_t* kExTitle = L"セルの書体";
constexpr const wchar_t* kGridTitle = L"色設定";

constexpr double kDotsPerMm = 20;
// Of the samples, in lines of text.
constexpr int kSampleLines = 6;
constexpr int kSampleColumns = 18;
constexpr COLORREF kBlue = RGB(0, 0, 160);
constexpr COLORREF kPaleYellow = RGB(255, 255, 192);

/// The font in words: IPA明朝 5x2.5 mm, bold, underlined, ...
std::wstring InWords(const CKivFont& font) {
  const LOGFONTA record = font.GetLogFont(0);
  std::wstring text = Wide(CString(std::begin(record.lfFaceName))) + L" " + Number(font.GetV());
  if (font.GetH() != 0) {
    text += L"x" + Number(font.GetH());
  }
  text += L" mm";
  if (record.lfWeight >= FW_BOLD) {
    text += L", bold";
  }
  if (record.lfItalic != 0) {
    text += L", italic";
  }
  if (record.lfUnderline != 0) {
    text += L", underlined";
  }
  if (record.lfStrikeOut != 0) {
    text += font.GetStrikeOutType() == 0 ? L", struck out" : L", struck out twice";
  }
  return text + L", " + ColorText(font.GetColor());
}

std::wstring InWords(const CKivFontEx& font) {
  constexpr std::array kAcross{L"left", L"centre", L"right"};
  constexpr std::array kDown{L"top", L"middle", L"bottom"};
  return InWords(static_cast<const CKivFont&>(font)) + L" on " + ColorText(font.GetBackColor()) +
         L", " + kDown.at(font.GetVPos()) + L" " + kAcross.at(font.GetHPos());
}

/// For a user, in lines.
std::wstring ForUser(const CKivFont& font) {
  const LOGFONTA record = font.GetLogFont(0);
  std::wstring text = Wide(CString(std::begin(record.lfFaceName))) + L"\n高さ " +
                      Number(font.GetV()) + L" mm";
  if (font.GetH() != 0) {
    text += L"　幅 " + Number(font.GetH()) + L" mm";
  }
  text += record.lfWeight >= FW_BOLD ? L"　太字" : L"";
  text += record.lfItalic != 0 ? L"　斜体" : L"";
  text += record.lfUnderline != 0 ? L"　下線" : L"";
  if (record.lfStrikeOut != 0) {
    text += font.GetStrikeOutType() == 0 ? L"　取り消し線" : L"　二重取り消し線";
  }
  return text + L"\n" + ColorText(font.GetColor());
}

std::wstring ForUser(const CKivFontEx& font) {
  constexpr std::array kAcross{L"左寄せ", L"横中央", L"右寄せ"};
  constexpr std::array kDown{L"上寄せ", L"縦中央", L"下寄せ"};
  return ForUser(static_cast<const CKivFont&>(font)) + L"\n" + kDown.at(font.GetVPos()) + L"　" +
         kAcross.at(font.GetHPos());
}

/// A few words in the font, as high as on the drawing itself: a millimetre is one on the display.
void DrawSample(HDC deviceContext, const RECT& area, const CKivFont& font, COLORREF paper,
                int across, int down) {
  constexpr double kMmPerInch = 25.4;
  constexpr std::array<UINT, 3> kAcross{DT_LEFT, DT_CENTER, DT_RIGHT};
  constexpr std::array<UINT, 3> kDown{DT_TOP, DT_VCENTER, DT_BOTTOM};
  const auto place = [](int at) { return static_cast<std::size_t>(at); };
  CKivFont onDisplay = font;
  onDisplay.CalcMmToLogFont(GetDeviceCaps(deviceContext, LOGPIXELSY) / kMmPerInch);
  const LOGFONTW record = WideLogFont(onDisplay.GetLogFont(0));
  const OwnedFont made(CreateFontIndirectW(&record));
  constexpr int kInset = 2;
  FillFramed(deviceContext, CRect(area), paper);
  CRect inside = CRect(area).Grown(-kInset, -kInset);
  const SelectedObject selected(deviceContext, made.get());
  SetBkMode(deviceContext, TRANSPARENT);
  SetTextColor(deviceContext, font.GetColor());
  DrawTextW(deviceContext, L"図面 A-123", -1, &inside,
            DT_SINGLELINE | DT_NOPREFIX | kAcross.at(place(across)) | kDown.at(place(down)));
}

void Put(ByteWriter& writer, const CKivFont& font) {
  writer.Put(font.GetLogFont(0))
      .Put(font.GetV())
      .Put(font.GetH())
      .Put(font.GetColor())
      .Put(font.GetStrikeOutType());
}
void Put(ByteWriter& writer, const CKivFontEx& font) {
  Put(writer, static_cast<const CKivFont&>(font));
  writer.Put(font.GetBackColor()).Put(font.GetHPos()).Put(font.GetVPos());
}

bool Get(ByteReader& reader, CKivFont& font) {
  LOGFONTA record{};
  double height = 0;
  double width = 0;
  COLORREF color = 0;
  BYTE strikeOutType = 0;
  if (!reader.Get(record) || !reader.GetNumber(height) || !reader.GetNumber(width) ||
      !reader.Get(color) || !reader.Get(strikeOutType)) {
    return false;
  }
  record.lfFaceName[LF_FACESIZE - 1] = '\0';
  font.SetLogFont(&record);
  font.SetV(height);
  font.SetH(width);
  font.SetColor(&color);
  font.SetStrikeOutType(strikeOutType);
  return true;
}
bool Get(ByteReader& reader, CKivFontEx& font) {
  COLORREF backColor = 0;
  BYTE across = 0;
  BYTE down = 0;
  if (!Get(reader, static_cast<CKivFont&>(font)) || !reader.Get(backColor) ||
      !reader.Get(across) || !reader.Get(down) || across > 2 || down > 2) {
    return false;
  }
  font.SetBackColor(&backColor);
  font.SetHPos(across);
  font.SetVPos(down);
  return true;
}

template <class Font>
KeptValue KeepFont(const std::shared_ptr<Font>& font) {
  return {.bytes =
              [font] {
                ByteWriter writer;
                Put(writer, *font);
                return writer.Written();
              },
          .restore =
              [font](const Bytes& bytes) {
                ByteReader reader(bytes);
                Font read;
                return Get(reader, read) && reader.IsAtEnd() && (*font = read, true);
              }};
}

void SetUp(CKivFont& font, const char* face) {
  LOGFONTA record = CKivFont().GetLogFont(0);
  std::memset(std::begin(record.lfFaceName), 0, sizeof record.lfFaceName);
  std::strncpy(std::begin(record.lfFaceName), face, LF_FACESIZE - 1);
  record.lfStrikeOut = 1;
  font = CKivFont();
  font.SetLogFont(&record);
  font.SetV(5);
  font.CalcMmToLogFont(kDotsPerMm);
  font.SetColor(&kBlue);
}

/// Selects an entry of a list as a click on it does.
void Pick(HWND dialog, int id, const wchar_t* entry) {
  const HWND list = Control(dialog, id);
  const LRESULT index = SendMessageW(list, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                     reinterpret_cast<LPARAM>(entry));
  if (index == CB_ERR) {
    throw std::runtime_error("the list " + std::to_string(id) + " lacks an entry");
  }
  SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
  SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE), reinterpret_cast<LPARAM>(list));
}

/// Presses a colour button, chooses orange, and goes on in the font dialog.
void ChooseOrange(HWND dialog, int buttonId, ModalScript& script, const wchar_t* title,
                  ModalScript::Action then) {
  script.When(Painted(DialogWithTitle(kGridTitle)), [](HWND grid) {
    Click(grid, kGridOrangeId);
    Click(grid, IDOK);
  });
  script.When(Painted(DialogWithTitle(title)), std::move(then));
  Click(dialog, buttonId);
}

}  // namespace

Exhibit SelFontExhibit() {
  const auto font = std::make_shared<CKivFont>();
  const auto setUp = [font] { SetUp(*font, "IPA明朝"); };
  setUp();
  return {
      .name = "sel-font",
      .group = Group::kLetters,
      .entry = L"__SelFontDlg",
      .label = L"寸法の文字(&F)",
      .shown = [font] { return ForUser(*font); },
      .value = [font] { return InWords(*font); },
      .kept = KeepFont(font),
      .preview =
          [font](HDC deviceContext, const RECT& area) {
            DrawSample(deviceContext, area, *font, RGB(255, 255, 255), 1, 1);
          },
      .previewLines = kSampleLines,
      .previewColumns = kSampleColumns,
      .run =
          [font](const RunOptions&) {
            return ConfirmedIf(__SelFontDlg(nullptr, font.get(), kDotsPerMm, "文字の書体", TRUE,
                                            FALSE, QUORVEL_FONT_ALL) != FALSE);
          },
      .tour =
          {
              {
                  .options = {},
                  .title = kTitle,
                  .setUp = setUp,
                  .work =
                      [](HWND dialog, ModalScript& script) {
                        ReplaceText(Control(dialog, kHeightId), L"７．５");
                        ReplaceText(Control(dialog, kWidthId), L"2.5");
                        Pick(dialog, kFaceId, L"IPA Pゴシック");
                        Click(dialog, kUnderlineId);
                        ChooseOrange(dialog, kColourId, script, kTitle,
                                     [](HWND again) { Click(again, IDOK); });
                      },
                  .outcome = kConfirmed,
                  .value = L"IPA Pゴシック 7.5x2.5 mm, underlined, struck out, #FF8000 (赤 255 緑 128 青 0)",
              },
              {
                  .options = {},
                  .title = kTitle,
                  .setUp = setUp,
                  .work =
                      [](HWND dialog, ModalScript&) {
                        ReplaceText(Control(dialog, kHeightId), L"20");
                        Click(dialog, IDCANCEL);
                      },
                  .outcome = kCancelled,
                  .value = L"IPA明朝 5 mm, struck out, #0000A0 (赤 0 緑 0 青 160)",
              },
          },
  };
}

Exhibit SelFontExExhibit() {
  const auto font = std::make_shared<CKivFontEx>();
  const auto setUp = [font] {
    SetUp(*font, "ＭＳ ゴシック");
    font->SetBackColor(&kPaleYellow);
    font->SetVPos(1);
    font->SetHPos(1);
  };
  setUp();
  return {
      .name = "sel-font-ex",
      .group = Group::kLetters,
      .entry = L"__SelFontExDlg",
      .label = L"表の文字(&O)",
      .shown = [font] { return ForUser(*font); },
      .value = [font] { return InWords(*font); },
      .kept = KeepFont(font),
      .preview =
          [font](HDC deviceContext, const RECT& area) {
            DrawSample(deviceContext, area, *font, font->GetBackColor(), font->GetHPos(),
                       font->GetVPos());
          },
      .previewLines = kSampleLines,
      .previewColumns = kSampleColumns,
      .run =
          [font](const RunOptions&) {
            return ConfirmedIf(__SelFontExDlg(nullptr, font.get(), kDotsPerMm, "セルの書体", FALSE,
                                              QUORVEL_FONT_ALL) != FALSE);
          },
      .tour =
          {
              {
                  .options = {},
                  .title = kExTitle,
                  .setUp = setUp,
                  .work =
                      [](HWND dialog, ModalScript& script) {
                        ReplaceText(Control(dialog, kHeightId), L"3");
                        Pick(dialog, kVerticalId, L"下寄せ");
                        Pick(dialog, kHorizontalId, L"右寄せ");
                        ChooseOrange(dialog, kBackColourId, script, kExTitle,
                                     [](HWND again) { Click(again, IDOK); });
                      },
                  .outcome = kConfirmed,
                  .value = L"ＭＳ ゴシック 3 mm, struck out, #0000A0 (赤 0 緑 0 青 160) on #FF8000 (赤 255 緑 128 青 0), bottom right",
              },
              {
                  .options = {},
                  .title = kExTitle,
                  .setUp = setUp,
                  .work =
                      [](HWND dialog, ModalScript&) {
                        Pick(dialog, kVerticalId, L"上寄せ");
                        Click(dialog, IDCANCEL);
                      },
                  .outcome = kCancelled,
                  .value = L"ＭＳ ゴシック 5 mm, struck out, #0000A0 (赤 0 緑 0 青 160) on #FFFFC0 (赤 255 緑 255 青 192), "
                           L"middle centre",
              },
          },
  };
}

}  // namespace quorvel::gallery
