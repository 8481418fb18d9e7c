#include "kivdata/layout_file.h"

#include "kivdata/crc32.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <exception>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace quorvel {
namespace {

static_assert(std::endian::native == std::endian::little, "the format is little-endian");
constexpr std::size_t kLogFontSize = 60;
static_assert(sizeof(LOGFONTA) == kLogFontSize && std::is_trivially_copyable_v<LOGFONTA>);

// The file. Offsets and sizes are in bytes.

constexpr std::string_view kSignature = "QVLAYOUT";
constexpr std::uint16_t kMajorVersion = 1;
constexpr std::size_t kHeadSize = 28;
constexpr std::size_t kChecksumAt = 24;
constexpr std::size_t kSectionHeadSize = 12;

enum class Kind : std::uint16_t { kGrid = 1, kEx = 2 };

constexpr std::string_view kPageTag = "PAGE";
constexpr std::string_view kColumnsTag = "COLS";
constexpr std::string_view kRowsTag = "ROWS";
constexpr std::string_view kCellsTag = "CELS";

constexpr std::size_t kLinesSize = 2 + 2 * (4 + 4 + 2);
constexpr std::size_t kGridPageSize = 2 + 4 + 1 + kLinesSize;
constexpr std::size_t kExPageSize =
    ExPageModel::kPageKinds + ExPageModel::kBlocks + 1 + 4 + kLinesSize;

// A cell's record: merge sizes, borders, strike-out type and places in single bytes, then colours,
// millimetres, the platform's record and the length of the text, which follows.
constexpr std::size_t kCellSize = 6 + 4 + 4 + 8 + 8 + sizeof(LOGFONTA) + 4;

constexpr BYTE kLeftBit = 1;
constexpr BYTE kRightBit = 2;
constexpr BYTE kTopBit = 4;
constexpr BYTE kBottomBit = 8;
constexpr BYTE kBorderBits = kLeftBit | kRightBit | kTopBit | kBottomBit;

// Writing.

/// Writes into a block that was measured beforehand.
class Writer {
public:
  explicit Writer(std::span<BYTE> bytes) : m_next(bytes.data()) {}

