#include "kivdata/grid_lengths.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <numeric>
#include <utility>

namespace quorvel {
namespace {

double Sum(const std::vector<double>& values) {
  return std::accumulate(values.begin(), values.end(), 0.0);
}

/// As a caller of that precision adds them up, from the first to the last.
double PlainSum(const std::vector<double>& values, GridLengths::Precision precision) {
  return precision == GridLengths::Precision::kSingle
             ? std::accumulate(
                   values.begin(), values.end(), 0.0F,
                   [](float sum, double value) { return sum + static_cast<float>(value); })
             : Sum(values);
}

bool IsLength(double length) {
  return length >= 0 && length <= GridLengths::kLongest;
}

}  // namespace

GridLengths::GridLengths(Precision precision, int count)
    : m_precision(precision), m_lengths(static_cast<std::size_t>(count), kUsual) {}

GridLengths::GridLengths(Precision precision, std::vector<double> lengths)
    : m_precision(precision), m_lengths(std::move(lengths)) {}

bool GridLengths::IsGood(double length, Precision precision) {
  return IsLength(length) &&
         (precision == Precision::kDouble || static_cast<float>(length) == length);
}

double GridLengths::Rounded(double value) const {
  return m_precision == Precision::kSingle ? static_cast<float>(value) : value;
}

double GridLengths::At(int index) const {
  return Has(index) ? m_lengths[static_cast<std::size_t>(index)] : 0;
}

bool GridLengths::Set(int index, double length) {
  if (!Has(index) || !IsLength(length)) {
    return false;
  }
  m_lengths[static_cast<std::size_t>(index)] = Rounded(length);
  return true;
}

double GridLengths::Total() const {
  return Rounded(Sum(m_lengths));
}

/// All parts are whole multiples of the total's last bit, so every sum of them is exact, in
/// whatever order and number type a caller adds them up.
std::vector<double> GridLengths::Spread(double total, const std::vector<double>& weights) const {
  const bool isSingle = m_precision == Precision::kSingle;
  const int smallest =  // power of two of the smallest number above 0
      isSingle ? std::numeric_limits<float>::min_exponent - std::numeric_limits<float>::digits
               : std::numeric_limits<double>::min_exponent - std::numeric_limits<double>::digits;
  int exponent = 0;
  std::frexp(total, &exponent);
  const int lastBit = std::max(exponent - static_cast<int>(m_precision), smallest);
  const double units = std::ldexp(total, -lastBit);

  const double weight = Sum(weights);
  std::vector<double> parts;
  parts.reserve(weights.size());
  double cumulated = 0;
  double before = 0;
  for (std::size_t i = 0; i < weights.size(); ++i) {
    cumulated += weights[i];
    const double share = i + 1 == weights.size() ? 1.0 : cumulated / weight;
    const double edge = std::round(units * share);
    parts.push_back(std::ldexp(edge - before, lastBit));
    before = edge;
  }
  return parts;
}

bool GridLengths::SetTotal(double total, bool equal) {
  if (m_lengths.empty() || !IsLength(total)) {
    return false;
  }
  const double rounded = Rounded(total);
  const bool isPresent = rounded == Sum(m_lengths) && rounded == PlainSum(m_lengths, m_precision);
  if (equal || Sum(m_lengths) == 0) {
    m_lengths = Spread(rounded, std::vector<double>(m_lengths.size(), 1.0));
  } else if (!isPresent) {
    m_lengths = Spread(rounded, m_lengths);
  }
  return true;
}

void GridLengths::Resize(int count) {
  const double average = m_lengths.empty() ? kUsual : Rounded(Total() / Count());
  m_lengths.resize(static_cast<std::size_t>(count), average);
}

bool GridLengths::InsertBefore(int index) {
  if (!Has(index)) {
    return false;
  }
  m_lengths.insert(m_lengths.begin() + index, At(index));
  return true;
}

bool GridLengths::Delete(int index) {
  if (!Has(index)) {
    return false;
  }
  m_lengths.erase(m_lengths.begin() + index);
  return true;
}

void GridLengths::Equalise(const std::vector<bool>& chosen) {
  std::vector<std::size_t> places;
  double sum = 0;
  for (std::size_t i = 0; i < m_lengths.size() && i < chosen.size(); ++i) {
    if (chosen[i]) {
      places.push_back(i);
      sum += m_lengths[i];
    }
  }
  const std::vector<double> parts = Spread(Rounded(sum), std::vector<double>(places.size(), 1.0));
  for (std::size_t i = 0; i < places.size(); ++i) {
    m_lengths[places[i]] = parts[i];
  }
}

std::vector<int> GridLengths::Edges(int from, int to) const {
  const double extent = std::max(0.0, static_cast<double>(to) - static_cast<double>(from));
  const double total = Sum(m_lengths);
  std::vector<int> edges;
  edges.reserve(m_lengths.size() + 1);
  edges.push_back(from);
  constexpr double kHalf = 0.5;
  double cumulated = 0;
  for (std::size_t i = 0; i < m_lengths.size(); ++i) {
    cumulated += m_lengths[i];
    const double offset = total > 0
                              ? extent * cumulated / total
                              : extent * static_cast<double>(i + 1) / static_cast<double>(Count());
    edges.push_back(static_cast<int>(from + static_cast<std::int64_t>(std::floor(offset + kHalf))));
  }
  return edges;
}

}  // namespace quorvel
