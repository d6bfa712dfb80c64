#include <windows.h>

#include <cstdio>
#include <deque>
#include <iostream>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "core/Text.h"
#include "core/Transcript.h"
#include "editor/Host.h"
#include "scripting/Script.h"
#include "scripting/Session.h"

namespace wb {
namespace {

/// The lines read so far. The reading thread shares it, and may outlive the console: nothing can
/// wake it.
struct Input {
  Input() : arrived(CreateEventW(nullptr, FALSE, FALSE, nullptr)) {}
  Input(const Input&) = delete;
  Input& operator=(const Input&) = delete;
  ~Input() { CloseHandle(arrived); }

  void readAll() {
    for (std::string line; std::getline(std::cin, line);) add(line);
    add(std::nullopt);
  }

  void add(std::optional<std::string> line) {
    const std::lock_guard lock(mutex);
    lines.push_back(std::move(line));
    SetEvent(arrived);
  }

  const HANDLE arrived;
  std::mutex mutex;
  std::deque<std::optional<std::string>> lines;  ///< the last one, at the input's end, is none
};

class Console : public Operator {
 public:
  explicit Console(ScriptContext& context) : context(context) {
    std::thread([input = input] { input->readAll(); }).detach();
  }

  void run() override {
    Host::instance().runUntilIdle();
    while (const auto line = nextLine(false)) runLine(*line, false);
  }

  bool supplyInput() override {
    while (const auto line = nextLine(true)) {
      if (runLine(*line, true) && (*line)[0] != L'@') return true;
    }
    return false;
  }

 private:
  /// The next line, after window messages; nothing when the input has ended or the host quits.
  std::optional<std::wstring> nextLine(bool commandWaits) {
    std::printf("> ");
    while (!Host::instance().quitRequested()) {
      std::unique_lock lock(input->mutex);
      if (!input->lines.empty()) {
        const std::optional<std::string> bytes = input->lines.front();
        if (!bytes) break;
        input->lines.pop_front();
        const auto parsed = scriptLines(*bytes);
        if (!parsed.empty()) return parsed.front().text;
        continue;
      }
      lock.unlock();
      MsgWaitForMultipleObjects(1, &input->arrived, FALSE, INFINITE, QS_ALLINPUT);
      // What is queued runs after the command that waits.
      if (commandWaits) {
        Host::instance().pumpMessages();
      } else {
        Host::instance().runUntilIdle();
      }
    }
    return std::nullopt;
  }

  /// Runs a line; false if it was wrong.
  bool runLine(const std::wstring& line, bool commandWaits) {
    try {
      runScriptLine(context, line, commandWaits);
      return true;
    } catch (const std::exception& error) {
      report(Event::error, fromUtf8(error.what()));
      return false;
    }
  }

  ScriptContext& context;
  const std::shared_ptr<Input> input = std::make_shared<Input>();
};

}  // namespace

std::unique_ptr<Operator> makeConsole(ScriptContext& context) {
  return std::make_unique<Console>(context);
}

}  // namespace wb
