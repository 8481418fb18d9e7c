#include "kivdata/kiv_font.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <string>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

LOGFONTA WithFace(const std::string& face) {
  LOGFONTA logFont{};
  std::memcpy(logFont.lfFaceName, face.data(), std::min<std::size_t>(face.size(), LF_FACESIZE));
  return logFont;
}

std::string FaceAfter(const std::string& face) {
  CKivFont font;
  const LOGFONTA logFont = WithFace(face);
  font.SetLogFont(&logFont);
  const LOGFONTA taken = font.GetLogFont(1);
  EXPECT_EQ(taken.lfFaceName[LF_FACESIZE - 1], '\0');
  const std::string name = taken.lfFaceName;
  EXPECT_TRUE(std::all_of(taken.lfFaceName + name.size(), std::end(taken.lfFaceName),
                          [](char byte) { return byte == '\0'; }));
  return name;
}

TEST(KivFont, BeginsAsBlackGothicOf3AndAHalfMillimetres) {
  const CKivFont font;
  EXPECT_EQ(font.GetV(), 3.5);
  EXPECT_EQ(font.GetH(), 0);
  EXPECT_EQ(font.GetColor(), 0U);
  EXPECT_EQ(font.GetStrikeOutType(), 0);
  const LOGFONTA logFont = font.GetLogFont(0);
  EXPECT_STREQ(logFont.lfFaceName,
               "\x82\x6C\x82\x72 \x83\x53\x83\x56\x83\x62\x83\x4E");
  EXPECT_EQ(logFont.lfWeight, 400);
  EXPECT_EQ(logFont.lfCharSet, 128);
  CKivFont converted = font;
  converted.CalcMmToLogFont(quorvel::kUsualDotsPerMm);
  EXPECT_EQ(converted.GetLogFont(0).lfHeight, logFont.lfHeight);
}

TEST(KivFont, TakesTheRecordOver) {
  LOGFONTA logFont = WithFace("Arial");
  logFont.lfHeight = -20;
  logFont.lfWidth = 7;
  logFont.lfItalic = 1;
  logFont.lfUnderline = 1;
  logFont.lfStrikeOut = 1;
  logFont.lfWeight = 700;
  CKivFont font;
  font.SetLogFont(&logFont);
  const LOGFONTA taken = font.GetLogFont(0);
  EXPECT_EQ(std::memcmp(&taken, &logFont, sizeof taken), 0);
  EXPECT_EQ(font.GetV(), 3.5) << "millimetres follow only when asked";
  font.SetLogFont(nullptr);
  EXPECT_EQ(font.GetLogFont(0).lfHeight, -20);
}

TEST(KivFont, CutsAFaceNameBetweenCharacters) {
  const std::string kana = "\x83\x5C";  // one character whose second byte is a backslash
  std::string names15;
  for (int i = 0; i < 15; ++i) {
    names15 += kana;
  }
  EXPECT_EQ(FaceAfter(""), "");
  EXPECT_EQ(FaceAfter("Arial"), "Arial");
  EXPECT_EQ(FaceAfter(std::string(31, 'a')), std::string(31, 'a'));
  EXPECT_EQ(FaceAfter(std::string(32, 'a')), std::string(31, 'a'));
  EXPECT_EQ(FaceAfter(names15 + "a"), names15 + "a") << "31 bytes fit";
  EXPECT_EQ(FaceAfter(names15 + kana), names15) << "16 characters do not";
  EXPECT_EQ(FaceAfter("a" + names15), "a" + names15);
  EXPECT_EQ(FaceAfter("a" + names15 + "b"), "a" + names15);
  EXPECT_EQ(FaceAfter(names15 + "\x83"), names15) << "half a character at the end";
  EXPECT_EQ(FaceAfter("ab\xE0"), "ab");
  EXPECT_EQ(FaceAfter("\xB1\xB2\xDF"), "\xB1\xB2\xDF") << "half-width kana are single bytes";
  EXPECT_EQ(FaceAfter("\xFC\x4B\x81\x40\x9F\x40"), "\xFC\x4B\x81\x40\x9F\x40");
  EXPECT_EQ(FaceAfter("\x80\xA0\xFD"), "\x80\xA0\xFD");
}

TEST(KivFont, ClearsWhatStandsBehindTheName) {
  LOGFONTA logFont = WithFace("Arial");
  std::memcpy(logFont.lfFaceName + 6, "rest", 4);
  CKivFont font;
  font.SetLogFont(&logFont);
  EXPECT_EQ(font.GetLogFont(0).lfFaceName[6], '\0');
}

TEST(KivFont, RefusesSizesThatAreNone) {
  CKivFont font;
  font.SetV(12.5);
  font.SetH(4.25);
  for (const double bad : {-0.001, kInfinity, -kInfinity, kNotANumber}) {
    font.SetV(bad);
    font.SetH(bad);
    EXPECT_EQ(font.GetV(), 12.5);
    EXPECT_EQ(font.GetH(), 4.25);
  }
  font.SetV(0);
  font.SetH(0);
  EXPECT_EQ(font.GetV(), 0);
  EXPECT_EQ(font.GetH(), 0);
}

