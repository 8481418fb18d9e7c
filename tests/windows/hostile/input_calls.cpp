// The entries that ask for a text, numbers or ticks, and the position of all entries.
#include "hostile/hostile_call.h"
#include "hostile/hostile_values.h"

#include "kivcomm/rounding.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <vector>

namespace quorvel::test {

namespace {

constexpr double kHighestInt = std::numeric_limits<int>::max();
constexpr double kLowestInt = std::numeric_limits<int>::min();

/// NaN is the same as itself, and zero is not negative zero.
bool IsSameNumber(double one, double other) {
  return std::bit_cast<std::uint64_t>(one) == std::bit_cast<std::uint64_t>(other);
}

/// What a text field gives back unless it is touched: all up to a zero byte.
CString UpToZero(const CString& text) { return {text.GetString()}; }

Outcome RunText(const char* title, const char* comment, const CString& initial) {
  CString text = initial;
  const bool confirmed = __InputTextDlg(title, comment, &text, nullptr) != FALSE;
  if (confirmed) {
    EXPECT_TRUE(text == UpToZero(initial)) << "an untouched text keeps its bytes";
  }
  return {confirmed, text == initial};
}

double ShownScale(double scale) {
  if (std::isnan(scale)) {
    return 0.0;
  }
  return std::trunc(std::clamp(std::round(scale), kLowestInt, kHighestInt)) + 0.0;
}

Outcome RunScale(const char* title, const char* comment, double initial) {
  double scale = initial;
  const bool confirmed = __InputScaleDlg(title, comment, &scale, nullptr) != FALSE;
  if (confirmed) {
    EXPECT_EQ(scale, ShownScale(initial));
  }
  return {confirmed, IsSameNumber(scale, initial)};
}

/// A finite coordinate comes back as its text says it, any other as no number does.
double ConfirmedCoordinate(double value) {
  return std::isfinite(value) ? __KivComm_CutValue2(value, 3, quorvel::kCutHalfAwayFromZero) : 0.0;
}

template <std::size_t Count>
Outcome RunPoint(const std::array<double, Count>& initial) {
  std::array<double, Count> point = initial;
  const INT_PTR result = Count == 2 ? __InputPointXYDlg(point.data(), TRUE, nullptr)
                                    : __InputPointXYZDlg(point.data(), FALSE, nullptr);
  bool unchanged = true;
  for (std::size_t i = 0; i < Count; ++i) {
    if (result == QUORVEL_POINT_CONFIRMED) {
      EXPECT_EQ(point.at(i), ConfirmedCoordinate(initial.at(i))) << i;
    }
    unchanged = unchanged && IsSameNumber(point.at(i), initial.at(i));
  }
  return {result == QUORVEL_POINT_CONFIRMED, unchanged};
}

Outcome RunPaper(const CString& initialName, int initialWidth, int initialHeight) {
  CString name = initialName;
  int width = initialWidth;
  int height = initialHeight;
  int clearAll = std::numeric_limits<int>::min();
  const bool confirmed =
      __UserPaperSetDlg(&name, &name, &width, &height, &clearAll, &clearAll) == 1;
  EXPECT_EQ(clearAll, 0);
  if (confirmed) {
    CString size;
    size.Format("(%dx%d)", initialWidth, initialHeight);
    EXPECT_TRUE(name == size) << name.GetString();
  }
  return {confirmed, width == initialWidth && height == initialHeight &&
                         (confirmed || name == initialName)};
}

/// The system's edit fields take seconds for a megabyte, whoever makes them.
CString ForAField(const CString& text) {
  constexpr std::size_t kLongest = 50'000;
  return CString(text.View().substr(0, kLongest));
}

using Items = CArray<CString, CString&>;

Outcome RunCheckList(const CString& title, const std::vector<CString>& names,
                     const std::vector<BYTE>& initial) {
  Items items;
  for (CString name : names) {
    items.Add(name);
  }
  CByteArray states;
  for (const BYTE state : initial) {
    states.Add(state);
  }
  const INT_PTR result = __CheckListDlg(&title, &items, &states);
  EXPECT_EQ(states.GetSize(), static_cast<INT_PTR>(initial.size()));
  bool unchanged = true;
  for (INT_PTR i = 0; i < states.GetSize(); ++i) {
    const BYTE before = initial[static_cast<std::size_t>(i)];
    unchanged = unchanged && states[i] == before;
    if (result == IDOK) {
      const bool isShown = i < items.GetSize();
      EXPECT_EQ(states[i], isShown ? static_cast<BYTE>(before != 0) : before) << i;
    }
  }
  return {result == IDOK, unchanged};
}

void AddNulls(HostileTable& calls) {
  calls.Add("InputText_title", "Null", [] { return RunText(nullptr, "c", "t"); });
  calls.Add("InputText_comment", "Null", [] { return RunText("t", nullptr, "t"); });
  calls.Add("InputText_text", "Null",
            [] { return Outcome{__InputTextDlg("t", "c", nullptr, nullptr) != FALSE, true}; },
            Opening::kNone);
  calls.Add("InputScale_title", "Null", [] { return RunScale(nullptr, "c", 1.0); });
  calls.Add("InputScale_comment", "Null", [] { return RunScale("t", nullptr, 1.0); });
  calls.Add("InputScale_scale", "Null",
            [] { return Outcome{__InputScaleDlg("t", "c", nullptr, nullptr) != FALSE, true}; },
            Opening::kNone);
  calls.Add("InputDpi_dpi", "Null",
            [] { return Outcome{__InputDpiDlg(nullptr, nullptr) != FALSE, true}; },
            Opening::kNone);
  calls.Add("InputPointXY_point", "Null",
            [] { return Outcome{__InputPointXYDlg(nullptr, TRUE, nullptr) != 1, true}; },
            Opening::kNone);
  calls.Add("InputPointXYZ_point", "Null",
            [] { return Outcome{__InputPointXYZDlg(nullptr, TRUE, nullptr) != 1, true}; },
            Opening::kNone);
}

void AddNullsOfPaper(HostileTable& calls) {
  const auto call = [](bool name, bool width, bool height, bool clearAll) {
    CString text("A3");
    int across = 1;
    int down = 2;
    int clear = 7;
    const INT_PTR result =
        __UserPaperSetDlg(nullptr, name ? nullptr : &text, width ? nullptr : &across,
                          height ? nullptr : &down, clearAll ? nullptr : &clear, nullptr);
    return Outcome{result != 0, text == "A3" && across == 1 && down == 2 && clear == 7};
  };
  calls.Add("UserPaper_name", "Null", [=] { return call(true, false, false, false); },
            Opening::kNone);
  calls.Add("UserPaper_width", "Null", [=] { return call(false, true, false, false); },
            Opening::kNone);
  calls.Add("UserPaper_height", "Null", [=] { return call(false, false, true, false); },
            Opening::kNone);
  calls.Add("UserPaper_clearAll", "Null", [=] { return call(false, false, false, true); },
            Opening::kNone);
}

void AddNullsOfCheckList(HostileTable& calls) {
  const auto call = [](bool noTitle, bool noItems, bool noStates) {
    const CString title("t");
    const Items items;
    CByteArray states;
    const INT_PTR result = __CheckListDlg(noTitle ? nullptr : &title, noItems ? nullptr : &items,
                                          noStates ? nullptr : &states);
    return Outcome{result != -1, true};
  };
  calls.Add("CheckList_title", "Null", [=] { return call(true, false, false); }, Opening::kNone);
  calls.Add("CheckList_items", "Null", [=] { return call(false, true, false); }, Opening::kNone);
  calls.Add("CheckList_states", "Null", [=] { return call(false, false, true); }, Opening::kNone);
}

void AddTexts(HostileTable& calls) {
  for (const Named<std::string>& text : HostileTexts()) {
    const std::string& value = text.value;
    calls.Add("InputText_title", text.name, [&] { return RunText(value.c_str(), "c", "t"); });
    calls.Add("InputText_comment", text.name, [&] { return RunText("t", value.c_str(), "t"); });
    calls.Add("InputScale_title", text.name, [&] { return RunScale(value.c_str(), "c", 1.0); });
    calls.Add("InputScale_comment", text.name,
              [&] { return RunScale("t", value.c_str(), 1.0); });
  }
  for (const Named<CString>& text : HostileStrings()) {
    const CString value = ForAField(text.value);
    calls.Add("InputText_text", text.name, [=] { return RunText("t", "c", value); });
    calls.Add("UserPaper_name", text.name, [=] { return RunPaper(value, 420, 297); });
    calls.Add("CheckList_title", text.name,
              [=] { return RunCheckList(value, {"x", "y"}, {1, 0}); });
    calls.Add("CheckList_items", text.name,
              [=] { return RunCheckList("t", {value, "x", value}, {5, 0, 1}); });
  }
}

void AddNumbers(HostileTable& calls) {
  for (const Named<double>& number : HostileNumbers()) {
    const double value = number.value;
    calls.Add("InputScale_scale", number.name, [=] { return RunScale("t", "c", value); });
    calls.Add("InputPointXY_first", number.name,
              [=] { return RunPoint<2>({value, 2.0}); });
    calls.Add("InputPointXYZ_all", number.name,
              [=] { return RunPoint<3>({value, value, value}); });
  }
  for (const Named<int>& number : HostileInts()) {
    const int value = number.value;
    calls.Add("InputDpi_dpi", number.name, [=] {
      int dpi = value;
      const bool confirmed = __InputDpiDlg(&dpi, nullptr) != FALSE;
      return Outcome{confirmed, dpi == value};
    });
    calls.Add("UserPaper_width", number.name, [=] { return RunPaper("A3", value, 297); });
    calls.Add("UserPaper_height", number.name, [=] { return RunPaper("A3", 420, value); });
    calls.Add("InputPointXY_allowMousePick", number.name, [=] {
      std::array point{1.0, 2.0};
      const INT_PTR result = __InputPointXYDlg(point.data(), value, nullptr);
      return Outcome{result == QUORVEL_POINT_CONFIRMED, point == std::array{1.0, 2.0}};
    });
  }
}

void AddLists(HostileTable& calls) {
  const std::vector<CString> three{"x", "y", "z"};
  calls.Add("CheckList_states", "None", [=] { return RunCheckList("t", three, {}); });
  calls.Add("CheckList_states", "Fewer", [=] { return RunCheckList("t", three, {9}); });
  calls.Add("CheckList_states", "More",
            [=] { return RunCheckList("t", three, {0xFF, 0, 0x80, 7, 0, 0xFF}); });
  calls.Add("CheckList_items", "None", [] { return RunCheckList("t", {}, {1, 2, 3}); });
  calls.Add("CheckList_both", "None", [] { return RunCheckList("t", {}, {}); });
  constexpr std::size_t kVeryMany = 10'000;
  calls.Add("CheckList_both", "TenThousand", [] {
    return RunCheckList("t", std::vector<CString>(kVeryMany, "項目"),
                        std::vector<BYTE>(kVeryMany, 0x80));
  });
}

void AddPositions(HostileTable& calls) {
  for (const Entry& entry : AllEntries()) {
    if (!entry.hasPosition) {
      continue;
    }
    for (const Named<CPoint>& position : HostilePositions()) {
      calls.Add(entry.name + "_position", position.name, [=] {
        CPoint point = position.value;
        Outcome outcome = entry.run(&point);
        outcome.unchanged = outcome.unchanged && point == position.value;
        return outcome;
      });
    }
  }
}

}  // namespace

std::vector<HostileArgument> InputArguments() {
  HostileTable calls;
  AddNulls(calls);
  AddNullsOfPaper(calls);
  AddNullsOfCheckList(calls);
  AddTexts(calls);
  AddNumbers(calls);
  AddLists(calls);
  AddPositions(calls);
  return calls.Take();
}

}  // namespace quorvel::test
