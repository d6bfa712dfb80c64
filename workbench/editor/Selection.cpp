#include "editor/Selection.h"

#include <accmd.h>
#include <dbapserv.h>

#include <cwchar>

#include "core/SessionState.h"
#include "database/Drawing.h"
#include "database/Objects.h"
#include "gate/HostError.h"

namespace wb {

/// Begins the name of an entity that was clicked; no block's name has this sign.
constexpr wchar_t clickMark = L'|';

void Selection::addNamed(const std::wstring& name, Ids& ids) {
  if (name[0] == clickMark) {
    const AcDbObjectId id =
        AcDbObjectId().setFromOldId(std::wcstoll(name.c_str() + 1, nullptr, 10));
    if (!contains(ids, id)) ids.push_back(id);
    return;
  }
  const Drawing& drawing = Drawing::require(nullptr);
  for (const AcDbObjectId id : drawing.entities(name)) {
    if (!contains(ids, id)) return ids.push_back(id);
  }
  throw HostError(L"nothing more of that name on " + drawing.currentLayout() + L": " + name,
                  Acad::eKeyNotFound);
}

Selection& Selection::instance() { return sessionPart<Selection>(); }

void Selection::pick(const std::vector<std::wstring>& names) {
  Ids fresh;
  for (const std::wstring& name : names) addNamed(name, fresh);
  picks = std::move(fresh);
  database = acdbHostApplicationServices()->workingDatabase();
}

void Selection::click(AcDbObjectId id) {
  AcDbDatabase* working = acdbHostApplicationServices()->workingDatabase();
  if (id.isNull() || database != working) picks.clear();
  database = working;
  if (!id.isNull() && !contains(picks, id)) picks.push_back(id);
}

std::wstring Selection::nameOf(AcDbObjectId id) {
  return clickMark + std::to_wstring(id.asOldId());
}

Selection::Ids Selection::picked() const {
  Ids result;
  if (database != acdbHostApplicationServices()->workingDatabase()) return result;
  for (const AcDbObjectId id : picks) {
    const AcDbObjectImp* entity = AcDbObjectImp::find(id);
    if (entity && !entity->erased) result.push_back(id);
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

}  // namespace wb
