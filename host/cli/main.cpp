// quorvel.exe: opens one dialog of the library and prints the answer, as one line of JSON or
// plainly.
//
//   quorvel input-text --title 題名 --text 初期値
//   {"result":"confirmed","text":"..."}
//
// Standard input, output and error are UTF-8 on every system.
#include "cli/commands.h"
#include "cli/outcome.h"
#include "cli/page_answer.h"
#include "framework/code_page.h"

#include <quorvel/quorvel_c.h>

#include <windows.h>

#include <fcntl.h>
#include <io.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <iterator>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace quorvel::cli {

namespace {

/// An unpaired surrogate becomes U+FFFD.
std::string Utf8FromWide(std::wstring_view wide) {
  const int length = static_cast<int>(wide.size());
  const int needed =
      WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, nullptr, 0, nullptr, nullptr);
  std::string utf8(static_cast<std::size_t>(needed), '\0');
  WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, utf8.data(), needed, nullptr, nullptr);
  return utf8;
}

std::wstring WideFromUtf8(std::string_view utf8) {
  const int length = static_cast<int>(utf8.size());
  const int needed = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(needed), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, wide.data(), needed);
  return wide;
}

// ---- Files and standard input

struct FileCloser {
  // The pointer that it belongs to is the owner. NOLINTNEXTLINE(cppcoreguidelines-owning-memory)
  void operator()(std::FILE* file) const { std::fclose(file); }
};

/// Much more than any list to tick has; keeps a pipe without end from filling the memory.
constexpr std::size_t kMostInput = 16 << 20;  // bytes

/// `name` is what errors call the stream. Throws InputError.
std::string ReadAll(std::FILE* stream, const std::string& name) {
  std::string all;
  std::array<char, 4096> part{};
  while (const std::size_t count = std::fread(part.data(), 1, part.size(), stream)) {
    all.append(part.data(), count);
    if (all.size() > kMostInput) {
      throw InputError(name + " is too long");
    }
  }
  if (std::ferror(stream) != 0) {
    throw InputError(name + " cannot be read");
  }
  return all;
}

std::string ReadStandardInput() {
  return ReadAll(stdin, "standard input");
}

std::string ReadFile(const std::string& path) {
  const std::unique_ptr<std::FILE, FileCloser> file(_wfopen(WideFromUtf8(path).c_str(), L"rb"));
  if (!file) {
    throw InputError(JsonQuoted(path) + " cannot be read");
  }
  return ReadAll(file.get(), JsonQuoted(path));
}

// ---- What all dialogs have in common

/// A structure of the library in the shape of its header.
template <class Dialog>
Dialog New() {
  Dialog dialog{};
  dialog.size = sizeof dialog;
  return dialog;
}

/// A text of the library.
class OwnedText {
public:
  explicit OwnedText(char* text) : m_text(text) {}
  std::string Text() const { return m_text.get(); }

private:
  struct Deleter {
    void operator()(char* text) const { quorvel_free(text); }
  };
  std::unique_ptr<char, Deleter> m_text;
};

/// A text that dialogs cannot hold, in the library's words.
class RefusedText : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

/// Throws what the library calls a failure.
quorvel_result Checked(quorvel_result result) {
  if (result == QUORVEL_BAD_TEXT) {
    throw RefusedText(quorvel_last_error());
  }
  if (result < 0) {
    throw std::runtime_error(quorvel_last_error());
  }
  return result;
}

/// The outcome of a dialog that the user may only confirm or cancel; `fill` adds the values to
/// a confirmed one's answer.
template <class Fill>
Outcome OutcomeOf(quorvel_result result, Fill fill) {
  switch (Checked(result)) {
    case QUORVEL_CONFIRMED:
      break;
    case QUORVEL_MOUSE_PICK:
      return MousePick();
    case QUORVEL_CLEAR_ALL:
      return ClearAll();
    default:
      return Cancelled();
  }
  Outcome outcome = Confirmed();
  fill(outcome.answer);
  return outcome;
}

