#include <windows.h>

#include <gtest/gtest.h>
#include <objbase.h>
#include <oleauto.h>

#include <filesystem>
#include <fstream>

#include "core/SessionState.h"
#include "core/Text.h"
#include "core/Transcript.h"
#include "faults/Faults.h"

namespace {

namespace fs = std::filesystem;

std::wstring labelsSince(wb::Ticket since) {
  std::wstring labels;
  for (const wb::Outstanding& one : wb::outstanding(since)) {
    labels += one.kind + L":" + one.label + (one.kept ? L"(kept) " : L" ");
  }
  return labels;
}

struct Accounts : testing::Test {
  wb::SessionState session;
};
using Faults = Accounts;

TEST_F(Accounts, StringsAndTaskMemoryAreBackWhenTheirReceiverFreesThem) {
  const wb::Ticket since = wb::nextTicket();
  const BSTR freed = SysAllocString(L"freed");
  BSTR grown = SysAllocString(L"grown");
  const BSTR lost = SysAllocString(L"lost");
  void* array = CoTaskMemAlloc(64);
  wb::trackMemory(freed, L"string", L"freed");
  wb::trackMemory(grown, L"string", L"grown");
  wb::trackMemory(lost, L"string", L"lost");
  wb::trackMemory(array, L"memory", L"array");
  wb::trackMemory(nullptr, L"string", L"null");
  EXPECT_EQ(L"string:freed string:grown string:lost memory:array ", labelsSince(since));

  SysFreeString(freed);
  EXPECT_TRUE(SysReAllocString(&grown, std::wstring(5000, L'x').c_str()));
  SysFreeString(grown);
  CoTaskMemFree(array);
  EXPECT_EQ(L"string:lost ", labelsSince(since));

  SysFreeString(lost);
  EXPECT_EQ(L"", labelsSince(since));
}

TEST_F(Accounts, WhatIsKeptStaysOutstandingUntilItIsBack) {
  const wb::Ticket since = wb::nextTicket();
  const wb::Ticket service = wb::trackResource(L"com", L"service");
  wb::keepBeyondCommand(service);
  const wb::Ticket command = wb::nextTicket();
  wb::releaseResource(wb::trackResource(L"com", L"file"));
  EXPECT_EQ(L"com:service(kept) ", labelsSince(since));
  EXPECT_EQ(L"", labelsSince(command));
  wb::releaseResource(service);
  EXPECT_EQ(L"", labelsSince(since));
}

TEST_F(Faults, OneFaultHitsOneCallAfterThoseItLetsThrough) {
  wb::failOperation(L"VaultFile.checkOut", E_ACCESSDENIED, 1);
  EXPECT_EQ(S_OK, wb::takeFault(L"VaultFile.checkOut"));
  EXPECT_EQ(S_OK, wb::takeFault(L"VaultFileLegacy.checkOut"));
  EXPECT_EQ(E_ACCESSDENIED, wb::takeFault(L"VaultFile.checkOut"));
  EXPECT_EQ(S_OK, wb::takeFault(L"VaultFile.checkOut"));
  EXPECT_EQ(3u, wb::callCount(L"VaultFile.checkOut"));
  EXPECT_EQ(4u, wb::callCount(L"checkOut"));
}

TEST_F(Faults, AnOperationWithoutInterfaceMatchesAllAndAlwaysLastsUntilCleared) {
  wb::failOperation(L"login", E_FAIL, 0, true);
  EXPECT_EQ(E_FAIL, wb::takeFault(L"VaultClient.login"));
  EXPECT_EQ(E_FAIL, wb::takeFault(L"VaultClientLegacy.login"));
  EXPECT_EQ(S_OK, wb::takeFault(L"VaultClient.relogin"));
  wb::clearFaults();
  EXPECT_EQ(S_OK, wb::takeFault(L"VaultClient.login"));
}

TEST_F(Faults, AnotherProgramWaitsForAFileAndGivesItBack) {
  const fs::path file = fs::temp_directory_path() / L"faults.dxf";
  const fs::path away = file.wstring() + L".away";
  const auto content = [&] {
    std::string word;
    std::ifstream(file) >> word;
    return word;
  };
  const auto disturb = [&](wb::DiskFault what) {
    std::ofstream(file) << "first";
    wb::disturbFile(file, what, L"VaultFile.checkOut", 1);
    std::ofstream holder(file, std::ios::app);
    wb::takeFault(L"VaultFile.checkOut");
    wb::takeFault(L"VaultFile.checkOut");
    EXPECT_EQ("first", content());  // whoever has it open keeps it
    holder.close();
    wb::takeFault(L"VaultFile.id");
    EXPECT_EQ("", content());
  };
  disturb(wb::DiskFault::held);
  EXPECT_EQ(0u, wb::clearFaults());
  EXPECT_EQ("first", content());
  disturb(wb::DiskFault::away);
  EXPECT_EQ(0u, wb::clearFaults());
  EXPECT_EQ("first", content());
  disturb(wb::DiskFault::away);
  std::ofstream(file) << "second";
  wb::disturbFile(file, wb::DiskFault::held, L"VaultFile.never");
  EXPECT_EQ(1u, wb::clearFaults());
  EXPECT_EQ("second", content());
  EXPECT_FALSE(fs::exists(away));
  fs::remove(file);
}

struct TranscriptTest : Accounts {
  std::wstring told(const std::wstring& detail) {
    wb::report(wb::Event::file, detail);
    return transcript.lines().back();
  }
  wb::Transcript& transcript = session.transcript;
};

TEST_F(TranscriptTest, FoldersAreWrittenByTheLongestNameThatStandsThere) {
  transcript.alias(L"C:\\Work\\", L"<work>");
  transcript.alias(L"C:\\Work\\Plant", L"<view>");
  EXPECT_EQ(L"file: <view>\\A.dwg", told(L"c:/WORK/plant\\A.dwg"));
  EXPECT_EQ(L"file: <work>, <work>\\B and <view>",
            told(L"C:\\Work, c:/work\\B and C:\\Work/Plant"));
  EXPECT_EQ(L"file: C:\\Workbench and <work>\\Plant2", told(L"C:\\Workbench and C:\\Work\\Plant2"));
}

TEST_F(TranscriptTest, AnEventIsOneLineAndIsFoundSinceTheMarkOnly) {
  wb::report(wb::Event::box, L"first\r\nsecond");
  EXPECT_EQ(std::vector<std::wstring>{L"box: first\\r\\nsecond"}, transcript.lines());
  EXPECT_EQ(L"\"a\\nb \\\"c\\\" \\e\\t\\r C:\\\"", wb::quoted(L"a\nb \"c\" \x1B\t\r C:\\"));
  transcript.mark();
  EXPECT_FALSE(transcript.holdsSinceMark(L"second"));
  wb::report(wb::Event::box, L"third");
  EXPECT_TRUE(transcript.holdsSinceMark(L"box: thi"));
}

TEST_F(TranscriptTest, OnlyErrorsAndLeaksFailARun) {
  wb::report(wb::Event::box, L"error: not one");
  EXPECT_EQ(0u, transcript.problems());
  wb::report(wb::Event::leak, L"one string");
  EXPECT_EQ(1u, transcript.problems());
  transcript.clear();
  EXPECT_EQ(0u, transcript.problems());
}

TEST(Text, WideTextSurvivesUtf8AndWhatIsBrokenIsReplaced) {
  const std::wstring text = L"Grundri\u00DF \u56FE\u7EB8 \xD83D\xDCD0";
  EXPECT_EQ(text, wb::fromUtf8(wb::toUtf8(text)));
  EXPECT_EQ(std::string("a\xEF\xBF\xBD"), wb::toUtf8(std::wstring(L"a\xD83D")));
  EXPECT_EQ(L"", wb::fromUtf8(""));
}

}  // namespace
