#pragma once

#include <cstddef>
#include <cstdint>

namespace tessaro {

/// The symbolic name of one result code.
struct ResultCodeRow {
  std::uint32_t code;
  wchar_t name[51];
};

constexpr std::size_t resultCodeRowCount = 284;

/// All named codes: success, COM's own, then the client's by group of names. A code may stand in
/// it twice, and so may a name; the first row counts.
extern const ResultCodeRow resultCodeTable[resultCodeRowCount];

}  // namespace tessaro
