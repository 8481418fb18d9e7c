// The layout editors: their arguments, and pages that hold what no page should.
#include "hostile/hostile_call.h"
#include "hostile/hostile_values.h"
#include "support/same_page.h"

#include <gtest/gtest.h>

namespace quorvel::test {

namespace {

using ListType = CLayoutExPageData::LISTTYPE;

CLayoutPageData UsualPage() {
  CLayoutPageData page;
  page.DividePage(2, 3, 0.0);
  page.GetCelAt(0)->SetText("図面名称");
  return page;
}

CLayoutExPageData UsualExPage() {
  CLayoutExPageData page;
  page.DividePage(CLayoutExPageData::LISTTYPE_LIST, 2, 3, 0.0);
  page.GetCelAt(CLayoutExPageData::LISTTYPE_LIST, 0)->SetText("図面名称");
  return page;
}

struct Lists {
  CStringArray fields;
  CStringArray insertions;
  CDWordArray numbers;
};

struct EditorCall {
  CLayoutPageData page = UsualPage();
  CLayoutExPageData exPage = UsualExPage();
  Lists lists;
  bool hasLists = true;
  double dotsPerMm = 0.0;
  int lineMode = 0;
};

/// An untouched page comes back as it was, but for its type, which follows the mode.
Outcome RunEditor(const EditorCall& call) {
  CLayoutPageData page = call.page;
  Lists lists = call.lists;
  const bool confirmed =
      __LayoutEditDlg(nullptr, &page, call.hasLists ? &lists.insertions : nullptr,
                      call.hasLists ? &lists.numbers : nullptr, call.dotsPerMm, call.lineMode,
                      nullptr) != FALSE;
  if (confirmed) {
    EXPECT_EQ(page.GetType(), call.lineMode != 0 ? 1 : 0);
    page.SetType(call.page.GetType());
    EXPECT_TRUE(IsSamePage(page, call.page)) << "after OK";
  }
  return {confirmed, IsSamePage(page, call.page)};
}

Outcome RunExEditor(const EditorCall& call) {
  CLayoutExPageData page = call.exPage;
  Lists lists = call.lists;
  const bool confirmed =
      __LayoutExEditDlg(nullptr, &page, call.hasLists ? &lists.fields : nullptr,
                        call.hasLists ? &lists.insertions : nullptr,
                        call.hasLists ? &lists.numbers : nullptr, call.dotsPerMm, nullptr) != FALSE;
  if (confirmed) {
    EXPECT_TRUE(IsSamePage(page, call.exPage)) << "after OK";
  }
  return {confirmed, IsSamePage(page, call.exPage)};
}

void Add(HostileTable& table, const std::string& argument, const std::string& value,
         const EditorCall& call) {
  table.Add("LayoutEdit_" + argument, value, [call] { return RunEditor(call); });
  table.Add("LayoutExEdit_" + argument, value, [call] { return RunExEditor(call); });
}

/// The same change to the cells of either page.
template <class Change>
void AddCel(HostileTable& table, const std::string& argument, const std::string& value,
            Change change) {
  EditorCall call;
  change(*call.page.GetCelAt(1));
  change(*call.exPage.GetCelAt(CLayoutExPageData::LISTTYPE_LIST, 1));
  call.page.GetCelAt(1)->SetSelected(1);
  Add(table, argument, value, call);
}

void AddLists(HostileTable& table) {
  EditorCall call;
  call.hasLists = false;
  Add(table, "lists", "Null", call);
  call = {};
  Add(table, "lists", "Empty", call);
  call.lists.numbers.Add(0xFFFFFFFF);
  Add(table, "lists", "NumbersWithoutNames", call);
  for (const Named<CString>& text : HostileStrings()) {
    call = {};
    for (CStringArray* names : {&call.lists.fields, &call.lists.insertions}) {
      names->Add(text.value);
      names->Add("x");
    }
    Add(table, "names", text.name, call);
  }
  constexpr int kVeryMany = 10'000;
  call = {};
  for (int i = 0; i < kVeryMany; ++i) {
    call.lists.fields.Add("項目");
    call.lists.insertions.Add("項目");
    call.lists.numbers.Add(static_cast<DWORD>(-i));
  }
  Add(table, "lists", "TenThousand", call);
}

void AddNumbers(HostileTable& table) {
  for (const Named<double>& number : HostileNumbers()) {
    EditorCall call;
    call.dotsPerMm = number.value;
    Add(table, "dotsPerMm", number.name, call);
    // What is no length the page does not take: the rest shows.
    call = {};
    call.page.SetLengthRow(0, number.value);
    call.page.SetLengthCol(1, number.value);
    call.page.SetMargin(static_cast<float>(number.value));
    call.exPage.SetLengthCol(1, static_cast<float>(number.value));
    call.exPage.SetLengthRow(CLayoutExPageData::LISTTYPE_LIST, 0,
                             static_cast<float>(number.value));
    Add(table, "lengths", number.name, call);
    AddCel(table, "celFont", number.name, [&](CLayoutCelData& cel) {
      cel.SetText("あ");
      cel.GetFont()->SetV(number.value);
      cel.GetFont()->SetH(number.value);
    });
  }
  for (const Named<double>& length : std::vector<Named<double>>{
           {"All0", 0.0}, {"All1e12", 1e12}, {"All1e-30", 1e-30}, {"AllDenormal", 1e-44}}) {
    EditorCall call;
    call.page.SetAllLengthRow(length.value, 1);
    call.page.SetAllLengthCol(length.value, 1);
    call.exPage.SetAllLengthCol(static_cast<float>(length.value), 1);
    for (const ListType block : kBlocksOfPage) {
      call.exPage.SetAllLengthRow(block, static_cast<float>(length.value), 1);
    }
    Add(table, "lengths", length.name, call);
    call.page.SetLengthRow(0, 10.0);
    call.exPage.SetLengthCol(0, 10.0F);
    Add(table, "lengths", length.name + "And10", call);
  }
}

void AddInts(HostileTable& table) {
  for (const Named<int>& number : HostileInts()) {
    EditorCall call;
    call.exPage.SetStIndex(number.value);
    call.exPage.SetRepeatRow(static_cast<BYTE>(number.value));
    const auto style = static_cast<short>(number.value >> 8);
    for (const float width : {0.0F, 1e12F}) {
      const PEN_STATUS line{.color = 0xFFFFFFFF, .width = width, .style = style};
      call.exPage.SetOutLineStatus(&line);
      call.exPage.SetInLineStatus(&line);
      call.page.SetOutLineStatus(&line);
      call.page.SetInLineStatus(&line);
    }
    Add(table, "lines", number.name, call);
    call.lineMode = number.value;
    // The mode for lines shows no margin and keeps it.
    table.Add("LayoutEdit_lineMode", number.name, [call] { return RunEditor(call); });

    AddCel(table, "celRecord", number.name, [&](CLayoutCelData& cel) {
      LOGFONTA record{};
      record.lfHeight = number.value;
      record.lfWidth = number.value;
      record.lfEscapement = number.value;
      record.lfOrientation = number.value;
      record.lfWeight = number.value;
      std::ranges::fill(record.lfFaceName, '\x83');
      cel.SetText("あ");
      cel.GetFont()->SetLogFont(&record);
    });
  }
}

void AddCels(HostileTable& table) {
  for (const Named<std::string>& text : HostileTexts()) {
    AddCel(table, "celText", text.name,
           [&](CLayoutCelData& cel) { cel.SetText(text.value.c_str()); });
  }
  for (const COLORREF color : kHostileColors) {
    AddCel(table, "celColours", std::to_string(color), [&](CLayoutCelData& cel) {
      cel.SetText("あ");
      cel.GetFont()->SetColor(&color);
      cel.GetFont()->SetBackColor(&color);
    });
  }
}

}  // namespace

std::vector<HostileArgument> PageArguments() {
  HostileTable table;
  table.Add("LayoutEdit_page", "Null", [] {
    return Outcome{
        __LayoutEditDlg(nullptr, nullptr, nullptr, nullptr, 0.0, 0, nullptr) != FALSE, true};
  }, Opening::kNone);
  table.Add("LayoutExEdit_page", "Null", [] {
    return Outcome{
        __LayoutExEditDlg(nullptr, nullptr, nullptr, nullptr, nullptr, 0.0, nullptr) != FALSE,
        true};
  }, Opening::kNone);
  AddLists(table);
  AddNumbers(table);
  AddInts(table);
  AddCels(table);
  constexpr BYTE kMost = 255;
  EditorCall call;
  call.page.DividePage(kMost, kMost, 0.0);
  call.exPage.DividePage(CLayoutExPageData::LISTTYPE_HEADER, 0, kMost, 0.0);
  call.exPage.DividePage(CLayoutExPageData::LISTTYPE_LIST, kMost, kMost, 0.0);
  Add(table, "page", "AsManyCellsAsPossible", call);
  return table.Take();
}

}  // namespace quorvel::test
