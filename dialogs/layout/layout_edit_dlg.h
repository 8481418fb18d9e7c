// CLayoutEditDlg: edits a page that is one grid of cells.
//
//   CLayoutEditDlg dialog(env, &page, insertions, numbers, dotsPerMm, lineMode, position, nullptr);
//   if (dialog.DoModal() == IDOK) { /* page is what the user made of it */ }
#pragma once

#include "dialogs/layout/line_fields.h"
#include "dialogs/layout/page_edit_dlg.h"

/// Works on a copy of the page, which OK assigns to the caller's.
class CLayoutEditDlg : public CPageEditDlg {
public:
  /// All but `page` may be null, and all stay the caller's. `insertions` are names that the user can
  /// insert as tags; `numbers` theirs, which count if there are as many. `lineMode` selects outer and
  /// inner lines instead of margin and frame; the user cannot open and save files then.
  CLayoutEditDlg(CKivSysEnv* env, CLayoutPageData* page, const CStringArray* insertions,
                 const CDWordArray* numbers, double dotsPerMm, int lineMode, CPoint* position,
                 CWnd* parent);

protected:
  void DoDataExchange(CDataExchange* pDX) override;
  BOOL OnInitDialog() override;
  void OnOK() override;
  void OnCancel() override;
  CPageView* ViewAt(const CPoint& point) override;
  void LayOutViews() override;
  void OnFieldsRead() override { m_lines.EnableByCheck(this); }
  bool OpenPage(const std::wstring& path) override;
  bool PrepareToSave() override { return ReadFields(); }
  void SavePage(const std::wstring& path) override { m_page.SaveFileW(path.c_str()); }

  void OnCountLeft();
  void OnHeightLeft();
  void OnWidthLeft();
  void OnEqualRows();
  void OnEqualColumns();
  void OnLineColor(UINT buttonId);
  DECLARE_MESSAGE_MAP()

private:
  void ReadPage();
  void ReadSizes();
  void ApplyCounts();
  void ApplyHeight(bool equal);
  void ApplyWidth(bool equal);

  CLayoutPageData* m_pCallersPage;
  CLayoutPageData m_page;
  quorvel::SheetBlock m_block{m_page};
  CPageView m_view{m_block, quorvel::kGridEditor.celStyle};
  bool m_bLineMode;

  int m_nRows = 1;
  int m_nColumns = 1;
  double m_fHeight = 0.0;  ///< of all rows, millimetres
  double m_fWidth = 0.0;   ///< of all columns
  float m_fMargin = 0.0F;
  int m_nShowFrame = 1;
  CPageLines m_lines;
};
