// QuorvelC64.dll: the entries and the pages of the library for hosts in any language.
#include "framework/code_page.h"

#include <quorvel/quorvel.h>
#include <quorvel/quorvel_c.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <memory>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

struct quorvel_page {
  std::variant<CLayoutPageData, CLayoutExPageData> data;
};

namespace {

// ---- Failures

/// What a call fails with.
class Failure : public std::runtime_error {
public:
  Failure(quorvel_result result, const std::string& words)
      : std::runtime_error(words), m_result(result) {}
  quorvel_result Result() const { return m_result; }

private:
  quorvel_result m_result;
};

std::array<char, 256>& LastError() {
  // Without a destructor: threads may end after the library has gone.
  thread_local std::array<char, 256> words{};
  return words;
}

void SetLastError(std::string_view words) {
  std::array<char, 256>& error = LastError();
  const std::size_t length = std::min(words.size(), error.size() - 1);
  std::copy_n(words.begin(), length, error.begin());
  error.at(length) = '\0';
}

quorvel_result Fail(quorvel_result result, std::string_view words) {
  SetLastError(words);
  return result;
}

/// Runs the body of a function; no exception leaves it.
template <class Body>
quorvel_result Call(Body body) noexcept {
  SetLastError("");
  try {
    return body();
  } catch (const Failure& failure) {
    return Fail(failure.Result(), failure.what());
  } catch (const std::bad_alloc&) {
    return Fail(QUORVEL_OUT_OF_MEMORY, "out of memory");
  } catch (const std::exception& error) {
    return Fail(QUORVEL_FAILED, error.what());
  } catch (...) {
    return Fail(QUORVEL_FAILED, "the dialog could not be shown");
  }
}

[[noreturn]] void BadArgument(const std::string& words) {
  throw Failure(QUORVEL_BAD_ARGUMENT, words);
}

template <class Type>
Type& Needed(Type* pointer, const char* name) {
  if (pointer == nullptr) {
    BadArgument(std::string(name) + " is null");
  }
  return *pointer;
}

// ---- Structures of any size

constexpr std::size_t kLargestSize = 4096;

/// A host's structure in today's shape.
template <class Dialog>
class Given {
public:
  explicit Given(Dialog* host) : m_host(&Needed(host, "dialog")) {
    const std::size_t size = m_host->size;
    // The first shape of each structure is today's.
    if (size < sizeof(Dialog)) {
      BadArgument("size is smaller than that of the structure");
    }
    if (size > kLargestSize) {  // nobody's structure: it must not be read
      BadArgument("size is no size of a structure");
    }
    const auto* const bytes = reinterpret_cast<const unsigned char*>(m_host);
    if (std::any_of(bytes + sizeof(Dialog), bytes + size,
                    [](unsigned char byte) { return byte != 0; })) {
      BadArgument("the structure has members that this library does not know");
    }
    m_copy = *m_host;
  }

  const Dialog* operator->() const { return &m_copy; }
  Dialog& Result() { return *m_host; }

private:
  Dialog* m_host;
  Dialog m_copy{};
};

// ---- Texts

std::wstring WideFromUtf8(const char* text, const char* name) {
  const std::string_view utf8(text == nullptr ? "" : text);
  if (utf8.empty()) {
    return {};
  }
  if (utf8.size() > INT_MAX) {
    throw Failure(QUORVEL_BAD_TEXT, std::string(name) + " is too long");
  }
  const int length = static_cast<int>(utf8.size());
  const int needed =
      ::MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, utf8.data(), length, nullptr, 0);
  if (needed == 0) {
    throw Failure(QUORVEL_BAD_TEXT, std::string(name) + " is not UTF-8");
  }
  std::wstring wide(static_cast<std::size_t>(needed), L'\0');
  ::MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, utf8.data(), length, wide.data(), needed);
  return wide;
}

std::string CodePageFromUtf8(const char* text, const char* name) {
  const std::wstring wide = WideFromUtf8(text, name);
  if (!quorvel::IsInCodePage(wide)) {
    throw Failure(QUORVEL_BAD_TEXT,
                  std::string(name) + " has characters that code page 932 lacks");
  }
  return quorvel::CodePageFromWide(wide);
}

