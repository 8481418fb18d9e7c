// The font dialogs.
#include "hostile/hostile_call.h"
#include "hostile/hostile_values.h"
#include "support/same_page.h"

#include <gtest/gtest.h>

#include <cmath>

namespace quorvel::test {

namespace {

constexpr double kUsual = 11.811023622047244;
constexpr double kMostMm = 9999.0;

struct FontCall {
  CKivFontEx font;
  double dotsPerMm = 0.0;
  const char* title = "t";
  BOOL fixedColour = FALSE;
  UINT enableMask = QUORVEL_FONT_ALL;
};

double RateOf(double dotsPerMm) {
  return std::fabs(dotsPerMm) < 0.000001 ? kUsual : dotsPerMm;
}

/// What an untouched dialog gives back: the sizes of the record, or at no resolution its own; the
/// colours without their highest byte.
CKivFontEx Confirmed(const FontCall& call) {
  CKivFontEx font = call.font;
  const double rate = RateOf(call.dotsPerMm);
  font.CalcLogFontToMm(rate);
  font.CalcMmToLogFont(rate);
  const COLORREF color = font.GetColor() & 0xFFFFFF;
  font.SetColor(&color);
  return font;
}

bool IsShownSize(const FontCall& call) {
  const CKivFontEx font = Confirmed(call);
  return font.GetV() <= kMostMm && font.GetH() <= kMostMm;
}

Outcome RunFont(const FontCall& call) {
  CKivFont font = static_cast<const CKivFont&>(call.font);
  const bool confirmed = __SelFontDlg(nullptr, &font, call.dotsPerMm, call.title, TRUE,
                                      call.fixedColour, call.enableMask) != FALSE;
  if (confirmed) {
    EXPECT_TRUE(IsSameFont(font, static_cast<const CKivFont&>(Confirmed(call))));
  }
  return {confirmed, IsSameFont(font, static_cast<const CKivFont&>(call.font))};
}

Outcome RunFontEx(const FontCall& call) {
  CKivFontEx font = call.font;
  const bool confirmed = __SelFontExDlg(nullptr, &font, call.dotsPerMm, call.title,
                                        call.fixedColour, call.enableMask) != FALSE;
  if (confirmed) {
    CKivFontEx expected = Confirmed(call);
    const COLORREF back = expected.GetBackColor() & 0xFFFFFF;
    expected.SetBackColor(&back);
    EXPECT_TRUE(IsSameFont(font, expected));
  }
  return {confirmed, IsSameFont(font, call.font)};
}

void Add(HostileTable& table, const std::string& argument, const std::string& value,
         const FontCall& call) {
  const Opening opening = IsShownSize(call) ? Opening::kOpens : Opening::kRefuses;
  table.Add("SelFont_" + argument, value, [call] { return RunFont(call); }, opening);
  table.Add("SelFontEx_" + argument, value, [call] { return RunFontEx(call); }, opening);
}

void AddRecord(HostileTable& table, const std::string& argument, const std::string& value,
               const LOGFONTA& record) {
  FontCall call;
  call.font.SetLogFont(&record);
  Add(table, argument, value, call);
}

void AddFaces(HostileTable& table) {
  for (const Named<std::string>& text : HostileTexts()) {
    LOGFONTA record = CKivFont().GetLogFont(0);
    std::ranges::fill(record.lfFaceName, '\0');
    text.value.copy(record.lfFaceName, LF_FACESIZE);  // without an end where it is long
    AddRecord(table, "face", text.name, record);
  }
}

void AddRecords(HostileTable& table) {
  for (const Named<int>& number : HostileInts()) {
    LOGFONTA record = CKivFont().GetLogFont(0);
    record.lfHeight = number.value;
    AddRecord(table, "recordHeight", number.name, record);
    record = CKivFont().GetLogFont(0);
    record.lfWidth = number.value;
    AddRecord(table, "recordWidth", number.name, record);
    record = CKivFont().GetLogFont(0);
    record.lfEscapement = number.value;
    record.lfOrientation = number.value;
    AddRecord(table, "recordAngle", number.name, record);
    record = CKivFont().GetLogFont(0);
    record.lfWeight = number.value;
    AddRecord(table, "recordWeight", number.name, record);
    record = CKivFont().GetLogFont(0);
    for (BYTE* byte : {&record.lfItalic, &record.lfUnderline, &record.lfStrikeOut,
                       &record.lfCharSet, &record.lfOutPrecision, &record.lfClipPrecision,
                       &record.lfQuality, &record.lfPitchAndFamily}) {
      *byte = static_cast<BYTE>(number.value >> 8 | 0x5F);
    }
    AddRecord(table, "recordBytes", number.name, record);
  }
}

}  // namespace

std::vector<HostileArgument> FontArguments() {
  HostileTable table;
  table.Add("SelFont_font", "Null", [] {
    return Outcome{__SelFontDlg(nullptr, nullptr, 0.0, "", TRUE, FALSE, 0) != FALSE, true};
  }, Opening::kNone);
  table.Add("SelFontEx_font", "Null", [] {
    return Outcome{__SelFontExDlg(nullptr, nullptr, 0.0, "", FALSE, 0) != FALSE, true};
  }, Opening::kNone);
  FontCall call;
  call.title = nullptr;
  Add(table, "title", "Null", call);
  static const std::vector<Named<std::string>> titles = FewHostileTexts();
  for (const Named<std::string>& text : titles) {
    call.title = text.value.c_str();
    Add(table, "title", text.name, call);
  }
  for (const Named<double>& number : HostileNumbers()) {
    call = {};
    call.dotsPerMm = number.value;
    Add(table, "dotsPerMm", number.name, call);
    // Own millimetres show where there is no resolution; what is no size the font does not take.
    call.dotsPerMm = -1.0;
    call.font.SetV(number.value);
    call.font.SetH(number.value);
    Add(table, "millimetres", number.name, call);
  }
  for (const Named<int>& number : HostileInts()) {
    call = {};
    call.enableMask = static_cast<UINT>(number.value);
    call.fixedColour = number.value;
    Add(table, "enableMask", number.name, call);
  }
  for (const COLORREF color : kHostileColors) {
    call = {};
    call.font.SetColor(&color);
    call.font.SetBackColor(&color);
    Add(table, "colours", std::to_string(color), call);
  }
  AddFaces(table);
  AddRecords(table);
  return table.Take();
}

}  // namespace quorvel::test
