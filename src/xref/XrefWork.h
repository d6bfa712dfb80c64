#pragma once

namespace tessaro {

/// Work on xrefs and their files for as long as it lives. The client may show windows of its own
/// meanwhile, which let the timer and the user's clicks through; what they ask for would begin in
/// the middle of this work, with xrefs unloaded.
class XrefWork {
 public:
  XrefWork() : within(going) { going = true; }
  XrefWork(const XrefWork&) = delete;
  XrefWork& operator=(const XrefWork&) = delete;
  ~XrefWork() { going = within; }

  /// Whether there is such work at the moment, be it a command's or the status window's.
  static bool goesOn() { return going; }

 private:
  static inline bool going = false;

  const bool within;
};

}  // namespace tessaro
