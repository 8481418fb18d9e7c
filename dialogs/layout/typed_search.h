// What a user who types into a list is looking for: letters that follow each other quickly are the
// beginning of one name.
//
//   TypedSearch search;
//   search.Add(L'面', time);         // begins with "面", behind the selected entry
//   search.Add(L'積', time + 300);   // begins with "面積", from the selected entry on
#pragma once

#include <string>

namespace quorvel {

class TypedSearch {
public:
  /// Milliseconds after which a letter begins a new name.
  static constexpr unsigned kPause = 1000;

  struct Wanted {
    std::wstring beginning;
    bool fromSelected;  ///< the selected entry itself may be it
  };

  /// `time` counts milliseconds and may run over.
  Wanted Add(wchar_t letter, unsigned time);

  /// Whether a letter at this time would go on with a name.
  bool IsUnderWay(unsigned time) const;
  void Reset() { m_typed.clear(); }

private:
  std::wstring m_typed;
  unsigned m_lastTime = 0;
};

}  // namespace quorvel
