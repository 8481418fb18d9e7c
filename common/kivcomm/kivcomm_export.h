// KIVCOMM_API marks what KivComm64.dll offers to hosts and to the libraries above it.
#pragma once

#if !defined(_WIN32)
#define KIVCOMM_API
#elif defined(KIVCOMM64_BUILD)
#define KIVCOMM_API __declspec(dllexport)
#else
#define KIVCOMM_API __declspec(dllimport)
#endif
