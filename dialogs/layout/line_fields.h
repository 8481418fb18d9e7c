// CLineFields: the controls of one kind of line of a page: on or off, type, colour, width. CPageLines:
// those of its outer line and its inner lines.
//
//   m_lines.Read(page);      // before the dialog opens
//   m_lines.Exchange(pDX);   // in DoDataExchange
//   m_lines.Init(this);      // in OnInitDialog
//   m_lines.Store(page);     // when it is confirmed
#pragma once

#include "framework/controls.h"
#include "framework/data_exchange.h"
#include "kivdata/pen_status.h"
#include "kivdata/sys_env.h"
#include "kivfcl/kiv_color_button.h"
#include "res/ids.h"

class CLineFields {
public:
  /// Five controls have identifiers one after the other: check box, type, colour, width and its unit.
  explicit CLineFields(int firstId) : m_nFirstId(firstId) { m_btnColor.m_color = m_status.color; }

  void Read(int on, const PEN_STATUS& status);
  int IsOn() const { return m_nOn; }
  PEN_STATUS Status() const { return m_status; }

  void Exchange(CDataExchange* pDX);
  /// Fills the list of types and shows colour, type, and what can be changed.
  void Init(CWnd* dialog);
  void Hide(CWnd* dialog) const;
  /// Type, colour and width can be changed while the line is on.
  void EnableByCheck(const CWnd* dialog) const;
  /// Asks the user; `env`, which may be null, keeps the made colours.
  void PickColor(CKivSysEnv* env, CWnd* dialog);

private:
  int m_nFirstId;
  int m_nOn = 0;
  PEN_STATUS m_status;
  CComboBox m_cmbType;
  CKivColorButton m_btnColor;
};

/// `env`, which may be null, keeps the made colours; a page is one of either kind.
class CPageLines {
public:
  template <class Page>
  void Read(const Page& page) {
    m_outer.Read(page.GetByEdgeOutLine(), page.GetOutLineStatus());
    m_inner.Read(page.GetByEdgeInLine(), page.GetInLineStatus());
  }
  template <class Page>
  void Store(Page& page) const {
    const PEN_STATUS outer = m_outer.Status();
    const PEN_STATUS inner = m_inner.Status();
    page.SetByEdgeOutLine(m_outer.IsOn());
    page.SetByEdgeInLine(m_inner.IsOn());
    page.SetOutLineStatus(&outer);
    page.SetInLineStatus(&inner);
  }
  void Exchange(CDataExchange* pDX);
  void Init(CWnd* dialog);
  /// For a screen reader; once, in OnInitDialog.
  static void Name(const CWnd* dialog);
  void Hide(CWnd* dialog) const;
  void EnableByCheck(const CWnd* dialog) const;
  /// Of the line that has the button.
  void PickColor(UINT buttonId, CKivSysEnv* env, CWnd* dialog);

private:
  CLineFields m_outer{IDC_OUTER_LINE};
  CLineFields m_inner{IDC_INNER_LINE};
};