  template <class T>
  void Put(T value) {
    static_assert(std::is_arithmetic_v<T> || std::is_same_v<T, LOGFONTA>);
    std::memcpy(m_next, &value, sizeof value);
    m_next += sizeof value;
  }
  void PutFlag(bool flag) { Put<BYTE>(flag ? 1 : 0); }
  void PutText(std::string_view text) {
    std::copy(text.begin(), text.end(), m_next);
    m_next += text.size();
  }
  void PutSection(std::string_view tag, std::size_t size) {
    PutText(tag);
    Put<std::uint64_t>(size);
  }

private:
  BYTE* m_next;
};

void PutPen(Writer& writer, const PEN_STATUS& pen) {
  writer.Put<std::uint32_t>(pen.color);
  writer.Put<float>(pen.width);
  writer.Put<std::int16_t>(pen.style);
}

void PutLines(Writer& writer, const LineSettings& lines) {
  writer.PutFlag(lines.outOn);
  writer.PutFlag(lines.inOn);
  PutPen(writer, lines.out);
  PutPen(writer, lines.in);
}

void PutPage(Writer& writer, const GridPageModel& page) {
  writer.PutSection(kPageTag, kGridPageSize);
  writer.Put<std::int16_t>(page.type);
  writer.Put<float>(page.margin);
  writer.PutFlag(page.showFrame);
  PutLines(writer, page.lines);
}

void PutPage(Writer& writer, const ExPageModel& page) {
  writer.PutSection(kPageTag, kExPageSize);
  for (const bool shown : page.showByPage) {
    writer.PutFlag(shown);
  }
  for (const bool used : page.use) {
    writer.PutFlag(used);
  }
  writer.Put<BYTE>(page.repeatRow);
  writer.Put<std::int32_t>(page.stIndex);
  PutLines(writer, page.lines);
}

std::size_t LengthsSize(const GridLengths& lengths) {
  return 1 + sizeof(double) * lengths.All().size();
}

void PutLengths(Writer& writer, std::string_view tag, const GridLengths& lengths) {
  writer.PutSection(tag, LengthsSize(lengths));
  writer.Put(static_cast<BYTE>(lengths.Count()));
  for (const double length : lengths.All()) {
    writer.Put(length);
  }
}

std::size_t CellsSize(const CellGrid& cells) {
  std::size_t size = kCellSize * static_cast<std::size_t>(cells.Size());
  for (int index = 0; index < cells.Size(); ++index) {
    size += cells.At(index)->TextView().size();
  }
  return size;
}

BYTE Borders(const CLayoutCelData& cell) {
  return static_cast<BYTE>(
      (cell.GetShowLineHL() != 0 ? kLeftBit : 0) | (cell.GetShowLineHR() != 0 ? kRightBit : 0) |
      (cell.GetShowLineVT() != 0 ? kTopBit : 0) | (cell.GetShowLineVB() != 0 ? kBottomBit : 0));
}

void PutCells(Writer& writer, const CellGrid& cells) {
  writer.PutSection(kCellsTag, CellsSize(cells));
  const std::vector<MergeSize> sizes = cells.SoundSizes();
  for (int index = 0; index < cells.Size(); ++index) {
    const CLayoutCelData& cell = *cells.At(index);
    const CKivFontEx& font = *cell.GetFont();
    const std::string_view text = cell.TextView();
    const MergeSize& merge = sizes[static_cast<std::size_t>(index)];
    writer.Put<BYTE>(merge.rows);
    writer.Put<BYTE>(merge.cols);
    writer.Put<BYTE>(Borders(cell));
    writer.Put<BYTE>(font.GetStrikeOutType());
    writer.Put<BYTE>(font.GetHPos());
    writer.Put<BYTE>(font.GetVPos());
    writer.Put<std::uint32_t>(font.GetColor());
    writer.Put<std::uint32_t>(font.GetBackColor());
    writer.Put<double>(font.GetH());
    writer.Put<double>(font.GetV());
    writer.Put<LOGFONTA>(font.GetLogFont(0));
    writer.Put<std::uint32_t>(static_cast<std::uint32_t>(text.size()));
    writer.PutText(text);
  }
}

std::uint32_t ChecksumOf(std::span<const BYTE> bytes) {
  return Crc32(bytes.subspan(kHeadSize), Crc32(bytes.first(kChecksumAt)));
}

template <class Page>
FileBytes Encode(const Page& page, Kind kind, std::size_t pageSize) {
  std::size_t size = kHeadSize + kSectionHeadSize + pageSize + kSectionHeadSize +
                     LengthsSize(page.sheet.Columns()) + page.later.bytes.size();
  for (const LayoutSheet::Block& block : page.sheet.Blocks()) {
    size += 2 * kSectionHeadSize + LengthsSize(block.rows) + CellsSize(block.cells);
  }
  FileBytes bytes(size);
  Writer writer(bytes.Span());
  writer.PutText(kSignature);
  writer.Put<std::uint16_t>(static_cast<std::uint16_t>(kind));
  writer.Put<std::uint16_t>(kMajorVersion);
  writer.Put<std::uint32_t>(page.later.minorVersion);
  writer.Put<std::uint64_t>(size);
  writer.Put<std::uint32_t>(0);
  PutPage(writer, page);
  PutLengths(writer, kColumnsTag, page.sheet.Columns());
  for (const LayoutSheet::Block& block : page.sheet.Blocks()) {
    PutLengths(writer, kRowsTag, block.rows);
    PutCells(writer, block.cells);
  }
  const std::vector<BYTE>& later = page.later.bytes;
  writer.PutText({reinterpret_cast<const char*>(later.data()), later.size()});

  Writer(bytes.Span().subspan(kChecksumAt)).Put(ChecksumOf(bytes.Span()));
  return bytes;
}

// Reading.

/// Reads forward; what is read past the end is zero and makes the reader fail for good.
class Reader {
public:
  explicit Reader(std::span<const BYTE> bytes) : m_rest(bytes) {}

