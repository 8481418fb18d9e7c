// The benchmark's rows: each a figure against its limit, printed as a table and kept as JSON.
#pragma once

#include <string>
#include <vector>

namespace quorvel::bench {

struct Row {
  std::string name;
  std::string unit;  ///< what the figure counts: "times bare", "ms over bare", "of 1.5 MB"
  double figure;
  double limit;      ///< the figure may be as large as this
  int runs;

  bool Holds() const { return figure <= limit; }
};

/// What the figures were measured on: cores, platform, display.
std::string MachineKind();

void PrintTable(const std::vector<Row>& rows);

/// Throws std::runtime_error when the file cannot be written.
void WriteJson(const std::vector<Row>& rows, const std::string& path);

}  // namespace quorvel::bench
