#include "faults/Faults.h"

#include <map>
#include <utility>
#include <vector>

#include "core/SessionState.h"
#include "faults/DiskFaults.h"

namespace wb {

namespace {

struct Fault {
  std::wstring operation;
  HRESULT code;
  unsigned letThrough;
  bool always;
};

struct FaultState {
  std::vector<Fault> faults;
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

size_t clearFaults() {
  const size_t left = state().faults.size();
  state().faults.clear();
  return left + endDisturbances();
}

std::vector<std::wstring> recordOperations() {
  state().recording = true;
  return std::exchange(state().record, {});
}

HRESULT takeFault(std::wstring_view operation, bool isSwept) {
  if (!SessionState::current()) return S_OK;
  FaultState& state = wb::state();
  const auto counted = state.calls.find(operation);
  if (counted == state.calls.end()) {
    state.calls.emplace(operation, 1);
  } else {
    ++counted->second;
  }
  if (isSwept) {
    if (state.recording) state.record.emplace_back(operation);
    disturbAt(operation);
  }
  std::vector<Fault>& faults = state.faults;
  for (auto fault = faults.begin(); fault != faults.end(); ++fault) {
    if (!names(fault->operation, operation)) continue;
    if (fault->letThrough > 0) {
      --fault->letThrough;
      continue;
    }
    const HRESULT code = fault->code;
    if (!fault->always) faults.erase(fault);
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
