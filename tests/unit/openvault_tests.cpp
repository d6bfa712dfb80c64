#include <comdef.h>

#include "BoxWatch.h"
#include "VaultFixture.h"
#include "vault/OpenVaultFile.h"
#include "vault/ResultCodes.h"

namespace {

using Calls = std::vector<std::string>;
using Texts = std::vector<std::wstring>;

/// The outcome of an opening: what it gave or raised, the boxes, and whether a client is left.
struct Outcome {
  enum Kind { no, yes, raised } kind;
  bool clientLeft;
  size_t boxes;

  bool operator==(const Outcome& other) const {
    return kind == other.kind && clientLeft == other.clientLeft && boxes == other.boxes;
  }
};

std::ostream& operator<<(std::ostream& out, const Outcome& outcome) {
  return out << "kind " << outcome.kind << ", client " << outcome.clientLeft << ", boxes "
             << outcome.boxes;
}

class OpenVault : public VaultFixture {
 protected:
  template <class Folder, class File, class Client, class Open>
  Outcome outcomeOf(Open open, bool raiseUnexpected) {
    BoxWatch boxes;
    Client client;
    Folder folder;
    File file;
    Outcome::Kind kind = Outcome::raised;
    try {
      kind = open(app, L"C:\\view\\plan.dwg", client, folder, file, raiseUnexpected) ? Outcome::yes
                                                                                     : Outcome::no;
      EXPECT_TRUE(kind == Outcome::no || (client && folder));
    } catch (const _com_error& error) {
      lastCode = error.Error();
    }
    return {kind, client, BoxWatch::texts.size()};
  }

  Outcome current(bool raiseUnexpected) {
    return outcomeOf<VaultFolderPtr, VaultFilePtr, VaultClientPtr>(openVaultFile, raiseUnexpected);
  }

  Outcome older(bool raiseUnexpected) {
    return outcomeOf<VaultFolderLegacyPtr, VaultFileLegacyPtr, VaultClientLegacyPtr>(
        openVaultFileLegacy, raiseUnexpected);
  }

  HRESULT lastCode = S_OK;
};

constexpr Outcome silent = {Outcome::no, false, 0};
constexpr Outcome found = {Outcome::yes, true, 0};
constexpr Outcome raises = {Outcome::raised, true, 0};
const bool bothFlags[] = {false, true};

}  // namespace

TEST_F(OpenVault, FindsTheFileWithALoggedInClient) {
  app.mainWindow = reinterpret_cast<HWND>(0x1234500067890ULL);
  EXPECT_EQ(current(false), found);
  EXPECT_EQ(script.calls, (Calls{"vaultNameFromPath", "login", "fileFromPath"}));
  EXPECT_EQ(script.parentWindow, 0x67890);
  script.calls.clear();
  EXPECT_EQ(older(false), found);
  EXPECT_EQ(script.calls, (Calls{"vaultNameFromPath", "login", "fileFromPath"}));
}

TEST_F(OpenVault, TellsThatTheClientIsMissing) {
  constexpr Outcome told = {Outcome::no, false, 1};
  script.missing = __uuidof(VaultClient);
  for (const bool flag : bothFlags) EXPECT_EQ(current(flag), told);
  EXPECT_EQ(
      BoxWatch::texts,
      Texts{L"Can't create interface towards Tessaro.\nIs Tessaro installed on this computer?"});
  script.missing = __uuidof(VaultClientLegacy);
  for (const bool flag : bothFlags) EXPECT_EQ(older(flag), told);
  EXPECT_TRUE(script.calls.empty());
}

TEST_F(OpenVault, PathInNoVaultIsSilent) {
  script.failures["vaultNameFromPath"] = E_QVT_KEY_NOT_FOUND;
  for (const bool flag : bothFlags) {
    EXPECT_EQ(current(flag), silent);
    EXPECT_EQ(older(flag), silent);
  }
}

TEST_F(OpenVault, OtherFailuresAreRaisedIfAskedFor) {
  for (const char* operation : {"vaultNameFromPath", "fileFromPath"}) {
    script.failures = {{operation, E_ACCESSDENIED}};
    EXPECT_EQ(current(false), silent) << operation;
    EXPECT_EQ(older(false), silent) << operation;
    EXPECT_EQ(current(true), raises) << operation;
    EXPECT_EQ(older(true), raises) << operation;
    EXPECT_EQ(lastCode, E_ACCESSDENIED);
  }
}

