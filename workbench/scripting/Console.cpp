#include "scripting/Console.h"

#include <cstdio>
#include <iostream>
#include <thread>

#include "core/Text.h"
#include "core/Transcript.h"
#include "editor/Host.h"
#include "scripting/Script.h"

namespace wb {

struct Console::Lines {
  Lines() : arrived(CreateEventW(nullptr, FALSE, FALSE, nullptr)) {}
  Lines(const Lines&) = delete;
  Lines& operator=(const Lines&) = delete;
  ~Lines() { CloseHandle(arrived); }

  void readAll() {
    std::string line;
    while (std::getline(std::cin, line)) add(line);
    const std::lock_guard lock(mutex);
    ended = true;
    SetEvent(arrived);
  }

  void add(const std::string& line) {
    const std::lock_guard lock(mutex);
    waiting.push_back(line);
    SetEvent(arrived);
  }

  std::optional<std::string> take() {
    const std::lock_guard lock(mutex);
    if (waiting.empty()) return std::nullopt;
    std::string line = std::move(waiting.front());
    waiting.pop_front();
    return line;
  }

  bool isOver() {
    const std::lock_guard lock(mutex);
    return ended && waiting.empty();
  }

  const HANDLE arrived;
  std::mutex mutex;
  std::deque<std::string> waiting;
  bool ended = false;
};

Console::Console(ScriptContext& context) : context(context), lines(std::make_shared<Lines>()) {
  std::thread([lines = lines] { lines->readAll(); }).detach();
}

void Console::run() {
  Host::instance().runUntilIdle();
  while (const auto line = nextLine(false)) runLine(*line, false);
}

bool Console::supplyInput() {
  while (const auto line = nextLine(true)) {
    if (runLine(*line, true) && (*line)[0] != L'@') return true;
  }
  return false;
}

std::optional<std::wstring> Console::nextLine(bool commandWaits) {
  std::printf("> ");
  std::fflush(stdout);
  while (!Host::instance().quitRequested()) {
    if (const auto bytes = lines->take()) {
      const auto parsed = scriptLines(*bytes);
      if (!parsed.empty()) return parsed.front().text;
      continue;
    }
    if (lines->isOver()) break;
    MsgWaitForMultipleObjects(1, &lines->arrived, FALSE, INFINITE, QS_ALLINPUT);
    // What is queued comes after the command that waits.
    if (commandWaits) {
      Host::instance().pumpMessages();
    } else {
      Host::instance().runUntilIdle();
    }
  }
  return std::nullopt;
}

bool Console::runLine(const std::wstring& line, bool commandWaits) {
  try {
    runScriptLine(context, line, commandWaits);
    return true;
  } catch (const ScriptError& error) {
    tell(Event::error, error.why);
  } catch (const std::exception& error) {
    tell(Event::error, fromUtf8(error.what()));
  }
  return false;
}

}  // namespace wb
