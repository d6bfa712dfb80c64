// What is drawn of a drawing, and where.

#include <dbapserv.h>
#include <dbents.h>

#include <cstdio>
#include <sstream>

#include "database/Xrefs.h"
#include "shared/DrawingTest.h"
#include "view/Builder.h"
#include "view/Font.h"
#include "view/Painter.h"
#include "view/TextCodes.h"

namespace {

using wb::DisplayList;
using wb::Point;
using Kind = DisplayList::Kind;

constexpr COLORREF red = RGB(255, 0, 0), green = RGB(0, 255, 0);

std::string entities(const std::string& groups) {
  return "0 SECTION\n2 ENTITIES\n" + groups + "0 ENDSEC\n";
}

class View : public DrawingTest {
 protected:
  /// What is seen: each item's kind, colour and points, coordinates in tenths.
  static std::vector<std::string> seen(const DisplayList& list) {
    static const char* const kinds[] = {"line", "area", "arc", "text", "dot", "label"};
    std::vector<std::string> all;
    for (const DisplayList::Item& item : list.items) {
      std::ostringstream text;
      text << kinds[static_cast<int>(item.kind)];
      if (item.color == red) text << " red";
      if (item.color == green) text << " green";
      const auto add = [&](Point p) {
        text << ' ' << std::lround(p.x * 10) << ',' << std::lround(p.y * 10);
      };
      const Point* const points = &list.points[item.first];
      if (item.kind == Kind::arc) {
        for (const double share : {0.0, 0.5, 1.0}) add(list.arcPoint(item, share));
      } else {
        const bool named = item.kind == Kind::text || item.kind == Kind::label;
        for (size_t at = 0; at < (named ? 1 : item.count); ++at) add(points[at]);
        if (named) text << ' ' << wb::toUtf8(list.texts[item.text]);
      }
      all.push_back(text.str());
    }
    return all;
  }
  DisplayList shown(const std::string& groups) {
    drawing = openText(dxf(groups));
    return wb::displayListOf(*drawing);
  }

