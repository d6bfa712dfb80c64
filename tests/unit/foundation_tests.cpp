#include <gtest/gtest.h>

#include <comdef.h>

#include <vector>

#include "foundation/ArxPtr.h"
#include "foundation/CMap.h"
#include "foundation/CString.h"
#include "foundation/DelPtr.h"
#include "foundation/FormatText.h"
#include "foundation/HostMemory.h"
#include "foundation/Lst.h"

namespace tessaro {

namespace {

/// Counts the copies of itself that are alive.
struct Counted {
  explicit Counted(int number = 0) : number(number) { ++alive; }
  Counted(const Counted& other) : number(other.number) { ++alive; }
  Counted& operator=(const Counted&) = default;
  ~Counted() { --alive; }

  int number;
  static inline int alive = 0;
};

/// A host object that counts what is done to it.
struct HostObject {
  HostObject() = default;
  explicit HostObject(int* deleted) : deleted(deleted) {}
  ~HostObject() {
    if (deleted != nullptr) ++*deleted;
  }
  void close() { ++closed; }

  int closed = 0;
  int* deleted = nullptr;
};

}  // namespace

TEST(Lst, KeepsOrderAndCanBeFilledAgainAfterItWasEmpty) {
  Lst<int> list;
  for (int round = 0; round < 2; ++round) {
    list.pushBack(1);
    list.pushBack(2);
    list.pushBack(3);
    EXPECT_EQ(list.size(), 3);
    EXPECT_EQ(list.first()->next->prev, list.first());
    EXPECT_EQ(list.popFront(), 1);
    EXPECT_EQ(list.first()->prev, nullptr);
    EXPECT_EQ(list.popFront(), 2);
    EXPECT_EQ(list.popFront(), 3);
    EXPECT_TRUE(list.isEmpty());
    EXPECT_EQ(list.size(), 0);
  }
}

TEST(Lst, ReleasesEachValueOnce) {
  {
    Lst<Counted> list;
    for (int number = 0; number < 4; ++number) list.pushBack(Counted(number));
    EXPECT_EQ(Counted::alive, 4);
    EXPECT_EQ(list.popFront().number, 0);
    EXPECT_EQ(Counted::alive, 3);
  }
  EXPECT_EQ(Counted::alive, 0);

  _bstr_t text(L"shared");
  {
    Lst<_bstr_t> list;
    list.pushBack(_bstr_t(text));
    list.pushBack(_bstr_t(text));
    EXPECT_STREQ(list.popFront(), L"shared");
  }
  // Detach works on the last reference only, and not on a string that is gone.
  BSTR last = nullptr;
  ASSERT_NO_THROW(last = text.Detach());
  EXPECT_STREQ(last, L"shared");
  SysFreeString(last);
}

TEST(Lst, TakesATextOverFromItsHolder) {
  _bstr_t text(L"taken");
  Lst<_bstr_t> list;
  list.pushBack(std::move(text));
  EXPECT_TRUE(!text);  // NOLINT(bugprone-use-after-move): that it is empty is what counts
  _bstr_t taken = list.popFront();
  BSTR only = nullptr;
  ASSERT_NO_THROW(only = taken.Detach()) << "nobody else holds it";
  EXPECT_STREQ(only, L"taken");
  SysFreeString(only);
}

TEST(CMap, KeepsFirstValueOfAKeyAndTheOrderOfInsertion) {
  CMap<CString, const CString&, int, int> map;
  map.setAt(L"second", 1);
  map.setAt(L"first", 2);
  map.setAt(L"second", 3);
  map.setAt(L"", 4);
  EXPECT_EQ(map.size(), 3u);
  EXPECT_EQ(map.lookup(L"second")->value, 1);
  EXPECT_EQ(map.lookup(L"Second"), nullptr);
  std::vector<CString> keys;
  map.forEach([&](const auto& element) { keys.push_back(element.key); });
  EXPECT_EQ(keys, (std::vector<CString>{L"second", L"first", L""}));
}

TEST(CMap, FindsAKeyWhoseValueIsNull) {
  CMap<int, int, HostObject*, HostObject*> map;
  map.setAt(7, nullptr);
  ASSERT_NE(map.lookup(7), nullptr);
  EXPECT_EQ(map.lookup(7)->value, nullptr);
  EXPECT_EQ(map.lookup(8), nullptr);
}

TEST(CMap, DeletesItsElementsButNotWhatTheyPointTo) {
  HostObject object;
  {
    CMap<int, int, Counted, const Counted&> map;
    CMap<int, int, HostObject*, HostObject*> pointers;
    map.setAt(1, Counted(1));
    map.setAt(1, Counted(2));
    map.setAt(2, Counted(3));
    pointers.setAt(1, &object);
    EXPECT_EQ(Counted::alive, 2);
    map.clear();
    EXPECT_EQ(Counted::alive, 0);
    EXPECT_EQ(map.lookup(1), nullptr);
    map.setAt(1, Counted(4));
    EXPECT_EQ(map.lookup(1)->value.number, 4);
  }
  EXPECT_EQ(Counted::alive, 0);
  EXPECT_EQ(object.closed, 0);
}

TEST(ArxPtr, ClosesEachObjectOnce) {
  HostObject first, second, third;
  {
    const ArxPtr<HostObject> nothing;
    ArxPtr<HostObject> early(&first);
    early.close();
    EXPECT_FALSE(early);
    ArxPtr<HostObject> refilled(&second);
    refilled.out() = &third;
    EXPECT_EQ(second.closed, 1);
    EXPECT_EQ(third.closed, 0);
  }
  EXPECT_EQ(first.closed, 1);
  EXPECT_EQ(second.closed, 1);
  EXPECT_EQ(third.closed, 1);
}

TEST(DelPtr, DeletesEachObjectOnce) {
  int deleted = 0;
  {
    const DelPtr<HostObject> nothing;
    DelPtr<HostObject> iterator(new HostObject(&deleted));
    iterator.out() = new HostObject(&deleted);
    EXPECT_EQ(deleted, 1);
  }
  EXPECT_EQ(deleted, 2);
}

TEST(EqualIgnoringCase, ComparesLetterByLetter) {
  EXPECT_TRUE(equalIgnoringCase(L"C:\\View\\\u00C4nderung.DWG", L"c:\\view\\\u00E4nderung.dwg"));
  EXPECT_FALSE(equalIgnoringCase(L"stra\u00DFe", L"strasse"));
  // A dictionary would skip the hyphen.
  EXPECT_FALSE(equalIgnoringCase(L"co-op.dwg", L"coop.dwg"));
  EXPECT_FALSE(equalIgnoringCase(L"a", L"ab"));
  EXPECT_TRUE(equalIgnoringCase(L"", L""));
}

TEST(FormatText, FillsValuesInOrder) {
  const CString name = L"plan.dwg";
  EXPECT_EQ(formatText(L"'%s' v%d", {name, 3}), L"'plan.dwg' v3");
  EXPECT_EQ(formatText(L"<%s> %s", {L"", name}), L"<> plan.dwg");
  EXPECT_EQ(formatText(L"%d.%d < %d.%d", {4L, 9L, -1, 0}), L"4.9 < -1.0");
  EXPECT_EQ(formatText(L"%s", {_bstr_t(L"wide")}), L"wide");
  EXPECT_EQ(formatText(L"%s", {static_cast<const wchar_t*>(nullptr)}), L"");
  EXPECT_EQ(formatText(L"0x%X %x %u", {-1, 0xAB, 7}), L"0xFFFFFFFF ab 7");
  EXPECT_EQ(formatText(static_cast<const wchar_t*>(nullptr), {1}), L"");
  EXPECT_EQ(formatText(_bstr_t(L"%d"), {5}), L"5");
  // A value's own percent signs are text.
  EXPECT_EQ(formatText(L"%s %s", {L"100%s", L"x"}), L"100%s x");
}

TEST(FormatText, TakesFlagsWidthPrecisionAndSize) {
  EXPECT_EQ(formatText(L"[%5d][%-5d][%05d][%+d][% d]", {1, 2, 3, 4, 5}),
            L"[    1][2    ][00003][+4][ 5]");
  EXPECT_EQ(formatText(L"[%4s][%-4s][%.2s][%5.1s]", {L"ab", L"ab", L"abc", L"abc"}),
            L"[  ab][ab  ][ab][    a]");
  EXPECT_EQ(formatText(L"[%.3d][%#x][%ld][%ls][%hd]", {7, 255, 8, L"s", 9}),
            L"[007][0xff][8][s][9]");
  EXPECT_EQ(formatText(L"%500d", {1}).size(), 500u);
  EXPECT_EQ(formatText(L"%500s", {L"x"}).size(), 500u);
}

TEST(FormatText, LeavesAloneWhatItCannotFill) {
  EXPECT_EQ(formatText(L"%d and %d", {1}), L"1 and %d");
  EXPECT_EQ(formatText(L"%s", {}), L"%s");
  EXPECT_EQ(formatText(L"one", {1, L"two"}), L"one");
  // The value of a placeholder that doesn't fit isn't the next one's.
  EXPECT_EQ(formatText(L"%s.%d of %d", {5, 1, 4}), L"%s.1 of 4");
  EXPECT_EQ(formatText(L"%d %s", {L"text", L"next"}), L"%d next");
  EXPECT_EQ(formatText(L"%501d %5000d %d", {1, 2, 3}), L"%501d %5000d 3");
  EXPECT_EQ(formatText(L"%99999999999999999999s %d", {L"x", 2}), L"%99999999999999999999s 2");
  EXPECT_EQ(formatText(L"%.99999999999999999999d", {1}), L"%.99999999999999999999d");
  EXPECT_EQ(formatText(L"100% of %s", {L"x"}), L"100% of x");
  EXPECT_EQ(formatText(L"no place", {L"x"}), L"no place");
  EXPECT_EQ(formatText(L"%n%n%n%p %s", {L"x"}), L"%n%n%n%p x");
  EXPECT_EQ(formatText(L"%s: a number %d", {L"x"}), L"x: a number %d");
  EXPECT_EQ(formatText(L"%s %", {L"x"}), L"x %");
  EXPECT_EQ(formatText(L"%999999999s", {L"x"}), L"%999999999s");
  EXPECT_EQ(formatText(L"%n %p %f %*d %", {1, 2}), L"%n %p %f %*d %");
}

TEST(FormatText, PercentSigns) {
  EXPECT_EQ(formatText(L"100%% of %s", {L"x"}), L"100% of x");
  EXPECT_EQ(formatText(L"%%d%%%d", {1}), L"%d%1");
  EXPECT_EQ(formatText(L"50%", {1}), L"50%");
  EXPECT_EQ(formatText(L"%", {}), L"%");
  EXPECT_EQ(formatText(L"%-", {1}), L"%-");
  EXPECT_EQ(formatText(L"%5.", {1}), L"%5.");
  EXPECT_EQ(formatText(L"", {1}), L"");
}

int busyBlocks(HANDLE heap) {
  PROCESS_HEAP_ENTRY entry{};
  int count = 0;
  while (HeapWalk(heap, &entry)) {
    if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) ++count;
  }
  return count;
}

TEST(HostMemory, GoesBackToTheHeapThatItCameFrom) {
  const HANDLE heap = HeapCreate(0, 0, 0);
  const int before = busyBlocks(heap);
  void* const block = HeapAlloc(heap, 0, 32);
  ASSERT_EQ(busyBlocks(heap), before + 1);
  freeHostMemory(block);
  EXPECT_EQ(busyBlocks(heap), before);
  int ofNoHeap = 7;
  freeHostMemory(&ofNoHeap);
  freeHostMemory(nullptr);
  EXPECT_EQ(ofNoHeap, 7);
  HeapDestroy(heap);
}

}  // namespace tessaro
