// GridLengths: how long the rows, or the columns, of a grid are.
//
//   GridLengths columns(GridLengths::Precision::kDouble, 3);   // three columns of 10 mm
//   columns.SetTotal(60, false);                               // 20 mm each
//   columns.Edges(0, 600);                                     // 0, 200, 400, 600
#pragma once

#include <vector>

namespace quorvel {

/// Lengths in millimetres, each finite and from 0 to kLongest. Bad indices and bad lengths are
/// refused: the operation returns false and nothing changes.
class GridLengths {
public:
  /// The bits of the number type in which the page tells its lengths; each length, and a total that
  /// was set, is a value of that type exactly.
  enum class Precision { kSingle = 24, kDouble = 53 };

  static constexpr double kLongest = 1e12;
  static constexpr double kUsual = 10;  ///< where there is no length to go by

  GridLengths(Precision precision, int count);
  /// Lengths that are all good ones, as IsGood tells.
  GridLengths(Precision precision, std::vector<double> lengths);

  /// Whether a value can be a length of this precision.
  static bool IsGood(double length, Precision precision);

  Precision GetPrecision() const { return m_precision; }
  int Count() const { return static_cast<int>(m_lengths.size()); }
  const std::vector<double>& All() const { return m_lengths; }
  bool Has(int index) const { return index >= 0 && index < Count(); }
  /// 0 for a bad index.
  double At(int index) const;
  bool Set(int index, double length);

  double Total() const;
  /// Spreads a new total over all lengths, in proportion to what they are (equally when `equal` is
  /// set or they sum to 0), so that they sum to exactly the total. Lengths that do so already stay.
  bool SetTotal(double total, bool equal);

  /// Cuts the last lengths off or appends some of the average length of those that stood.
  void Resize(int count);
  /// A new length before `index`, as long as the one that stands there.
  bool InsertBefore(int index);
  bool Delete(int index);
  /// Makes the lengths whose entry of `chosen` is set equally long; their sum stays.
  void Equalise(const std::vector<bool>& chosen);

  /// The Count() + 1 pixel positions that tile from..to: each the rounding of its cumulated length,
  /// the first at `from`, the last at `to`; equal parts when the total is 0. A `to` before `from`
  /// counts as `from`.
  std::vector<int> Edges(int from, int to) const;

private:
  double Rounded(double value) const;
  std::vector<double> Spread(double total, const std::vector<double>& weights) const;

  Precision m_precision;
  std::vector<double> m_lengths;
};

}  // namespace quorvel
