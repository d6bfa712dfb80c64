#include "core/ResultCodes.h"

#include <cwchar>

#include "core/Text.h"
#include "vault/ResultCodeTable.h"

namespace wb {

std::wstring resultName(HRESULT result) {
  for (const tessaro::ResultCodeRow& row : tessaro::resultCodeTable) {
    if (row.code == static_cast<std::uint32_t>(result)) return row.name;
  }
  return hexText(static_cast<unsigned long>(result), 8);
}

std::optional<HRESULT> resultFromName(std::wstring_view name) {
  for (const tessaro::ResultCodeRow& row : tessaro::resultCodeTable) {
    if (name == row.name) return static_cast<HRESULT>(row.code);
  }
  const std::wstring text(name);
  wchar_t* end = nullptr;
  const unsigned long long number = std::wcstoull(text.c_str(), &end, 0);
  if (text.empty() || *end || number > 0xFFFFFFFFull) return std::nullopt;
  return static_cast<HRESULT>(number);
}

}  // namespace wb
