// What the framework throws. No exception leaves a window procedure or an entry.
#pragma once

#include <stdexcept>

/// An argument outside what the called operation accepts, such as an array index past the end.
class CInvalidArgException : public std::invalid_argument {
public:
  CInvalidArgException() : std::invalid_argument("argument out of range") {}
};

[[noreturn]] inline void AfxThrowInvalidArgException() { throw CInvalidArgException(); }

/// The platform could not make a resource, such as a window class.
class CResourceException : public std::runtime_error {
public:
  CResourceException() : std::runtime_error("resource not available") {}
};

[[noreturn]] inline void AfxThrowResourceException() { throw CResourceException(); }
