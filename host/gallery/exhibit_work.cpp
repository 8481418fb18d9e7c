#include "gallery/exhibit_work.h"

#include "driver/controls.h"
#include "driver/text.h"

#include <stdexcept>

namespace quorvel::gallery {

Outcome ConfirmedIf(bool confirmed) {
  return confirmed ? kConfirmed : kCancelled;
}

void Expect(bool holds, const std::string& complaint) {
  if (!holds) {
    throw std::runtime_error(complaint);
  }
}

void ExpectText(HWND dialog, int id, const std::wstring& expected) {
  const std::wstring shown = driver::Text(dialog, id);
  Expect(shown == expected, "control " + std::to_string(id) + " shows '" + driver::Utf8(shown) +
                                "' instead of '" + driver::Utf8(expected) + "'");
}

}  // namespace quorvel::gallery
