#include "framework/dialog.h"

#include "framework/data_exchange.h"
#include "framework/message_box.h"
#include "framework/module_state.h"
#include "tests/windows/framework/test_dialogs.h"
#include "support/work.h"

#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>

namespace quorvel::test {
namespace {

constexpr int kBoxText = 0xFFFF;

/// Exchanges a text, a whole number of 1..100 and a decimal number of -0.5..9999 and does what a
/// test puts into its hooks.
class NumbersDialog : public CDialog {
public:
  explicit NumbersDialog(CWnd* parent = nullptr) : CDialog(IDD_NUMBERS, parent) {}

  CString m_text{"文字"};
  int m_whole = 5;
  double m_decimal = 3.5;
  std::function<BOOL()> m_onInit;
  std::function<void()> m_onOpen;
  int m_changes = 0;

  using CDialog::EndDialog;

protected:
  void DoDataExchange(CDataExchange* pDX) override {
    CDialog::DoDataExchange(pDX);
    DDX_Text(pDX, IDC_TEXT, m_text);
    DDX_Text(pDX, IDC_WHOLE, m_whole);
    DDV_MinMaxInt(pDX, m_whole, 1, 100);
    DDX_Text(pDX, IDC_DECIMAL, m_decimal);
    DDV_MinMaxDouble(pDX, m_decimal, -0.5, 9999.0);
  }
  BOOL OnInitDialog() override {
    CDialog::OnInitDialog();
    return m_onInit ? m_onInit() : TRUE;
  }
  void OnOpen() {
    if (m_onOpen) {
      m_onOpen();
    }
  }
  void OnChange() { ++m_changes; }

  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(NumbersDialog, CDialog)
  ON_BN_CLICKED(IDC_OPEN, &NumbersDialog::OnOpen)
  ON_EN_CHANGE(IDC_WHOLE, &NumbersDialog::OnChange)
END_MESSAGE_MAP()

Condition Shown() { return Painted(DialogWithControl(IDC_WHOLE)); }

TEST(Dialog, ShowsTheMembersAndReadsThemBack) {
  NumbersDialog dialog;
  const INT_PTR result = WorkDialog([&] { return dialog.DoModal(); }, [](HWND window) {
    EXPECT_EQ(Text(window, IDC_TEXT), L"文字");
    EXPECT_EQ(Text(window, IDC_WHOLE), L"5");
    EXPECT_EQ(Text(window, IDC_DECIMAL), L"3.5");
    ReplaceText(Control(window, IDC_TEXT), L"表ソ%s");
    ReplaceText(Control(window, IDC_WHOLE), L" １００ ");
    ReplaceText(Control(window, IDC_DECIMAL), L"-.5");
    Confirm(window);
  });
  EXPECT_EQ(result, IDOK);
  EXPECT_STREQ(dialog.m_text, "表ソ%s");
  EXPECT_EQ(dialog.m_whole, 100);
  EXPECT_EQ(dialog.m_decimal, -0.5);
}

TEST(Dialog, NotificationsAreNotHandledWhileDataIsExchanged) {
  NumbersDialog dialog;
  WorkDialog([&] { return dialog.DoModal(); }, [&](HWND window) {
    EXPECT_EQ(dialog.m_changes, 0);
    ::SetDlgItemTextW(window, IDC_WHOLE, L"7");
    EXPECT_EQ(dialog.m_changes, 1);
    Cancel(window);
  });
}

TEST(Dialog, CanBeRunAgain) {
  NumbersDialog dialog;
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(WorkDialog([&] { return dialog.DoModal(); }, Confirm), IDOK);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_EQ(WorkDialog([&] { return dialog.DoModal(); }, Cancel), IDCANCEL);
  }
}

TEST(Dialog, FindsAControlAsLongAsItIsThere) {
  constexpr int kOtherId = 4711;
  NumbersDialog dialog;
  WorkDialog([&] { return dialog.DoModal(); }, [&](HWND window) {
    EXPECT_EQ(dialog.GetDlgItem(IDC_WHOLE), ::GetDlgItem(window, IDC_WHOLE));
    EXPECT_NE(dialog.GetDlgItem(IDC_WHOLE), nullptr);
    EXPECT_EQ(dialog.GetDlgItem(kOtherId), nullptr);

    const HWND decimal = Control(window, IDC_DECIMAL);
    ::SetWindowLongPtrW(decimal, GWLP_ID, kOtherId);
    EXPECT_EQ(dialog.GetDlgItem(IDC_DECIMAL), nullptr);
    EXPECT_EQ(dialog.GetDlgItem(kOtherId), decimal);
    ::SetWindowLongPtrW(decimal, GWLP_ID, IDC_DECIMAL);

    ::DestroyWindow(Control(window, IDC_TEXT));
    EXPECT_EQ(dialog.GetDlgItem(IDC_TEXT), nullptr);
    const HWND other = ::CreateWindowExW(0, L"Static", L"", WS_CHILD, 0, 0, 1, 1, window,
                                         reinterpret_cast<HMENU>(ULONG_PTR{IDC_TEXT}), nullptr,
                                         nullptr);
    EXPECT_EQ(dialog.GetDlgItem(IDC_TEXT), other);
    Cancel(window);
  });
  EXPECT_EQ(dialog.GetDlgItem(IDC_WHOLE), nullptr);
}

struct RefusedField {
  int field;
  const wchar_t* text;
  const wchar_t* message;
};

class DialogRefuses : public ::testing::TestWithParam<RefusedField> {};

const std::wstring kIntegerMessage = L"整数を入力してください。";
const std::wstring kNumberMessage = L"数値を入力してください。";
const std::wstring kIntegerRange = L"1 から 100 までの整数を入力してください。";
const std::wstring kNumberRange = L"-0.5 から 9999 までの数値を入力してください。";

INSTANTIATE_TEST_SUITE_P(
    Quorvel, DialogRefuses,
    ::testing::Values(RefusedField{IDC_WHOLE, L"", kIntegerMessage.c_str()},
                      RefusedField{IDC_WHOLE, L"12a", kIntegerMessage.c_str()},
                      RefusedField{IDC_WHOLE, L"2147483648", kIntegerMessage.c_str()},
                      RefusedField{IDC_WHOLE, L"0", kIntegerRange.c_str()},
                      RefusedField{IDC_WHOLE, L"101", kIntegerRange.c_str()},
                      RefusedField{IDC_DECIMAL, L"", kNumberMessage.c_str()},
                      RefusedField{IDC_DECIMAL, L"abc", kNumberMessage.c_str()},
                      RefusedField{IDC_DECIMAL, L"1e999", kNumberMessage.c_str()},
                      RefusedField{IDC_DECIMAL, L"nan", kNumberMessage.c_str()},
                      RefusedField{IDC_DECIMAL, L"-0.51", kNumberRange.c_str()},
                      RefusedField{IDC_DECIMAL, L"9999.1", kNumberRange.c_str()}));

TEST_P(DialogRefuses, WithOneMessageAndTheFieldSelected) {
  const RefusedField& refused = GetParam();
  NumbersDialog dialog;
  ModalScript script;
  script.When(Shown(), [&](HWND window) {
    ReplaceText(Control(window, IDC_TEXT), L"新");
    ReplaceText(Control(window, refused.field), refused.text);
    Confirm(window);
  });
  script.When(MessageBoxShown(), [&](HWND box) {
    EXPECT_EQ(Text(box, kBoxText), refused.message);
    EXPECT_EQ(Text(box), L"数値の試験");
    Confirm(box);
  });
  script.When(Shown(), [&](HWND window) {
    EXPECT_EQ(FocusedControlId(window), refused.field);
    EXPECT_EQ(Text(window, refused.field), refused.text);
    EXPECT_EQ(SelectionOf(Control(window, refused.field)),
              WholeText(Control(window, refused.field)));
    Cancel(window);
  });
  EXPECT_EQ(Work(script, [&] { return dialog.DoModal(); }), IDCANCEL);
  EXPECT_STREQ(dialog.m_text, "新") << "the fields before it are read";
  EXPECT_EQ(dialog.m_decimal == 3.5, refused.field == IDC_WHOLE || refused.message == kNumberMessage)
      << "the fields after it are not";
}

TEST(Dialog, StopsAtTheFirstRefusedField) {
  NumbersDialog dialog;
  ModalScript script;
  script.When(Shown(), [&](HWND window) {
    ReplaceText(Control(window, IDC_WHOLE), L"x");
    ReplaceText(Control(window, IDC_DECIMAL), L"y");
    Confirm(window);
  });
  script.When(MessageBoxShown(), [&](HWND box) {
    EXPECT_EQ(Text(box, kBoxText), kIntegerMessage);
    Confirm(box);
  });
  script.When(Shown(), [&](HWND window) {
    EXPECT_EQ(FocusedControlId(window), IDC_WHOLE);
    Cancel(window);
  });
  Work(script, [&] { return dialog.DoModal(); });
}

TEST(Dialog, NotANumberIsOutsideEveryRange) {
  NumbersDialog dialog;
  dialog.m_onInit = [&] {
    CDataExchange exchange(&dialog, TRUE);
    EXPECT_THROW(DDV_MinMaxDouble(&exchange, std::nan(""), 0.0, 1.0), CFieldRefused);
    dialog.EndDialog(42);
    return TRUE;
  };
  ModalScript script;
  script.When(MessageBoxShown(), Confirm);
  EXPECT_EQ(Work(script, [&] { return dialog.DoModal(); }), 42);
}

TEST(Dialog, WithoutATemplateGivesMinus1) {
  class NoTemplate : public CDialog {
  public:
    NoTemplate() : CDialog(4711) {}
  };
  NoTemplate dialog;
  EXPECT_EQ(dialog.DoModal(), -1);
}

TEST(Dialog, EndedWhileItOpensIsNeverShown) {
  NumbersDialog dialog;
  dialog.m_onInit = [&] {
    dialog.EndDialog(42);
    return TRUE;
  };
  EXPECT_EQ(dialog.DoModal(), 42);
}

TEST(Dialog, AnExceptionOutOfAHandlerEndsItAndIsThrownOn) {
  NumbersDialog dialog;
  dialog.m_onOpen = [] { throw std::runtime_error("out of the handler"); };
  const auto run = [&] {
    EXPECT_THROW(dialog.DoModal(), std::runtime_error);
    return 0;
  };
  WorkDialog(run, [](HWND window) { Click(window, IDC_OPEN); });
  EXPECT_EQ(dialog.m_hWnd, nullptr);
  EXPECT_EQ(CDialog::GetInnermostWindow(), nullptr);
  EXPECT_TRUE(VisibleDialogs().empty());
}

TEST(Dialog, AnExceptionWhileItOpensIsThrownOn) {
  NumbersDialog dialog;
  dialog.m_onInit = []() -> BOOL { throw std::runtime_error("while opening"); };
  EXPECT_THROW(dialog.DoModal(), std::runtime_error);
  EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST(Dialog, ANestedExceptionEndsBothDialogs) {
  NumbersDialog outer;
  NumbersDialog inner;
  outer.m_onOpen = [&] { inner.DoModal(); };
  inner.m_onOpen = [] { throw std::logic_error("from the inner dialog"); };
  ModalScript script;
  HWND outerWindow = nullptr;
  script.When(Shown(), [&](HWND window) {
    outerWindow = window;
    Click(window, IDC_OPEN);
  });
  script.When({.what = "the inner dialog", .find = [&] {
                 const HWND top = VisibleDialogs().empty() ? nullptr : VisibleDialogs().front();
                 return top != outerWindow ? top : nullptr;
               }},
              [](HWND window) { Click(window, IDC_OPEN); });
  Work(script, [&] {
    EXPECT_THROW(outer.DoModal(), std::logic_error);
    return 0;
  });
  EXPECT_EQ(inner.m_hWnd, nullptr);
  EXPECT_EQ(outer.m_hWnd, nullptr);
}

TEST(Dialog, NestsAndDisablesTheOuterOneMeanwhile) {
  NumbersDialog outer;
  NumbersDialog inner;
  inner.m_whole = 66;
  outer.m_onOpen = [&] { outer.m_whole = inner.DoModal() == IDOK ? inner.m_whole : -1; };
  ModalScript script;
  HWND outerWindow = nullptr;
  script.When(Shown(), [&](HWND window) {
    outerWindow = window;
    Click(window, IDC_OPEN);
  });
  script.When({.what = "the inner dialog", .find = [&] {
                 const HWND top = VisibleDialogs().empty() ? nullptr : VisibleDialogs().front();
                 return top != outerWindow ? top : nullptr;
               }},
              [&](HWND window) {
                EXPECT_FALSE(::IsWindowEnabled(outerWindow));
                EXPECT_EQ(CDialog::GetInnermostWindow(), window);
                ReplaceText(Control(window, IDC_WHOLE), L"77");
                Confirm(window);
              });
  script.When(Shown(), [&](HWND window) {
    EXPECT_EQ(window, outerWindow);
    EXPECT_TRUE(::IsWindowEnabled(window));
    EXPECT_EQ(::GetActiveWindow(), window);
    EXPECT_EQ(outer.m_whole, 77);
    Cancel(window);
  });
  EXPECT_EQ(Work(script, [&] { return outer.DoModal(); }), IDCANCEL);
}

TEST(Dialog, EndsWhenItsWindowIsDestroyedFromOutside) {
  NumbersDialog dialog;
  EXPECT_EQ(WorkDialog([&] { return dialog.DoModal(); },
                       [](HWND window) { ::DestroyWindow(window); }),
            IDCANCEL);
}

TEST(Dialog, EndsWhenTheThreadIsToldToQuitAndPassesThatOn) {
  NumbersDialog dialog;
  EXPECT_EQ(WorkDialog([&] { return dialog.DoModal(); }, [](HWND) { ::PostQuitMessage(17); }), -1);
  MSG message{};
  EXPECT_EQ(::GetMessageW(&message, nullptr, 0, 0), 0);
  EXPECT_EQ(message.wParam, 17U);
}

/// A visible window of the test, as a host has one.
class HostWindow {
public:
  HostWindow()
      : m_window(::CreateWindowExW(0, L"STATIC", L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 500, 400,
                                   600, 300, nullptr, nullptr, nullptr, nullptr)) {
    ::SetActiveWindow(m_window);
  }
  ~HostWindow() { ::DestroyWindow(m_window); }
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;
  HWND Handle() const { return m_window; }

private:
  HWND m_window;
};

/// Tells when a dialog's loop has nothing to do and begins to wait.
class IdleOwner : public CWnd {
public:
  std::function<void()> m_onIdle;

protected:
  LRESULT OnEnterIdle(WPARAM /*wParam*/, LPARAM /*lParam*/) {
    m_onIdle();
    return 0;
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(IdleOwner, CWnd)
  ON_MESSAGE(WM_ENTERIDLE, &IdleOwner::OnEnterIdle)
END_MESSAGE_MAP()

TEST(Dialog, EndsAtOnceOnAMessageSentFromAnotherThread) {
  // Without a script, whose timer would wake the dialog's loop, and without a blinking caret. The
  // other thread wakes the loop itself when that should be necessary, so that the test ends.
  constexpr DWORD kDeadline = 3'000;
  const std::unique_ptr<void, decltype(&::CloseHandle)> returned(
      ::CreateEventW(nullptr, TRUE, FALSE, nullptr), &::CloseHandle);
  const HostWindow host;
  IdleOwner owner;
  ASSERT_TRUE(owner.SubclassWindow(host.Handle()));
  NumbersDialog dialog(&owner);
  dialog.m_onInit = [&] {
    ::SetFocus(dialog.GetDlgItem(IDOK));
    return FALSE;
  };
  std::thread sender;
  bool woken = false;
  owner.m_onIdle = [&] {
    if (sender.joinable()) {
      return;
    }
    sender = std::thread([&, window = dialog.m_hWnd] {
      ::SendMessageW(window, WM_COMMAND, IDOK, 0);
      if (::WaitForSingleObject(returned.get(), kDeadline) != WAIT_OBJECT_0) {
        woken = true;
        ::PostMessageW(window, WM_NULL, 0, 0);
      }
    });
  };
  EXPECT_EQ(dialog.DoModal(), IDOK);
  ::SetEvent(returned.get());
  sender.join();
  EXPECT_FALSE(woken);
}

TEST(Dialog, WithoutAParentTheActiveWindowIsTheOwner) {
  const HostWindow host;
  NumbersDialog dialog;
  WorkDialog([&] { return dialog.DoModal(); }, [&](HWND window) {
    EXPECT_EQ(::GetWindow(window, GW_OWNER), host.Handle());
    EXPECT_FALSE(::IsWindowEnabled(host.Handle()));
    const RECT own = WindowRect(window);
    const RECT owner = WindowRect(host.Handle());
    EXPECT_NEAR(own.left + own.right, owner.left + owner.right, 2);
    EXPECT_NEAR(own.top + own.bottom, owner.top + owner.bottom, 2);
    Cancel(window);
  });
  EXPECT_TRUE(::IsWindowEnabled(host.Handle()));
  EXPECT_EQ(::GetActiveWindow(), host.Handle());
}

TEST(Dialog, LeavesAnOwnerThatWasDisabledBefore) {
  const HostWindow host;
  ::EnableWindow(host.Handle(), FALSE);
  NumbersDialog dialog;
  CWnd parent;
  ASSERT_TRUE(parent.SubclassWindow(host.Handle()));
  dialog.m_onInit = [&] {
    dialog.EndDialog(IDOK);
    return TRUE;
  };
  NumbersDialog owned(&parent);
  WorkDialog([&] { return owned.DoModal(); }, Cancel);
  EXPECT_FALSE(::IsWindowEnabled(host.Handle()));
}

TEST(Dialog, TheOwnerIsEnabledAgainWhenTheDialogCannotBeCreated) {
  const HostWindow host;
  class NoTemplate : public CDialog {
  public:
    NoTemplate() : CDialog(4711) {}
  };
  NoTemplate dialog;
  EXPECT_EQ(dialog.DoModal(), -1);
  EXPECT_TRUE(::IsWindowEnabled(host.Handle()));
  NumbersDialog thrown;
  thrown.m_onInit = []() -> BOOL { throw std::runtime_error("while opening"); };
  EXPECT_THROW(thrown.DoModal(), std::runtime_error);
  EXPECT_TRUE(::IsWindowEnabled(host.Handle()));
}

TEST(MessageBox, IsShownOverTheDialogWithTheExclamationMark) {
  NumbersDialog dialog;
  int answer = 0;
  dialog.m_onOpen = [&] { answer = AfxMessageBox("消去しますか 100%s", MB_OKCANCEL); };
  ModalScript script;
  script.When(Shown(), [](HWND window) { Click(window, IDC_OPEN); });
  script.When(MessageBoxShown(), [&](HWND box) {
    EXPECT_EQ(Text(box, kBoxText), L"消去しますか 100%s");
    EXPECT_EQ(::GetWindow(box, GW_OWNER), dialog.m_hWnd);
    Click(box, IDOK);
  });
  script.When(Shown(), Cancel);
  Work(script, [&] { return dialog.DoModal(); });
  EXPECT_EQ(answer, IDOK);
}

TEST(MessageBox, WithoutAWindowTakesTheModulesName) {
  ModalScript script;
  script.When(MessageBoxShown(), [](HWND box) {
    EXPECT_EQ(Text(box), L"windows_tests");
    Confirm(box);
  });
  EXPECT_EQ(Work(script, [] { return AfxMessageBox("本文"); }), IDOK);
}

}  // namespace
}  // namespace quorvel::test
