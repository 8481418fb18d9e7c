// The page model at its largest, 255 x 255 cells with a text and a font in each: its files against
// the same bytes read and written plainly, its rectangles against a bare loop, its changes against
// each other at two sizes.
#include "bench/benchmarks.h"
#include "bench/timing.h"
#include "quorvel/quorvel.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace quorvel::bench {
namespace {

constexpr int kLines = 255;
constexpr int kCells = kLines * kLines;

/// Makes what a timed action works on, does the action, and gives the seconds it took.
template <class Prepare, class Action>
double TimeOf(const Prepare& prepare, const Action& action) {
  auto subject = prepare();
  const LONGLONG start = Ticks();
  action(subject);
  return Seconds(start, Ticks());
}

CLayoutPageData FullPage() {
  CLayoutPageData page;
  page.DividePage(kLines, kLines, 0);
  for (int index = 0; index < page.GetCelSize(); ++index) {
    CString text;
    text.Format("cell %d", index);
    page.GetCelAt(index)->SetText(text);
    CKivFontEx font;
    font.SetV(2 + index % 10);
    font.CalcMmToLogFont(kUsualDotsPerMm);
    page.GetCelAt(index)->SetFont(&font);
  }
  return page;
}

/// A file handle that a benchmark cannot forget.
class File {
public:
  File(const std::filesystem::path& path, DWORD access, DWORD disposition)
      : m_handle(::CreateFileW(path.c_str(), access, 0, nullptr, disposition, 0, nullptr)) {
    if (m_handle == INVALID_HANDLE_VALUE) {
      throw std::runtime_error("cannot open the benchmark's file");
    }
  }
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  ~File() { ::CloseHandle(m_handle); }

