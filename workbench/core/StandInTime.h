#pragma once

namespace wb {

/// The time spent inside the stand-ins, so that a measurement can take it out and is left with the
/// module's own. For the host's thread alone, and only while somebody asks for it.
class StandInTime {
 public:
  /// From here on the time is counted, beginning at 0; or it isn't counted any more.
  static void count(bool on);
  /// What was counted so far, in ticks of the processor's time stamp.
  static unsigned long long ticks();
  /// How often the stand-ins were entered.
  static unsigned long long entries();

 private:
  friend class InStandIn;
  static void enter();
  static void leave();
};

/// Stands in every call of the stand-ins that a measurement is to take out; nested ones count once.
class InStandIn {
 public:
  InStandIn() { StandInTime::enter(); }
  InStandIn(const InStandIn&) = delete;
  InStandIn& operator=(const InStandIn&) = delete;
  ~InStandIn() { StandInTime::leave(); }
};

/// The counterpart: the module at work, called back by a stand-in that is being counted.
class InModule {
 public:
  InModule();
  InModule(const InModule&) = delete;
  InModule& operator=(const InModule&) = delete;
  ~InModule();

 private:
  int depth;
};

}  // namespace wb
