// The environment that the gallery gives to the entries: the user's, or one of the tour's own.
//
//   Environment environment;      // the user's
//   environment.BeginTour();      // from now on the tour's, empty at first
//   __SelColorDlg(environment.Get(), &color, nullptr);
#pragma once

#include <quorvel/quorvel.h>

namespace quorvel::gallery {

/// What the tour has stored is removed in the end.
class Environment {
public:
  Environment() = default;
  ~Environment();
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;

  void BeginTour();
  CKivSysEnv* Get() { return &m_env; }

private:
  CKivSysEnv m_env{"Software\\Quorvel\\Gallery"};
  bool m_isOnTour = false;
};

}  // namespace quorvel::gallery
