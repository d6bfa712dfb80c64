#include <comdef.h>

#include "BoxWatch.h"
#include "VaultFixture.h"
#include "vault/OpenVaultFile.h"
#include "vault/ResultCodes.h"

namespace {

using Calls = std::vector<std::string>;
using Texts = std::vector<std::wstring>;
using FileInVault = VaultFixture;

}  // namespace

TEST_F(FileInVault, CheckOutStates) {
  script.versions = {{1, nullptr}, {2, L"second"}, {3, L""}};
  std::vector<VersionEntry> versions;
  EXPECT_EQ(readCheckOutState(app, L"f", &versions), notCheckedOut);
  ASSERT_EQ(versions.size(), 3u);
  EXPECT_EQ(versions[1].version, 2);
  EXPECT_EQ(versions[0].comment, L"");
  EXPECT_EQ(versions[1].comment, L"second");
  script.checkedOut = true;
  EXPECT_EQ(readCheckOutState(app, L"f", nullptr), checkedOutElsewhere);
  script.heldByUs = true;
  EXPECT_EQ(readCheckOutState(app, L"f", nullptr), checkedOutHere);
  script.failures["fileFromPath"] = E_QVT_FILE_NOT_FOUND;
  EXPECT_EQ(readCheckOutState(app, L"f", &versions), notInVault);
  script.failures["fileFromPath"] = E_QVT_PERMISSION_DENIED;
  EXPECT_THROW(readCheckOutState(app, L"f", nullptr), _com_error);
  script.failures = {{"vaultNameFromPath", E_QVT_KEY_NOT_FOUND}};
  EXPECT_EQ(readCheckOutState(app, L"f", nullptr), notInVault);
  script.failures = {{"login", E_FAIL}};
  EXPECT_THROW(readCheckOutState(app, L"f", nullptr), _com_error);
  goOffline();
  EXPECT_EQ(readCheckOutState(app, L"f", nullptr), notInVault);
  EXPECT_EQ(versions.size(), 3u);
}

TEST_F(FileInVault, HeldHereMeansThisComputerAndThisFolder) {
  // The computer's name is in the registry, too.
  restoreMachine();
  const auto heldHere = [this] {
    VaultFilePtr file(new FakeFile);
    VaultFolderPtr folder(new FakeFolderObject);
    const bool held = isHeldHere(app, file, folder);
    EXPECT_FALSE(file || folder);
    EXPECT_EQ(aliveObjects(), 0);
    return held;
  };
  wchar_t computer[MAX_COMPUTERNAME_LENGTH + 1] = {};
  DWORD size = MAX_COMPUTERNAME_LENGTH + 1;
  ASSERT_TRUE(GetComputerNameW(computer, &size));
  const std::wstring longer = computer + std::wstring(20, L'X');
  script.computer = computer;
  EXPECT_FALSE(heldHere());
  script.checkedOut = true;
  EXPECT_TRUE(heldHere());
  script.checkedOutInFolder = 8;
  EXPECT_FALSE(heldHere());
  script.checkedOutInFolder = 7;
  CharLowerW(computer);
  EXPECT_TRUE(heldHere());
  script.computer = longer.c_str();
  EXPECT_FALSE(heldHere());
  script.computer = nullptr;
  EXPECT_FALSE(heldHere());

  script.failures["isCheckedOut"] = E_FAIL;
  VaultFilePtr file(new FakeFile);
  VaultFolderPtr folder(new FakeFolderObject);
  EXPECT_THROW(isHeldHere(app, file, folder), _com_error);
  EXPECT_FALSE(file || folder);
}

TEST_F(FileInVault, FileStatusAsksOnlyForWhatIsWanted) {
  EXPECT_TRUE(readFileStatus(app, L"f", FileStatus()));
  EXPECT_EQ(script.calls, (Calls{"vaultNameFromPath", "login", "fileFromPath"}));

  script = ClientScript();
  script.checkedOut = true;
  script.computer = L"ELSEWHERE";
  CString fileName, state, holder, computer, path;
  long local = 0, latest = 0;
  bool checkedOut = false, here = true;
  FileStatus wanted = {&fileName, &state,  &local,    &latest, &checkedOut,
                       &here,     &holder, &computer, &path};
  EXPECT_TRUE(readFileStatus(app, L"f", wanted));
  EXPECT_EQ(script.calls,
            (Calls{"vaultNameFromPath", "login", "fileFromPath", "file.name", "currentState",
                   "object.name", "folder.id", "localVersion", "latestVersion", "isCheckedOut",
                   "isCheckedOut", "checkedOutOnComputer", "checkedOutBy", "checkedOutBy",
                   "object.name", "checkedOutOnComputer", "checkedOutInPath"}));
  EXPECT_EQ(fileName, L"plan.dwg");
  EXPECT_EQ(state, L"somebody");
  EXPECT_EQ(local, 3);
  EXPECT_EQ(latest, 5);
  EXPECT_TRUE(checkedOut);
  EXPECT_FALSE(here);
  EXPECT_EQ(holder, L"somebody");
  EXPECT_EQ(computer, L"ELSEWHERE");
  EXPECT_EQ(path, L"C:\\there");

  script.checkedOut = false;
  script.computer = nullptr;
  EXPECT_TRUE(readFileStatus(app, L"f", wanted));
  EXPECT_EQ(holder, L"");
  EXPECT_EQ(computer, L"");
}

TEST_F(FileInVault, FileStatusTellsAFailureAndKeepsWhatItHas) {
  BoxWatch boxes;
  CString fileName = L"before", state = L"before";
  FileStatus wanted;
  wanted.fileName = &fileName;
  wanted.stateName = &state;
  script.failures["currentState"] = static_cast<HRESULT>(0x80040216);
  EXPECT_FALSE(readFileStatus(app, L"f", wanted));
  EXPECT_EQ(BoxWatch::texts, Texts{L"The workflow state could not be found."});
  EXPECT_EQ(fileName, L"plan.dwg");
  EXPECT_EQ(state, L"before");
  script.failures = {{"fileFromPath", E_ACCESSDENIED}};
  EXPECT_FALSE(readFileStatus(app, L"f", wanted));
  EXPECT_EQ(BoxWatch::texts.size(), 2u);
  script.failures = {{"fileFromPath", E_QVT_PERMISSION_DENIED}};
  EXPECT_FALSE(readFileStatus(app, L"f", wanted));
  EXPECT_EQ(BoxWatch::texts.size(), 2u);
}
