// A host that ends without unloading the module: this program starts itself again as such a host.
#include <windows.h>

#include <objbase.h>
#include <shellapi.h>

#include "core/Program.h"
#include "shared/ModuleSession.h"
#include "watch/ImportWatch.h"

namespace {

constexpr wchar_t hostSwitch[] = L"--end-without-unloading";
constexpr UINT endedWell = 42;
constexpr UINT leftCom = 71;

void WINAPI comIsLeft() { TerminateProcess(GetCurrentProcess(), leftCom); }

class EndingHost : public ModuleSession {
 public:
  [[noreturn]] static void go() {
    auto* host = new EndingHost;
    const bool ready = host->session.run(
        "@reg set EditWarning 0\n@load\n@open %WORK%\\View\\Plan.dxf\n@open %WORK%\\small.dxf\n"
        "@activate %WORK%\\View\\Plan.dxf\n@window\n");
    wb::patchImports(GetModuleHandleW(L"TessaroAcad.arx"),
                     {{"CoUninitialize", wb::observerOf(comIsLeft, CoUninitialize)}});
    ExitProcess(ready ? endedWell : 1);
  }

  using ModuleSession::options;

 private:
  void TestBody() override {}
};

/// Runs before main() would run the tests.
const bool isHost = [] {
  if (std::wstring(GetCommandLineW()).find(hostSwitch) == std::wstring::npos) return false;
  EndingHost::go();
}();

TEST(ProcessEnd, WithTheModuleLoadedCallsNothingThatMayBeGone) {
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  PROCESS_INFORMATION process{};
  ASSERT_TRUE(wb::startProgramAgain(hostSwitch, startup, process));
  EXPECT_EQ(WaitForSingleObject(process.hProcess, 60000), DWORD{WAIT_OBJECT_0});
  DWORD code = 0;
  GetExitCodeProcess(process.hProcess, &code);
  EXPECT_EQ(code, endedWell)
      << "70: the client was called while the process ended, 71: COM was left";
  TerminateProcess(process.hProcess, 1);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  // The next host works, and takes away what the other left in the registry.
  wb::Session next(EndingHost::options());
  EXPECT_TRUE(next.run("@load\n@unload\n")) << "the next host";
}

}  // namespace
