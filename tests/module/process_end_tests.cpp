// A host that ends without unloading the module: this program starts itself again as such a host.
#include <windows.h>

#include <objbase.h>
#include <shellapi.h>

#include "core/Program.h"
#include "scripting/Programs.h"
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

 private:
  void TestBody() override {}
};

/// Runs before main() would run the tests.
const bool isHost = [] {
  if (std::wstring(GetCommandLineW()).find(hostSwitch) == std::wstring::npos) return false;
  EndingHost::go();
}();

TEST(ProcessEnd, WithTheModuleLoadedCallsNothingThatMayBeGone) {
  const wb::ChildResult host = wb::runChild(wb::programFile(), hostSwitch, 60,
                                            std::filesystem::temp_directory_path() / L"host.txt");
  EXPECT_EQ(host.code, endedWell)
      << "70: the client was called while the process ended, 71: COM was left\n"
      << host.output;
  // The next host works, and takes away what the other left in the registry.
  wb::Session next(EndingHost::options());
  EXPECT_TRUE(next.run("@load\n@unload\n")) << "the next host";
}

}  // namespace
