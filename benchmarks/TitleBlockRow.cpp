// The data card's values in a title block.

#include <windows.h>

#include <axlock.h>
#include <dbapserv.h>
#include <dbents.h>
#include <dbsymtb.h>

#include <cwchar>
#include <fstream>
#include <stdexcept>
#include <string>

#include "foundation/ArxPtr.h"
#include "foundation/DelPtr.h"
#include "foundation/HostString.h"
#include "Measure.h"
#include "Rows.h"
#include "store/Store.h"

namespace bench {

namespace {

using tessaro::ArxPtr;
using tessaro::DelPtr;
using tessaro::HostString;

constexpr int variables = 20;
constexpr int attributes = 6;
constexpr int repetitions = 21;

std::string plates(int count) {
  std::string text =
      "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1009\n0\nENDSEC\n0\nSECTION\n2\nBLOCKS\n"
      "0\nBLOCK\n8\n0\n2\nPLATE\n70\n2\n10\n0.0\n20\n0.0\n";
  const auto tag = [](int index) { return "T" + std::to_string(index); };
  for (int index = 0; index < attributes; ++index) {
    text +=
        "0\nATTDEF\n8\n0\n10\n0.0\n20\n0.0\n40\n3.5\n1\n-\n3\nText\n2\n" + tag(index) + "\n70\n0\n";
  }
  text += "0\nENDBLK\n8\n0\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n";
  for (int number = 0; number < count; ++number) {
    text += "0\nINSERT\n8\n0\n66\n1\n2\nPLATE\n10\n0.0\n20\n0.0\n";
    for (int index = 0; index < attributes; ++index) {
      text += "0\nATTRIB\n8\n0\n10\n0.0\n20\n0.0\n40\n3.5\n1\n-\n2\n" + tag(index) + "\n70\n0\n";
    }
    text += "0\nSEQEND\n8\n0\n";
  }
  return text + "0\nENDSEC\n0\nEOF\n";
}

std::wstring tagOf(int variable) { return L"T" + std::to_wstring(variable % attributes); }

void openPlates(BenchSession& session, int count) {
  const std::string name = "Plates" + std::to_string(count) + ".dxf";
  const std::filesystem::path source = BenchSession::view().parent_path() / name;
  std::ofstream(source, std::ios::binary) << plates(count);
  const std::wstring path = (BenchSession::view() / name).wstring();
  wb::store().inOneWrite([&] {
    wb::store().add(path, source, L"engineer", L"");
    for (int variable = 0; variable < variables; ++variable) {
      const std::wstring title = L"V" + std::to_wstring(variable);
      wb::store().setCardValue(path, title, L"Model", {L"text", L"The value " + title});
      wb::store().addMapping(path, title, {L"PLATE", tagOf(variable)});
    }
    wb::store().checkOut(path);
  });
  session.run("@open %WORK%\\View\\" + name + "\n");
}

void setText(AcDbBlockReference& reference, const std::wstring& tag, const wchar_t* value) {
  const DelPtr<AcDbObjectIterator> walk(reference.attributeIterator());
  for (walk->start(); !walk->done(); walk->step()) {
    ArxPtr<AcDbAttribute> attribute;
    if (reference.openAttribute(attribute.out(), walk->objectId(), AcDb::kForWrite) != Acad::eOk) {
      throw std::runtime_error("an attribute can't be opened");
    }
    const HostString own(attribute->tag());
    if (_wcsicmp(own.text(), tag.c_str()) != 0) continue;
    if (attribute->setTextString(value) != Acad::eOk) break;
    return;
  }
  throw std::runtime_error("an attribute can't be set");
}

/// The loop that no update can do without: each reference, its attributes up to the tag, the text.
void bareLoop() {
  AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
  ArxPtr<AcDbBlockTable> blocks;
  database->getSymbolTable(blocks.out(), AcDb::kForRead);
  ArxPtr<AcDbBlockTableRecord> plate;
  blocks->getAt(L"PLATE", plate.out(), AcDb::kForRead);
  for (int variable = 0; variable < variables; ++variable) {
    const std::wstring tag = tagOf(variable);
    DelPtr<AcDbBlockReferenceIdIterator> references;
    plate->newBlockReferenceIdIterator(references.out());
    for (references->start(); !references->done(); references->step()) {
      ArxPtr<AcDbBlockReference> reference;
      references->getBlockReference(reference.out(), AcDb::kForWrite);
      if (!reference) throw std::runtime_error("a block reference can't be opened");
      setText(*reference, tag, L"The value");
    }
  }
}

Spent update(BenchSession& session) {
  const AcAxDocLock lock(acdbHostApplicationServices()->workingDatabase());
  const Spent found = spent([&] { session.command(L"_Tessaro_update"); });
  session.clearTranscript();
  return found;
}

}  // namespace

void titleBlock(BenchSession& session) {
  openPlates(session, 100);
  openPlates(session, 1000);
  Row strict(
      "Update of 20 variables, 1,000 references, 6 attributes each / the bare loop, both "
      "outside the stand-ins",
      "us", 1.5);
  Row growth("The same for 1,000 references / ten times that for 100", "us");
  for (int round = 0; round < repetitions; ++round) {
    session.run("@activate %WORK%\\View\\Plates100.dxf\n");
    const double fewer = update(session).own;
    session.run("@activate %WORK%\\View\\Plates1000.dxf\n");
    const double own = update(session).own;
    Spent bare;
    {
      const AcAxDocLock lock(acdbHostApplicationServices()->workingDatabase());
      bare = spent(bareLoop);
    }
    session.clearTranscript();
    strict.add(own, bare.own);
    growth.add(own, 10 * fewer);
  }
  print(strict);
  print(growth);
  session.closeAll();
}

}  // namespace bench
