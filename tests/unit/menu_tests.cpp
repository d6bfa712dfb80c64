#include <gtest/gtest.h>

#include <vector>

#include "ui/XRefContext.h"

namespace tessaro {

namespace {

struct FoldCase {
  std::vector<CheckOutState> states;
  bool canCheckIn, canCheckOut, inVault, checkInGrayed;
};

TEST(XrefMenu, EverySelectedXrefHasAVeto) {
  const auto none = CheckOutState::notInVault, here = CheckOutState::checkedOutHere,
             elsewhere = CheckOutState::checkedOutElsewhere, free = CheckOutState::notCheckedOut;
  const FoldCase cases[] = {
      {{none}, false, false, false, false},       {{here}, true, false, true, false},
      {{elsewhere}, true, false, true, true},     {{free}, false, true, true, false},
      {{here, here}, true, false, true, false},   {{here, free}, false, false, true, false},
      {{free, here}, false, false, true, false},  {{elsewhere, here}, true, false, true, true},
      {{free, free}, false, true, true, false},   {{here, none}, false, false, false, false},
      {{none, free}, false, false, false, false},
  };
  for (const FoldCase& each : cases) {
    XrefMenuFlags flags;
    for (const CheckOutState state : each.states) flags.fold(state);
    EXPECT_EQ(flags.canCheckIn, each.canCheckIn);
    EXPECT_EQ(flags.canCheckOut, each.canCheckOut);
    EXPECT_EQ(flags.inVault, each.inVault);
    EXPECT_EQ(flags.checkInGrayed, each.checkInGrayed);
  }
}

}  // namespace

}  // namespace tessaro
