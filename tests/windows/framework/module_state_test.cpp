#include "framework/module_state.h"

#include <gtest/gtest.h>

#include <stdexcept>

AFX_MODULE_STATE* AfxGetStaticModuleState() {
  static AFX_MODULE_STATE state(&state);
  return &state;
}

namespace quorvel::test {
namespace {

TEST(ModuleState, OutsideAnyGuardTheProgramsResourcesAreUsed) {
  EXPECT_EQ(AfxGetResourceHandle(), ::GetModuleHandleW(nullptr));
  EXPECT_EQ(AfxGetInstanceHandle(), ::GetModuleHandleW(nullptr));
}

TEST(ModuleState, NestsAndIsRestoredOnEveryWayOut) {
  const HMODULE other = ::GetModuleHandleW(L"Quorvel.dll");
  ASSERT_NE(other, nullptr);
  AFX_MODULE_STATE otherState(
      reinterpret_cast<const void*>(::GetProcAddress(other, "__InputDpiDlg")));
  EXPECT_EQ(otherState.GetInstance(), other);
  HANDLE before = nullptr;
  ::GetCurrentActCtx(&before);
  try {
    AFX_MANAGE_STATE(&otherState);
    EXPECT_EQ(AfxGetResourceHandle(), other);
    HANDLE during = nullptr;
    ::GetCurrentActCtx(&during);
    EXPECT_EQ(during, otherState.GetActivationContext());
    ::ReleaseActCtx(during);
    {
      AFX_MANAGE_STATE(AfxGetStaticModuleState());
      EXPECT_EQ(AfxGetResourceHandle(), ::GetModuleHandleW(nullptr));
    }
    EXPECT_EQ(AfxGetResourceHandle(), other);
    throw std::runtime_error("out of the guarded block");
  } catch (const std::runtime_error&) {
  }
  HANDLE after = nullptr;
  ::GetCurrentActCtx(&after);
  EXPECT_EQ(after, before);
  EXPECT_EQ(AfxGetResourceHandle(), ::GetModuleHandleW(nullptr));
  ::ReleaseActCtx(before);
  ::ReleaseActCtx(after);
}

TEST(ModuleState, AModuleWithoutAManifestHasNoContext) {
  EXPECT_EQ(AfxGetStaticModuleState()->GetActivationContext(), INVALID_HANDLE_VALUE);
}

}  // namespace
}  // namespace quorvel::test
