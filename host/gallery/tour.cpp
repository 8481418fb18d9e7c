#include "gallery/tour.h"

#include "driver/controls.h"
#include "driver/modal_script.h"
#include "driver/picture.h"
#include "driver/text.h"

#include <array>
#include <cstdio>
#include <functional>
#include <string>
#include <system_error>
#include <utility>

namespace quorvel::gallery {

namespace {

/// The gallery's pages with their pictures.
struct Page {
  Group group;
  const char* picture;
};
constexpr std::array kPages{Page{Group::kDrawing, "gallery.png"},
                            Page{Group::kColours, "gallery-colours.png"},
                            Page{Group::kLetters, "gallery-letters.png"},
                            Page{Group::kForms, "gallery-forms.png"},
                            Page{Group::kFormParts, "gallery-form-parts.png"}};

void PrintLine(const std::wstring& line) {
  std::puts(driver::Utf8(line).c_str());
  std::fflush(stdout);
}

void TakePicture(HWND window, const std::filesystem::path& file) {
  driver::SavePng(driver::ReadScreen(driver::WindowRect(window)), file);
}

/// What was not as expected in one run; empty if nothing.
std::wstring Difference(const TourStop& stop, const driver::ModalScript& script,
                        const RunReport& report) {
  if (!script.Problem().empty()) {
    return driver::Utf16(script.Problem());
  }
  if (!script.Finished()) {
    return L"the dialog closed before it was worked";
  }
  if (report.outcome != std::wstring_view(stop.outcome)) {
    return std::wstring(L"expected the outcome ") + stop.outcome;
  }
  return report.value == stop.value ? L"" : L"expected the value " + stop.value;
}

/// `condition` once `holds` does, too; always if that is empty.
driver::Condition Once(std::function<bool()> holds, driver::Condition condition) {
  if (!holds) {
    return condition;
  }
  std::string what = condition.what + ", all in sight";
  return {std::move(what), [holds = std::move(holds), find = std::move(condition.find)] {
            return holds() ? find() : nullptr;
          }};
}

/// Visits one stop; the dialog's picture goes to `picture` unless that is empty, those of its scenes
/// to `folder`.
bool Visit(GalleryWindow& gallery, std::size_t index, const TourStop& stop,
           const std::filesystem::path& folder, const std::filesystem::path& picture) {
  stop.setUp();
  gallery.AllowMousePick(stop.options.allowMousePick);
  const auto steady = [&stop](const std::wstring& title = {}) {
    return driver::SteadyOnScreen(driver::DialogWithTitle(title.empty() ? stop.title : title));
  };
  driver::ModalScript script;
  script.When(steady(), [&](HWND dialog) {
    if (!picture.empty()) {
      TakePicture(dialog, picture);
    }
  });
  for (const Scene& scene : stop.scenes) {
    script.When(steady(scene.title), scene.show);
    if (!scene.picture.empty()) {
      script.When(Once(scene.isInSight, steady(scene.title)), [&](HWND dialog) {
        TakePicture(dialog, folder / (scene.picture + ".png"));
      });
    }
  }
  script.When(steady(), [&](HWND dialog) { stop.work(dialog, script); });
  const RunReport report = gallery.Run(index);
  PrintLine(report.line);
  const std::wstring difference = Difference(stop, script, report);
  if (!difference.empty()) {
    PrintLine(L"FAILED " + gallery.Exhibits()[index].entry + L": " + difference);
  }
  return difference.empty();
}

/// Whether the value comes back from what is kept of it, and nothing from what is no value.
bool IsKept(const Exhibit& exhibit) {
  const std::wstring before = exhibit.value();
  Bytes kept = exhibit.kept.bytes();
  const bool comesBack = exhibit.kept.restore(kept) && exhibit.value() == before;
  kept.pop_back();
  const bool isRefused = !exhibit.kept.restore(kept) && exhibit.value() == before;
  if (!comesBack || !isRefused) {
    PrintLine(L"FAILED " + exhibit.entry + L": its value is not kept");
  }
  return comesBack && isRefused;
}

}  // namespace

bool RunTour(GalleryWindow& gallery, const std::filesystem::path& folder) {
  std::filesystem::create_directories(folder);
  SetForegroundWindow(gallery.Handle());
  driver::WaitFor(driver::SteadyOnScreen(driver::ThisWindow(gallery.Handle())));
  bool asExpected = true;
  const std::vector<Exhibit>& exhibits = gallery.Exhibits();
  for (std::size_t index = 0; index < exhibits.size(); ++index) {
    std::filesystem::path picture = folder / (exhibits[index].name + ".png");
    for (const TourStop& stop : exhibits[index].tour) {
      asExpected = Visit(gallery, index, stop, folder, picture) && asExpected;
      picture.clear();  // one of the first opening is enough
    }
    asExpected = IsKept(exhibits[index]) && asExpected;
  }
  for (const auto& [group, name] : kPages) {
    gallery.ShowGroup(group);
    driver::WaitFor(driver::SteadyOnScreen(driver::ThisWindow(gallery.Handle())));
    TakePicture(gallery.Handle(), folder / name);
  }
  return asExpected;
}

}  // namespace quorvel::gallery
