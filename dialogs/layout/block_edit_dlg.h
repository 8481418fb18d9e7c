// CBlockEditDlg: what the editors of an extended page have in common: a line for the text of a cell,
// rows and columns that come and go, ruled lines, data fields, exact lengths.
#pragma once

#include "dialogs/layout/page_edit_dlg.h"

/// The text line shows the text of a cell that was clicked; what is typed into it goes to all
/// selected cells at once.
class CBlockEditDlg : public CPageEditDlg {
protected:
  /// `fields` are the names of the host's data fields and may be null; all pointers stay the
  /// caller's. `page` is the one that is edited.
  CBlockEditDlg(UINT templateId, const quorvel::EditorSettings& settings, const PageEditHost& host,
                const CStringArray* fields, CLayoutExPageData& page, CWnd* parent);

  void DoDataExchange(CDataExchange* pDX) override;
  /// The tools stand above the text line.
  BOOL OnInitDialog() override;

  /// The block that commands act on; asked for only while there is a current view.
  virtual CLayoutExPageData::LISTTYPE CurrentBlock() const = 0;
  /// The page's rows, columns or lengths have been changed by a command.
  virtual void OnPageChanged() = 0;
  /// The owner of the dialogs that a command opens; null for the active window.
  virtual CWnd* OwnerOfDialogs() { return this; }

  void OnSelected(int clicked) override;
  bool OnRightDuringDrag() override;
  bool AskLengths(const quorvel::BorderDrag& border) override;
  void OnTextGiven() override;
  void OnInserted() override;
  void EndTyping() override;
  bool IsCommandPossible(UINT command) const override;
  bool IsOffered(UINT command) const override;

  /// Deselects the cells of the current view and empties the text line.
  void DeselectCels();
  /// The first OK after typing takes what was typed, and no more; true when it was that one.
  bool TakeTyped();
  bool HasFields() const;
  CLayoutExPageData& Page() { return m_page; }
  const CStringArray* Fields() const { return m_pFields; }

  void OnLineChanged();
  void OnLineLeft();
  void OnTextEditChanged();
  void OnInsertColumn();
  void OnDeleteColumn();
  void OnEqualColumns();
  void OnInsertRow();
  void OnDeleteRow();
  void OnEqualRows();
  void OnEditLines();
  void OnField();

  DECLARE_MESSAGE_MAP()

private:
  struct Place {
    int row;
    int col;
  };
  /// Of the first selected cell.
  std::optional<Place> SelectedPlace() const;
  bool MayDelete(const char* question) const;
  bool StoreLine();
  void ShowInLine(const CString& text);

  const CStringArray* m_pFields;
  CLayoutExPageData& m_page;
  CEdit m_editLine;
  /// Something was typed into the text line since the last OK or since the line was left.
  bool m_bTyped = false;
};
