#pragma once

#include <string>

#include "FakeClient.h"
#include "RegistryFixture.h"
#include "foundation/AppContext.h"
#include "foundation/Registry.h"
#include "vault/MessageStrings.h"

struct Apartment {
  Apartment() { CoInitialize(nullptr); }
  ~Apartment() { CoUninitialize(); }
};

/// The fake client, installed on a computer that has nothing else in its registry.
class VaultFixture : public RegistryFixture {
 protected:
  void SetUp() override {
    RegistryFixture::SetUp();
    script = ClientScript();
    // Texts are the module's own: it takes Windows long to find out that there is no such class.
    FakeTexts::reset();
    FakeTexts::textResult = E_FAIL;
    FakeTexts::answer = nullptr;
    makeKey(HKEY_LOCAL_MACHINE, suiteKey);
  }

  void TearDown() override {
    EXPECT_EQ(aliveObjects(), 0);
    releaseTextService();
    RegistryFixture::TearDown();
  }

  static void goOffline() {
    setNumber(HKEY_CURRENT_USER, std::wstring(suiteKey) + L"\\Vaults\\Projects", L"Offline", 1);
  }

  AppContext app;
  const Apartment apartment;
  const FakeClass<FakeMain> mainClass{__uuidof(VaultMain)};
  const FakeClass<FakeTexts> texts{__uuidof(TextService)};
};
