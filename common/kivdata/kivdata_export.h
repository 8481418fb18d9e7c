// KIVDATA_API marks what KivData64.dll offers to hosts and to the libraries above it.
#pragma once

#if !defined(_WIN32)
#define KIVDATA_API
#elif defined(KIVDATA64_BUILD)
#define KIVDATA_API __declspec(dllexport)
#else
#define KIVDATA_API __declspec(dllimport)
#endif
