#include "sessions/RandomSession.h"

#include <algorithm>

#include "core/Program.h"
#include "core/Text.h"
#include "core/Transcript.h"
#include "editor/Host.h"
#include "faults/Faults.h"
#include "scripting/Session.h"
#include "sessions/Generator.h"
#include "sessions/Invariants.h"
#include "sessions/Places.h"

namespace sessions {
namespace {

bool holds(const std::string& text, const char* part) {
  return text.find(part) != std::string::npos;
}

class Run {
 public:
  explicit Run(unsigned patience) : session(options(patience)) {}

  std::string run(const std::vector<std::string>& steps) {
    wb::Host::instance().documents().reuseAddresses();
    if (!session.run(preamble())) return "the preparation failed\n" + told(0);
    for (size_t at = 0; at < steps.size(); ++at) {
      std::string problem = step(steps[at], at % 16 == 15 || at + 1 == steps.size());
      if (!problem.empty()) return problem;
    }
    const size_t start = session.transcript().size();
    session.end();
    return problemSince(start);
  }

 private:
  static wb::SessionOptions options(unsigned patience) {
    wb::SessionOptions options;
    options.module = wb::programFolder() / L"TessaroAcad.arx";
    options.client = wb::programFolder() / L"TessaroClient.dll";
    options.workFolder = workFolder();
    options.drawings = drawingsFolder();
    options.timeoutSeconds = patience;
    return options;
  }

  std::string step(const std::string& lines, bool thorough) {
    const size_t start = session.transcript().size();
    const bool done = session.run(lines);
    wb::clearFaults();
    std::string problem = problemSince(start);
    if (problem.empty()) {
      problem = invariants.check(thorough, start, holds(lines, "@vault undo "));
    }
    const bool possible = !wb::Transcript::instance().anySince(
        start, [](const wb::Event& event) { return event.kind == wb::Event::attempt; });
    // A drawing is new to the window when it is opened, whatever lay at its address before.
    const bool refreshed = possible && (holds(lines, "@tick") || holds(lines, "@click 1021") ||
                                        holds(lines, "@open "));
    if (possible) follow(lines);
    const bool judgeable = !clientGone && !offline && !holds(lines, "@fail");
    if (problem.empty() && done && refreshed && judgeable) problem = checkStatusWindow();
    return problem.empty() ? problem : problem + "\n" + lines + "----\n" + told(start);
  }

  /// With the client gone or a vault offline nobody can say what the window should show until they
  /// are back and it was refreshed.
  void follow(const std::string& lines) {
    if (holds(lines, "@client missing")) clientGone = true;
    if (holds(lines, "@client present")) clientGone = false;
    if (holds(lines, "@vault offline")) offline = holds(lines, "offline on");
  }

  std::string problemSince(size_t start) const {
    const auto& events = wb::Transcript::instance().events();
    for (size_t at = start; at < events.size(); ++at) {
      const wb::Event::Kind kind = events[at].kind;
      if (kind == wb::Event::leak || kind == wb::Event::error) {
        return wb::toUtf8(session.transcript()[at]);
      }
    }
    return {};
  }

  std::string told(size_t start) const {
    std::string text;
    const auto& lines = session.transcript();
    for (size_t at = start; at < lines.size(); ++at) text += wb::toUtf8(lines[at]) + "\n";
    return text;
  }

  wb::Session session;
  Invariants invariants;
  bool clientGone = false;
  bool offline = false;
};

}  // namespace

std::string runSession(const std::vector<std::string>& steps, unsigned patience) {
  return Run(patience).run(steps);
}

}  // namespace sessions
