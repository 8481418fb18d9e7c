// What the gallery shows: a setting of a drawing for each entry of the library, and for dialogs that
// its layout editors open.
//
//   for (const Exhibit& exhibit : AllExhibits()) {
//     Outcome outcome = exhibit.run({.allowMousePick = true});  // opens the dialog
//     std::wstring now = exhibit.shown();                       // 1 / 1000
//     std::wstring logged = exhibit.value();                    // scale=1000.4
//   }
#pragma once

#include "driver/modal_script.h"
#include "gallery/kept_value.h"

#include <functional>
#include <string>
#include <vector>

namespace quorvel::gallery {

/// What the user decided, worded for the log; a constant text.
using Outcome = const wchar_t*;

inline constexpr Outcome kConfirmed = L"confirmed";
inline constexpr Outcome kCancelled = L"cancelled";
inline constexpr Outcome kMousePick = L"mouse pick requested";
inline constexpr Outcome kClearAll = L"clear all requested";
inline constexpr Outcome kNotShown = L"not shown";

struct RunOptions {
  /// Whether the point dialogs offer the mouse.
  bool allowMousePick = false;
};

/// A further look at a dialog of the tour.
struct Scene {
  /// Brings it up by posting what a user does.
  std::function<void(HWND dialog)> show;
  /// Of the dialog that is worked and pictured; empty for that of the stop.
  std::wstring title = {};
  /// The picture's name, without ".png"; empty for a step on the way to another scene.
  std::string picture = {};
  /// Whether what is to be pictured is in sight; empty where the dialog itself tells.
  std::function<bool()> isInSight = {};
};

/// One visit of the tour: a dialog that is opened, worked and compared with what must come of it.
struct TourStop {
  RunOptions options;
  /// The dialog's title.
  std::wstring title;
  /// Puts the initial value in hand.
  std::function<void()> setUp;
  /// Shown and pictured in their order before the dialog is worked.
  std::vector<Scene> scenes = {};
  /// Works the dialog until it closes; may append steps to the script. Throws std::exception if the
  /// dialog does not show what it should.
  std::function<void(HWND dialog, driver::ModalScript& script)> work;
  /// What must come back.
  Outcome outcome;
  std::wstring value;
};

/// The pages of the settings window, in its order.
enum class Group { kDrawing, kColours, kLetters, kForms, kFormParts };

struct Exhibit {
  /// In small letters, for files.
  std::string name;
  Group group;
  /// The library's function, or the class of a dialog that no function opens by itself.
  std::wstring entry;
  /// The setting's name with its access key, on its button.
  std::wstring label;
  /// The value in hand as a user reads it.
  std::function<std::wstring()> shown;
  /// The value in hand for the log. Different values have different texts, but for what the preview
  /// shows.
  std::function<std::wstring()> value;
  /// How the value in hand is kept.
  KeptValue kept;
  /// The colour in hand, shown beside the value; empty where the value is no colour.
  std::function<COLORREF()> color = {};
  /// Draws the value in hand into a rectangle beside its text; empty where the text says it all.
  std::function<void(HDC deviceContext, const RECT& area)> preview = {};
  /// How high that rectangle is, in lines of text.
  int previewLines = 5;
  /// How wide, in the same lines.
  int previewColumns = 20;
  /// Opens the dialog with the value in hand, which changes as the entry says.
  std::function<Outcome(const RunOptions&)> run;
  std::vector<TourStop> tour;
};

/// Every row, in the order of the window. The value in hand lives as long as its row or a copy.
std::vector<Exhibit> AllExhibits();

}  // namespace quorvel::gallery
