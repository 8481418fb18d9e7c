// The module whose templates and strings the framework uses, and its activation context: switched on
// when an entry is called and restored on every way out of it.
//
//   BOOL __AnEntry() {
//     AFX_MANAGE_STATE(AfxGetStaticModuleState());
//     ...
#pragma once

#include "framework/base_types.h"
#include "framework/frame_export.h"

#include <mutex>

/// What the framework knows of one module (DLL or program). A static object of that module.
class FRAME_API AFX_MODULE_STATE {
public:
  /// `addressInModule` is any address inside the module, such as that of the state itself.
  explicit AFX_MODULE_STATE(const void* addressInModule);
  ~AFX_MODULE_STATE();
  AFX_MODULE_STATE(const AFX_MODULE_STATE&) = delete;
  AFX_MODULE_STATE& operator=(const AFX_MODULE_STATE&) = delete;

  HINSTANCE GetInstance() const { return m_hInstance; }

  /// The context of the module's manifest (resource 2), made at the first call and kept;
  /// INVALID_HANDLE_VALUE where the module has none.
  HANDLE GetActivationContext();

private:
  void CreateActivationContext();

  HINSTANCE m_hInstance = nullptr;
  HANDLE m_hActivationContext = INVALID_HANDLE_VALUE;
  std::once_flag m_contextCreated;
};

/// Each module that uses AFX_MANAGE_STATE defines this for itself.
AFX_MODULE_STATE* AfxGetStaticModuleState();

/// The module whose resources this thread uses now: that of the innermost guard, else the program.
FRAME_API HINSTANCE AfxGetResourceHandle();
FRAME_API HINSTANCE AfxGetInstanceHandle();

/// Makes `state` this thread's module state, and its activation context the active one, for as long
/// as the guard lives.
class FRAME_API AFX_MAINTAIN_STATE2 {
public:
  explicit AFX_MAINTAIN_STATE2(AFX_MODULE_STATE* state);
  ~AFX_MAINTAIN_STATE2();
  AFX_MAINTAIN_STATE2(const AFX_MAINTAIN_STATE2&) = delete;
  AFX_MAINTAIN_STATE2& operator=(const AFX_MAINTAIN_STATE2&) = delete;

private:
  AFX_MODULE_STATE* m_pPrevious;
  ULONG_PTR m_nCookie = 0;
  bool m_bActivated = false;
};

#define AFX_MANAGE_STATE(state) const AFX_MAINTAIN_STATE2 maintainedModuleState(state)
