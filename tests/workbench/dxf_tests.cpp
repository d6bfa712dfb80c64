#include "DrawingTest.h"

#include "host/DxfGroups.h"
#include "host/DxfText.h"

namespace {

using DxfTest = DrawingTest;

TEST_F(DxfTest, AnUntouchedDrawingIsWrittenByteForByte) {
  const auto samples = sampleDrawings();
  ASSERT_LE(11u, samples.size());
  for (const fs::path& sample : samples) {
    const auto drawing = open(sample);
    ASSERT_TRUE(drawing);
    std::wstring error;
    ASSERT_TRUE(drawing->save(folder / L"copy.dxf", error)) << wb::toUtf8(error);
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
    std::wstring error;
    ASSERT_TRUE(drawing->save(folder / L"copy.dxf", error));
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
    std::wstring error;
    EXPECT_FALSE(wb::Drawing::load(path, error)) << one.bytes;
    EXPECT_NE(std::wstring::npos, error.find(one.reason)) << wb::toUtf8(error);
    EXPECT_EQ(one.bytes, bytesOf(path));
  }
  std::wstring error;
  EXPECT_FALSE(wb::Drawing::load(folder / L"none.dxf", error));
  EXPECT_EQ(L"the file doesn't exist", error);
}

// Cut anywhere, a drawing must never open as if it were whole.
TEST_F(DxfTest, ACutDrawingNeverOpens) {
  const std::string whole = bytesOf(projectFolder() / L"tests/drawings/small_r14.dxf");
  const size_t end = whole.rfind("EOF") + 3;
  for (size_t length = 0; length < end; length += length < end - 200 ? 97 : 1) {
    wb::DxfGroups groups;
    std::wstring error;
    EXPECT_FALSE(groups.parse(whole.substr(0, length), error)) << length;
    EXPECT_FALSE(error.empty()) << length;
  }
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
