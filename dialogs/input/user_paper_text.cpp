#include "dialogs/input/user_paper_text.h"

namespace quorvel {

CString PaperSizeLabel(int width, int height) {
  CString label;
  label.Format("(%dx%d)", width, height);
  return label;
}

}  // namespace quorvel
