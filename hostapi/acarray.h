#pragma once

#include <string.h>

#include "adesk.h"

/// Moves the items of an array that can be copied byte by byte into larger memory.
template <class T>
class AcArrayMemCopyReallocator {
 public:
  static void reallocateArray(T* pDest, int /*nBufLen*/, const T* pSource, int nCount) {
    if (nCount > 0) memcpy(pDest, pSource, sizeof(T) * static_cast<size_t>(nCount));
  }
};

/// The same for items that have to be assigned one by one.
template <class T>
class AcArrayObjectCopyReallocator {
 public:
  static void reallocateArray(T* pDest, int /*nBufLen*/, const T* pSource, int nCount) {
    for (int index = 0; index < nCount; ++index) pDest[index] = pSource[index];
  }
};

/// The host's growing array. An index is in range or the behaviour undefined.
template <class T, class R = AcArrayMemCopyReallocator<T>>
class AcArray {
 public:
  /// @param initGrowLength how many items more there is room for when the array has to grow
  AcArray(int initPhysicalLength = 0, int initGrowLength = 8)
      : mpArray(nullptr), mPhysicalLen(0), mLogicalLen(0), mGrowLen(initGrowLength) {
    if (initPhysicalLength > 0) setPhysicalLength(initPhysicalLength);
  }
  AcArray(const AcArray& other)
      : mpArray(nullptr), mPhysicalLen(0), mLogicalLen(0), mGrowLen(other.mGrowLen) {
    *this = other;
  }
  ~AcArray() { delete[] mpArray; }

  AcArray& operator=(const AcArray& other) {
    if (this == &other) return *this;
    if (mPhysicalLen < other.mLogicalLen) {
      mLogicalLen = 0;
      setPhysicalLength(other.mLogicalLen);
    }
    R::reallocateArray(mpArray, mPhysicalLen, other.mpArray, other.mLogicalLen);
    mLogicalLen = other.mLogicalLen;
    return *this;
  }

  int length() const { return mLogicalLen; }
  bool isEmpty() const { return mLogicalLen == 0; }
  const T& at(int index) const { return mpArray[index]; }
  T& at(int index) { return mpArray[index]; }
  const T& operator[](int index) const { return mpArray[index]; }
  T& operator[](int index) { return mpArray[index]; }

  /// Appends and gives the new item's index.
  int append(const T& item) {
    // The item may be one of this array's own.
    const T copy(item);
    if (mLogicalLen == mPhysicalLen) {
      setPhysicalLength(mLogicalLen + (mLogicalLen < mGrowLen ? mGrowLen : mLogicalLen));
    }
    mpArray[mLogicalLen] = copy;
    return mLogicalLen++;
  }
  AcArray& removeAll() {
    mLogicalLen = 0;
    return *this;
  }
  /// Makes room for that many items; those behind it go.
  AcArray& setPhysicalLength(int length) {
    if (length == mPhysicalLen) return *this;
    T* const old = mpArray;
    mpArray = length > 0 ? new T[static_cast<size_t>(length)] : nullptr;
    mPhysicalLen = length;
    if (mLogicalLen > length) mLogicalLen = length;
    R::reallocateArray(mpArray, mPhysicalLen, old, mLogicalLen);
    delete[] old;
    return *this;
  }

 protected:
  T* mpArray;
  int mPhysicalLen;
  int mLogicalLen;
  int mGrowLen;
};
