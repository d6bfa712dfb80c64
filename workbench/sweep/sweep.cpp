// Lets every call that the module makes of the client and the host fail, and everything that it
// asks Windows for be refused, one after the other, in all that a user does with it, and looks at
// what is left behind.
#include <windows.h>

#include <shellapi.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <set>
#include <string>
#include <vector>

#include "core/ResultCodes.h"
#include "core/Text.h"
#include "sweep/Run.h"

namespace {

constexpr HRESULT clientCodes[] = {E_FAIL, wb::E_QVT_PERMISSION_DENIED, wb::E_QVT_FILE_SHARE_ERROR,
                                   E_OUTOFMEMORY, RPC_E_DISCONNECTED};

/// Every so many-th run, from a first one on.
struct Share {
  unsigned part = 0;
  unsigned parts = 1;
  unsigned number = 0;

  bool takesNext() { return number++ % parts == part; }
};

struct Wishes {
  std::string only;   // a part of the scenarios' names
  std::string from;   // the scenarios ahead of the one with this name are left out
  Share calls;        // of the runs in which a call of the client or the host fails
  Share allocations;  // of those in which the module lacks memory, a window or a menu
  bool list = false;
  std::filesystem::path drawings;
  std::filesystem::path folder = std::filesystem::temp_directory_path() / L"workbench-sweep";
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
  explicit Sweep(const Wishes& wishes)
      : wishes(wishes),
        calls(wishes.calls),
        allocations(wishes.allocations),
        yard(wishes.folder, wishes.drawings, wb::yardSetUp) {}

  int run() {
    bool begun = wishes.from.empty();
    for (const wb::Scenario& scenario : wb::scenarios()) {
      begun = begun || scenario.name == wishes.from;
      if (!begun) continue;
      if (scenario.name.find(wishes.only) != std::string::npos) sweep(scenario);
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
    const wb::Verdict good = wb::runScenario(yard, scenario, nullptr);
    report(scenario, nullptr, good);
    const auto faults = faultsOf(good.calls);
    possible += faults.size();
    for (const wb::SweptFault& fault : faults) {
      const bool ofShare = (fault.call.ofModule() ? allocations : calls).takesNext();
      if (!seen.insert(kindOf(fault)).second && !ofShare) continue;
      announce(scenario, &fault);
      report(scenario, &fault, wb::runScenario(yard, scenario, &fault));
    }
  }

  static std::string nameOf(const wb::Scenario& scenario, const wb::SweptFault* fault) {
    if (!fault) return scenario.name + ": no fault";
    return scenario.name + ": " + wb::toUtf8(fault->call.operation) + " #" +
           std::to_string(fault->call.after + 1) + " " + fault->name;
  }

  /// Should the process die, this is the last that it said.
  void announce(const wb::Scenario& scenario, const wb::SweptFault* fault) const {
    if (!wishes.list) return;
    std::printf("run     %s\n", nameOf(scenario, fault).c_str());
    std::fflush(stdout);
  }

  void report(const wb::Scenario& scenario, const wb::SweptFault* fault,
              const wb::Verdict& verdict) {
    if (fault && !verdict.faultCame) ++(fault->onDisk ? impossible : spared);
    ++runs;
    const std::string what = nameOf(scenario, fault);
    if (verdict.problems.empty()) {
      if (wishes.list) {
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
    if (!fault || wishes.list) {
      for (const std::wstring& line : verdict.transcript) {
        std::printf("    %s\n", wb::toUtf8(line).c_str());
      }
    }
    std::fflush(stdout);
  }

  const Wishes wishes;
  Share calls;
  Share allocations;
  const wb::Yard yard;
  unsigned runs = 0;
  unsigned failed = 0;
  unsigned impossible = 0;
  unsigned spared = 0;
  size_t possible = 0;
  std::set<std::wstring> seen;
};

bool understandShare(const wchar_t* word, Share& share) {
  return swscanf(word, L"%u/%u", &share.part, &share.parts) == 2 && share.parts > 0;
}

bool understand(int count, wchar_t** words, Wishes& wishes) {
  for (int index = 1; index < count; ++index) {
    const std::wstring word = words[index];
    if (word == L"--list") {
      wishes.list = true;
      continue;
    }
    if (index + 1 == count) return false;
    if (word == L"--only") {
      wishes.only = wb::toUtf8(words[++index]);
    } else if (word == L"--from") {
      wishes.from = wb::toUtf8(words[++index]);
    } else if (word == L"--drawings") {
      wishes.drawings = words[++index];
    } else if (word == L"--folder") {
      wishes.folder = words[++index];
    } else if (word == L"--share") {
      if (!understandShare(words[++index], wishes.calls)) return false;
    } else if (word == L"--allocations") {
      if (!understandShare(words[++index], wishes.allocations)) return false;
    } else {
      return false;
    }
  }
  return !wishes.drawings.empty();
}

}  // namespace

int main() {
  int count = 0;
  wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
  Wishes wishes;
  if (!understand(count, words, wishes)) {
    std::fputs(
        "sweep --drawings FOLDER [--folder WORK] [--share K/N] [--allocations K/N] [--only WORD]\n"
        "      [--from SCENARIO] [--list]\n",
        stderr);
    return 2;
  }
  try {
    return Sweep(wishes).run();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 2;
  }
}
