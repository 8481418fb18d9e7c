// WheelSteps: whole steps out of a mouse wheel's turns, which may come in parts of a notch.
//
//   const int rows = m_wheel.Add(GET_WHEEL_DELTA_WPARAM(wParam), 3);
#pragma once

namespace quorvel {

class WheelSteps {
public:
  /// What a wheel tells for one notch.
  static constexpr int kNotch = 120;

  /// `turn` is what the wheel tells, in -32,768 to 32,767; `stepsOfNotch` is 0 to 32,767. Returns
  /// the steps that are complete now; the rest counts for the next turn in the same direction.
  constexpr int Add(int turn, int stepsOfNotch) {
    if ((turn < 0) != (m_rest < 0)) {
      m_rest = 0;
    }
    m_rest += turn * stepsOfNotch;
    const int steps = m_rest / kNotch;
    m_rest -= steps * kNotch;
    return steps;
  }

private:
  int m_rest = 0;
};

}  // namespace quorvel
