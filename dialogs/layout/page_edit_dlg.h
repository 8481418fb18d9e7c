// CPageEditDlg: what the layout editors have in common: everything that mouse, keyboard, tool bar and
// menu do to the cells of a page's picture.
//
//   class CLayoutEditDlg : public CPageEditDlg { ... };   // says where the pages are shown
#pragma once

#include "dialogs/layout/editor_settings.h"
#include "dialogs/layout/page_view.h"
#include "dialogs/layout/tool_tip.h"
#include "framework/device_context.h"
#include "kivdata/kiv_registry.h"
#include "kivdata/sys_env.h"
#include "kivfcl/kiv_color_button.h"
#include "kivfcl/kiv_dialog.h"
#include "kivfcl/kiv_key_ctrl_edit.h"
#include "kivfcl/kiv_tool_ctrl.h"

#include <memory>
#include <optional>
#include <string>

/// The field that is made when a text is edited in its cell.
inline constexpr UINT kCelTextEditId = 200;

/// What a caller gives to each layout editor. All of it stays the caller's, and all pointers may be
/// null.
struct PageEditHost {
  CKivSysEnv* env = nullptr;
  const CStringArray* insertions = nullptr;  ///< names that can be inserted as tags
  const CDWordArray* numbers = nullptr;      ///< of the names; counts if there are as many
  double dotsPerMm = 0.0;                    ///< of the page's fonts
  CPoint* position = nullptr;                ///< of the dialog, screen pixels
};

/// The commands act on the selected cells of the current view. F2 edits the text of the first of
/// them, the menu key opens their menu, and Ctrl with an arrow key selects the next cell, wherever
/// the key has no other meaning: in a field only up and down. After F8 those keys select the rectangle
/// between the cell and the one that they lead to, until F8 again, or until cells are selected
/// otherwise. With Shift they move the border right of the first selected cell or below it by a
/// millimetre; Shift and Ctrl with F2 ask for the lengths at the one or the other. Ctrl+O and
/// Ctrl+S are the tool bar's commands for files. The template has the colour buttons and the list
/// of insertions.
class CPageEditDlg : public CKivDialog {
public:
  BOOL PreTranslateMessage(MSG* message) override;

protected:
  CPageEditDlg(UINT templateId, const quorvel::EditorSettings& settings, const PageEditHost& host,
               CWnd* parent);

  void DoDataExchange(CDataExchange* pDX) override;
  /// What all editors have is ready afterwards, but for the tool bars, which stand beside a view.
  BOOL OnInitDialog() override;

  /// The view that the mouse works on at a point in client pixels; null for none.
  virtual CPageView* ViewAt(const CPoint& point) = 0;
  /// Lengths have changed: all views fit their pages anew.
  virtual void LayOutViews() = 0;

  // What an editor may do otherwise.

  /// The left button has been pressed on a view, which becomes the current one.
  virtual void TakeView(CPageView& view) { SetCurrentView(&view); }
  /// The view that lies above (-1) or below (1) the current one for keys that leave it at an edge; with
  /// no current one the first of all. Null for none.
  virtual CPageView* ViewBeyond(int /*down*/) { return nullptr; }
  /// A selection has been made with the mouse; `clicked` is the cell, -1 after a drag over several.
  virtual void OnSelected(int /*clicked*/) {}
  /// True when the button's release must not end what the double click has opened.
  virtual bool OnDoubleClicked(CPageView* view, const CPoint& point);
  /// The right button was released while a border is dragged: true when that was all.
  virtual bool OnRightDuringDrag() { return false; }
  /// The selected cells have got a text that was not typed, or others are selected.
  virtual void OnTextGiven() {}
  /// Asks for the two lengths at a border; false where the editor does not ask.
  virtual bool AskLengths(const quorvel::BorderDrag& /*border*/) { return false; }
  /// Ctrl and Enter: what a double click on a block opens. False where that is nothing of its own.
  virtual bool OpenCurrentBlock() { return false; }
  /// A tag has been inserted.
  virtual void OnInserted() {}
  /// All fields have been read, none was refused: what their switches enable is enabled.
  virtual void OnFieldsRead() {}
  /// What is being typed goes to the selected cells.
  virtual void EndTyping() { EndTextEdit(); }
  virtual bool IsCommandPossible(UINT command) const;
  /// Whether the menu of a cell offers a command.
  virtual bool IsOffered(UINT command) const { return IsCommandPossible(command); }
  /// For editors whose settings name a kind of files. Loads a page; false, and nothing changed, where
  /// it cannot.
  virtual bool OpenPage(const std::wstring& /*path*/) { return false; }
  /// Before the user is asked for a file; false, and it is not saved, where a field is refused.
  virtual bool PrepareToSave() { return false; }
  virtual void SavePage(const std::wstring& /*path*/) {}
  virtual void ReadSettings();
  virtual void WriteSettings();

  // What they all do.

