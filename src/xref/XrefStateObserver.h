#pragma once

namespace tessaro {

/// Notified by the xref commands of changes to the current drawing's xrefs.
class XrefStateObserver {
 public:
  /// All xrefs are up to date.
  virtual void SetXrefsLatest() = 0;

  /// A version of an xref was fetched; whether it is the latest is unknown until the next check.
  virtual void SetXrefsUnknown() = 0;

 protected:
  ~XrefStateObserver() = default;
};

}  // namespace tessaro
