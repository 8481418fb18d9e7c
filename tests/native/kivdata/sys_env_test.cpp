#include "kivdata/sys_env.h"

#include "kivdata/kiv_registry_native.h"
#include "kivdata/made_colours.h"

#include <array>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

namespace quorvel {
namespace {

using Colors = CArray<COLORREF, COLORREF>;

constexpr COLORREF kWhite = 0xFFFFFF;
constexpr const char* kKey = "Software\\Maker\\Product";

class KivSysEnv : public testing::Test {
protected:
  void SetUp() override { ClearRegistry(); }

  /// The palette that a new environment of the same key opens.
  static std::vector<COLORREF> Opened() {
    Colors colors;
    EXPECT_NE(CKivSysEnv(kKey).OpenCstColor(colors), 0);
    std::vector<COLORREF> opened;
    for (INT_PTR i = 0; i < colors.GetSize(); ++i) {
      opened.push_back(colors.GetAt(i));
    }
    return opened;
  }

  /// `count` colours that no palette has by itself: 1, 2, 3 and so on.
  static std::vector<COLORREF> Counted(int count) {
    std::vector<COLORREF> colors;
    for (int i = 1; i <= count; ++i) {
      colors.push_back(static_cast<COLORREF>(i));
    }
    return colors;
  }
  static Colors Array(const std::vector<COLORREF>& elements) {
    Colors colors;
    for (const COLORREF color : elements) {
      colors.Add(color);
    }
    return colors;
  }

