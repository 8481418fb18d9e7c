#include "kivdata/kiv_font_ex.h"

namespace {

constexpr BYTE kLastPosition = 2;

}  // namespace

void CKivFontEx::SetBackColor(const COLORREF* color) {
  if (color != nullptr) {
    m_backColor = *color;
  }
}

void CKivFontEx::SetHPos(BYTE position) {
  if (position <= kLastPosition) {
    m_hPos = position;
  }
}

void CKivFontEx::SetVPos(BYTE position) {
  if (position <= kLastPosition) {
    m_vPos = position;
  }
}