  std::size_t Left() const { return m_rest.size(); }
  /// Whether everything was there, and everything was read.
  bool IsDone() const { return !m_failed && m_rest.empty(); }
  bool Failed() const { return m_failed; }

  std::span<const BYTE> Take(std::size_t size) {
    if (m_failed || size > m_rest.size()) {
      m_failed = true;
      return {};
    }
    const std::span<const BYTE> taken = m_rest.first(size);
    m_rest = m_rest.subspan(size);
    return taken;
  }
  template <class T>
  T Get() {
    static_assert(std::is_arithmetic_v<T> || std::is_same_v<T, LOGFONTA>);
    T value{};
    const std::span<const BYTE> taken = Take(sizeof value);
    if (!taken.empty()) {
      std::memcpy(&value, taken.data(), sizeof value);
    }
    return value;
  }
  std::string_view GetText(std::size_t size) {
    const std::span<const BYTE> taken = Take(size);
    return {reinterpret_cast<const char*>(taken.data()), taken.size()};
  }
  bool GetFlag() {
    const BYTE flag = Get<BYTE>();
    m_failed = m_failed || flag > 1;
    return flag == 1;
  }
  /// The content of the next section, which must have this tag.
  Reader GetSection(std::string_view tag) {
    m_failed = m_failed || GetText(tag.size()) != tag;
    return {Take(Get<std::uint64_t>()), m_failed};
  }

private:
  Reader(std::span<const BYTE> bytes, bool failed) : m_rest(bytes), m_failed(failed) {}

