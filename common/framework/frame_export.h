// FRAME_API marks what Frame64.dll offers to the libraries above it.
#pragma once

#if !defined(_WIN32)
#define FRAME_API
#elif defined(FRAME64_BUILD)
#define FRAME_API __declspec(dllexport)
#else
#define FRAME_API __declspec(dllimport)
#endif
