#include "kivfcl/kiv_tool_ctrl.h"

#include "framework/device_context.h"
#include "framework/module_state.h"

#include <commctrl.h>

#include <algorithm>
#include <vector>

namespace {

/// What the pictures are drawn on; the bar shows there instead.
constexpr COLORREF kClearColor = RGB(0xC0, 0xC0, 0xC0);

quorvel::OwnedBitmap LoadPictures(UINT id) {
  return quorvel::OwnedBitmap(static_cast<HBITMAP>(::LoadImageW(
      AfxGetResourceHandle(), MAKEINTRESOURCEW(id), IMAGE_BITMAP, 0, 0, LR_DEFAULTCOLOR)));
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
  const quorvel::OwnedBitmap pictures = LoadPictures(bitmapId);
  BITMAP size{};
  if (imageCount < 1 || ::GetObjectW(pictures.get(), sizeof size, &size) == 0 ||
      size.bmWidth < imageCount) {
    return false;
  }
  m_images.reset(::ImageList_Create(size.bmWidth / imageCount, size.bmHeight,
                                    ILC_COLOR24 | ILC_MASK, imageCount, 0));
  return ::ImageList_AddMasked(static_cast<HIMAGELIST>(m_images.get()), pictures.get(),
                               kClearColor) == 0;
}

void CKivToolCtrl::AddButtons(const TOOLITEM* items, int count, BOOL disabled) {
  std::vector<TBBUTTON> buttons;
  buttons.reserve(static_cast<std::size_t>(std::max(count, 0)));
  for (int i = 0; i < count; ++i) {
    buttons.push_back(ButtonOf(items[i], disabled));
  }
  int width = 0;
  int height = 0;
  ::ImageList_GetIconSize(static_cast<HIMAGELIST>(m_images.get()), &width, &height);
  ::SendMessageW(m_hWnd, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
  ::SendMessageW(m_hWnd, TB_SETBITMAPSIZE, 0, MAKELPARAM(width, height));
  ::SendMessageW(m_hWnd, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(m_images.get()));
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

void CKivToolCtrl::PostNcDestroy() { m_images.reset(); }
