#include <dbapserv.h>

#include "gate/HostCall.h"

using ErrorStatus = Acad::ErrorStatus;
using Services = AcDbHostApplicationServices;

ErrorStatus Services::getRoamableRootFolder(const ACHAR*&) { return NOT_SERVED; }
ErrorStatus Services::getLocalRootFolder(const ACHAR*&) { return NOT_SERVED; }
const ACHAR* Services::primaryClientForSelectFileCallback() { return NOT_SERVED; }
ErrorStatus Services::getRegisteredSelectFileClients(AcArray<const ACHAR*>&) { return NOT_SERVED; }
ErrorStatus Services::mapFile(ACHAR*&, const ACHAR*, int, void*) { return NOT_SERVED; }
ErrorStatus Services::registerMapFileCallback(const ACHAR*, REMAPPROC, bool, bool) {
  return NOT_SERVED;
}
const ACHAR* Services::primaryClientForMapFileCallback() { return NOT_SERVED; }
bool Services::setMapFlag(bool) { return NOT_SERVED; }
ErrorStatus Services::getRegisteredFileMapClients(AcArray<const ACHAR*>&) { return NOT_SERVED; }
ErrorStatus Services::registerMapFileNotification(const ACHAR*, MAPFILENOTIFYPROC, bool) {
  return NOT_SERVED;
}
void Services::fatalError(const ACHAR*, ...) { NOT_SERVED; }
void Services::reportUnhandledArxException(const _EXCEPTION_POINTERS*, const ACHAR*) { NOT_SERVED; }
Adesk::Boolean Services::userBreak(bool) const { return NOT_SERVED; }
void Services::displayChar(ACHAR) const { NOT_SERVED; }
void Services::displayString(const ACHAR*, int) const { NOT_SERVED; }
Adesk::Boolean Services::readyToDisplayMessages() { return NOT_SERVED; }
void Services::enableMessageDisplay(Adesk::Boolean) { NOT_SERVED; }
Adesk::Boolean Services::doFullCRCCheck() { return NOT_SERVED; }
unsigned int Services::getTempPath(Adesk::UInt32, ACHAR*) { return NOT_SERVED; }
const ACHAR* Services::getEnv(const ACHAR*) { return NOT_SERVED; }
AcDbHostApplicationProgressMeter* Services::newProgressMeter() { return NOT_SERVED; }
AcDbAbstractClipBoundaryDefinition* Services::newClipBoundaryRectangular() { return NOT_SERVED; }
AcDbAbstractClipBoundaryDefinition* Services::newClipBoundaryPolygonal() { return NOT_SERVED; }
ClipBoundaryArray* Services::newClipBoundaryArray() { return NOT_SERVED; }
AcDbUndoController* Services::defaultUndoController() { return NOT_SERVED; }
AcDbTransactionManager* Services::workingTransactionManager() { return NOT_SERVED; }
AcDbGlobals* Services::createWorkingGlobals() { return NOT_SERVED; }
const ACHAR* Services::program() { return NOT_SERVED; }
const ACHAR* Services::product() { return NOT_SERVED; }
const ACHAR* Services::companyName() { return NOT_SERVED; }
// Published with a const that says nothing.
#if defined(__GNUC__) || defined(__clang__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wignored-qualifiers"
#endif
const Services::ProdIdCode Services::prodcode() { return NOT_SERVED; }
#if defined(__GNUC__) || defined(__clang__)
#pragma GCC diagnostic pop
#endif
const ACHAR* Services::releaseMajorMinorString() { return NOT_SERVED; }
int Services::releaseMajorVersion() { return NOT_SERVED; }
int Services::releaseMinorVersion() { return NOT_SERVED; }
const ACHAR* Services::versionString() { return NOT_SERVED; }
const ACHAR* Services::getRegistryProductRootKey() { return NOT_SERVED; }
LCID Services::getRegistryProductLCID() { return NOT_SERVED; }
bool Services::supportsMultiRedo() const { return NOT_SERVED; }
Services::ModelerFlavor Services::getModelerFlavor() const { return NOT_SERVED; }
AcadInternalServices* Services::acadInternalServices() { return NOT_SERVED; }
Adesk::Boolean Services::isURL(const ACHAR*) const { return NOT_SERVED; }
Adesk::Boolean Services::isRemoteFile(const ACHAR*, ACHAR*) const { return NOT_SERVED; }
ErrorStatus Services::getRemoteFile(const ACHAR*, ACHAR*, Adesk::Boolean) const {
  return NOT_SERVED;
}
ErrorStatus Services::putRemoteFile(const ACHAR*, const ACHAR*) const { return NOT_SERVED; }
Adesk::Boolean Services::launchBrowserDialog(ACHAR*, const ACHAR*, const ACHAR*, const ACHAR*,
                                             const ACHAR*, Adesk::Boolean) const {
  return NOT_SERVED;
}
void Services::drawOleOwnerDrawItem(COleClientItem*, Adesk::LongPtr, long, long, long, long) {
  NOT_SERVED;
}
ErrorStatus Services::getNewOleClientItem(COleClientItem*&) { return NOT_SERVED; }
ErrorStatus Services::serializeOleItem(COleClientItem*, CArchive*) { return NOT_SERVED; }
Adesk::Boolean Services::_entToWorldTransform(double*, flagmat*) { return NOT_SERVED; }
void Services::terminateScript() { NOT_SERVED; }
Adesk::Boolean Services::getSubstituteFont(ACHAR**, ACHAR*, int, int) { return NOT_SERVED; }
void Services::alert(const ACHAR*) const { NOT_SERVED; }
void Services::auditPrintReport(AcDbAuditInfo*, const ACHAR*, int) const { NOT_SERVED; }
ACHAR* Services::getAlternateFontName() const { return NOT_SERVED; }
ACHAR* Services::getFontMapFileName() const { return NOT_SERVED; }
bool Services::cacheSymbolIndices() const { return NOT_SERVED; }
AcDbPlotSettingsValidator* Services::plotSettingsValidator() const { return NOT_SERVED; }
bool Services::loadApp(const ACHAR*, AcadApp::LoadReasons, bool, bool) { return NOT_SERVED; }
void Services::getDefaultPlotCfgInfo(ACHAR*, ACHAR*) { NOT_SERVED; }
ErrorStatus Services::signingComplete(ErrorStatus, const ACHAR*, bool*) { return NOT_SERVED; }
bool Services::getPassword(const ACHAR*, PasswordOptions, wchar_t*, const size_t) {
  return NOT_SERVED;
}
void Services::usedPasswordFromCacheMsg(const ACHAR*) { NOT_SERVED; }
void Services::missingCryptoProviderMsg() { NOT_SERVED; }
const ACHAR* Services::getColorBookLocation() const { return NOT_SERVED; }
