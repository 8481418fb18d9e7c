#include "support/every_dialog.h"

#include "dialogs/layout/layout_cel_size_edit_dlg.h"
#include "dialogs/layout/layout_field_edit_dlg.h"
#include "dialogs/layout/layout_frame_edit_dlg.h"
#include "dialogs/layout/layout_list_edit_dlg.h"
#include "driver/product_state.h"
#include "support/same_page.h"

namespace quorvel::test {

namespace {

constexpr auto kBlock = CLayoutExPageData::LISTTYPE_LIST;
constexpr double kDotsPerMm = 11.811;

Outcome RunCelSize() {
  float first = 10.0F;
  float second = 5.0F;
  CLayoutCelSizeEditDlg dialog(&first, &second);
  const INT_PTR result = driver::RunWithProductResources(dialog);
  return {result == IDOK, first == 10.0F && second == 5.0F};
}

/// The first row's cells are selected.
CLayoutExPageData PageWithSelection() {
  CLayoutExPageData page;
  page.DividePage(kBlock, 3, 3, kDotsPerMm);
  for (int column = 0; column < 3; ++column) {
    page.GetCelAt(kBlock, column)->SetSelected(1);
    page.GetCelAt(kBlock, column + 3)->SetSelected(1);
  }
  return page;
}

Outcome RunRuledLines() {
  CLayoutExPageData page = PageWithSelection();
  const CLayoutExPageData before = page;
  CLayoutFrameEditDlg dialog(nullptr, &page, kBlock, nullptr);
  const INT_PTR result = driver::RunWithProductResources(dialog);
  return {result == IDOK, IsSamePage(page, before)};
}

Outcome RunDataField() {
  CStringArray names;
  for (const char* name : {"品名", "数量", "金額"}) {
    names.Add(name);
  }
  CLayoutFieldEditDlg dialog(&names, "", nullptr);
  const INT_PTR result = driver::RunWithProductResources(dialog);
  return {result == IDOK, dialog.m_strMacro.IsEmpty()};
}

Outcome RunListEditor() {
  CLayoutExPageData page = ExtendedPageWithEverything();
  const CLayoutExPageData before = page;
  CStringArray fields;
  fields.Add("品名");
  CStringArray insertions;
  insertions.Add("図番");
  CLayoutListEditDlg dialog(nullptr, nullptr, &page, &fields, &insertions, nullptr, kDotsPerMm,
                            kBlock, nullptr, nullptr);
  const INT_PTR result = driver::RunWithProductResources(dialog);
  return {result == IDOK, IsSamePage(page, before)};
}

std::vector<AnyDialogOfOurs> MakeList() {
  std::vector<AnyDialogOfOurs> dialogs;
  for (const Entry& entry : AllEntries()) {
    dialogs.push_back({entry.name, [run = entry.run] { return run(nullptr); }});
  }
  dialogs.push_back({"CelSize", RunCelSize});
  dialogs.push_back({"RuledLines", RunRuledLines});
  dialogs.push_back({"DataField", RunDataField});
  dialogs.push_back({"ListEditor", RunListEditor});
  return dialogs;
}

}  // namespace

const std::vector<AnyDialogOfOurs>& AllDialogs() {
  static const std::vector<AnyDialogOfOurs> dialogs = MakeList();
  return dialogs;
}

}  // namespace quorvel::test
