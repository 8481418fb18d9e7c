// Any text in any edit field of any dialog, typed, pasted or set by another program: the dialog takes
// it or says why not, and what it gives back are whole characters.
#include "hostile/hostile_call.h"
#include "hostile/hostile_values.h"
#include "support/layout_dialogs.h"
#include "support/work.h"

#include "framework/code_page.h"
#include "res/ids.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace quorvel::test {
namespace {

/// Works each dialog that comes up once and presses OK; message boxes are confirmed, and what refuses
/// is cancelled then.
class FillAndConfirm {
public:
  explicit FillAndConfirm(std::function<void(HWND)> fill)
      : m_fill(std::move(fill)), m_timer(::SetTimer(nullptr, 0, kInterval, OnTimer)) {
    s_current = this;
  }
  ~FillAndConfirm() {
    s_current = nullptr;
    ::KillTimer(nullptr, m_timer);
  }
  FillAndConfirm(const FillAndConfirm&) = delete;
  FillAndConfirm& operator=(const FillAndConfirm&) = delete;

  bool HasWorked() const { return m_worked != nullptr; }

private:
  static constexpr UINT kInterval = 10;
  static constexpr int kMostMessages = 20;

  static void CALLBACK OnTimer(HWND /*window*/, UINT /*message*/, UINT_PTR /*timer*/,
                               DWORD /*time*/) {
    if (s_current != nullptr) {
      s_current->Look();
    }
  }

  void Look() {
    if (const HWND box = m_box.find()) {
      m_refused = true;
      ASSERT_LT(++m_nMessages, kMostMessages) << "the same message again and again";
      ::PostMessageW(box, WM_COMMAND, IDOK, 0);
      return;
    }
    // A field may complain while it is given its text.
    const HWND dialog = m_filling ? nullptr : m_painted.find();
    if (dialog == nullptr) {
      return;
    }
    if (m_worked == nullptr) {
      m_worked = dialog;
      m_filling = true;
      m_fill(dialog);
      m_filling = false;
      ::PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    } else if (m_refused) {
      ::PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    } else if (++m_nTries % kPatience == 0) {
      // The editors' text line takes the first OK for itself.
      ::PostMessageW(dialog, WM_COMMAND, m_nTries == kPatience ? IDOK : IDCANCEL, 0);
    }
  }

  static constexpr int kPatience = 10;
  static inline FillAndConfirm* s_current = nullptr;

