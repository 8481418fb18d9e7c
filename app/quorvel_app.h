// The application object of Quorvel.dll.
#pragma once

#include "framework/app.h"

class CQuorvelApp : public CWinApp {
public:
  BOOL InitInstance() override;

  DECLARE_MESSAGE_MAP()
};