/// The point that a dialog takes as its position, or none.
class PositionArgument {
public:
  explicit PositionArgument(const std::optional<ScreenPosition>& position) {
    if (position) {
      m_point.emplace(quorvel_position{position->x, position->y});
    }
  }

  const quorvel_position* Pointer() const { return m_point ? &*m_point : nullptr; }

private:
  std::optional<quorvel_position> m_point;
};

/// The texts as the library takes a list of them; `texts` must outlive it.
std::vector<const char*> Pointers(const std::vector<std::string>& texts) {
  std::vector<const char*> pointers;
  pointers.reserve(texts.size());
  for (const std::string& text : texts) {
    pointers.push_back(text.c_str());
  }
  return pointers;
}

// ---- Values

Outcome Run(const InputTextRequest& request) {
  const PositionArgument position(request.position);
  auto dialog = New<quorvel_text_dialog>();
  dialog.title = request.title.c_str();
  dialog.comment = request.comment.c_str();
  dialog.text = request.text.c_str();
  dialog.position = position.Pointer();
  return OutcomeOf(quorvel_input_text(&dialog), [&](Answer& answer) {
    answer.AddText("text", OwnedText(dialog.result).Text());
  });
}

Outcome Run(const InputScaleRequest& request) {
  const PositionArgument position(request.position);
  auto dialog = New<quorvel_scale_dialog>();
  dialog.title = request.title.c_str();
  dialog.comment = request.comment.c_str();
  dialog.scale = request.scale;
  dialog.position = position.Pointer();
  return OutcomeOf(quorvel_input_scale(&dialog),
                   [&](Answer& answer) { answer.AddNumber("scale", dialog.scale); });
}

Outcome Run(const InputDpiRequest& request) {
  const PositionArgument position(request.position);
  auto dialog = New<quorvel_dpi_dialog>();
  dialog.dpi = request.dpi;
  dialog.position = position.Pointer();
  return OutcomeOf(quorvel_input_dpi(&dialog),
                   [&](Answer& answer) { answer.AddInteger("dpi", dialog.dpi); });
}

/// A point is given and told in the order of the entries' arrays, y before x.
Outcome Run(const InputPointRequest& request) {
  const PositionArgument position(request.position);
  const bool hasZ = request.point.size() > 2;
  auto dialog = New<quorvel_point_dialog>();
  dialog.y = request.point.at(0);
  dialog.x = request.point.at(1);
  dialog.z = hasZ ? request.point.at(2) : 0.0;
  dialog.allow_mouse_pick = request.allowsMousePick ? 1 : 0;
  dialog.position = position.Pointer();
  const quorvel_result result =
      hasZ ? quorvel_input_point_xyz(&dialog) : quorvel_input_point_xy(&dialog);
  return OutcomeOf(result, [&](Answer& answer) {
    std::vector<double> point{dialog.y, dialog.x};
    if (hasZ) {
      point.push_back(dialog.z);
    }
    answer.AddNumbers("point", point);
  });
}

Outcome Run(const UserPaperRequest& request) {
  auto dialog = New<quorvel_paper_dialog>();
  dialog.width = request.width;
  dialog.height = request.height;
  return OutcomeOf(quorvel_set_user_paper(&dialog), [&](Answer& answer) {
    answer.AddText("name", OwnedText(dialog.result).Text())
        .AddInteger("width", dialog.width)
        .AddInteger("height", dialog.height);
  });
}

