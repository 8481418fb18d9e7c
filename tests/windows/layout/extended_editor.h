// The editors of an extended page as their tests work them.
#pragma once

#include "framework/geometry.h"
#include "support/work.h"

#include <quorvel/quorvel.h>

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace quorvel::test {

namespace extended_editor {

inline constexpr double kDotsPerMm = 11.811;
inline constexpr auto kHeader = CLayoutExPageData::LISTTYPE_HEADER;
inline constexpr auto kList = CLayoutExPageData::LISTTYPE_LIST;
inline constexpr auto kFooter = CLayoutExPageData::LISTTYPE_FOOTER;
inline constexpr std::array kBlocks{kHeader, kList, kFooter};
inline constexpr std::array kImages{4031, 4033, 4035};
inline constexpr int kTextEdit = 200;
inline constexpr int kTextLine = 4044;

}  // namespace extended_editor

/// What a call of the entry is given; the page is what it left.
struct ExtendedEditor {
  CLayoutExPageData page;
  CKivSysEnv* env = nullptr;
  CStringArray fields;
  bool hasFields = false;
  CStringArray names;
  CDWordArray numbers;
  bool hasNumbers = false;
  CPoint* position = nullptr;

  /// 4 columns of 40 mm; header and footer of 10 mm with 1 and 2 rows, a list of 50 mm with 3.
  ExtendedEditor() {
    using namespace extended_editor;
    page.DividePage(kHeader, 1, 4, kDotsPerMm);
    page.DividePage(kList, 3, 4, kDotsPerMm);
    page.DividePage(kFooter, 2, 4, kDotsPerMm);
    page.SetAllLengthCol(160.0F, 1);
    page.SetAllLengthRow(kHeader, 10.0F, 1);
    page.SetAllLengthRow(kList, 50.0F, 1);
    page.SetAllLengthRow(kFooter, 10.0F, 1);
  }

  CLayoutCelData& Cel(CLayoutExPageData::LISTTYPE block, int index) {
    return *page.GetCelAt(block, index);
  }
  std::string TextOf(CLayoutExPageData::LISTTYPE block, int index) {
    return Cel(block, index).GetText().GetString();
  }

  BOOL Run() {
    return __LayoutExEditDlg(env, &page, hasFields ? &fields : nullptr,
                             names.GetSize() > 0 ? &names : nullptr,
                             hasNumbers ? &numbers : nullptr, extended_editor::kDotsPerMm, position);
  }
  BOOL Run(ModalScript& script) {
    return Work(script, [&] { return Run(); });
  }
  /// One step; what it sends is handled before it returns.
  BOOL Run(ModalScript::Action action) {
    return WorkDialog([&] { return Run(); }, std::move(action));
  }
};

}  // namespace quorvel::test
