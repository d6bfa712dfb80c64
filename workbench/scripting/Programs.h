#pragma once

#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

namespace wb {

/// A command line that is wrong.
struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// An option of a program, and the variable for its value; a bool is a switch.
struct ProgramOption {
  const wchar_t* name;
  std::variant<bool*, unsigned*, std::wstring*> target;
};

/// Whole numbers only.
/// @throws UsageError
unsigned numberFrom(const std::wstring& text);

/// Reads the command line of this process and does the program's work.
/// @param usage printed for a wrong command line
/// @return the exit code: what `work` returns, 2 for a UsageError, 1 for another exception
int runProgram(const char* name, const char* usage, const std::vector<ProgramOption>& options,
               const std::function<int()>& work);

/// How a child process ended, and what it wrote.
struct ChildResult {
  unsigned long code = 0;
  std::string output;
};

/// Runs a program and waits for its end; one that doesn't end in time is terminated.
/// @param outputFile takes the program's output meanwhile
/// @throws std::runtime_error if it can't be started
ChildResult runChild(const std::filesystem::path& program, const std::wstring& arguments,
                     unsigned seconds, const std::filesystem::path& outputFile);

}  // namespace wb
