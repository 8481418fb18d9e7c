// Dice: random values that are the same on every machine for the same seed.
//
//   Dice dice(7);
//   const int row = dice.Number(0, 6);
#pragma once

#include <initializer_list>
#include <limits>
#include <random>
#include <string>

namespace quorvel {

/// The standard distributions differ from library to library, so the engine's words are used as
/// they are; a slight preference for small numbers does not matter here.
class Dice {
public:
  explicit Dice(unsigned seed) : m_engine(seed) {}

  /// From `low` to `high`, both included.
  int Number(int low, int high) {
    const auto range = static_cast<unsigned>(high - low) + 1U;
    return low + static_cast<int>(static_cast<unsigned>(m_engine()) % range);
  }
  bool OneIn(int count) { return Number(1, count) == 1; }
  unsigned Word() { return static_cast<unsigned>(m_engine()); }

  template <class Value>
  Value OneOf(std::initializer_list<Value> values) {
    return values.begin()[Number(0, static_cast<int>(values.size()) - 1)];
  }

  /// A usual length in millimetres.
  double Length() { return OneIn(12) ? 0 : Number(1, 300000) / 1000.0; }

  /// Something that is no length.
  double NoLength() {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    return OneOf(
        {std::numeric_limits<double>::quiet_NaN(), kInfinity, -kInfinity, -1.0, -1e-30, 1.1e12});
  }

  /// Any bytes but zero, up to `longest` of them.
  std::string Text(int longest) {
    std::string text(static_cast<std::size_t>(Number(0, longest)), ' ');
    for (char& byte : text) {
      byte = static_cast<char>(Number(1, 255));
    }
    return text;
  }

private:
  std::mt19937 m_engine;
};

}  // namespace quorvel
