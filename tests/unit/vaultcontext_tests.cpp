#include <comdef.h>

#include <acdocman.h>

#include "BoxWatch.h"
#include "VaultFixture.h"
#include "host/Host.h"
#include "vault/OpenVaultFile.h"
#include "vault/ResultCodes.h"

namespace {

using Calls = std::vector<std::string>;
using Texts = std::vector<std::wstring>;

const wchar_t notInVaultYet[] =
    L"You have to save your drawing into a Tessaro file vault before you can use this command.";

/// A started host with a new drawing in it.
class VaultContext : public VaultFixture {
 protected:
  void SetUp() override {
    VaultFixture::SetUp();
    ASSERT_TRUE(wb::Host::instance().start());
    ASSERT_TRUE(wb::Host::instance().newDrawing());
  }

  void TearDown() override {
    wb::Host::instance().stop();
    VaultFixture::TearDown();
  }

  struct Outcome {
    HRESULT result;
    Texts boxes;
  };

  Outcome open(long major = 5, long minor = 0) {
    const BoxWatch boxes;
    DrawingVaultContext context;
    const HRESULT result = OpenVaultContext(app, context, major, minor);
    EXPECT_EQ(SUCCEEDED(result), context.client && context.file && context.folder);
    EXPECT_EQ(context.path, acDocManagerPtr()->document(context.database)->fileName());
    return {result, BoxWatch::texts};
  }

  /// The outcome when an operation fails.
  Outcome openWith(const char* operation, HRESULT failure) {
    script.failures = {{operation, failure}};
    return open();
  }
};

}  // namespace

TEST_F(VaultContext, OpensTheCurrentDrawing) {
  const Outcome outcome = open();
  EXPECT_EQ(outcome.result, S_OK);
  EXPECT_TRUE(outcome.boxes.empty());
  EXPECT_EQ(script.calls, (Calls{"clientVersion", "vaultNameFromPath", "login", "fileFromPath"}));
}

TEST_F(VaultContext, NeedsADrawing) {
  wb::Host::instance().close();
  const BoxWatch boxes;
  DrawingVaultContext context;
  EXPECT_EQ(OpenVaultContext(app, context, 5, 0), E_FAIL);
  EXPECT_EQ(BoxWatch::texts, Texts{L"This command is only available if you have a drawing open."});
  EXPECT_TRUE(script.calls.empty());
}

TEST_F(VaultContext, NeedsAClientThatIsNewEnough) {
  EXPECT_EQ(open(5, 3).result, S_OK);
  EXPECT_EQ(open(4, 9).result, S_OK);
  const Outcome old = open(5, 4);
  EXPECT_EQ(old.result, E_QVT_VERSION_MISMATCH);
  EXPECT_EQ(old.boxes, Texts{L"You must have at least Tessaro version 5.4 to run this command.\n"
                             L"Your current version is 5.3."});
  EXPECT_EQ(open(6, 0).result, E_QVT_VERSION_MISMATCH);
  script.major = -1;
  EXPECT_EQ(open(5, 0).result, E_QVT_VERSION_MISMATCH);
  script.calls.clear();
  EXPECT_EQ(open(0, 9).result, S_OK);
  EXPECT_EQ(script.calls.front(), "vaultNameFromPath");
}

TEST_F(VaultContext, TellsWhatIsMissing) {
  const Outcome noVault = openWith("vaultNameFromPath", E_QVT_KEY_NOT_FOUND);
  EXPECT_EQ(noVault.result, E_QVT_KEY_NOT_FOUND);
  EXPECT_EQ(noVault.boxes, Texts{notInVaultYet});
  const Outcome noFile = openWith("fileFromPath", E_QVT_FILE_NOT_FOUND);
  EXPECT_EQ(noFile.result, E_QVT_FILE_NOT_FOUND);
  EXPECT_EQ(noFile.boxes, Texts{notInVaultYet});
  script.missing = __uuidof(VaultClientLegacy);
  const Outcome noClient = open();
  EXPECT_EQ(noClient.result, E_NOINTERFACE);
  EXPECT_EQ(noClient.boxes.size(), 1u);
}

TEST_F(VaultContext, ReportsOtherFailures) {
  for (const char* operation : {"clientVersion", "vaultNameFromPath", "login", "fileFromPath"}) {
    const Outcome outcome = openWith(operation, E_QVT_PERMISSION_DENIED);
    EXPECT_EQ(outcome.result, E_QVT_PERMISSION_DENIED) << operation;
    EXPECT_EQ(outcome.boxes, Texts{L"Could not update the drawing border.\nThe client's words."});
  }
}

TEST_F(VaultContext, OfflineVaultStopsItWithoutAWord) {
  goOffline();
  const Outcome outcome = open();
  EXPECT_EQ(outcome.result, E_QVT_NOT_LOGGED_IN);
  EXPECT_TRUE(outcome.boxes.empty());
}
