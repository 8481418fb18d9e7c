// CLayoutListEditDlg: edits one block of an extended page, as large as it goes.
//
//   CLayoutListEditDlg dialog(env, this, &page, fields, names, numbers, dotsPerMm, block, nullptr,
//                             nullptr);
//   dialog.DoModal();   // the page has been changed, whatever the result
#pragma once

#include "dialogs/layout/block_edit_dlg.h"

class CLayoutExEditDlg;

/// Works on the caller's page at once: there is no way back.
class CLayoutListEditDlg : public CBlockEditDlg {
public:
  /// All pointers but `page` may be null, and all stay the caller's: `fields` are the names of data
  /// fields; `names` can be inserted as tags, with `numbers` if there are as many. `caller` is the
  /// editor that opens this one; nothing is asked of it.
  CLayoutListEditDlg(CKivSysEnv* env, CLayoutExEditDlg* caller, CLayoutExPageData* page,
                     const CStringArray* fields, const CStringArray* names,
                     const CDWordArray* numbers, double dotsPerMm,
                     CLayoutExPageData::LISTTYPE block, CPoint* position, CWnd* parent);

protected:
  void DoDataExchange(CDataExchange* pDX) override;
  BOOL OnInitDialog() override;
  void OnOK() override;
  void OnCancel() override;
  CPageView* ViewAt(const CPoint& point) override;
  void LayOutViews() override;
  void ReadSettings() override;
  void WriteSettings() override;
  CLayoutExPageData::LISTTYPE CurrentBlock() const override { return m_blockType; }
  void OnPageChanged() override;
  CWnd* OwnerOfDialogs() override { return nullptr; }

  void OnRealText();

  DECLARE_MESSAGE_MAP()

private:
  CLayoutExPageData::LISTTYPE m_blockType;
  quorvel::ExtendedBlock m_block;
  CPageView m_view{m_block, quorvel::kListEditor.celStyle};
  int m_nRealText = 1;  ///< letters are as high as they are, not all alike
};
