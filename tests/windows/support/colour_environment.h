// An environment of a test's own, emptied before and after.
#pragma once

#include "driver/platform.h"

#include <quorvel/quorvel.h>

#include <string>
#include <vector>

namespace quorvel::test {

/// Below HKEY_CURRENT_USER.
class ColourEnvironment {
public:
  static constexpr const char* kKey = "Software\\QuorvelTests\\Colours";

  ColourEnvironment() { Clear(); }
  ~ColourEnvironment() { Clear(); }
  ColourEnvironment(const ColourEnvironment&) = delete;
  ColourEnvironment& operator=(const ColourEnvironment&) = delete;

  CKivSysEnv& Env() { return m_env; }

  void Store(const std::vector<COLORREF>& palette) {
    CArray<COLORREF, COLORREF> colors;
    for (COLORREF color : palette) {
      colors.Add(color);
    }
    m_env.SaveCstColor(colors);
  }
  /// What another object of the same key reads.
  std::vector<COLORREF> Stored() const {
    CArray<COLORREF, COLORREF> colors;
    CKivSysEnv(kKey).OpenCstColor(colors);
    std::vector<COLORREF> palette;
    for (INT_PTR i = 0; i < colors.GetSize(); ++i) {
      palette.push_back(colors[i]);
    }
    return palette;
  }
  /// Whether anything at all was ever stored.
  static bool IsStored() {
    HKEY key = nullptr;
    const bool found = ::RegOpenKeyExA(HKEY_CURRENT_USER, kKey, 0, KEY_READ, &key) == ERROR_SUCCESS;
    if (found) {
      ::RegCloseKey(key);
    }
    return found;
  }

private:
  static void Clear() { ::RegDeleteTreeA(HKEY_CURRENT_USER, kKey); }

  CKivSysEnv m_env{kKey};
};

}  // namespace quorvel::test
