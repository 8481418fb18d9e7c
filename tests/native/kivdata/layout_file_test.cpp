#include "kivdata/layout_file.h"

#include "documented_file.h"
#include "kivdata/crc32.h"
#include "largest_allocation.h"
#include "sample_pages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

namespace {

using quorvel::Crc32;
using quorvel::DecodeExPage;
using quorvel::DecodeGridPage;
using quorvel::EncodePage;
using quorvel::ExPageModel;
using quorvel::FileBytes;
using quorvel::GridPageModel;
using quorvel::test::BytesOf;
using quorvel::test::ReadBytes;
using quorvel::test::SampleExPage;
using quorvel::test::SamplePage;
using quorvel::test::TemporaryFolder;
using quorvel::test::WriteBytes;

using Bytes = std::vector<BYTE>;

constexpr std::size_t kHead = 28;
constexpr std::size_t kMinorAt = 12;
constexpr std::size_t kLengthAt = 16;
constexpr std::size_t kChecksumAt = 24;

template <class T>
void Put(Bytes& bytes, std::size_t at, T value) {
  std::memcpy(bytes.data() + at, &value, sizeof value);
}

/// Corrects length and checksum, so that only what a test changed can be wrong.
Bytes Sealed(Bytes bytes) {
  Put<std::uint64_t>(bytes, kLengthAt, bytes.size());
  const std::span<const BYTE> all(bytes);
  Put<std::uint32_t>(bytes, kChecksumAt, Crc32(all.subspan(kHead), Crc32(all.first(kChecksumAt))));
  return bytes;
}

Bytes Encoded(const std::optional<GridPageModel>& page) {
  const FileBytes bytes = EncodePage(*page);
  return {bytes.Span().begin(), bytes.Span().end()};
}

Bytes Encoded(const std::optional<ExPageModel>& page) {
  const FileBytes bytes = EncodePage(*page);
  return {bytes.Span().begin(), bytes.Span().end()};
}

struct Section {
  std::size_t head;  ///< where its tag stands
  std::size_t content;
  std::size_t size;
};

/// The `number`th section with this tag, found as the format says.
Section FindSection(const Bytes& bytes, const std::string& tag, int number = 0) {
  std::size_t at = kHead;
  while (at < bytes.size()) {
    std::uint64_t size = 0;
    std::memcpy(&size, bytes.data() + at + 4, sizeof size);
    if (std::equal(tag.begin(), tag.end(), bytes.begin() + static_cast<std::ptrdiff_t>(at)) &&
        number-- == 0) {
      return {at, at + 12, size};
    }
    at += 12 + size;
  }
  ADD_FAILURE() << "no section " << tag;
  return {};
}

Bytes SectionBytes(const std::string& tag, const std::string& content) {
  Bytes bytes(tag.begin(), tag.end());
  bytes.resize(12);
  Put<std::uint64_t>(bytes, 4, content.size());
  bytes.insert(bytes.end(), content.begin(), content.end());
  return bytes;
}

Bytes Joined(Bytes first, const Bytes& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

TEST(LayoutFile, BeginsAsDocumented) {
  const Bytes bytes = BytesOf(SamplePage());
  EXPECT_EQ(std::string(bytes.begin(), bytes.begin() + 8), "QVLAYOUT");
  EXPECT_EQ(bytes[8], 1);   // kind
  EXPECT_EQ(bytes[10], 1);  // major version
  EXPECT_EQ(bytes[12], 0);  // minor version
  EXPECT_EQ(Sealed(bytes), bytes);
  EXPECT_EQ(BytesOf(SampleExPage())[8], 2);
  EXPECT_EQ(FindSection(bytes, "PAGE").size, 29U);
  EXPECT_EQ(FindSection(bytes, "COLS").size, 1 + 4 * 8U);
  EXPECT_EQ(FindSection(bytes, "ROWS").size, 1 + 3 * 8U);
  const Section cells = FindSection(bytes, "CELS");
  const auto texts = static_cast<std::size_t>(
      CString("A\x8E\x81\x96\xBC\x83\x5C\\\"<M>%d %s</M>line\r\nbreak").GetLength());
  EXPECT_EQ(bytes[cells.content + 5 * 94 + texts], 2) << "rows of the merged block, cell 5";
  EXPECT_EQ(bytes[cells.content + 5 * 94 + texts + 1], 2) << "its columns";
}

TEST(LayoutFile, TheDocumentsExampleIsAsDocumented) {
  CLayoutPageData page;
  page.GetCelAt(0)->SetText(quorvel::test::kDocumentedText);
  EXPECT_EQ(BytesOf(page), quorvel::test::DocumentedFile());
}

TEST(LayoutFile, WhatIsReadIsWrittenAgainByteForByte) {
  const Bytes grid = BytesOf(SamplePage());
  ASSERT_TRUE(DecodeGridPage(grid));
  EXPECT_EQ(Encoded(DecodeGridPage(grid)), grid);
  const Bytes extended = BytesOf(SampleExPage());
  ASSERT_TRUE(DecodeExPage(extended));
  EXPECT_EQ(Encoded(DecodeExPage(extended)), extended);
}

TEST(LayoutFile, TheOtherKindIsRefused) {
  EXPECT_FALSE(DecodeExPage(BytesOf(SamplePage())));
  EXPECT_FALSE(DecodeGridPage(BytesOf(SampleExPage())));
}

TEST(LayoutFile, EveryPrefixIsRefused) {
  for (const Bytes& whole : {BytesOf(SamplePage()), BytesOf(SampleExPage())}) {
    for (std::size_t size = 0; size < whole.size(); ++size) {
      const std::span<const BYTE> prefix = std::span(whole).first(size);
      ASSERT_FALSE(DecodeGridPage(prefix)) << size << " bytes";
      ASSERT_FALSE(DecodeExPage(prefix)) << size << " bytes";
    }
  }
}

/// With length and checksum put right the prefix is refused all the same, and nothing is read
/// beyond it.
TEST(LayoutFile, EverySealedPrefixIsRefused) {
  for (const Bytes& whole : {BytesOf(SamplePage()), BytesOf(SampleExPage())}) {
    for (std::size_t size = kHead; size < whole.size(); ++size) {
      const Bytes prefix =
          Sealed({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)});
      ASSERT_FALSE(DecodeGridPage(prefix)) << size << " bytes";
      ASSERT_FALSE(DecodeExPage(prefix)) << size << " bytes";
    }
  }
}

TEST(LayoutFile, EveryFlippedBitIsRefused) {
  for (const Bytes& whole : {BytesOf(SamplePage()), BytesOf(SampleExPage())}) {
    Bytes damaged = whole;
    for (std::size_t bit = 0; bit < whole.size() * 8; ++bit) {
      damaged[bit / 8] ^= static_cast<BYTE>(1U << (bit % 8));
      ASSERT_FALSE(DecodeGridPage(damaged)) << "bit " << bit;
      ASSERT_FALSE(DecodeExPage(damaged)) << "bit " << bit;
      damaged[bit / 8] = whole[bit / 8];
    }
  }
}

/// A flipped bit that whoever flipped it sealed again: either refused, or a page of which every bit
/// is written again.
TEST(LayoutFile, EverySealedFlippedBitIsRefusedOrKept) {
  int kept = 0;
  int refused = 0;
  for (const Bytes& whole : {BytesOf(SamplePage()), BytesOf(SampleExPage())}) {
    for (std::size_t bit = 0; bit < whole.size() * 8; ++bit) {
      Bytes damaged = whole;
      damaged[bit / 8] ^= static_cast<BYTE>(1U << (bit % 8));
      damaged = Sealed(damaged);
      if (const auto grid = DecodeGridPage(damaged)) {
        ASSERT_EQ(Encoded(grid), damaged) << "bit " << bit;
        ++kept;
      } else if (const auto extended = DecodeExPage(damaged)) {
        ASSERT_EQ(Encoded(extended), damaged) << "bit " << bit;
        ++kept;
      } else {
        ++refused;
      }
    }
  }
  EXPECT_GT(kept, 1000);
  EXPECT_GT(refused, 1000);
}

TEST(LayoutFile, BytesBehindTheEndAreRefused) {
  EXPECT_FALSE(DecodeGridPage(Joined(BytesOf(SamplePage()), {0})));
  EXPECT_FALSE(DecodeGridPage(Sealed(Joined(BytesOf(SamplePage()), {0}))));
}

TEST(LayoutFile, LaterSectionsAreKeptAndWrittenBack) {
  const Bytes later = Joined(SectionBytes("NEW1", "something"), SectionBytes("NEW2", ""));
  for (const Bytes& known : {BytesOf(SamplePage()), BytesOf(SampleExPage())}) {
    Bytes bytes = Joined(known, later);
    Put<std::uint32_t>(bytes, kMinorAt, 7);
    bytes = Sealed(bytes);
    if (known[8] == 1) {
      ASSERT_TRUE(DecodeGridPage(bytes));
      EXPECT_EQ(Encoded(DecodeGridPage(bytes)), bytes);
    } else {
      ASSERT_TRUE(DecodeExPage(bytes));
      EXPECT_EQ(Encoded(DecodeExPage(bytes)), bytes);
    }
  }
}

TEST(LayoutFile, APageCarriesLaterSectionsThroughCopyAndChange) {
  const TemporaryFolder folder;
  const std::string path = folder.File("later.mtpld");
  const Bytes later = SectionBytes("NEW1", "something");
  WriteBytes(path, Sealed(Joined(BytesOf(SamplePage()), later)));
  CLayoutPageData page;
  ASSERT_NE(page.OpenFile(path.c_str()), 0);
  CLayoutPageData copy;
  copy = page;
  copy.DividePage(1, 1, 0);
  const Bytes saved = BytesOf(copy);
  ASSERT_GT(saved.size(), later.size());
  EXPECT_TRUE(std::equal(later.rbegin(), later.rend(), saved.rbegin()));
}

TEST(LayoutFile, LaterSectionsThatAreNoneAreRefused) {
  const Bytes known = BytesOf(SamplePage());
  EXPECT_FALSE(DecodeGridPage(Sealed(Joined(known, SectionBytes("COLS", "x")))))
      << "a known section again";
  Bytes cut = SectionBytes("NEW1", "something");
  cut.pop_back();
  EXPECT_FALSE(DecodeGridPage(Sealed(Joined(known, cut))));
  Bytes endless = SectionBytes("NEW1", "something");
  Put<std::uint64_t>(endless, 4, ~std::uint64_t{0});
  EXPECT_FALSE(DecodeGridPage(Sealed(Joined(known, endless))));
}

TEST(LayoutFile, AnotherMajorVersionIsRefused) {
  Bytes bytes = BytesOf(SamplePage());
  Put<std::uint16_t>(bytes, 10, 2);
  EXPECT_FALSE(DecodeGridPage(Sealed(bytes)));
}

TEST(LayoutFile, SectionsOutOfOrderAreRefused) {
  const Bytes bytes = BytesOf(SamplePage());
  const Section columns = FindSection(bytes, "COLS");
  const Section rows = FindSection(bytes, "ROWS");
  const Section cells = FindSection(bytes, "CELS");
  const auto at = [&](std::size_t place) {
    return bytes.begin() + static_cast<std::ptrdiff_t>(place);
  };
  Bytes swapped(bytes.begin(), at(columns.head));
  swapped.insert(swapped.end(), at(rows.head), at(cells.head));
  swapped.insert(swapped.end(), at(columns.head), at(rows.head));
  swapped.insert(swapped.end(), at(cells.head), bytes.end());
  EXPECT_EQ(swapped.size(), bytes.size());
  EXPECT_FALSE(DecodeGridPage(Sealed(swapped)));
}

/// What a page cannot have: each change alone, sealed, is refused.
TEST(LayoutFile, ValuesThatNoPageHasAreRefused) {
  struct Change {
    const char* what;
    const char* tag;
    std::size_t offset;
    std::function<void(Bytes&, std::size_t)> apply;
  };
  const auto byte = [](BYTE value) {
    return [value](Bytes& bytes, std::size_t at) { bytes[at] = value; };
  };
  const auto real = [](double value) {
    return [value](Bytes& bytes, std::size_t at) { Put(bytes, at, value); };
  };
  const auto single = [](float value) {
    return [value](Bytes& bytes, std::size_t at) { Put(bytes, at, value); };
  };
  constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  const std::vector<Change> changes = {
      {"margin", "PAGE", 2, single(-1)},
      {"margin", "PAGE", 2, single(kInfinity)},
      {"frame", "PAGE", 6, byte(2)},
      {"outer line", "PAGE", 7, byte(2)},
      {"inner line", "PAGE", 8, byte(255)},
      {"outer pen", "PAGE", 13, single(-0.5F)},
      {"inner pen", "PAGE", 23, single(kInfinity)},
      {"no columns", "COLS", 0, byte(0)},
      {"too few columns", "COLS", 0, byte(3)},
      {"too many columns", "COLS", 0, byte(255)},
      {"column length", "COLS", 1, real(-1)},
      {"column length", "COLS", 1, real(kNotANumber)},
      {"column length", "COLS", 1, real(1.1e12)},
      {"row length", "ROWS", 17, real(-1e-9)},
      {"no rows", "ROWS", 0, byte(0)},
      {"merge size", "CELS", 0, byte(0)},
      {"merge size", "CELS", 0, byte(2)},
      {"merge size", "CELS", 1, byte(5)},
      {"borders", "CELS", 2, byte(16)},
      {"strike-out type", "CELS", 3, byte(2)},
      {"horizontal place", "CELS", 4, byte(3)},
      {"vertical place", "CELS", 5, byte(3)},
      {"width", "CELS", 14, real(-1)},
      {"height", "CELS", 22, real(kNotANumber)},
      {"face name without end", "CELS", 89, byte('x')},
      {"text length", "CELS", 90, byte(1)},
      {"text length", "CELS", 93, byte(255)},
      {"zero byte in a text", "CELS", 94 + 94, byte(0)},
  };
  const Bytes whole = BytesOf(SamplePage());
  for (const Change& change : changes) {
    Bytes bytes = whole;
    change.apply(bytes, FindSection(bytes, change.tag).content + change.offset);
    ASSERT_NE(bytes, whole) << change.what << " at " << change.offset;
    EXPECT_FALSE(DecodeGridPage(Sealed(bytes))) << change.what << " at " << change.offset;
  }
}

TEST(LayoutFile, LengthsOfTheExtendedPageAreFloats) {
  Bytes bytes = BytesOf(SampleExPage());
  const Section columns = FindSection(bytes, "COLS");
  Put(bytes, columns.content + 1, 0.5);
  EXPECT_TRUE(DecodeExPage(Sealed(bytes)));
  Put(bytes, columns.content + 1, 0.1);
  EXPECT_FALSE(DecodeExPage(Sealed(bytes)));
}

TEST(LayoutFile, SwitchesOfTheExtendedPageAreNoughtOrOne) {
  const Bytes whole = BytesOf(SampleExPage());
  for (std::size_t flag = 0; flag < 6; ++flag) {
    Bytes bytes = whole;
    bytes[FindSection(bytes, "PAGE").content + flag] = 2;
    EXPECT_FALSE(DecodeExPage(Sealed(bytes))) << flag;
  }
  Bytes pen = whole;
  Put(pen, FindSection(pen, "PAGE").content + 17, -1.0F);
  EXPECT_FALSE(DecodeExPage(Sealed(pen)));
}

/// A few hundred bytes that claim 65,025 cells must not cost the memory of so many.
TEST(LayoutFile, ClaimedCellsAreCountedBeforeTheyAreMade) {
  Bytes bytes(BytesOf(SamplePage()));
  const Section columns = FindSection(bytes, "COLS");
  bytes.resize(columns.head);
  std::string lengths(1 + 255 * 8, '\0');
  lengths[0] = '\xFF';
  for (const Bytes& section : {SectionBytes("COLS", lengths), SectionBytes("ROWS", lengths),
                               SectionBytes("CELS", std::string(1000, '\0'))}) {
    bytes = Joined(bytes, section);
  }
  bytes = Sealed(bytes);
  const quorvel::test::LargestAllocation watch;
  EXPECT_FALSE(DecodeGridPage(bytes));
  EXPECT_LE(watch.Bytes(), 4 * bytes.size());
}

TEST(LayoutFile, APageTakesASmallMultipleOfItsFile) {
  CLayoutPageData page;
  page.DividePage(100, 100, 0);
  const Bytes bytes = BytesOf(page);
  const quorvel::test::LargestAllocation watch;
  EXPECT_TRUE(DecodeGridPage(bytes));
  EXPECT_LE(watch.Bytes(), 2 * bytes.size());
}

TEST(LayoutFile, MergesThatAreNotSoundAreSavedAsSingleCells) {
  CLayoutPageData page;
  page.DividePage(2, 2, 0);
  page.GetCelAt(0)->SetColMeargeSize(9);
  page.GetCelAt(3)->SetRowMeargeSize(0);
  CLayoutPageData clean;
  clean.DividePage(2, 2, 0);
  EXPECT_EQ(BytesOf(page), BytesOf(clean));
  EXPECT_EQ(page.GetCelAt(0)->GetColMeargeSize(), 9) << "saving changes nothing";
}

TEST(LayoutFile, SelectionIsNotSaved) {
  CLayoutPageData page = SamplePage();
  const Bytes before = BytesOf(page);
  page.GetCelAt(0)->SetSelected(1);
  EXPECT_EQ(BytesOf(page), before);
}

}  // namespace
