// quorvel.exe: opens one dialog of the library and prints the answer as one line of JSON.
//
//   quorvel input-text --title 題名 --text 初期値
//   {"result":"confirmed","text":"..."}
//
// Standard output and standard error are UTF-8 on every system.
#include "cli/commands.h"
#include "cli/outcome.h"
#include "quorvel/quorvel.h"

#include <fcntl.h>
#include <io.h>

#include <array>
#include <cstddef>
#include <cstdio>
#include <exception>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace quorvel::cli {

namespace {

constexpr UINT kHostCodePage = 932;

/// An unpaired surrogate becomes U+FFFD.
std::string Utf8FromWide(std::wstring_view wide) {
  const int length = static_cast<int>(wide.size());
  const int needed =
      WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, nullptr, 0, nullptr, nullptr);
  std::string utf8(static_cast<std::size_t>(needed), '\0');
  WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, utf8.data(), needed, nullptr, nullptr);
  return utf8;
}

std::wstring WideFromBytes(UINT codePage, std::string_view bytes) {
  const int length = static_cast<int>(bytes.size());
  const int needed = MultiByteToWideChar(codePage, 0, bytes.data(), length, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(needed), L'\0');
  MultiByteToWideChar(codePage, 0, bytes.data(), length, wide.data(), needed);
  return wide;
}

/// The text as the library takes it. Throws UsageError for a character that code page 932 lacks.
CString HostText(std::string_view utf8) {
  const std::wstring wide = WideFromBytes(CP_UTF8, utf8);
  const int length = static_cast<int>(wide.size());
  BOOL hasReplacement = FALSE;
  const int needed = WideCharToMultiByte(kHostCodePage, WC_NO_BEST_FIT_CHARS, wide.data(), length,
                                         nullptr, 0, nullptr, &hasReplacement);
  if (hasReplacement != FALSE) {
    throw UsageError("not all characters are in code page 932: " + JsonQuoted(utf8));
  }
  std::string text(static_cast<std::size_t>(needed), '\0');
  WideCharToMultiByte(kHostCodePage, WC_NO_BEST_FIT_CHARS, wide.data(), length, text.data(), needed,
                      nullptr, nullptr);
  return CString(std::string_view(text));
}

std::string Utf8FromHostText(const CString& text) {
  return Utf8FromWide(WideFromBytes(kHostCodePage, text.View()));
}

/// The point that an entry takes as its position, or none.
class PositionArgument {
public:
  explicit PositionArgument(const std::optional<ScreenPosition>& position) {
    if (position) {
      m_point.emplace(position->x, position->y);
    }
  }

  CPoint* Pointer() { return m_point ? &*m_point : nullptr; }

private:
  std::optional<CPoint> m_point;
};

Outcome Run(const InputTextRequest& request) {
  const CString title = HostText(request.title);
  const CString comment = HostText(request.comment);
  CString text = HostText(request.text);
  PositionArgument position(request.position);
  if (__InputTextDlg(title, comment, &text, position.Pointer()) == FALSE) {
    return Cancelled();
  }
  Outcome outcome = Confirmed();
  outcome.answer.AddText("text", Utf8FromHostText(text));
  return outcome;
}

Outcome Run(const InputScaleRequest& request) {
  const CString title = HostText(request.title);
  const CString comment = HostText(request.comment);
  double scale = request.scale;
  PositionArgument position(request.position);
  if (__InputScaleDlg(title, comment, &scale, position.Pointer()) == FALSE) {
    return Cancelled();
  }
  Outcome outcome = Confirmed();
  outcome.answer.AddNumber("scale", scale);
  return outcome;
}

Outcome Run(const InputDpiRequest& request) {
  int dpi = request.dpi;
  PositionArgument position(request.position);
  if (__InputDpiDlg(&dpi, position.Pointer()) == FALSE) {
    return Cancelled();
  }
  Outcome outcome = Confirmed();
  outcome.answer.AddInteger("dpi", dpi);
  return outcome;
}

Outcome Run(const InputPointRequest& request) {
  constexpr INT_PTR kPointConfirmed = 0;
  constexpr INT_PTR kPointMousePick = 2;
  std::vector<double> point = request.point;
  const BOOL allowMousePick = request.allowsMousePick ? TRUE : FALSE;
  PositionArgument position(request.position);
  const auto entry = point.size() == 2 ? __InputPointXYDlg : __InputPointXYZDlg;
  const INT_PTR result = entry(point.data(), allowMousePick, position.Pointer());
  if (result == kPointMousePick) {
    return MousePick();
  }
  if (result != kPointConfirmed) {
    return Cancelled();
  }
  Outcome outcome = Confirmed();
  outcome.answer.AddNumbers("point", point);
  return outcome;
}