CString HostText(const char* text, const char* name) {
  return CString(std::string_view(CodePageFromUtf8(text, name)));
}

std::string Utf8FromCodePage(std::string_view text) {
  const std::wstring wide = quorvel::WideFromCodePage(text);
  const int length = static_cast<int>(wide.size());
  const int needed =
      ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, nullptr, 0, nullptr, nullptr);
  std::string utf8(static_cast<std::size_t>(needed), '\0');
  ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, utf8.data(), needed, nullptr, nullptr);
  return utf8;
}

using TextBlock = char[];  // NOLINT(modernize-avoid-c-arrays): what unique_ptr calls a block

/// For the host, which gives it to quorvel_free.
char* NewText(const CString& text) {
  const std::string utf8 = Utf8FromCodePage(text.View());
  auto copy = std::make_unique_for_overwrite<TextBlock>(utf8.size() + 1);
  std::memcpy(copy.get(), utf8.c_str(), utf8.size() + 1);
  return copy.release();
}

/// Names that a dialog offers; null stands for none.
CStringArray HostNames(const char* const* names, std::size_t count, const char* name) {
  CStringArray array;
  if (count > 0) {
    Needed(names, name);
  }
  for (std::size_t i = 0; i < count; ++i) {
    array.Add(HostText(names[i], name));
  }
  return array;
}

// ---- What dialogs have in common

/// The arguments of an entry that may be null.
class Optional {
public:
  Optional(const char* registryKey, const quorvel_position* position) {
    if (registryKey != nullptr && *registryKey != '\0') {
      m_env.emplace(HostText(registryKey, "registry_key"));
    }
    if (position != nullptr) {
      m_position.emplace(position->x, position->y);
    }
  }
  CKivSysEnv* Env() { return m_env ? &*m_env : nullptr; }
  CPoint* Position() { return m_position ? &*m_position : nullptr; }

private:
  std::optional<CKivSysEnv> m_env;
  std::optional<CPoint> m_position;
};

using ColorEntry = BOOL (*)(CKivSysEnv*, COLORREF*, CPoint*);

quorvel_result AskForColor(quorvel_color_dialog* dialog, ColorEntry entry) {
  return Call([&] {
    Given given(dialog);
    Optional optional(given->registry_key, given->position);
    COLORREF color = given->color;
    if (entry(optional.Env(), &color, optional.Position()) == FALSE) {
      return QUORVEL_CANCELLED;
    }
    given.Result().color = color;
    return QUORVEL_CONFIRMED;
  });
}

using PointEntry = INT_PTR (*)(double*, BOOL, CPoint*);

/// The entries have y before x.
quorvel_result AskForPoint(quorvel_point_dialog* dialog, PointEntry entry, bool hasZ) {
  return Call([&]() -> quorvel_result {
    Given given(dialog);
    Optional optional(nullptr, given->position);
    std::array point{given->y, given->x, given->z};
    switch (entry(point.data(), given->allow_mouse_pick != 0 ? TRUE : FALSE, optional.Position())) {
      case QUORVEL_POINT_CONFIRMED:
        break;
      case QUORVEL_POINT_MOUSE_PICK:
        return QUORVEL_MOUSE_PICK;
      default:
        return QUORVEL_CANCELLED;
    }
    given.Result().x = point[1];
    given.Result().y = point[0];
    if (hasZ) {
      given.Result().z = point[2];
    }
    return QUORVEL_CONFIRMED;
  });
}

