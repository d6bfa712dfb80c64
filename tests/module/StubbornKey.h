#pragma once

#include <windows.h>

#include <gtest/gtest.h>

/// A key that takes only subkeys that go with the session, which the module's and the host's
/// aren't.
class StubbornKey {
 public:
  explicit StubbornKey(const wchar_t* name) : name(name) {
    RegDeleteTreeW(HKEY_CURRENT_USER, name);
    HKEY key = nullptr;
    EXPECT_EQ(ERROR_SUCCESS,
              RegCreateKeyExW(HKEY_CURRENT_USER, name, 0, nullptr, REG_OPTION_VOLATILE,
                              KEY_ALL_ACCESS, nullptr, &key, nullptr));
    RegCloseKey(key);
  }
  StubbornKey(const StubbornKey&) = delete;
  StubbornKey& operator=(const StubbornKey&) = delete;
  ~StubbornKey() { RegDeleteTreeW(HKEY_CURRENT_USER, name); }

 private:
  const wchar_t* name;
};
