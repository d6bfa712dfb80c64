#include "shared/DrawingTest.h"

#include <accmd.h>
#include <acedads.h>
#include <adscodes.h>
#include <dbsymtb.h>
#include <xgraph.h>

#include <acedxref.h>

#include "editor/Selection.h"

namespace {

std::string xrefBlock(const std::string& name, const std::string& path, int flags = 4) {
  return "0 BLOCK\n2 " + name + "\n70 " + std::to_string(flags) + "\n1 " + path + "\n0 ENDBLK\n";
}

std::string drawingOf(const std::string& blocks) {
  return dxf("0 SECTION\n2 BLOCKS\n" + blocks + "0 ENDSEC\n");
}

class XrefTest : public DrawingTest {
 protected:
  // Parent > (Child; Other on no drive), Child > Deep.
  std::unique_ptr<wb::Drawing> openParent() {
    write(folder / L"Sub" / L"Deep.dxf", drawingOf(""));
    write(child, drawingOf(xrefBlock("Deep", "Sub\\Deep.dxf")));
    write(folder / L"parent.dxf", drawingOf(xrefBlock("Child", "..\\drawing\\child.dxf") +
                                            xrefBlock("Other", "Q:\\none\\other.dxf")));
    return open(folder / L"parent.dxf");
  }
  // "name>nested,nested;" of each node in order.
  static std::wstring graph(bool ghosts) {
    AcDbXrefGraph graph;
    EXPECT_EQ(Acad::eOk, acedGetCurDwgXrefGraph(graph, ghosts));
    std::wstring text;
    for (int index = 0; index < graph.numNodes(); ++index) {
      const AcDbXrefGraphNode* node = graph.xrefNode(index);
      text += std::wstring(index ? node->name() : L"root") + L">";
      for (int out = 0; out < node->numOut(); ++out) {
        if (out) text += L",";
        text += static_cast<AcDbXrefGraphNode*>(node->out(out))->name();
      }
      text += L";";
    }
    return text;
  }
  static bool canWrite(const fs::path& path) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    CloseHandle(file);
    return true;
  }

  const fs::path child = folder / L"child.dxf";
  const fs::path deep = folder / L"Sub" / L"Deep.dxf";
};

TEST_F(XrefTest, NestedAndUnresolvedXrefsStandInTheGraph) {
  const auto drawing = openParent();
  EXPECT_EQ(L"root>Child,Other;Child>Deep;Other>;Deep>;", graph(true));
  EXPECT_TRUE(told(L"xref: unresolved Other (Q:\\none\\other.dxf): the file doesn't exist"));
}

TEST_F(XrefTest, ALoadedXrefHoldsItsFileAnUnloadedOneDoesNot) {
  const auto drawing = openParent();
  EXPECT_FALSE(canWrite(child));
  EXPECT_FALSE(canWrite(deep));
  EXPECT_EQ(Acad::eOk, acedXrefUnload(L"child"));
  EXPECT_TRUE(canWrite(child));
  EXPECT_TRUE(canWrite(deep));
  EXPECT_NE(0, drawing->dbmod());
  EXPECT_EQ(L"root>Child,Other;Child>Deep;Other>;Deep>;", graph(true));
  EXPECT_EQ(L"root>Child,Other;Child>;Other>;", graph(false));
  EXPECT_EQ(Acad::eNotApplicable, acedXrefReload(L"Deep"));

  write(child, drawingOf(xrefBlock("Fresh", "Deep.dxf")));
  EXPECT_EQ(Acad::eOk, acedXrefReload(L"Child"));
  EXPECT_EQ(L"root>Child,Other;Child>Fresh;Other>;Fresh>;", graph(true));
  EXPECT_FALSE(canWrite(child));
  EXPECT_EQ(Acad::eKeyNotFound, acedXrefReload(L"Deep"));
  EXPECT_EQ(Acad::eFileNotFound, acedXrefReload(L"Other"));
  EXPECT_EQ(Acad::eKeyNotFound, acedXrefUnload(L"Nobody"));
  drawing->close();
  EXPECT_TRUE(canWrite(child));
}