Outcome Run(const CheckListRequest& request) {
  std::vector<const char*> names;
  std::vector<std::uint8_t> ticked;
  for (const CheckListItem& item : request.items) {
    names.push_back(item.name.c_str());
    ticked.push_back(item.isTicked ? 1 : 0);
  }
  auto dialog = New<quorvel_check_list_dialog>();
  dialog.title = request.title.c_str();
  dialog.items = names.data();
  dialog.ticked = ticked.data();
  dialog.count = names.size();
  return OutcomeOf(quorvel_check_list(&dialog), [&](Answer& answer) {
    std::vector<CheckListItem> items = request.items;
    for (std::size_t i = 0; i < items.size(); ++i) {
      items.at(i).isTicked = ticked.at(i) != 0;
    }
    answer.AddItems("items", items);
  });
}

// ---- Colours

std::uint32_t HostColor(const Colour& colour) {
  return RGB(colour.red, colour.green, colour.blue);
}

std::string TextOfColor(std::uint32_t color) {
  return ColourText(
      {.red = GetRValue(color), .green = GetGValue(color), .blue = GetBValue(color)});
}

using ColorFunction = quorvel_result (*)(quorvel_color_dialog*);

Outcome RunColor(const ColorArguments& arguments, ColorFunction ask) {
  const PositionArgument position(arguments.position);
  auto dialog = New<quorvel_color_dialog>();
  dialog.registry_key = arguments.key.c_str();
  dialog.color = HostColor(arguments.color);
  dialog.position = position.Pointer();
  return OutcomeOf(ask(&dialog),
                   [&](Answer& answer) { answer.AddText("color", TextOfColor(dialog.color)); });
}

Outcome Run(const SelectColorRequest& request) {
  return RunColor(request.arguments, quorvel_select_color);
}

Outcome Run(const SelectColorExRequest& request) {
  return RunColor(request.arguments, quorvel_select_color_ex);
}

Outcome Run(const EditColorRequest& request) {
  return RunColor(request.arguments, quorvel_edit_color);
}

Outcome Run(const SelectRgbRequest& request) {
  return RunColor({.color = request.color, .key = {}, .position = {}}, quorvel_select_rgb);
}

// ---- Fonts

/// Throws RefusedText for a face name that the structure cannot hold.
quorvel_font HostFont(const FontFields& fields) {
  quorvel_font font{};
  if (fields.face.size() >= std::size(font.face)) {
    throw RefusedText("face has more than 31 bytes in code page 932");
  }
  fields.face.copy(std::data(font.face), std::size(font.face) - 1);
  font.height = fields.height;
  font.width = fields.width;
  font.dots_height = fields.dotsHeight.value_or(0);
  font.dots_width = fields.dotsWidth.value_or(0);
  font.escapement = fields.escapement;
  font.orientation = fields.orientation;
  font.weight = fields.weight;
  font.italic = fields.isItalic ? 1 : 0;
  font.underline = fields.isUnderlined ? 1 : 0;
  font.strike_out = fields.isStruckOut ? 1 : 0;
  font.strike_out_type = fields.strikeOutType;
  font.char_set = fields.charSet;
  font.out_precision = fields.outPrecision;
  font.clip_precision = fields.clipPrecision;
  font.quality = fields.quality;
  font.pitch_and_family = fields.pitchAndFamily;
  font.color = HostColor(fields.color);
  return font;
}

/// `arguments` must outlive it.
quorvel_font_dialog FontDialog(const FontDialogArguments& arguments, const FontFields& fields) {
  auto dialog = New<quorvel_font_dialog>();
  dialog.registry_key = arguments.key.c_str();
  dialog.title = arguments.title ? arguments.title->c_str() : nullptr;
  dialog.dots_per_mm = arguments.dotsPerMm;
  dialog.fixed_color = arguments.hasFixedColor ? 1 : 0;
  dialog.locked = ~arguments.enableMask;
  dialog.font = HostFont(fields);
  return dialog;
}

