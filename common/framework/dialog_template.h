// The controls of a dialog template, made one by one.
//
//   const DialogTemplate dialogTemplate(resource);
//   CreateDialogIndirectParamW(module, dialogTemplate.WithoutControls(), ...);
//   dialogTemplate.CreateControls(dialog, controls);   // at WM_INITDIALOG
//
// The system would make all controls of a dialog alike, also those that are better made in a way of
// their own: see framework/control_window.
#pragma once

#include "framework/base_types.h"

#include <vector>

namespace quorvel {

struct TemplateControl {
  HWND window = nullptr;
  int id = 0;
  bool isEditField = false;
};

/// An extended template (DIALOGEX), which must outlive the object: a resource does.
class DialogTemplate {
public:
  explicit DialogTemplate(const void* resource);

  /// The dialog alone; the pointer is good for as long as the object lives.
  const DLGTEMPLATE* WithoutControls() const;

  /// Makes the controls in the order of the template, with the dialog's font, and tells the dialog
  /// its default button. `made` gets them in that order. False, with those before it made, when one
  /// cannot be made.
  bool CreateControls(HWND dialog, std::vector<TemplateControl>& made) const;

private:
  const BYTE* m_firstControl = nullptr;
  int m_controls = 0;
  std::vector<DWORD> m_dialogAlone;  ///< of DWORDs, as a template is aligned
};

}  // namespace quorvel
