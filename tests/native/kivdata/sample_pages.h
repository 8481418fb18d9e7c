// Pages with something in every part, for the tests of files and copies, and what tells two of them
// apart.
#pragma once

#include "kivdata/layout_ex_page_data.h"
#include "kivdata/layout_file.h"
#include "kivdata/layout_page_data.h"

#include <filesystem>
#include <string>
#include <vector>

namespace quorvel::test {

using ListType = CLayoutExPageData::LISTTYPE;

/// 3 x 4 cells with a merged block, texts, fonts, hidden lines and every setting changed.
CLayoutPageData SamplePage();
/// Three blocks of 1, 2 and no rows over 3 columns, likewise.
CLayoutExPageData SampleExPage();

/// The bytes of a page's file: two pages are the same, selection apart, when these are.
std::vector<BYTE> BytesOf(const CLayoutPageData& page);
std::vector<BYTE> BytesOf(const CLayoutExPageData& page);

std::vector<BYTE> ReadBytes(const std::filesystem::path& path);
void WriteBytes(const std::filesystem::path& path, const std::vector<BYTE>& bytes);

/// A folder of its own, gone at the end with all that is in it.
class TemporaryFolder {
public:
  TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  const std::filesystem::path& Path() const { return m_path; }
  /// The full path of a file in it, as a host gives it.
  std::string File(const std::string& name) const { return (m_path / name).string(); }
  std::wstring WideFile(const std::u32string& name) const;
  /// How many files and folders are in it.
  int Count() const;

private:
  std::filesystem::path m_path;
};

}  // namespace quorvel::test
