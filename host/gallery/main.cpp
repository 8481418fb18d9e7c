// The gallery: a host program that shows what Quorvel has to offer.
//
//   quorvel-gallery                    the settings of a drawing, with a button for every dialog
//   quorvel-gallery --tour FOLDER      works all dialogs by itself, pictures go to FOLDER
//
// Exit status: 0 all well, 1 the tour found something wrong, 2 wrong arguments.
#include "driver/crash_guard.h"
#include "driver/text.h"
#include "gallery/gallery_window.h"
#include "gallery/tour.h"

#include <shellapi.h>

#include <cstdio>
#include <exception>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace quorvel::gallery;

constexpr int kWell = 0;
constexpr int kWrong = 1;
constexpr int kUsage = 2;

/// Without the program's own name.
std::vector<std::wstring> Arguments() {
  struct LocalFreer {
    void operator()(LPWSTR* block) const { LocalFree(block); }
  };
  int count = 0;
  const std::unique_ptr<LPWSTR, LocalFreer> list(CommandLineToArgvW(GetCommandLineW(), &count));
  return list == nullptr ? std::vector<std::wstring>{}
                         : std::vector<std::wstring>(list.get() + 1, list.get() + count);
}

int RunGallery(const std::vector<std::wstring>& arguments) {
  const bool isTour = arguments.size() == 2 && arguments[0] == L"--tour";
  if (!arguments.empty() && !isTour) {
    std::fputs("usage: quorvel-gallery [--tour FOLDER]\n", stderr);
    return kUsage;
  }
  GalleryWindow gallery(AllExhibits());
  if (isTour) {
    return RunTour(gallery, arguments[1]) ? kWell : kWrong;
  }
  gallery.LoadSettings();
  gallery.RunMessageLoop();
  gallery.SaveSettings();
  return kWell;
}

}  // namespace

int WINAPI WinMain(HINSTANCE /*instance*/, HINSTANCE /*previous*/, LPSTR /*commandLine*/,
                   int /*show*/) {
  quorvel::driver::InstallCrashGuard();
  try {
    return RunGallery(Arguments());
  } catch (const std::exception& error) {
    std::fprintf(stderr, "FAILED: %s\n", error.what());
    return kWrong;
  }
}
