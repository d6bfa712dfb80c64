#include "foundation/AddinSettings.h"
#include "foundation/AppMessageBox.h"
#include "foundation/Registry.h"
#include "foundation/SettingsLight.h"
#include "unit/RegistryFixture.h"
#include "vault/VaultOffline.h"

namespace tessaro {

namespace {

using RegistryTest = RegistryFixture;

const std::wstring suite = suiteKey;
const std::wstring addin = addinSettingsKey;

/// The text of a value of the add-in's key, "(none)" if there is none.
CString readText(const wchar_t* name) {
  Registry registry;
  EXPECT_TRUE(registry.open(HKEY_CURRENT_USER, addinSettingsKey, KEY_READ));
  CString text = L"before";
  if (readRegistryString(registry, name, text)) return text;
  EXPECT_EQ(text, L"before");
  return L"(none)";
}

/// A setting of the add-in, 5 if there is no usable value.
DWORD readNumber(const wchar_t* name) { return addinSettingOrDefault({name, 5}); }

/// Which of the marks "machine" and "user" the vault key that was found bears.
CString markOf(const wchar_t* vault, const wchar_t* valueName, unsigned flags,
               bool create = false) {
  SettingsLight settings;
  Registry found;
  if (!settings.openVaultKey(vault, found, valueName, create, flags)) {
    EXPECT_EQ(found.key(), nullptr);
    return L"(none)";
  }
  CString mark = L"(no mark)";
  readRegistryString(found, L"mark", mark);
  return mark;
}

constexpr unsigned readOnly = SettingsLight::readAccess;

}  // namespace

TEST_F(RegistryTest, OpenReplacesWhatWasOpenAndKeepsTheResult) {
  makeKey(HKEY_CURRENT_USER, L"one");
  Registry registry;
  EXPECT_TRUE(registry.open(HKEY_CURRENT_USER, L"one", KEY_READ));
  EXPECT_NE(registry.key(), nullptr);
  EXPECT_FALSE(registry.open(HKEY_CURRENT_USER, L"two", KEY_READ));
  EXPECT_EQ(registry.key(), nullptr);
  EXPECT_EQ(registry.lastResult(), ERROR_FILE_NOT_FOUND);
  EXPECT_TRUE(registry.open(HKEY_CURRENT_USER, L"two\\deep", KEY_READ, true));
  EXPECT_EQ(registry.lastResult(), ERROR_SUCCESS);
  EXPECT_TRUE(registry.open(HKEY_CURRENT_USER, L"two", KEY_READ));
  EXPECT_TRUE(registry.open(HKEY_CURRENT_USER, nullptr, KEY_READ, true));
}

TEST_F(RegistryTest, KeepsTheResultOfReadingAndWriting) {
  setNumber(HKEY_CURRENT_USER, addin, L"number", 1);
  Registry registry;
  ASSERT_TRUE(registry.open(HKEY_CURRENT_USER, addin.c_str(), KEY_READ));
  DWORD number = 0;
  CString text;
  EXPECT_FALSE(readAddinSetting(registry, {L"missing", 0}, number));
  EXPECT_EQ(registry.lastResult(), ERROR_FILE_NOT_FOUND);
  EXPECT_TRUE(readAddinSetting(registry, {L"number", 0}, number));
  EXPECT_EQ(registry.lastResult(), ERROR_SUCCESS);
  EXPECT_FALSE(readRegistryString(registry, L"missing", text));
  EXPECT_EQ(registry.lastResult(), ERROR_FILE_NOT_FOUND);
  ASSERT_TRUE(registry.open(HKEY_CURRENT_USER, addin.c_str(), KEY_WRITE));
  EXPECT_EQ(registry.set(L"number", REG_DWORD, &number, sizeof(number)), ERROR_SUCCESS);
  registry.close();
  EXPECT_NE(registry.set(L"number", REG_DWORD, &number, sizeof(number)), ERROR_SUCCESS);
  EXPECT_EQ(registry.lastResult(), ERROR_INVALID_HANDLE);
}

TEST_F(RegistryTest, StringsOfEveryShape) {
  const auto textOf = [](const void* data, size_t size, DWORD type = REG_SZ) {
    setBytes(HKEY_CURRENT_USER, addin, L"value", type, data, size);
    return readText(L"value");
  };
  constexpr size_t letter = sizeof(wchar_t);
  EXPECT_EQ(textOf(L"text!", 4 * letter), L"text") << "without an end";
  EXPECT_EQ(textOf(L"text", 5 * letter), L"text");
  EXPECT_EQ(textOf(L"te\0xt", 6 * letter), L"te");
  EXPECT_EQ(textOf(L"text", 7), L"tex");
  EXPECT_EQ(textOf("x", 1), L"");
  EXPECT_EQ(textOf("", 0), L"");
  EXPECT_EQ(textOf("", 0, REG_EXPAND_SZ), L"");
  EXPECT_EQ(textOf(std::wstring(5001, L'x').data(), 5000 * letter).size(), 5000u);
  setText(HKEY_CURRENT_USER, addin, L"", L"default");
  EXPECT_EQ(readText(L""), L"default");

  SetEnvironmentVariableW(L"TESSARO_TEST", std::wstring(300, L'v').c_str());
  EXPECT_EQ(textOf(L"<%TESSARO_TEST%>", 17 * letter, REG_EXPAND_SZ),
            L"<" + std::wstring(300, L'v') + L">");
  EXPECT_EQ(textOf(L"%NO_SUCH_NAME%", 15 * letter, REG_EXPAND_SZ), L"%NO_SUCH_NAME%");
  EXPECT_EQ(textOf(L"%TESSARO_TEST%", 15 * letter), L"%TESSARO_TEST%");
  for (const DWORD type : {REG_MULTI_SZ, REG_BINARY, REG_DWORD}) {
    EXPECT_EQ(textOf(L"7", 2 * letter, type), L"(none)") << type;
  }
  EXPECT_EQ(readText(L"missing"), L"(none)");
}

TEST_F(RegistryTest, SettingsAreValuesOfFourBytesOfAnyType) {
  EXPECT_EQ(readNumber(L"missing"), 5u) << "no key";
  const auto numberOf = [](DWORD type, const void* data, size_t size) {
    setBytes(HKEY_CURRENT_USER, addin, L"value", type, data, size);
    const DWORD number = readNumber(L"value");
    DWORD untouched = 7;
    EXPECT_EQ(readAddinSetting({L"value", 5}, untouched), size == sizeof(DWORD));
    EXPECT_EQ(untouched, size == sizeof(DWORD) ? number : 7u);
    return number;
  };
  EXPECT_EQ(numberOf(REG_DWORD, "\0\0\0", 4), 0u);
  EXPECT_EQ(numberOf(REG_BINARY, "\x78\x56\x34\x12", 4), 0x12345678u);
  EXPECT_EQ(numberOf(REG_SZ, L"AB!", 4), 0x00420041u);
  EXPECT_EQ(numberOf(REG_DWORD, "", 0), 5u);
  EXPECT_EQ(numberOf(REG_BINARY, "\x02", 1), 5u);
  EXPECT_EQ(numberOf(REG_DWORD, "\x02\0", 3), 5u);
  EXPECT_EQ(numberOf(REG_QWORD, "\x01\0\0\0\0\0\0", 8), 5u);
  EXPECT_EQ(numberOf(REG_SZ, L"ABC!", 6), 5u);
  EXPECT_EQ(readNumber(L"missing"), 5u);
}

TEST_F(RegistryTest, WritingASettingMakesItsKey) {
  ASSERT_TRUE(writeAddinSetting(addinSettings::xrefMonitoringInterval, 0));
  EXPECT_EQ(addinSettingOrDefault(addinSettings::xrefMonitoringInterval), 0u);
  setText(HKEY_CURRENT_USER, addin, L"StatusWnd", L"was text");
  ASSERT_TRUE(writeAddinSetting(addinSettings::statusWindow, 0xFFFFFFFF));
  EXPECT_EQ(addinSettingOrDefault(addinSettings::statusWindow), 0xFFFFFFFFu);
  DWORD type = REG_NONE;
  ASSERT_EQ(RegGetValueW(HKEY_CURRENT_USER, addinSettingsKey, L"StatusWnd", RRF_RT_ANY, &type,
                         nullptr, nullptr),
            ERROR_SUCCESS);
  EXPECT_EQ(type, static_cast<DWORD>(REG_DWORD));
}

TEST_F(RegistryTest, TitleThatIsNoneFallsThrough) {
  const struct {
    DWORD type;
    std::wstring text;
  } unusable[] = {{REG_EXPAND_SZ, L"Title"},
                  {REG_BINARY, L"Title"},
                  {REG_SZ, L""},
                  {REG_SZ, std::wstring(1, L'\0')},
                  {REG_SZ, std::wstring(513, L'x')}};
  for (const auto& value : unusable) {
    setText(HKEY_LOCAL_MACHINE, suite, L"", value.text, value.type);
    setText(HKEY_CURRENT_USER, suite, L"", L"User's");
    EXPECT_EQ(productTitle(L"Tessaro"), L"User's");
    setText(HKEY_CURRENT_USER, suite, L"", value.text, value.type);
    EXPECT_EQ(productTitle(L"Tessaro"), L"Tessaro");
  }
  setText(HKEY_LOCAL_MACHINE, suite, L"", std::wstring(512, L'x'));
  EXPECT_EQ(productTitle(L"Tessaro").size(), 512u);
}

TEST_F(RegistryTest, StandardKeysByKind) {
  const unsigned write = SettingsLight::readAccess | SettingsLight::writeAccess;
  makeKey(HKEY_LOCAL_MACHINE, suite);
  const struct {
    int kind;
    HKEY root;
    std::wstring key;
  } keys[] = {{SettingsLight::databases, HKEY_LOCAL_MACHINE, suite + L"\\Databases"},
              {SettingsLight::vaults, HKEY_CURRENT_USER, suite + L"\\Vaults"},
              {SettingsLight::nameSpace, HKEY_CURRENT_USER, suite + L"\\Namespace"},
              {SettingsLight::viewSetup, HKEY_CURRENT_USER, suite + L"\\ViewSetup"},
              {SettingsLight::userPolicy, HKEY_CURRENT_USER, policyKey},
              {SettingsLight::machinePolicy, HKEY_LOCAL_MACHINE, policyKey}};
  SettingsLight settings;
  for (const auto& expected : keys) {
    Registry opened;
    EXPECT_FALSE(settings.openStandardKey(expected.kind, opened, false, readOnly));
    setText(expected.root, expected.key, L"", expected.key);
    ASSERT_TRUE(settings.openStandardKey(expected.kind, opened, false, readOnly)) << expected.kind;
    CString mark;
    EXPECT_TRUE(readRegistryString(opened, L"", mark));
    EXPECT_EQ(mark, expected.key);
    EXPECT_NE(RegSetValueExW(opened.key(), L"x", 0, REG_SZ, nullptr, 0), ERROR_SUCCESS);
    ASSERT_TRUE(settings.openStandardKey(expected.kind, opened, false, write));
    EXPECT_EQ(RegSetValueExW(opened.key(), L"x", 0, REG_SZ, nullptr, 0), ERROR_SUCCESS);
  }
  Registry opened;
  EXPECT_FALSE(settings.openStandardKey(6, opened, true, write));
  EXPECT_FALSE(settings.openStandardKey(-1, opened, true, write));
}

TEST_F(RegistryTest, VaultKeyFollowsTheOrderOfSearch) {
  setText(HKEY_LOCAL_MACHINE, suite + L"\\Databases\\Both", L"mark", L"machine");
  setText(HKEY_CURRENT_USER, suite + L"\\Vaults\\Both", L"mark", L"user");
  setText(HKEY_CURRENT_USER, suite + L"\\Vaults\\Deep\\Name", L"mark", L"user");
  EXPECT_EQ(markOf(L"Both", nullptr, readOnly | SettingsLight::machineOnly), L"machine");
  EXPECT_EQ(markOf(L"Both", nullptr, readOnly | SettingsLight::userOnly), L"user");
  EXPECT_EQ(markOf(L"Both", nullptr, readOnly | SettingsLight::machineFirst), L"machine");
  EXPECT_EQ(markOf(L"Both", nullptr, readOnly | SettingsLight::userFirst), L"user");
  EXPECT_EQ(markOf(L"Both", nullptr, readOnly), L"(none)");
  EXPECT_EQ(markOf(L"Deep\\Name", nullptr, readOnly | SettingsLight::machineFirst), L"user");
  EXPECT_EQ(markOf(L"Deep\\Name", nullptr, readOnly | SettingsLight::machineOnly), L"(none)");
  EXPECT_EQ(markOf(L"", nullptr, readOnly | SettingsLight::userFirst), L"(none)");
  EXPECT_EQ(markOf(nullptr, nullptr, readOnly | SettingsLight::userFirst), L"(none)");
}

TEST_F(RegistryTest, VaultKeyWithoutTheWantedValueIsPassedOver) {
  setText(HKEY_LOCAL_MACHINE, suite + L"\\Databases\\V", L"mark", L"machine");
  setText(HKEY_CURRENT_USER, suite + L"\\Vaults\\V", L"mark", L"user");
  setNumber(HKEY_CURRENT_USER, suite + L"\\Vaults\\V", L"Offline", 0);
  EXPECT_EQ(markOf(L"V", L"Offline", readOnly | SettingsLight::machineFirst), L"user");
  EXPECT_EQ(markOf(L"V", L"Offline", readOnly | SettingsLight::machineOnly), L"(none)");
  EXPECT_EQ(markOf(L"V", L"Missing", readOnly | SettingsLight::userFirst), L"(none)");
}

TEST_F(RegistryTest, VaultKeyNeedsTheMachinesRootAndMakesWhatItIsAskedTo) {
  const unsigned flags = readOnly | SettingsLight::writeAccess | SettingsLight::userOnly;
  setText(HKEY_CURRENT_USER, suite + L"\\Vaults\\V", L"mark", L"user");
  EXPECT_EQ(markOf(L"V", nullptr, flags), L"(none)");
  makeKey(HKEY_LOCAL_MACHINE, suite);
  EXPECT_EQ(markOf(L"V", nullptr, flags), L"user");
  EXPECT_EQ(markOf(L"New", nullptr, flags), L"(none)");
  EXPECT_EQ(markOf(L"New", nullptr, flags, true), L"(no mark)");
  EXPECT_EQ(markOf(L"New", nullptr, flags), L"(no mark)");
}

TEST_F(RegistryTest, VaultIsOfflineByANonZeroNumberOfFourBytes) {
  makeKey(HKEY_LOCAL_MACHINE, suite);
  const std::wstring vaults = suite + L"\\Vaults\\";
  const auto isOffline = [&](DWORD type, const void* data, size_t size) {
    setBytes(HKEY_CURRENT_USER, vaults + L"v", L"Offline", type, data, size);
    return isVaultOffline(L"v");
  };
  EXPECT_TRUE(isOffline(REG_DWORD, "\x02\0\0", 4));
  EXPECT_FALSE(isOffline(REG_DWORD, "\0\0\0", 4));
  EXPECT_TRUE(isOffline(REG_DWORD_BIG_ENDIAN, "\0\0\0\x01", 4));
  EXPECT_FALSE(isOffline(REG_DWORD_BIG_ENDIAN, "\0\0\0", 4));
  EXPECT_FALSE(isOffline(REG_SZ, L"1!", 2));
  EXPECT_FALSE(isOffline(REG_BINARY, "\x01\0\0", 4));
  EXPECT_FALSE(isOffline(REG_QWORD, "\x01\0\0\0\0\0\0", 8));
  EXPECT_FALSE(isOffline(REG_DWORD, "\x01", 1));
  makeKey(HKEY_CURRENT_USER, vaults + L"silent");
  setNumber(HKEY_LOCAL_MACHINE, suite + L"\\Databases\\machine", L"Offline", 1);
  for (const wchar_t* vault : {L"silent", L"machine", L"missing", L""}) {
    EXPECT_FALSE(isVaultOffline(vault)) << vault;
  }
  EXPECT_FALSE(isVaultOffline(nullptr));
}

}  // namespace tessaro
