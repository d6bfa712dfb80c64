#include "faults/DiskFaults.h"

#include <windows.h>

#include <memory>
#include <utility>
#include <vector>

#include "core/SessionState.h"
#include "core/Transcript.h"
#include "store/Files.h"
#include "store/Store.h"

namespace wb {
namespace {

class Disturbance {
 public:
  Disturbance(std::filesystem::path file, DiskFault what, std::wstring operation, unsigned after)
      : file(std::move(file)), what(what), operation(std::move(operation)), letThrough(after) {}

  void at(std::wstring_view called) {
    if (called == operation && !begun) {
      begun = letThrough == 0;
      if (!begun) --letThrough;
    }
    if (!begun || done) return;
    done = what == DiskFault::held ? hold() : MoveFileW(file.c_str(), away().c_str());
  }

  /// @return whether it had happened
  bool end() {
    holder.reset();
    if (!done || what != DiskFault::away) return done;
    if (MoveFileW(away().c_str(), file.c_str())) return true;
    if (GetLastError() == ERROR_ALREADY_EXISTS) {
      SetFileAttributesW(away().c_str(), FILE_ATTRIBUTE_NORMAL);
      DeleteFileW(away().c_str());
    } else {
      tell(Event::error, file.wstring() + L" can't be put back");
    }
    return true;
  }

 private:
  std::filesystem::path away() const { return file.wstring() + L".away"; }

  bool hold() {
    try {
      holder = std::make_unique<FileHandle>(file, GENERIC_READ, 0, OPEN_EXISTING);
    } catch (const StoreError&) {
      return false;  // its time comes
    }
    return true;
  }

  std::filesystem::path file;
  DiskFault what;
  std::wstring operation;
  unsigned letThrough;
  bool begun = false;
  bool done = false;
  std::unique_ptr<FileHandle> holder;
};

struct Disturbances {
  std::vector<Disturbance> all;
};

std::vector<Disturbance>& disturbances() { return sessionPart<Disturbances>().all; }

}  // namespace

void disturbFile(const std::filesystem::path& file, DiskFault what, std::wstring operation,
                 unsigned after) {
  disturbances().emplace_back(file, what, std::move(operation), after);
}

void disturbAt(std::wstring_view operation) {
  for (Disturbance& disturbance : disturbances()) disturbance.at(operation);
}

size_t endDisturbances() {
  size_t missed = 0;
  for (Disturbance& disturbance : disturbances()) missed += disturbance.end() ? 0 : 1;
  disturbances().clear();
  return missed;
}

}  // namespace wb
