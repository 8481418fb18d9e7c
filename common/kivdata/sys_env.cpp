#include "kivdata/sys_env.h"

CKivSysEnv::CKivSysEnv(const char* key) : m_strKey(key) {}
