#include "support/layout_dialogs.h"

#include "dialogs/layout/layout_cel_size_edit_dlg.h"
#include "dialogs/layout/layout_field_edit_dlg.h"
#include "dialogs/layout/layout_frame_edit_dlg.h"
#include "dialogs/layout/layout_list_edit_dlg.h"
#include "driver/product_state.h"
#include "res/ids.h"
#include "support/same_page.h"
#include "support/sound_page.h"

namespace quorvel::test {

namespace {

constexpr auto kBlock = CLayoutExPageData::LISTTYPE_LIST;
constexpr double kDotsPerMm = 11.811;

Outcome RunFrameEdit(CPoint* position) {
  // All of its list is selected, so that it has lines of every kind.
  static const CLayoutExPageData before = [] {
    constexpr BYTE kLines = 3;
    CLayoutExPageData page;
    page.DividePage(kBlock, kLines, kLines, kDotsPerMm);
    for (int index = 0; index < page.GetCelSize(kBlock); ++index) {
      page.GetCelAt(kBlock, index)->SetSelected(1);
    }
    return page;
  }();
  CLayoutExPageData page = before;
  CLayoutFrameEditDlg dialog(nullptr, &page, kBlock, position);
  const bool confirmed = driver::RunWithProductResources(dialog) == IDOK;
  return {confirmed, IsSamePage(page, before)};
}

Outcome RunFieldEdit(CPoint* position) {
  CStringArray names;
  for (const char* name : {"品名", "数量", "金額"}) {
    names.Add(name);
  }
  CLayoutFieldEditDlg dialog(&names, "", position);
  const bool confirmed = driver::RunWithProductResources(dialog) == IDOK;
  return {confirmed, dialog.m_strMacro.IsEmpty()};
}

Outcome RunCelSizeEdit(CPoint* /*position*/) {
  float first = 10.5F;
  float second = 4.5F;
  CLayoutCelSizeEditDlg dialog(&first, &second);
  const bool confirmed = driver::RunWithProductResources(dialog) == IDOK;
  return {confirmed, first == 10.5F && second == 4.5F};
}

Outcome RunListEdit(CPoint* position) {
  CStringArray fields;
  CStringArray insertions;
  for (const char* name : {"品名", "数量", "金額"}) {
    fields.Add(name);
    insertions.Add(name);
  }
  CLayoutExPageData page = ExtendedPageWithEverything();
  const CLayoutExPageData before = page;
  CLayoutListEditDlg dialog(nullptr, nullptr, &page, &fields, &insertions, nullptr, kDotsPerMm,
                            kBlock, position, nullptr);
  const bool confirmed = driver::RunWithProductResources(dialog) == IDOK;
  return {confirmed, IsSamePage(page, before), FaultOf(page)};
}

}  // namespace

std::vector<Entry> LayoutDialogs() {
  return {{"LayoutFrameEdit", IDD_LAYOUT_FRAME, RunFrameEdit, true, nullptr, 0},
          {"LayoutFieldEdit", IDD_LAYOUT_FIELD, RunFieldEdit, true, nullptr, 0},
          {"LayoutCelSizeEdit", IDD_LAYOUT_CEL_SIZE, RunCelSizeEdit, false, nullptr, 0},
          {"LayoutListEdit", IDD_LAYOUT_LIST, RunListEdit, true, nullptr, 0, nullptr, true}};
}

std::vector<Entry> AllDialogs() {
  std::vector<Entry> all = AllEntries();
  const std::vector<Entry> inner = LayoutDialogs();
  all.insert(all.end(), inner.begin(), inner.end());
  return all;
}

}  // namespace quorvel::test
