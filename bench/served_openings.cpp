#include "bench/served_openings.h"

#include "bench/opening.h"
#include "driver/dialog_owner.h"

#include <quorvel/quorvel.h>

#include <array>
#include <iostream>
#include <stdexcept>
#include <string>

namespace quorvel::bench {

namespace {

constexpr COLORREF kColor = RGB(51, 102, 255);

struct Served {
  const char* name;
  void (*open)();
};

constexpr std::array kServed{
    Served{"sel-color",
           [] {
             COLORREF color = kColor;
             __SelColorDlg(nullptr, &color, nullptr);
           }},
    Served{"sel-rgb",
           [] {
             COLORREF color = kColor;
             __SelRGBDlg(&color);
           }},
    Served{"sel-font",
           [] {
             CKivFont font;
             __SelFontDlg(nullptr, &font, 0.0, nullptr, TRUE, FALSE, QUORVEL_FONT_ALL);
           }},
    Served{"input-text",
           [] {
             CString text("初期値");
             __InputTextDlg("題名", "説明", &text, nullptr);
           }},
    Served{"input-scale", [] {
             double scale = 100.0;
             __InputScaleDlg("題名", "説明", &scale, nullptr);
           }}};

void (*Named(const std::string& name))() {
  for (const Served& served : kServed) {
    if (name == served.name) {
      return served.open;
    }
  }
  throw std::runtime_error("no dialog is called " + name);
}

void PaintOwner(HWND owner) {
  ::UpdateWindow(owner);
  MSG message{};
  while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
    ::DispatchMessageW(&message);
  }
  ::GdiFlush();
}

}  // namespace

void ServeOpenings() {
  driver::DialogOwner owner;
  PaintOwner(owner.Window());
  std::cout << "ready" << std::endl;
  std::string name;
  while (std::getline(std::cin, name)) {
    const OpeningTimes times = TimeOpening(owner, Named(name));
    std::cout << times.openToPaint << ' ' << times.confirmToReturn << std::endl;
  }
}

}  // namespace quorvel::bench
