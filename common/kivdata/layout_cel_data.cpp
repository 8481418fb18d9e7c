#include "kivdata/layout_cel_data.h"

#include <string_view>
#include <utility>

void CLayoutCelData::SetText(CString text) {
  const bool isWhole = text.View().find('\0') == std::string_view::npos;
  m_text = isWhole ? std::move(text) : CString(text.GetString());
}

void CLayoutCelData::SetFont(const CKivFontEx* font) {
  if (font != nullptr) {
    m_font = *font;
  }
}
