#include "dialogs/layout/typed_search.h"

namespace quorvel {

bool TypedSearch::IsUnderWay(unsigned time) const {
  return !m_typed.empty() && time - m_lastTime < kPause;
}

TypedSearch::Wanted TypedSearch::Add(wchar_t letter, unsigned time) {
  if (!IsUnderWay(time)) {
    m_typed.clear();
  }
  m_lastTime = time;
  m_typed += letter;
  // The same letter again and again leads from one name with it to the next.
  if (m_typed.find_first_not_of(letter) == std::wstring::npos) {
    return {std::wstring(1, letter), false};
  }
  return {m_typed, true};
}

}  // namespace quorvel