  std::unique_ptr<wb::Drawing> drawing;
};

using Seen = std::vector<std::string>;

TEST_F(View, CurvesRunWhereTheirNumbersSay) {
  const DisplayList list = shown(entities(
      "0 ARC\n8 0\n10 1\n20 2\n40 2\n50 270\n51 90\n"
      "0 ARC\n8 0\n10 5\n20 0\n40 1\n50 0\n51 180\n230 -1\n"
      "0 ELLIPSE\n8 0\n10 0\n20 0\n11 0\n21 4\n40 0.5\n41 0\n42 3.14159265\n"
      "0 LWPOLYLINE\n8 0\n70 1\n10 0\n20 0\n42 1\n10 2\n20 0\n10 2\n20 5\n"
      "0 POLYLINE\n8 0\n70 0\n0 VERTEX\n8 0\n10 0\n20 0\n42 -1\n0 VERTEX\n8 0\n10 4\n20 0\n"
      "0 SEQEND\n0 SOLID\n8 0\n10 0\n20 0\n11 1\n21 0\n12 0\n22 1\n13 1\n23 1\n"
      "0 LWPOLYLINE\n8 0\n43 2\n10 0\n20 0\n10 10\n20 0\n0 POINT\n8 0\n10 3\n20 4\n"));
  EXPECT_EQ(seen(list),
            (Seen{"arc 10,0 30,20 10,40", "arc -60,0 -50,10 -40,0", "arc 0,40 -20,0 0,-40",
                  "arc 0,0 10,-10 20,0", "line 20,0 20,50 0,0", "arc 0,0 20,20 40,0",
                  "area 0,0 10,0 10,10 0,10", "area 0,10 100,10 100,-10 0,-10", "dot 30,40"}));
}

TEST_F(View, ColoursAndLayersComeFromEntityLayerAndBlock) {
  const std::string tables =
      "0 SECTION\n2 TABLES\n0 TABLE\n2 LAYER\n70 3\n0 LAYER\n2 Red\n70 0\n62 1\n"
      "0 LAYER\n2 OFF\n70 0\n62 -3\n0 LAYER\n2 Cold\n70 1\n62 3\n0 ENDTAB\n0 ENDSEC\n";
  const std::string line = "10 0\n20 0\n11 1\n21 0\n";
  const std::string blocks =
      "0 SECTION\n2 BLOCKS\n0 BLOCK\n8 0\n2 B\n70 0\n10 0\n20 0\n"
      "0 LINE\n8 0\n62 0\n" +
      line + "0 LINE\n8 0\n" + line + "0 LINE\n8 RED\n" + line + "0 ENDBLK\n8 0\n0 ENDSEC\n";
  const DisplayList list =
      shown(tables + blocks +
            entities("0 LINE\n8 red\n" + line + "0 LINE\n8 0\n62 3\n" + line + "0 LINE\n8 Off\n" +
                     line + "0 LINE\n8 COLD\n" + line + "0 LINE\n8 0\n60 1\n" + line +
                     "0 INSERT\n8 0\n62 3\n2 B\n10 0\n20 0\n0 INSERT\n8 Off\n2 B\n10 0\n20 0\n"
                     "0 INSERT\n8 Cold\n2 B\n10 0\n20 0\n"));
  const std::string at = "0,0 10,0";
  EXPECT_EQ(seen(list), (Seen{"line red " + at, "line green " + at, "line green " + at,
                              "line " + at, "line red " + at, "line red " + at}));
}

TEST_F(View, BlocksAreScaledTurnedNestedAndRepeated) {
  const std::string blocks =
      "0 SECTION\n2 BLOCKS\n0 BLOCK\n8 0\n2 IN\n70 0\n10 1\n20 1\n"
      "0 LINE\n8 0\n10 1\n20 1\n11 3\n21 1\n0 ENDBLK\n8 0\n"
      "0 BLOCK\n8 0\n2 OUT\n70 0\n10 0\n20 0\n0 INSERT\n8 0\n2 In\n10 5\n20 0\n50 90\n"
      "0 ATTDEF\n8 0\n10 0\n20 0\n40 1\n1 x\n2 TAG\n70 0\n0 ENDBLK\n8 0\n"
      "0 BLOCK\n8 0\n2 LOOP\n70 0\n10 0\n20 0\n0 INSERT\n8 0\n2 LOOP\n10 0\n20 0\n"
      "0 ENDBLK\n8 0\n0 ENDSEC\n";
  const DisplayList list = shown(
      blocks + entities("0 INSERT\n8 0\n2 OUT\n10 10\n20 0\n41 -2\n42 3\n"
                        "0 INSERT\n8 0\n66 1\n2 IN\n10 0\n20 0\n70 2\n71 2\n44 4\n45 5\n50 90\n"
                        "0 ATTRIB\n8 0\n10 1\n20 1\n40 1\n1 A\n2 T\n70 0\n"
                        "0 ATTRIB\n8 0\n10 1\n20 1\n40 1\n1 hidden\n2 U\n70 1\n0 SEQEND\n"
                        "0 INSERT\n8 0\n2 LOOP\n10 0\n20 0\n0 INSERT\n8 0\n2 NONE\n10 0\n20 0\n"
                        "0 BODY\n8 0\n"));
  EXPECT_EQ(seen(list), (Seen{"line 0,0 0,60", "line 0,0 0,20", "text 10,10 A", "line 0,40 0,60",
                              "text 10,50 A", "line -50,0 -50,20", "text -40,10 A",
                              "line -50,40 -50,60", "text -40,50 A"}));
  EXPECT_EQ(list.leftOut, (std::map<std::string, int>{{"BODY", 1}, {"INSERT", 2}}));
}

TEST_F(View, TextStandsWhereItsAlignmentSays) {
  const std::string text = "0 TEXT\n8 0\n10 0\n20 0\n40 2\n1 HH\n";
  const DisplayList list =
      shown(entities(text + text + "11 50\n21 50\n72 2\n73 3\n" + text + "11 10\n21 0\n72 5\n" +
                     "0 MTEXT\n8 0\n10 0\n20 9\n40 3\n71 1\n41 0\n1 {\\H2x;one}\\Ptwo\n"));
  const double wide = wb::textWidth(L"HH");
  EXPECT_EQ(seen(list)[0], "text 0,0 HH");
  EXPECT_EQ(seen(list)[1], "text " + std::to_string(std::lround(500 - wide * 20)) + ",480 HH");
  const Point along = list.points[list.items[2].first + 1];
  EXPECT_NEAR(along.x * wide, 10, 1e-6) << "not fitted between its points";
  EXPECT_EQ(seen(list)[3], "text 0,60 one");
  EXPECT_EQ(seen(list)[4], "text 0,10 two");
}

TEST_F(View, CodesOfTextAreNotSeen) {
  EXPECT_EQ(wb::shownText(L"%%c20 %%D %%p1 %%65%%u!%%%"), L"\u00D820 \u00B0 \u00B11 A!%");
  EXPECT_EQ(wb::shownLines(L"{\\fArial|b0;A}\\~\\S1/2;\\P\\C1;\\Lx\\l \\{y\\} \\\\"),
            (std::vector<std::wstring>{L"A\u00A0"
                                       L"1/2",
                                       L"x {y} \\"}));
  EXPECT_EQ(wb::shownLines(L"\\"), (std::vector<std::wstring>{L"\\"}));
}

TEST_F(View, AChangedAttributeAndALayoutAreSeenAtOnce) {
  drawing = open(projectFolder() / L"workbench/drawings/Site/Plan.dxf");
  ASSERT_TRUE(drawing->setCurrentLayout(L"Layout1"));
  const auto holds = [&](const std::wstring& text) {
    const std::vector<std::wstring> texts = wb::displayListOf(*drawing).texts;
    return std::find(texts.begin(), texts.end(), text) != texts.end();
  };
  EXPECT_FALSE(holds(L"Pump house"));
  const unsigned before = drawing->revision();
  const AcDbObjectId block = drawing->entities(L"A1_TITLE").at(0);
  const auto* reference = static_cast<const wb::ReferenceImp*>(AcDbObjectImp::find(block));
  AcDbText* attribute = nullptr;
  ASSERT_EQ(acdbOpenObject(attribute, reference->attributes.at(0)->id, AcDb::kForWrite), Acad::eOk);
  EXPECT_EQ(attribute->setTextString(L"Pump house"), Acad::eOk);
  attribute->close();
  EXPECT_TRUE(holds(L"Pump house"));
  EXPECT_NE(drawing->revision(), before);
  ASSERT_TRUE(drawing->erase(block));
  EXPECT_FALSE(holds(L"Pump house"));
}

TEST_F(View, XrefsAreSeenAsLoadedAndPickedByAClick) {
  drawing = open(projectFolder() / L"workbench/drawings/Site/Plan.dxf");
  const auto labels = [&] {
    std::vector<std::wstring> names;
    const DisplayList list = wb::displayListOf(*drawing);
    for (const DisplayList::Item& item : list.items) {
      if (item.kind == Kind::label) names.push_back(list.texts[item.text]);
    }
    return names;
  };
  EXPECT_EQ(labels(), (std::vector<std::wstring>{L"Outside"}));
  const DisplayList list = wb::displayListOf(*drawing);
  const SIZE window{800, 600};
  const wb::Camera camera = wb::Camera::fitting(list.extents, window);
  const auto clicked = [&](Point place) {
    const Point pixel = camera.toWindow(place, window);
    const auto* hit =
        wb::referenceAt({std::lround(pixel.x), std::lround(pixel.y)}, window, list, camera);
    return hit ? hit->id : AcDbObjectId();
  };
  const Point grid = list.points[list.items[list.references.at(0).first].first];
  EXPECT_EQ(clicked(grid + Point{30000, 6000}), drawing->entities(L"Grid").at(0));
  EXPECT_TRUE(clicked(grid + Point{57000, 57000}).isNull()) << "a hit between the lines";
  drawing->xrefs().unload(L"Grid");
  EXPECT_EQ(labels(), (std::vector<std::wstring>{L"Grid", L"Outside"}));
  drawing->xrefs().reload(L"Grid");
  EXPECT_EQ(labels(), (std::vector<std::wstring>{L"Outside"}));
}

/// What this thread has used of the processor, in seconds; others' work on the machine doesn't
/// count.
double secondsWorked() {
  FILETIME made, ended, kernel, user;
  if (!GetThreadTimes(GetCurrentThread(), &made, &ended, &kernel, &user)) return 0;
  return (kernel.dwLowDateTime + user.dwLowDateTime) / 1e7;
}

TEST_F(View, AHundredThousandEntitiesAreShownWithinASecond) {
  std::ostringstream groups;
  for (int at = 0; at < 100000; ++at) {
    const int x = at % 400, y = at / 400;
    groups << (at % 2 ? "0 LINE" : "0 CIRCLE") << "\n8 0\n10 " << x << "\n20 " << y;
    if (at % 2) {
      groups << "\n11 " << x << ".8\n21 " << y << ".5\n";
    } else {
      groups << "\n40 0.4\n";
    }
  }
  drawing = openText(dxf(entities(groups.str())));
  const double start = secondsWorked();
  const DisplayList list = wb::displayListOf(*drawing);
  const double made = secondsWorked();
  const SIZE window{952, 525};
  const HDC screen = GetDC(nullptr);
  const HDC context = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, window.cx, window.cy);
  const HGDIOBJ before = SelectObject(context, bitmap);
  wb::paint(context, window, list, wb::Camera::fitting(list.extents, window), {});
  GdiFlush();
  EXPECT_EQ(GetPixel(context, 0, 0), RGB(33, 40, 48));
  SelectObject(context, before);
  DeleteObject(bitmap);
  DeleteDC(context);
  ReleaseDC(nullptr, screen);
  const double painted = secondsWorked();
  EXPECT_EQ(list.items.size(), 100000u);
  EXPECT_GT(painted, start);
  EXPECT_LT(painted - start, 1) << made - start << " s of it for the list";
  std::printf("100,000 entities: %.2f s for the list, %.2f s to paint\n", made - start,
              painted - made);
}

}  // namespace
