#include "editor/Selection.h"

#include <acedads.h>
#include <adscodes.h>

#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "core/SessionState.h"
#include "core/Transcript.h"
#include "dialogs/Answers.h"
#include "editor/Commands.h"
#include "gate/HostCall.h"

using namespace wb;

namespace {

// The second half of a set's name; that of an entity's is 0.
constexpr long long setMark = 1;
constexpr size_t mostSets = 128;

/// The selection sets that applications have, by their numbers.
struct Sets {
  struct Set {
    Selection::Ids ids;
    Ticket ticket;
  };
  std::map<long long, Set> sets;
  long long last = 0;
};

/// @throws HostError for the name of something else
auto findSet(const ads_name name) {
  auto& sets = sessionPart<Sets>().sets;
  const auto found = name[1] == setMark ? sets.find(name[0]) : sets.end();
  if (found == sets.end()) throw HostError(L"there is no such selection set");
  return found;
}

void nameEntity(AcDbObjectId id, ads_name name) {
  name[0] = id.asOldId();
  name[1] = 0;
}

int useAnswer(const std::vector<std::wstring>& names, Selection::Ids& ids) {
  if (names.size() == 1 && names[0] == L"none") {
    CommandRunner::print(L"*Cancel*");
    return RTCAN;
  }
  const auto reason = whyFailed([&] {
    for (const std::wstring& name : names) Selection::addNamed(name, ids);
  });
  if (reason) {
    // A person who tries anything may miss.
    if (Answers::instance().answersAny()) {
      CommandRunner::print(L"0 found");
    } else {
      report({Event::error, Event::noSelection, {}, L"the selection can't be made: " + *reason});
    }
    return RTERROR;
  }
  CommandRunner::print(std::to_wstring(ids.size()) + L" found");
  return ids.empty() ? RTERROR : RTNORM;
}

/// Asks the user for entities: a queued answer first, else what is typed.
/// @param many whether to ask until the answer is empty
/// @return RTNORM, RTERROR for nothing picked, RTCAN
int askForEntities(const ACHAR* prompt, bool many, Selection::Ids& ids) {
  const auto queued = Selection::instance().takeAnswer();
  do {
    CommandRunner::print(prompt);
    if (queued) return useAnswer(*queued, ids);
    const auto typed = CommandRunner::requestInput();
    if (!typed) return RTCAN;
    if (typed->empty()) break;
    const auto reason = whyFailed([&] { Selection::addNamed(*typed, ids); });
    CommandRunner::print(reason ? *reason : std::to_wstring(ids.size()) + L" found");
  } while (many);
  return ids.empty() ? RTERROR : RTNORM;
}

}  // namespace

extern "C" {

int acedSSGet(const ACHAR* mode, const void* point1, const void* point2, const resbuf* filter,
              ads_name ss) {
  return HostCall(THIS_FUNCTION, HostCall::swept).run(RTERROR, [&] {
    const std::wstring_view wanted = mode ? mode : L"";
    const bool implied = wanted == L"I" || wanted == L"_I";
    if ((!implied && !wanted.empty()) || point1 || point2 || filter) {
      report(Event::error, L"acedSSGet with a mode, points or a filter that this host hasn't got");
      return RTERROR;
    }
    // What the user picked before the command also answers the prompt.
    Selection::Ids ids = Selection::instance().picked();
    if (ids.empty()) {
      if (implied) return RTERROR;
      const int asked = askForEntities(L"\nSelect objects: ", true, ids);
      if (asked != RTNORM) return asked;
    }
    auto& [sets, last] = sessionPart<Sets>();
    if (sets.size() >= mostSets) return RTERROR;
    const std::wstring label = std::to_wstring(ids.size()) + L" entities";
    sets[++last] = {std::move(ids), trackResource(L"selection set", label)};
    ss[0] = last;
    ss[1] = setMark;
    return RTNORM;
  });
}

int acedSSLength(const ads_name ss, long* length) {
  return HostCall(THIS_FUNCTION, HostCall::swept).run(RTERROR, [&] {
    if (!length) return RTERROR;
    *length = static_cast<long>(findSet(ss)->second.ids.size());
    return RTNORM;
  });
}

int acedSSName(const ads_name ss, long i, ads_name entity) {
  return HostCall(THIS_FUNCTION, HostCall::swept).run(RTERROR, [&] {
    const Selection::Ids& ids = findSet(ss)->second.ids;
    if (i < 0 || static_cast<size_t>(i) >= ids.size()) return RTERROR;
    nameEntity(ids[static_cast<size_t>(i)], entity);
    return RTNORM;
  });
}

int acedSSFree(const ads_name ss) {
  return HostCall(THIS_FUNCTION).run(RTERROR, [&] {
    try {
      const auto found = findSet(ss);
      releaseResource(found->second.ticket);
      sessionPart<Sets>().sets.erase(found);
      return RTNORM;
    } catch (const HostError&) {
      report(Event::error, L"acedSSFree of a selection set that doesn't exist");
      throw;
    }
  });
}

int acedEntSel(const ACHAR* prompt, ads_name entity, ads_point point) {
  return HostCall(THIS_FUNCTION, HostCall::swept).run(RTERROR, [&] {
    Selection::Ids ids;
    const int asked = askForEntities(prompt ? prompt : L"\nSelect object: ", false, ids);
    if (asked != RTNORM) return asked;
    nameEntity(ids.front(), entity);
    std::fill_n(point, 3, 0.0);
    return RTNORM;
  });
}
}
