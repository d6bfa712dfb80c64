// Lets every call that the module makes of the client and the host fail, one after the other, in
// everything that a user does with it, and looks at what is left behind.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <set>
#include <string>

#include "core/ResultNames.h"
#include "core/Text.h"
#include "sweep/Run.h"

namespace {

constexpr HRESULT clientCodes[] = {
    E_FAIL,
    static_cast<HRESULT>(0x80040203),  // E_QVT_PERMISSION_DENIED
    static_cast<HRESULT>(0x8004020B),  // E_QVT_FILE_SHARE_ERROR
    E_OUTOFMEMORY,
    static_cast<HRESULT>(0x80010108),  // RPC_E_DISCONNECTED
};
constexpr HRESULT hostCodes[] = {E_FAIL};

struct Wishes {
  std::string only;    // a part of the scenarios' names
  unsigned share = 0;  // of `shares`, each run belongs to one
  unsigned shares = 1;
  bool list = false;
  std::filesystem::path drawings;
  std::filesystem::path folder = std::filesystem::temp_directory_path() / L"workbench-sweep";
};

class Sweep {
 public:
  explicit Sweep(const Wishes& wishes)
      : wishes(wishes), yard(wishes.folder, wishes.drawings, wb::yardSetUp) {}

  int run() {
    for (const wb::Scenario& scenario : wb::scenarios()) {
      if (std::string(scenario.name).find(wishes.only) != std::string::npos) sweep(scenario);
    }
    std::printf("sweep: %u passed, %u failed\n", runs - failed, failed);
    return failed == 0 && runs > 0 ? 0 : 1;
  }

 private:
  void sweep(const wb::Scenario& scenario) {
    announce(scenario, nullptr, S_OK);
    const wb::Verdict good = wb::runScenario(yard, scenario, nullptr, S_OK);
    report(scenario, nullptr, S_OK, good);
    unsigned number = 0;
    for (const wb::SweptCall& call : good.calls) {
      const bool ofHost = call.ofHost();
      const HRESULT* const codes = ofHost ? hostCodes : clientCodes;
      const size_t count = ofHost ? std::size(hostCodes) : std::size(clientCodes);
      for (size_t index = 0; index < count; ++index, ++number) {
        // A share has a run of each scenario and of each operation, and another part of the codes
        // in each scenario.
        const bool first = number == skew % count || seen.insert(call.operation).second;
        if (!first && (number + skew) % wishes.shares != wishes.share) continue;
        announce(scenario, &call, codes[index]);
        report(scenario, &call, codes[index], wb::runScenario(yard, scenario, &call, codes[index]));
      }
    }
    skew += 7;
  }

  static std::string nameOf(const wb::Scenario& scenario, const wb::SweptCall* call, HRESULT code) {
    const std::string name = scenario.name;
    if (!call) return name + ": no fault";
    return name + ": " + wb::toUtf8(call->operation) + " #" + std::to_string(call->after + 1) +
           " " + wb::toUtf8(wb::resultName(code));
  }

  /// Should the process die, this is the last that it said.
  void announce(const wb::Scenario& scenario, const wb::SweptCall* call, HRESULT code) const {
    if (!wishes.list) return;
    std::printf("run     %s\n", nameOf(scenario, call, code).c_str());
    std::fflush(stdout);
  }

  void report(const wb::Scenario& scenario, const wb::SweptCall* call, HRESULT code,
              const wb::Verdict& verdict) {
    ++runs;
    const std::string what = nameOf(scenario, call, code);
    if (verdict.problems.empty()) {
      if (wishes.list) std::printf("ok      %s\n", what.c_str());
      return;
    }
    ++failed;
    std::printf("FAILED  %s\n", what.c_str());
    for (const std::wstring& problem : verdict.problems) {
      std::printf("        %s\n", wb::toUtf8(problem).c_str());
    }
    if (call) std::printf("%s----\n", wb::scriptOf(scenario, *call, code).c_str());
    if (!call || wishes.list) {
      for (const std::wstring& line : verdict.transcript) {
        std::printf("    %s\n", wb::toUtf8(line).c_str());
      }
    }
    std::fflush(stdout);
  }

  const Wishes wishes;
  const wb::Yard yard;
  unsigned runs = 0;
  unsigned failed = 0;
  unsigned skew = 0;
  std::set<std::wstring> seen;
};

bool understand(int count, wchar_t** words, Wishes& wishes) {
  for (int index = 1; index < count; ++index) {
    const std::wstring word = words[index];
    if (word == L"--list") {
      wishes.list = true;
    } else if (index + 1 == count) {
      return false;
    } else if (word == L"--only") {
      wishes.only = wb::toUtf8(words[++index]);
    } else if (word == L"--drawings") {
      wishes.drawings = words[++index];
    } else if (word == L"--folder") {
      wishes.folder = words[++index];
    } else if (word == L"--share") {
      if (swscanf(words[++index], L"%u/%u", &wishes.share, &wishes.shares) != 2) return false;
    } else {
      return false;
    }
  }
  return !wishes.drawings.empty() && wishes.shares > 0;
}

}  // namespace

int wmain(int count, wchar_t** words) {
  Wishes wishes;
  if (!understand(count, words, wishes)) {
    std::fputs("sweep --drawings FOLDER [--folder WORK] [--share K/N] [--only WORD] [--list]\n",
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
