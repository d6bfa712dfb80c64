#pragma once

#include <windows.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>
#include <typeinfo>
#include <utility>
#include <vector>

#include "core/Accounts.h"
#include "core/StandInTime.h"
#include "core/Transcript.h"

namespace wb {

/// The condition of the stand-in client, set by a script and read by the client.
struct ClientCondition {
  int major = 5;  ///< the version that the client says it has
  int minor = 3;
  std::optional<std::filesystem::path> language;  ///< texts of a second language
};

/// All state of host and client in one session. What host and client share is here by name; every
/// other room keeps its state in a part, a class with a default constructor, which is made when it
/// is first asked for. The parts are destroyed last one first, while the shared state is still
/// there.
class SessionState {
 public:
  /// Becomes the current one; an older one is current again afterwards.
  SessionState();
  SessionState(const SessionState&) = delete;
  ~SessionState();

  /// Null outside a session. The one pointer by which the host's exports and the client's objects
  /// reach their state.
  static SessionState* current();
  /// @throws std::logic_error outside a session
  static SessionState& get();

  Transcript transcript;
  Accounts accounts;
  StandInTime standInTime;
  ClientCondition client;
  HWND mainWindow = nullptr;  ///< the host's, which the transcript calls the main window

  template <class Part>
  Part& part() {
    for (const auto& [type, part] : parts) {
      if (*type == typeid(Part)) return *static_cast<Part*>(part.get());
    }
    // The part may ask for others while it is made; these are destroyed after it.
    auto made = std::make_shared<Part>();
    parts.emplace_back(&typeid(Part), made);
    return *made;
  }

 private:
  SessionState* const previous;
  std::vector<std::pair<const std::type_info*, std::shared_ptr<void>>> parts;
};

inline ClientCondition& clientCondition() { return SessionState::get().client; }

/// A room's state in the current session.
/// @throws std::logic_error outside a session
template <class Part>
Part& sessionPart() {
  return SessionState::get().part<Part>();
}

}  // namespace wb
