#include "watch/ImportWatch.h"

#include <gtest/gtest.h>
#include <malloc.h>
#include <objbase.h>

#include <string>

#include "core/Accounts.h"
#include "core/Program.h"
#include "core/Transcript.h"
#include "workbench/BareSession.h"

namespace {

/// Watches the test program itself: it imports the same functions as a module does.
class ImportWatchTest : public ::testing::Test {
 protected:
  ImportWatchTest() : since(wb::nextTicket()) { wb::watchImports(self()); }
  ~ImportWatchTest() override { wb::unwatchImports(self()); }

  static HMODULE self() { return GetModuleHandleW(nullptr); }

  std::wstring open() const {
    std::wstring all;
    for (const wb::Outstanding& one : wb::outstanding(since)) {
      all += one.kind + L' ' + one.label + (one.kept ? L" kept;" : L";");
    }
    return all;
  }

  BareSession session;
  wb::Ticket since;
};

constexpr wchar_t subKey[] = L"Software\\Halvern\\Watch";

TEST_F(ImportWatchTest, WritesToTheRegistryAreToldAndKeysAccounted) {
  HKEY key = nullptr;
  ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyExW(HKEY_CURRENT_USER, subKey, 0, nullptr, 0, KEY_ALL_ACCESS,
                                           nullptr, &key, nullptr));
  const DWORD number = 5;
  RegSetValueExW(key, L"Interval", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number),
                 sizeof(number));
  RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(L"A \"b\""),
                 6 * sizeof(wchar_t));
  RegDeleteValueW(key, L"Missing");
  EXPECT_EQ(L"registry key HKCU\\Software\\Halvern\\Watch;", open());
  HKEY again = nullptr;
  RegOpenKeyExW(key, L"Below", 0, KEY_READ, &again);
  EXPECT_EQ(nullptr, again);
  RegCloseKey(key);
  EXPECT_EQ(L"", open());
  const std::vector<std::wstring> expected = {
      L"reg: create HKCU\\Software\\Halvern\\Watch",
      L"reg: set HKCU\\Software\\Halvern\\Watch\\Interval=5",
      L"reg: set HKCU\\Software\\Halvern\\Watch\\(default)=\"A \\\"b\\\"\"",
      L"reg: delete HKCU\\Software\\Halvern\\Watch\\Missing -> Windows error 2"};
  EXPECT_EQ(expected, session.transcript());
}

TEST_F(ImportWatchTest, HandlesAreOnTheAccountsUntilTheyAreGivenBack) {
  const HANDLE file = CreateFileW((BareSession::workFolder() + L"\\a").c_str(), GENERIC_WRITE, 0,
                                  nullptr, CREATE_ALWAYS, 0, nullptr);
  const HMENU menu = CreatePopupMenu();
  const HMENU below = CreatePopupMenu();
  AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(below), L"More");
  EXPECT_NE(std::wstring::npos, open().find(L"file "));
  EXPECT_NE(std::wstring::npos, open().find(L"menu popup kept;menu popup kept;"));
  CloseHandle(file);
  DestroyMenu(menu);
  EXPECT_EQ(L"", open()) << "a menu takes its submenus with it";
  EXPECT_EQ(INVALID_HANDLE_VALUE, CreateFileW(L"Z:\\no\\such\\file", GENERIC_READ, 0, nullptr,
                                              OPEN_EXISTING, 0, nullptr));
  EXPECT_EQ(DWORD{ERROR_PATH_NOT_FOUND}, GetLastError());
  EXPECT_EQ(L"", open());
}

TEST_F(ImportWatchTest, TimersAreKeptAndTheirPeriodIsKnown) {
  const HWND window =
      CreateWindowExW(0, L"Static", L"", 0, 0, 0, 9, 9, HWND_MESSAGE, nullptr, self(), nullptr);
  SetTimer(window, 1, 300000, nullptr);
  SetTimer(window, 1, 60000, nullptr);
  EXPECT_EQ(L"timer 60000 ms kept;", open());
  EXPECT_EQ(60000u, wb::watchedTimer(window, 1).value_or(0));
  EXPECT_FALSE(wb::watchedTimer(window, 2));
  KillTimer(window, 1);
  EXPECT_FALSE(wb::watchedTimer(window, 1));
  SetTimer(window, 1, 60000, nullptr);
  DestroyWindow(window);
  EXPECT_EQ(L"", open()) << "a window takes its timers with it";
}

TEST_F(ImportWatchTest, UnwatchedModuleIsSeenNoMore) {
  wb::unwatchImports(self());
  const HMENU menu = CreatePopupMenu();
  EXPECT_EQ(L"", open());
  DestroyMenu(menu);
}

TEST(ModuleMemory, IsToldWhenTheModuleHasGoneWithoutFreeingIt) {
  wb::SessionOptions options = BareSession::options();
  options.module = (wb::programFolder() / L"testmodule.arx").wstring();
  wb::Session session(options);
  ASSERT_TRUE(session.load());
  // What leaves a command goes to the host, which frees it.
  ASSERT_TRUE(session.run("@new\nT_LOSEOWN\nT_COMERROR\nT_VALUE\n"));
  session.unload();
  std::vector<std::wstring> leaks;
  for (const std::wstring& line : session.transcript()) {
    if (line.rfind(L"leak: ", 0) == 0) leaks.push_back(line);
  }
  const std::vector<std::wstring> expected = {L"leak: memory 1234 bytes",
                                              L"leak: string 8 bytes of a module",
                                              L"leak: memory 1236 bytes of a module"};
  EXPECT_EQ(expected, leaks);
}

}  // namespace
