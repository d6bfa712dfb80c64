#include "editor/SelectionSets.h"

#include "gate/HostError.h"

namespace wb {

namespace {

constexpr size_t mostSets = 128;

[[noreturn]] void failUnknown() {
  throw HostError(L"there is no such selection set", Acad::eInvalidAdsName);
}

}  // namespace

long long SelectionSets::make(Selection::Ids ids) {
  if (sets.size() >= mostSets) throw HostError(L"there are too many selection sets");
  const std::wstring label = std::to_wstring(ids.size()) + L" entities";
  sets[++last] = {std::move(ids), handOut(L"selection set", label)};
  return last;
}

const Selection::Ids& SelectionSets::find(long long number) const {
  const auto found = sets.find(number);
  if (found == sets.end()) failUnknown();
  return found->second.ids;
}

void SelectionSets::free(long long number) {
  const auto found = sets.find(number);
  if (found == sets.end()) failUnknown();
  giveBack(found->second.ticket);
  sets.erase(found);
}

}  // namespace wb
