#include "cli/page_answer.h"

#include "cli/colour.h"
#include "cli/json.h"
#include "kivdata/layout_ex_page_data.h"
#include "kivdata/layout_page_data.h"
#include "kivdata/val_info_one_data.h"

#include <array>
#include <cstdint>
#include <utility>
#include <vector>

namespace quorvel::cli {

namespace {

using ListType = CLayoutExPageData::LISTTYPE;

std::string TextOfColor(COLORREF color) {
  constexpr unsigned kBits = 8;
  return ColourText({.red = static_cast<std::uint8_t>(color),
                     .green = static_cast<std::uint8_t>(color >> kBits),
                     .blue = static_cast<std::uint8_t>(color >> (2 * kBits))});
}

JsonObject DescribeLine(int isShown, const PEN_STATUS& pen) {
  JsonObject line;
  line.AddFlag("shown", isShown != 0)
      .AddText("color", TextOfColor(pen.color))
      .AddNumber("width", Shortest(pen.width))
      .AddInteger("style", pen.style);
  return line;
}

/// With the members of select-font-ex, which takes it as it is.
JsonObject DescribeFont(const CKivFontEx& font, const Utf8FromCodePage& utf8) {
  const LOGFONTA record = font.GetLogFont(0);
  JsonObject described;
  described.AddText("face", utf8(std::data(record.lfFaceName)))
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
      .AddText("color", TextOfColor(font.GetColor()))
      .AddText("backColor", TextOfColor(font.GetBackColor()))
      .AddInteger("verticalPlace", font.GetVPos())
      .AddInteger("horizontalPlace", font.GetHPos());
  return described;
}

/// The settings of a text that is a field macro.
JsonObject DescribeField(const CKivValInfoOneData& info, const Utf8FromCodePage& utf8) {
  JsonObject field;
  field.AddInteger("valType", info.GetValType())
      .AddText("fieldName", utf8(info.GetFieldName().View()))
      .AddInteger("findType", info.GetFindType())
      .AddText("findValue", utf8(info.GetFindValue().View()))
      .AddText("refField", utf8(info.GetRefField().View()))
      .AddFlag("useDecimalPlaces", info.GetUseDesimalPointBeam() != 0)
      .AddInteger("decimalPlaces", info.GetBeam())
      .AddFlag("groupsDigits", info.GetUse3Figures() != 0);
  return field;
}

JsonObject DescribeCell(const CLayoutCelData& cell, int row, int column,
                        const Utf8FromCodePage& utf8) {
  JsonObject lines;
  lines.AddFlag("left", cell.GetShowLineHL() != 0)
      .AddFlag("top", cell.GetShowLineVT() != 0)
      .AddFlag("right", cell.GetShowLineHR() != 0)
      .AddFlag("bottom", cell.GetShowLineVB() != 0);
  JsonObject described;
  described.AddInteger("row", row)
      .AddInteger("column", column)
      .AddInteger("rows", cell.GetRowMeargeSize())
      .AddInteger("columns", cell.GetColMeargeSize())
      .AddText("text", utf8(cell.TextView()))
      .AddObject("lines", lines)
      .AddObject("font", DescribeFont(*cell.GetFont(), utf8));
  CKivValInfoOneData info;
  if (info.SetMacroString(cell.GetText().GetString(), 1) != 0) {
    described.AddObject("field", DescribeField(info, utf8));
  }
  return described;
}

struct PlacedCell {
  int row = 0;
  int column = 0;
  const CLayoutCelData* cell = nullptr;
};

/// One block as the two kinds of page have it.
struct Block {
  int rows = 0;
  int columns = 0;
  std::vector<double> heights;
  std::vector<double> widths;
  std::vector<PlacedCell> cells;  // those that are not covered
};

/// What a page is described in: its object, and the texts of its cells.
struct Description {
  JsonObject page;
  std::vector<std::string> texts;
};

JsonObject DescribeBlock(JsonObject described, const Block& block, const Utf8FromCodePage& utf8,
                         std::vector<std::string>& texts) {
  std::vector<JsonObject> cells;
  for (const auto& [row, column, cell] : block.cells) {
    cells.push_back(DescribeCell(*cell, row, column, utf8));
    if (!cell->TextView().empty()) {
      texts.push_back(utf8(cell->TextView()));
    }
  }
  described.AddInteger("rows", block.rows)
      .AddInteger("columns", block.columns)
      .AddNumbers("heights", block.heights)
      .AddNumbers("widths", block.widths)
      .AddObjects("cells", cells);
  return described;
}

template <class Page>
void AddLines(JsonObject& described, const Page& page) {
  described.AddObject("outerLine", DescribeLine(page.GetByEdgeOutLine(), page.GetOutLineStatus()))
      .AddObject("innerLine", DescribeLine(page.GetByEdgeInLine(), page.GetInLineStatus()));
}

/// A page tells which cells are covered by having no rectangle for them.
constexpr CRect kAnyArea(0, 0, 1, 1);

Description Describe(const CLayoutPageData& page, const Utf8FromCodePage& utf8) {
  Block block;
  block.rows = page.GetNumRow();
  block.columns = page.GetNumCol();
  for (int row = 0; row < block.rows; ++row) {
    block.heights.push_back(page.GetLengthRow(row));
  }
  for (int column = 0; column < block.columns; ++column) {
    block.widths.push_back(page.GetLengthCol(column));
  }
  std::vector<CRect> table(static_cast<std::size_t>(page.GetCelSize()));
  page.InitCelRect(&kAnyArea, table.data());
  for (int index = 0; index < page.GetCelSize(); ++index) {
    PlacedCell placed{.row = 0, .column = 0, .cell = page.GetCelAt(index)};
    CRect rect;
    if (page.GetCelRect(&rect, table.data(), index, &placed.row, &placed.column) != 0) {
      block.cells.push_back(placed);
    }
  }
  Description description;
  description.page.AddText(kResultMember, kShownResult)
      .AddText("kind", "grid")
      .AddText("type", page.GetType() != 0 ? "lines" : "frame")
      .AddNumber("margin", Shortest(page.GetMargin()))
      .AddFlag("showFrame", page.GetShowFrame() != 0);
  AddLines(description.page, page);
  const std::array blocks{DescribeBlock({}, block, utf8, description.texts)};
  description.page.AddObjects("blocks", blocks);
  return description;
}

Description Describe(const CLayoutExPageData& page, const Utf8FromCodePage& utf8) {
  constexpr std::array<std::pair<ListType, std::string_view>, 3> kBlocks{
      {{CLayoutExPageData::LISTTYPE_HEADER, "header"},
       {CLayoutExPageData::LISTTYPE_LIST, "list"},
       {CLayoutExPageData::LISTTYPE_FOOTER, "footer"}}};
  Description description;
  description.page.AddText(kResultMember, kShownResult)
      .AddText("kind", "extended")
      .AddInteger("repeatRow", page.GetRepeatRow())
      .AddInteger("firstRecord", page.GetStIndex())
      .AddFlag("onFirstPage", page.GetListShowByPage(0) != 0)
      .AddFlag("onMiddlePages", page.GetListShowByPage(1) != 0)
      .AddFlag("onLastPage", page.GetListShowByPage(2) != 0);
  AddLines(description.page, page);
  std::vector<JsonObject> blocks;
  for (const auto& [type, name] : kBlocks) {
    Block block;
    block.rows = page.GetNumRow(type);
    block.columns = page.GetNumCol();
    for (int row = 0; row < block.rows; ++row) {
      block.heights.push_back(Shortest(page.GetLengthRow(type, row)));
    }
    for (int column = 0; column < block.columns; ++column) {
      block.widths.push_back(Shortest(page.GetLengthCol(column)));
    }
    std::vector<CRect> table(static_cast<std::size_t>(page.GetCelSize(type)));
    page.InitCelRect(type, &kAnyArea, table.data());
    for (int index = 0; index < page.GetCelSize(type); ++index) {
      PlacedCell placed{.row = 0, .column = 0, .cell = page.GetCelAt(type, index)};
      CRect rect;
      if (page.GetCelRect(type, &rect, table.data(), index, &placed.row, &placed.column) != 0) {
        block.cells.push_back(placed);
      }
    }
    JsonObject described;
    described.AddText("block", name).AddFlag("used", page.GetUse(type) != 0);
    blocks.push_back(DescribeBlock(described, block, utf8, description.texts));
  }
  description.page.AddObjects("blocks", blocks);
  return description;
}

template <class Page>
std::optional<Answer> DescribeAs(std::string_view bytes, const Utf8FromCodePage& utf8) {
  Page page;
  if (page.OpenBytes(bytes.data(), bytes.size()) == 0) {
    return std::nullopt;
  }
  const Description description = Describe(page, utf8);
  return Answer(description.page, description.texts);
}

}  // namespace

std::optional<Answer> DescribePage(std::string_view bytes, const Utf8FromCodePage& utf8) {
  std::optional<Answer> answer = DescribeAs<CLayoutPageData>(bytes, utf8);
  return answer ? answer : DescribeAs<CLayoutExPageData>(bytes, utf8);
}

}  // namespace quorvel::cli
