// The arrays that hosts and dialogs exchange.
//
//   CByteArray states;
//   states.SetSize(3);      // three zero bytes
//   states.SetAt(0, 1);
#pragma once

#include "framework/base_types.h"
#include "framework/cstring.h"
#include "framework/errors.h"

#include <cstddef>
#include <vector>

/// A growing array. Every access outside 0..GetSize()-1 throws CInvalidArgException and changes
/// nothing. ARG_TYPE is how single elements are passed in.
template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray {
public:
  INT_PTR GetSize() const { return static_cast<INT_PTR>(m_items.size()); }
  INT_PTR GetCount() const { return GetSize(); }
  bool IsEmpty() const { return m_items.empty(); }

  /// Cuts the array or appends default elements. Throws on a negative size.
  void SetSize(INT_PTR size) {
    if (size < 0) {
      AfxThrowInvalidArgException();
    }
    m_items.resize(static_cast<std::size_t>(size));
  }
  void RemoveAll() { m_items.clear(); }
  /// The elements behind move up.
  void RemoveAt(INT_PTR index) {
    m_items.erase(m_items.begin() + static_cast<std::ptrdiff_t>(Checked(index)));
  }

  const TYPE& GetAt(INT_PTR index) const { return m_items[Checked(index)]; }
  TYPE& GetAt(INT_PTR index) { return m_items[Checked(index)]; }
  const TYPE& operator[](INT_PTR index) const { return GetAt(index); }
  TYPE& operator[](INT_PTR index) { return GetAt(index); }
  void SetAt(INT_PTR index, ARG_TYPE element) { m_items[Checked(index)] = element; }

  /// Appends and returns the index of the new element.
  INT_PTR Add(ARG_TYPE element) {
    m_items.push_back(element);
    return GetSize() - 1;
  }

private:
  std::size_t Checked(INT_PTR index) const {
    if (index < 0 || index >= GetSize()) {
      AfxThrowInvalidArgException();
    }
    return static_cast<std::size_t>(index);
  }

  std::vector<TYPE> m_items;
};

class CStringArray : public CArray<CString, const CString&> {};
class CByteArray : public CArray<BYTE, BYTE> {};
class CDWordArray : public CArray<DWORD, DWORD> {};
