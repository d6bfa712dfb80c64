// Lets every call that the module makes of the client and the host fail, and everything that it
// asks Windows for be refused, one after the other, in all that a user does with it, and looks at
// what is left behind.
#include <windows.h>

#include <cstdio>
#include <cwchar>
#include <set>
#include <string>
#include <vector>

#include "core/ResultCodes.h"
#include "core/Text.h"
#include "scripting/Programs.h"
#include "sweep/Run.h"

namespace wb {
namespace {

constexpr char usage[] =
    "sweep --drawings FOLDER [--folder WORK] [--share K/N] [--allocations K/N] [--only WORD]\n"
    "      [--list]\n";

constexpr HRESULT clientCodes[] = {E_FAIL, E_QVT_PERMISSION_DENIED, E_QVT_FILE_SHARE_ERROR,
                                   E_OUTOFMEMORY, RPC_E_DISCONNECTED};

/// Every so many-th run, from a first one on.
class Share {
 public:
  /// @param text "K/N"; empty for all of them
  explicit Share(const std::wstring& text) {
    if (text.empty()) return;
    if (swscanf(text.c_str(), L"%u/%u", &part, &parts) != 2 || !parts) {
      throw UsageError("a share is K/N");
    }
  }
  bool takesNext() { return number++ % parts == part; }

 private:
  unsigned part = 0;
  unsigned parts = 1;
  unsigned number = 0;
};

struct Options {
  std::wstring only;  ///< a part of the scenarios' names
  /// The share "K/N" of the runs in which a call of the client or the host fails, and of those in
  /// which the module lacks memory, a window or a menu.
  std::wstring calls, allocations;
  bool list = false;
  std::wstring drawings;
  std::wstring folder;  ///< for the runs; empty for one of Windows' temporary folders
};

/// A client's call fails with each of the codes, a host's in its own way. What another program does
/// to the files begins at the first call of each operation.
std::vector<SweptFault> faultsOf(const std::vector<SweptCall>& calls) {
  std::vector<SweptFault> faults;
  for (const SweptCall& call : calls) {
    if (call.ofModule()) {
      faults.push_back(failing(call, E_OUTOFMEMORY));
      continue;
    }
    if (call.ofHost()) {
      faults.push_back(failing(call, E_FAIL));
    } else {
      for (const HRESULT code : clientCodes) faults.push_back(failing(call, code));
    }
    if (call.after > 0) continue;
    for (SweptFault& fault : disturbing(call)) faults.push_back(std::move(fault));
  }
  return faults;
}

/// What a share has to have seen once, whatever the scenario.
std::wstring kindOf(const SweptFault& fault) {
  return fault.onDisk ? fromUtf8(fault.name) : fault.call.operation;
}

class Sweep {
 public:
  explicit Sweep(const Options& options)
      : options(options),
        calls(options.calls),
        allocations(options.allocations),
        snapshot(options.folder, options.drawings, vaultSetUp) {}

  int run() {
    const std::string only = toUtf8(options.only);
    for (const Scenario& scenario : scenarios()) {
      if (scenario.name.find(only) != std::string::npos) sweep(scenario);
    }
    std::printf("The files were in use throughout %u runs, so that no other program got at them.\n",
                impossible);
    std::printf("The module asked for less memory than without a fault in %u runs.\n", spared);
    std::printf("There are %zu faults in all.\n", possible);
    std::printf("sweep: %u passed, %u failed\n", runs - failed, failed);
    return failed == 0 && runs > 0 ? 0 : 1;
  }

 private:
  void sweep(const Scenario& scenario) {
    announce(scenario, nullptr);
    const Verdict good = runScenario(snapshot, scenario, nullptr);
    report(scenario, nullptr, good);
    const auto faults = faultsOf(good.calls);
    possible += faults.size();
    for (const SweptFault& fault : faults) {
      const bool ofShare = (fault.call.ofModule() ? allocations : calls).takesNext();
      if (!seen.insert(kindOf(fault)).second && !ofShare) continue;
      announce(scenario, &fault);
      report(scenario, &fault, runScenario(snapshot, scenario, &fault));
    }
  }

  static std::string nameOf(const Scenario& scenario, const SweptFault* fault) {
    if (!fault) return scenario.name + ": no fault";
    return scenario.name + ": " + toUtf8(fault->call.operation) + " #" +
           std::to_string(fault->call.after + 1) + " " + fault->name;
  }

  /// Should the process die, this is the last line of its output.
  void announce(const Scenario& scenario, const SweptFault* fault) const {
    if (!options.list) return;
    std::printf("run     %s\n", nameOf(scenario, fault).c_str());
  }

  void report(const Scenario& scenario, const SweptFault* fault, const Verdict& verdict) {
    if (fault && !verdict.faultOccurred) ++(fault->onDisk ? impossible : spared);
    ++runs;
    const std::string what = nameOf(scenario, fault);
    if (verdict.problems.empty()) {
      if (options.list) {
        std::printf("ok      %s%s\n", what.c_str(), verdict.escaped ? ": escapes" : "");
      }
      return;
    }
    ++failed;
    std::printf("FAILED  %s\n", what.c_str());
    for (const std::wstring& problem : verdict.problems) {
      std::printf("        %s\n", toUtf8(problem).c_str());
    }
    if (fault) std::printf("%s----\n", scriptOf(scenario, *fault).c_str());
    if (!fault || options.list) {
      for (const std::wstring& line : verdict.transcript) {
        std::printf("    %s\n", toUtf8(line).c_str());
      }
    }
  }

  const Options options;
  Share calls;
  Share allocations;
  const Snapshot snapshot;
  unsigned runs = 0;
  unsigned failed = 0;
  unsigned impossible = 0;
  unsigned spared = 0;
  size_t possible = 0;
  std::set<std::wstring> seen;
};

}  // namespace
}  // namespace wb

int main() {
  using namespace wb;
  Options options;
  return runProgram("sweep", usage,
                    {{L"--drawings", &options.drawings},
                     {L"--folder", &options.folder},
                     {L"--share", &options.calls},
                     {L"--allocations", &options.allocations},
                     {L"--only", &options.only},
                     {L"--list", &options.list}},
                    [&] {
                      if (options.drawings.empty()) {
                        throw UsageError("--drawings is needed");
                      }
                      if (options.folder.empty()) {
                        options.folder =
                            std::filesystem::temp_directory_path() / L"workbench-sweep";
                      }
                      return Sweep(options).run();
                    });
}
