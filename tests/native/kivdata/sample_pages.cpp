#include "sample_pages.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace quorvel::test {
namespace {

CKivFontEx SampleFont(int number) {
  LOGFONTA logFont{};
  logFont.lfHeight = -20 - number;
  logFont.lfWidth = number;
  logFont.lfWeight = 700;
  logFont.lfItalic = 1;
  logFont.lfCharSet = SHIFTJIS_CHARSET;
  const std::string face = "Face" + std::to_string(number);
  std::copy(face.begin(), face.end(), logFont.lfFaceName);
  CKivFontEx font;
  font.SetLogFont(&logFont);
  font.SetV(2.5 + number);
  font.SetH(0.1 * number);
  const COLORREF color = RGB(10, 20, static_cast<BYTE>(number));
  const COLORREF backColor = RGB(200, static_cast<BYTE>(number), 100);
  font.SetColor(&color);
  font.SetBackColor(&backColor);
  font.SetHPos(static_cast<BYTE>(number % 3));
  font.SetVPos(static_cast<BYTE>(number / 3 % 3));
  font.SetStrikeOutType(static_cast<BYTE>(number % 2));
  return font;
}

void FillCell(CLayoutCelData& cell, int number) {
  static const std::vector<std::string> texts = {
      "", "A", "\x8E\x81\x96\xBC", "\x83\x5C\\\"<M>%d %s</M>", "line\r\nbreak", "\x83"};
  cell.SetText(texts[static_cast<std::size_t>(number) % texts.size()].c_str());
  const CKivFontEx font = SampleFont(number);
  cell.SetFont(&font);
}

constexpr PEN_STATUS kOuter = {RGB(1, 2, 3), 0.5F, 4};
constexpr PEN_STATUS kInner = {RGB(4, 5, 6), 0.25F, -1};

template <class Page>
std::vector<BYTE> SavedBytes(const Page& page) {
  const TemporaryFolder folder;
  const std::string path = folder.File("page");
  if (page.SaveFile(path.c_str()) == 0) {
    throw std::runtime_error("a page was not saved");
  }
  return ReadBytes(path);
}

}  // namespace

CLayoutPageData SamplePage() {
  CLayoutPageData page;
  page.DividePage(3, 4, 8);
  page.SetType(1);
  page.SetMargin(7.25F);
  page.SetShowFrame(0);
  page.SetByEdgeOutLine(1);
  page.SetByEdgeInLine(1);
  page.SetOutLineStatus(&kOuter);
  page.SetInLineStatus(&kInner);
  page.SetLengthRow(1, 12.3);
  page.SetLengthCol(2, 0);
  for (int index = 0; index < page.GetCelSize(); ++index) {
    FillCell(*page.GetCelAt(index), index);
  }
  page.GetCelAt(0)->SetShowLineHL(0);
  for (const int selected : {5, 6, 9, 10}) {
    page.GetCelAt(selected)->SetSelected(1);
  }
  page.MeargeCel(1, 1);
  return page;
}

CLayoutExPageData SampleExPage() {
  CLayoutExPageData page;
  const auto list = ListType(1);
  page.DividePage(ListType(0), 1, 3, 8);
  page.DividePage(list, 2, 3, 8);
  page.DividePage(ListType(2), 0, 3, 8);
  page.SetAllLengthCol(100.1F, 1);
  page.SetLengthRow(list, 1, 33.3F);
  page.SetByEdgeInLine(1);
  page.SetOutLineStatus(&kOuter);
  page.SetInLineStatus(&kInner);
  page.SetListShowByPage(1, 0);
  page.SetUse(ListType(2), 0);
  page.SetRepeatRow(20);
  page.SetStIndex(-5);
  for (const int block : {0, 1}) {
    for (int index = 0; index < page.GetCelSize(ListType(block)); ++index) {
      FillCell(*page.GetCelAt(ListType(block), index), index + block);
    }
  }
  page.GetCelAt(list, 1)->SetSelected(1);
  page.SetShowLine(list, 0, 0, 1, 0, 0, 1);
  page.GetCelAt(list, 4)->SetSelected(1);
  page.MeargeCel(list, 0, 1);
  return page;
}

std::vector<BYTE> BytesOf(const CLayoutPageData& page) {
  return SavedBytes(page);
}

std::vector<BYTE> BytesOf(const CLayoutExPageData& page) {
  return SavedBytes(page);
}

std::vector<BYTE> ReadBytes(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void WriteBytes(const std::filesystem::path& path, const std::vector<BYTE>& bytes) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(reinterpret_cast<const char*>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
  if (!file.flush()) {
    throw std::runtime_error("a file was not written");
  }
}

TemporaryFolder::TemporaryFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "quorvel-XXXXXX").string();
  if (::mkdtemp(name.data()) == nullptr) {
    throw std::runtime_error("a folder was not made");
  }
  m_path = name;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(m_path, ignored);
}

std::wstring TemporaryFolder::WideFile(const std::u32string& name) const {
  const std::u32string path = (m_path / name).u32string();
  return {path.begin(), path.end()};
}

int TemporaryFolder::Count() const {
  return static_cast<int>(std::distance(std::filesystem::directory_iterator(m_path), {}));
}

}  // namespace quorvel::test
