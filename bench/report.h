// The benchmark's rows: what is measured on ours and on the other side, and how much of it may be.
//
//   rows.push_back(TimesAsLong("picker, drag step", "bare windows", seconds, 1.5, runs));
//   WriteJson(rows, "bench.json");
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quorvel::bench {

/// Ours and the other's.
struct Pair {
  double ours = 0.0;
  double theirs = 0.0;
};

struct Row {
  std::string name;              ///< what is measured
  std::string against;           ///< whose the other value is; empty where there is none
  std::string unit;              ///< of both values: "ms", "bytes"
  double ours = 0.0;
  std::optional<double> theirs;  ///< nothing where the limit is one of our own value
  double figure = 0.0;           ///< what the limit is of
  std::string figureUnit;        ///< "times", "ms more", or the values' own
  double limit = 0.0;            ///< the figure may be as large as this
  int runs = 0;

  bool Holds() const { return figure <= limit; }
};

/// The figure is how many times as long ours takes; the pair is in seconds.
Row TimesAsLong(const std::string& name, const std::string& against, const Pair& seconds,
                double limit, int runs);

/// The figure is how much longer ours takes, in milliseconds; the pair and the limit are so, too.
Row LongerBy(const std::string& name, const std::string& against, const Pair& milliseconds,
             double limit, int runs);

/// The figure is our own value.
Row Alone(const std::string& name, const std::string& unit, double value, double limit, int runs);

/// What the figures were measured on: cores, platform, display.
std::string MachineKind();

/// Throws std::runtime_error when the file cannot be written.
void WriteJson(const std::vector<Row>& rows, const std::string& path);

}  // namespace quorvel::bench
