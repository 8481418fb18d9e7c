#include "kivfcl/kiv_tool_ctrl.h"

#include "framework/module_state.h"
#include "kivfcl/display_bitmap.h"

#include <commctrl.h>

#include <algorithm>
#include <vector>

namespace {

/// What the pictures are drawn on; the bar shows there instead.
constexpr COLORREF kClearColor = RGB(0xC0, 0xC0, 0xC0);

HIMAGELIST AsList(const std::unique_ptr<void, CKivToolCtrl::ImageListDeleter>& list) {
  return static_cast<HIMAGELIST>(list.get());
}

TBBUTTON ButtonOf(const TOOLITEM& item, BOOL disabled) {
  TBBUTTON button{};
  if (item.bSeparator != FALSE) {
    button.fsStyle = BTNS_SEP;
  } else {
    button.idCommand = static_cast<int>(item.nCommand);
    button.iBitmap = item.nImage;
    button.fsStyle = BTNS_BUTTON;
    button.fsState = disabled != FALSE ? 0 : TBSTATE_ENABLED;
  }
  return button;
}

}  // namespace

void CKivToolCtrl::ImageListDeleter::operator()(void* list) const {
  ::ImageList_Destroy(static_cast<HIMAGELIST>(list));
}

// The bar must not outlive its pictures.
CKivToolCtrl::~CKivToolCtrl() { CWnd::DestroyWindow(); }

BOOL CKivToolCtrl::CreateToolCtrl(CWnd* parent, DWORD style, const TOOLITEM* items, int count,
                                  UINT bitmapId, int imageCount, const CPoint& position, UINT id,
                                  BOOL disabled) {
  if (m_hWnd != nullptr || !LoadImages(bitmapId, imageCount) ||
      CreateChild(TOOLBARCLASSNAMEW, 0, style, CRect(position, CSize()), parent, id) == FALSE) {
    return FALSE;
  }
  AddButtons(items, count, disabled);
  FitToButtons(position);
  return TRUE;
}

bool CKivToolCtrl::LoadImages(UINT bitmapId, int imageCount) {
  const quorvel::DisplayPictures pictures =
      quorvel::LoadDisplayPictures(bitmapId, imageCount, kClearColor);
  if (pictures.bitmap == nullptr) {
    return false;
  }
  if (pictures.disabled == nullptr) {
    m_images.reset(::ImageList_Create(pictures.size.cx, pictures.size.cy, ILC_COLOR24 | ILC_MASK,
                                      imageCount, 0));
    return ::ImageList_AddMasked(AsList(m_images), pictures.bitmap.get(), kClearColor) == 0;
  }
  // The platform's own way to show that a command is not possible knows no opacity.
  m_images = ListOf(pictures.bitmap.get(), pictures.size);
  m_disabledImages = ListOf(pictures.disabled.get(), pictures.size);
  return m_images != nullptr && m_disabledImages != nullptr;
}

CKivToolCtrl::ImageList CKivToolCtrl::ListOf(HBITMAP pictures, const CSize& size) {
  ImageList list(::ImageList_Create(size.cx, size.cy, ILC_COLOR32, 1, 1));
  if (::ImageList_Add(AsList(list), pictures, nullptr) != 0) {
    list.reset();
  }
  return list;
}

void CKivToolCtrl::AddButtons(const TOOLITEM* items, int count, BOOL disabled) {
  std::vector<TBBUTTON> buttons;
  buttons.reserve(static_cast<std::size_t>(std::max(count, 0)));
  for (int i = 0; i < count; ++i) {
    buttons.push_back(ButtonOf(items[i], disabled));
  }
  int width = 0;
  int height = 0;
  ::ImageList_GetIconSize(AsList(m_images), &width, &height);
  ::SendMessageW(m_hWnd, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
  ::SendMessageW(m_hWnd, TB_SETBITMAPSIZE, 0, MAKELPARAM(width, height));
  ::SendMessageW(m_hWnd, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(m_images.get()));
  ::SendMessageW(m_hWnd, TB_SETDISABLEDIMAGELIST, 0,
                 reinterpret_cast<LPARAM>(m_disabledImages.get()));
  ::SendMessageW(m_hWnd, TB_ADDBUTTONSW, buttons.size(),
                 reinterpret_cast<LPARAM>(buttons.data()));
}

void CKivToolCtrl::FitToButtons(const CPoint& position) {
  CSize size;
  ::SendMessageW(m_hWnd, TB_GETMAXSIZE, 0, reinterpret_cast<LPARAM>(static_cast<SIZE*>(&size)));
  MoveWindow(CRect(position, size));
}

void CKivToolCtrl::EnableButton(UINT command, BOOL enable) {
  ::SendMessageW(m_hWnd, TB_ENABLEBUTTON, command, MAKELPARAM(enable != FALSE ? TRUE : FALSE, 0));
}

BOOL CKivToolCtrl::IsButtonEnabled(UINT command) const {
  // Negative where there is no such button.
  return ::SendMessageW(m_hWnd, TB_ISBUTTONENABLED, command, 0) > 0 ? TRUE : FALSE;
}

void CKivToolCtrl::AnswerToolTip(const NMHDR& notification) {
  // A handler is told of notifications as constants, but this one is a question.
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast)
  auto& question = const_cast<NMTTDISPINFOW&>(reinterpret_cast<const NMTTDISPINFOW&>(notification));
  question.hinst = AfxGetResourceHandle();
  question.lpszText = MAKEINTRESOURCEW(notification.idFrom);
}

void CKivToolCtrl::PostNcDestroy() {
  m_images.reset();
  m_disabledImages.reset();
}
