// CSelRGB: picks a colour by hue, saturation and brightness, or by red, green and blue.
//
//   CSelRGB dialog(color, nullptr);
//   if (dialog.DoModal() == IDOK) color = dialog.m_color;
#pragma once

#include "dialogs/colour/picker_rules.h"
#include "framework/device_context.h"
#include "framework/dialog.h"
#include "res/ids.h"

#include <optional>

/// The field, the bar, the swatch, the spinners and the bars always show one colour, that of the
/// red, green and blue bars; picker_rules tells how each of them changes the others. In the number
/// fields the arrows up and down step the value.
class CSelRGB : public CDialog {
public:
  CSelRGB(COLORREF color, CWnd* parent);

  /// The colour given, and the result after IDOK.
  COLORREF m_color;

  BOOL PreTranslateMessage(MSG* message) override;

protected:
  BOOL OnInitDialog() override;
  void OnOK() override;
  void OnLButtonDown(UINT keys, CPoint point);
  void OnLButtonUp(UINT keys, CPoint point);
  void OnMouseMove(UINT keys, CPoint point);
  LRESULT OnCaptureChanged(WPARAM wParam, LPARAM lParam);
  void OnHScroll(UINT code, int position, HWND bar);
  void OnVScroll(UINT code, int position, HWND bar);
  LRESULT OnDrawItem(WPARAM wParam, LPARAM lParam);
  LRESULT OnQueryDragIcon(WPARAM wParam, LPARAM lParam);
  void OnEditUpdate(UINT id);
  void OnEditLeft(UINT id);

  DECLARE_MESSAGE_MAP()

private:
  class Changing;

  static constexpr quorvel::RgbColour kFirstColour{128, 128, 128};
  static constexpr quorvel::PickerValues kFirstValues{170, 0, 128};

  /// What the fields were set to last.
  struct LastValues {
    quorvel::RgbColour colour = kFirstColour;
    quorvel::PickerValues picker = kFirstValues;
  };

  /// The last value of a field.
  int& LastOf(int editId);
  /// What a field shows; its last value where it is empty.
  int ShownIn(int editId);
  int PositionOf(int barId) const;
  quorvel::RgbColour ColourOfBars() const;
  CSize FieldSize() const;
  CPoint FieldCorner() const;

  void ShowNumber(int editId, int value);
  void ShowChannels(const quorvel::RgbColour& colour);
  void ShowHue(int hue);
  void ShowSaturation(int saturation);
  void ShowBrightness(int brightness);
  /// For a screen reader.
  void NameFields() const;
  void Repaint(int controlId) const;
  void RepaintAll() const;

  void ApplyPoint(const CPoint& point);
  void ApplyHue(int hue);
  void ApplySaturation(int saturation);
  void ApplyBrightness(int brightness);
  void ApplyColour(const quorvel::RgbColour& colour);
  void ApplyEdit(int editId, int value);

  void DrawField(HDC deviceContext, const CRect& rect) const;
  void DrawBar(HDC deviceContext, const CRect& rect);

  quorvel::OwnedBitmap m_bmpField;
  CPoint m_ptMarker;
  bool m_bDragging = false;
  LastValues m_last;
  /// While false, what the fields tell of their changes is not heard.
  bool m_bSyncEnabled = false;
};
