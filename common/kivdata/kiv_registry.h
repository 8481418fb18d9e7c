// CKivRegistry: the values that one registry key holds for the dialogs.
//
//   CKivRegistry registry = env.GetRegistry("LayoutEdit");
//   registry.ReadRegistry("TextColor", &color, sizeof color);   // color stays where nothing is stored
//   registry.WriteRegistry("TextColor", REG_BINARY, &color, sizeof color);
#pragma once

#include "framework/base_types.h"
#include "framework/cstring.h"
#include "kivdata/kivdata_export.h"

/// Names one key below HKEY_CURRENT_USER and opens it only within each call, so that a copy names
/// the same key and what another object wrote is read at once. Keys and names are narrow texts of
/// code page 932. No call throws: what cannot be done returns 0, as does everything where the key
/// is empty or the name null or empty.
class KIVDATA_API CKivRegistry {
public:
  /// `key` is a path below HKEY_CURRENT_USER, such as "Software\\Maker\\Product\\LayoutEdit".
  explicit CKivRegistry(CString key);

  const CString& GetKey() const { return m_strKey; }

  /// Reads a value of type REG_BINARY that has exactly `size` bytes. Returns non-zero when `data`
  /// has received them. A value of another type or size counts as none: 0, and `data` is untouched,
  /// as it is on every failure. A null `data` returns 0.
  int ReadRegistry(const char* name, void* data, DWORD size) const;

  /// Stores `size` bytes as a value of `type` (REG_BINARY is what ReadRegistry reads), replacing
  /// the value of that name, and creates the key where there is none. `data` may be null where
  /// `size` is 0. Returns non-zero on success; on failure the stored value stays as it was.
  int WriteRegistry(const char* name, DWORD type, const void* data, DWORD size);

private:
  CString m_strKey;
};
