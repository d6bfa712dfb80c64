#include <gtest/gtest.h>

#include <comdef.h>

#include "foundation/CString.h"
#include "unit/FakeClient.h"
#include "vault/MessageStrings.h"

namespace tessaro {

namespace {

class Messages : public testing::Test {
 protected:
  void SetUp() override {
    CoInitialize(nullptr);
    releaseTextService();
    FakeTexts::reset();
  }
  void TearDown() override {
    releaseTextService();
    EXPECT_EQ(FakeTexts::alive, 0);
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

}  // namespace tessaro
