#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

#include "core/Accounts.h"

namespace wb {

/// What every object of the client is besides its interfaces: counted, and called something. Each
/// reference has its own entry in the accounts, so a leak shows once for each reference that
/// wasn't given back.
class LiveObject {
 public:
  /// @param label what the object is called in the transcript and in the accounts
  explicit LiveObject(std::wstring label);
  LiveObject(const LiveObject&) = delete;
  LiveObject& operator=(const LiveObject&) = delete;

  const std::wstring& label() const { return label_; }

  /// Whether any object is alive: the client's file can't be unloaded then (DllCanUnloadNow).
  static bool any();

 protected:
  virtual ~LiveObject();

  ULONG addReference();
  ULONG removeReference();

  /// The references that there are now may outlive the command that took them.
  void keepReferences();

  /// S_OK, or the code that a query for this interface of TessaroClient.idl was told to fail with.
  static HRESULT admitInterface(REFIID iid);

 private:
  std::wstring label_;
  std::vector<Ticket> references;
};

/// The label of an object that has a name: its kind and the name in quotes.
std::wstring namedLabel(const std::wstring& kind, std::wstring_view name);

/// The name of an interface of TessaroClient.idl; null for any other.
const wchar_t* interfaceName(REFIID iid);

}  // namespace wb
