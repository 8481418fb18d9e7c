// The DLLs as files: what they export, what they import, how they were linked, what they weigh.
#include <gtest/gtest.h>

#include "framework/base_types.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace {

constexpr std::array kOwnDlls{"Frame64.dll", "KivComm64.dll", "KivData64.dll", "KivFcl64.dll",
                              "Quorvel.dll",  "QuorvelC64.dll"};

/// A DLL loaded by this process, read through its headers.
class LoadedDll {
public:
  explicit LoadedDll(const char* name) : m_module(::LoadLibraryA(name)) {}
  ~LoadedDll() { ::FreeLibrary(m_module); }
  LoadedDll(const LoadedDll&) = delete;
  LoadedDll& operator=(const LoadedDll&) = delete;

  bool Exists() const { return m_module != nullptr; }

  WORD Characteristics() const { return Headers().OptionalHeader.DllCharacteristics; }

  std::set<std::string> Exports() const {
    const auto* exports = Directory<IMAGE_EXPORT_DIRECTORY>(IMAGE_DIRECTORY_ENTRY_EXPORT);
    const auto* names = At<DWORD>(exports->AddressOfNames);
    std::set<std::string> result;
    for (DWORD i = 0; i < exports->NumberOfNames; ++i) {
      result.insert(At<char>(names[i]));
    }
    EXPECT_EQ(exports->NumberOfFunctions, exports->NumberOfNames) << "an export without a name";
    return result;
  }

  std::vector<std::string> ImportedDlls() const {
    std::vector<std::string> result;
    for (const auto* entry = Directory<IMAGE_IMPORT_DESCRIPTOR>(IMAGE_DIRECTORY_ENTRY_IMPORT);
         entry->Name != 0; ++entry) {
      result.emplace_back(At<char>(entry->Name));
    }
    return result;
  }

  std::filesystem::path File() const {
    std::array<wchar_t, MAX_PATH> path{};
    ::GetModuleFileNameW(m_module, path.data(), static_cast<DWORD>(path.size()));
    return path.data();
  }

private:
  template <class Type>
  const Type* At(DWORD offset) const {
    return reinterpret_cast<const Type*>(reinterpret_cast<const char*>(m_module) + offset);
  }
  const IMAGE_NT_HEADERS64& Headers() const {
    return *At<IMAGE_NT_HEADERS64>(static_cast<DWORD>(At<IMAGE_DOS_HEADER>(0)->e_lfanew));
  }
  template <class Type>
  const Type* Directory(int index) const {
    return At<Type>(Headers().OptionalHeader.DataDirectory[index].VirtualAddress);
  }

  HMODULE m_module;
};

TEST(ProductFiles, QuorvelExportsTheEntriesAndNothingElse) {
  const std::set<std::string> expected{
      "__SelColorDlg",   "__SelColorDlgEx",    "__EditColorDlg",    "__SelRGBDlg",
      "__InputTextDlg",  "__InputScaleDlg",    "__InputDpiDlg",     "__InputPointXYDlg",
      "__CheckListDlg",  "__InputPointXYZDlg", "__UserPaperSetDlg", "__SelFontDlg",
      "__SelFontExDlg",  "__LayoutEditDlg",   "__LayoutExEditDlg"};
  EXPECT_EQ(LoadedDll("Quorvel.dll").Exports(), expected);
}

TEST(ProductFiles, TheCInterfaceExportsItsFunctionsAndNothingElse) {
  const std::set<std::string> expected{
      "quorvel_version",      "quorvel_last_error",      "quorvel_free",
      "quorvel_input_text",   "quorvel_input_scale",     "quorvel_input_dpi",
      "quorvel_input_point_xy", "quorvel_input_point_xyz", "quorvel_set_user_paper",
      "quorvel_check_list",   "quorvel_select_color",    "quorvel_select_color_ex",
      "quorvel_edit_color",   "quorvel_select_rgb",      "quorvel_select_font",
      "quorvel_select_font_ex", "quorvel_edit_layout",   "quorvel_edit_layout_ex",
      "quorvel_page_create",  "quorvel_page_free",       "quorvel_page_kind_of",
      "quorvel_page_open",    "quorvel_page_save",       "quorvel_page_read",
      "quorvel_page_write",   "quorvel_page_divide",     "quorvel_page_counts",
      "quorvel_page_set_size", "quorvel_page_size",      "quorvel_page_set_text",
      "quorvel_page_text"};
  EXPECT_EQ(LoadedDll("QuorvelC64.dll").Exports(), expected);
}

TEST(ProductFiles, ImportNothingButWindowsTheirSistersAndTheRunTime) {
  const std::set<std::string> allowed{
      // Windows
      "advapi32.dll", "comctl32.dll", "comdlg32.dll", "gdi32.dll", "kernel32.dll", "msvcrt.dll",
      "user32.dll",
      // the compiler's run-time
      "libgcc_s_seh-1.dll", "libstdc++-6.dll", "libwinpthread-1.dll",
      // sisters
      "frame64.dll", "kivcomm64.dll", "kivdata64.dll", "kivfcl64.dll", "quorvel.dll"};
  for (const char* name : kOwnDlls) {
    const LoadedDll dll(name);
    ASSERT_TRUE(dll.Exists()) << name;
    for (std::string import : dll.ImportedDlls()) {
      std::transform(import.begin(), import.end(), import.begin(),
                     [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
      EXPECT_TRUE(allowed.contains(import)) << name << " imports " << import;
    }
  }
}

TEST(ProductFiles, AreLinkedForAddressRandomisationAndNoExecute) {
  constexpr WORD kWanted = IMAGE_DLLCHARACTERISTICS_HIGH_ENTROPY_VA |
                           IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE |
                           IMAGE_DLLCHARACTERISTICS_NX_COMPAT;
  for (const char* name : kOwnDlls) {
    EXPECT_EQ(LoadedDll(name).Characteristics() & kWanted, kWanted) << name;
  }
}

TEST(ProductFiles, WeighLessThanOneAndAHalfMegabytesTogether) {
  std::uintmax_t bytes = 0;
  for (const char* name : kOwnDlls) {
    bytes += std::filesystem::file_size(LoadedDll(name).File());
  }
  EXPECT_GT(bytes, 0U);
  EXPECT_LT(bytes, 1'500'000U);
}


}  // namespace
