#include "gallery/environment.h"

#include "gallery/value_text.h"

namespace quorvel::gallery {

namespace {

constexpr const char* kTourKey = "Software\\QuorvelGalleryTour";

void ForgetTour() {
  ::RegDeleteTreeW(HKEY_CURRENT_USER, Wide(CString(kTourKey)).c_str());
}

}  // namespace

Environment::~Environment() {
  if (m_isOnTour) {
    ForgetTour();
  }
}

void Environment::BeginTour() {
  m_isOnTour = true;
  m_env = CKivSysEnv(kTourKey);
  ForgetTour();
}

}  // namespace quorvel::gallery
