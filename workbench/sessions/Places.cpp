#include "sessions/Places.h"

#include <windows.h>

namespace sessions {

std::filesystem::path workFolder() {
  return std::filesystem::temp_directory_path() / L"random-sessions" / L"work";
}

std::filesystem::path drawingsFolder() {
  return std::filesystem::temp_directory_path() / L"random-sessions" / L"drawings";
}

std::filesystem::path programFile() {
  wchar_t file[MAX_PATH];
  GetModuleFileNameW(nullptr, file, MAX_PATH);
  return file;
}

}  // namespace sessions
