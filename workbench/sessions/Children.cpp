#include "sessions/Children.h"

#include <windows.h>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <numeric>
#include <stdexcept>
#include <string_view>

#include "core/Program.h"
#include "sessions/Places.h"
#include "watch/ImportWatch.h"

namespace sessions {
namespace {

struct HandleCloser {
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using OwnedHandle = std::unique_ptr<void, HandleCloser>;

constexpr unsigned trialSeconds = 90;
constexpr unsigned mostTrials = 200;
constexpr std::chrono::seconds mostTime(150);

// A step takes a second at most; a hang is run into many times.
constexpr unsigned trialStepSeconds = 8;
constexpr unsigned long judged = 1;

std::string trial(unsigned seed, unsigned steps, const std::vector<size_t>& kept) {
  return failureOf(runChild(L"--trial " + std::to_wstring(seed) + L" --steps " +
                                std::to_wstring(steps) + L" --kept " + joined(kept) +
                                L" --patience " + std::to_wstring(trialStepSeconds),
                            trialSeconds));
}

}  // namespace

std::wstring joined(const std::vector<size_t>& numbers) {
  std::wstring text;
  for (const size_t number : numbers) text += (text.empty() ? L"" : L",") + std::to_wstring(number);
  return text;
}

void watchHeaps() {
  const std::wstring key =
      LR"(Software\Microsoft\Windows NT\CurrentVersion\Image File Execution Options\)" +
      wb::programFile().filename().wstring();
  const LSTATUS status = RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), L"GlobalFlag", REG_DWORD,
                                         &wb::heapCheckFlags, sizeof wb::heapCheckFlags);
  if (status != ERROR_SUCCESS) throw std::runtime_error("the heaps' flags can't be set");
}

ChildResult runChild(const std::wstring& arguments, unsigned seconds) {
  const std::filesystem::path file = workFolder().parent_path() / L"child.txt";
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  // The desktop's own process may have got an earlier child's handle and still hold it.
  OwnedHandle output(CreateFileW(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                 &inherited, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (output.get() == INVALID_HANDLE_VALUE) {
    static_cast<void>(output.release());
    throw std::runtime_error("the child's output can't be written");
  }
  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdOutput = start.hStdError = output.get();
  PROCESS_INFORMATION made{};
  if (!wb::startProgramAgain(arguments, start, made)) {
    throw std::runtime_error("the child can't be started");
  }
  const OwnedHandle process(made.hProcess);
  const OwnedHandle thread(made.hThread);
  if (WaitForSingleObject(process.get(), seconds * 1000) != WAIT_OBJECT_0) {
    TerminateProcess(process.get(), WAIT_TIMEOUT);
    WaitForSingleObject(process.get(), INFINITE);
  }
  ChildResult result{};
  GetExitCodeProcess(process.get(), &result.code);
  output.reset();
  std::ifstream stream(file, std::ios::binary);
  result.output.assign(std::istreambuf_iterator<char>(stream), {});
  return result;
}

std::string failureOf(const ChildResult& child) {
  if (child.code == 0) return {};
  if (child.code != judged) return "code " + std::to_string(child.code);
  constexpr std::string_view mark = "failed ";
  size_t at = child.output.find(mark);
  while (at != std::string::npos && at > 0 && child.output[at - 1] != '\n') {
    at = child.output.find(mark, at + 1);
  }
  if (at == std::string::npos) return child.output;
  const size_t begin = std::min(child.output.find('\n', at), child.output.size() - 1) + 1;
  std::string problem = child.output.substr(begin, child.output.find('\n', begin) - begin);
  const auto digit = [](unsigned char sign) { return std::isdigit(sign) != 0; };
  problem.erase(std::remove_if(problem.begin(), problem.end(), digit), problem.end());
  return problem;
}

std::vector<size_t> shrink(unsigned seed, unsigned steps, const std::string& failure) {
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

}  // namespace sessions
