#pragma once

namespace tessaro {

/// Told by the xref commands what they did to the state of the current drawing's xrefs.
class XrefStateObserver {
 public:
  /// All xrefs were compared and brought up to date.
  virtual void SetXrefsLatest() = 0;

  /// A version of an xref was chosen; whether it is the latest is for the next check to say.
  virtual void SetXrefsUnknown() = 0;

 protected:
  ~XrefStateObserver() = default;
};

}  // namespace tessaro
