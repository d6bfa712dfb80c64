#pragma once

#include <stddef.h>

#include "acadstrc.h"
#include "AdAChar.h"

/// Memory that goes from the host to an application and back.
bool acutNewBuffer(void*& pBuffer, size_t size);
/// Frees what the host handed out, and makes the pointer null.
void acutDelBuffer(void*& pBuffer);
/// A copy of the text, freed by acutDelString.
Acad::ErrorStatus acutNewString(const ACHAR* pInput, ACHAR*& pOutput);

inline void acutDelString(ACHAR*& pString) {
  void* buffer = pString;
  acutDelBuffer(buffer);
  pString = nullptr;
}
