#pragma once

#include <AdAChar.h>

#include "editor/InputQueue.h"
#include "editor/Selection.h"

namespace wb {

/// Asks the user for entities: what is queued answers first, what is typed after that. Both return
/// RTNORM, RTERROR for nothing picked, RTCAN.
class SelectionPrompt {
 public:
  explicit SelectionPrompt(const ACHAR* prompt) : prompt(prompt) {}

  int askMany(Selection::Ids& ids);
  int askOne(Selection::Ids& ids);

 private:
  int useAnswer(const std::vector<std::wstring>& names, Selection::Ids& ids);
  InputQueue::Read ask(std::wstring& token);
  static void addTyped(const std::wstring& token, Selection::Ids& ids);

  const ACHAR* prompt;
};

}  // namespace wb
