#include "shared/DrawingTest.h"

#include "dxf/File.h"

namespace {

/// Text files in which the lines of a drawing come back in other shapes.
class DxfTest : public DrawingTest {
 protected:
  // A reader of its own: the lines up to the end mark, whatever ends them.
  static std::vector<std::string> linesOf(const std::string& bytes) {
    const char end = bytes.find('\n') == std::string::npos ? '\r' : '\n';
    std::vector<std::string> lines(1);
    for (const char byte : bytes) {
      if (byte == end) {
        while (!lines.back().empty() && lines.back().back() == '\r') lines.back().pop_back();
        if (lines.back() == "EOF") return lines;
        lines.emplace_back();
      } else {
        lines.back() += byte;
      }
    }
    return lines;
  }
  static std::string joined(const std::vector<std::string>& lines,
                            const std::vector<std::string>& ends, bool endsLast) {
    std::string result;
    for (size_t index = 0; index < lines.size(); ++index) {
      result += lines[index];
      if (endsLast || index + 1 < lines.size()) result += ends[index % ends.size()];
    }
    return result;
  }
  // Changes the drawing as a user does, saves and opens it: nothing but the remark is new.
  void changeSaveAndOpen(wb::Drawing& drawing, const std::string& before) {
    drawing.edit();
    drawing.save(folder / L"changed.dxf");
    std::vector<std::string> after = linesOf(bytesOf(folder / L"changed.dxf"));
    ASSERT_LT(4u, after.size());
    const auto remark = after.end() - 4;
    EXPECT_EQ("999", *remark);
    EXPECT_EQ("edit ", remark[1].substr(0, 5));
    after.erase(remark, remark + 2);
    EXPECT_EQ(linesOf(before), after);
    EXPECT_TRUE(open(folder / L"changed.dxf"));
  }
  // True if it opens.
  bool survives(const std::string& bytes) {
    const fs::path file = folder / L"variant.dxf";
    write(file, bytes);
    std::unique_ptr<wb::Drawing> drawing;
    const std::wstring error = refusal([&] { drawing = wb::Drawing::load(file); });
    EXPECT_NE(drawing == nullptr, error.empty());
    EXPECT_EQ(bytes, bytesOf(file));
    if (drawing) changeSaveAndOpen(*drawing, bytes);
    return drawing != nullptr;
  }
};

TEST_F(DxfTest, AnUntouchedDrawingIsWrittenByteForByte) {
  const auto samples = sampleDrawings();
  ASSERT_LE(11u, samples.size());
  for (const fs::path& sample : samples) {
    const auto drawing = open(sample);
    ASSERT_TRUE(drawing);
    drawing->save(folder / L"copy.dxf");
    EXPECT_EQ(bytesOf(sample), bytesOf(folder / L"copy.dxf")) << sample;
    EXPECT_EQ(0, drawing->dbmod());
  }
}

TEST_F(DxfTest, OddlyWrittenFilesKeepTheirBytes) {
  const std::string section = "0\nSECTION\n2\nENTITIES\n";
  const std::string end = "0\nENDSEC\n0\nEOF";
  const std::string files[] = {
      section + end,
      section + end + "\n",
      section + end + "\r\n\x1A",
      section + end + "\n\nanything\n",
      "\xEF\xBB\xBF" + section + end,
      "999\na comment\n" + section + "  0  \r\nPOINT \r\r\n  8\t\n\n" + end,
      "0\rSECTION\r2\rENTITIES\r0\rENDSEC\r0\rEOF\r",
      section + "0\nTEXT\n1\n" + std::string(1 << 20, 'x') + "\n" + end,
      section + "0\nTEXT\n1\n\xFF\xFE not UTF-8\n1071\n-2147483648\n" + end,
  };
  for (const std::string& file : files) {
    const auto drawing = openText(file);
    ASSERT_TRUE(drawing);
    drawing->save(folder / L"copy.dxf");
    EXPECT_EQ(file, bytesOf(folder / L"copy.dxf"));
  }
}

TEST_F(DxfTest, WhatIsNoCompleteAsciiDxfIsRefusedWithItsReason) {
  const std::string good = dxf("0 SECTION\n2 BLOCKS\n0 BLOCK\n2 A\n0 ENDBLK\n0 ENDSEC\n");
  const auto without = [&](const std::string& text) {
    std::string result = good;
    return result.erase(result.find(text), text.size());
  };
  const struct {
    std::string bytes;
    const wchar_t* reason;
  } cases[] = {
      {"", L"empty"},
      {std::string("AutoCAD Binary DXF\r\n\x1A\0\0\0", 24), L"binary DXF"},
      {std::string("AC1018\0\0\0\0\0\0", 12), L"DWG"},
      {std::string("\xFF\xFE"
                   "0\0",
                   4),
       L"UTF-16"},
      {std::string("PK\3\4\0\0", 6), L"isn't a text file"},
      {"Dear Sir,\nthe drawings\n", L"line 1: \"Dear Sir,\" is no group code"},
      {"0\nSECTION\n2\nHEADER\n1072\nx\n0\nENDSEC\n0\nEOF\n", L"line 5: \"1072\""},
      {good.substr(0, good.size() - 8), L"no EOF"},
      {good.substr(0, good.find("BLOCKS")), L"cut off"},
      {without("0\r\nENDBLK\r\n"), L"ENDSEC is out of place"},
      {without("0\r\nENDSEC\r\n"), L"the section HEADER doesn't end"},
      {"0\nLINE\n8\n0\n0\nEOF\n", L"line 1: a section is expected"},
      {"0\nSECTION\n0\nEOF\n", L"without a name"},
  };
  const fs::path path = folder / L"bad.dxf";
  for (const auto& one : cases) {
    write(path, one.bytes);
    const std::wstring error = refusal([&] { wb::Drawing::load(path); });
    EXPECT_NE(L"", error) << one.bytes;
    EXPECT_NE(std::wstring::npos, error.find(one.reason)) << wb::toUtf8(error);
    EXPECT_EQ(one.bytes, bytesOf(path));
  }
  EXPECT_EQ(L"the file doesn't exist", refusal([&] { wb::Drawing::load(folder / L"none.dxf"); }));
}

// Cut anywhere, a drawing must never open as if it were whole.
TEST_F(DxfTest, ACutDrawingNeverOpens) {
  for (const fs::path& sample : sampleDrawings()) {
    const std::string whole = bytesOf(sample);
    const size_t end = whole.rfind("EOF") + 3;
    for (size_t length = 0; length < end; length += length < end - 100 ? end / 50 : 1) {
      EXPECT_NE(L"", refusal([&] { wb::DxfGroups(whole.substr(0, length)); })) << sample << length;
    }
  }
}

TEST_F(DxfTest, WhateverEndsItsLinesADrawingCanBeChanged) {
  const std::vector<std::vector<std::string>> ends = {
      {"\n"}, {"\r\n"}, {"\r"}, {"\r\r\n"}, {"\n", "\r\n", "\r\n"}, {"\r\n", "\n", "\n"}};
  for (const fs::path& sample : sampleDrawings()) {
    const std::vector<std::string> lines = linesOf(bytesOf(sample));
    for (const auto& one : ends) {
      for (const bool endsLast : {true, false}) {
        EXPECT_TRUE(survives(joined(lines, one, endsLast))) << sample << one[0].size() << endsLast;
      }
    }
    EXPECT_FALSE(survives(joined(lines, {"\n", "\r"}, true))) << "which of them end lines?";
    EXPECT_FALSE(survives(joined(lines, {"\r", "\n"}, false)));
  }
}

// Some of them are drawings still, with a longer text or another number in them.
TEST_F(DxfTest, JoinedLinesAreRefusedOrCanBeChanged) {
  for (const fs::path& sample : sampleDrawings()) {
    const std::vector<std::string> lines = linesOf(bytesOf(sample));
    for (size_t at = 0; at + 2 < lines.size();
         at += at + 10 < lines.size() ? lines.size() / 20 : 1) {
      std::vector<std::string> fewer = lines;
      fewer[at] += fewer[at + 1];
      fewer.erase(fewer.begin() + static_cast<std::ptrdiff_t>(at) + 1);
      EXPECT_FALSE(survives(joined(fewer, {"\n"}, false))) << sample << at;
      fewer[at] += fewer[at + 1];
      fewer.erase(fewer.begin() + static_cast<std::ptrdiff_t>(at) + 1);
      survives(joined(fewer, {"\r\n"}, at % 2 == 0));
    }
  }
}

TEST_F(DxfTest, WhatWouldNotBeTheDrawingIsNotSaved) {
  const auto drawing = openText(dxf("0 SECTION\n2 ENTITIES\n0 ENDSEC\n"));
  const std::string before = bytesOf(folder / L"text.dxf");
  for (const char* remark : {"one\ntwo", "one\r\n  0\r\nEOF", "a\n999\nb"}) {
    drawing->addRemark(remark);
    const std::wstring error = refusal([&] { drawing->save(folder / L"text.dxf"); });
    EXPECT_EQ(0u, error.find(L"the file wouldn't be this drawing any more: line ")) << remark;
    EXPECT_EQ(before, bytesOf(folder / L"text.dxf"));
    EXPECT_EQ(1, std::distance(fs::directory_iterator(folder), {}));
  }
}

TEST_F(DxfTest, AnAddedGroupStaysAndGoesWithTheObjectBeforeIt) {
  wb::DxfGroups groups("0\nTEXT\n8\nA\n0\nTEXT\n8\nB\n0\nEOF");
  groups.addBefore(2, 1, "a");
  groups.addBefore(4, 1, "b");
  groups.remove(2, 4);
  EXPECT_EQ("0\nTEXT\n8\nA\n  1\na\n0\nEOF", groups.bytes());
  EXPECT_EQ(L"", refusal([&] { groups.requireReadFrom(groups.bytes()); }));
  EXPECT_NE(L"", refusal([&] { groups.requireReadFrom("0\nTEXT\n8\nA\n0\nEOF"); }));
}

TEST(DxfTextTest, TextSurvivesInEveryEncoding) {
  const std::wstring texts[] = {L"",
                                L"plain",
                                L"\u00DCbersicht \u20AC",
                                L"\u5E73\u9762\u56F3",
                                L"tab\tline\nend",
                                L"2^3 ^J",
                                L"\\U+0041 \\M+18158 C:\\Users",
                                L"\U0001F4D0",
                                L"\xD800 alone"};
  const wb::DxfText encodings[] = {{"AC1021", "ANSI_932"},
                                   {"AC1015", "ANSI_1252"},
                                   {"AC1009", "ANSI_932"},
                                   {"", ""},
                                   {"AC1009", "dos850"}};
  for (const wb::DxfText& encoding : encodings) {
    for (const std::wstring& text : texts) {
      const std::string encoded = encoding.encode(text);
      EXPECT_EQ(text, encoding.decode(encoded)) << encoding.codePage() << " " << encoded;
      for (const char byte : encoded) EXPECT_LE(' ', static_cast<unsigned char>(byte));
    }
  }
}

TEST(DxfTextTest, EachReleaseHasItsEncoding) {
  EXPECT_EQ("\xC3\x9C", wb::DxfText("AC1021", "ANSI_1252").encode(L"\u00DC"));
  EXPECT_EQ("\xDC", wb::DxfText("AC1018", "ANSI_1252").encode(L"\u00DC"));
  EXPECT_EQ("\\U+5E73", wb::DxfText("AC1018", "ANSI_1252").encode(L"\u5E73"));
  // A character whose second byte is that of a backslash.
  EXPECT_EQ(L"\u8868", wb::DxfText("AC1009", "ANSI_932").decode("\x95\x5C"));
  EXPECT_EQ(L"\u042F", wb::DxfText("AC1015", "ansi_1251").decode("\xDF"));
  EXPECT_EQ(28605u, wb::DxfText("AC1009", "iso8859-15").codePage());
  const wb::DxfText latin("AC1015", "ANSI_1252");
  EXPECT_EQ(L"\u5E73A\u8868 \\U+12G4 ^", latin.decode("\\U+5E73\\U+0041\\M+1955C \\U+12G4 ^"));
  EXPECT_EQ(L"\u00FC", wb::DxfText("AC1024", "ANSI_1252").decode("\xFC"));
}

}  // namespace
