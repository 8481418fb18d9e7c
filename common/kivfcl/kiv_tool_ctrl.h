// CKivToolCtrl: a tool bar of commands.
//
//   constexpr std::array kItems{TOOLITEM{31000, 0, FALSE}, TOOLITEM{0, 0, TRUE},
//                               TOOLITEM{31002, 1, FALSE}};
//   m_tool.CreateToolCtrl(this, kStyle, kItems.data(), 3, IDB_CELL_TOOLS, 11, {10, 20}, 0, TRUE);
//   m_tool.EnableButton(31000, TRUE);
//
//   ON_COMMAND(31000, &CLayoutEditDlg::OnEditText)
//   ON_NOTIFY_RANGE(TTN_GETDISPINFOW, 31000, 31018, &CLayoutEditDlg::OnToolTipText)
#pragma once

#include "framework/wnd.h"
#include "kivfcl/kivfcl_export.h"

#include <memory>

/// A button, or a gap between buttons.
struct TOOLITEM {
  UINT nCommand;  ///< sent to the parent by WM_COMMAND
  int nImage;     ///< counted from 0
  BOOL bSeparator;
};

class KIVFCL_API CKivToolCtrl : public CWnd {
public:
  CKivToolCtrl() = default;
  ~CKivToolCtrl() override;
  CKivToolCtrl(const CKivToolCtrl&) = delete;
  CKivToolCtrl& operator=(const CKivToolCtrl&) = delete;

  /// `style` is a window style with TBSTYLE_* and CCS_*; WS_CHILD is added. The bitmap `bitmapId` of
  /// the module in force holds `imageCount` pictures of one width side by side, clear where they are
  /// light grey, 0xC0C0C0. `position` is in `parent`'s client pixels; the bar is as large as its
  /// buttons. With `disabled` all of them begin disabled. FALSE, without a window, when it cannot be
  /// created or the bitmap is missing, and when the object has a window already.
  BOOL CreateToolCtrl(CWnd* parent, DWORD style, const TOOLITEM* items, int count, UINT bitmapId,
                      int imageCount, const CPoint& position, UINT id, BOOL disabled);

  void EnableButton(UINT command, BOOL enable);
  BOOL IsButtonEnabled(UINT command) const;

  /// Answers the bar's TTN_GETDISPINFOW, which comes to the parent: the text under the pointer is the
  /// command's in the string table of the module in force.
  static void AnswerToolTip(const NMHDR& notification);

  struct ImageListDeleter {
    void operator()(void* list) const;
  };

protected:
  void PostNcDestroy() override;

private:
  using ImageList = std::unique_ptr<void, ImageListDeleter>;

  bool LoadImages(UINT bitmapId, int imageCount);
  static ImageList ListOf(HBITMAP pictures, const CSize& size);
  void AddButtons(const TOOLITEM* items, int count, BOOL disabled);
  void FitToButtons(const CPoint& position);

  ImageList m_images;          ///< the bar uses them and does not own them
  ImageList m_disabledImages;  ///< none where the bar makes its own out of the others
};
