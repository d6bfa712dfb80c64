#include "scripting/Programs.h"

#include <windows.h>

#include <shellapi.h>

#include <algorithm>
#include <cstdio>
#include <memory>

#include "core/Program.h"
#include "core/Text.h"
#include "scripting/SessionFiles.h"

namespace wb {
namespace {

struct HandleCloser {
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using OwnedHandle = std::unique_ptr<void, HandleCloser>;

void readOptions(const std::vector<ProgramOption>& options) {
  int count = 0;
  wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
  for (int at = 1; at < count; ++at) {
    const std::wstring name = words[at];
    const auto option = std::find_if(options.begin(), options.end(),
                                     [&](const ProgramOption& one) { return name == one.name; });
    if (option == options.end()) throw UsageError("unknown: " + toUtf8(name));
    if (auto* const* flag = std::get_if<bool*>(&option->target)) {
      **flag = true;
      continue;
    }
    if (++at == count) throw UsageError(toUtf8(name) + " needs a value");
    if (auto* const* number = std::get_if<unsigned*>(&option->target)) {
      **number = numberFrom(words[at]);
    } else {
      *std::get<std::wstring*>(option->target) = words[at];
    }
  }
}

}  // namespace

unsigned numberFrom(const std::wstring& text) {
  constexpr size_t mostDigits = 9;  // what an unsigned holds for certain
  if (text.empty() || text.size() > mostDigits ||
      text.find_first_not_of(L"0123456789") != std::wstring::npos) {
    throw UsageError("\"" + toUtf8(text) + "\" is no number, or too large");
  }
  return static_cast<unsigned>(std::stoul(text));
}

int runProgram(const char* name, const char* usage, const std::vector<ProgramOption>& options,
               const std::function<int()>& work) {
  // A process that dies keeps no output back.
  std::setvbuf(stdout, nullptr, _IONBF, 0);
  try {
    readOptions(options);
    return work();
  } catch (const UsageError& error) {
    std::fprintf(stderr, "%s: %s\n\n%s", name, error.what(), usage);
    return 2;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s: %s\n", name, error.what());
    return 1;
  }
}

ChildResult runChild(const std::filesystem::path& program, const std::wstring& arguments,
                     unsigned seconds, const std::filesystem::path& outputFile) {
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  // The desktop's own process may have got an earlier child's handle and still hold it.
  const HANDLE file =
      CreateFileW(outputFile.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited,
                  CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) throw std::runtime_error("the output can't be written");
  OwnedHandle output(file);
  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdOutput = start.hStdError = file;
  PROCESS_INFORMATION made{};
  if (!startProgram(program, arguments, start, made)) {
    throw std::runtime_error("can't be started: " + toUtf8(program.wstring()));
  }
  const OwnedHandle process(made.hProcess), thread(made.hThread);
  if (WaitForSingleObject(process.get(), seconds * 1000) != WAIT_OBJECT_0) {
    TerminateProcess(process.get(), WAIT_TIMEOUT);
    WaitForSingleObject(process.get(), INFINITE);
  }
  ChildResult result;
  GetExitCodeProcess(process.get(), &result.code);
  output.reset();
  result.output = bytesOf(outputFile);
  return result;
}

}  // namespace wb
