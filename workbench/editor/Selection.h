#pragma once

#include <dbid.h>

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "core/Lists.h"

class AcDbDatabase;

namespace wb {

/// What the user picks in the drawing. An entity is named by its block, and repeated names take
/// that block's next references; "#N" is the N-th entity on the tab that is no block reference.
class Selection {
 public:
  using Ids = std::vector<AcDbObjectId>;

  /// The current session's.
  static Selection& instance();

  /// Picks entities of the working drawing's current tab, before any command; no names pick
  /// nothing.
  /// @throws HostError if one isn't there
  void pick(const std::vector<std::wstring>& names);
  /// The user clicks an entity of the working drawing, which adds it to the pick set, or the ground
  /// beside the entities (null), which empties it.
  void click(AcDbObjectId id);
  /// What a prompt for entities takes for an entity that was clicked.
  static std::wstring nameOf(AcDbObjectId id);
  /// Adds the first entity of that name that isn't in `ids`.
  /// @throws HostError if there is none
  static void addNamed(const std::wstring& name, Ids& ids);
  /// Answers the next prompt that isn't answered yet; the single name "none" cancels it.
  void answer(std::vector<std::wstring> names) { answers.push_back(std::move(names)); }
  /// The entities picked in the working drawing that are still there.
  Ids picked() const;
  /// The answer to a prompt, nothing if the user is to be asked.
  std::optional<std::vector<std::wstring>> takeAnswer() { return popFirst(answers); }
  /// A command with these flags begins: the pick set is emptied unless it can use it.
  void commandBegins(int flags);
  /// Forgets picks and answers.
  void clear();
  /// The answers left over, in words.
  std::vector<std::wstring> unused() const;

 private:
  AcDbDatabase* database = nullptr;
  Ids picks;
  std::deque<std::vector<std::wstring>> answers;
};

}  // namespace wb
