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

/// All named codes: success, COM's own, then the client's by group of names. Codes and names may
/// occur twice; the first row is used.
extern const ResultCodeRow resultCodeTable[resultCodeRowCount];

}  // namespace tessaro