Outcome Run(const UserPaperRequest& request) {
  CString name = HostText(request.name);
  int width = request.width;
  int height = request.height;
  int clearAll = 0;
  if (__UserPaperSetDlg(nullptr, &name, &width, &height, &clearAll, nullptr) == 0) {
    return Cancelled();
  }
  if (clearAll != 0) {
    return ClearAll();
  }
  Outcome outcome = Confirmed();
  outcome.answer.AddText("name", Utf8FromHostText(name))
      .AddInteger("width", width)
      .AddInteger("height", height);
  return outcome;
}

Outcome Run(const CheckListRequest& request) {
  const CString title = HostText(request.title);
  CArray<CString, CString&> names;
  CByteArray states;
  for (const CheckListItem& item : request.items) {
    CString name = HostText(item.name);
    names.Add(name);
    states.Add(item.isTicked ? 1 : 0);
  }
  const INT_PTR result = __CheckListDlg(&title, &names, &states);
  if (result == IDCANCEL) {
    return Cancelled();
  }
  if (result != IDOK) {
    return Failed();
  }
  std::vector<JsonObject> items;
  INT_PTR index = 0;
  for (const CheckListItem& item : request.items) {
    items.emplace_back().AddText("name", item.name).AddFlag("ticked", states.GetAt(index) != 0);
    ++index;
  }
  Outcome outcome = Confirmed();
  outcome.answer.AddObjects("items", items);
  return outcome;
}

using ColorEntry = BOOL (*)(CKivSysEnv* env, COLORREF* color, CPoint* position);

COLORREF HostColor(const Colour& colour) {
  return RGB(colour.red, colour.green, colour.blue);
}

std::string TextOfColor(COLORREF color) {
  return ColourText(
      {.red = GetRValue(color), .green = GetGValue(color), .blue = GetBValue(color)});
}

Outcome ConfirmedColor(COLORREF color) {
  Outcome outcome = Confirmed();
  outcome.answer.AddText("color", TextOfColor(color));
  return outcome;
}

Outcome RunColor(const ColorArguments& arguments, ColorEntry entry) {
  std::optional<CKivSysEnv> env;
  if (!arguments.key.empty()) {
    env.emplace(HostText(arguments.key));
  }
  COLORREF color = HostColor(arguments.color);
  PositionArgument position(arguments.position);
  if (entry(env ? &*env : nullptr, &color, position.Pointer()) == FALSE) {
    return Cancelled();
  }
  return ConfirmedColor(color);
}

Outcome Run(const SelectColorRequest& request) {
  return RunColor(request.arguments, __SelColorDlg);
}

Outcome Run(const SelectColorExRequest& request) {
  return RunColor(request.arguments, __SelColorDlgEx);
}

Outcome Run(const EditColorRequest& request) {
  return RunColor(request.arguments, __EditColorDlg);
}

Outcome Run(const SelectRgbRequest& request) {
  COLORREF color = HostColor(request.color);
  return __SelRGBDlg(&color) == FALSE ? Cancelled() : ConfirmedColor(color);
}

/// Throws UsageError for a face name that the record cannot hold.
void FillFont(CKivFont& font, const FontFields& fields, double dotsPerMm) {
  const CString face = HostText(fields.face);
  if (face.GetLength() >= LF_FACESIZE) {
    throw UsageError("the name of a face has at most 31 bytes: " + JsonQuoted(fields.face));
  }
  LOGFONTA record{};
  record.lfEscapement = fields.escapement;
  record.lfOrientation = fields.orientation;
  record.lfWeight = fields.weight;
  record.lfItalic = fields.isItalic ? 1 : 0;
  record.lfUnderline = fields.isUnderlined ? 1 : 0;
  record.lfStrikeOut = fields.isStruckOut ? 1 : 0;
  record.lfCharSet = fields.charSet;
  record.lfOutPrecision = fields.outPrecision;
  record.lfClipPrecision = fields.clipPrecision;
  record.lfQuality = fields.quality;
  record.lfPitchAndFamily = fields.pitchAndFamily;
  face.View().copy(std::begin(record.lfFaceName), LF_FACESIZE - 1);
  font.SetLogFont(&record);
  font.SetV(fields.height);
  font.SetH(fields.width);
  font.CalcMmToLogFont(dotsPerMm == 0 ? kUsualDotsPerMm : dotsPerMm);
  record = font.GetLogFont(0);
  record.lfHeight = fields.dotsHeight.value_or(record.lfHeight);
  record.lfWidth = fields.dotsWidth.value_or(record.lfWidth);
  font.SetLogFont(&record);
  const COLORREF color = HostColor(fields.color);
  font.SetColor(&color);
  font.SetStrikeOutType(fields.strikeOutType);
}

