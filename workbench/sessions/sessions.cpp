#include <windows.h>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <numeric>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "core/Lists.h"
#include "core/Program.h"
#include "scripting/Directives.h"
#include "scripting/Programs.h"
#include "sessions/RandomSession.h"
#include "trials/VaultCheck.h"
#include "watch/ImportWatch.h"

namespace wb {
namespace {

constexpr char usage[] =
    "sessions --drawings FOLDER [--sessions N] [--seed S] [--steps K]\n"
    "\n"
    "Runs N random user sessions of K steps each (10, 60), from the seed S on (1), in the real\n"
    "module. The shortest script found that fails is printed for each that failed. Ends with 0 if\n"
    "none failed, 1 if some did, 2 for a wrong command line.\n";

// What one session leaves in Windows, such as the allocator's watch, must not be another's fault.
constexpr unsigned batch = 10;
constexpr unsigned secondsASession = 90;

constexpr unsigned trialSeconds = 90;
constexpr unsigned mostTrials = 200;
constexpr std::chrono::seconds mostTime(150);

// A step takes a second at most; a hang is run into many times.
constexpr unsigned trialStepSeconds = 8;
constexpr unsigned long judged = 1;

struct Options {
  unsigned sessions = 10;
  unsigned seed = 1;
  unsigned steps = 60;
  unsigned patience = 30;
  bool isChild = false;
  std::wstring kept;  ///< the numbers of the steps that a trial runs, with commas between them
  std::wstring drawings;
};

std::vector<Step> keptSteps(const Options& options) {
  const std::vector<Step> all = makeSteps(options.seed, options.steps);
  std::vector<Step> kept;
  std::wistringstream numbers(options.kept);
  for (std::wstring number; std::getline(numbers, number, L',');) {
    kept.push_back(all.at(numberFrom(number)));
  }
  return kept;
}

/// Runs a session and prints its result.
/// @return whether it passed
bool passes(unsigned seed, const std::vector<Step>& steps, unsigned patience) {
  try {
    runSession(steps, patience);
    std::printf("passed %u\n", seed);
    return true;
  } catch (const CheckFailure& failure) {
    std::printf("failed %u\n%s\n", seed, failure.what());
    return false;
  }
}

/// Runs sessions in this process; after a failed one it isn't used for another.
bool runBatch(const Options& options) {
  if (!heapsAreWatched()) throw std::runtime_error("the heaps aren't watched");
  if (!options.kept.empty()) return passes(options.seed, keptSteps(options), options.patience);
  for (unsigned seed = options.seed; seed < options.seed + options.sessions; ++seed) {
    if (!passes(seed, makeSteps(seed, options.steps), options.patience)) return false;
  }
  return true;
}

/// Has Windows watch the heaps of every process of this program that starts from here on: what is
/// written beyond a block or after it was freed is found by HeapValidate.
void watchHeaps() {
  const std::wstring key =
      LR"(Software\Microsoft\Windows NT\CurrentVersion\Image File Execution Options\)" +
      programFile().filename().wstring();
  const LSTATUS status = RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), L"GlobalFlag", REG_DWORD,
                                         &heapCheckFlags, sizeof heapCheckFlags);
  if (status != ERROR_SUCCESS) throw std::runtime_error("the heaps' flags can't be set");
}

/// Runs this program again.
ChildResult runAgain(const std::wstring& arguments, unsigned seconds) {
  return runChild(programFile(), arguments, seconds, sessionsFolder() / L"child.txt");
}

/// What distinguishes a failure from others: the exit code of a crash or a hang, the problem
/// without its numbers of a session that was judged. None for a child that passed.
std::optional<std::string> failureOf(const ChildResult& child) {
  if (child.code == 0) return std::nullopt;
  if (child.code != judged) return "code " + std::to_string(child.code);
  std::istringstream lines(child.output);
  for (std::string line; std::getline(lines, line);) {
    if (line.rfind("failed ", 0) != 0) continue;
    std::getline(lines, line);
    const auto digit = [](unsigned char sign) { return std::isdigit(sign) != 0; };
    eraseIf(line, digit);
    return line;
  }
  return child.output;
}

