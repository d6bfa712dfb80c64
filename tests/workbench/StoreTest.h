#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <set>
#include <string>

#include "core/Text.h"
#include "store/Store.h"

namespace fs = std::filesystem;

/// A file kept open as another program would.
class HeldOpen {
 public:
  HeldOpen(const fs::path& file, DWORD access, DWORD share)
      : handle(CreateFileW(file.c_str(), access, share, nullptr, OPEN_EXISTING, 0, nullptr)) {
    EXPECT_NE(INVALID_HANDLE_VALUE, handle) << file.string();
  }
  HeldOpen(const HeldOpen&) = delete;
  HeldOpen& operator=(const HeldOpen&) = delete;
  ~HeldOpen() { CloseHandle(handle); }

 private:
  const HANDLE handle;
};

inline std::string contentOf(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  EXPECT_TRUE(in) << file.string();
  return {std::istreambuf_iterator<char>(in), {}};
}

inline void writeFile(const fs::path& file, const std::string& bytes) {
  std::ofstream out(file, std::ios::binary);
  EXPECT_TRUE(out << bytes) << file.string();
}

inline bool isReadOnlyFile(const fs::path& file) {
  const DWORD attributes = GetFileAttributesW(file.c_str());
  EXPECT_NE(INVALID_FILE_ATTRIBUTES, attributes) << file.string();
  return (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

/// Removes a folder with read-only files in it.
inline void removeFolder(const fs::path& folder) {
  if (!fs::exists(folder)) return;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    SetFileAttributesW(entry.path().c_str(), FILE_ATTRIBUTE_NORMAL);
  }
  fs::remove_all(folder);
}

inline std::set<std::wstring> namesIn(const fs::path& folder) {
  std::set<std::wstring> names;
  for (const auto& entry : fs::directory_iterator(folder)) {
    names.insert(entry.path().filename().wstring());
  }
  return names;
}

inline fs::path emptyTestFolder(const wchar_t* name) {
  wchar_t folder[MAX_PATH + 1] = L"";
  GetTempPathW(MAX_PATH + 1, folder);
  fs::path path = fs::path(folder) / L"workbench-tests" / name;
  removeFolder(path);
  fs::create_directories(path);
  return path;
}

/// A store with the vault Plant, one drawing in it, and what is asked of both.
class StoreTest : public testing::Test {
 protected:
  StoreTest() {
    writeFile(source, "one");
    store.open(folder / L"store");
    store.createVault(L"Plant", view.wstring());
    store.add(plan, source, L"anna", L"First issue");
  }

  void addVersion(const std::string& bytes) {
    writeFile(source, bytes);
    store.addVersion(plan, source, L"ben", L"");
  }

  void reopen() {
    store.close();
    store.open(folder / L"store");
  }

  const wb::StoredFile& file() const { return *store.find(plan); }

  /// The code that an operation was refused with.
  static HRESULT refusal(const std::function<void()>& operation) {
    try {
      operation();
      return S_OK;
    } catch (const wb::StoreError& refused) {
      EXPECT_STRNE("", refused.what());
      return refused.code();
    }
  }

  const fs::path folder = emptyTestFolder(L"store");
  const fs::path view = folder / L"Plant";
  const fs::path source = folder / L"source.dwg";
  const std::wstring plan = (view / L"Site" / L"Plan.dwg").wstring();
  wb::Store store;
};