Outcome ConfirmedFont(const CKivFont& font) {
  const LOGFONTA record = font.GetLogFont(0);
  Outcome outcome = Confirmed();
  outcome.answer.AddText("face", Utf8FromHostText(CString(std::begin(record.lfFaceName))))
      .AddNumber("height", font.GetV())
      .AddNumber("width", font.GetH())
      .AddInteger("dotsHeight", record.lfHeight)
      .AddInteger("dotsWidth", record.lfWidth)
      .AddInteger("escapement", record.lfEscapement)
      .AddInteger("orientation", record.lfOrientation)
      .AddInteger("weight", record.lfWeight)
      .AddFlag("italic", record.lfItalic != 0)
      .AddFlag("underline", record.lfUnderline != 0)
      .AddFlag("strikeOut", record.lfStrikeOut != 0)
      .AddInteger("strikeOutType", font.GetStrikeOutType())
      .AddInteger("charSet", record.lfCharSet)
      .AddInteger("outPrecision", record.lfOutPrecision)
      .AddInteger("clipPrecision", record.lfClipPrecision)
      .AddInteger("quality", record.lfQuality)
      .AddInteger("pitchAndFamily", record.lfPitchAndFamily)
      .AddText("color", TextOfColor(font.GetColor()));
  return outcome;
}

/// What both font entries take besides the font, in the host's types.
class FontArguments {
public:
  explicit FontArguments(const FontDialogArguments& given)
      : m_hasTitle(given.title.has_value()), m_title(HostText(given.title.value_or(""))) {
    if (!given.key.empty()) {
      m_environment.emplace(HostText(given.key));
    }
  }

  const char* Title() const { return m_hasTitle ? m_title.GetString() : nullptr; }
  CKivSysEnv* Environment() { return m_environment ? &*m_environment : nullptr; }

private:
  bool m_hasTitle;
  CString m_title;
  std::optional<CKivSysEnv> m_environment;
};

Outcome Run(const SelectFontRequest& request) {
  FontArguments arguments(request.dialog);
  CKivFont font;
  FillFont(font, request.font, request.dialog.dotsPerMm);
  const BOOL confirmed = __SelFontDlg(
      arguments.Environment(), &font, request.dialog.dotsPerMm, arguments.Title(),
      request.showsStrikeOutType ? TRUE : FALSE, request.dialog.hasFixedColor ? TRUE : FALSE,
      request.dialog.enableMask);
  return confirmed != FALSE ? ConfirmedFont(font) : Cancelled();
}

Outcome Run(const SelectFontExRequest& request) {
  FontArguments arguments(request.dialog);
  CKivFontEx font;
  FillFont(font, request.font, request.dialog.dotsPerMm);
  const COLORREF backColor = HostColor(request.backColor);
  font.SetBackColor(&backColor);
  font.SetVPos(request.verticalPlace);
  font.SetHPos(request.horizontalPlace);
  const BOOL confirmed =
      __SelFontExDlg(arguments.Environment(), &font, request.dialog.dotsPerMm, arguments.Title(),
                     request.dialog.hasFixedColor ? TRUE : FALSE, request.dialog.enableMask);
  if (confirmed == FALSE) {
    return Cancelled();
  }
  Outcome outcome = ConfirmedFont(font);
  outcome.answer.AddText("backColor", TextOfColor(font.GetBackColor()))
      .AddInteger("verticalPlace", font.GetVPos())
      .AddInteger("horizontalPlace", font.GetHPos());
  return outcome;
}

CStringArray HostTexts(const std::vector<std::string>& texts) {
  CStringArray array;
  for (const std::string& text : texts) {
    array.Add(HostText(text));
  }
  return array;
}

/// What both layout entries take besides the page, in the host's types.
class LayoutEntryArguments {
public:
  explicit LayoutEntryArguments(const LayoutArguments& given)
      : m_insertions(HostTexts(given.insertions)), m_position(given.position) {
    for (const int number : given.numbers) {
      m_numbers.Add(static_cast<DWORD>(number));
    }
    if (!given.key.empty()) {
      m_environment.emplace(HostText(given.key));
    }
  }

  CStringArray* Insertions() { return &m_insertions; }
  CDWordArray* Numbers() { return &m_numbers; }
  CKivSysEnv* Environment() { return m_environment ? &*m_environment : nullptr; }
  CPoint* Position() { return m_position.Pointer(); }

private:
  CStringArray m_insertions;
  CDWordArray m_numbers;
  std::optional<CKivSysEnv> m_environment;
  PositionArgument m_position;
};

