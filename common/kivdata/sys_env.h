// CKivSysEnv: the host's environment, through which the dialogs keep what belongs to the user.
//
//   CKivSysEnv env("Software\\Maker\\Product");
#pragma once

#include "framework/cstring.h"
#include "kivdata/kivdata_export.h"

/// Names the registry key, below HKEY_CURRENT_USER, that holds the settings of one host.
/// Owned by the host; the dialogs keep a pointer to it for the length of one call.
class KIVDATA_API CKivSysEnv {
public:
  /// `key` is a path below HKEY_CURRENT_USER; a section of settings is a subkey of it.
  explicit CKivSysEnv(const char* key);

  const CString& GetKey() const { return m_strKey; }

private:
  CString m_strKey;
};
