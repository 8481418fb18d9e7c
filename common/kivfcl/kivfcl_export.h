// KIVFCL_API marks what KivFcl64.dll offers to the dialogs.
#pragma once

#if !defined(_WIN32)
#define KIVFCL_API
#elif defined(KIVFCL64_BUILD)
#define KIVFCL_API __declspec(dllexport)
#else
#define KIVFCL_API __declspec(dllimport)
#endif