void AddFont(Answer& answer, const quorvel_font& font) {
  answer.AddText("face", std::data(font.face))
      .AddNumber("height", font.height)
      .AddNumber("width", font.width)
      .AddInteger("dotsHeight", font.dots_height)
      .AddInteger("dotsWidth", font.dots_width)
      .AddInteger("escapement", font.escapement)
      .AddInteger("orientation", font.orientation)
      .AddInteger("weight", font.weight)
      .AddFlag("italic", font.italic != 0)
      .AddFlag("underline", font.underline != 0)
      .AddFlag("strikeOut", font.strike_out != 0)
      .AddInteger("strikeOutType", font.strike_out_type)
      .AddInteger("charSet", font.char_set)
      .AddInteger("outPrecision", font.out_precision)
      .AddInteger("clipPrecision", font.clip_precision)
      .AddInteger("quality", font.quality)
      .AddInteger("pitchAndFamily", font.pitch_and_family)
      .AddText("color", TextOfColor(font.color));
}

Outcome Run(const SelectFontRequest& request) {
  quorvel_font_dialog dialog = FontDialog(request.dialog, request.font);
  dialog.show_strike_type = request.showsStrikeOutType ? 1 : 0;
  return OutcomeOf(quorvel_select_font(&dialog),
                   [&](Answer& answer) { AddFont(answer, dialog.font); });
}

Outcome Run(const SelectFontExRequest& request) {
  quorvel_font_dialog dialog = FontDialog(request.dialog, request.font);
  dialog.font.back_color = HostColor(request.backColor);
  dialog.font.vertical_place = request.verticalPlace;
  dialog.font.horizontal_place = request.horizontalPlace;
  return OutcomeOf(quorvel_select_font_ex(&dialog), [&](Answer& answer) {
    AddFont(answer, dialog.font);
    answer.AddText("backColor", TextOfColor(dialog.font.back_color))
        .AddInteger("verticalPlace", dialog.font.vertical_place)
        .AddInteger("horizontalPlace", dialog.font.horizontal_place);
  });
}

// ---- Pages

struct PageDeleter {
  void operator()(quorvel_page* page) const { quorvel_page_free(page); }
};
using OwnedPage = std::unique_ptr<quorvel_page, PageDeleter>;

/// The page that is to be edited: made by `divide` where it is to be new, read from its file
/// otherwise. Throws std::runtime_error when it cannot be had.
template <class Request, class Divide>
OwnedPage PreparePage(const Request& request, quorvel_page_kind kind, Divide divide) {
  const std::string& file = request.arguments.file;
  quorvel_page* page = nullptr;
  const quorvel_result opened = quorvel_page_open(file.c_str(), &page);
  OwnedPage owner(page);
  if (request.newPage) {
    if (opened != QUORVEL_FILE_ERROR) {
      throw std::runtime_error(JsonQuoted(file) + " is there already, --new replaces no file");
    }
    Checked(quorvel_page_create(kind, &page));
    owner.reset(page);
    divide(page, *request.newPage);
  } else if (opened == QUORVEL_FILE_ERROR) {
    throw std::runtime_error(JsonQuoted(file) + " is not there, --new begins a new page");
  } else if (opened != QUORVEL_OK || quorvel_page_kind_of(page) != kind) {
    throw std::runtime_error(JsonQuoted(file) + " cannot be read as a layout file " +
                             (kind == QUORVEL_PAGE_GRID ? "*.mtpld" : "*.mtpld2"));
  }
  return owner;
}

/// What both layout dialogs take besides the page.
class LayoutDialog {
public:
  /// `given` must outlive it.
  LayoutDialog(const LayoutArguments& given, quorvel_page* page)
      : m_insertions(Pointers(given.insertions)),
        m_numbers(given.numbers.begin(), given.numbers.end()),
        m_position(given.position) {
    m_dialog.registry_key = given.key.c_str();
    m_dialog.position = m_position.Pointer();
    m_dialog.page = page;
    m_dialog.dots_per_mm = given.dotsPerMm;
    m_dialog.insertions = m_insertions.data();
    m_dialog.insertion_count = m_insertions.size();
    m_dialog.numbers = m_numbers.data();
    m_dialog.number_count = m_numbers.size();
  }