  std::span<const BYTE> m_rest;
  bool m_failed = false;
};

bool GetPen(Reader& reader, PEN_STATUS& pen) {
  pen.color = reader.Get<std::uint32_t>();
  pen.width = reader.Get<float>();
  pen.style = reader.Get<std::int16_t>();
  return IsGoodPen(pen);
}

bool GetLines(Reader& reader, LineSettings& lines) {
  lines.outOn = reader.GetFlag();
  lines.inOn = reader.GetFlag();
  return GetPen(reader, lines.out) && GetPen(reader, lines.in);
}

bool GetPage(Reader section, GridPageModel& page) {
  page.type = section.Get<std::int16_t>();
  page.margin = section.Get<float>();
  page.showFrame = section.GetFlag();
  return GridLengths::IsGood(page.margin, GridLengths::Precision::kSingle) &&
         GetLines(section, page.lines) && section.IsDone();
}

bool GetPage(Reader section, ExPageModel& page) {
  for (bool& shown : page.showByPage) {
    shown = section.GetFlag();
  }
  for (bool& used : page.use) {
    used = section.GetFlag();
  }
  page.repeatRow = section.Get<BYTE>();
  page.stIndex = section.Get<std::int32_t>();
  return GetLines(section, page.lines) && section.IsDone();
}

std::optional<GridLengths> GetLengths(Reader section, GridLengths::Precision precision,
                                      int fewest) {
  std::vector<double> lengths(section.Get<BYTE>());
  for (double& length : lengths) {
    length = section.Get<double>();
    if (!GridLengths::IsGood(length, precision)) {
      return std::nullopt;
    }
  }
  if (!section.IsDone() || static_cast<int>(lengths.size()) < fewest) {
    return std::nullopt;
  }
  return GridLengths(precision, std::move(lengths));
}

bool IsSize(double millimetres) {
  return std::isfinite(millimetres) && millimetres >= 0;
}

/// False for a font that no page can have.
bool GetFont(Reader& reader, CKivFontEx& font) {
  const auto strikeOutType = reader.Get<BYTE>();
  const auto hPos = reader.Get<BYTE>();
  const auto vPos = reader.Get<BYTE>();
  const COLORREF color = reader.Get<std::uint32_t>();
  const COLORREF backColor = reader.Get<std::uint32_t>();
  const auto width = reader.Get<double>();
  const auto height = reader.Get<double>();
  const auto logFont = reader.Get<LOGFONTA>();
  font.SetStrikeOutType(strikeOutType);
  font.SetHPos(hPos);
  font.SetVPos(vPos);
  font.SetColor(&color);
  font.SetBackColor(&backColor);
  font.SetH(width);
  font.SetV(height);
  font.SetLogFont(&logFont);
  const LOGFONTA taken = font.GetLogFont(0);
  return font.GetStrikeOutType() == strikeOutType && font.GetHPos() == hPos &&
         font.GetVPos() == vPos && IsSize(width) && IsSize(height) &&
         std::memcmp(&taken, &logFont, sizeof logFont) == 0;
}

/// False for a cell that no page can have, whatever its neighbours are.
bool GetCell(Reader& reader, CLayoutCelData& cell) {
  cell.SetRowMeargeSize(reader.Get<BYTE>());
  cell.SetColMeargeSize(reader.Get<BYTE>());
  const auto borders = reader.Get<BYTE>();
  cell.SetShowLineHL(borders & kLeftBit);
  cell.SetShowLineHR(borders & kRightBit);
  cell.SetShowLineVT(borders & kTopBit);
  cell.SetShowLineVB(borders & kBottomBit);
  if (borders > kBorderBits || !GetFont(reader, *cell.GetFont())) {
    return false;
  }
  const std::string_view text = reader.GetText(reader.Get<std::uint32_t>());
  if (text.find('\0') != std::string_view::npos) {
    return false;
  }
  cell.SetText(CString(text));
  return true;
}

std::optional<CellGrid> GetCells(Reader section, int rows, int columns) {
  const auto count = static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns);
  if (section.Left() < count * kCellSize) {
    return std::nullopt;  // before memory is taken for cells that are not there
  }
  std::vector<CLayoutCelData> cells;
  cells.reserve(count);
  for (std::size_t index = 0; index < count; ++index) {
    if (!GetCell(section, cells.emplace_back())) {
      return std::nullopt;
    }
  }
  CellGrid grid(rows, columns, std::move(cells));
  if (!section.IsDone() || !grid.IsSound()) {
    return std::nullopt;
  }
  return grid;
}

std::optional<LayoutSheet> GetSheet(Reader& reader, const LayoutSheet& like) {
  const GridLengths::Precision precision = like.Columns().GetPrecision();
  std::optional<GridLengths> columns = GetLengths(reader.GetSection(kColumnsTag), precision, 1);
  if (!columns) {
    return std::nullopt;
  }
  std::vector<LayoutSheet::Block> blocks;
  for (std::size_t block = 0; block < like.Blocks().size(); ++block) {
    std::optional<GridLengths> rows =
        GetLengths(reader.GetSection(kRowsTag), precision, like.FewestRows());
    if (!rows) {
      return std::nullopt;
    }
    std::optional<CellGrid> cells =
        GetCells(reader.GetSection(kCellsTag), rows->Count(), columns->Count());
    if (!cells) {
      return std::nullopt;
    }
    blocks.push_back({*std::move(rows), *std::move(cells)});
  }
  return LayoutSheet(*std::move(columns), std::move(blocks), like.FewestRows());
}