void FillFont(CKivFont& font, const quorvel_font& given, double dotsPerMm) {
  if (std::find(std::begin(given.face), std::end(given.face), '\0') == std::end(given.face)) {
    BadArgument("face has no end");
  }
  const std::string face = CodePageFromUtf8(given.face, "face");
  if (face.size() >= LF_FACESIZE) {
    throw Failure(QUORVEL_BAD_TEXT, "face has more than 31 bytes in code page 932");
  }
  LOGFONTA record{};
  record.lfEscapement = given.escapement;
  record.lfOrientation = given.orientation;
  record.lfWeight = given.weight;
  record.lfItalic = given.italic;
  record.lfUnderline = given.underline;
  record.lfStrikeOut = given.strike_out;
  record.lfCharSet = given.char_set;
  record.lfOutPrecision = given.out_precision;
  record.lfClipPrecision = given.clip_precision;
  record.lfQuality = given.quality;
  record.lfPitchAndFamily = given.pitch_and_family;
  face.copy(std::begin(record.lfFaceName), LF_FACESIZE - 1);
  font.SetLogFont(&record);
  font.SetV(given.height);
  font.SetH(given.width);
  // As the dialog itself takes a resolution.
  constexpr double kNoResolution = 0.000001;
  font.CalcMmToLogFont(std::fabs(dotsPerMm) < kNoResolution ? quorvel::kUsualDotsPerMm : dotsPerMm);
  record = font.GetLogFont(0);
  record.lfHeight = given.dots_height != 0 ? given.dots_height : record.lfHeight;
  record.lfWidth = given.dots_width != 0 ? given.dots_width : record.lfWidth;
  font.SetLogFont(&record);
  const COLORREF color = given.color;
  font.SetColor(&color);
  font.SetStrikeOutType(given.strike_out_type);
}

void TellFont(const CKivFont& font, quorvel_font& result) {
  const LOGFONTA record = font.GetLogFont(0);
  const std::string face = Utf8FromCodePage(std::begin(record.lfFaceName));
  std::memset(std::data(result.face), 0, std::size(result.face));
  face.copy(std::data(result.face), std::size(result.face) - 1);
  result.height = font.GetV();
  result.width = font.GetH();
  result.dots_height = record.lfHeight;
  result.dots_width = record.lfWidth;
  result.escapement = record.lfEscapement;
  result.orientation = record.lfOrientation;
  result.weight = record.lfWeight;
  result.italic = record.lfItalic;
  result.underline = record.lfUnderline;
  result.strike_out = record.lfStrikeOut;
  result.strike_out_type = font.GetStrikeOutType();
  result.char_set = record.lfCharSet;
  result.out_precision = record.lfOutPrecision;
  result.clip_precision = record.lfClipPrecision;
  result.quality = record.lfQuality;
  result.pitch_and_family = record.lfPitchAndFamily;
  result.color = font.GetColor();
}

// ---- Pages

CLayoutExPageData::LISTTYPE BlockOf(quorvel_block block) {
  if (block < QUORVEL_HEADER || block > QUORVEL_FOOTER) {
    BadArgument("block is no block of a page");
  }
  return static_cast<CLayoutExPageData::LISTTYPE>(block);
}

/// Calls `grid` with the page of one grid or `extended` with the other and its block.
template <class Page, class Grid, class Extended>
auto Visit(Page& page, quorvel_block block, Grid grid, Extended extended) {
  if (auto* const one = std::get_if<CLayoutPageData>(&page.data)) {
    if (block != 0) {
      BadArgument("a page of one grid has but block 0");
    }
    return grid(*one);
  }
  return extended(std::get<CLayoutExPageData>(page.data), BlockOf(block));
}

template <class Page>
auto* CelAt(Page& page, quorvel_block block, int row, int column) {
  auto* const cel = Visit(
      page, block, [&](auto& one) { return one.GetCelAt(one.GetIndexFromRowCol(row, column)); },
      [&](auto& extended, CLayoutExPageData::LISTTYPE type) {
        return row < extended.GetNumRow(type)
                   ? extended.GetCelAt(type, extended.GetIndexFromRowCol(row, column))
                   : nullptr;
      });
  if (cel == nullptr) {
    BadArgument("row and column name no cell");
  }
  return cel;
}

