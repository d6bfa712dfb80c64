#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>

#include "core/Text.h"
#include "shared/Support.h"
#include "store/Store.h"

inline bool isReadOnlyFile(const fs::path& file) {
  const DWORD attributes = GetFileAttributesW(file.c_str());
  EXPECT_NE(INVALID_FILE_ATTRIBUTES, attributes) << file.string();
  return (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

inline std::set<std::wstring> namesIn(const fs::path& folder) {
  std::set<std::wstring> names;
  for (const auto& entry : fs::directory_iterator(folder)) {
    names.insert(entry.path().filename().wstring());
  }
  return names;
}

/// A store with the vault Plant, one drawing in it, and what is asked of both.
class StoreTest : public testing::Test {
 protected:
  StoreTest() {
    write(source, "one");
    store.open(folder / L"store");
    store.createVault(L"Plant", view.wstring());
    store.add(plan, source, L"anna", L"First issue");
  }

  void addVersion(const std::string& bytes) {
    write(source, bytes);
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