/// Takes all sections that are left, none of which may be a known one.
bool GetLaterSections(Reader& reader, std::vector<BYTE>& bytes) {
  Reader ahead = reader;
  while (!ahead.Failed() && ahead.Left() > 0) {
    const std::string_view tag = ahead.GetText(kPageTag.size());
    if (tag == kPageTag || tag == kColumnsTag || tag == kRowsTag || tag == kCellsTag) {
      return false;
    }
    ahead.Take(ahead.Get<std::uint64_t>());
  }
  const std::span<const BYTE> rest = reader.Take(reader.Left());
  bytes.assign(rest.begin(), rest.end());
  return ahead.IsDone() && reader.IsDone();
}

/// Whether a file of this size may begin so.
bool IsHead(std::span<const BYTE> head, std::uint64_t fileSize, Kind kind) {
  Reader reader(head.first(std::min(head.size(), kHeadSize)));
  const bool isOurs = reader.GetText(kSignature.size()) == kSignature &&
                      reader.Get<std::uint16_t>() == static_cast<std::uint16_t>(kind) &&
                      reader.Get<std::uint16_t>() == kMajorVersion;
  reader.Get<std::uint32_t>();  // any minor version
  return isOurs && reader.Get<std::uint64_t>() == fileSize &&
         reader.Take(sizeof(std::uint32_t)).size() == sizeof(std::uint32_t);
}

template <class Page>
std::optional<Page> Decode(std::span<const BYTE> bytes, Kind kind) {
  if (!IsHead(bytes, bytes.size(), kind)) {
    return std::nullopt;
  }
  Reader head(bytes.first(kHeadSize));
  head.Take(kSignature.size() + 2 * sizeof(std::uint16_t));
  Page page;
  page.later.minorVersion = head.Get<std::uint32_t>();
  head.Get<std::uint64_t>();
  if (head.Get<std::uint32_t>() != ChecksumOf(bytes)) {
    return std::nullopt;
  }
  Reader reader(bytes.subspan(kHeadSize));
  if (!GetPage(reader.GetSection(kPageTag), page)) {
    return std::nullopt;
  }
  std::optional<LayoutSheet> sheet = GetSheet(reader, page.sheet);
  if (!sheet || !GetLaterSections(reader, page.later.bytes)) {
    return std::nullopt;
  }
  page.sheet = *std::move(sheet);
  return page;
}

template <class Page>
std::optional<Page> Load(const std::filesystem::path& path, Kind kind) noexcept {
  try {
    const std::optional<FileBytes> bytes =
        ReadWholeFile(path, kHeadSize, [kind](std::span<const BYTE> head, std::uint64_t fileSize) {
          return IsHead(head, fileSize, kind);
        });
    return bytes ? Decode<Page>(bytes->Span(), kind) : std::nullopt;
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

template <class Page>
bool Save(const std::filesystem::path& path, const Page& page) noexcept {
  try {
    return WriteWholeFile(path, EncodePage(page).Span());
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace

FileBytes EncodePage(const GridPageModel& page) {
  return Encode(page, Kind::kGrid, kGridPageSize);
}

FileBytes EncodePage(const ExPageModel& page) {
  return Encode(page, Kind::kEx, kExPageSize);
}

std::optional<GridPageModel> DecodeGridPage(std::span<const BYTE> bytes) {
  return Decode<GridPageModel>(bytes, Kind::kGrid);
}

std::optional<ExPageModel> DecodeExPage(std::span<const BYTE> bytes) {
  return Decode<ExPageModel>(bytes, Kind::kEx);
}

std::optional<GridPageModel> LoadGridPage(const std::filesystem::path& path) noexcept {
  return Load<GridPageModel>(path, Kind::kGrid);
}

std::optional<ExPageModel> LoadExPage(const std::filesystem::path& path) noexcept {
  return Load<ExPageModel>(path, Kind::kEx);
}

bool SavePage(const std::filesystem::path& path, const GridPageModel& page) noexcept {
  return Save(path, page);
}

bool SavePage(const std::filesystem::path& path, const ExPageModel& page) noexcept {
  return Save(path, page);
}

}  // namespace quorvel
