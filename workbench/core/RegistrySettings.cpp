#include "core/RegistrySettings.h"

#include <algorithm>
#include <stdexcept>

#include "core/Transcript.h"

namespace wb {

constexpr wchar_t suiteKey[] = L"Software\\Halvern\\Applications\\Quillstone Suite";
constexpr wchar_t addinKey[] = L"Software\\Halvern\\Applications\\Quillstone Suite\\TessaroACAD";

/// The tree that belongs to the product, with the client's values in it.
constexpr wchar_t productKey[] = L"Software\\Halvern";
constexpr wchar_t policyKey[] = L"Software\\Policies\\Halvern";

SettingName settingName(const std::wstring& text) {
  SettingName name{HKEY_CURRENT_USER, addinKey, text};
  const std::wstring root = text.substr(0, 5);
  if (root == L"HKCU\\" || root == L"HKLM\\") {
    if (root == L"HKLM\\") name.root = HKEY_LOCAL_MACHINE;
    const size_t last = text.rfind(L'\\');
    name.key = last > 4 ? text.substr(5, last - 5) : std::wstring();
    name.value = text.substr(last + 1);
  }
  if (name.value == L"(default)") name.value.clear();
  return name;
}

LSTATUS writeSetting(const SettingName& name, DWORD type, const void* data, DWORD size) {
  return RegSetKeyValueW(name.root, name.key.c_str(), name.value.c_str(), type, data, size);
}

LSTATUS deleteSetting(const SettingName& name) {
  return RegDeleteKeyValueW(name.root, name.key.c_str(), name.value.c_str());
}

std::wstring registryDataText(DWORD type, const BYTE* data, DWORD size) {
  if (type == REG_DWORD && size == sizeof(DWORD) && data) {
    DWORD number = 0;
    CopyMemory(&number, data, sizeof(number));
    return std::to_wstring(static_cast<int>(number));
  }
  if ((type == REG_SZ || type == REG_EXPAND_SZ) && data) {
    std::wstring text(size / sizeof(wchar_t), L'\0');
    CopyMemory(text.data(), data, text.size() * sizeof(wchar_t));
    while (!text.empty() && text.back() == L'\0') text.pop_back();
    return wb::quoted(text);
  }
  return L"type " + std::to_wstring(type) + L", " + std::to_wstring(size) + L" bytes";
}

std::vector<std::wstring> addinSettings() {
  std::vector<std::wstring> lines;
  const RegistryKey open(HKEY_CURRENT_USER, addinKey);
  if (!open.get()) return lines;
  DWORD longestName = 0, longestData = 0;
  RegQueryInfoKeyW(open.get(), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                   &longestName, &longestData, nullptr, nullptr);
  for (DWORD index = 0;; ++index) {
    std::wstring name(longestName + 1, L'\0');
    std::vector<BYTE> data(longestData + 1);
    DWORD nameLength = longestName + 1, size = longestData, type = 0;
    if (RegEnumValueW(open.get(), index, name.data(), &nameLength, nullptr, &type, data.data(),
                      &size) != ERROR_SUCCESS) {
      break;
    }
    lines.push_back(name.substr(0, nameLength) + L"=" + registryDataText(type, data.data(), size));
  }
  std::sort(lines.begin(), lines.end());
  return lines;
}

void resetSettings() {
  for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
    for (const wchar_t* key : {productKey, policyKey}) {
      const LSTATUS status = RegDeleteTreeW(root, key);
      if (status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND) continue;
      throw std::runtime_error("the settings of an earlier run can't be deleted, Windows error " +
                               std::to_string(status));
    }
    HKEY suite = nullptr;
    const LSTATUS status = RegCreateKeyW(root, suiteKey, &suite);
    if (status != ERROR_SUCCESS) {
      throw std::runtime_error("the client's key can't be made, Windows error " +
                               std::to_string(status));
    }
    RegCloseKey(suite);
  }
}

}  // namespace wb
