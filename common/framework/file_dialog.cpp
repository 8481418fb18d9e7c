#include "framework/file_dialog.h"

#include "framework/code_page.h"
#include "framework/dialog.h"

#include <algorithm>
#include <mutex>
#include <utility>

namespace {

/// The longest path that the platform knows, with its end.
constexpr std::size_t kLongestPath = 32'768;

std::wstring Wide(const char* text) { return quorvel::WideFromCodePage(CString(text).View()); }

/// The platform ends each part with a zero. Only a wide "|" is one: in code page 932 the byte may be
/// half a character.
std::wstring FilterOf(const char* text) {
  std::wstring filter = Wide(text);
  std::replace(filter.begin(), filter.end(), L'|', L'\0');
  return filter;  // its own end is the second zero in any case
}

/// The platform adds the extension as it is, and "*" is no character of a name.
std::wstring ExtensionOf(const char* text) {
  const std::wstring extension = Wide(text);
  return extension.substr(std::min(extension.find_first_not_of(L"*."), extension.size()));
}

/// The folder last chosen in this run.
class LastFolder {
public:
  std::wstring Get() {
    const std::lock_guard lock(m_mutex);
    return m_folder;
  }
  void Set(std::wstring folder) {
    const std::lock_guard lock(m_mutex);
    m_folder = std::move(folder);
  }

private:
  std::mutex m_mutex;
  std::wstring m_folder;
};

LastFolder& Last() {
  static LastFolder folder;
  return folder;
}

/// The program's current folder, which the platform changes to the chosen one, comes back when the
/// guard dies.
class CurrentFolderKept {
public:
  CurrentFolderKept() : m_folder(::GetCurrentDirectoryW(0, nullptr), L'\0') {
    ::GetCurrentDirectoryW(static_cast<DWORD>(m_folder.size()), m_folder.data());
  }
  ~CurrentFolderKept() { ::SetCurrentDirectoryW(m_folder.c_str()); }
  CurrentFolderKept(const CurrentFolderKept&) = delete;
  CurrentFolderKept& operator=(const CurrentFolderKept&) = delete;

private:
  std::wstring m_folder;
};

HWND OwnerOf(const CWnd* parent) {
  if (parent != nullptr) {
    return parent->m_hWnd;
  }
  const HWND active = ::GetActiveWindow();
  return active != nullptr ? active : CDialog::GetInnermostWindow();
}

}  // namespace

CFileDialog::CFileDialog(BOOL open, const char* defaultExtension, const char* fileName,
                         DWORD flags, const char* filter, CWnd* parent)
    : m_bOpen(open),
      m_defaultExtension(ExtensionOf(defaultExtension)),
      m_path(Wide(fileName)),
      m_nFlags(flags),
      m_filter(FilterOf(filter)),
      m_pParent(parent) {}

INT_PTR CFileDialog::DoModal() {
  const CurrentFolderKept currentFolder;
  const std::wstring folder = Last().Get();
  std::wstring path = m_path;
  path.resize(kLongestPath);

  OPENFILENAMEW description{};
  description.lStructSize = sizeof description;
  description.hwndOwner = OwnerOf(m_pParent);
  description.lpstrFilter = m_filter.empty() ? nullptr : m_filter.c_str();
  description.nFilterIndex = 1;
  description.lpstrFile = path.data();
  description.nMaxFile = static_cast<DWORD>(path.size());
  description.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
  description.Flags = m_nFlags;
  description.lpstrDefExt = m_defaultExtension.empty() ? nullptr : m_defaultExtension.c_str();

  const BOOL chosen = m_bOpen != FALSE ? ::GetOpenFileNameW(&description)
                                       : ::GetSaveFileNameW(&description);
  if (chosen == FALSE) {
    return IDCANCEL;
  }
  m_path = path.substr(0, path.find(L'\0'));
  Last().Set(m_path.substr(0, description.nFileOffset));
  return IDOK;
}

CString CFileDialog::GetPathName() const { return CString(quorvel::CodePageFromWide(m_path)); }