  quorvel_layout_dialog* operator->() { return &m_dialog; }
  quorvel_layout_dialog* Pointer() { return &m_dialog; }

private:
  std::vector<const char*> m_insertions;
  std::vector<std::uint32_t> m_numbers;
  PositionArgument m_position;
  quorvel_layout_dialog m_dialog = New<quorvel_layout_dialog>();
};

void WritePage(const quorvel_page* page, const std::string& file) {
  if (quorvel_page_save(page, file.c_str()) != QUORVEL_OK) {
    throw std::runtime_error(JsonQuoted(file) + " cannot be written");
  }
}

/// A block as the answer tells it.
struct BlockSize {
  std::int32_t rows = 0;
  std::int32_t columns = 0;
  double width = 0.0;
  double height = 0.0;
};

BlockSize SizeOf(const quorvel_page* page, quorvel_block block) {
  BlockSize size;
  Checked(quorvel_page_counts(page, block, &size.rows, &size.columns));
  Checked(quorvel_page_size(page, block, &size.width, &size.height));
  // Lengths of an extended page are floats.
  size.width = Shortest(static_cast<float>(size.width));
  size.height = Shortest(static_cast<float>(size.height));
  return size;
}

/// Brings a block to the counts and lengths that are given and that it does not have already.
void Shape(quorvel_page* page, quorvel_block block, std::optional<int> rows,
           std::optional<int> columns, std::optional<double> width, std::optional<double> height,
           double dotsPerMm) {
  BlockSize size = SizeOf(page, block);
  if (rows.value_or(size.rows) != size.rows || columns.value_or(size.columns) != size.columns) {
    Checked(quorvel_page_divide(page, block, rows.value_or(size.rows),
                                columns.value_or(size.columns), dotsPerMm));
    size = SizeOf(page, block);
  }
  if (width.value_or(size.width) != size.width || height.value_or(size.height) != size.height) {
    Checked(quorvel_page_set_size(page, block, width.value_or(size.width),
                                  height.value_or(size.height), 0));
  }
}

Outcome Run(const EditLayoutRequest& request) {
  const LayoutArguments& given = request.arguments;
  const OwnedPage page =
      PreparePage(request, QUORVEL_PAGE_GRID, [&](quorvel_page* made, const PageCounts& counts) {
        Checked(quorvel_page_divide(made, 0, counts.rows, counts.columns, given.dotsPerMm));
      });
  Shape(page.get(), 0, request.rows, request.columns, request.width, request.height,
        given.dotsPerMm);
  LayoutDialog dialog(given, page.get());
  dialog->line_mode = request.isLineMode ? 1 : 0;
  return OutcomeOf(quorvel_edit_layout(dialog.Pointer()), [&](Answer& answer) {
    WritePage(page.get(), given.outFile);
    const BlockSize size = SizeOf(page.get(), 0);
    answer.AddInteger("rows", size.rows)
        .AddInteger("columns", size.columns)
        .AddNumber("width", size.width)
        .AddNumber("height", size.height)
        .AddText("file", given.outFile);
  });
}

/// In the order of the counts that --new takes.
constexpr std::array<quorvel_block, kBlockCount> kBlocks{QUORVEL_HEADER, QUORVEL_LIST,
                                                         QUORVEL_FOOTER};

