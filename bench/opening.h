// How long a modal dialog takes from the call to its first full paint and from the answer to the
// return, against the same template run bare by the platform in the same process.
#pragma once

#include "bench/report.h"
#include "framework/base_types.h"

#include <functional>
#include <string>
#include <vector>

namespace quorvel::bench {

/// A visible window that owns the dialogs. It hears from each dialog's modal loop when that has
/// nothing left to do; once the dialog and all its controls have been painted it notes the time and
/// presses OK.
class DialogOwner {
public:
  DialogOwner();
  ~DialogOwner();
  DialogOwner(const DialogOwner&) = delete;
  DialogOwner& operator=(const DialogOwner&) = delete;

  HWND Window() const { return m_window; }

  struct Times {
    double openToPaint;      ///< milliseconds
    double confirmToReturn;  ///< milliseconds
  };
  /// Times a call that runs one modal dialog owned by this window. Throws std::runtime_error when
  /// the dialog was never painted.
  Times Time(const std::function<void()>& call);

private:
  static LRESULT CALLBACK Proc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  HWND m_window = nullptr;
};

/// Runs a template of Quorvel.dll with a procedure that does nothing but close, in the library's
/// activation context, so that it looks the same.
class BareDialog {
public:
  explicit BareDialog(UINT templateId);
  ~BareDialog();
  BareDialog(const BareDialog&) = delete;
  BareDialog& operator=(const BareDialog&) = delete;
  void Run(HWND owner) const;

private:
  HMODULE m_library;
  UINT m_templateId;
  HANDLE m_context;
};

/// The two rows of a dialog: `call` and the bare template in turn, `runs` times each after a
/// warm-up, medians compared.
std::vector<Row> CompareOpening(const std::string& name, UINT templateId, int runs,
                                const std::function<void()>& call);

}  // namespace quorvel::bench