  HANDLE Get() const { return m_handle; }

private:
  HANDLE m_handle;
};

using Block = BYTE[];  // NOLINT(modernize-avoid-c-arrays): what unique_ptr calls a block

std::unique_ptr<Block> ReadPlainly(const std::filesystem::path& path) {
  const File file(path, GENERIC_READ, OPEN_EXISTING);
  const DWORD size = ::GetFileSize(file.Get(), nullptr);
  auto bytes = std::make_unique_for_overwrite<Block>(size);
  DWORD read = 0;
  if (::ReadFile(file.Get(), bytes.get(), size, &read, nullptr) == 0 || read != size) {
    throw std::runtime_error("cannot read the benchmark's file");
  }
  return bytes;
}

void WritePlainly(const std::filesystem::path& path, const BYTE* bytes, DWORD size) {
  const File file(path, GENERIC_WRITE, CREATE_ALWAYS);
  DWORD written = 0;
  if (::WriteFile(file.Get(), bytes, size, &written, nullptr) == 0 || written != size ||
      ::FlushFileBuffers(file.Get()) == 0) {
    throw std::runtime_error("cannot write the benchmark's file");
  }
}

void Require(int succeeded) {
  if (succeeded == 0) {
    throw std::runtime_error("an operation of the page failed");
  }
}

std::vector<Row> Files(int runs) {
  const std::filesystem::path folder = std::filesystem::temp_directory_path();
  const std::filesystem::path saved = folder / "quorvel-bench.mtpld";
  const std::filesystem::path plain = folder / "quorvel-bench.plain";
  const CLayoutPageData page = FullPage();
  Require(page.SaveFileW(saved.c_str()));
  const auto size = static_cast<DWORD>(std::filesystem::file_size(saved));
  const std::unique_ptr<Block> bytes = ReadPlainly(saved);

  const auto nothing = [] { return 0; };
  std::vector<Row> rows;
  rows.push_back(Compare(
      "load 255 x 255 cells", "reading the bytes", 4.0, runs,
      [&] {
        return TimeOf([] { return CLayoutPageData(); },
                       [&](CLayoutPageData& fresh) { Require(fresh.OpenFileW(saved.c_str())); });
      },
      [&] { return TimeOf(nothing, [&](int) { ReadPlainly(saved); }); }));
  rows.push_back(Compare(
      "save 255 x 255 cells", "writing the bytes", 4.0, runs,
      [&] { return TimeOf(nothing, [&](int) { Require(page.SaveFileW(saved.c_str())); }); },
      [&] { return TimeOf(nothing, [&](int) { WritePlainly(plain, bytes.get(), size); }); }));
  std::filesystem::remove(saved);
  std::filesystem::remove(plain);
  return rows;
}

/// The same rectangles by the plainest loop: the edges of the rows and columns, then two loops.
void FillBare(CRect* table, int width, int height) {
  std::array<int, kLines + 1> xs{};
  std::array<int, kLines + 1> ys{};
  for (int line = 0; line <= kLines; ++line) {
    xs[static_cast<std::size_t>(line)] = (2 * width * line + kLines) / (2 * kLines);
    ys[static_cast<std::size_t>(line)] = (2 * height * line + kLines) / (2 * kLines);
  }
  for (std::size_t row = 0; row < kLines; ++row) {
    for (std::size_t col = 0; col < kLines; ++col) {
      *table++ = CRect(xs[col], ys[row], xs[col + 1], ys[row + 1]);
    }
  }
}

std::vector<Row> Rectangles(int runs) {
  constexpr int kWidth = 1000;
  constexpr int kHeight = 700;
  const CLayoutPageData page = FullPage();
  std::vector<CRect> table(kCells);
  std::vector<CRect> other(kCells);
  const CRect area(0, 0, kWidth, kHeight);
  FillBare(other.data(), kWidth, kHeight);
  page.InitCelRect(&area, table.data());
  if (table != other) {
    throw std::runtime_error("the bare loop fills other rectangles");
  }
  const auto nothing = [] { return 0; };
  // A table of all positions, and from it the rectangle of each cell, as a page is laid out and
  // painted; bare, both tables are filled by loops.
  return {Compare(
      "InitCelRect and GetCelRect of 255 x 255 cells", "bare loops", 4.0, runs,
      [&] {
        return TimeOf(nothing, [&](int) {
          page.InitCelRect(&area, table.data());
          for (int index = 0; index < kCells; ++index) {
            page.GetCelRect(&other[static_cast<std::size_t>(index)], table.data(), index, nullptr,
                            nullptr);
          }
        });
      },
      [&] {
        return TimeOf(nothing, [&](int) {
          FillBare(table.data(), kWidth, kHeight);
          FillBare(other.data(), kWidth, kHeight);
        });
      })};
}

constexpr auto kList = static_cast<CLayoutExPageData::LISTTYPE>(1);

CLayoutExPageData ExPage(int lines) {
  CLayoutExPageData page;
  page.DividePage(kList, static_cast<BYTE>(lines), static_cast<BYTE>(lines), 0);
  for (int index = 0; index < page.GetCelSize(kList); ++index) {
    page.GetCelAt(kList, index)->SetSelected(1);
  }
  return page;
}

CLayoutExPageData MergedExPage(int lines) {
  CLayoutExPageData page = ExPage(lines);
  Require(page.MeargeCel(kList, 0, 0));
  return page;
}

/// Each change at 240 x 240 cells against 120 x 120: four times the cells may take four times the
/// time, and twice that for the caches that the larger page no longer fits.
std::vector<Row> Changes(int runs) {
  constexpr int kSmall = 120;
  constexpr int kLarge = 240;
  constexpr double kLimit = 8.0;
  using Page = CLayoutExPageData;
  struct Change {
    const char* name;
    Page (*prepare)(int lines);
    void (*apply)(Page& page);
  };
  const std::array changes{
      Change{"insert a row", ExPage, [](Page& page) { page.InsertRow(kList, 60); }},
      Change{"insert a column", ExPage, [](Page& page) { page.InsertCol(60); }},
      Change{"delete a row", ExPage, [](Page& page) { page.DeleteRow(kList, 60); }},
      Change{"delete a column", ExPage, [](Page& page) { page.DeleteCol(60); }},
      Change{"merge all", ExPage, [](Page& page) { Require(page.MeargeCel(kList, 0, 0)); }},
      Change{"split all", MergedExPage, [](Page& page) { Require(page.DivideCel(kList, 0, 0)); }}};
  std::vector<Row> rows;
  rows.reserve(changes.size());
  for (const Change& change : changes) {
    rows.push_back(Compare(
        std::string(change.name) + ", 4 times the cells", "a quarter of the cells", kLimit, runs,
        [&] { return TimeOf([&] { return change.prepare(kLarge); }, change.apply); },
        [&] { return TimeOf([&] { return change.prepare(kSmall); }, change.apply); }));
  }
  return rows;
}

/// Bytes of the C run-time's heap in use.
std::size_t HeapBytes() {
  auto* const heap = reinterpret_cast<HANDLE>(::_get_heap_handle());
  std::size_t bytes = 0;
  PROCESS_HEAP_ENTRY entry{};
  while (::HeapWalk(heap, &entry) != 0) {
    if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) {
      bytes += entry.cbData + entry.cbOverhead;
    }
  }
  return bytes;
}

/// Empty texts, so that what is counted is the page itself.
Row Memory() {
  constexpr double kMostBytes = 256;
  const std::size_t before = HeapBytes();
  CLayoutPageData page;
  page.DividePage(kLines, kLines, 0);
  const double bytes = static_cast<double>(HeapBytes() - before) / kCells;
  return Alone("memory of a page of 255 x 255 cells", "bytes a cell", bytes, kMostBytes, 1);
}

}  // namespace

std::vector<Row> PageModel(int runs) {
  std::vector<Row> rows = Files(runs);
  for (const auto& family : {Rectangles(kStepsOfRun * runs), Changes(runs), {Memory()}}) {
    rows.insert(rows.end(), family.begin(), family.end());
  }
  return rows;
}

}  // namespace quorvel::bench
