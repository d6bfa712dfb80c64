#include "sessions/Places.h"

namespace sessions {

std::filesystem::path workFolder() {
  return std::filesystem::temp_directory_path() / L"random-sessions" / L"work";
}

std::filesystem::path drawingsFolder() {
  return std::filesystem::temp_directory_path() / L"random-sessions" / L"drawings";
}

}  // namespace sessions
