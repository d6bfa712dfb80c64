#include <gtest/gtest.h>

#include <comdef.h>

#include "foundation/AppContext.h"
#include "foundation/CString.h"
#include "unit/BoxWatch.h"
#include "unit/FakeClient.h"
#include "vault/ErrorReport.h"
#include "vault/MessageStrings.h"
#include "vault/ResultCodes.h"

namespace tessaro {

namespace {

using Texts = std::vector<std::wstring>;

class Messages : public testing::Test {
 protected:
  void SetUp() override {
    CoInitialize(nullptr);
    releaseTextService();
    FakeMain::reset();
    FakeTexts::reset();
  }
  void TearDown() override {
    releaseTextService();
    EXPECT_EQ(FakeTexts::alive, 0);
    EXPECT_EQ(FakeMain::alive, 0);
    CoUninitialize();
  }
};

CString message() { return textOf(loadMessage({7, "default"})); }
CString sectionText() { return textOf(lookupSectionText(8, L"default", L"section", L"key")); }

}  // namespace

TEST_F(Messages, DefaultsAreWidenedWhileThereIsNoServiceAndEachTextTriesAgain) {
  EXPECT_EQ(message(), L"default");
  EXPECT_EQ(sectionText(), L"default");
  const FakeClass<FakeTexts> texts(__uuidof(TextService));
  EXPECT_EQ(message(), L"text 7");
}

TEST_F(Messages, ServiceIsMadeOnceOpenedForTheModuleAndKept) {
  const FakeClass<FakeTexts> texts(__uuidof(TextService));
  EXPECT_EQ(message(), L"text 7");
  EXPECT_EQ(message(), L"text 7");
  EXPECT_EQ(FakeTexts::made, 1);
  wchar_t path[MAX_PATH] = {};
  GetModuleFileNameW(nullptr, path, MAX_PATH);
  const std::wstring file = wcsrchr(path, L'\\') + 1;
  EXPECT_EQ(FakeTexts::opened, L"Halvern Vault Manager;" + file.substr(0, file.rfind(L'.')));
  EXPECT_EQ(openTextService(nullptr, L"other", L"product"), E_FAIL);
  releaseTextService();
  EXPECT_EQ(FakeTexts::alive, 0);
  EXPECT_EQ(openTextService(nullptr, L"other", L"product"), S_OK);
  EXPECT_EQ(FakeTexts::opened, L"product;other");
}

TEST_F(Messages, ServiceThatDoesNotOpenIsKeptForTheNextText) {
  const FakeClass<FakeTexts> texts(__uuidof(TextService));
  FakeTexts::openResult = E_ACCESSDENIED;
  EXPECT_EQ(message(), L"default");
  EXPECT_EQ(message(), L"text 7");
  EXPECT_EQ(FakeTexts::made, 1);
}

TEST_F(Messages, EmptyTextIsATextAndAFailureIsNone) {
  const FakeClass<FakeTexts> texts(__uuidof(TextService));
  FakeTexts::answer = nullptr;
  // The host's prompts take no null pointer.
  EXPECT_STREQ(loadMessage({7, "default"}), L"");
  FakeTexts::textResult = E_FAIL;
  EXPECT_EQ(message(), L"default");
}

TEST_F(Messages, SectionTextsHaveAServiceOfTheirOwn) {
  const FakeClass<FakeTexts> texts(__uuidof(TextService));
  EXPECT_EQ(sectionText(), L"key");
  EXPECT_EQ(FakeTexts::opened, L"Halvern Vault Manager;section");
  EXPECT_EQ(FakeTexts::alive, 0);
  FakeTexts::answer = L"";
  EXPECT_EQ(sectionText(), L"");
  FakeTexts::textResult = E_FAIL;
  EXPECT_EQ(sectionText(), L"");
  FakeTexts::answer = nullptr;
  EXPECT_EQ(sectionText(), L"default");
  FakeTexts::answer = L"text";
  FakeTexts::openResult = S_FALSE;
  EXPECT_EQ(sectionText(), L"default");
  EXPECT_EQ(FakeTexts::made, 5);
  EXPECT_EQ(FakeTexts::alive, 0);
}

TEST_F(Messages, ReportHasTheContextAndTheClientsWords) {
  BoxWatch boxes;
  AppContext app;
  const VaultClientPtr client(static_cast<VaultClient*>(new FakeMain));
  const VaultClientLegacyPtr older = client;
  const _com_error refused(E_QVT_PERMISSION_DENIED);
  EXPECT_EQ(reportComErrorClient(app, client, refused, L"Context."), E_QVT_PERMISSION_DENIED);
  EXPECT_EQ(reportComError(app, older, refused, L"Context."), E_QVT_PERMISSION_DENIED);
  reportComErrorClient(app, client, refused, nullptr);
  EXPECT_EQ(BoxWatch::texts, (Texts{L"Context.\nThe client's words.",
                                    L"Context.\nThe client's words.", L"\nThe client's words."}));
}

TEST_F(Messages, ReportFallsBackToWindowsWords) {
  BoxWatch boxes;
  AppContext app;
  const VaultClientPtr client(static_cast<VaultClient*>(new FakeMain));
  const _com_error error(E_ACCESSDENIED);
  const std::wstring expected = L"Context.\n" + textOf(systemMessage(E_ACCESSDENIED));
  reportComErrorClient(app, VaultClientPtr(), error, L"Context.");
  FakeMain::words = L"";
  reportComErrorClient(app, client, error, L"Context.");
  FakeMain::words = nullptr;
  reportComErrorClient(app, client, error, L"Context.");
  FakeMain::words = L"words";
  FakeMain::result = E_FAIL;
  reportComErrorClient(app, client, error, L"Context.");
  EXPECT_EQ(BoxWatch::texts, Texts(4, expected));
}

TEST_F(Messages, ReportOfAnOpenFileAdvisesAndDoesNotAsk) {
  BoxWatch boxes;
  AppContext app;
  const VaultClientPtr client(static_cast<VaultClient*>(new FakeMain));
  reportComErrorClient(app, client, _com_error(E_QVT_RCE_ERROR), L"Context.");
  reportComErrorClient(app, VaultClientPtr(), _com_error(E_QVT_FILE_SHARE_ERROR), L"Context.");
  EXPECT_EQ(BoxWatch::texts,
            Texts(2,
                  L"Context.\nMake sure the file or any of it's external references isn't opened "
                  L"in another window."));
  EXPECT_EQ(FakeMain::asked, 0);
}

}  // namespace tessaro
