// CWinApp: the one application object of a module.
#pragma once

#include "framework/frame_export.h"
#include "framework/message_map.h"

class FRAME_API CWinApp : public CCmdTarget {
public:
  /// `name` is a constant text or null for an application without a name.
  explicit CWinApp(const char* name = nullptr) : m_pszAppName(name) {}
  ~CWinApp() override = default;

  /// Called once when the module has been loaded; FALSE makes the loading fail.
  virtual BOOL InitInstance();

  const char* m_pszAppName;

  DECLARE_MESSAGE_MAP()
};
