#pragma once

#include <string>

#include "client/ComObject.h"
#include "TessaroClient.h"

namespace wb {

struct NamedState {
  long id = 0;
  std::wstring name;
};

/// VaultObject of whatever a vault holds.
class NamedPart : public Dual<VaultObject> {
 public:
  explicit NamedPart(const NamedState& state) : state(state) {}

  STDMETHODIMP id(LONG* result) override;
  STDMETHODIMP name(BSTR* result) override;

 private:
  NamedState state;
};

/// An object that is only named: a workflow state, a user, the root folder.
/// @param kind what it is, for its label
Owned<VaultObject> namedObject(const std::wstring& kind, const NamedState& state);

/// The id of what the store knows by its name alone, a state or a user: equal names have equal ids.
long idOfName(const std::wstring& name);

}  // namespace wb
