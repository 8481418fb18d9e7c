// 1,000 openings of each entry, and of each dialog that the layout editors open, half confirmed and
// half cancelled, leave nothing behind.
//
// The dialogs are worked by their owner, once they have been painted whole.
#include "dialogs/layout/layout_cel_size_edit_dlg.h"
#include "dialogs/layout/layout_field_edit_dlg.h"
#include "dialogs/layout/layout_frame_edit_dlg.h"
#include "dialogs/layout/layout_list_edit_dlg.h"
#include "driver/crash_guard.h"
#include "driver/dialog_owner.h"
#include "driver/leak_counters.h"
#include "driver/product_state.h"
#include "support/entries.h"
#include "support/same_page.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

namespace quorvel::test {
namespace {

using driver::BareDialog;
using driver::CountResources;
using driver::DialogOwner;
using driver::LeakCounters;

/// Confirmed, and as many cancelled.
constexpr int kOpenings = 500;
constexpr int kBareOpenings = 250;
constexpr int kWarmUps = 20;

/// Committed private memory of the process, by walking its address space.
std::size_t PrivateBytes() {
  std::size_t bytes = 0;
  MEMORY_BASIC_INFORMATION region{};
  for (const char* address = nullptr; ::VirtualQuery(address, &region, sizeof region) != 0;
       address = static_cast<const char*>(region.BaseAddress) + region.RegionSize) {
    if (region.State == MEM_COMMIT && region.Type == MEM_PRIVATE) {
      bytes += region.RegionSize;
    }
  }
  return bytes;
}

Outcome RunFrameEdit(CPoint* position) {
  static CLayoutExPageData page;
  CLayoutFrameEditDlg dialog(nullptr, &page, CLayoutExPageData::LISTTYPE_LIST, position);
  return {driver::RunWithProductResources(dialog) == IDOK, true};
}

Outcome RunFieldEdit(CPoint* position) {
  CStringArray names;
  for (const char* name : {"品名", "数量", "金額"}) {
    names.Add(name);
  }
  CLayoutFieldEditDlg dialog(&names, "", position);
  const bool confirmed = driver::RunWithProductResources(dialog) == IDOK;
  return {confirmed, dialog.m_strMacro.IsEmpty()};
}

Outcome RunCelSizeEdit(CPoint* /*position*/) {
  float first = 10.5F;
  float second = 4.5F;
  CLayoutCelSizeEditDlg dialog(&first, &second);
  const bool confirmed = driver::RunWithProductResources(dialog) == IDOK;
  return {confirmed, first == 10.5F && second == 4.5F};
}

Outcome RunListEdit(CPoint* position) {
  constexpr double kDotsPerMm = 11.811;
  CStringArray fields;
  CStringArray insertions;
  for (const char* name : {"品名", "数量", "金額"}) {
    fields.Add(name);
    insertions.Add(name);
  }
  CLayoutExPageData page = ExtendedPageWithEverything();
  const CLayoutExPageData before = page;
  CLayoutListEditDlg dialog(nullptr, nullptr, &page, &fields, &insertions, nullptr, kDotsPerMm,
                            CLayoutExPageData::LISTTYPE_LIST, position, nullptr);
  const bool confirmed = driver::RunWithProductResources(dialog) == IDOK;
  return {confirmed, IsSamePage(page, before)};
}

/// Dialogs that no entry opens by itself.
std::vector<Entry> LayoutDialogs() {
  return {{"LayoutFrameEdit", IDD_LAYOUT_FRAME, RunFrameEdit, true, nullptr, 0},
          {"LayoutFieldEdit", IDD_LAYOUT_FIELD, RunFieldEdit, true, nullptr, 0},
          {"LayoutCelSizeEdit", IDD_LAYOUT_CEL_SIZE, RunCelSizeEdit, false, nullptr, 0},
          {"LayoutListEdit", IDD_LAYOUT_LIST, RunListEdit, true, nullptr, 0}};
}

class Soak : public ::testing::TestWithParam<Entry> {};

INSTANTIATE_TEST_SUITE_P(Quorvel, Soak, ::testing::ValuesIn(AllEntries()),
                         [](const auto& info) { return info.param.name; });

INSTANTIATE_TEST_SUITE_P(LayoutDialogs, Soak, ::testing::ValuesIn(LayoutDialogs()),
                         [](const auto& info) { return info.param.name; });

TEST_P(Soak, LeavesNothingBehind) {
  DialogOwner owner;
  const auto open = [&](WORD command, int times) {
    for (int i = 0; i < times; ++i) {
      owner.SetCommand(command);
      const Outcome outcome = GetParam().run(nullptr);
      ASSERT_EQ(outcome.confirmed, command == IDOK);
      ASSERT_TRUE(outcome.confirmed || outcome.unchanged);
    }
  };
  const BareDialog bare(::GetModuleHandleW(L"Quorvel.dll"), GetParam().templateId);
  const auto openBare = [&](int times) {
    for (int i = 0; i < times; ++i) {
      owner.SetCommand(IDOK);
      if (GetParam().runBare != nullptr) {
        GetParam().runBare(owner.Window());
      } else {
        bare.Run(owner.Window());
      }
    }
  };
  // The first dialogs of a kind fill the system's caches.
  open(IDOK, kWarmUps);
  open(IDCANCEL, kWarmUps);
  openBare(kWarmUps);

  // Some platforms lose memory for every themed field: what the same template run bare loses there
  // in as many openings is not ours.
  const std::size_t bytesBeforeBare = PrivateBytes();
  openBare(kBareOpenings);
  const std::size_t lostByPlatform =
      2 * kOpenings / kBareOpenings * (PrivateBytes() - bytesBeforeBare);

  const int answeredBefore = owner.Answered();
  const LeakCounters before = CountResources();
  const std::size_t bytesBefore = PrivateBytes();
  open(IDOK, kOpenings);
  open(IDCANCEL, kOpenings);
  const std::size_t bytesAfter = PrivateBytes();
  EXPECT_EQ(CountResources(), before);
  EXPECT_EQ(owner.Answered() - answeredBefore, 2 * kOpenings) << "some dialog was never painted";

  // A loss of 160 bytes an opening would show; that memory comes in pieces of 64 KiB, on both
  // sides, does not. Whatever our own code allocates is counted exactly above.
  constexpr std::size_t kTrend = std::size_t{160} * 2 * kOpenings;
  ASSERT_GT(bytesBefore, 0U);
  EXPECT_LE(bytesAfter, bytesBefore + lostByPlatform + kTrend);
  std::printf("%s: private bytes %zu -> %zu, by the platform alone %zu more\n",
              GetParam().name.c_str(), bytesBefore, bytesAfter, lostByPlatform);
}

}  // namespace
}  // namespace quorvel::test

int main(int argc, char** argv) {
  quorvel::driver::InstallCrashGuard();
  ::testing::InitGoogleTest(&argc, argv);
  for (const wchar_t* module : {L"Frame64.dll", L"KivFcl64.dll", L"Quorvel.dll"}) {
    quorvel::driver::WatchHooks(::GetModuleHandleW(module));
  }
  return RUN_ALL_TESTS();
}
