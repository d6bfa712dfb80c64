// The commands `update` and `updatecurrent` in the host.

#include <cstring>
#include <map>

#include "database/Drawing.h"
#include "editor/Host.h"
#include "faults/Faults.h"
#include "shared/DrawingTest.h"
#include "shared/ModuleSession.h"

namespace {

/// A drawing of the oldest kind: the block NAMEPLATE in model space, on the sheet, and inside the
/// block FRAME, its second attribute aligned to the right. FRAME has no definitions of attributes,
/// though its reference has the same two.
std::string namePlates() {
  const auto reference = [](const std::string& block, const std::string& space,
                            const std::string& before) {
    const std::string place = "8 0\n" + space;
    return "0 INSERT\n" + place + "66 1\n2 " + block + "\n10 0.0\n20 0.0\n0 ATTRIB\n" + place +
           "10 0.0\n20 0.0\n40 3.5\n1 " + before + "\n2 GR\xd6SSE\n70 0\n0 ATTRIB\n" + place +
           "10 0.0\n20 0.0\n40 3.5\n1 " + before + "\n2 SCALE\n70 0\n72 2\n11 9.0\n21 0.0\n" +
           "0 SEQEND\n" + place;
  };
  const std::string definition =
      "0 BLOCK\n8 0\n2 NAMEPLATE\n70 2\n10 0.0\n20 0.0\n0 ATTDEF\n8 0\n10 0.0\n20 0.0\n40 3.5\n"
      "1 -\n3 Size\n2 GR\xd6SSE\n70 0\n0 ENDBLK\n8 0\n";
  return dxf(
      "0 SECTION\n2 BLOCKS\n" + definition + "0 BLOCK\n8 0\n2 FRAME\n70 0\n10 0.0\n20 0.0\n" +
      reference("NAMEPLATE", "", "nested") + "0 ENDBLK\n8 0\n0 ENDSEC\n0 SECTION\n2 ENTITIES\n" +
      reference("NAMEPLATE", "", "model") + reference("NAMEPLATE", "67 1\n", "sheet") +
      reference("FRAME", "", "frame") + "0 ENDSEC\n");
}

/// The project's own plan, with a title block on the model and on two sheets, checked out here.
class TitleBlock : public ModuleSession {
 protected:
  static constexpr char plan[] = "%WORK%\\View\\Site\\Plan.dxf";

  void openSample() {
    vault("add", "from %DRAWINGS%\\Site\\Plan.dxf");
    vault("checkout", "");
    run("@load\n@open " + std::string(plan) + "\n");
    mark();
  }
  void vault(const std::string& what, const std::string& how) {
    run("@vault " + what + " " + plan + " " + how + "\n");
  }
  void card(const std::string& variable, const std::string& configuration,
            const std::string& value) {
    vault("card", variable + " " + configuration + " " + value);
  }
  void map(const std::string& variable, const std::string& tag) {
    vault("map", variable + " A1_TITLE " + tag);
  }

