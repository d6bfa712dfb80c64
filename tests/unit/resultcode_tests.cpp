#include <gtest/gtest.h>

#include <cstdint>
#include <set>
#include <string>

#include "core/ResultCodes.h"
#include "core/Text.h"
#include "foundation/CString.h"
#include "foundation/FormatText.h"
#include "shared/Support.h"
#include "vault/ResultCodes.h"
#include "vault/ResultCodeTable.h"
#include "vault/ResultTexts.h"

namespace tessaro {

// The client isn't there in these tests: every text is the one that the module has itself.

namespace {

CString text(std::uint32_t code) { return textOf(resultCodeText(static_cast<HRESULT>(code))); }
CString name(std::uint32_t code) { return textOf(resultCodeName(static_cast<HRESULT>(code))); }
CString databaseText(std::uint32_t code) {
  return textOf(databaseErrorText(static_cast<HRESULT>(code)));
}

/// FNV-1a of one row.
std::uint32_t hashOf(std::uint32_t code, const CString& word) {
  std::uint32_t hash = 2166136261;
  for (const wchar_t letter : formatText(L"0x%08X %s", {static_cast<long>(code), word})) {
    hash = (hash ^ letter) * 16777619;
  }
  return hash;
}

}  // namespace

// The names and the numbers are the client's. Sums over all rows, compared with its list when they
// were written down: a slip in any row changes them, another order doesn't.
TEST(ResultTextTable, NamesAndNumbersAreThoseOfTheClient) {
  std::uint32_t names = 0, numbers = 0;
  for (const ResultCodeRow& row : resultCodeTable) names += hashOf(row.code, row.name);
  for (const ResultTexts* table : {&vaultTexts, &archiveTexts}) {
    for (const ResultText& row : *table) numbers += hashOf(row.code, std::to_wstring(row.number));
  }
  EXPECT_EQ(names, 0x4007FD52u);
  EXPECT_EQ(numbers, 0x9B18ED37u);
}

TEST(ResultTextTable, TheWorkbenchNamesACodeAsTheModuleDoes) {
  for (const ResultCodeRow& row : resultCodeTable) {
    const auto code = static_cast<HRESULT>(row.code);
    EXPECT_EQ(row.name, wb::resultName(code));
    const bool secondOfItsName = row.code == 0x80040221;
    EXPECT_EQ(secondOfItsName ? static_cast<HRESULT>(0x80040206) : code,
              wb::resultFromName(row.name));
  }
  EXPECT_EQ(L"0x80040292", wb::resultName(static_cast<HRESULT>(0x80040292)));
  EXPECT_EQ(static_cast<HRESULT>(0x80040292), wb::resultFromName(L"0x80040292"));
  for (const wchar_t* wrong : {L"", L"E_QVT_NONE", L"0x1FFFFFFFF", L"12 and more"}) {
    EXPECT_EQ(std::nullopt, wb::resultFromName(wrong)) << wb::toUtf8(wrong);
  }
}

TEST(ResultTextTable, TheModulesOwnEnglishIsTheClients) {
  auto english = clientTexts(projectFolder() / L"workbench/client/language-en.txt",
                             "QvtInterface;ErrorCodes;");
  EXPECT_GT(english.size(), 20u);
  for (const ResultText& row : vaultTexts) {
    std::wstring own = row.defaultText;
    for (size_t at; (at = own.find(L'\n')) != std::wstring::npos;) own.replace(at, 1, L"\\n");
    const auto text = english.find(row.number);
    if (text != english.end()) EXPECT_EQ(own, text->second) << row.number;
  }
}

TEST(ResultTextTable, EveryRowTellsSomethingAndNoCodeTwice) {
  std::set<std::uint32_t> codes;
  for (const ResultTexts* table : {&vaultTexts, &archiveTexts}) {
    for (const ResultText& row : *table) {
      EXPECT_TRUE(codes.insert(row.code).second) << std::hex << row.code;
      const CString defaultText = row.defaultText;
      ASSERT_FALSE(defaultText.empty()) << std::hex << row.code;
      EXPECT_EQ(defaultText.find(L"  "), CString::npos) << std::hex << row.code;
      EXPECT_NE(wcschr(L".?:", defaultText.back()), nullptr) << std::hex << row.code;
      EXPECT_EQ(text(row.code).rfind(defaultText, 0), 0u) << std::hex << row.code;
    }
  }
  EXPECT_EQ(codes.size(), 286u);
}

TEST(ResultCodeText, CodesWithATextMadeOtherwise) {
  EXPECT_EQ(text(0x8004027D), L"E_QVT_GET_QVTFORMATROUTER");
  EXPECT_EQ(text(0x80040220), L"The server was not found.");
  EXPECT_EQ(text(0x80040222), L"The ODBC data source was not found.");
  // Nothing of it is kept from one call to the next.
  for (int call = 0; call < 2; ++call) {
    EXPECT_EQ(text(0x800402D3),
              L"The operating system version is not supported\n"
              L"The following is the minimum requirement:\n"
              L"Windows XP Service Pack 2\n"
              L"Windows Server 2003 Service Pack 1");
  }
}

TEST(ResultCodeText, RevisionControlRange) {
  EXPECT_EQ(text(0x80040431), L"The root folder of the archive could not be created.");
  EXPECT_EQ(text(0x80040432), L"Archive server revision control error 0 (0x080040432)");
  EXPECT_EQ(text(0x800404C4), L"Archive server revision control error 146 (0x0800404C4)");
  EXPECT_EQ(text(0x800404C5), L"The archive server is not a member of a domain.");
  EXPECT_EQ(name(0x80040431), L"E_FVC_CANT_CREATE_ROOT_FOLDER");
  EXPECT_EQ(name(0x80040432), L"E_FVC_RCE_ERR_0");
  EXPECT_EQ(name(0x800404C4), L"E_FVC_RCE_ERR_146");
  EXPECT_EQ(name(0x800404C5), L"E_FVC_NOT_DOMAIN_MEMBER");
}

TEST(ResultCodeText, WinINetRange) {
  EXPECT_EQ(text(0x80072EE0), L"A WinINet error occured (code=12000).");
  EXPECT_EQ(text(0x80072EE7), L"The server name could not be resolved.");
  EXPECT_EQ(text(0x80072EFD), L"The attempt to connect to the server failed.");
  EXPECT_EQ(text(0x80072EFE), L"The connection with the server has been terminated.");
  EXPECT_EQ(text(0x80072EFF), L"The connection with the server has been reset.");
  EXPECT_EQ(text(0x80072F83), L"The Internet connection has been lost");
  EXPECT_EQ(text(0x80072F8F), L"A WinINet error occured (code=12175).");
  for (const std::uint32_t outside : {0x80072EDFu, 0x80072F90u}) {
    EXPECT_EQ(text(outside).find(L"WinINet error occured"), CString::npos);
    EXPECT_FALSE(text(outside).empty());
  }
}

TEST(ResultCodeText, OtherCodesAreInWindowsWords) {
  const CString fileNotFound = text(0x80070002);
  EXPECT_EQ(fileNotFound, _com_error(static_cast<HRESULT>(0x80070002)).ErrorMessage());
  EXPECT_EQ(fileNotFound.find_first_of(L"\r\n"), CString::npos);
  EXPECT_GT(fileNotFound.size(), 5u);
  EXPECT_EQ(fileNotFound.find(L"Unknown error"), CString::npos);
  EXPECT_EQ(text(0x80040242), L"IDispatch error #66");
  EXPECT_EQ(text(0x8004029D), L"IDispatch error #157");
  EXPECT_EQ(text(0x80047FFF), L"IDispatch error #32255");
  EXPECT_EQ(text(0xA1234567), L"Unknown error 0xA1234567");
  EXPECT_EQ(text(0x20000001), L"Unknown error 0x20000001");
  // Its message has a place for the name of a file.
  EXPECT_EQ(text(0x800700C1).find(L"Unknown error"), CString::npos);
}

TEST(ResultCodeName, NumberStandsForAMissingName) {
  EXPECT_EQ(name(0x80040206), L"E_QVT_CANT_OPEN_DATABASE");
  EXPECT_EQ(name(0x80040221), L"E_QVT_CANT_OPEN_DATABASE");
  EXPECT_EQ(name(0x80070057), L"E_INVALIDARG");
  EXPECT_EQ(name(0x8004024D), L"0x8004024D");
  EXPECT_EQ(name(2), L"0x2");
}

TEST(DescribeResultCode, FillsOnlyWhatIsWanted) {
  _bstr_t toldText, toldName;
  describeResultCode(E_QVT_FILE_NOT_FOUND, &toldText, &toldName);
  EXPECT_STREQ(toldText, L"The file could not be found.");
  EXPECT_STREQ(toldName, L"E_QVT_FILE_NOT_FOUND");
  toldText = toldName = L"before";
  describeResultCode(E_QVT_FILE_NOT_FOUND, nullptr, nullptr);
  describeResultCode(E_QVT_KEY_NOT_FOUND, nullptr, &toldName);
  EXPECT_STREQ(toldText, L"before");
  EXPECT_STREQ(toldName, L"E_QVT_KEY_NOT_FOUND");
}

TEST(DatabaseErrorText, OtherCodesAreAnAccessError) {
  EXPECT_EQ(databaseText(0x80040206), L"The database could not be opened.");
  EXPECT_EQ(databaseText(0x80040221), L"The database could not be opened.");
  EXPECT_EQ(databaseText(0x80040220), L"The server was not found.");
  EXPECT_EQ(databaseText(0x80040222), L"The ODBC data source was not found.");
  EXPECT_EQ(databaseText(0), text(0x80040207));
}

}  // namespace tessaro
