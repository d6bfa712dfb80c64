#pragma once

#include <filesystem>
#include <optional>

namespace wb {

/// The condition of the stand-in client, set by a script and read by the client.
struct ClientCondition {
  int major = 5;  ///< the version that the client says it has
  int minor = 3;
  std::optional<std::filesystem::path> language;  ///< texts of a second language
};

}  // namespace wb
