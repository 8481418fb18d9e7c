// CFramePreview: the picture of the lines in the ruled-line editor.
//
//   CFramePreview m_preview{m_lines};
//   m_preview.SubclassDlgItem(IDC_FRAME_PREVIEW, this);
#pragma once

#include "dialogs/layout/frame_lines.h"
#include "framework/controls.h"

/// Shows lines that it does not own, whenever it is painted.
class CFramePreview : public CStatic {
public:
  explicit CFramePreview(const quorvel::FrameLines& lines) : m_lines(lines) {}

  /// What is drawn: the control's client area and two pixels around it.
  CRect Area() const;
  /// Draws at once, without waiting for WM_PAINT.
  void Draw() const;

protected:
  /// A control of its kind keeps no text: this one names itself to a screen reader.
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  void OnPaint();

  DECLARE_MESSAGE_MAP()

private:
  const quorvel::FrameLines& m_lines;
};
