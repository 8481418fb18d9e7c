// CLayoutFrameEditDlg: which ruled lines are shown around and between the selected cells of one
// block of an extended page.
//
//   CLayoutFrameEditDlg dialog(env, &page, CLayoutExPageData::LISTTYPE_LIST, position, this);
//   dialog.DoModal();   // after IDOK the page has been changed
#pragma once

#include "dialogs/layout/frame_lines.h"
#include "dialogs/layout/frame_preview.h"
#include "dialogs/layout/line_button.h"
#include "framework/device_context.h"
#include "kivdata/sys_env.h"
#include "kivfcl/kiv_color_button.h"
#include "kivfcl/kiv_dialog.h"
#include "res/ids.h"

#include <array>

/// The six lines are switched one by one or by presets; a preview shows them. OK writes all six to
/// the page by one call. The hidden list of styles and colour button work, but nothing reads them.
class CLayoutFrameEditDlg : public CKivDialog {
public:
  /// `env` and `position` may be null; they and `page` stay the caller's.
  CLayoutFrameEditDlg(CKivSysEnv* env, CLayoutExPageData* page,
                      CLayoutExPageData::LISTTYPE block, CPoint* position,
                      CWnd* parent = nullptr);

protected:
  void DoDataExchange(CDataExchange* pDX) override;
  BOOL OnInitDialog() override;
  void OnOK() override;
  void OnPaint();
  void OnNone();
  void OnOuter();
  void OnInner();
  void OnLine(UINT id);
  void OnColour();

  DECLARE_MESSAGE_MAP()

private:
  static constexpr std::size_t kPresetCount = 3;
  static constexpr std::size_t kLineButtonCount = 6;

  void LoadPictures();
  void FillStyles();
  /// What follows a change of the lines.
  void ShowLines();

  quorvel::FrameLines m_lines;
  COLORREF m_colorLine = RGB(0, 0, 0);
  CKivSysEnv* m_pSysEnv;
  CLayoutExPageData* m_pPage;
  CLayoutExPageData::LISTTYPE m_block;
  CPoint* m_pPosition;

  // The pictures outlive the buttons that show them.
  std::array<quorvel::OwnedBitmap, kPresetCount> m_bmpPresets;
  std::array<quorvel::OwnedBitmap, kLineButtonCount> m_bmpLines;
  CListBox m_listStyle;
  CKivColorButton m_btnColor;
  std::array<CButtonCaption, kPresetCount> m_captions;
  std::array<CButton, kPresetCount> m_btnPresets;
  std::array<CLineButton, kLineButtonCount> m_btnLines{
      CLineButton{"上の罫線"}, CLineButton{"内側の横罫線"}, CLineButton{"下の罫線"},
      CLineButton{"左の罫線"}, CLineButton{"内側の縦罫線"}, CLineButton{"右の罫線"}};
  CFramePreview m_preview{m_lines};
  RECT m_rcPreview{};
};
