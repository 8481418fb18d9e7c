// CKivSysEnv: the host's environment, through which the dialogs keep what belongs to the user.
//
//   CKivSysEnv env("Software\\Maker\\Product");
//   CKivRegistry registry = env.GetRegistry("LayoutEdit");   // Software\Maker\Product\LayoutEdit
//   COLORREF made[16];
//   env.OpenCstColor(made, 16);
#pragma once

#include "framework/base_types.h"
#include "framework/collections.h"
#include "framework/cstring.h"
#include "kivdata/kiv_registry.h"
#include "kivdata/kivdata_export.h"

/// Names the registry key, below HKEY_CURRENT_USER, that holds the settings of one host.
/// Owned by the host; the dialogs keep a pointer to it for the length of one call. It holds nothing
/// but the key's name: what one object stores, every object of the same key reads.
///
/// Made colours are one palette, in the section "MadeColors" as the REG_BINARY value "Palette", 4
/// bytes for each entry: red, green, blue, 0. Where nothing is stored, or something else, it is 16
/// white entries, the colours of the user's own making, and 25 standard colours. It never has more
/// than 4,096 entries; more count as something else. The calls below return non-zero on success
/// and never throw. Two programs that save at the same time do not wait for each other: the later
/// wins.
class KIVDATA_API CKivSysEnv {
public:
  /// `key` is a path below HKEY_CURRENT_USER; a section of settings is a subkey of it. With an
  /// empty key nothing is ever stored.
  explicit CKivSysEnv(const char* key);

  const CString& GetKey() const { return m_strKey; }

  /// The settings of a section, such as "LayoutEdit"; those of the key itself where it is null or
  /// empty. Throws nothing but std::bad_alloc.
  CKivRegistry GetRegistry(const char* section) const;

  /// Reads the first `count` entries of the palette, white where it has fewer. A null `colors` or a
  /// `count` below 1 returns 0; on failure `colors` is untouched.
  int OpenCstColor(COLORREF* colors, int count) const;

  /// Reads the whole palette, whatever `colors` held before. On failure `colors` is untouched.
  int OpenCstColor(CArray<COLORREF, COLORREF>& colors) const;

  /// Stores `count` colours as the first entries of the palette, of which the others stay. A null
  /// `colors`, a `count` below 1 or above 4,096 returns 0; on failure the stored palette stays.
  int SaveCstColor(const COLORREF* colors, int count);

  /// Stores exactly these colours as the palette, none at all too. More than 4,096 return 0; on
  /// failure the stored palette stays.
  int SaveCstColor(const CArray<COLORREF, COLORREF>& colors);

  /// The font for controls that are made at run time: MS UI Gothic of 9 points at 96 dots per inch.
  /// The caller scales lfHeight to its display, makes a font of it and owns that.
  LOGFONTA GetCtrlFont() const;

private:
  CString m_strKey;
};
