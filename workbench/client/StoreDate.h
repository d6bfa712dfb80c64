#pragma once

#include <windows.h>

#include <cstdint>

namespace wb {

/// A date of the store (FILETIME) as an automation date: in UTC, or in this computer's local time.
/// Dates before 1900 and other ones that automation can't tell raise ClientFailure.
DATE utcDate(std::uint64_t fileTime);
DATE localDate(std::uint64_t fileTime);

}  // namespace wb
