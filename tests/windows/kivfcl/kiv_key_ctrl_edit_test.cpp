#include "kivfcl/kiv_key_ctrl_edit.h"

#include "driver/leak_counters.h"
#include "framework/dialog.h"
#include "support/work.h"
#include "tests/windows/framework/test_dialogs.h"

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace quorvel::test {
namespace {

constexpr UINT kId = 200;
constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | WS_BORDER | ES_WANTRETURN | ES_AUTOHSCROLL;
constexpr UINT kAllKeys = KIVKEY_ENTER | KIVKEY_ESCAPE | KIVKEY_ARROWS;

/// Has a key field over its controls and writes down the keys that come to the dialog.
class KeyDialog : public CDialog {
public:
  explicit KeyDialog(UINT keys = kAllKeys) : CDialog(IDD_NUMBERS), m_nKeys(keys) {}

  std::unique_ptr<CKivKeyCtrlEdit> m_edit;
  std::vector<WPARAM> m_keys;
  std::function<void()> m_onKey;

protected:
  BOOL OnInitDialog() override {
    CDialog::OnInitDialog();
    m_edit = std::make_unique<CKivKeyCtrlEdit>();
    EXPECT_TRUE(m_edit->Create(kStyle, CRect(5, 5, 100, 30), this, kId, m_nKeys));
    m_edit->SetWindowText("abc");
    ::SetFocus(m_edit->m_hWnd);
    return FALSE;
  }
  LRESULT OnKeyDown(WPARAM key, LPARAM /*lParam*/) {
    m_keys.push_back(key);
    if (m_onKey) {
      m_onKey();
    }
    return 0;
  }

  DECLARE_MESSAGE_MAP()

private:
  UINT m_nKeys;
};

BEGIN_MESSAGE_MAP(KeyDialog, CDialog)
  ON_MESSAGE(WM_KEYDOWN, &KeyDialog::OnKeyDown)
END_MESSAGE_MAP()

/// Goes on after what was posted before has been handled.
Condition Then() { return Painted(DialogWithControl(kId)); }

TEST(KivKeyCtrlEdit, IsAnEditFieldAsAnyOther) {
  KeyDialog dialog;
  WorkDialog([&] { return dialog.DoModal(); }, [&](HWND window) {
    const HWND field = Control(window, kId);
    EXPECT_EQ(field, dialog.m_edit->m_hWnd);
    EXPECT_EQ(ClassName(field), L"Edit");
    // Some platforms' fields draw the border themselves and take it out of the style.
    EXPECT_EQ((::GetWindowLongPtrW(field, GWL_STYLE) & 0xFFFF'FFFF) | WS_BORDER, 0x5080'1080);
    EXPECT_EQ(CRect(ClientRectOf(field)), CRect(5, 5, 100, 30));
    Cancel(window);
    ::SetFocus(Control(window, IDC_WHOLE));
  });
}

TEST(KivKeyCtrlEdit, ItsKeysGoToTheOwnerAndNothingElseHappens) {
  KeyDialog dialog;
  ModalScript script;
  script.When(Then(), [&](HWND window) {
    const HWND field = Control(window, kId);
    ::SendMessageW(field, EM_SETSEL, 1, 1);
    for (const UINT key : {VK_RETURN, VK_ESCAPE, VK_LEFT, VK_RIGHT}) {
      PressKey(field, key);
    }
  });
  script.When(Then(), [&](HWND window) {
    EXPECT_EQ(dialog.m_keys, (std::vector<WPARAM>{VK_RETURN, VK_ESCAPE, VK_LEFT, VK_RIGHT}));
    EXPECT_EQ(Text(window, kId), L"abc");
    EXPECT_EQ(SelectionOf(Control(window, kId)), (Selection{1, 1}));
    EXPECT_EQ(FocusedControlId(window), static_cast<int>(kId));
    ::PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
  });
  EXPECT_EQ(Work(script, [&] { return dialog.DoModal(); }), IDCANCEL);
}

TEST(KivKeyCtrlEdit, AllOtherKeysAreTheFields) {
  KeyDialog dialog;
  ModalScript script;
  script.When(Then(), [&](HWND window) {
    const HWND field = Control(window, kId);
    ::SendMessageW(field, EM_SETSEL, 3, 3);
    PressKey(field, VK_HOME);
    PressKey(field, VK_DELETE);
    TypeText(field, L"x%'");  // the codes of Left and Right are those of % and '
  });
  script.When(Then(), [&](HWND window) {
    EXPECT_TRUE(dialog.m_keys.empty());
    EXPECT_EQ(Text(window, kId), L"x%'bc");
    ::PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
  });
  Work(script, [&] { return dialog.DoModal(); });
}

TEST(KivKeyCtrlEdit, TabIsTheDialogs) {
  KeyDialog dialog;
  ModalScript script;
  script.When(Then(), [&](HWND window) { PressTab(window); });
  script.When(Then(), [&](HWND window) {
    EXPECT_TRUE(dialog.m_keys.empty());
    EXPECT_NE(FocusedControlId(window), static_cast<int>(kId));
    Cancel(window);
  });
  Work(script, [&] { return dialog.DoModal(); });
}

struct ChosenKeys {
  UINT keys;
  std::vector<WPARAM> owners;
};

TEST(KivKeyCtrlEdit, OnlyTheChosenKeysGoToTheOwner) {
  for (const auto& [keys, owners] :
       std::vector<ChosenKeys>{{KIVKEY_ENTER, {VK_RETURN}},
                               {KIVKEY_ESCAPE, {VK_ESCAPE}},
                               {KIVKEY_ARROWS, {VK_LEFT, VK_RIGHT}},
                               {0, {}}}) {
    KeyDialog dialog(keys);
    WorkDialog([&] { return dialog.DoModal(); }, [&](HWND window) {
      const HWND field = Control(window, kId);
      for (const UINT key : {VK_RETURN, VK_ESCAPE, VK_LEFT, VK_RIGHT, VK_UP, VK_DOWN, VK_TAB}) {
        ::SendMessageW(field, WM_KEYDOWN, key, 1);
      }
      Cancel(window);
      ::SetFocus(Control(window, IDC_WHOLE));
    });
    EXPECT_EQ(dialog.m_keys, owners) << keys;
  }
}

TEST(KivKeyCtrlEdit, EnterAndEscapeThatAreNotTheOwnersWorkTheDialog) {
  for (const auto& [key, result] : {std::pair<UINT, INT_PTR>{VK_RETURN, IDOK},
                                    std::pair<UINT, INT_PTR>{VK_ESCAPE, IDCANCEL}}) {
    KeyDialog dialog(KIVKEY_ARROWS);
    EXPECT_EQ(WorkDialog([&] { return dialog.DoModal(); },
                         [&](HWND window) { PressKey(Control(window, kId), key); }),
              result);
  }
}

TEST(KivKeyCtrlEdit, KeysOfAConversionBelongToIt) {
  KeyDialog dialog;
  ModalScript script;
  script.When(Then(), [&](HWND window) {
    const HWND field = Control(window, kId);
    ::SendMessageW(field, WM_IME_STARTCOMPOSITION, 0, 0);
    for (const UINT key : {VK_RETURN, VK_ESCAPE, VK_LEFT, VK_RIGHT}) {
      PressKey(field, key);
    }
  });
  script.When(Then(), [&](HWND window) {
    EXPECT_TRUE(dialog.m_keys.empty());
    ::SendMessageW(Control(window, kId), WM_IME_ENDCOMPOSITION, 0, 0);
    PressKey(Control(window, kId), VK_RETURN);
  });
  script.When(Then(), [&](HWND window) {
    EXPECT_EQ(dialog.m_keys, std::vector<WPARAM>{VK_RETURN});
    ::PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
  });
  Work(script, [&] { return dialog.DoModal(); });
}

TEST(KivKeyCtrlEdit, TheOwnerMayDestroyItWhenItIsTold) {
  for (const UINT key : {VK_RETURN, VK_ESCAPE, VK_LEFT, VK_RIGHT}) {
    KeyDialog dialog;
    dialog.m_onKey = [&] {
      if (dialog.m_edit) {
        dialog.m_edit->DestroyWindow();
        dialog.m_edit.reset();
        ::SetFocus(Control(dialog.m_hWnd, IDC_WHOLE));
      }
    };
    ModalScript script;
    script.When(Then(), [&](HWND window) { PressKey(Control(window, kId), key); });
    script.When(Painted(DialogWithControl(IDC_WHOLE)), [&](HWND window) {
      EXPECT_EQ(::GetDlgItem(window, kId), nullptr);
      EXPECT_EQ(dialog.m_keys, std::vector<WPARAM>{key});
      ::PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
    });
    Work(script, [&] { return dialog.DoModal(); });
  }
}

}  // namespace
}  // namespace quorvel::test