  std::function<void(HWND)> m_fill;
  UINT_PTR m_timer;
  Condition m_box = MessageBoxShown();
  Condition m_painted = Painted(AnyDialog());
  HWND m_worked = nullptr;
  bool m_refused = false;
  bool m_filling = false;
  int m_nTries = 0;
  int m_nMessages = 0;
};

/// But for those inside combo boxes, which are the system's: of the system's font dialog only, and Wine
/// is busy for minutes with a long text in them.
std::vector<HWND> EditFields(HWND dialog) {
  std::vector<HWND> fields;
  ::EnumChildWindows(
      dialog,
      [](HWND child, LPARAM parameter) -> BOOL {
        if (ClassName(child) == L"Edit" && ::IsWindowVisible(child) != FALSE &&
            ClassName(::GetParent(child)) != L"ComboBox") {
          reinterpret_cast<std::vector<HWND>*>(parameter)->push_back(child);
        }
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&fields));
  return fields;
}

/// Puts a text on the clipboard, with its end or without.
void PutOnClipboard(HWND owner, const std::wstring& text, bool ended = true) {
  ASSERT_TRUE(::OpenClipboard(owner));
  ::EmptyClipboard();
  const std::size_t units = text.size() + (ended ? 1 : 0);
  const HGLOBAL data = ::GlobalAlloc(GMEM_MOVEABLE, units * sizeof(wchar_t));
  auto* const block = static_cast<wchar_t*>(::GlobalLock(data));
  text.copy(block, text.size());
  if (ended) {
    block[text.size()] = L'\0';
  }
  ::GlobalUnlock(data);
  ::SetClipboardData(CF_UNICODETEXT, data);
  ::CloseClipboard();
}

const std::vector<std::wstring>& HostileUnits() {
  static const std::vector<std::wstring> texts{
      L"1\r\n2\t3\x01\x1B\x7F",
      L"\xD83D\xDE00\xD83D",  // a character beyond 16 bits, and half of one
      L"caf\u00E9 \u0E01\u202E\uFEFF\uFFFF",
      L"%s%n&&<M>1 x</M>\"\\",
      std::wstring(30'000, L'9'),
      std::wstring(30'000, L'('),
      std::wstring(30'000, L'表'),
      std::wstring(kMegabyte, L'漢'),
  };
  return texts;
}

using Way = void (*)(HWND field, const std::wstring& text);

void Set(HWND field, const std::wstring& text) {
  ::SendMessageW(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void ReplaceSelection(HWND field, const std::wstring& text) {
  ::SendMessageW(field, EM_SETSEL, 0, -1);
  ::SendMessageW(field, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
}

void Paste(HWND field, const std::wstring& text) {
  PutOnClipboard(field, text);
  ::SendMessageW(field, EM_SETSEL, 0, -1);
  ::SendMessageW(field, WM_PASTE, 0, 0);
}

class HostileFields : public ::testing::TestWithParam<Entry> {};

INSTANTIATE_TEST_SUITE_P(Quorvel, HostileFields, ::testing::ValuesIn(AllDialogs()),
                         [](const auto& info) { return info.param.name; });

TEST_P(HostileFields, TakeAnyTextOrSayWhyNot) {
  const std::vector<std::wstring>& texts = HostileUnits();
  std::size_t turn = GetParam().name.size();
  for (const Way way : {Set, ReplaceSelection, Paste}) {
    for (const std::wstring& text : texts) {
      // The longest is pasted; the system's field that takes all of it would need seconds.
      const bool fits = text.size() < kMegabyte || (way == Paste && GetParam().name != "InputText");
      if (!fits || ++turn % HostileStep() != 0) {
        continue;
      }
      const FillAndConfirm worker([&](HWND dialog) {
        for (const HWND field : EditFields(dialog)) {
          way(field, text);
        }
      });
      const Outcome outcome = GetParam().run(nullptr);
      EXPECT_TRUE(worker.HasWorked());
      EXPECT_TRUE(outcome.confirmed || outcome.unchanged);
    }
  }
}

bool AreWholeCharacters(const CString& text) {
  return CodePageFromWide(WideFromCodePage(text.View())) == text.View();
}

TEST(HostileTextResults, AreWholeCharacters) {
  for (const std::wstring& set : HostileUnits()) {
    if (set.size() >= kMegabyte) {
      continue;
    }
    CString text("元");
    CString name;
    int width = 1;
    int height = 2;
    int clearAll = 0;
    {
      const FillAndConfirm worker([&](HWND dialog) {
        ::SetDlgItemTextW(dialog, IDC_INPUT_VALUE, set.c_str());
      });
      __InputTextDlg("t", "c", &text, nullptr);
    }
    {
      const FillAndConfirm worker(
          [&](HWND dialog) { ::SetDlgItemTextW(dialog, IDC_PAPER_NAME, set.c_str()); });
      __UserPaperSetDlg(nullptr, &name, &width, &height, &clearAll, nullptr);
    }
    EXPECT_TRUE(AreWholeCharacters(text)) << text.GetString();
    EXPECT_TRUE(AreWholeCharacters(name)) << name.GetString();
    EXPECT_TRUE(name.View().ends_with("(1x2)"));
  }
}

TEST(HostileClipboard, ATextWithoutAnEndIsPastedAsFarAsItGoes) {
  CString text;
  const FillAndConfirm worker([](HWND dialog) {
    const HWND field = ::GetDlgItem(dialog, IDC_INPUT_VALUE);
    // The end of the block is the end of what may be read.
    PutOnClipboard(field, std::wstring(64, L'漢'), false);
    ::SendMessageW(field, WM_PASTE, 0, 0);
  });
  EXPECT_NE(__InputTextDlg("t", "c", &text, nullptr), FALSE);
  EXPECT_TRUE(AreWholeCharacters(text));
}

}  // namespace
}  // namespace quorvel::test
