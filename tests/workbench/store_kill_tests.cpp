// The store survives the end of its process at any moment: this program starts itself again as a
// writer, and ends that writer in the middle of its work.

#include <cstdio>
#include <sstream>

#include "core/Program.h"
#include "workbench/StoreTest.h"

namespace {

constexpr wchar_t writerSwitch[] = L"--write-into-store";

std::string contentNumber(long number) {
  return std::string(static_cast<size_t>(20000 + number % 7 * 3000),
                     static_cast<char>('a' + number % 26)) +
         std::to_string(number);
}

/// Changes a store without end, and tells each version that is on the disk.
[[noreturn]] void writeIntoStore(const fs::path& folder) {
  wb::Store store;
  store.open(folder / L"store");
  const std::wstring plan = (folder / L"Plant" / L"Plan.dwg").wstring();
  for (;;) {
    if (!store.find(plan)->holder) store.checkOut(plan);
    const long next = store.find(plan)->latest().number + 1;
    write(plan, contentNumber(next));
    store.checkIn(plan, L"", next % 2 == 0);
    std::printf("%ld\n", next);
    std::fflush(stdout);
  }
}

/// Runs before main() would run the tests.
const bool isWriter = [] {
  int count = 0;
  wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
  const bool asked = arguments && count == 3 && std::wstring(arguments[1]) == writerSwitch;
  const fs::path folder = asked ? arguments[2] : L"";
  LocalFree(arguments);
  if (asked) {
    try {
      writeIntoStore(folder);
    } catch (const std::exception& failure) {
      std::printf("failed: %s\n", failure.what());
      std::fflush(stdout);
      ExitProcess(1);
    }
  }
  return asked;
}();

class Pipe {
 public:
  Pipe() {
    SECURITY_ATTRIBUTES inherited{sizeof(inherited), nullptr, TRUE};
    EXPECT_TRUE(CreatePipe(&reading, &writing, &inherited, 0));
    EXPECT_TRUE(SetHandleInformation(reading, HANDLE_FLAG_INHERIT, 0));
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;
  ~Pipe() {
    closeWriting();
    CloseHandle(reading);
  }
  void closeWriting() {
    if (writing) CloseHandle(writing);
    writing = nullptr;
  }
  /// Waits for something to read; empty once the writers are gone.
  std::string read() {
    char buffer[512];
    DWORD size = 0;
    return ReadFile(reading, buffer, sizeof(buffer), &size, nullptr) ? std::string(buffer, size)
                                                                     : std::string();
  }

  HANDLE reading = nullptr;
  HANDLE writing = nullptr;
};

/// Starts a writer and ends it some time after its first check-in.
/// @return what it told
std::string runWriterFor(const fs::path& folder, DWORD milliseconds) {
  Pipe pipe;
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdOutput = pipe.writing;
  PROCESS_INFORMATION process{};
  const std::wstring arguments = std::wstring(writerSwitch) + L" \"" + folder.wstring() + L"\"";
  if (!wb::startProgram(wb::programFile(), arguments, startup, process)) {
    ADD_FAILURE() << "the writer doesn't start, Windows error " << GetLastError();
    return {};
  }
  pipe.closeWriting();
  std::string told = pipe.read();
  Sleep(milliseconds);
  EXPECT_TRUE(TerminateProcess(process.hProcess, 99));
  EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(process.hProcess, 10000));
  for (std::string more = pipe.read(); !more.empty(); more = pipe.read()) told += more;
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return told;
}

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
    const std::string told = runWriterFor(folder, round * 7 % 40);
    const long last = lastNumber(told);
    ASSERT_GT(last, known) << told;
    wb::Store store;
    ASSERT_NO_THROW(store.open(folder / L"store"));
    known = store.find(plan)->latest().number;
    EXPECT_GE(known, last);
    EXPECT_LE(known, last + 1);
    expectSound(store, folder, plan);
  }
}

}  // namespace