/// The page whose kind accepts what `open` is given.
template <class Open>
std::unique_ptr<quorvel_page> OpenedPage(Open open) {
  auto page = std::make_unique<quorvel_page>();
  if (open(std::get<CLayoutPageData>(page->data)) != 0) {
    return page;
  }
  if (open(page->data.emplace<CLayoutExPageData>()) != 0) {
    return page;
  }
  return nullptr;
}

double Length(double length, const char* name) {
  constexpr double kLargest = 1e12;
  if (!(length >= 0 && length <= kLargest)) {
    BadArgument(std::string(name) + " is no length");
  }
  return length;
}

/// `run` is given the host's page if it is of its kind, and what both editors take.
template <class Data, class Run>
quorvel_result EditLayout(quorvel_layout_dialog* dialog, Run run) {
  return Call([&]() -> quorvel_result {
    Given given(dialog);
    auto* const page = std::get_if<Data>(&Needed(given->page, "page").data);
    if (page == nullptr) {
      BadArgument("page is of the other kind");
    }
    CStringArray insertions = HostNames(given->insertions, given->insertion_count, "insertions");
    CDWordArray numbers;
    if (given->number_count > 0) {
      Needed(given->numbers, "numbers");
    }
    for (std::size_t i = 0; i < given->number_count; ++i) {
      numbers.Add(given->numbers[i]);
    }
    Optional optional(given->registry_key, given->position);
    return run(given, *page, insertions, numbers, optional) == FALSE ? QUORVEL_CANCELLED
                                                                     : QUORVEL_CONFIRMED;
  });
}

}  // namespace

// NOLINTBEGIN(readability-identifier-naming): names of C