  CKivSysEnv m_env{kKey};
};

TEST_F(KivSysEnv, NamesItsKey) {
  EXPECT_STREQ(m_env.GetKey(), "Software\\Maker\\Product");
  EXPECT_TRUE(CKivSysEnv(nullptr).GetKey().IsEmpty());
}

TEST_F(KivSysEnv, ASectionIsASubkey) {
  EXPECT_STREQ(m_env.GetRegistry("LayoutEdit").GetKey(), "Software\\Maker\\Product\\LayoutEdit");
  EXPECT_STREQ(m_env.GetRegistry("").GetKey(), "Software\\Maker\\Product");
  EXPECT_STREQ(m_env.GetRegistry(nullptr).GetKey(), "Software\\Maker\\Product");
}

TEST_F(KivSysEnv, AnEmptyKeyHasNoSections) {
  EXPECT_TRUE(CKivSysEnv("").GetRegistry("LayoutEdit").GetKey().IsEmpty());
  EXPECT_TRUE(CKivSysEnv(nullptr).GetRegistry(nullptr).GetKey().IsEmpty());
}

TEST_F(KivSysEnv, SectionsKeepTheirValuesApart) {
  const COLORREF red = RGB(255, 0, 0);
  ASSERT_NE(m_env.GetRegistry("LayoutEdit").WriteRegistry("TextColor", 3, &red, 4), 0);
  COLORREF read = 0;
  EXPECT_EQ(m_env.GetRegistry("LayoutExEdit").ReadRegistry("TextColor", &read, 4), 0);
  EXPECT_EQ(m_env.GetRegistry(nullptr).ReadRegistry("TextColor", &read, 4), 0);
  EXPECT_EQ(
      CKivSysEnv("Software\\Other").GetRegistry("LayoutEdit").ReadRegistry("TextColor", &read, 4),
      0);
  EXPECT_NE(CKivSysEnv(kKey).GetRegistry("LayoutEdit").ReadRegistry("TextColor", &read, 4), 0);
  EXPECT_EQ(read, red);
}

TEST_F(KivSysEnv, OpensTheDefaultPaletteWhereNothingIsStored) {
  EXPECT_EQ(Opened(), DefaultPalette());

  std::array<COLORREF, 16> made{};
  EXPECT_NE(m_env.OpenCstColor(made.data(), 16), 0);
  for (const COLORREF color : made) {
    EXPECT_EQ(color, kWhite);
  }

  std::array<COLORREF, 42> all{};
  EXPECT_NE(m_env.OpenCstColor(all.data(), 42), 0);
  EXPECT_EQ(std::vector(all.begin(), all.begin() + 41), DefaultPalette());
  EXPECT_EQ(all[41], kWhite);
}

TEST_F(KivSysEnv, OpensNoMoreThanAskedFor) {
  std::array<COLORREF, 3> colors{7, 7, 7};
  EXPECT_NE(m_env.OpenCstColor(colors.data(), 2), 0);
  EXPECT_EQ(colors[1], kWhite);
  EXPECT_EQ(colors[2], 7U);
}

TEST_F(KivSysEnv, OpensNothingWithoutAPlaceOrACount) {
  EXPECT_EQ(m_env.OpenCstColor(nullptr, 16), 0);
  COLORREF color = 7;
  EXPECT_EQ(m_env.OpenCstColor(&color, 0), 0);
  EXPECT_EQ(m_env.OpenCstColor(&color, -1), 0);
  EXPECT_EQ(color, 7U);
}

TEST_F(KivSysEnv, SavesTheFirstEntriesAndKeepsTheOthers) {
  std::vector<COLORREF> made = Counted(16);
  EXPECT_NE(m_env.SaveCstColor(made.data(), 16), 0);
  std::vector<COLORREF> expected = WithFirstReplaced(DefaultPalette(), made);
  EXPECT_EQ(Opened(), expected) << "the standard colours follow what was saved first";

  Colors longer = Array(expected);
  longer.Add(0xABCDEF);
  EXPECT_NE(m_env.SaveCstColor(longer), 0);
  made.assign(2, 0x112233);
  EXPECT_NE(m_env.SaveCstColor(made.data(), 2), 0);
  expected = WithFirstReplaced(expected, made);
  expected.push_back(0xABCDEF);
  EXPECT_EQ(Opened(), expected);
}

TEST_F(KivSysEnv, SavesMoreEntriesThanThePaletteHad) {
  const std::vector<COLORREF> many = Counted(50);
  EXPECT_NE(m_env.SaveCstColor(many.data(), 50), 0);
  EXPECT_EQ(Opened(), many);
}

TEST_F(KivSysEnv, SavesAndOpensAnArrayExactly) {
  for (const int count : {1, 15, 41, 42, 4096, 0}) {
    Colors colors = Array(Counted(count));
    EXPECT_NE(m_env.SaveCstColor(colors), 0) << count;
    EXPECT_EQ(Opened(), Counted(count));
  }
  std::array<COLORREF, 2> made{};
  EXPECT_NE(m_env.OpenCstColor(made.data(), 2), 0);
  EXPECT_EQ(made[0], kWhite) << "an empty palette is stored, not nothing";
  EXPECT_EQ(made[1], kWhite);
}

TEST_F(KivSysEnv, OpeningReplacesWhatTheArrayHeld) {
  Colors colors = Array(Counted(100));
  EXPECT_NE(m_env.OpenCstColor(colors), 0);
  EXPECT_EQ(colors.GetSize(), 41);
  EXPECT_EQ(colors.GetAt(0), kWhite);
}

TEST_F(KivSysEnv, RefusesMoreEntriesThanItStores) {
  ASSERT_NE(m_env.SaveCstColor(Array(Counted(3))), 0);
  const std::vector<COLORREF> tooMany(4097);
  EXPECT_EQ(m_env.SaveCstColor(tooMany.data(), 4097), 0);
  EXPECT_EQ(m_env.SaveCstColor(tooMany.data(), std::numeric_limits<int>::max()), 0);
  EXPECT_EQ(m_env.SaveCstColor(Array(tooMany)), 0);
  EXPECT_EQ(Opened(), Counted(3));
  EXPECT_NE(m_env.SaveCstColor(tooMany.data(), 4096), 0);
  EXPECT_EQ(Opened(), std::vector<COLORREF>(4096));
}

TEST_F(KivSysEnv, SavesNothingWithoutColoursOrACount) {
  ASSERT_NE(m_env.SaveCstColor(Array(Counted(3))), 0);
  const COLORREF color = 7;
  EXPECT_EQ(m_env.SaveCstColor(nullptr, 16), 0);
  EXPECT_EQ(m_env.SaveCstColor(&color, 0), 0);
  EXPECT_EQ(m_env.SaveCstColor(&color, -1), 0);
  EXPECT_EQ(Opened(), Counted(3));
}

TEST_F(KivSysEnv, StoresThePaletteAsABinaryValueOfItsSection) {
  ASSERT_NE(m_env.SaveCstColor(Array({0x00332211, 0xFF665544})), 0);
  std::array<BYTE, 8> stored{};
  ASSERT_NE(m_env.GetRegistry("MadeColors").ReadRegistry("Palette", stored.data(), 8), 0);
  EXPECT_EQ(stored, (std::array<BYTE, 8>{0x11, 0x22, 0x33, 0, 0x44, 0x55, 0x66, 0}));
}

TEST_F(KivSysEnv, AStoredValueThatIsNoPaletteCountsAsNone) {
  const std::vector<BYTE> bytes(16'388);  // 4,097 entries
  CKivRegistry registry = m_env.GetRegistry("MadeColors");
  ASSERT_NE(registry.WriteRegistry("Palette", REG_DWORD, bytes.data(), 4), 0);
  EXPECT_EQ(Opened(), DefaultPalette());
  ASSERT_NE(registry.WriteRegistry("Palette", REG_BINARY, bytes.data(), 6), 0);
  EXPECT_EQ(Opened(), DefaultPalette());
  ASSERT_NE(registry.WriteRegistry("Palette", REG_BINARY, bytes.data(), 16'388), 0);
  EXPECT_EQ(Opened(), DefaultPalette());

  const COLORREF made = 5;
  EXPECT_NE(m_env.SaveCstColor(&made, 1), 0);
  EXPECT_EQ(Opened(), WithFirstReplaced(DefaultPalette(), std::vector{made}));
}

TEST_F(KivSysEnv, FailuresReturnZeroAndChangeNothing) {
  ASSERT_NE(m_env.SaveCstColor(Array(Counted(20))), 0);
  COLORREF color = 7;
  Colors colors = Array({8, 9});
  {
    const RegistryFault fault(RegistryFault::Of::kReading);
    EXPECT_EQ(m_env.OpenCstColor(&color, 1), 0);
    EXPECT_EQ(m_env.OpenCstColor(colors), 0);
    EXPECT_EQ(m_env.SaveCstColor(&color, 1), 0) << "the rest of the palette would be lost";
  }
  EXPECT_EQ(color, 7U);
  EXPECT_EQ(colors.GetSize(), 2);
  EXPECT_EQ(colors.GetAt(1), 9U);
  {
    const RegistryFault fault(RegistryFault::Of::kWriting);
    EXPECT_EQ(m_env.SaveCstColor(&color, 1), 0);
    EXPECT_EQ(m_env.SaveCstColor(colors), 0);
  }
  EXPECT_EQ(Opened(), Counted(20));
}

TEST_F(KivSysEnv, WithAnEmptyKeyNothingIsStored) {
  CKivSysEnv nowhere(nullptr);
  EXPECT_EQ(nowhere.SaveCstColor(Array(Counted(3))), 0);
  const COLORREF color = 7;
  EXPECT_EQ(nowhere.SaveCstColor(&color, 1), 0);
  Colors colors;
  EXPECT_NE(nowhere.OpenCstColor(colors), 0);
  EXPECT_EQ(colors.GetSize(), 41);
}

TEST_F(KivSysEnv, TheFontOfControlsIsSmallAndJapanese) {
  const LOGFONTA font = m_env.GetCtrlFont();
  EXPECT_EQ(font.lfHeight, -12);
  EXPECT_EQ(font.lfWidth, 0);
  EXPECT_EQ(font.lfWeight, FW_NORMAL);
  EXPECT_EQ(font.lfCharSet, SHIFTJIS_CHARSET);
  EXPECT_EQ(font.lfItalic, 0);
  EXPECT_STREQ(font.lfFaceName, "MS UI Gothic");
}

}  // namespace
}  // namespace quorvel
