// What the layout editors do with files that are no layout files: a message, and the page stays.
#include "hostile/hostile_call.h"
#include "layout/editor_tools.h"
#include "support/same_page.h"
#include "support/work.h"

#include "dialogs/layout/editor_settings.h"
#include "res/ids.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace quorvel::test {
namespace {

constexpr double kDotsPerMm = 11.811;
using Bytes = std::vector<char>;

template <class Page>
Bytes BytesOf(const Page& page) {
  Bytes bytes(page.SaveBytes(nullptr, 0));
  page.SaveBytes(bytes.data(), bytes.size());
  return bytes;
}

/// The checksum that layout files have, written anew from their documents.
std::uint32_t ChecksumOf(const Bytes& bytes) {
  constexpr std::size_t kSumAt = 24;
  constexpr std::size_t kHeadSize = 28;
  constexpr std::uint32_t kPolynomial = 0xEDB88320;
  std::uint32_t sum = 0xFFFFFFFF;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (kSumAt <= i && i < kHeadSize) {
      continue;
    }
    sum ^= static_cast<unsigned char>(bytes[i]);
    for (int bit = 0; bit < 8; ++bit) {
      sum = sum >> 1 ^ ((sum & 1) != 0 ? kPolynomial : 0);
    }
  }
  return ~sum;
}

/// With the size and the checksum that it says of itself put right.
Bytes Sealed(Bytes bytes) {
  const std::uint64_t size = bytes.size();
  std::memcpy(bytes.data() + 16, &size, sizeof size);
  const std::uint32_t sum = ChecksumOf(bytes);
  std::memcpy(bytes.data() + 24, &sum, sizeof sum);
  return bytes;
}

/// `count` bytes of all bits behind the tag of a section, whose content begins with its counts.
Bytes WithHugeCounts(Bytes bytes, const std::string& tag, std::size_t from, std::size_t count) {
  const auto at = std::search(bytes.begin(), bytes.end(), tag.begin(), tag.end());
  const auto first = at + static_cast<std::ptrdiff_t>(tag.size() + from);
  std::fill(first, first + static_cast<std::ptrdiff_t>(count), '\xFF');
  return Sealed(bytes);
}

template <class Page, class Other>
std::vector<std::pair<const char*, Bytes>> BadFiles(const Page& page, const Other& other) {
  constexpr std::size_t kLengthOfSection = 8;
  const Bytes good = BytesOf(page);
  EXPECT_EQ(Sealed(good), good) << "the checksum is that of the documents";
  const auto prefix = [&](std::size_t count) {
    return Bytes(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(count));
  };
  return {{"empty", {}},
          {"one-byte", prefix(1)},
          {"head-only", prefix(28)},
          {"half", prefix(good.size() / 2)},
          {"half-sealed", Sealed(prefix(good.size() / 2))},
          {"all-but-one", prefix(good.size() - 1)},
          {"other-kind", BytesOf(other)},
          {"zeros", Bytes(5'000'000, '\0')},
          {"lines", Bytes(100'000, '\n')},
          {"long-section", WithHugeCounts(good, "COLS", 0, kLengthOfSection)},
          {"longest-section", WithHugeCounts(good, "CELS", 0, kLengthOfSection - 1)},
          {"many-columns", WithHugeCounts(good, "COLS", kLengthOfSection, 4)},
          {"many-rows", WithHugeCounts(good, "ROWS", kLengthOfSection, 4)},
          {"many-cells", WithHugeCounts(good, "CELS", kLengthOfSection, 4)}};
}

/// Opens each file by the command in one editor; it is told of each.
template <class Files>
void OpenAll(ModalScript& script, const Files& files, const FolderOfPages& folder, int image) {
  for (const auto& [name, bytes] : files) {
    std::ofstream(folder.Path() / name, std::ios::binary)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    ChooseFile(script, image, IDM_OPEN_LAYOUT, folder.PathOf(name));
    script.When(MessageBoxShown(), [](HWND box) {
      EXPECT_EQ(Text(box, 0xFFFF), L"ﾌｧｲﾙが正常に読み込み出来ません。");
      Confirm(box);
    });
  }
  script.When(Painted(DialogWithControl(image)), Confirm);
}

template <class Page>
Page UsualPage();

template <>
CLayoutPageData UsualPage() {
  CLayoutPageData page;
  page.DividePage(2, 3, kDotsPerMm);
  page.GetCelAt(1)->SetText("前のまま");
  return page;
}

template <>
CLayoutExPageData UsualPage() {
  CLayoutExPageData page;
  page.DividePage(CLayoutExPageData::LISTTYPE_LIST, 2, 3, kDotsPerMm);
  page.GetCelAt(CLayoutExPageData::LISTTYPE_LIST, 1)->SetText("前のまま");
  return page;
}

TEST(HostileFiles, TheGridEditorKeepsItsPage) {
  const FolderOfPages folder;
  const auto before = UsualPage<CLayoutPageData>();
  CLayoutPageData page = before;
  ModalScript script;
  OpenAll(script, BadFiles(before, UsualPage<CLayoutExPageData>()), folder, IDC_LAYOUT_IMAGE);
  EXPECT_NE(Work(script, [&] {
              return __LayoutEditDlg(nullptr, &page, nullptr, nullptr, 0.0, 0, nullptr);
            }),
            FALSE);
  EXPECT_TRUE(IsSamePage(page, before));
}

TEST(HostileFiles, TheExtendedEditorKeepsItsPage) {
  const FolderOfPages folder;
  const auto before = UsualPage<CLayoutExPageData>();
  CLayoutExPageData page = before;
  ModalScript script;
  OpenAll(script, BadFiles(before, UsualPage<CLayoutPageData>()), folder, IDC_LIST_IMAGE);
  EXPECT_NE(Work(script, [&] {
              return __LayoutExEditDlg(nullptr, &page, nullptr, nullptr, nullptr, 0.0, nullptr);
            }),
            FALSE);
  EXPECT_TRUE(IsSamePage(page, before));
}

}  // namespace
}  // namespace quorvel::test
