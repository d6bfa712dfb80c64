#include <gtest/gtest.h>

#include <windows.h>

#include <string>

#include "shared/Support.h"
#include "vault/ViewIdentifier.h"

namespace tessaro {

namespace {

/// A view's root with a desktop.ini of its own.
class ViewIdentifier : public testing::Test {
 protected:
  void write(const std::string& content) const {
    ::write(root / L"desktop.ini", content);
    // Windows may keep the file that it read last.
    WritePrivateProfileStringW(nullptr, nullptr, nullptr, (root / L"desktop.ini").c_str());
  }

  void writeIdentifier(const std::string& text) const {
    write("[.ShellClassInfo]\r\nIconIndex=1\r\n[Tessaro]\r\nViewID=" + text + "\r\n");
  }

  /// The identifier in braces, "(none)" if there is none.
  std::wstring read(const std::wstring& folder, int kind = 1) const {
    const GUID before = {1, 2, 3, {4, 5, 6, 7, 8, 9, 10, 11}};
    GUID identifier = before;
    if (!readViewIdentifier(folder, kind, identifier)) {
      EXPECT_EQ(identifier, before);
      return L"(none)";
    }
    wchar_t text[39] = {};
    StringFromGUID2(identifier, text, 39);
    return text;
  }

  std::wstring read() const { return read(root.wstring()); }

  const fs::path root = emptyTestFolder(L"view-identifier");
};

}  // namespace

TEST_F(ViewIdentifier, IsReadWithAndWithoutABackslash) {
  writeIdentifier("{01234567-89AB-CDEF-0123-456789abcdef}");
  const std::wstring expected = L"{01234567-89AB-CDEF-0123-456789ABCDEF}";
  EXPECT_EQ(read(root.wstring()), expected);
  EXPECT_EQ(read(root.wstring() + L"\\"), expected);
  EXPECT_EQ(read(root.wstring() + L"\\sub"), L"(none)");
  EXPECT_EQ(read(L"", 1), L"(none)");
}

TEST_F(ViewIdentifier, KindsHaveKeysOfTheirOwn) {
  write(
      "[Tessaro]\nViewID={00000001-0000-0000-0000-000000000000}\n"
      "VaultID={00000002-0000-0000-0000-000000000000}\n");
  EXPECT_EQ(read(root.wstring(), 1), L"{00000001-0000-0000-0000-000000000000}");
  EXPECT_EQ(read(root.wstring(), 2), L"{00000002-0000-0000-0000-000000000000}");
  EXPECT_EQ(read(root.wstring(), 0), L"(none)");
  EXPECT_EQ(read(root.wstring(), 3), L"(none)");
}

TEST_F(ViewIdentifier, FormsThatCountAndFormsThatDoNot) {
  const char* good[] = {
      "{FFFFFFFF-FFFF-FFFF-FFFF-FFFFFFFFFFFF}", " {FFFFFFFF-FFFF-FFFF-FFFF-FFFFFFFFFFFF} ",
      "\"{FFFFFFFF-FFFF-FFFF-FFFF-FFFFFFFFFFFF}\"", "{FFFFFFFF-FFFF-FFFF-FFFF-FFFFFFFFFFFF"};
  for (const char* text : good) {
    writeIdentifier(text);
    EXPECT_EQ(read(), L"{FFFFFFFF-FFFF-FFFF-FFFF-FFFFFFFFFFFF}") << text;
  }
  const char* bad[] = {"",
                       "{}",
                       "01234567-89AB-CDEF-0123-456789ABCDEF",
                       "{01234567-89AB-CDEF-0123-456789ABCD}",
                       "{01234567-89AB-CDEF-0123-456789ABCD",
                       "{01234567-89AB-CDEF-0123456789ABCDEF}",
                       "{01234567 89AB CDEF 0123 456789ABCDEF}",
                       "{0123456G-89AB-CDEF-0123-456789ABCDEF}",
                       "{0123456789-89AB-CDEF-0123-456789ABCDEF}"};
  for (const char* text : bad) {
    writeIdentifier(text);
    EXPECT_EQ(read(), L"(none)") << text;
  }
}

TEST_F(ViewIdentifier, IsNoneWithoutFileSectionOrKey) {
  EXPECT_EQ(read(), L"(none)");
  write("[Other]\nViewID={00000001-0000-0000-0000-000000000000}\n");
  EXPECT_EQ(read(), L"(none)");
  write("[Tessaro]\nOther=1\n");
  EXPECT_EQ(read(), L"(none)");
}

}  // namespace tessaro
