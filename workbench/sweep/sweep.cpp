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

namespace {

constexpr char usage[] =
    "sweep --drawings FOLDER [--folder WORK] [--share K/N] [--allocations K/N] [--only WORD]\n"
    "      [--from SCENARIO] [--list]\n";

constexpr HRESULT clientCodes[] = {E_FAIL, wb::E_QVT_PERMISSION_DENIED, wb::E_QVT_FILE_SHARE_ERROR,
                                   E_OUTOFMEMORY, RPC_E_DISCONNECTED};

/// Every so many-th run, from a first one on.
struct Share {
  unsigned part = 0;
  unsigned parts = 1;
  unsigned number = 0;

  bool takesNext() { return number++ % parts == part; }
};

struct Options {
  std::wstring only;  ///< a part of the scenarios' names
  std::wstring from;  ///< the scenarios before the one with this name are left out
  Share calls;        ///< of the runs in which a call of the client or the host fails
  Share allocations;  ///< of those in which the module lacks memory, a window or a menu
  bool list = false;
  std::wstring drawings;
  std::wstring folder;  ///< for the runs; empty for one of Windows' temporary folders
};

/// A client's call fails with each of the codes, a host's in its own way. What another program does
/// to the files begins at the first call of each operation.
std::vector<wb::SweptFault> faultsOf(const std::vector<wb::SweptCall>& calls) {
  std::vector<wb::SweptFault> faults;
  for (const wb::SweptCall& call : calls) {
    if (call.ofModule()) {
      faults.push_back(wb::failing(call, E_OUTOFMEMORY));
      continue;
    }
    if (call.ofHost()) {
      faults.push_back(wb::failing(call, E_FAIL));
    } else {
      for (const HRESULT code : clientCodes) faults.push_back(wb::failing(call, code));
    }
    if (call.after > 0) continue;
    for (wb::SweptFault& fault : wb::disturbing(call)) faults.push_back(std::move(fault));
  }
  return faults;
}

/// What a share has to have seen once, whatever the scenario.
std::wstring kindOf(const wb::SweptFault& fault) {
  return fault.onDisk ? wb::fromUtf8(fault.name) : fault.call.operation;
}

class Sweep {
 public:
  explicit Sweep(const Options& options)
      : options(options), snapshot(options.folder, options.drawings, wb::vaultSetUp) {}

  int run() {
    const std::string from = wb::toUtf8(options.from);
    const std::string only = wb::toUtf8(options.only);
    bool begun = from.empty();
    for (const wb::Scenario& scenario : wb::scenarios()) {
      begun = begun || scenario.name == from;
      if (begun && scenario.name.find(only) != std::string::npos) sweep(scenario);
    }
    std::printf("The files were in use throughout %u runs, so that no other program got at them.\n",
                impossible);
    std::printf("The module asked for less memory than without a fault in %u runs.\n", spared);
    std::printf("There are %zu faults in all.\n", possible);
    std::printf("sweep: %u passed, %u failed\n", runs - failed, failed);
    return failed == 0 && runs > 0 ? 0 : 1;
  }

 private:
  void sweep(const wb::Scenario& scenario) {
    announce(scenario, nullptr);
    const wb::Verdict good = wb::runScenario(snapshot, scenario, nullptr);
    report(scenario, nullptr, good);
    const auto faults = faultsOf(good.calls);
    possible += faults.size();
    for (const wb::SweptFault& fault : faults) {
      const bool ofShare =
          (fault.call.ofModule() ? options.allocations : options.calls).takesNext();
      if (!seen.insert(kindOf(fault)).second && !ofShare) continue;
      announce(scenario, &fault);
      report(scenario, &fault, wb::runScenario(snapshot, scenario, &fault));
    }
  }

  static std::string nameOf(const wb::Scenario& scenario, const wb::SweptFault* fault) {
    if (!fault) return scenario.name + ": no fault";
    return scenario.name + ": " + wb::toUtf8(fault->call.operation) + " #" +
           std::to_string(fault->call.after + 1) + " " + fault->name;
  }

  /// Should the process die, this is the last line of its output.
  void announce(const wb::Scenario& scenario, const wb::SweptFault* fault) const {
    if (!options.list) return;
    std::printf("run     %s\n", nameOf(scenario, fault).c_str());
    std::fflush(stdout);
  }

  void report(const wb::Scenario& scenario, const wb::SweptFault* fault,
              const wb::Verdict& verdict) {
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
      std::printf("        %s\n", wb::toUtf8(problem).c_str());
    }
    if (fault) std::printf("%s----\n", wb::scriptOf(scenario, *fault).c_str());
    if (!fault || options.list) {
      for (const std::wstring& line : verdict.transcript) {
        std::printf("    %s\n", wb::toUtf8(line).c_str());
      }
    }
    std::fflush(stdout);
  }

  Options options;
  const wb::Snapshot snapshot;
  unsigned runs = 0;
  unsigned failed = 0;
  unsigned impossible = 0;
  unsigned spared = 0;
  size_t possible = 0;
  std::set<std::wstring> seen;
};

/// Reads a share from "K/N".
wb::ProgramOption shareOption(const wchar_t* name, Share& share) {
  return {name, [&share](const std::wstring& text) {
            if (swscanf(text.c_str(), L"%u/%u", &share.part, &share.parts) != 2 || !share.parts) {
              throw wb::UsageError("a share is K/N");
            }
          }};
}

}  // namespace

int main() {
  Options options;
  return wb::runProgram("sweep", usage,
                        {{L"--drawings", &options.drawings},
                         {L"--folder", &options.folder},
                         shareOption(L"--share", options.calls),
                         shareOption(L"--allocations", options.allocations),
                         {L"--only", &options.only},
                         {L"--from", &options.from},
                         {L"--list", &options.list}},
                        [&] {
                          if (options.drawings.empty()) {
                            throw wb::UsageError("--drawings is needed");
                          }
                          if (options.folder.empty()) {
                            options.folder =
                                std::filesystem::temp_directory_path() / L"workbench-sweep";
                          }
                          return Sweep(options).run();
                        });
}
