// CLayoutExEditDlg: edits a page of three blocks: header, list and footer.
//
//   CLayoutExEditDlg dialog(env, &page, fields, insertions, numbers, dotsPerMm, position, nullptr);
//   if (dialog.DoModal() == IDOK) { /* page is what the user made of it */ }
#pragma once

#include "dialogs/layout/block_edit_dlg.h"
#include "dialogs/layout/line_fields.h"

#include <array>

/// Works on a copy of the page, which OK assigns to the caller's. All blocks are shown at one scale. A
/// double click on a block opens the list editor on it.
class CLayoutExEditDlg : public CBlockEditDlg {
public:
  /// All but `page` may be null, and all stay the caller's: `fields` are the names of data fields;
  /// `insertions` can be inserted as tags, with `numbers` if there are as many.
  CLayoutExEditDlg(CKivSysEnv* env, CLayoutExPageData* page, const CStringArray* fields,
                   const CStringArray* insertions, const CDWordArray* numbers, double dotsPerMm,
                   CPoint* position, CWnd* parent);

protected:
  void DoDataExchange(CDataExchange* pDX) override;
  BOOL OnInitDialog() override;
  void OnOK() override;
  void OnCancel() override;
  CPageView* ViewAt(const CPoint& point) override;
  void TakeView(CPageView& view) override;
  CPageView* ViewBeyond(int down) override;
  bool OnDoubleClicked(CPageView* view, const CPoint& point) override;
  /// Of the current block, or of the first that is used.
  bool OpenCurrentBlock() override;
  void LayOutViews() override;
  void OnFieldsRead() override;
  bool OpenPage(const std::wstring& path) override;
  bool PrepareToSave() override { return ReadFields(); }
  void SavePage(const std::wstring& path) override { m_page.SaveFileW(path.c_str()); }
  CLayoutExPageData::LISTTYPE CurrentBlock() const override;
  void OnPageChanged() override;

  void OnSizeLeft();
  void OnEqualRowsOf(UINT id);
  void OnEqualAllColumns();
  void OnUse();
  void OnLineColor(UINT buttonId);

  DECLARE_MESSAGE_MAP()

private:
  static constexpr std::size_t kBlockCount = 3;
  static constexpr std::size_t kPageKindCount = 3;

  /// One block as the dialog shows it.
  struct Part {
    Part(CLayoutExPageData& page, CLayoutExPageData::LISTTYPE blockType)
        : type(blockType), block(page, blockType) {}

    CLayoutExPageData::LISTTYPE type;
    quorvel::ExtendedBlock block;
    CPageView view{block, quorvel::kExtendedEditor.celStyle};
    int use = 1;
    int rows = 1;
    float height = 0.0F;  ///< of all rows, millimetres
  };

  std::size_t CurrentIndex() const;
  void ReadPage();
  void ReadSizes();
  void ApplySizes();
  void OpenListEditor(CPageView& view);
  /// For a screen reader.
  void NameParts() const;
  void EnableUsed() const;

  CLayoutExPageData* m_pCallersPage;
  CLayoutExPageData m_page;
  std::array<Part, kBlockCount> m_parts{Part{m_page, CLayoutExPageData::LISTTYPE_HEADER},
                                        Part{m_page, CLayoutExPageData::LISTTYPE_LIST},
                                        Part{m_page, CLayoutExPageData::LISTTYPE_FOOTER}};
  int m_nColumns = 1;
  float m_fWidth = 0.0F;
  int m_nRepeat = 1;
  int m_nOffset = 1;
  std::array<int, kPageKindCount> m_shownOn{};  ///< first page, middle pages, last page
  CPageLines m_lines;
};
