#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/Accounts.h"

namespace wb {

struct ReleaseReference {
  void operator()(IUnknown* object) const { object->Release(); }
};

/// A reference that is released at the end of the scope.
template <class Interface>
using Owned = std::unique_ptr<Interface, ReleaseReference>;

/// What every object of the client is besides its interfaces: counted, and labelled. Each reference
/// has its own entry in the accounts, so a leak shows once for each reference that wasn't released.
class LiveObject {
 public:
  /// @param label what the object is called in the transcript and in the accounts
  explicit LiveObject(std::wstring label);
  LiveObject(const LiveObject&) = delete;
  LiveObject& operator=(const LiveObject&) = delete;

  const std::wstring& label() const { return label_; }

  /// The references that there are now may outlive the command that took them.
  void keepReferences();

  /// Whether any object is alive: the client's file can't be unloaded then (DllCanUnloadNow).
  static bool any();

 protected:
  virtual ~LiveObject();

  ULONG addReference();
  ULONG removeReference();

  /// The result of a query for an interface that the object has. One of TessaroClient.idl can be
  /// made to fail, which is reported.
  static HRESULT queryResult(const std::wstring& name, bool isAvailable);

 private:
  std::wstring label_;
  std::vector<Ticket> references;
};

/// The label of an object that has a name: its kind and the name in quotes.
std::wstring namedLabel(const std::wstring& kind, std::wstring_view name);

}  // namespace wb
