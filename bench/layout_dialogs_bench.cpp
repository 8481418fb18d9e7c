// The dialogs that the layout editors open: opening against their bare templates, the field editor
// with 10,000 names against filling two bare lists with them.
#include "bench/benchmarks.h"
#include "bench/opening.h"
#include "bench/timing.h"
#include "dialogs/layout/layout_cel_size_edit_dlg.h"
#include "dialogs/layout/layout_field_edit_dlg.h"
#include "dialogs/layout/layout_frame_edit_dlg.h"
#include "driver/dialog_owner.h"
#include "driver/product_state.h"
#include "framework/code_page.h"

#include <array>
#include <stdexcept>
#include <string>

namespace quorvel::bench {

namespace {

constexpr int kManyNames = 10'000;
constexpr LPARAM kBytesOfNames = 200'000;

void OpenFrame() {
  constexpr double kDotsPerMm = 11.811;
  constexpr auto kBlock = CLayoutExPageData::LISTTYPE_LIST;
  CLayoutExPageData page;
  page.DividePage(kBlock, 2, 2, kDotsPerMm);
  for (int index = 0; index < page.GetCelSize(kBlock); ++index) {
    page.GetCelAt(kBlock, index)->SetSelected(1);
  }
  CLayoutFrameEditDlg dialog(nullptr, &page, kBlock, nullptr);
  driver::RunWithProductResources(dialog);
}

CStringArray Names(int count) {
  CStringArray names;
  for (int i = 0; i < count; ++i) {
    names.Add(("項目" + std::to_string(i)).c_str());
  }
  return names;
}

void OpenField(const CStringArray& names) {
  CLayoutFieldEditDlg dialog(&names, "", nullptr);
  driver::RunWithProductResources(dialog);
}

void OpenFewFields() {
  static const CStringArray names = Names(6);
  OpenField(names);
}

void OpenCelSize() {
  float first = 10.0F;
  float second = 5.0F;
  CLayoutCelSizeEditDlg dialog(&first, &second);
  driver::RunWithProductResources(dialog);
}

struct Dialog {
  const char* name;
  UINT templateId;
  void (*open)();
};

constexpr std::array kDialogs{Dialog{"CLayoutFrameEditDlg", IDD_LAYOUT_FRAME, OpenFrame},
                              Dialog{"CLayoutFieldEditDlg", IDD_LAYOUT_FIELD, OpenFewFields},
                              Dialog{"CLayoutCelSizeEditDlg", IDD_LAYOUT_CEL_SIZE, OpenCelSize}};

/// Opens the bare template and fills both of its lists, text after text, as its WM_INITDIALOG
/// would.
class BareFilledDialog {
public:
  explicit BareFilledDialog(const CStringArray& names)
      : m_names(names), m_context(::GetModuleHandleW(L"Quorvel.dll")) {}

  void Run(HWND owner) const {
    m_context.Run([&] {
      ::DialogBoxParamW(::GetModuleHandleW(L"Quorvel.dll"), MAKEINTRESOURCEW(IDD_LAYOUT_FIELD),
                        owner, OnMessage, reinterpret_cast<LPARAM>(this));
    });
  }

private:
  static INT_PTR CALLBACK OnMessage(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
      const auto& self = *reinterpret_cast<const BareFilledDialog*>(lParam);
      for (const int id : {IDC_FIELD_FIRST, IDC_FIELD_SECOND}) {
        ::SendDlgItemMessageW(dialog, id, WM_SETREDRAW, FALSE, 0);
        ::SendDlgItemMessageW(dialog, id, CB_INITSTORAGE,
                              static_cast<WPARAM>(self.m_names.GetSize()), kBytesOfNames);
        for (INT_PTR i = 0; i < self.m_names.GetSize(); ++i) {
          const std::wstring name = WideFromCodePage(self.m_names.GetAt(i).View());
          ::SendDlgItemMessageW(dialog, id, CB_ADDSTRING, 0,
                                reinterpret_cast<LPARAM>(name.c_str()));
        }
        ::SendDlgItemMessageW(dialog, id, WM_SETREDRAW, TRUE, 0);
      }
      return TRUE;
    }
    if (message == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)) {
      ::EndDialog(dialog, LOWORD(wParam));
    }
    return FALSE;
  }

  const CStringArray& m_names;
  driver::ModuleContext m_context;
};

}  // namespace

std::vector<Row> LayoutDialogs(int runs) {
  constexpr double kMostTimesFilling = 1.2;
  constexpr int kRunsOfManyNames = 4;  // one for so many of the others
  std::vector<Row> rows;
  for (const Dialog& dialog : kDialogs) {
    const std::vector<Row> both = CompareOpening(dialog.name, dialog.templateId, runs, dialog.open);
    rows.insert(rows.end(), both.begin(), both.end());
  }
  const CStringArray names = Names(kManyNames);
  const BareFilledDialog bare(names);
  const std::vector<Row> filled = CompareOpening(
      "CLayoutFieldEditDlg with 10,000 fields", "its template, filled", kMostTimesFilling,
      runs / kRunsOfManyNames, [&names] { OpenField(names); },
      [&bare](HWND owner) { bare.Run(owner); });
  rows.insert(rows.end(), filled.begin(), filled.end());
  return rows;
}

}  // namespace quorvel::bench
