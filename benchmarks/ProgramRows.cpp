// The speed of the programs that try the module out.

#include <chrono>
#include <cstdlib>
#include <stdexcept>
#include <string>

#include "core/Text.h"
#include "Measure.h"
#include "Rows.h"
#include "scripting/Programs.h"

namespace bench {

namespace {

constexpr int repetitions = 3;

double milliseconds(const std::function<void()>& work) {
  const auto begun = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begun)
      .count();
}

std::filesystem::path folder() {
  return std::filesystem::temp_directory_path() / L"workbench-bench-programs";
}

/// What the programs' runs are compared with: a session of the workbench from its start to its end,
/// with the module loaded and a drawing opened in it.
double bareSession(const std::filesystem::path& drawings) {
  return milliseconds([&] {
    wb::Session session(wb::optionsOfBuild(folder() / L"session", drawings));
    if (!session.run("@load\n@open %DRAWINGS%\\Site\\Plan.dxf\n")) {
      throw std::runtime_error(wb::toUtf8(session.text()));
    }
    session.end();
  });
}

/// Runs a program of the workbench to its end and returns what it wrote.
/// @throws std::runtime_error with what it wrote if it doesn't end with 0
std::string outputOf(const std::wstring& name, const std::wstring& arguments) {
  constexpr unsigned patience = 180;  // seconds
  std::filesystem::create_directories(folder());
  const wb::ChildResult child =
      wb::runChild(BenchSession::binFolder() / name, arguments, patience, folder() / L"output.txt");
  if (child.code != 0) throw std::runtime_error(wb::toUtf8(name) + " failed:\n" + child.output);
  return child.output;
}

/// The N of the line "NAME: N passed, 0 failed".
double passedIn(const std::string& output, const std::string& name) {
  const size_t at = output.rfind(name + ": ");
  const double passed = at == std::string::npos ? 0 : std::atof(&output[at + name.size() + 2]);
  if (passed == 0) throw std::runtime_error("nothing passed:\n" + output);
  return passed;
}

/// @param limit generous: it is to show a program that has become much slower
void measureProgram(Row& row, const std::filesystem::path& drawings, const std::string& name,
                    const std::wstring& arguments) {
  for (int round = 0; round < repetitions; ++round) {
    std::string output;
    const double all = milliseconds([&] {
      output = outputOf(wb::fromUtf8(name) + L".exe",
                        L"--drawings \"" + drawings.wstring() + L"\" " + arguments);
    });
    row.add(all / passedIn(output, name), bareSession(drawings));
  }
  print(row);
}

}  // namespace

void sweepSpeed(const std::filesystem::path& drawings) {
  Row row("A run of the sweep / a session that opens a drawing", "ms", 4);
  measureProgram(
      row, drawings, "sweep",
      L"--only telllockedelsewhere --share 0/1000000 --allocations 0/1000000 --folder \"" +
          (folder() / L"sweep").wstring() + L"\"");
}

void sessionsSpeed(const std::filesystem::path& drawings) {
  Row row("A random session of 60 steps / a session that opens a drawing", "ms", 40);
  measureProgram(row, drawings, "sessions", L"--sessions 2 --seed 1");
}

}  // namespace bench
