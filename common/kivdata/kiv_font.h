// CKivFont: a font for drawings, whose size is told in millimetres beside the platform's record.
//
//   CKivFont font;
//   font.SetV(3.5);               // character height in millimetres
//   font.CalcMmToLogFont(11.8);   // at 11.8 dots a millimetre the record's height becomes -41
#pragma once

#include "framework/base_types.h"
#include "kivdata/kivdata_export.h"

namespace quorvel {

/// 300 dots per inch, the resolution that stands for a missing one.
inline constexpr double kUsualDotsPerMm = 11.811023622047244;

}  // namespace quorvel

/// The record (LOGFONTA) and the millimetre sizes are two views of one size; they follow each other
/// only when one of the two Calc operations is called. Without further ado: "MS Gothic" (by its
/// Japanese name), 3.5 mm high, of natural width, black.
class KIVDATA_API CKivFont {
public:
  CKivFont();
  CKivFont(const CKivFont&) = default;
  CKivFont& operator=(const CKivFont&) = default;
  virtual ~CKivFont() = default;

  /// The record as it is. The argument is for hosts' sake; every value gives the same.
  LOGFONTA GetLogFont(int /*purpose*/) const { return m_logFont; }
  /// Takes over the record; null is ignored. The face name is cut to the 31 bytes that a record can
  /// hold with its zero, never within a double-byte character.
  void SetLogFont(const LOGFONTA* logFont);

  COLORREF GetColor() const { return m_color; }
  /// Text colour; null is ignored.
  void SetColor(const COLORREF* color);

  /// 0 one line, 1 two lines.
  BYTE GetStrikeOutType() const { return m_strikeOutType; }
  /// Values above 1 are ignored.
  void SetStrikeOutType(BYTE type);

  /// Character height in millimetres.
  double GetV() const { return m_v; }
  /// Negative and not finite heights are ignored.
  void SetV(double height);
  /// Character width in millimetres; 0 is the font's natural width.
  double GetH() const { return m_h; }
  /// Negative and not finite widths are ignored.
  void SetH(double width);

  /// The millimetre sizes from the record's, at `dotsPerMm`. A resolution that is not positive and
  /// finite, or that gives sizes beyond all numbers, changes nothing.
  void CalcLogFontToMm(double dotsPerMm);
  /// The record's sizes from the millimetre sizes: whole dots, the nearest. The record's height
  /// keeps its sign (negative is a character height, positive a cell height), negative where it had
  /// none. Bad resolutions as in CalcLogFontToMm; sizes beyond the record's range become its
  /// largest.
  void CalcMmToLogFont(double dotsPerMm);

private:
  LOGFONTA m_logFont;
  COLORREF m_color = 0;
  double m_v;
  double m_h = 0;
  BYTE m_strikeOutType = 0;
};
