// What a random user did, step by step: two runs of the same seed must give the same record.
#pragma once

#include "driver/platform.h"

#include <filesystem>
#include <string>

namespace quorvel::test {

/// A line for each step and, between them, what was to be seen in the dialog. Everything also goes to a
/// file at once, so that the record of a run that crashed or hung tells its last step.
class StepRecord {
public:
  /// Nothing is written where the file cannot be made.
  explicit StepRecord(const std::filesystem::path& file);
  ~StepRecord();
  StepRecord(const StepRecord&) = delete;
  StepRecord& operator=(const StepRecord&) = delete;

  /// A step at a window, which the line names by the identifiers on the way to it.
  void AddStep(int step, const char* what, HWND window, int first = 0, int second = 0);
  /// A digest of what a dialog and its controls show: texts, marks, choices, and which are shown,
  /// enabled and have the focus; `more` is part of it.
  void AddState(HWND dialog, const std::string& more);

  const std::string& Text() const { return m_text; }

private:
  void AddLine(const std::string& line);

  std::string m_text;
  HANDLE m_file;
};

}  // namespace quorvel::test
