#include "editor/Selection.h"

#include <accmd.h>
#include <acedads.h>
#include <adscodes.h>
#include <dbapserv.h>

#include <algorithm>
#include <map>
#include <optional>

#include "core/Accounts.h"
#include "core/Transcript.h"
#include "database/Database.h"
#include "database/Drawing.h"
#include "database/Objects.h"
#include "dialogs/Answers.h"
#include "editor/CommandLine.h"
#include "editor/CommandRunner.h"
#include "editor/Host.h"
#include "faults/Faults.h"

namespace wb {

namespace {

using Ids = std::vector<AcDbObjectId>;

const Drawing* workingDrawing() {
  return Drawing::of(acdbHostApplicationServices()->workingDatabase());
}

// Adds the first entity of that name that isn't in `ids`.
bool addNamed(const std::wstring& name, Ids& ids, std::wstring& error) {
  const Drawing* drawing = workingDrawing();
  if (!drawing) {
    error = L"no drawing is open";
    return false;
  }
  for (const AcDbObjectId id : drawing->entities(name)) {
    if (std::find(ids.begin(), ids.end(), id) != ids.end()) continue;
    ids.push_back(id);
    return true;
  }
  error = L"nothing more of that name on " + drawing->currentLayout() + L": " + name;
  return false;
}

bool addNamed(const std::vector<std::wstring>& names, Ids& ids, std::wstring& error) {
  return std::all_of(names.begin(), names.end(),
                     [&](const std::wstring& name) { return addNamed(name, ids, error); });
}

}  // namespace

Selection& Selection::instance() {
  static Selection selection;
  return selection;
}

bool Selection::pick(const std::vector<std::wstring>& names, std::wstring& error) {
  Ids fresh;
  if (!addNamed(names, fresh, error)) return false;
  picks = std::move(fresh);
  database = acdbHostApplicationServices()->workingDatabase();
  return true;
}

AcDbObjectIdArray Selection::picked() const {
  AcDbObjectIdArray result;
  if (database != acdbHostApplicationServices()->workingDatabase()) return result;
  for (const AcDbObjectId id : picks) {
    const AcDbObjectImp* entity = AcDbObjectImp::find(id);
    if (entity && !entity->erased) result.append(id);
  }
  return result;
}

void Selection::commandBegins(int flags) {
  if ((flags & (ACRX_CMD_REDRAW | ACRX_CMD_USEPICKSET)) == 0) picks.clear();
}

std::vector<std::wstring> Selection::unused() const {
  std::vector<std::wstring> texts;
  for (const std::vector<std::wstring>& names : answers) {
    std::wstring text = L"select";
    for (const std::wstring& name : names) text += L' ' + name;
    texts.push_back(text);
  }
  return texts;
}

void Selection::clear() {
  picks.clear();
  answers.clear();
}

/// Asks the user for entities: what is queued answers first, what is typed after that.
class SelectionPrompt {
 public:
  explicit SelectionPrompt(const ACHAR* prompt) : prompt(prompt) {}

  /// RTNORM, RTERROR for nothing picked, RTCAN.
  int askMany(Ids& ids) {
    if (const auto queued = takeQueued()) return fromQueue(*queued, ids);
    for (;;) {
      std::wstring token;
      if (ask(token) == InputQueue::Read::Cancel) return RTCAN;
      if (token.empty()) return ids.empty() ? RTERROR : RTNORM;
      addTyped(token, ids);
    }
  }

  int askOne(Ids& ids) {
    if (const auto queued = takeQueued()) return fromQueue(*queued, ids);
    std::wstring token;
    if (ask(token) == InputQueue::Read::Cancel) return RTCAN;
    if (token.empty()) return RTERROR;
    addTyped(token, ids);
    return ids.empty() ? RTERROR : RTNORM;
  }

 private:
  std::optional<std::vector<std::wstring>> takeQueued() {
    auto& answers = Selection::instance().answers;
    if (answers.empty()) return std::nullopt;
    auto first = std::move(answers.front());
    answers.pop_front();
    return first;
  }

  int fromQueue(const std::vector<std::wstring>& names, Ids& ids) {
    commandLineSays(prompt);
    if (names.size() == 1 && names[0] == L"none") {
      commandLineSays(L"*Cancel*");
      return RTCAN;
    }
    std::wstring error;
    if (!addNamed(names, ids, error)) {
      // A person who tries anything may miss.
      if (Answers::instance().answersAny()) {
        commandLineSays(L"0 found");
      } else {
        tell({Event::error, Event::noSelection, {}, L"the selection can't be made: " + error});
      }
      return RTERROR;
    }
    commandLineSays(std::to_wstring(ids.size()) + L" found");
    return ids.empty() ? RTERROR : RTNORM;
  }

