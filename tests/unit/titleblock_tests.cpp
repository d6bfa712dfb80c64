#include <gtest/gtest.h>

#include "titleblock/MatchTag.h"

namespace tessaro {

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
      {L"TITLE", L"TITLE1", false},
      {L"A[1]", L"a{1]", false},
      {L"DRAWING_NO", L"drawing-no", false},
      {L"Drawing_No", L"DRAWING_nO", true},
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

}  // namespace

}  // namespace tessaro
