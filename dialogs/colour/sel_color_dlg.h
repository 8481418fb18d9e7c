// CSelColorDlg: a colour out of the palette, by its components, or out of a field: three pages.
//
//   CSelColorDlg dialog(env, color, position, nullptr);
//   if (dialog.DoModal() == IDOK) color = dialog.m_color;
#pragma once

#include "dialogs/colour/edit_color.h"
#include "dialogs/colour/edit_sel_color.h"
#include "dialogs/colour/sel_color_list.h"
#include "framework/controls.h"
#include "kivfcl/kiv_dialog.h"

#include <memory>

/// Any page may send this to the dialog, which closes with OK. The dialog manager has the number for
/// a message of its own, which nothing sends here.
inline constexpr UINT kCloseWithOk = WM_USER + 1;

/// The palette is stored when the dialog closes with OK. Ctrl+Tab and Ctrl+Shift+Tab lead from page
/// to page.
class CSelColorDlg : public CKivDialog {
public:
  /// `env` and `position` may be null and stay the caller's.
  CSelColorDlg(CKivSysEnv* env, COLORREF color, CPoint* position, CWnd* parent);

  CKivSysEnv* m_pSysEnv;
  CPoint* m_pPosition;
  /// The colour given, and the result after IDOK.
  COLORREF m_color;

  BOOL PreTranslateMessage(MSG* message) override;

protected:
  BOOL OnInitDialog() override;
  void OnOK() override;
  void DoDataExchange(CDataExchange* pDX) override;
  void OnTabChanged(const NMHDR& notification);
  LRESULT OnCloseWithOk(WPARAM wParam, LPARAM lParam);

  DECLARE_MESSAGE_MAP()

private:
  enum Page : int { kListPage, kEditPage, kSelectPage, kPageCount };

  bool CreatePages();
  CDialog& PageAt(int page) const;
  COLORREF ColorOfShownPage();
  void ShowPage(int page);
  /// As if the user had clicked the tab.
  void SelectPage(int page);

  int m_nPage = kListPage;
  CTabCtrl m_tab;
  std::unique_ptr<CSelColorList> m_pListPage;
  std::unique_ptr<CEditColor> m_pEditPage;
  std::unique_ptr<CEditSelColor> m_pSelectPage;
};
