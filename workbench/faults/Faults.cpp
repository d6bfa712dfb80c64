#include "faults/Faults.h"

#include <map>
#include <memory>
#include <utility>

#include "core/SessionState.h"
#include "store/Files.h"
#include "store/Store.h"

namespace wb {
namespace {

struct Fault {
  std::wstring operation;
  HRESULT code;
  unsigned letThrough;
  bool always;
};

/// What another program does to a file, from a call on until end().
class Disturbance {
 public:
  Disturbance(std::filesystem::path file, DiskFault what, std::wstring operation, unsigned after)
      : file(std::move(file)), what(what), operation(std::move(operation)), letThrough(after) {}

  void at(std::wstring_view called) {
    if (called == operation && !begun) {
      begun = letThrough == 0;
      if (!begun) --letThrough;
    }
    if (begun && !done) {
      done = what == DiskFault::held ? hold() : MoveFileW(file.c_str(), away().c_str());
    }
  }

  /// @return whether it had happened
  bool end() {
    holder.reset();
    if (!done || what == DiskFault::held || MoveFileW(away().c_str(), file.c_str())) return done;
    if (GetLastError() == ERROR_ALREADY_EXISTS) {
      SetFileAttributesW(away().c_str(), FILE_ATTRIBUTE_NORMAL);
      DeleteFileW(away().c_str());
    } else {
      report(Event::error, file.wstring() + L" can't be put back");
    }
    return true;
  }

 private:
  std::filesystem::path away() const { return file.wstring() + L".away"; }

  bool hold() {
    try {
      holder = std::make_unique<FileHandle>(file, GENERIC_READ, 0, OPEN_EXISTING);
    } catch (const StoreError&) {
      return false;  // somebody has it open; it is tried again at the next call
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

struct FaultState {
  std::vector<Fault> faults;
  std::vector<Disturbance> disturbances;
  std::map<std::wstring, unsigned, std::less<>> calls;
  std::vector<std::wstring> record;
  bool recording = false;
};

FaultState& state() { return sessionPart<FaultState>(); }

bool names(std::wstring_view pattern, std::wstring_view operation) {
  if (pattern.find(L'.') != std::wstring_view::npos) return pattern == operation;
  const size_t point = operation.rfind(L'.');
  return point != std::wstring_view::npos && operation.substr(point + 1) == pattern;
}

}  // namespace

void failOperation(std::wstring operation, HRESULT code, unsigned after, bool always) {
  state().faults.push_back({std::move(operation), code, after, always});
}

void disturbFile(const std::filesystem::path& file, DiskFault what, std::wstring operation,
                 unsigned after) {
  state().disturbances.emplace_back(file, what, std::move(operation), after);
}

size_t clearFaults() {
  size_t missed = std::exchange(state().faults, {}).size();
  for (Disturbance& disturbance : state().disturbances) missed += disturbance.end() ? 0 : 1;
  state().disturbances.clear();
  return missed;
}

std::vector<std::wstring> recordOperations() {
  state().recording = true;
  return std::exchange(state().record, {});
}

HRESULT takeFault(std::wstring_view operation, bool isSwept) {
  if (!SessionState::current()) return S_OK;
  FaultState& state = wb::state();
  auto counted = state.calls.find(operation);
  if (counted == state.calls.end()) counted = state.calls.emplace(operation, 0).first;
  ++counted->second;
  if (isSwept) {
    if (state.recording) state.record.emplace_back(operation);
    for (Disturbance& disturbance : state.disturbances) disturbance.at(operation);
  }
  for (auto fault = state.faults.begin(); fault != state.faults.end(); ++fault) {
    if (!names(fault->operation, operation)) continue;
    if (fault->letThrough > 0) {
      --fault->letThrough;
      continue;
    }
    const HRESULT code = fault->code;
    if (!fault->always) state.faults.erase(fault);
    return code;
  }
  return S_OK;
}

unsigned callCount(std::wstring_view operation) {
  unsigned count = 0;
  for (const auto& [name, number] : state().calls) {
    if (names(operation, name)) count += number;
  }
  return count;
}

void resetCalls() { state().calls.clear(); }

}  // namespace wb
