#include "framework/font_dialog.h"

#include "support/work.h"

#include <dlgs.h>

#include <cstring>
#include <functional>
#include <stdexcept>

namespace quorvel::test {
namespace {

LOGFONTA Gothic() {
  LOGFONTA font{};
  font.lfHeight = -24;
  font.lfWeight = FW_NORMAL;
  font.lfCharSet = SHIFTJIS_CHARSET;
  std::strncpy(std::begin(font.lfFaceName), "ＭＳ ゴシック", LF_FACESIZE - 1);
  return font;
}

/// The platform's own template, with hooks for a test.
class PlainFontDialog : public CFontDialog {
public:
  explicit PlainFontDialog(const LOGFONTA* initial, CWnd* parent = nullptr)
      : CFontDialog(initial, CF_EFFECTS | CF_SCREENFONTS | CF_TTONLY, nullptr, parent) {}

  std::function<void()> m_onInit;
  std::function<void()> m_onEffect;

  using CFontDialog::EndDialog;

protected:
  BOOL OnInitDialog() override {
    CFontDialog::OnInitDialog();
    if (m_onInit) {
      m_onInit();
    }
    return TRUE;
  }
  void OnEffect() {
    if (m_onEffect) {
      m_onEffect();
    }
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(PlainFontDialog, CFontDialog)
ON_BN_CLICKED(chx2, &PlainFontDialog::OnEffect)
END_MESSAGE_MAP()

Condition Shown() {
  return Painted(DialogWithControl(cmb1));
}

TEST(FontDialog, ReturnsTheFontChosen) {
  const LOGFONTA initial = Gothic();
  PlainFontDialog dialog(&initial);
  const INT_PTR result = WorkDialog([&] { return dialog.DoModal(); },
                                    [](HWND window) {
                                      Click(window, chx2);
                                      Confirm(window);
                                    });
  EXPECT_EQ(result, IDOK);
  EXPECT_EQ(dialog.GetCurrentFont().lfUnderline, 1);
  EXPECT_STREQ(dialog.GetCurrentFont().lfFaceName, "ＭＳ ゴシック");
  EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST(FontDialog, CanBeRunAgainAfterACancel) {
  const LOGFONTA initial = Gothic();
  PlainFontDialog dialog(&initial);
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(WorkDialog([&] { return dialog.DoModal(); },
                         [](HWND window) {
                           Click(window, chx2);
                           Cancel(window);
                         }),
              IDCANCEL);
    EXPECT_EQ(std::memcmp(&dialog.GetCurrentFont(), &initial, sizeof initial), 0);
    EXPECT_EQ(WorkDialog([&] { return dialog.DoModal(); }, Confirm), IDOK);
  }
}

TEST(FontDialog, AHandlerSeesWhatThePlatformHasMadeOfANotification) {
  const LOGFONTA initial = Gothic();
  PlainFontDialog dialog(&initial);
  BYTE underline = 0;
  dialog.m_onEffect = [&] { underline = dialog.m_cf.lpLogFont->lfUnderline; };
  ModalScript script;
  script.When(Shown(), [](HWND window) { Click(window, chx2); });
  script.When(Shown(), Cancel);
  Work(script, [&] { return dialog.DoModal(); });
  EXPECT_EQ(underline, 1);
}

TEST(FontDialog, AnExceptionOutOfAHandlerEndsItAndIsThrownOn) {
  const LOGFONTA initial = Gothic();
  PlainFontDialog dialog(&initial);
  dialog.m_onEffect = [] { throw std::runtime_error("out of the handler"); };
  const auto run = [&] {
    EXPECT_THROW(dialog.DoModal(), std::runtime_error);
    return 0;
  };
  WorkDialog(run, [](HWND window) { Click(window, chx2); });
  EXPECT_EQ(dialog.m_hWnd, nullptr);
  EXPECT_EQ(CDialog::GetInnermostWindow(), nullptr);
  EXPECT_TRUE(VisibleDialogs().empty());
}

TEST(FontDialog, AnExceptionWhileItOpensIsThrownOn) {
  const LOGFONTA initial = Gothic();
  PlainFontDialog dialog(&initial);
  dialog.m_onInit = [] { throw std::runtime_error("while opening"); };
  EXPECT_THROW(dialog.DoModal(), std::runtime_error);
  EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST(FontDialog, EndDialogCancelsIt) {
  const LOGFONTA initial = Gothic();
  PlainFontDialog dialog(&initial);
  dialog.m_onEffect = [&] { dialog.EndDialog(IDCANCEL); };
  EXPECT_EQ(WorkDialog([&] { return dialog.DoModal(); }, [](HWND window) { Click(window, chx2); }),
            IDCANCEL);
}

TEST(FontDialog, WithoutItsTemplateItCannotBeCreated) {
  const LOGFONTA initial = Gothic();
  PlainFontDialog dialog(&initial);
  constexpr WORD kNoTemplate = 29'999;
  dialog.m_cf.Flags |= CF_ENABLETEMPLATE;
  dialog.m_cf.hInstance = ::GetModuleHandleW(nullptr);
  dialog.m_cf.lpTemplateName = MAKEINTRESOURCEW(kNoTemplate);
  EXPECT_EQ(dialog.DoModal(), -1);
}

TEST(FontDialog, DestroyedFromOutsideItIsCancelled) {
  const LOGFONTA initial = Gothic();
  PlainFontDialog dialog(&initial);
  EXPECT_EQ(
      WorkDialog([&] { return dialog.DoModal(); }, [](HWND window) { ::DestroyWindow(window); }),
      IDCANCEL);
}

/// A visible window that counts what modal dialogs tell their owner.
class Owner : public CWnd {
public:
  Owner() {
    SubclassWindow(::CreateWindowExW(0, L"Static", L"owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100,
                                     100, 900, 700, nullptr, nullptr, nullptr, nullptr));
  }
  ~Owner() override { DestroyWindow(); }
  Owner(const Owner&) = delete;
  Owner& operator=(const Owner&) = delete;

  int m_idles = 0;

protected:
  LRESULT OnEnterIdle(WPARAM wParam, LPARAM /*lParam*/) {
    m_idles += wParam == MSGF_DIALOGBOX ? 1 : 0;
    return 0;
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Owner, CWnd)
ON_MESSAGE(WM_ENTERIDLE, &Owner::OnEnterIdle)
END_MESSAGE_MAP()

TEST(FontDialog, ItsOwnerIsDisabledHearsOfIdleTimeAndIsActiveAfterwards) {
  Owner owner;
  const LOGFONTA initial = Gothic();
  PlainFontDialog dialog(&initial, &owner);
  ModalScript script;
  script.When(Shown(), [&](HWND window) {
    EXPECT_FALSE(::IsWindowEnabled(owner.m_hWnd));
    EXPECT_EQ(::GetWindow(window, GW_OWNER), owner.m_hWnd);
    const CRect outer = owner.GetWindowRect();
    const RECT inner = WindowRect(window);
    EXPECT_NEAR((inner.left + inner.right) / 2.0, (outer.left + outer.right) / 2.0, 1);
    EXPECT_NEAR((inner.top + inner.bottom) / 2.0, (outer.top + outer.bottom) / 2.0, 1);
  });
  script.When({.what = "the dialog told as idle",
               .find = [&] { return owner.m_idles > 0 ? dialog.m_hWnd : nullptr; }},
              Cancel);
  Work(script, [&] { return dialog.DoModal(); });
  EXPECT_TRUE(::IsWindowEnabled(owner.m_hWnd));
  EXPECT_EQ(::GetActiveWindow(), owner.m_hWnd);
}

}  // namespace
}  // namespace quorvel::test