  /// Makes a view the one that commands act on; null for none, which all commands know.
  void SetCurrentView(CPageView* view) { m_pView = view; }
  CPageView* CurrentView() const { return m_pView; }
  bool HasSelection() const { return m_pView != nullptr && Block().IsSelected(); }
  /// Changes cells of the current view and has them painted.
  template <class Change>
  void ChangeCels(Change change) {
    if (m_pView != nullptr) {
      m_pView->InvalidateCels(change(Block()));
    }
  }
  /// The text of the first selected cell; empty where none is.
  CString SelectedText() const;
  bool HasInsertions() const;
  void CreateCelTools(const CPoint& position);
  /// Two buttons, for files to open and to save.
  void CreateFileTools(const CPoint& position, bool disabled);
  /// Which commands are possible depends on what is selected.
  void RefreshCommands();
  /// What has been typed into a cell goes to all selected ones, and the field is gone.
  void EndTextEdit();
  CKivKeyCtrlEdit* TextEdit() const { return m_pTextEdit.get(); }
  /// Forgets a drag that is under way; lengths and selection stay.
  void CancelDrag();
  /// Reads the fields where one of them has been left. A dialog that closes or is being cancelled
  /// reads none of them so, and the user is not told of a refused one again when Windows change
  /// places.
  bool ReadField();
  /// Reads all fields; false where one is refused, of which the user has been told.
  bool ReadFields();
  /// The dialog ends: fields that lose the focus are not read any more.
  void Close(INT_PTR result);
  /// None without an environment.
  std::optional<CKivRegistry> Registry() const;

  const PageEditHost& Host() const { return m_host; }
  const quorvel::EditorSettings& Settings() const { return m_settings; }

  void OnLButtonDown(UINT flags, CPoint point);
  void OnLButtonUp(UINT flags, CPoint point);
  void OnLButtonDblClk(UINT flags, CPoint point);
  void OnRButtonUp(UINT flags, CPoint point);
  void OnMouseMove(UINT flags, CPoint point);
  LRESULT OnSetCursor(WPARAM wParam, LPARAM lParam);
  LRESULT OnCaptureChanged(WPARAM wParam, LPARAM lParam);
  LRESULT OnKeyDown(WPARAM wParam, LPARAM lParam);
  LRESULT OnSetFocus(WPARAM wParam, LPARAM lParam);
  LRESULT OnContextMenu(WPARAM wParam, LPARAM lParam);
  void OnToolTipText(const NMHDR& notification);
  void OnEditText();
  void OnEditFont();
  void OnAlignVertically(UINT command);
  void OnAlignHorizontally(UINT command);
  void OnMerge();
  void OnSplit();
  void OnTextColor();
  void OnBackColor();
  void OnChooseTextColor();
  void OnChooseBackColor();
  void OnFieldLeft();
  /// Of a field whose value only OK stores: OK itself reads it, and one refusal is enough.
  void OnFieldForOkLeft();
  void OnSwitched();
  void OnInsertion();
  void OnInsertionTaken();
  void OnInsertionClosed();
  void OnOpen();
  void OnSave();

  DECLARE_MESSAGE_MAP()

private:
  enum class Drag { kNone, kBorder, kCels };
  using CelCommand = quorvel::CelList (*)(quorvel::PageBlock&, COLORREF);

  quorvel::PageBlock& Block() const { return m_pView->Block(); }
  void PassOn(UINT message, UINT flags, const CPoint& point);
  Drag StartDrag(const CPoint& point);
  void ShowDragCursor() const;
  void EndCelDrag(const CPoint& point);
  void EndBorderDrag(const CPoint& point);
  void ShowReadOut(const CPoint& point, const quorvel::PairOfLengths& lengths);
  void DropReadOut();
  int CelBeside(int down, int right);
  bool HandleKey(const MSG& message);
  void HandleF2();
  /// Right of the first selected cell or below it.
  std::optional<quorvel::BorderDrag> BorderOfSelection(bool isRow) const;
  void HandleArrow(WPARAM key);
  void SelectNeighbour(int down, int right);
  void StepBorder(int down, int right);
  void SwitchRange();
  bool IsRangeSelected() const;
  bool SelectRange(int down, int right);
  bool RunFileCommand(UINT command);
  static bool MovesSelection(const MSG& message);
  bool OpenTextEdit();
  void ShowCelMenu(const CPoint& screenPoint);
  void ApplyColor(const CKivColorButton& button, CelCommand apply);
  std::optional<std::wstring> AskForFile(BOOL open);
  void PickColor(int arrowId, CKivColorButton& button, CelCommand apply);
  void FillInsertions();
  void Insert();

  const quorvel::EditorSettings& m_settings;
  PageEditHost m_host;
  CPageView* m_pView = nullptr;

  Drag m_drag = Drag::kNone;
  int m_nAnchorCel = -1;
  /// What the arrow keys select from one cell on.
  struct Range {
    int anchor;
    int end;
  };
  std::optional<Range> m_range;
  /// The cell that the last release of the button deselected; -1 for none.
  int m_nToggledCel = -1;
  /// The button is still down after a double click opened the text field.
  bool m_bOpenedByDoubleClick = false;
  bool m_bKeepsFocus = false;
  std::unique_ptr<CToolTip> m_pReadOut;
  std::unique_ptr<CKivKeyCtrlEdit> m_pTextEdit;

  CKivToolCtrl m_celTools;
  CKivToolCtrl m_fileTools;
  quorvel::OwnedBitmap m_bmpArrow;  ///< outlives the buttons that show it
  CButton m_btnTextArrow;
  CButton m_btnBackArrow;
  CKivColorButton m_btnTextColor;
  CKivColorButton m_btnBackColor;
  CComboBox m_cmbInsertion;
  bool m_bInsertionTaken = false;  ///< the open list closes with a choice
  int m_nAppend;  ///< a tag goes behind the text of a cell instead of replacing it
  bool m_bClosing = false;
  bool m_bRefused = false;  ///< the last field that was left
};