TEST_F(OpenVault, OfflineVaultIsSilentAndLeavesTheClient) {
  goOffline();
  for (const bool flag : bothFlags) {
    EXPECT_EQ(current(flag), (Outcome{Outcome::no, true, 0}));
    EXPECT_EQ(older(flag), (Outcome{Outcome::no, true, 0}));
  }
  EXPECT_EQ(script.calls, Calls(4, "vaultNameFromPath"));
}

TEST_F(OpenVault, FailedLoginIsSilentOnlyInTheCurrentGeneration) {
  script.failures["login"] = static_cast<HRESULT>(0x80040200);
  for (const bool flag : bothFlags) {
    EXPECT_EQ(current(flag), silent);
    EXPECT_EQ(older(flag), raises);
  }
}

TEST_F(OpenVault, MissingAndForbiddenFilesAreSilent) {
  for (const HRESULT code : {E_QVT_FILE_NOT_FOUND, E_QVT_PERMISSION_DENIED}) {
    script.failures["fileFromPath"] = code;
    for (const bool flag : bothFlags) {
      EXPECT_EQ(current(flag), silent);
      EXPECT_EQ(older(flag), silent);
    }
  }
  script.failures.clear();
  script.hasFile = false;
  for (const bool flag : bothFlags) {
    EXPECT_EQ(current(flag), silent);
    EXPECT_EQ(older(flag), found);
  }
}

TEST_F(OpenVault, QueryOpensBehindTheGate) {
  VaultClientPtr client;
  VaultQueryPtr query;
  EXPECT_TRUE(openVaultQuery(app, L"C:\\view", client, query));
  EXPECT_TRUE(client && query);
  EXPECT_EQ(script.calls,
            (Calls{"vaultNameFromPath", "login", "presentCode", "presentCode", "presentCode"}));
  EXPECT_EQ(script.codes, (std::vector<long>{3176520, 19980117, 5201874}));
}

TEST_F(OpenVault, QueryRaisesAllButPathsInNoVault) {
  VaultClientPtr client;
  VaultQueryPtr query;
  script.failures = {{"vaultNameFromPath", E_QVT_KEY_NOT_FOUND}};
  EXPECT_FALSE(openVaultQuery(app, L"C:\\view", client, query));
  EXPECT_FALSE(client);
  for (const char* operation : {"vaultNameFromPath", "login", "presentCode"}) {
    script.failures = {{operation, E_FAIL}};
    EXPECT_THROW(openVaultQuery(app, L"C:\\view", client, query), _com_error) << operation;
  }
  script.failures.clear();
  for (const IID& missing : {__uuidof(VaultGate), __uuidof(VaultQuery)}) {
    script.missing = missing;
    EXPECT_THROW(openVaultQuery(app, L"C:\\view", client, query), _com_error);
    EXPECT_FALSE(query);
  }
  script.missing = GUID_NULL;
  goOffline();
  EXPECT_FALSE(openVaultQuery(app, L"C:\\view", client, query));
}

TEST_F(OpenVault, ViewRecordHasTheRootWithoutABackslash) {
  const std::wstring longRoot = L"C:\\" + std::wstring(400, L'x');
  const std::wstring longRootWithEnd = longRoot + L"\\";
  const std::pair<const wchar_t*, CString> roots[] = {
      {L"C:\\view\\", L"C:\\view"},
      {L"C:\\view", L"C:\\view"},
      {L"C:\\", L"C:\\"},
      {longRootWithEnd.c_str(), longRoot},
      {nullptr, L""},
  };
  for (const auto& [root, expected] : roots) {
    script.rootPath = root;
    std::unique_ptr<VaultViewRecord> record;
    openVaultViewRecord(app, record, L"C:\\view");
    EXPECT_EQ(record->rootPath, expected);
    EXPECT_EQ(record->rootFolderId, 7);
    EXPECT_TRUE(record->client && record->query);
  }
}

TEST_F(OpenVault, ViewRecordTellsWhyThereIsNone) {
  const auto thrownValue = [this] {
    std::unique_ptr<VaultViewRecord> record;
    try {
      openVaultViewRecord(app, record, L"C:\\view");
    } catch (const ResultCode& code) {
      return code.value;
    }
    return 0L;
  };
  script.missing = __uuidof(VaultRootFolderAccess);
  EXPECT_EQ(thrownValue(), 3);
  script.failures["vaultNameFromPath"] = E_QVT_KEY_NOT_FOUND;
  EXPECT_EQ(thrownValue(), 2);
  script = ClientScript();
  script.hasRootFolder = false;
  std::unique_ptr<VaultViewRecord> record;
  EXPECT_THROW(openVaultViewRecord(app, record, L"C:\\view"), _com_error);
}