  InputQueue::Read ask(std::wstring& token) {
    commandLineSays(prompt);
    return Host::instance().runner().ask(token);
  }

  static void addTyped(const std::wstring& token, Ids& ids) {
    std::wstring error;
    commandLineSays(addNamed(token, ids, error) ? std::to_wstring(ids.size()) + L" found" : error);
  }

  const ACHAR* prompt;
};

namespace {

// The host has no more of them at a time.
constexpr size_t mostSets = 128;

struct Set {
  Ids ids;
  Ticket ticket;
};

std::map<long long, Set>& sets() {
  static std::map<long long, Set> all;
  return all;
}

// In the second half of a name, tells a set from an entity, which has 0 there.
constexpr long long setMark = 1;

const Set* findSet(const ads_name name) {
  const auto found = name[1] == setMark ? sets().find(name[0]) : sets().end();
  return found == sets().end() ? nullptr : &found->second;
}

int makeSet(Ids ids, ads_name name) {
  static long long last = 0;
  if (sets().size() >= mostSets) return RTERROR;
  name[0] = ++last;
  name[1] = setMark;
  const std::wstring label = std::to_wstring(ids.size()) + L" entities";
  sets()[last] = {std::move(ids), handOut(L"selection set", label)};
  return RTNORM;
}

Ids pickedIds() {
  const AcDbObjectIdArray picked = Selection::instance().picked();
  Ids ids;
  for (int index = 0; index < picked.length(); ++index) ids.push_back(picked[index]);
  return ids;
}

void nameEntity(AcDbObjectId id, ads_name name) {
  name[0] = id.asOldId();
  name[1] = 0;
}

}  // namespace
}  // namespace wb

extern "C" {

int acedSSGet(const ACHAR* mode, const void* point1, const void* point2, const resbuf* filter,
              ads_name ss) {
  const std::wstring_view wanted = mode ? mode : L"";
  const bool implied = wanted == L"I" || wanted == L"_I";
  if ((!implied && !wanted.empty()) || point1 || point2 || filter) {
    wb::tell(wb::Event::error,
             L"acedSSGet with a mode, points or a filter that this host hasn't got");
    return RTERROR;
  }
  if (FAILED(wb::takeFault(L"host.acedSSGet"))) return RTERROR;
  // What the user picked before the command also answers the prompt.
  wb::Ids ids = wb::pickedIds();
  if (ids.empty()) {
    if (implied) return RTERROR;
    const int asked = wb::SelectionPrompt(L"\nSelect objects: ").askMany(ids);
    if (asked != RTNORM) return asked;
  }
  return wb::makeSet(std::move(ids), ss);
}

int acedSSLength(const ads_name ss, long* length) {
  const wb::Set* set = wb::findSet(ss);
  if (!set || !length || FAILED(wb::takeFault(L"host.acedSSLength"))) return RTERROR;
  *length = static_cast<long>(set->ids.size());
  return RTNORM;
}

int acedSSName(const ads_name ss, long i, ads_name entity) {
  const wb::Set* set = wb::findSet(ss);
  if (!set || i < 0 || static_cast<size_t>(i) >= set->ids.size()) return RTERROR;
  if (FAILED(wb::takeFault(L"host.acedSSName"))) return RTERROR;
  wb::nameEntity(set->ids[static_cast<size_t>(i)], entity);
  return RTNORM;
}

int acedSSFree(const ads_name ss) {
  const wb::Set* set = wb::findSet(ss);
  if (!set) {
    wb::tell(wb::Event::error, L"acedSSFree of a selection set that doesn't exist");
    return RTERROR;
  }
  wb::giveBack(set->ticket);
  wb::sets().erase(ss[0]);
  return RTNORM;
}

int acedEntSel(const ACHAR* prompt, ads_name entity, ads_point point) {
  if (FAILED(wb::takeFault(L"host.acedEntSel"))) return RTERROR;
  wb::Ids ids;
  const int asked = wb::SelectionPrompt(prompt ? prompt : L"\nSelect object: ").askOne(ids);
  if (asked != RTNORM) return asked;
  wb::nameEntity(ids.front(), entity);
  std::fill_n(point, 3, 0.0);
  return RTNORM;
}
}
