#pragma once

namespace wb {

/// The time spent inside the stand-ins, so that a measurement can take it out and is left with the
/// module's own. For the host's thread alone, and only while somebody asks for it.
class StandInTime {
 public:
  /// From here on the time is counted, beginning at 0; or it isn't counted any more.
  void count(bool on);
  /// What was counted so far, in ticks of the processor's time stamp.
  unsigned long long ticks() const { return sum; }
  /// How often the stand-ins were entered.
  unsigned long long entries() const { return entered; }

 private:
  friend class InStandIn;
  friend class InModule;

  bool counting = false;
  int depth = 0;
  unsigned long long begun = 0;
  unsigned long long sum = 0;
  unsigned long long entered = 0;
};

/// Stands in every call of the stand-ins; nested ones count once.
class InStandIn {
 public:
  InStandIn();
  InStandIn(const InStandIn&) = delete;
  ~InStandIn();

 private:
  StandInTime* const time;  ///< null outside a session
};

/// The counterpart: the module at work, called back by a stand-in that is being counted.
class InModule {
 public:
  InModule();
  InModule(const InModule&) = delete;
  ~InModule();

 private:
  StandInTime* const time;
  int depth = 0;
};

}  // namespace wb
