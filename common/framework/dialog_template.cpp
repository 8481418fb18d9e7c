#include "framework/dialog_template.h"

#include "framework/control_window.h"

#include <array>
#include <cstring>
#include <cwchar>
#include <string_view>

namespace quorvel {

namespace {

// What a template begins with; texts of any length follow. Packed as it lies in the resource.
#pragma pack(push, 2)
struct DialogHead {
  WORD version;
  WORD signature;
  DWORD helpId;
  DWORD extendedStyle;
  DWORD style;
  WORD controls;
  short x;
  short y;
  short width;
  short height;
};

struct ControlHead {
  DWORD helpId;
  DWORD extendedStyle;
  DWORD style;
  short x;
  short y;
  short width;
  short height;
  DWORD id;
};
#pragma pack(pop)

constexpr WORD kNumberFollows = 0xFFFF;
constexpr WORD kFirstClassNumber = 0x80;
constexpr std::array kSystemClasses{L"Button",  L"Edit",      L"Static",
                                    L"ListBox", L"ScrollBar", L"ComboBox"};

/// Reads a template from the front.
class Reader {
public:
  explicit Reader(const void* at) : m_at(static_cast<const BYTE*>(at)) {}

  const BYTE* At() const { return m_at; }

  template <class Value>
  Value Take() {
    Value value{};
    std::memcpy(&value, m_at, sizeof value);
    m_at += sizeof value;
    return value;
  }

  /// A number, which makes `text` null, or a text that ends with a zero.
  WORD TakeNumberOrText(const wchar_t** text) {
    const auto* units = reinterpret_cast<const wchar_t*>(m_at);
    if (static_cast<WORD>(*units) == kNumberFollows) {
      Take<WORD>();
      *text = nullptr;
      return Take<WORD>();
    }
    *text = units;
    m_at += (std::wstring_view(units).size() + 1) * sizeof(wchar_t);
    return 0;
  }

  /// Resources begin at such addresses, too.
  void SkipToDword() {
    const auto over = reinterpret_cast<ULONG_PTR>(m_at) % sizeof(DWORD);
    m_at += over != 0 ? sizeof(DWORD) - over : 0;
  }

  void Skip(std::size_t bytes) { m_at += bytes; }

private:
  const BYTE* m_at;
};

struct Control {
  ControlHead head{};
  const wchar_t* className = nullptr;
  const wchar_t* text = nullptr;  ///< null for none
};

Control TakeControl(Reader& reader) {
  reader.SkipToDword();
  Control control;
  control.head = reader.Take<ControlHead>();
  const WORD classNumber = reader.TakeNumberOrText(&control.className);
  if (control.className == nullptr) {
    control.className = kSystemClasses.at(static_cast<std::size_t>(classNumber - kFirstClassNumber));
  }
  reader.TakeNumberOrText(&control.text);
  reader.Skip(reader.Take<WORD>());  // data for the control: none has any
  return control;
}

HWND Create(HWND dialog, const Control& control) {
  const ControlHead& head = control.head;
  RECT units{head.x, head.y, head.width, head.height};
  ::MapDialogRect(dialog, &units);  // place and size separately, as the system does
  const CRect rect(CPoint(units.left, units.top), CSize(units.right, units.bottom));
  return CreateControlWindow({.className = control.className,
                              .text = control.text,
                              .style = head.style,
                              .extendedStyle = head.extendedStyle | WS_EX_NOPARENTNOTIFY,
                              .rect = rect,
                              .id = head.id},
                             dialog);
}

}  // namespace

DialogTemplate::DialogTemplate(const void* resource) {
  Reader reader(resource);
  const auto head = reader.Take<DialogHead>();
  const wchar_t* text = nullptr;
  reader.TakeNumberOrText(&text);  // menu
  reader.TakeNumberOrText(&text);  // window class
  reader.TakeNumberOrText(&text);  // caption
  if ((head.style & DS_SETFONT) != 0) {
    reader.Take<DWORD>();  // size and weight
    reader.Take<WORD>();   // slant and character set
    reader.TakeNumberOrText(&text);
  }
  m_controls = head.controls;
  m_firstControl = reader.At();

  const auto bytes = static_cast<std::size_t>(m_firstControl - static_cast<const BYTE*>(resource));
  m_dialogAlone.resize((bytes + sizeof(DWORD) - 1) / sizeof(DWORD));
  std::memcpy(m_dialogAlone.data(), resource, bytes);
  auto* copy = reinterpret_cast<DialogHead*>(m_dialogAlone.data());
  copy->controls = 0;
}

const DLGTEMPLATE* DialogTemplate::WithoutControls() const {
  return reinterpret_cast<const DLGTEMPLATE*>(m_dialogAlone.data());
}

bool DialogTemplate::CreateControls(HWND dialog, std::vector<TemplateControl>& made) const {
  const auto font = static_cast<WPARAM>(::SendMessageW(dialog, WM_GETFONT, 0, 0));
  Reader reader(m_firstControl);
  made.reserve(static_cast<std::size_t>(m_controls));
  for (int i = 0; i < m_controls; ++i) {
    const Control control = TakeControl(reader);
    const HWND window = Create(dialog, control);
    if (window == nullptr) {
      return false;
    }
    made.push_back({.window = window,
                    .id = static_cast<int>(control.head.id),
                    .isEditField = ::_wcsicmp(control.className, L"Edit") == 0});
    ::SendMessageW(window, WM_SETFONT, font, FALSE);
    if ((::SendMessageW(window, WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON) != 0) {
      // Not sent: a dialog may have a message of its own with this number.
      ::DefDlgProcW(dialog, DM_SETDEFID, control.head.id, 0);
    }
  }
  return true;
}

}  // namespace quorvel