Outcome Run(const EditLayoutExRequest& request) {
  const LayoutArguments& given = request.arguments;
  const OwnedPage page = PreparePage(
      request, QUORVEL_PAGE_EXTENDED, [&](quorvel_page* made, const BlockCounts& counts) {
        for (std::size_t i = 0; i < kBlockCount; ++i) {
          Checked(quorvel_page_divide(made, kBlocks.at(i), counts.rows.at(i), counts.columns,
                                      given.dotsPerMm));
        }
      });
  for (std::size_t i = 0; i < kBlockCount; ++i) {
    const auto rows = request.rows.empty() ? std::nullopt : std::optional(request.rows.at(i));
    const auto height =
        request.heights.empty() ? std::nullopt : std::optional(request.heights.at(i));
    Shape(page.get(), kBlocks.at(i), rows, request.columns, request.width, height, given.dotsPerMm);
  }
  LayoutDialog dialog(given, page.get());
  const std::vector<const char*> fields = Pointers(request.fields);
  dialog->fields = fields.data();
  dialog->field_count = fields.size();
  return OutcomeOf(quorvel_edit_layout_ex(dialog.Pointer()), [&](Answer& answer) {
    WritePage(page.get(), given.outFile);
    std::vector<double> rows;
    std::vector<double> heights;
    BlockSize size;
    for (const quorvel_block block : kBlocks) {
      size = SizeOf(page.get(), block);
      rows.push_back(size.rows);
      heights.push_back(size.height);
    }
    answer.AddNumbers("rows", rows)
        .AddInteger("columns", size.columns)
        .AddNumber("width", size.width)
        .AddNumbers("height", heights)
        .AddText("file", given.outFile);
  });
}

Outcome Run(const ShowLayoutRequest& request) {
  const auto utf8 = [](std::string_view text) { return Utf8FromWide(WideFromCodePage(text)); };
  std::optional<Answer> answer = DescribePage(ReadFile(request.file), utf8);
  if (!answer) {
    throw std::runtime_error(JsonQuoted(request.file) + " is no layout file");
  }
  return {.status = ExitStatus::kSuccess, .answer = *std::move(answer)};
}

/// False when the stream does not take the text.
bool Print(std::FILE* stream, std::string_view text) {
  return std::fwrite(text.data(), 1, text.size(), stream) == text.size() &&
         std::fflush(stream) == 0;
}

ExitStatus PrintResult(std::string_view text, ExitStatus status) {
  if (Print(stdout, text)) {
    return status;
  }
  Print(stderr, "quorvel: standard output cannot be written\n");
  return ExitStatus::kFailed;
}

ExitStatus Show(const Message& message) {
  if (message.status == ExitStatus::kSuccess) {
    return PrintResult(message.text, message.status);
  }
  Print(stderr, message.text);
  return message.status;
}

std::string Printed(const Answer& answer, const AnswerForm& form) {
  return form.isPlain ? answer.ToPlain(form.separator) : answer.ToJson() + "\n";
}

ExitStatus Perform(const Task& task) {
  try {
    const Outcome outcome =
        std::visit([](const auto& alternative) { return Run(alternative); }, task.request);
    return PrintResult(Printed(outcome.answer, task.form), outcome.status);
  } catch (const RefusedText& refused) {
    return Show(RefusedTextMessage(refused.what(), task.options));
  }
}

/// The whole run, given the arguments after the program's name.
ExitStatus RunCommandLine(const std::vector<std::string>& arguments) {
  try {
    const CommandLine line = ReadCommandLine(arguments, {.standardInput = ReadStandardInput,
                                                         .file = ReadFile,
                                                         .libraryVersion = quorvel_version()});
    const Message* message = std::get_if<Message>(&line);
    return message != nullptr ? Show(*message) : Perform(std::get<Task>(line));
  } catch (const std::exception& error) {
    Print(stderr, std::string("quorvel: ") + error.what() + "\n");
    return ExitStatus::kFailed;
  }
}

}  // namespace

}  // namespace quorvel::cli

int wmain(int argumentCount, wchar_t** arguments) {
  // Binary, so that a line ends in one byte and UTF-8 passes as it is.
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
  std::vector<std::string> utf8Arguments;
  for (int i = 1; i < argumentCount; ++i) {
    utf8Arguments.push_back(quorvel::cli::Utf8FromWide(arguments[i]));
  }
  return static_cast<int>(quorvel::cli::RunCommandLine(utf8Arguments));
}
