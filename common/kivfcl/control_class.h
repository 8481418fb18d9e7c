// ControlClass: the window class of a control that this DLL brings along.
//
//   static const quorvel::ControlClass registered(L"KivSliderCtrl");   // at the first use
//   CreateChild(registered.Name(), ...);
#pragma once

#include "framework/base_types.h"
#include "kivfcl/kivfcl_export.h"

namespace quorvel {

/// Registered for this DLL as long as the object lives, and found from every module of the process:
/// a dialog asks for it on behalf of its own module. The window's own procedure is the platform's
/// default; all behaviour comes from the CWnd attached to it. Double clicks are told; nothing is
/// erased before it is painted.
class KIVFCL_API ControlClass {
public:
  /// `name` must outlive the object.
  explicit ControlClass(const wchar_t* name);
  ~ControlClass();
  ControlClass(const ControlClass&) = delete;
  ControlClass& operator=(const ControlClass&) = delete;

  const wchar_t* Name() const { return m_name; }

private:
  const wchar_t* m_name;
};

}  // namespace quorvel