/// The page that is to be edited: made by `divide` where it is to be new, read from its file
/// otherwise. Throws std::runtime_error when it cannot be had.
template <class Page, class Request, class Divide>
void PreparePage(Page& page, const Request& request, std::string_view kind, Divide divide) {
  const std::string& file = request.arguments.file;
  const std::wstring path = WideFromBytes(CP_UTF8, file);
  const bool isThere = ::GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
  if (request.newPage) {
    if (isThere) {
      throw std::runtime_error(JsonQuoted(file) + " is there already, --new replaces no file");
    }
    divide(*request.newPage);
  } else if (page.OpenFileW(path.c_str()) == 0) {
    throw std::runtime_error(JsonQuoted(file) +
                             (isThere ? " cannot be read as a layout file " + std::string(kind)
                                      : " is not there, --new begins a new page"));
  }
}

template <class Page>
void WritePage(const Page& page, const std::string& file) {
  if (page.SaveFileW(WideFromBytes(CP_UTF8, file).c_str()) == 0) {
    throw std::runtime_error(JsonQuoted(file) + " cannot be written");
  }
}

Outcome Run(const EditLayoutRequest& request) {
  const LayoutArguments& given = request.arguments;
  CLayoutPageData page;
  PreparePage(page, request, "*.mtpld", [&](const PageCounts& counts) {
    page.DividePage(static_cast<BYTE>(counts.rows), static_cast<BYTE>(counts.columns),
                    given.dotsPerMm);
  });
  LayoutEntryArguments arguments(given);
  if (__LayoutEditDlg(arguments.Environment(), &page, arguments.Insertions(), arguments.Numbers(),
                      given.dotsPerMm, request.isLineMode ? 1 : 0, arguments.Position()) == FALSE) {
    return Cancelled();
  }
  WritePage(page, given.outFile);
  Outcome outcome = Confirmed();
  outcome.answer.AddInteger("rows", page.GetNumRow())
      .AddInteger("columns", page.GetNumCol())
      .AddNumber("width", page.GetAllLengthCol())
      .AddNumber("height", page.GetAllLengthRow())
      .AddText("file", given.outFile);
  return outcome;
}

/// In the order of the counts that --new takes.
constexpr std::array kBlocks{CLayoutExPageData::LISTTYPE_HEADER, CLayoutExPageData::LISTTYPE_LIST,
                             CLayoutExPageData::LISTTYPE_FOOTER};

Outcome Run(const EditLayoutExRequest& request) {
  const LayoutArguments& given = request.arguments;
  CLayoutExPageData page;
  PreparePage(page, request, "*.mtpld2", [&](const BlockCounts& counts) {
    for (std::size_t i = 0; i < kBlocks.size(); ++i) {
      page.DividePage(kBlocks.at(i), static_cast<BYTE>(counts.rows.at(i)),
                      static_cast<BYTE>(counts.columns), given.dotsPerMm);
    }
  });
  LayoutEntryArguments arguments(given);
  CStringArray fields = HostTexts(request.fields);
  if (__LayoutExEditDlg(arguments.Environment(), &page, fields.GetSize() > 0 ? &fields : nullptr,
                        arguments.Insertions(), arguments.Numbers(), given.dotsPerMm,
                        arguments.Position()) == FALSE) {
    return Cancelled();
  }
  WritePage(page, given.outFile);
  std::vector<double> rows;
  std::vector<double> heights;
  for (const CLayoutExPageData::LISTTYPE block : kBlocks) {
    rows.push_back(page.GetNumRow(block));
    heights.push_back(Shortest(page.GetAllLengthRow(block)));
  }
  Outcome outcome = Confirmed();
  outcome.answer.AddNumbers("rows", rows)
      .AddInteger("columns", page.GetNumCol())
      .AddNumber("width", Shortest(page.GetAllLengthCol()))
      .AddNumbers("height", heights)
      .AddText("file", given.outFile);
  return outcome;
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

ExitStatus Answer(const Request& request) {
  const Outcome outcome =
      std::visit([](const auto& alternative) { return Run(alternative); }, request);
  return PrintResult(outcome.answer.ToText() + "\n", outcome.status);
}

/// The whole run, given the arguments after the program's name.
ExitStatus RunCommandLine(const std::vector<std::string>& arguments) {
  try {
    const CommandLine line = ReadCommandLine(arguments);
    const Message* message = std::get_if<Message>(&line);
    return message != nullptr ? Show(*message) : Answer(std::get<Request>(line));
  } catch (const UsageError& error) {
    return Show(UsageMessage(error));
  } catch (const std::exception& error) {
    Print(stderr, std::string("quorvel: ") + error.what() + "\n");
    return ExitStatus::kFailed;
  }
}

}  // namespace

}  // namespace quorvel::cli

int wmain(int argumentCount, wchar_t** arguments) {
  // Binary, so that a line ends in one byte and UTF-8 passes as it is.
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
  std::vector<std::string> utf8Arguments;
  for (int i = 1; i < argumentCount; ++i) {
    utf8Arguments.push_back(quorvel::cli::Utf8FromWide(arguments[i]));
  }
  return static_cast<int>(quorvel::cli::RunCommandLine(utf8Arguments));
}