  static wb::Drawing& drawing() { return *wb::Host::instance().documents().active()->drawing(); }
  using Texts = std::map<std::wstring, std::wstring>;
  /// The values of an attribute by layout; what isn't aligned as it should be fails.
  static Texts texts(const wchar_t* tag, const wchar_t* block = L"A1_TITLE") {
    Texts found;
    for (const auto& one : drawing().attributes(block, tag)) {
      EXPECT_TRUE(one.aligned) << wb::toUtf8(one.layout);
      found[one.layout] = one.value;
    }
    return found;
  }
  static AcDbObjectImp& reference(const wchar_t* layout) {
    wb::Drawing& active = drawing();
    active.setCurrentLayout(layout);
    return *AcDbObjectImp::find(active.entities(L"A1_TITLE").at(0));
  }
  static AcDbObjectImp& attribute(const wchar_t* layout, size_t index) {
    const auto& owner = static_cast<wb::ReferenceImp&>(reference(layout));
    return *owner.attributes.at(index);
  }
};

TEST_F(TitleBlock, EachLayoutShowsItsOwnConfiguration) {
  openSample();
  for (const char* layout : {"Model", "LAYOUT1", "layout2"}) {
    card("Title", layout, std::string("\"Seen on ") + layout + "\"");
  }
  map("Title", "TITLE*");
  map("Title", "*draw*");
  run("@layout LAYOUT2\nTessaro_updatecurrent\n");
  const Texts one{{L"Model", L"-"}, {L"Layout1", L"-"}, {L"Layout2", L"Seen on layout2"}};
  EXPECT_EQ(texts(L"TITLE"), one);
  EXPECT_EQ(texts(L"DRAWING_NO"), one);
  EXPECT_EQ(count(L"VaultCardVariable.valueForConfiguration"), 2);
  run("Tessaro_update\n");
  const Texts all{{L"Model", L"Seen on Model"},
                  {L"Layout1", L"Seen on LAYOUT1"},
                  {L"Layout2", L"Seen on layout2"}};
  EXPECT_EQ(texts(L"TITLE"), all);
  EXPECT_EQ(texts(L"DRAWING_NO"), all);
  // A pattern that fits several attributes of a reference fills the first.
  EXPECT_EQ(texts(L"TITLE2"), (Texts{{L"Model", L"-"}, {L"Layout1", L"-"}, {L"Layout2", L"-"}}));
  EXPECT_EQ(count(L"box: "), 0) << recent();
  EXPECT_NE(drawing().dbmod(), 0);
}

TEST_F(TitleBlock, ValuesOfEveryTypeBecomeText) {
  openSample();
  map("Value", "REV");
  const struct {
    const char* value;
    const wchar_t* text;
  } cases[] = {
      {"plain", L"plain"},       {"42 type integer", L"42"},
      {"2.5 type real", L"2.5"}, {"type null", L""},
      {"again", L"again"},       {"type error", L""},
      {"back", L"back"},         {"type empty", L""},
      {"true type flag", L"-1"}, {"\xe5\x9b\xb3 5\xe2\x82\xac", L"\u56f3 5\u20ac"},
  };
  for (const auto& each : cases) {
    card("Value", "Layout1", each.value);
    run("Tessaro_update\n");
    EXPECT_EQ(texts(L"REV")[L"Layout1"], each.text) << each.value;
    EXPECT_EQ(texts(L"REV")[L"Layout2"], L"") << "never filled in";
  }
  card("Value", "Layout1", "\"3/30/2006\" type date");
  run("Tessaro_update\n");
  EXPECT_NE(texts(L"REV")[L"Layout1"].find(L"2006"), std::wstring::npos);
  EXPECT_EQ(count(L"box: "), 0) << recent();
}

TEST_F(TitleBlock, LeavesReferencesInsideBlocksAndAllOtherBytesAlone) {
  const fs::path file = viewFolder() / L"Site" / L"Plan.dxf";
  write(workFolder() / L"plates.dxf", namePlates());
  vault("add", "from %WORK%\\plates.dxf");
  vault("checkout", "");
  vault("map", "Size NAMEPLATE gr\xc3\x96\xc3\x9f*");  // fits nothing
  vault("map", "Size NAMEPLATE gr\xc3\xb6*");
  vault("map", "Size NAMEPLATE SCALE");
  vault("map", "Size NOWHERE SCALE");
  vault("map", "Size NOWHERE SCALE");
  vault("map", "Size FRAME SCALE");
  card("Size", "Model",
       "\xc3\x9c"
       "ber");
  card("Size", "Layout1", "wide");
  run("@load\n@open " + std::string(plan) + "\nTessaro_update\n");
  const Texts expected{{L"", L"nested"}, {L"Model", L"\u00dcber"}, {L"Layout1", L"wide"}};
  EXPECT_EQ(texts(L"GR\u00d6SSE", L"NAMEPLATE"), expected);
  EXPECT_EQ(texts(L"SCALE", L"NAMEPLATE"), expected);
  EXPECT_EQ(texts(L"SCALE", L"FRAME"), (Texts{{L"Model", L"frame"}}));
  run("@save\n");

  std::string bytes = namePlates();
  for (const auto& [before, after] : {std::pair("\r\nmodel\r\n",
                                                "\r\n\xdc"
                                                "ber\r\n"),
                                      {"\r\nsheet\r\n", "\r\nwide\r\n"}}) {
    for (size_t at; (at = bytes.find(before)) != std::string::npos;) {
      bytes.replace(at, std::strlen(before), after);
    }
  }
  EXPECT_EQ(bytesOf(file), bytes);
}

TEST_F(TitleBlock, AFailureOfTheClientIsToldAndLeavesNothingOpen) {
  openSample();
  map("Title", "TITLE");
  map("Title", "REV");
  for (const char* layout : {"Model", "Layout1", "Layout2"}) card("Title", layout, "new");
  const struct {
    const char* fault;
    size_t written;  // of the first mapping's three attributes
  } cases[] = {
      {"VaultClientLegacy.clientVersion E_FAIL", 0},
      {"VaultClientLegacy.vaultNameFromPath E_FAIL", 0},
      {"VaultClientLegacy.login E_FAIL", 0},
      {"VaultClientLegacy.fileFromPath E_FAIL", 0},
      {"VaultFileLegacy.cardData E_FAIL", 0},
      {"VaultFolderLegacy.id E_FAIL", 0},
      {"VaultCardData.cardVariables E_FAIL", 0},
      {"VaultCardVariable.firstMapping E_FAIL", 0},
      {"VaultPosition.isNull E_FAIL", 0},
      {"VaultCardVariable.nextMapping E_FAIL", 0},
      {"VaultAttributeMapping.blockName E_FAIL", 0},
      {"VaultAttributeMapping.attributeTag E_FAIL", 0},
      {"VaultCardVariable.valueForConfiguration E_FAIL", 0},
      {"VaultCardVariable.valueForConfiguration E_FAIL after 1", 1},
      {"VaultCardVariable.valueForConfiguration E_FAIL after 3", 3},
      {"VaultAttributeMapping.blockName E_FAIL after 1", 3},
  };
  for (const auto& each : cases) {
    for (const wchar_t* layout : {L"Model", L"Layout1", L"Layout2"}) {
      static_cast<wb::TextImp&>(attribute(layout, 0)).setText(L"-");
    }
    step("@fail " + std::string(each.fault) + "\n@answer ok\nTessaro_update\n");
    EXPECT_EQ(count(informationBox(L"Could not update the drawing border.\\n")), 1)
        << each.fault << "\n"
        << recent();
    size_t written = 0;
    for (const auto& [layout, text] : texts(L"TITLE")) written += text == L"new";
    EXPECT_EQ(written, each.written) << each.fault;
    EXPECT_EQ(texts(L"REV")[L"Model"], L"-") << each.fault;
  }
}

TEST_F(TitleBlock, WhatCantBeOpenedIsPassedOver) {
  openSample();
  map("Title", "DRAWING_NO");
  for (const char* layout : {"Model", "Layout1", "Layout2"}) card("Title", layout, "new");
  // The first attribute is held by somebody else: the later ones of its reference aren't tried.
  AcDbObjectImp& held = attribute(L"Layout1", 0);
  held.open(AcDb::kForRead, false);
  attribute(L"Layout2", 0).erased = true;
  run("Tessaro_update\n");
  held.close();
  EXPECT_EQ(texts(L"DRAWING_NO"),
            (Texts{{L"Model", L"new"}, {L"Layout1", L"-"}, {L"Layout2", L"new"}}));
  AcDbObjectImp& taken = reference(L"Model");
  taken.open(AcDb::kForRead, false);
  for (const char* layout : {"Model", "Layout1"}) card("Title", layout, "newer");
  run("Tessaro_update\n");
  taken.close();
  EXPECT_EQ(texts(L"DRAWING_NO"),
            (Texts{{L"Model", L"new"}, {L"Layout1", L"newer"}, {L"Layout2", L"new"}}));
  EXPECT_EQ(count(L"box: "), 0) << recent();
}

TEST_F(TitleBlock, ATextThatTheDrawingRefusesIsPassedOver) {
  openSample();
  map("Title", "TITLE*");
  for (const char* layout : {"Model", "Layout1", "Layout2"}) card("Title", layout, "new");
  run("@fail AcDbText.setTextString E_FAIL after 1\nTessaro_update\n");
  int written = 0;
  for (const auto& [layout, text] : texts(L"TITLE")) written += text == L"new";
  EXPECT_EQ(written, 2) << "the references behind it take their values";
  for (const auto& [layout, text] : texts(L"TITLE2")) EXPECT_EQ(text, L"-") << "nor another one";
  EXPECT_EQ(count(L"box: "), 0) << recent();
}

TEST_F(TitleBlock, EachBlockIsLookedUpOnceThoughItBeMissing) {
  openSample();
  for (const char* tag : {"TITLE", "REV"}) {
    for (const char* block : {"A1_TITLE", "NOWHERE", "Nowhere"}) {
      vault("map", "Title " + std::string(block) + " " + tag);
      vault("map", "Other " + std::string(block) + " " + tag);
    }
  }
  for (const char* variable : {"Title", "Other"}) card(variable, "Model", "new");
  for (const unsigned lookups : {3u, 6u}) {
    if (lookups == 3) wb::resetCalls();
    run("Tessaro_update\n");
    EXPECT_EQ(wb::callCount(L"AcDbBlockTable.getAt"), lookups) << "the next run reads them anew";
  }
  EXPECT_EQ(texts(L"REV")[L"Model"], L"new");
}

TEST_F(TitleBlock, NeedsADrawingOfAVaultAndAClientNewEnough) {
  // Without a drawing the host doesn't run an ordinary command at all.
  run("@load\n");
  run("@open %WORK%\\View\\Plan.dxf\n");
  step("@client version 4 9\n@answer ok\nTessaro_update\n");
  EXPECT_EQ(count(L"text=\"You must have at least Tessaro version 5.0 to run this command.\\n"
                  L"Your current version is 4.9.\""),
            1)
      << recent();
  run("@client version 5 0\n@vault offline on\nTessaro_update\n@vault offline off\n");
  EXPECT_EQ(count(L"box: "), 1) << recent();
  // A card without variables: nothing to do, nothing to say.
  run("Tessaro_update\n");
  EXPECT_EQ(count(L"box: "), 1) << recent();
  EXPECT_EQ(drawing().dbmod(), 0);
  step("@open %WORK%\\small.dxf\n@answer ok\nTessaro_updatecurrent\n");
  EXPECT_EQ(count(L"text=\"You have to save your drawing into a Tessaro file vault before you can "
                  L"use this command.\""),
            1)
      << recent();
  run("@client missing\n@answer ok\nTessaro_updatecurrent\n@client present\n");
  EXPECT_EQ(
      count(informationBox(
          L"Can't create interface towards Tessaro.\\nIs Tessaro installed on this computer?\"")),
      1)
      << recent();
}

}  // namespace
