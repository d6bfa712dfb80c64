#include "faults/Faults.h"

#include <map>
#include <utility>
#include <vector>

#include "faults/DiskFaults.h"

namespace wb {

namespace {

struct Fault {
  std::wstring operation;
  HRESULT code;
  unsigned letThrough;
  bool always;
};

std::vector<Fault> faults;
std::map<std::wstring, unsigned, std::less<>> calls;
std::vector<std::wstring> record;
bool recording = false;

bool names(std::wstring_view pattern, std::wstring_view operation) {
  if (pattern.find(L'.') != std::wstring_view::npos) return pattern == operation;
  const size_t point = operation.rfind(L'.');
  return point != std::wstring_view::npos && operation.substr(point + 1) == pattern;
}

}  // namespace

void failOperation(std::wstring operation, HRESULT code, unsigned after, bool always) {
  faults.push_back({std::move(operation), code, after, always});
}

size_t clearFaults() {
  const size_t left = faults.size();
  faults.clear();
  return left + endDisturbances();
}

std::vector<std::wstring> recordOperations() {
  recording = true;
  return std::exchange(record, {});
}

HRESULT takeFault(std::wstring_view operation) {
  if (recording) record.emplace_back(operation);
  ++calls[std::wstring(operation)];
  disturbAt(operation);
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
  for (const auto& [name, number] : calls) {
    if (names(operation, name)) count += number;
  }
  return count;
}

void resetCalls() { calls.clear(); }

}  // namespace wb
