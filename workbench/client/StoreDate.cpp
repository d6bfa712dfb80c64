#include "client/StoreDate.h"

#include <oleauto.h>

#include "client/Results.h"

namespace wb {
namespace {

FILETIME fileTimeOf(std::uint64_t value) {
  return {static_cast<DWORD>(value), static_cast<DWORD>(value >> 32)};
}

DATE dateOf(const FILETIME& time) {
  SYSTEMTIME parts = {};
  DATE date = 0;
  if (!FileTimeToSystemTime(&time, &parts) || !SystemTimeToVariantTime(&parts, &date)) {
    throw ClientFailure(E_INVALIDARG);
  }
  return date;
}

}  // namespace

DATE utcDate(std::uint64_t fileTime) { return dateOf(fileTimeOf(fileTime)); }

DATE localDate(std::uint64_t fileTime) {
  const FILETIME utc = fileTimeOf(fileTime);
  FILETIME local = {};
  if (!FileTimeToLocalFileTime(&utc, &local)) throw ClientFailure(E_INVALIDARG);
  return dateOf(local);
}

}  // namespace wb
