// The store survives the end of its process at any moment: this program starts itself again as a
// writer, which ends in the middle of its work.

#include <cstdio>
#include <sstream>
#include <thread>

#include "core/Program.h"
#include "scripting/Programs.h"
#include "workbench/StoreTest.h"

namespace {

constexpr wchar_t writerSwitch[] = L"--write-into-store";
constexpr UINT endedWhileWriting = 99;

fs::path storeFolder() { return fs::temp_directory_path() / L"workbench-tests" / L"store-kill"; }

std::string contentNumber(long number) {
  return std::string(static_cast<size_t>(20000 + number % 7 * 3000),
                     static_cast<char>('a' + number % 26)) +
         std::to_string(number);
}

/// Changes a store without end, and tells each version that is on the disk.
/// @param milliseconds after the first check-in the process ends
void writeIntoStore(unsigned milliseconds) {
  wb::Store store;
  store.open(storeFolder() / L"store");
  const std::wstring plan = (storeFolder() / L"Plant" / L"Plan.dwg").wstring();
  for (bool first = true;; first = false) {
    if (!store.find(plan)->holder) store.checkOut(plan);
    const long next = store.find(plan)->latest().number + 1;
    write(plan, contentNumber(next));
    store.checkIn(plan, L"", next % 2 == 0);
    std::printf("%ld\n", next);
    std::fflush(stdout);
    if (!first) continue;
    std::thread([milliseconds] {
      Sleep(milliseconds);
      TerminateProcess(GetCurrentProcess(), endedWhileWriting);
    }).detach();
  }
}

/// Runs before main() would run the tests.
const bool isWriter = [] {
  const std::wstring line = GetCommandLineW();
  const size_t at = line.find(writerSwitch);
  if (at == std::wstring::npos) return false;
  try {
    writeIntoStore(std::stoul(line.substr(at + std::size(writerSwitch))));
  } catch (const std::exception& failure) {
    std::printf("failed: %s\n", failure.what());
    std::fflush(stdout);
  }
  ExitProcess(1);
}();

long lastNumber(const std::string& told) {
  std::istringstream lines(told);
  long last = 0;
  for (long number; lines >> number;) last = number;
  return last;
}

void expectSound(wb::Store& store, const fs::path& folder, const std::wstring& plan) {
  const wb::StoredFile& file = *store.find(plan);
  const fs::path archive = folder / L"store" / L"archive";
  EXPECT_EQ(file.versions.size(), namesIn(archive).size());
  for (const wb::StoredVersion& version : file.versions) {
    EXPECT_EQ(contentNumber(version.number), bytesOf(archive / version.archive));
  }
  EXPECT_EQ((std::set<std::wstring>{L"archive", L"store.json", L"store.lock"}),
            namesIn(folder / L"store"));
  EXPECT_EQ((std::set<std::wstring>{L"Plan.dwg", L"desktop.ini"}), namesIn(folder / L"Plant"));
}

TEST(StoreKill, AnEndedWriterLosesNothingThatItTold) {
  const fs::path folder = emptyTestFolder(L"store-kill");
  const std::wstring plan = (folder / L"Plant" / L"Plan.dwg").wstring();
  {
    wb::Store store;
    write(folder / L"source.dwg", contentNumber(1));
    store.open(folder / L"store");
    store.createVault(L"Plant", (folder / L"Plant").wstring());
    store.add(plan, folder / L"source.dwg", L"anna", L"");
  }
  long known = 1;
  for (DWORD round = 0; round < 12; ++round) {
    const wb::ChildResult writer =
        wb::runChild(wb::programFile(), writerSwitch + (L" " + std::to_wstring(round * 7 % 40)), 60,
                     folder / L"told.txt");
    EXPECT_EQ(writer.code, endedWhileWriting);
    const long last = lastNumber(writer.output);
    ASSERT_GT(last, known) << writer.output;
    wb::Store store;
    ASSERT_NO_THROW(store.open(folder / L"store"));
    known = store.find(plan)->latest().number;
    EXPECT_GE(known, last);
    EXPECT_LE(known, last + 1);
    expectSound(store, folder, plan);
  }
}

}  // namespace
