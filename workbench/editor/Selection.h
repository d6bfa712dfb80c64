#pragma once

#include <dbid.h>
#include <dbidar.h>

#include <deque>
#include <string>
#include <vector>

class AcDbDatabase;

namespace wb {

/// What the user picks in the drawing. An entity is named by its block, and repeated names take
/// that block's next references; "#N" is the N-th entity on the tab that is no block reference.
class Selection {
 public:
  static Selection& instance();

  /// Picks entities of the working drawing's current tab, before any command; no names pick
  /// nothing. False, with the reason, if one isn't there.
  bool pick(const std::vector<std::wstring>& names, std::wstring& error);
  /// Answers the next prompt that isn't answered yet; the single name "none" cancels it.
  void answer(std::vector<std::wstring> names) { answers.push_back(std::move(names)); }
  /// The entities picked in the working drawing that are still there.
  AcDbObjectIdArray picked() const;
  /// A command with these flags begins: the pick set is gone unless it can use it.
  void commandBegins(int flags);
  /// Forgets picks and answers.
  void clear();
  /// The answers left over, in words.
  std::vector<std::wstring> unused() const;

 private:
  friend class SelectionPrompt;
  AcDbDatabase* database = nullptr;
  std::vector<AcDbObjectId> picks;
  std::deque<std::vector<std::wstring>> answers;
};

}  // namespace wb
