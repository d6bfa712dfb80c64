#include "vault/ViewIdentifier.h"

#include <cwchar>
#include <iterator>

namespace tessaro {

namespace {

/// @return null for an unknown kind
const wchar_t* keyOfKind(int kind) {
  switch (kind) {
    case 1:
      return L"ViewID";
    case 2:
      return L"VaultID";
    default:
      return nullptr;
  }
}

bool parseIdentifier(const wchar_t* text, GUID& identifier) {
  unsigned first = 0, second = 0, third = 0;
  unsigned bytes[8] = {};
  constexpr int fields = 11;
  if (swscanf_s(text, L"{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}", &first, &second,
                &third, &bytes[0], &bytes[1], &bytes[2], &bytes[3], &bytes[4], &bytes[5], &bytes[6],
                &bytes[7]) != fields) {
    return false;
  }
  identifier.Data1 = first;
  identifier.Data2 = static_cast<unsigned short>(second);
  identifier.Data3 = static_cast<unsigned short>(third);
  for (size_t index = 0; index < std::size(bytes); ++index) {
    identifier.Data4[index] = static_cast<unsigned char>(bytes[index]);
  }
  return true;
}

}  // namespace

bool readViewIdentifier(const CString& rootPath, int kind, GUID& identifier) {
  const wchar_t* key = keyOfKind(kind);
  if (key == nullptr) return false;
  CString file = rootPath;
  if (file.empty() || file.back() != L'\\') file += L'\\';
  file += L"desktop.ini";
  wchar_t text[50] = {};
  return GetPrivateProfileStringW(L"Tessaro", key, nullptr, text, std::size(text), file.c_str()) >
             0 &&
         parseIdentifier(text, identifier);
}

}  // namespace tessaro
