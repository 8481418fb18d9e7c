// Keys that stay down while something else happens.
#pragma once

#include "driver/platform.h"

#include <array>
#include <cstddef>

namespace quorvel::test {

/// As seen by this thread; not by the user's keyboard.
inline void HoldKey(int key, bool down) {
  constexpr BYTE kDown = 0x80;
  std::array<BYTE, 256> keys{};
  ::GetKeyboardState(keys.data());
  keys[static_cast<std::size_t>(key)] = down ? kDown : 0;
  ::SetKeyboardState(keys.data());
}

/// Down for as long as the object lives.
class HeldKey {
public:
  explicit HeldKey(int key) : m_key(key) { HoldKey(m_key, true); }
  ~HeldKey() { HoldKey(m_key, false); }
  HeldKey(const HeldKey&) = delete;
  HeldKey& operator=(const HeldKey&) = delete;

private:
  int m_key;
};

}  // namespace quorvel::test
