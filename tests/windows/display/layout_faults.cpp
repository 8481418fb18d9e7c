#include "display/layout_faults.h"

#include "driver/controls.h"
#include "driver/text.h"
#include "framework/geometry.h"

#include <algorithm>
#include <memory>
#include <type_traits>

namespace quorvel::test {

namespace {

using driver::ClassName;

/// Controls that touch, or lie one pixel over each other by rounding, hide nothing.
constexpr int kTolerated = 1;

std::vector<HWND> ShownChildren(HWND parent) {
  std::vector<HWND> children;
  for (HWND child = ::GetWindow(parent, GW_CHILD); child != nullptr;
       child = ::GetWindow(child, GW_HWNDNEXT)) {
    if (::IsWindowVisible(child) != FALSE) {
      children.push_back(child);
    }
  }
  return children;
}

LONG_PTR StyleOf(HWND window) { return ::GetWindowLongPtrW(window, GWL_STYLE); }
bool IsClass(HWND window, const wchar_t* name) {
  return ::_wcsicmp(ClassName(window).c_str(), name) == 0;
}

LONG_PTR ButtonType(HWND button) { return StyleOf(button) & BS_TYPEMASK; }

/// What other controls stand in.
bool IsFrame(HWND control) {
  if (IsClass(control, L"Button")) {
    return ButtonType(control) == BS_GROUPBOX;
  }
  if (IsClass(control, L"Static")) {
    const LONG_PTR type = StyleOf(control) & SS_TYPEMASK;
    return (type >= SS_BLACKRECT && type <= SS_WHITEFRAME) ||
           (type >= SS_ETCHEDHORZ && type <= SS_ETCHEDFRAME);
  }
  return IsClass(control, L"SysTabControl32");
}

std::string NameOf(HWND control) {
  return driver::Utf8(ClassName(control)) + " " + std::to_string(::GetDlgCtrlID(control)) + " '" +
         driver::Utf8(driver::Text(control)) + "'";
}

std::string RectText(const CRect& rect) {
  return "(" + std::to_string(rect.left) + "," + std::to_string(rect.top) + " " +
         std::to_string(rect.Width()) + "x" + std::to_string(rect.Height()) + ")";
}

/// Where its text is drawn; empty for a control that draws no text of its own.
CRect TextArea(HWND control) {
  RECT client{};
  ::GetClientRect(control, &client);
  CRect area(client);
  if (IsClass(control, L"Static")) {
    const LONG_PTR type = StyleOf(control) & SS_TYPEMASK;
    const bool isText = type == SS_LEFT || type == SS_CENTER || type == SS_RIGHT ||
                        type == SS_SIMPLE || type == SS_LEFTNOWORDWRAP;
    return isText ? area : CRect();
  }
  if (!IsClass(control, L"Button") || (StyleOf(control) & BS_BITMAP) != 0) {
    return {};
  }
  switch (ButtonType(control)) {
    case BS_PUSHBUTTON:
    case BS_DEFPUSHBUTTON:
      return area;
    case BS_CHECKBOX:
    case BS_AUTOCHECKBOX:
    case BS_3STATE:
    case BS_AUTO3STATE:
    case BS_RADIOBUTTON:
    case BS_AUTORADIOBUTTON:
      if ((StyleOf(control) & BS_PUSHLIKE) == 0) {
        area.left += ::GetSystemMetrics(SM_CXMENUCHECK);
      }
      return area;
    default:
      return {};  // drawn by its owner, or a group box, whose text has a line of its own
  }
}

CSize TextSize(HWND control, int width) {
  const std::wstring text = driver::Text(control);
  const HDC deviceContext = ::GetDC(control);
  const HGDIOBJ font = reinterpret_cast<HGDIOBJ>(::SendMessageW(control, WM_GETFONT, 0, 0));
  const HGDIOBJ previous =
      ::SelectObject(deviceContext, font != nullptr ? font : ::GetStockObject(SYSTEM_FONT));
  RECT needed{0, 0, width, 0};
  const UINT wraps = IsClass(control, L"Static") ? DT_WORDBREAK : DT_SINGLELINE;
  ::DrawTextW(deviceContext, text.c_str(), static_cast<int>(text.size()), &needed,
              DT_CALCRECT | wraps);
  ::SelectObject(deviceContext, previous);
  ::ReleaseDC(control, deviceContext);
  return CRect(needed).Size();
}

void AddTextFault(HWND control, std::vector<std::string>& faults) {
  const CRect area = TextArea(control);
  if (area.Width() <= 0 || driver::Text(control).empty()) {
    return;
  }
  const CSize size = TextSize(control, area.Width());
  if (size.cx > area.Width() + kTolerated || size.cy > area.Height() + kTolerated) {
    faults.push_back(NameOf(control) + " needs " + std::to_string(size.cx) + "x" +
                     std::to_string(size.cy) + " and has " + RectText(area));
  }
}

void AddFaultsOfChildren(HWND parent, std::vector<std::string>& faults) {
  RECT client{};
  ::GetClientRect(parent, &client);
  const std::vector<HWND> children = ShownChildren(parent);
  for (std::size_t i = 0; i < children.size(); ++i) {
    const CRect rect(driver::ClientRectOf(children[i]));
    RECT seen{};
    const CRect grown = CRect(client).Grown(kTolerated, kTolerated);
    ::IntersectRect(&seen, &rect, &grown);
    if (CRect(seen) != rect) {
      faults.push_back(NameOf(children[i]) + " reaches out of its dialog: " + RectText(rect));
    }
    AddTextFault(children[i], faults);
    for (std::size_t j = i + 1; j < children.size(); ++j) {
      const CRect other(driver::ClientRectOf(children[j]));
      RECT common{};
      if (!IsFrame(children[i]) && !IsFrame(children[j]) &&
          ::IntersectRect(&common, &rect, &other) != FALSE &&
          CRect(common).Width() > kTolerated && CRect(common).Height() > kTolerated) {
        faults.push_back(NameOf(children[i]) + RectText(rect) + " and " + NameOf(children[j]) +
                         RectText(other) + " lie over each other");
      }
    }
    if (IsClass(children[i], L"#32770")) {
      AddFaultsOfChildren(children[i], faults);
    }
  }
}

}  // namespace

std::vector<std::string> LayoutFaults(HWND dialog) {
  std::vector<std::string> faults;
  AddFaultsOfChildren(dialog, faults);
  return faults;
}

}  // namespace quorvel::test
