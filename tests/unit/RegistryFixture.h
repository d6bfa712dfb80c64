#pragma once

#include <gtest/gtest.h>

#include <windows.h>

#include <string>

/// Puts empty keys in the place of HKEY_CURRENT_USER and HKEY_LOCAL_MACHINE for the process, so
/// that a test reads nothing but its own values and leaves nothing behind.
class RegistryFixture : public testing::Test {
 protected:
  void SetUp() override {
    RegDeleteTreeW(HKEY_CURRENT_USER, scratchKey);
    user = makeRoot(L"\\user");
    machine = makeRoot(L"\\machine");
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, machine);
    RegOverridePredefKey(HKEY_CURRENT_USER, user);
  }

  void TearDown() override {
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    RegCloseKey(user);
    RegCloseKey(machine);
    RegDeleteTreeW(HKEY_CURRENT_USER, scratchKey);
  }

  static void makeKey(HKEY root, const std::wstring& key) {
    HKEY made = nullptr;
    ASSERT_EQ(RegCreateKeyExW(root, key.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &made, nullptr),
              ERROR_SUCCESS);
    RegCloseKey(made);
  }

  static void setBytes(HKEY root, const std::wstring& key, const wchar_t* name, DWORD type,
                       const void* data, size_t size) {
    makeKey(root, key);
    HKEY opened = nullptr;
    ASSERT_EQ(RegOpenKeyExW(root, key.c_str(), 0, KEY_WRITE, &opened), ERROR_SUCCESS);
    EXPECT_EQ(RegSetValueExW(opened, name, 0, type, static_cast<const BYTE*>(data),
                             static_cast<DWORD>(size)),
              ERROR_SUCCESS);
    RegCloseKey(opened);
  }

  /// Without a null at the end: RegSetValueEx adds one if it sees one behind the text.
  static void setText(HKEY root, const std::wstring& key, const wchar_t* name,
                      const std::wstring& text, DWORD type = REG_SZ) {
    const std::wstring unended = text + L'!';
    setBytes(root, key, name, type, unended.data(), text.size() * sizeof(wchar_t));
  }

  static void setNumber(HKEY root, const std::wstring& key, const wchar_t* name, DWORD number) {
    setBytes(root, key, name, REG_DWORD, &number, sizeof(number));
  }

 private:
  static HKEY makeRoot(const wchar_t* name) {
    HKEY made = nullptr;
    const std::wstring key = std::wstring(scratchKey) + name;
    RegCreateKeyExW(HKEY_CURRENT_USER, key.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &made,
                    nullptr);
    return made;
  }

  static constexpr wchar_t scratchKey[] = L"Software\\TessaroAcadTests";
  HKEY user = nullptr;
  HKEY machine = nullptr;
};
