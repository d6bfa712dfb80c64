#pragma once

namespace tessaro {

/// Sets a flag for a scope. At its end the flag has its previous value.
class FlagScope {
 public:
  /// @param set outlives the scope
  explicit FlagScope(bool& set) : flag(set), previous(set) { flag = true; }
  FlagScope(const FlagScope&) = delete;
  FlagScope& operator=(const FlagScope&) = delete;
  ~FlagScope() { flag = previous; }

 private:
  bool& flag;
  const bool previous;
};

}  // namespace tessaro
