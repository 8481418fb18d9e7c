#include "cli/page_answer.h"

#include "cli/commands.h"
#include "kivdata/layout_ex_page_data.h"
#include "kivdata/layout_page_data.h"
#include "kivdata/val_info_one_data.h"

#include <gtest/gtest.h>

#include <string>
#include <variant>

namespace quorvel::cli {
namespace {

template <class Page>
std::string BytesOf(const Page& page) {
  std::string bytes(page.SaveBytes(nullptr, 0), '\0');
  page.SaveBytes(bytes.data(), bytes.size());
  return bytes;
}

template <class Page>
Answer Describe(const Page& page) {
  const std::optional<Answer> answer = DescribePage(
      BytesOf(page), [](std::string_view text) { return "<" + std::string(text) + ">"; });
  EXPECT_TRUE(answer.has_value());
  return answer.value_or(Answer(""));
}

/// What stands behind the first `name` up to the end of its object or list.
std::string Part(const std::string& json, const std::string& name) {
  const std::size_t begin = json.find("\"" + name + "\":");
  if (begin == std::string::npos) {
    return "";
  }
  const std::size_t value = begin + name.size() + 3;
  return json.substr(value, json.find_first_of("]}", value) + 1 - value);
}

TEST(DescribePage, TellsAGrid) {
  CLayoutPageData page;
  page.DividePage(2, 2, 0);
  page.SetLengthRow(1, 7.5);
  page.SetMargin(1.1F);
  const PEN_STATUS pen{RGB(1, 2, 3), 0.3F, 2};
  page.SetOutLineStatus(&pen);
  page.SetByEdgeOutLine(1);
  page.SetByEdgeInLine(0);
  page.GetCelAt(3)->SetText("x\"y");
  page.GetCelAt(3)->SetShowLineVT(0);
  const Answer answer = Describe(page);
  const std::string json = answer.ToJson();
  EXPECT_TRUE(json.starts_with(R"({"result":"shown","kind":"grid","type":"frame","margin":1.1,)"))
      << json;
  EXPECT_EQ(Part(json, "outerLine"), R"({"shown":true,"color":"#010203","width":0.3,"style":2})");
  EXPECT_EQ(Part(json, "innerLine"), R"({"shown":false,"color":"#000000","width":0.1,"style":0})");
  EXPECT_EQ(Part(json, "heights"), "[10,7.5]");
  EXPECT_EQ(Part(json, "widths"), "[10,10]");
  EXPECT_NE(json.find(R"({"row":1,"column":1,"rows":1,"columns":1,"text":"<x\"y>","lines":)"
                      R"({"left":true,"top":false,"right":true,"bottom":true},)"),
            std::string::npos)
      << json;
  EXPECT_EQ(answer.ToPlain(), "<x\"y>\n");
}

TEST(DescribePage, LeavesOutCellsThatAreCovered) {
  CLayoutPageData page;
  page.DividePage(2, 2, 0);
  page.GetCelAt(0)->SetText("seen");
  page.GetCelAt(1)->SetText("covered");
  page.GetCelAt(0)->SetSelected(1);
  page.GetCelAt(1)->SetSelected(1);
  ASSERT_NE(page.MeargeCel(0, 0), 0);
  const Answer answer = Describe(page);
  EXPECT_EQ(answer.ToPlain(), "<seen>\n");
  EXPECT_NE(answer.ToJson().find(R"({"row":0,"column":0,"rows":1,"columns":2,"text":"<seen>")"),
            std::string::npos);
  EXPECT_EQ(answer.ToJson().find(R"({"row":0,"column":1)"), std::string::npos);
  EXPECT_NE(answer.ToJson().find(R"({"row":1,"column":1)"), std::string::npos);
}

TEST(DescribePage, TellsTheThreeBlocksOfAnExtendedPage) {
  CLayoutExPageData page;
  page.DividePage(CLayoutExPageData::LISTTYPE_LIST, 2, 3, 0);
  page.SetLengthCol(0, 12.3F);
  page.SetUse(CLayoutExPageData::LISTTYPE_FOOTER, 0);
  page.SetRepeatRow(4);
  page.SetStIndex(9);
  page.SetListShowByPage(1, 0);
  page.GetCelAt(CLayoutExPageData::LISTTYPE_FOOTER, 2)->SetText("end");
  page.GetCelAt(CLayoutExPageData::LISTTYPE_HEADER, 0)->SetText("begin");
  const Answer answer = Describe(page);
  const std::string json = answer.ToJson();
  EXPECT_TRUE(json.starts_with(
      R"({"result":"shown","kind":"extended","repeatRow":4,"firstRecord":9,"onFirstPage":true,)"
      R"("onMiddlePages":false,"onLastPage":true,)"))
      << json;
  EXPECT_NE(json.find(R"({"block":"header","used":true,"rows":1,"columns":3,"heights":[10],)"
                      R"("widths":[12.3,10,10],)"),
            std::string::npos)
      << json;
  EXPECT_NE(json.find(R"({"block":"list","used":true,"rows":2,)"), std::string::npos);
  EXPECT_NE(json.find(R"({"block":"footer","used":false,"rows":1,)"), std::string::npos);
  EXPECT_EQ(answer.ToPlain("|"), "<begin>|<end>\n");
}

TEST(DescribePage, TellsTheSettingsOfAFieldMacro) {
  CKivValInfoOneData info;
  info.SetValType(209);
  info.SetFieldName("price");
  info.SetFindType(2);
  info.SetFindValue("10");
  info.SetRefField("count");
  info.SetUseDesimalPointBeam(1);
  info.SetBeam(2);
  info.SetUse3Figures(1);
  CLayoutPageData page;
  page.DividePage(1, 2, 0);
  page.GetCelAt(0)->SetText(info.GetMacroString("total"));
  page.GetCelAt(1)->SetText("no macro");
  const std::string json = Describe(page).ToJson();
  EXPECT_EQ(
      Part(json, "field"),
      R"({"valType":209,"fieldName":"<price>","findType":2,"findValue":"<10>",)"
      R"("refField":"<count>","useDecimalPlaces":true,"decimalPlaces":2,"groupsDigits":true})");
  EXPECT_EQ(json.find("\"field\":"), json.rfind("\"field\":"));
}

TEST(DescribePage, TheFontOfACellCanBeFedToItsDialog) {
  CLayoutPageData page;
  CKivFontEx* const font = page.GetCelAt(0)->GetFont();
  font->SetV(5.5);
  font->SetHPos(2);
  const COLORREF back = RGB(10, 20, 30);
  font->SetBackColor(&back);
  const std::optional<Answer> answer = DescribePage(
      BytesOf(page), [](std::string_view /*codePage*/) { return std::string("face"); });
  const std::string json = Part(answer.value_or(Answer("")).ToJson(), "font");
  const CommandLine line =
      ReadCommandLine(std::vector<std::string>{"select-font-ex", "--json", json});
  ASSERT_TRUE(std::holds_alternative<Task>(line)) << std::get<Message>(line).text;
  const auto& request = std::get<SelectFontExRequest>(std::get<Task>(line).request);
  EXPECT_EQ(request.font.height, 5.5);
  EXPECT_EQ(request.horizontalPlace, 2);
  EXPECT_EQ(request.backColor, (Colour{10, 20, 30}));
}

TEST(DescribePage, NothingIsToldOfWhatIsNoLayoutFile) {
  const auto utf8 = [](std::string_view text) { return std::string(text); };
  EXPECT_FALSE(DescribePage("", utf8).has_value());
  std::string bytes = BytesOf(CLayoutPageData());
  EXPECT_TRUE(DescribePage(bytes, utf8).has_value());
  bytes[bytes.size() / 2] ^= 1;
  EXPECT_FALSE(DescribePage(bytes, utf8).has_value());
}

TEST(ShowLayout, TakesItsFile) {
  const CommandLine line = ReadCommandLine(std::vector<std::string>{"show-layout", "枠.mtpld"});
  EXPECT_EQ(std::get<ShowLayoutRequest>(std::get<Task>(line).request).file, "枠.mtpld");
  const CommandLine none = ReadCommandLine(std::vector<std::string>{"show-layout"});
  EXPECT_EQ(std::get<Message>(none).text, "quorvel: FILE is missing\n");
}

}  // namespace
}  // namespace quorvel::cli
