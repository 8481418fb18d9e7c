#include "bench/benchmarks.h"
#include "bench/opening.h"
#include "res/ids.h"

#include <quorvel/quorvel.h>

#include <array>
#include <functional>
#include <string>

namespace quorvel::bench {

namespace {

void OpenText() {
  CString text("初期値");
  __InputTextDlg("題名", "説明", &text, nullptr);
}

void OpenScale() {
  double scale = 100.0;
  __InputScaleDlg("題名", "説明", &scale, nullptr);
}

void OpenDpi() {
  int dpi = 300;
  __InputDpiDlg(&dpi, nullptr);
}

void OpenPointXY() {
  std::array point{100.0, 200.0};
  __InputPointXYDlg(point.data(), FALSE, nullptr);
}

void OpenPointXYZ() {
  std::array point{100.0, 200.0, 300.0};
  __InputPointXYZDlg(point.data(), TRUE, nullptr);
}

void OpenUserPaper() {
  CString name;
  int width = 420;
  int height = 297;
  int clearAll = 0;
  __UserPaperSetDlg(nullptr, &name, &width, &height, &clearAll, nullptr);
}

void OpenCheckList() {
  const CString title("一覧");
  CArray<CString, CString&> items;
  CByteArray states;
  for (const char* name : {"外形線", "寸法線", "中心線", "かくれ線", "想像線"}) {
    CString item(name);
    items.Add(item);
    states.Add(1);
  }
  __CheckListDlg(&title, &items, &states);
}

struct Dialog {
  const char* name;
  UINT templateId;
  void (*open)();
};

constexpr std::array kDialogs{Dialog{"__InputTextDlg", IDD_INPUT_TEXT, OpenText},
                              Dialog{"__InputScaleDlg", IDD_INPUT_SCALE, OpenScale},
                              Dialog{"__InputDpiDlg", IDD_INPUT_DPI, OpenDpi},
                              Dialog{"__InputPointXYDlg", IDD_INPUT_POINT, OpenPointXY},
                              Dialog{"__InputPointXYZDlg", IDD_INPUT_POINT, OpenPointXYZ},
                              Dialog{"__UserPaperSetDlg", IDD_USER_PAPER, OpenUserPaper},
                              Dialog{"__CheckListDlg", IDD_CHECK_LIST, OpenCheckList}};

}  // namespace

std::vector<Row> InputDialogs(int runs) {
  std::vector<Row> rows;
  for (const Dialog& dialog : kDialogs) {
    const std::vector<Row> both = CompareOpening(dialog.name, dialog.templateId, runs, dialog.open);
    rows.insert(rows.end(), both.begin(), both.end());
  }
  return rows;
}

}  // namespace quorvel::bench
