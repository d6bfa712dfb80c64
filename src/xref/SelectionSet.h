#pragma once

#include <acedads.h>
#include <dbid.h>

namespace tessaro {

/// A selection set of the host, freed with its holder.
class SelectionSet {
 public:
  SelectionSet() = default;
  SelectionSet(const SelectionSet&) = delete;
  SelectionSet& operator=(const SelectionSet&) = delete;
  ~SelectionSet();

  /// Asks the host for a selection (acedSSGet without a filter); once for each holder.
  /// @param mode L"I" for what was picked before the command, null for the host's own prompt.
  /// @return RTNORM, or the host's other result; then the set is empty.
  int get(const ACHAR* mode);

  /// Number of entities, or -1 if the host doesn't tell.
  long length() const;

  /// The id of the entity at `index`; false if the host doesn't give it.
  bool at(long index, AcDbObjectId& id) const;

 private:
  ads_name name{};
  bool held = false;
};

}  // namespace tessaro
