#include "bench/opening.h"

#include <algorithm>
#include <cstddef>
#include <stdexcept>

namespace quorvel::bench {

namespace {

constexpr wchar_t kOwnerClass[] = L"QuorvelBenchOwner";
constexpr int kWarmUps = 20;
constexpr double kMostTimesBare = 1.3;
constexpr double kMostMillisecondsOverBare = 5.0;

LONGLONG Now() {
  LARGE_INTEGER count{};
  ::QueryPerformanceCounter(&count);
  return count.QuadPart;
}

double Milliseconds(LONGLONG from, LONGLONG to) {
  LARGE_INTEGER perSecond{};
  ::QueryPerformanceFrequency(&perSecond);
  return 1000.0 * static_cast<double>(to - from) / static_cast<double>(perSecond.QuadPart);
}

/// When the dialog in hand had been painted; 0 until then.
LONGLONG g_painted = 0;

bool HasSomethingToPaint(HWND window) {
  return ::IsWindowVisible(window) != FALSE && ::GetUpdateRect(window, nullptr, FALSE) != FALSE;
}

bool IsPainted(HWND dialog) {
  if (::IsWindowVisible(dialog) == FALSE || HasSomethingToPaint(dialog)) {
    return false;
  }
  const auto goOnWhilePainted = [](HWND child, LPARAM) -> BOOL {
    return HasSomethingToPaint(child) ? FALSE : TRUE;
  };
  // Tells FALSE also when there is no child to ask, which no dialog here lacks.
  return ::EnumChildWindows(dialog, goOnWhilePainted, 0) != FALSE;
}

double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

INT_PTR CALLBACK BareProc(HWND dialog, UINT message, WPARAM wParam, LPARAM /*lParam*/) {
  if (message == WM_COMMAND && LOWORD(wParam) == IDOK) {
    ::EndDialog(dialog, IDOK);
    return TRUE;
  }
  return message == WM_INITDIALOG ? TRUE : FALSE;
}

}  // namespace

DialogOwner::DialogOwner() {
  WNDCLASSW description{};
  description.lpfnWndProc = &DialogOwner::Proc;
  description.lpszClassName = kOwnerClass;
  ::RegisterClassW(&description);
  m_window = ::CreateWindowExW(0, kOwnerClass, L"bench", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 300, 200,
                               400, 300, nullptr, nullptr, nullptr, nullptr);
  ::SetActiveWindow(m_window);
}

DialogOwner::~DialogOwner() {
  ::DestroyWindow(m_window);
  ::UnregisterClassW(kOwnerClass, nullptr);
}

LRESULT CALLBACK DialogOwner::Proc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const auto dialog = reinterpret_cast<HWND>(lParam);
  if (message == WM_ENTERIDLE && wParam == MSGF_DIALOGBOX && g_painted == 0 && IsPainted(dialog)) {
    ::GdiFlush();
    g_painted = Now();
    ::PostMessageW(dialog, WM_COMMAND, IDOK, 0);
  }
  return ::DefWindowProcW(window, message, wParam, lParam);
}

DialogOwner::Times DialogOwner::Time(const std::function<void()>& call) {
  g_painted = 0;
  const LONGLONG called = Now();
  call();
  const LONGLONG returned = Now();
  if (g_painted == 0) {
    throw std::runtime_error("a dialog closed before it was painted");
  }
  return {.openToPaint = Milliseconds(called, g_painted),
          .confirmToReturn = Milliseconds(g_painted, returned)};
}

BareDialog::BareDialog(UINT templateId)
    : m_library(::GetModuleHandleW(L"Quorvel.dll")), m_templateId(templateId) {
  constexpr WORD kManifestResource = 2;
  ACTCTXW description{};
  description.cbSize = sizeof description;
  description.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
  description.hModule = m_library;
  description.lpResourceName = MAKEINTRESOURCEW(kManifestResource);
  m_context = ::CreateActCtxW(&description);
}

BareDialog::~BareDialog() { ::ReleaseActCtx(m_context); }

void BareDialog::Run(HWND owner) const {
  ULONG_PTR cookie = 0;
  ::ActivateActCtx(m_context, &cookie);
  ::DialogBoxParamW(m_library, MAKEINTRESOURCEW(m_templateId), owner, BareProc, 0);
  ::DeactivateActCtx(0, cookie);
}

std::vector<Row> CompareOpening(const std::string& name, UINT templateId, int runs,
                                const std::function<void()>& call) {
  DialogOwner owner;
  const BareDialog bare(templateId);
  std::vector<double> paint;
  std::vector<double> barePaint;
  std::vector<double> back;
  std::vector<double> bareBack;
  for (int run = -kWarmUps; run < runs; ++run) {
    const DialogOwner::Times ours = owner.Time(call);
    const DialogOwner::Times theirs = owner.Time([&] { bare.Run(owner.Window()); });
    if (run >= 0) {
      paint.push_back(ours.openToPaint);
      barePaint.push_back(theirs.openToPaint);
      back.push_back(ours.confirmToReturn);
      bareBack.push_back(theirs.confirmToReturn);
    }
  }
  return {{name + ", open to first full paint", "times bare", Median(paint) / Median(barePaint),
           kMostTimesBare, runs},
          {name + ", confirm to return", "ms over bare", Median(back) - Median(bareBack),
           kMostMillisecondsOverBare, runs}};
}

}  // namespace quorvel::bench
