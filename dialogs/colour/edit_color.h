// CEditColor: the page that edits a colour in RGB, CMYK or HSB, with a slider and a number field for
// each component.
#pragma once

#include "dialogs/colour/color_components.h"
#include "dialogs/colour/edit_color_layout.h"
#include "framework/device_context.h"
#include "framework/dialog.h"
#include "kivdata/sys_env.h"
#include "kivfcl/kiv_slider_ctrl.h"
#include "res/ids.h"

#include <array>

/// A page: made with Create(IDD_COLOUR_EDIT_PAGE, parent).
class CEditColor : public CDialog {
public:
  /// `env`, which gives the controls' font, may be null: they have the page's font then.
  CEditColor(CKivSysEnv* env, COLORREF color, CWnd* parent);

  CKivSysEnv* m_pSysEnv;
  /// The colour being edited: the page's result.
  COLORREF m_color;

  /// Shows another colour, in the same model.
  void SetColor(COLORREF color);
  COLORREF GetColor() const { return m_color; }

  /// Takes what is typed in the field that has the focus, as if the focus had left it.
  void TakeTyped();

  /// The control that the page's keys begin at.
  HWND GetModelWindow() const { return m_cmbModel.m_hWnd; }

  /// So tall must the page be to show all rows.
  int GetNeededHeight() const;

protected:
  BOOL OnInitDialog() override;
  void OnPaint();
  void OnModelSelected();
  void OnSlider(const NMHDR& notification);
  void OnEditLeft(UINT id);

  DECLARE_MESSAGE_MAP()

private:
  struct Row {
    CWnd label;
    CKivSliderCtrl slider;
    CEdit edit;
  };

  static int IdOfSlider(int row) { return IDC_COLOUR_SLIDER_FIRST + row; }
  static int IdOfEdit(int row) { return IDC_COLOUR_VALUE_FIRST + row; }
  Row& RowAt(int row) { return m_rows[static_cast<std::size_t>(row)]; }

  void CreateControls();
  void CreateRow(int row, const quorvel::ColorComponentRow& place);
  void SetControlFont(const CWnd& control) const;
  /// Shows `m_color` in a model.
  void EnterModel(quorvel::ColorModel model);
  void ApplyComponent(int row, int value);
  void ShowComponents();

  /// Its model, as a number, is the selected entry of the drop-down list.
  quorvel::EditedColor m_edited;
  quorvel::OwnedFont m_font;
  quorvel::EditColorLayout m_layout;
  CComboBox m_cmbModel;
  std::array<Row, quorvel::kMostComponents> m_rows;
};
