#include "kivfcl/control_class.h"

#include <gtest/gtest.h>

namespace quorvel::test {
namespace {

constexpr const wchar_t* kName = L"QuorvelTestControl";

bool IsRegistered() {
  WNDCLASSEXW description{};
  description.cbSize = sizeof description;
  return ::GetClassInfoExW(::GetModuleHandleW(L"KivFcl64.dll"), kName, &description) != FALSE;
}

TEST(ControlClassTest, IsRegisteredAsLongAsItLives) {
  EXPECT_FALSE(IsRegistered());
  {
    const ControlClass registered(kName);
    EXPECT_STREQ(registered.Name(), kName);
    EXPECT_TRUE(IsRegistered());
  }
  EXPECT_FALSE(IsRegistered());
}

TEST(ControlClassTest, BelongsToItsDllAndServesEveryModule) {
  const ControlClass registered(kName);
  for (const wchar_t* module : {L"", L"KivFcl64.dll", L"Quorvel.dll"}) {
    const HWND window =
        ::CreateWindowExW(0, kName, L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr,
                          ::GetModuleHandleW(*module != L'\0' ? module : nullptr), nullptr);
    ASSERT_NE(window, nullptr) << module;
    EXPECT_EQ(::GetClassLongPtrW(window, GCLP_HMODULE),
              reinterpret_cast<ULONG_PTR>(::GetModuleHandleW(L"KivFcl64.dll")));
    EXPECT_NE(::GetClassLongPtrW(window, GCL_STYLE) & CS_DBLCLKS, 0U);
    ::DestroyWindow(window);
  }
}

}  // namespace
}  // namespace quorvel::test
