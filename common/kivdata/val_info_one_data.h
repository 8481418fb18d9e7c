// CKivValInfoOneData: the settings of one field macro, the text that a layout's cell carries in
// place of a value from the host's records.
//
//   CKivValInfoOneData info;
//   info.SetValType(203);                              // a total,
//   info.SetFieldName("price");                        // of this field
//   const CString text = info.GetMacroString("合計");  // the cell's text
//   CKivValInfoOneData again;
//   again.SetMacroString(text, 1);                     // non-zero; again has the same settings
#pragma once

#include "framework/cstring.h"
#include "kivdata/kivdata_export.h"

/// Settings and their text form, whose grammar is in docs/field-macros.md. Any value of a setting
/// and any text without zero bytes comes back exactly as it was set; nothing is checked against a
/// host's fields. A null text reads as the empty one.
class KIVDATA_API CKivValInfoOneData {
public:
  /// Reads a macro: `text` is one as a whole or not at all. With `parse` other than 0 the settings
  /// become those of the macro; where `text` is none, the value type becomes 0 and every other
  /// setting stays. With `parse` 0 `text` is only looked at and no setting changes. Returns 1 if
  /// `text` is a macro, 0 otherwise.
  int SetMacroString(const char* text, int parse);

  /// The macro's text for these settings. `typeText` is what the user calls the value type; it is
  /// for a person to read, and no setting comes from it.
  CString GetMacroString(const char* typeText) const;

  /// What is shown: 200 to 212 for the kinds of value, less for no macro; 0 at first.
  unsigned int GetValType() const;
  void SetValType(unsigned int valType);

  /// The field whose value is shown, summed or tested.
  CString GetFieldName() const;
  void SetFieldName(const char* fieldName);

  /// The comparison that chooses records: 0 =, 1 <>, 2 >, 3 >=, 4 <, 5 <=.
  unsigned char GetFindType() const;
  void SetFindType(unsigned char findType);

  /// What the field is compared with.
  CString GetFindValue() const;
  void SetFindValue(const char* findValue);

  /// The field that is summed over the chosen records.
  CString GetRefField() const;
  void SetRefField(const char* refField);

  /// Whether the number of decimal places is given; 0 for no. Other values stay as they are set.
  int GetUseDesimalPointBeam() const;
  void SetUseDesimalPointBeam(int useDesimalPointBeam);

  /// The number of decimal places, 0 to 10; 255 stands for none chosen.
  unsigned char GetBeam() const;
  void SetBeam(unsigned char beam);

  /// Whether digits are grouped by three; 0 for no. Other values stay as they are set.
  int GetUse3Figures() const;
  void SetUse3Figures(int use3Figures);

private:
  CString m_strFieldName;
  CString m_strFindValue;
  CString m_strRefField;
  unsigned int m_valType = 0;
  int m_useDesimalPointBeam = 0;
  int m_use3Figures = 0;
  unsigned char m_findType = 0;
  unsigned char m_beam = 0;
};
