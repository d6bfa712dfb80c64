#pragma once

#include <acedads.h>
#include <dbid.h>

namespace tessaro {

/// Owner of a selection set of the host.
class SelectionSet {
 public:
  SelectionSet() = default;
  SelectionSet(const SelectionSet&) = delete;
  SelectionSet& operator=(const SelectionSet&) = delete;
  ~SelectionSet();

  /// Makes a selection (acedSSGet without a filter). To be called once.
  /// @param mode L"I" for the objects selected before the command, null for the host's prompt
  /// @return the host's result; the set is empty unless it is RTNORM
  int get(const ACHAR* mode);

  /// @return the number of entities, -1 on failure
  long length() const;

  /// Reads the id of an entity.
  /// @return false on failure
  bool at(long index, AcDbObjectId& id) const;

 private:
  ads_name name{};
  bool held = false;
};

}  // namespace tessaro