std::optional<std::string> trial(unsigned seed, unsigned steps, const std::vector<size_t>& kept) {
  std::wstring numbers;
  for (const size_t number : kept) numbers += L"," + std::to_wstring(number);
  return failureOf(runAgain(L"--seed " + std::to_wstring(seed) + L" --steps " +
                                std::to_wstring(steps) + L" --kept " + numbers.substr(1) +
                                L" --patience " + std::to_wstring(trialStepSeconds),
                            trialSeconds));
}

/// Leaves out parts of a session as long as it fails in the same way.
/// @return the steps that are left; none if the session passes when it runs alone
std::vector<size_t> shrink(unsigned seed, unsigned steps,
                           const std::optional<std::string>& failure) {
  const auto end = std::chrono::steady_clock::now() + mostTime;
  std::vector<size_t> kept(steps);
  std::iota(kept.begin(), kept.end(), size_t(0));
  if (trial(seed, steps, kept) != failure) return {};
  unsigned trials = 1;
  const auto mayGoOn = [&] {
    return trials < mostTrials && std::chrono::steady_clock::now() < end;
  };
  for (size_t part = std::max<size_t>(steps / 2, 1); mayGoOn();) {
    bool smaller = false;
    for (size_t at = 0; at < kept.size() && mayGoOn();) {
      std::vector<size_t> fewer = kept;
      const auto begin = fewer.begin() + static_cast<std::ptrdiff_t>(at);
      fewer.erase(begin, begin + static_cast<std::ptrdiff_t>(std::min(part, kept.size() - at)));
      ++trials;
      if (!fewer.empty() && trial(seed, steps, fewer) == failure) {
        kept = fewer;
        smaller = true;
      } else {
        at += part;
      }
    }
    if (part == 1 && !smaller) break;
    if (part > 1) part /= 2;
  }
  return kept;
}

void reportFailure(unsigned seed, unsigned steps, const ChildResult& child) {
  std::printf("FAILED  session %u, code %lu\n%s\n", seed, child.code, child.output.c_str());
  const std::vector<size_t> kept = shrink(seed, steps, failureOf(child));
  if (kept.empty()) {
    std::printf("It doesn't fail so when it runs alone.\n");
  } else {
    std::printf("The shortest script that fails:\n%s", preamble().c_str());
    const std::vector<Step> all = makeSteps(seed, steps);
    for (const size_t at : kept) std::printf("%s", all[at].lines.c_str());
  }
}

unsigned passedIn(const std::string& output) {
  std::istringstream lines(output);
  unsigned passed = 0;
  for (std::string line; std::getline(lines, line);) passed += line.rfind("passed ", 0) == 0;
  return passed;
}

bool runAll(const Options& options) {
  if (options.drawings.empty()) throw UsageError("--drawings is needed");
  watchHeaps();
  std::filesystem::create_directories(sessionsFolder());
  std::filesystem::copy(
      windowsPath(options.drawings), sessionsFolder() / L"drawings",
      std::filesystem::copy_options::recursive | std::filesystem::copy_options::overwrite_existing);
  unsigned passed = 0;
  unsigned failed = 0;
  while (passed + failed < options.sessions) {
    const unsigned seed = options.seed + passed + failed;
    const unsigned count = std::min(batch, options.sessions - passed - failed);
    const ChildResult child =
        runAgain(L"--child --seed " + std::to_wstring(seed) + L" --sessions " +
                     std::to_wstring(count) + L" --steps " + std::to_wstring(options.steps),
                 count * secondsASession);
    const unsigned good = passedIn(child.output);
    passed += good;
    if (good == count && child.code == 0) continue;
    ++failed;
    reportFailure(seed + good, options.steps, child);
  }
  std::printf("sessions: %u passed, %u failed\n", passed, failed);
  return failed == 0;
}

}  // namespace
}  // namespace wb

int main() {
  using namespace wb;
  Options options;
  return runProgram("sessions", usage,
                    {{L"--sessions", &options.sessions},
                     {L"--seed", &options.seed},
                     {L"--steps", &options.steps},
                     {L"--patience", &options.patience},
                     {L"--drawings", &options.drawings},
                     {L"--kept", &options.kept},
                     {L"--child", &options.isChild}},
                    [&] {
                      const bool inThisProcess = options.isChild || !options.kept.empty();
                      return (inThisProcess ? runBatch(options) : runAll(options)) ? 0 : 1;
                    });
}