TEST_F(XrefTest, AFileInUseIsReadAndNotHeld) {
  write(child, drawingOf(""));
  // A stored folder that isn't there: the file is found beside the drawing.
  write(folder / L"parent.dxf", drawingOf(xrefBlock("Child", "Q:\\gone\\child.dxf")));
  std::unique_ptr<wb::Drawing> drawing;
  {
    const HeldOpen editor(child, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ);
    drawing = open(folder / L"parent.dxf");
    EXPECT_TRUE(told(L"xref: loaded Child"));
  }
  EXPECT_TRUE(canWrite(child));
}

TEST_F(XrefTest, CirclesNamesakesAndNestedOverlaysAreLeftOut) {
  write(folder / L"a.dxf", drawingOf(xrefBlock("B", "b.dxf") + xrefBlock("Over", "b.dxf", 12)));
  write(folder / L"b.dxf", drawingOf(xrefBlock("A", "a.dxf") + xrefBlock("Plain", "a.dxf") +
                                     xrefBlock("Self", "parent.dxf")));
  write(folder / L"parent.dxf", drawingOf(xrefBlock("A", "a.dxf", 12) + xrefBlock("B", "b.dxf") +
                                          "0 BLOCK\n2 Plain\n0 ENDBLK\n"));
  const auto drawing = open(folder / L"parent.dxf");
  EXPECT_EQ(L"root>A,B;A>B;B>Self;Self>;", graph(true));
  EXPECT_TRUE(told(L"ignored A, nested in B: it refers back to itself"));
  EXPECT_TRUE(told(L"ignored Plain, nested in B: the drawing has a block of that name"));
  EXPECT_TRUE(told(L"unresolved Self (parent.dxf): it is the drawing itself"));
}

class SelectionTest : public XrefTest {
 protected:
  SelectionTest() {
    drawing = openText(dxf("0 SECTION\n2 BLOCKS\n" + xrefBlock("X", "x.dxf") +
                           "0 ENDSEC\n0 SECTION\n2 ENTITIES\n0 INSERT\n2 X\n0 LINE\n0 INSERT\n2 X\n"
                           "0 INSERT\n67 1\n2 X\n0 ENDSEC\n"));
  }

  std::unique_ptr<wb::Drawing> drawing;
  wb::Selection& selection = wb::Selection::instance();
  ads_name set = {0, 0};
};

TEST_F(SelectionTest, APickSetAnswersTheImpliedAndTheOpenQuestion) {
  EXPECT_EQ(RTERROR, acedSSGet(L"I", nullptr, nullptr, nullptr, set));
  // The third one is on the other tab.
  EXPECT_NE(L"", refusal([&] { selection.pick({L"X", L"X", L"X"}); }));
  EXPECT_NE(L"", refusal([&] { selection.pick({L"#2"}); }));
  selection.pick({L"x", L"#1", L"X"});
  ads_name entity = {0, 0};
  for (const wchar_t* mode : {L"I", static_cast<const wchar_t*>(nullptr)}) {
    ASSERT_EQ(RTNORM, acedSSGet(mode, nullptr, nullptr, nullptr, set));
    long length = 0;
    EXPECT_EQ(RTNORM, acedSSLength(set, &length));
    EXPECT_EQ(3, length);
    EXPECT_EQ(RTERROR, acedSSName(set, 3, entity));
    EXPECT_EQ(RTNORM, acedSSName(set, 1, entity));
    EXPECT_EQ(1u, wb::outstanding(firstTicket).size());
    EXPECT_EQ(RTNORM, acedSSFree(set));
  }
  AcDbObjectId id;
  EXPECT_EQ(Acad::eInvalidAdsName, acdbGetObjectId(id, set));
  EXPECT_EQ(Acad::eOk, acdbGetObjectId(id, entity));
  EXPECT_TRUE(id == drawing->entities(L"#1")[0]);
  selection.commandBegins(ACRX_CMD_REDRAW);
  EXPECT_EQ(3u, selection.picked().size());
  selection.commandBegins(ACRX_CMD_MODAL);
  EXPECT_TRUE(selection.picked().empty());
  EXPECT_EQ(RTERROR, acedSSFree(set));
}

}  // namespace