extern "C" {

const char* quorvel_version(void) { return QUORVEL_VERSION; }

const char* quorvel_last_error(void) { return LastError().data(); }

void quorvel_free(char* text) { const std::unique_ptr<TextBlock> owner(text); }

quorvel_result quorvel_input_text(quorvel_text_dialog* dialog) {
  return Call([&] {
    Given given(dialog);
    const CString title = HostText(given->title, "title");
    const CString comment = HostText(given->comment, "comment");
    CString text = HostText(given->text, "text");
    Optional optional(nullptr, given->position);
    if (__InputTextDlg(title, comment, &text, optional.Position()) == FALSE) {
      return QUORVEL_CANCELLED;
    }
    given.Result().result = NewText(text);
    return QUORVEL_CONFIRMED;
  });
}

quorvel_result quorvel_input_scale(quorvel_scale_dialog* dialog) {
  return Call([&] {
    Given given(dialog);
    const CString title = HostText(given->title, "title");
    const CString comment = HostText(given->comment, "comment");
    double scale = given->scale;
    Optional optional(nullptr, given->position);
    if (__InputScaleDlg(title, comment, &scale, optional.Position()) == FALSE) {
      return QUORVEL_CANCELLED;
    }
    given.Result().scale = scale;
    return QUORVEL_CONFIRMED;
  });
}

quorvel_result quorvel_input_dpi(quorvel_dpi_dialog* dialog) {
  return Call([&] {
    Given given(dialog);
    int dpi = given->dpi;
    Optional optional(nullptr, given->position);
    if (__InputDpiDlg(&dpi, optional.Position()) == FALSE) {
      return QUORVEL_CANCELLED;
    }
    given.Result().dpi = dpi;
    return QUORVEL_CONFIRMED;
  });
}

quorvel_result quorvel_input_point_xy(quorvel_point_dialog* dialog) {
  return AskForPoint(dialog, __InputPointXYDlg, false);
}

quorvel_result quorvel_input_point_xyz(quorvel_point_dialog* dialog) {
  return AskForPoint(dialog, __InputPointXYZDlg, true);
}

quorvel_result quorvel_set_user_paper(quorvel_paper_dialog* dialog) {
  return Call([&]() -> quorvel_result {
    Given given(dialog);
    CString name;
    int width = given->width;
    int height = given->height;
    int clearAll = 0;
    if (__UserPaperSetDlg(nullptr, &name, &width, &height, &clearAll, nullptr) == 0) {
      return QUORVEL_CANCELLED;
    }
    if (clearAll != 0) {
      return QUORVEL_CLEAR_ALL;
    }
    given.Result().result = NewText(name);
    given.Result().width = width;
    given.Result().height = height;
    return QUORVEL_CONFIRMED;
  });
}

quorvel_result quorvel_check_list(quorvel_check_list_dialog* dialog) {
  return Call([&]() -> quorvel_result {
    Given given(dialog);
    const CString title = HostText(given->title, "title");
    if (given->count > 0) {
      Needed(given->items, "items");
      Needed(given->ticked, "ticked");
    }
    CArray<CString, CString&> items;
    CByteArray states;
    for (std::size_t i = 0; i < given->count; ++i) {
      CString item = HostText(given->items[i], "items");
      items.Add(item);
      states.Add(given->ticked[i]);
    }
    const INT_PTR result = __CheckListDlg(&title, &items, &states);
    if (result != IDOK) {
      return result == IDCANCEL ? QUORVEL_CANCELLED
                                : Fail(QUORVEL_FAILED, "the dialog could not be shown");
    }
    for (std::size_t i = 0; i < given->count; ++i) {
      given->ticked[i] = states.GetAt(static_cast<INT_PTR>(i));
    }
    return QUORVEL_CONFIRMED;
  });
}

quorvel_result quorvel_select_color(quorvel_color_dialog* dialog) {
  return AskForColor(dialog, __SelColorDlg);
}

quorvel_result quorvel_select_color_ex(quorvel_color_dialog* dialog) {
  return AskForColor(dialog, __SelColorDlgEx);
}

quorvel_result quorvel_edit_color(quorvel_color_dialog* dialog) {
  return AskForColor(dialog, __EditColorDlg);
}

quorvel_result quorvel_select_rgb(quorvel_color_dialog* dialog) {
  return AskForColor(dialog, [](CKivSysEnv*, COLORREF* color, CPoint*) {
    return __SelRGBDlg(color);
  });
}

quorvel_result quorvel_select_font(quorvel_font_dialog* dialog) {
  return Call([&] {
    Given given(dialog);
    Optional optional(given->registry_key, nullptr);
    const CString title = HostText(given->title, "title");
    CKivFont font;
    FillFont(font, given->font, given->dots_per_mm);
    if (__SelFontDlg(optional.Env(), &font, given->dots_per_mm,
                     given->title != nullptr ? title.GetString() : nullptr,
                     given->show_strike_type != 0 ? TRUE : FALSE,
                     given->fixed_color != 0 ? TRUE : FALSE,
                     QUORVEL_FONT_ALL & ~given->locked) == FALSE) {
      return QUORVEL_CANCELLED;
    }
    TellFont(font, given.Result().font);
    return QUORVEL_CONFIRMED;
  });
}

quorvel_result quorvel_select_font_ex(quorvel_font_dialog* dialog) {
  return Call([&] {
    Given given(dialog);
    Optional optional(given->registry_key, nullptr);
    const CString title = HostText(given->title, "title");
    CKivFontEx font;
    FillFont(font, given->font, given->dots_per_mm);
    const COLORREF backColor = given->font.back_color;
    font.SetBackColor(&backColor);
    font.SetVPos(given->font.vertical_place);
    font.SetHPos(given->font.horizontal_place);
    if (__SelFontExDlg(optional.Env(), &font, given->dots_per_mm,
                       given->title != nullptr ? title.GetString() : nullptr,
                       given->fixed_color != 0 ? TRUE : FALSE,
                       QUORVEL_FONT_ALL & ~given->locked) == FALSE) {
      return QUORVEL_CANCELLED;
    }
    TellFont(font, given.Result().font);
    given.Result().font.back_color = font.GetBackColor();
    given.Result().font.vertical_place = font.GetVPos();
    given.Result().font.horizontal_place = font.GetHPos();
    return QUORVEL_CONFIRMED;
  });
}

quorvel_result quorvel_page_create(quorvel_page_kind kind, quorvel_page** page) {
  return Call([&] {
    quorvel_page*& result = Needed(page, "page");
    auto created = std::make_unique<quorvel_page>();
    if (kind == QUORVEL_PAGE_EXTENDED) {
      created->data.emplace<CLayoutExPageData>();
    } else if (kind != QUORVEL_PAGE_GRID) {
      BadArgument("kind is no kind of page");
    }
    result = created.release();
    return QUORVEL_OK;
  });
}

void quorvel_page_free(quorvel_page* page) { const std::unique_ptr<quorvel_page> owner(page); }

quorvel_page_kind quorvel_page_kind_of(const quorvel_page* page) {
  return page == nullptr                                        ? 0
         : std::holds_alternative<CLayoutPageData>(page->data) ? QUORVEL_PAGE_GRID
                                                                : QUORVEL_PAGE_EXTENDED;
}

quorvel_result quorvel_page_open(const char* path, quorvel_page** page) {
  return Call([&]() -> quorvel_result {
    quorvel_page*& result = Needed(page, "page");
    const std::wstring wide = WideFromUtf8(&Needed(path, "path"), "path");
    if (::GetFileAttributesW(wide.c_str()) == INVALID_FILE_ATTRIBUTES) {
      return Fail(QUORVEL_FILE_ERROR, "there is no such file");
    }
    auto opened = OpenedPage([&](auto& data) { return data.OpenFileW(wide.c_str()); });
    if (opened == nullptr) {
      return Fail(QUORVEL_BAD_PAGE, "the file is no layout file");
    }
    result = opened.release();
    return QUORVEL_OK;
  });
}

quorvel_result quorvel_page_save(const quorvel_page* page, const char* path) {
  return Call([&]() -> quorvel_result {
    const quorvel_page& given = Needed(page, "page");
    const std::wstring wide = WideFromUtf8(&Needed(path, "path"), "path");
    const int saved = std::visit([&](const auto& data) { return data.SaveFileW(wide.c_str()); },
                                 given.data);
    return saved != 0 ? QUORVEL_OK : Fail(QUORVEL_FILE_ERROR, "the file cannot be written");
  });
}

quorvel_result quorvel_page_read(const void* bytes, size_t count, quorvel_page** page) {
  return Call([&]() -> quorvel_result {
    quorvel_page*& result = Needed(page, "page");
    if (bytes == nullptr) {
      BadArgument("bytes is null");
    }
    auto opened = OpenedPage([&](auto& data) { return data.OpenBytes(bytes, count); });
    if (opened == nullptr) {
      return Fail(QUORVEL_BAD_PAGE, "the bytes are no layout file");
    }
    result = opened.release();
    return QUORVEL_OK;
  });
}

quorvel_result quorvel_page_write(const quorvel_page* page, void* bytes, size_t capacity,
                                  size_t* needed) {
  return Call([&]() -> quorvel_result {
    const quorvel_page& given = Needed(page, "page");
    if (bytes == nullptr && capacity > 0) {
      BadArgument("bytes is null");
    }
    size_t& count = Needed(needed, "needed");
    count = std::visit([&](const auto& data) { return data.SaveBytes(bytes, capacity); },
                       given.data);
    return bytes == nullptr || count <= capacity
               ? QUORVEL_OK
               : Fail(QUORVEL_BAD_ARGUMENT, "capacity is too small");
  });
}

quorvel_result quorvel_page_divide(quorvel_page* page, quorvel_block block, int32_t rows,
                                   int32_t columns, double dots_per_mm) {
  return Call([&] {
    constexpr int32_t kMost = 255;
    quorvel_page& given = Needed(page, "page");
    if (rows < 1 || rows > kMost || columns < 1 || columns > kMost) {
      BadArgument("rows and columns are 1 to 255");
    }
    const auto rowCount = static_cast<BYTE>(rows);
    const auto columnCount = static_cast<BYTE>(columns);
    Visit(
        given, block, [&](auto& one) { one.DividePage(rowCount, columnCount, dots_per_mm); },
        [&](auto& extended, CLayoutExPageData::LISTTYPE type) {
          extended.DividePage(type, rowCount, columnCount, dots_per_mm);
        });
    return QUORVEL_OK;
  });
}

quorvel_result quorvel_page_counts(const quorvel_page* page, quorvel_block block, int32_t* rows,
                                   int32_t* columns) {
  return Call([&] {
    const quorvel_page& given = Needed(page, "page");
    const int count = Visit(
        given, block, [](auto& one) -> int { return one.GetNumRow(); },
        [](auto& extended, CLayoutExPageData::LISTTYPE type) -> int {
          return extended.GetNumRow(type);
        });
    int32_t& rowCount = Needed(rows, "rows");
    Needed(columns, "columns") =
        std::visit([](const auto& data) -> int { return data.GetNumCol(); }, given.data);
    rowCount = count;
    return QUORVEL_OK;
  });
}

quorvel_result quorvel_page_set_size(quorvel_page* page, quorvel_block block, double width,
                                     double height, int32_t equal) {
  return Call([&] {
    quorvel_page& given = Needed(page, "page");
    Length(width, "width");
    Length(height, "height");
    Visit(
        given, block,
        [&](auto& one) {
          one.SetAllLengthCol(width, equal);
          one.SetAllLengthRow(height, equal);
        },
        [&](auto& extended, CLayoutExPageData::LISTTYPE type) {
          extended.SetAllLengthCol(static_cast<float>(width), equal);
          extended.SetAllLengthRow(type, static_cast<float>(height), equal);
        });
    return QUORVEL_OK;
  });
}

quorvel_result quorvel_page_size(const quorvel_page* page, quorvel_block block, double* width,
                                 double* height) {
  return Call([&] {
    const quorvel_page& given = Needed(page, "page");
    const double total = Visit(
        given, block, [](auto& one) -> double { return one.GetAllLengthRow(); },
        [](auto& extended, CLayoutExPageData::LISTTYPE type) -> double {
          return extended.GetAllLengthRow(type);
        });
    double& heightOfAll = Needed(height, "height");
    Needed(width, "width") =
        std::visit([](const auto& data) -> double { return data.GetAllLengthCol(); }, given.data);
    heightOfAll = total;
    return QUORVEL_OK;
  });
}

quorvel_result quorvel_page_set_text(quorvel_page* page, quorvel_block block, int32_t row,
                                     int32_t column, const char* text) {
  return Call([&] {
    const CString hostText = HostText(text, "text");
    CelAt(Needed(page, "page"), block, row, column)->SetText(hostText);
    return QUORVEL_OK;
  });
}

quorvel_result quorvel_page_text(const quorvel_page* page, quorvel_block block, int32_t row,
                                 int32_t column, char** text) {
  return Call([&] {
    char*& result = Needed(text, "text");
    result = NewText(CelAt(Needed(page, "page"), block, row, column)->GetText());
    return QUORVEL_OK;
  });
}

quorvel_result quorvel_edit_layout(quorvel_layout_dialog* dialog) {
  return EditLayout<CLayoutPageData>(
      dialog, [](const Given<quorvel_layout_dialog>& given, CLayoutPageData& page,
                 CStringArray& insertions, CDWordArray& numbers, Optional& optional) {
        return __LayoutEditDlg(optional.Env(), &page, &insertions, &numbers, given->dots_per_mm,
                               given->line_mode != 0 ? 1 : 0, optional.Position());
      });
}

quorvel_result quorvel_edit_layout_ex(quorvel_layout_dialog* dialog) {
  return EditLayout<CLayoutExPageData>(
      dialog, [](const Given<quorvel_layout_dialog>& given, CLayoutExPageData& page,
                 CStringArray& insertions, CDWordArray& numbers, Optional& optional) {
        CStringArray fields = HostNames(given->fields, given->field_count, "fields");
        return __LayoutExEditDlg(optional.Env(), &page, fields.GetSize() > 0 ? &fields : nullptr,
                                 &insertions, &numbers, given->dots_per_mm, optional.Position());
      });
}

}  // extern "C"

// NOLINTEND(readability-identifier-naming)
