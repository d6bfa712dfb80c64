#include <windows.h>

#include <shellapi.h>

#include <cstdio>
#include <cwchar>
#include <exception>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "core/Text.h"
#include "scripting/Directives.h"
#include "sessions/Children.h"
#include "sessions/Generator.h"
#include "sessions/Places.h"
#include "sessions/RandomSession.h"
#include "watch/ImportWatch.h"

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

struct Options {
  unsigned sessions = 10;
  unsigned seed = 1;
  unsigned steps = 60;
  unsigned patience = 30;
  unsigned long trial = 0;
  bool isTrial = false;
  bool isChild = false;
  std::wstring kept;
  std::wstring drawings;
};

unsigned number(const std::wstring& text) {
  wchar_t* end = nullptr;
  const unsigned long value = std::wcstoul(text.c_str(), &end, 10);
  if (text.empty() || *end) throw std::invalid_argument("a number is needed");
  return static_cast<unsigned>(value);
}

Options parse(int count, wchar_t** arguments) {
  Options options;
  for (int at = 1; at < count; ++at) {
    const std::wstring name = arguments[at];
    if (name == L"--child") {
      options.isChild = true;
      continue;
    }
    if (at + 1 == count) throw std::invalid_argument("a value is missing");
    const std::wstring value = arguments[++at];
    if (name == L"--sessions") {
      options.sessions = number(value);
    } else if (name == L"--seed") {
      options.seed = number(value);
    } else if (name == L"--steps") {
      options.steps = number(value);
    } else if (name == L"--patience") {
      options.patience = number(value);
    } else if (name == L"--drawings") {
      options.drawings = value;
    } else if (name == L"--kept") {
      options.kept = value;
    } else if (name == L"--trial") {
      options.isTrial = true, options.trial = number(value);
    } else {
      throw std::invalid_argument("unknown: " + wb::toUtf8(name));
    }
  }
  return options;
}

std::vector<std::string> keptSteps(const Options& options) {
  const std::vector<std::string> all =
      sessions::steps(static_cast<unsigned>(options.trial), options.steps);
  std::vector<std::string> kept;
  for (size_t at = 0; at < options.kept.size();) {
    const size_t end = std::min(options.kept.find(L',', at), options.kept.size());
    kept.push_back(all.at(number(options.kept.substr(at, end - at))));
    at = end + 1;
  }
  return kept;
}

int report(unsigned seed, const std::string& problem) {
  if (problem.empty()) {
    std::printf("passed %u\n", seed);
  } else {
    std::printf("failed %u\n%s\n", seed, problem.c_str());
  }
  std::fflush(stdout);
  return problem.empty() ? 0 : 1;
}

/// After a failed session the process isn't used for another.
int runBatch(const Options& options) {
  for (unsigned at = 0; at < options.sessions; ++at) {
    const unsigned seed = options.seed + at;
    if (report(seed,
               sessions::runSession(sessions::steps(seed, options.steps), options.patience))) {
      return 1;
    }
  }
  return 0;
}

void tellFailure(unsigned seed, unsigned steps, const sessions::ChildResult& child) {
  std::printf("FAILED  session %u, code %lu\n%s\n", seed, child.code, child.output.c_str());
  std::fflush(stdout);
  const std::vector<size_t> kept = sessions::shrink(seed, steps, sessions::failureOf(child));
  if (kept.empty()) {
    std::printf("It doesn't fail so when it runs alone.\n");
  } else {
    std::printf("The shortest script that fails:\n%s", sessions::preamble().c_str());
    const std::vector<std::string> all = sessions::steps(seed, steps);
    for (const size_t at : kept) std::printf("%s", all[at].c_str());
  }
  std::fflush(stdout);
}

unsigned passedIn(const std::string& output) {
  unsigned passed = 0;
  for (size_t at = output.find("passed "); at != std::string::npos;
       at = output.find("passed ", at + 1)) {
    passed += at == 0 || output[at - 1] == '\n';
  }
  return passed;
}

int runAll(const Options& options) {
  sessions::watchHeaps();
  std::filesystem::create_directories(sessions::workFolder().parent_path());
  std::filesystem::copy(
      wb::windowsPath(options.drawings), sessions::drawingsFolder(),
      std::filesystem::copy_options::recursive | std::filesystem::copy_options::overwrite_existing);
  unsigned passed = 0;
  unsigned failed = 0;
  while (passed + failed < options.sessions) {
    const unsigned seed = options.seed + passed + failed;
    const unsigned count = std::min(batch, options.sessions - passed - failed);
    const sessions::ChildResult child = sessions::runChild(
        L"--child --seed " + std::to_wstring(seed) + L" --sessions " + std::to_wstring(count) +
            L" --steps " + std::to_wstring(options.steps),
        count * secondsASession);
    const unsigned good = passedIn(child.output);
    passed += good;
    if (good == count && child.code == 0) continue;
    ++failed;
    tellFailure(seed + good, options.steps, child);
  }
  std::printf("sessions: %u passed, %u failed\n", passed, failed);
  return failed ? 1 : 0;
}

}  // namespace

int main() {
  int count = 0;
  wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
  try {
    const Options options = parse(count, arguments);
    const bool isChild = options.isTrial || options.isChild;
    if (isChild && !wb::heapsAreWatched()) throw std::runtime_error("the heaps aren't watched");
    if (options.isTrial) {
      return report(static_cast<unsigned>(options.trial),
                    sessions::runSession(keptSteps(options), options.patience));
    }
    if (options.isChild) return runBatch(options);
    if (options.drawings.empty()) throw std::invalid_argument("--drawings is needed");
    return runAll(options);
  } catch (const std::invalid_argument& error) {
    std::fprintf(stderr, "sessions: %s\n\n%s", error.what(), usage);
    return 2;
  } catch (const wb::ScriptError& error) {
    std::fprintf(stderr, "sessions: %s\n", wb::toUtf8(error.why).c_str());
    return 2;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "sessions: %s\n", error.what());
    return 1;
  }
}
