#include <gtest/gtest.h>

#include "titleblock/MatchTag.h"
#include "ui/XRefContext.h"

namespace {

struct TagCase {
  const wchar_t* tag;
  const wchar_t* pattern;
  bool matches;
};

TEST(MatchTag, TakesStarsAtBothEnds) {
  const TagCase cases[] = {
      {L"TITLE", L"title", true},
      {L"TITLE1", L"TITLE", false},
      {L"TITLE1", L"Title*", true},
      {L"TITLE", L"TITLE*", true},
      {L"SUBTITLE", L"TITLE*", false},
      {L"DRAWING_NO", L"*no", true},
      {L"NOTE", L"*NO", false},
      {L"DRAWING_NO", L"*DRAW*", true},
      {L"DRAWING_NO", L"*WING*", true},
      {L"DRAWING_NO", L"*X*", false},
      {L"ANYTHING", L"*", true},
      {L"", L"*", true},
      {L"*X", L"**X", true},
      {L"AX", L"**X", false},
      {L"X*", L"X**", true},
      {L"XA", L"X**", false},
      {L"A*B", L"A*B", true},
      {L"AxB", L"A*B", false},
      {L"*", L"**", true},
      {L"A", L"**", false},
      {L"\u00fcber", L"*\u00dcBER", true},
      {L"NO", L"*DRAWING_NO", false},
  };
  for (const TagCase& each : cases) {
    EXPECT_EQ(MatchTag(each.tag, each.pattern), each.matches)
        << CString(each.tag).size() << " " << std::string(each.pattern, each.pattern + 3);
  }
}

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
