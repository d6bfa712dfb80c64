#include <acedads.h>
#include <adscodes.h>

#include <algorithm>
#include <string_view>

#include "core/SessionState.h"
#include "core/Transcript.h"
#include "editor/SelectionPrompt.h"
#include "editor/SelectionSets.h"
#include "gate/HostCall.h"

using wb::HostCall;

namespace {

// In the second half of a name, tells a set from an entity, which has 0 there.
constexpr long long setMark = 1;

wb::SelectionSets& sets() { return wb::sessionPart<wb::SelectionSets>(); }

/// 0, which no set has, for the name of something else.
long long setNumber(const ads_name name) { return name[1] == setMark ? name[0] : 0; }

void nameEntity(AcDbObjectId id, ads_name name) {
  name[0] = id.asOldId();
  name[1] = 0;
}

}  // namespace

extern "C" {

int acedSSGet(const ACHAR* mode, const void* point1, const void* point2, const resbuf* filter,
              ads_name ss) {
  return HostCall(THIS_FUNCTION, HostCall::swept).run(RTERROR, [&] {
    const std::wstring_view wanted = mode ? mode : L"";
    const bool implied = wanted == L"I" || wanted == L"_I";
    if ((!implied && !wanted.empty()) || point1 || point2 || filter) {
      wb::tell(wb::Event::error,
               L"acedSSGet with a mode, points or a filter that this host hasn't got");
      return RTERROR;
    }
    // What the user picked before the command also answers the prompt.
    wb::Selection::Ids ids = wb::Selection::instance().picked();
    if (ids.empty()) {
      if (implied) return RTERROR;
      const int asked = wb::SelectionPrompt(L"\nSelect objects: ").askMany(ids);
      if (asked != RTNORM) return asked;
    }
    ss[0] = sets().make(std::move(ids));
    ss[1] = setMark;
    return RTNORM;
  });
}

int acedSSLength(const ads_name ss, long* length) {
  return HostCall(THIS_FUNCTION, HostCall::swept).run(RTERROR, [&] {
    if (!length) return RTERROR;
    *length = static_cast<long>(sets().find(setNumber(ss)).size());
    return RTNORM;
  });
}

int acedSSName(const ads_name ss, long i, ads_name entity) {
  return HostCall(THIS_FUNCTION, HostCall::swept).run(RTERROR, [&] {
    const wb::Selection::Ids& ids = sets().find(setNumber(ss));
    if (i < 0 || static_cast<size_t>(i) >= ids.size()) return RTERROR;
    nameEntity(ids[static_cast<size_t>(i)], entity);
    return RTNORM;
  });
}

int acedSSFree(const ads_name ss) {
  return HostCall(THIS_FUNCTION).run(RTERROR, [&] {
    try {
      sets().free(setNumber(ss));
      return RTNORM;
    } catch (const wb::HostError&) {
      wb::tell(wb::Event::error, L"acedSSFree of a selection set that doesn't exist");
      throw;
    }
  });
}

int acedEntSel(const ACHAR* prompt, ads_name entity, ads_point point) {
  return HostCall(THIS_FUNCTION, HostCall::swept).run(RTERROR, [&] {
    wb::Selection::Ids ids;
    const int asked = wb::SelectionPrompt(prompt ? prompt : L"\nSelect object: ").askOne(ids);
    if (asked != RTNORM) return asked;
    nameEntity(ids.front(), entity);
    std::fill_n(point, 3, 0.0);
    return RTNORM;
  });
}
}
