#include <windows.h>

#include <accmd.h>
#include <acdocman.h>
#include <dbapserv.h>
#include <gtest/gtest.h>
#include <rxdlinkr.h>

#include <string>
#include <vector>

#include "core/SessionState.h"

// What the host doesn't serve fails in its own type, and is told.
TEST(NotServed, AnswersAFailureAndIsTold) {
  const wb::SessionState session;
  AcApDocManager* documents = acDocManagerPtr();
  EXPECT_EQ(Acad::eNotImplementedYet, documents->newDocument());
  EXPECT_EQ(0, documents->documentCount());
  EXPECT_FALSE(documents->isDocumentActivationEnabled());
  documents->popResourceHandle();
  ACHAR path[MAX_PATH] = L"";
  AcDbHostApplicationServices* services = acdbHostApplicationServices();
  EXPECT_EQ(Acad::eNotImplementedYet,
            services->findFile(path, MAX_PATH, L"x.lin", nullptr,
                               AcDbHostApplicationServices::FindFileHint()));
  EXPECT_EQ(nullptr, services->getEnv(L"ACAD"));
  EXPECT_EQ(0u, acrxSysRegistry()->numEntries());
  EXPECT_EQ(nullptr, AcRxObject::desc()->create());
  const std::vector<std::wstring> expected = {
      L"error: AcApDocManager::newDocument isn't served by this host",
      L"error: AcApDocManager::documentCount isn't served by this host",
      L"error: AcApDocManager::isDocumentActivationEnabled isn't served by this host",
      L"error: AcApDocManager::popResourceHandle isn't served by this host",
      L"error: AcDbHostApplicationServices::findFile isn't served by this host",
      L"error: AcDbHostApplicationServices::getEnv isn't served by this host",
      L"error: AcRxDictionary::numEntries isn't served by this host",
      L"error: AcRxClass::create isn't served by this host"};
  EXPECT_EQ(expected, session.transcript.lines());
}

// A reactor's own bodies do nothing, so they are no failure.
TEST(NotServed, AReactorMayLeaveEventsAlone) {
  class Reactor : public AcApDocManagerReactor {
  } reactor;
  const wb::SessionState session;
  reactor.documentActivated(nullptr);
  EXPECT_TRUE(session.transcript.lines().empty());
  EXPECT_EQ(AcApDocManagerReactor::desc(), reactor.isA());
}