TEST(KivFont, KeepsColourAndStrikeOutType) {
  CKivFont font;
  const COLORREF red = RGB(255, 0, 0);
  font.SetColor(&red);
  font.SetColor(nullptr);
  EXPECT_EQ(font.GetColor(), red);
  font.SetStrikeOutType(1);
  font.SetStrikeOutType(2);
  font.SetStrikeOutType(255);
  EXPECT_EQ(font.GetStrikeOutType(), 1);
  font.SetStrikeOutType(0);
  EXPECT_EQ(font.GetStrikeOutType(), 0);
}

TEST(KivFont, ConvertsMillimetresToTheNearestDots) {
  CKivFont font;
  font.SetV(3.04);
  font.SetH(1.25);
  font.CalcMmToLogFont(10);
  EXPECT_EQ(font.GetLogFont(0).lfHeight, -30);
  EXPECT_EQ(font.GetLogFont(0).lfWidth, 13);
  EXPECT_EQ(font.GetV(), 3.04) << "the millimetres stay";
  font.SetV(3.05);
  font.CalcMmToLogFont(10);
  EXPECT_EQ(font.GetLogFont(0).lfHeight, -31);
}

TEST(KivFont, ConvertsDotsToMillimetres) {
  LOGFONTA logFont = WithFace("Arial");
  logFont.lfHeight = -50;
  logFont.lfWidth = 20;
  CKivFont font;
  font.SetLogFont(&logFont);
  font.CalcLogFontToMm(8);
  EXPECT_EQ(font.GetV(), 6.25);
  EXPECT_EQ(font.GetH(), 2.5);
  logFont.lfHeight = 50;  // a cell height is a height, too
  logFont.lfWidth = -20;
  font.SetLogFont(&logFont);
  font.CalcLogFontToMm(8);
  EXPECT_EQ(font.GetV(), 6.25);
  EXPECT_EQ(font.GetH(), 2.5);
}

TEST(KivFont, KeepsTheKindOfHeight) {
  LOGFONTA logFont = WithFace("Arial");
  logFont.lfHeight = 50;
  CKivFont font;
  font.SetLogFont(&logFont);
  font.SetV(2);
  font.CalcMmToLogFont(10);
  EXPECT_EQ(font.GetLogFont(0).lfHeight, 20);
  logFont.lfHeight = 0;
  font.SetLogFont(&logFont);
  font.CalcMmToLogFont(10);
  EXPECT_EQ(font.GetLogFont(0).lfHeight, -20);
}

TEST(KivFont, ARoundTripMovesNoValueByMoreThanHalfADot) {
  for (const double rate : {0.5, 2.83464566929, 3.7795275590551, quorvel::kUsualDotsPerMm, 96.0}) {
    for (LONG dots = -3000; dots <= 3000; dots += 7) {
      LOGFONTA logFont = WithFace("Arial");
      logFont.lfHeight = dots;
      logFont.lfWidth = std::abs(dots) / 3;
      CKivFont font;
      font.SetLogFont(&logFont);
      font.CalcLogFontToMm(rate);
      font.CalcMmToLogFont(rate);
      ASSERT_EQ(font.GetLogFont(0).lfHeight, dots);
      ASSERT_EQ(font.GetLogFont(0).lfWidth, std::abs(dots) / 3);
    }
    for (double millimetres = 0; millimetres < 200; millimetres += 0.37) {
      CKivFont font;
      font.SetV(millimetres);
      font.SetH(millimetres / 2);
      font.CalcMmToLogFont(rate);
      font.CalcLogFontToMm(rate);
      ASSERT_LE(std::fabs(font.GetV() - millimetres) * rate, 0.5 + 1e-9);
      ASSERT_LE(std::fabs(font.GetH() - millimetres / 2) * rate, 0.5 + 1e-9);
    }
  }
}

TEST(KivFont, TheNaturalWidthStaysNatural) {
  CKivFont font;
  font.SetV(5);
  font.CalcMmToLogFont(quorvel::kUsualDotsPerMm);
  EXPECT_EQ(font.GetLogFont(0).lfWidth, 0);
  font.CalcLogFontToMm(quorvel::kUsualDotsPerMm);
  EXPECT_EQ(font.GetH(), 0);
}

TEST(KivFont, IgnoresResolutionsThatAreNone) {
  CKivFont font;
  font.SetV(5);
  font.SetH(2);
  font.CalcMmToLogFont(10);
  for (const double bad : {0.0, -1.0, kInfinity, kNotANumber}) {
    font.CalcMmToLogFont(bad);
    EXPECT_EQ(font.GetLogFont(0).lfHeight, -50);
    font.CalcLogFontToMm(bad);
    EXPECT_EQ(font.GetV(), 5);
    EXPECT_EQ(font.GetH(), 2);
  }
  font.CalcLogFontToMm(std::numeric_limits<double>::denorm_min());
  EXPECT_EQ(font.GetV(), 5) << "50 dots would be infinitely high";
}

TEST(KivFont, SizesBeyondTheRecordBecomeItsLargest) {
  CKivFont font;
  font.SetV(1e300);
  font.SetH(1e300);
  font.CalcMmToLogFont(1e300);
  EXPECT_EQ(font.GetLogFont(0).lfHeight, -std::numeric_limits<LONG>::max());
  EXPECT_EQ(font.GetLogFont(0).lfWidth, std::numeric_limits<LONG>::max());
  LOGFONTA logFont{};
  logFont.lfHeight = std::numeric_limits<LONG>::min();
  font.SetLogFont(&logFont);
  font.CalcLogFontToMm(1);
  EXPECT_EQ(font.GetV(), 2147483648.0);
}

}  // namespace
