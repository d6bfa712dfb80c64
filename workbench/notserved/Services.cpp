#include <dbapserv.h>

#include "gate/NotServed.h"

using wb::NotServed;

Acad::ErrorStatus AcDbHostApplicationServices::getRoamableRootFolder(const ACHAR*&) {
  return NotServed(L"AcDbHostApplicationServices.getRoamableRootFolder");
}
Acad::ErrorStatus AcDbHostApplicationServices::getLocalRootFolder(const ACHAR*&) {
  return NotServed(L"AcDbHostApplicationServices.getLocalRootFolder");
}
const ACHAR* AcDbHostApplicationServices::primaryClientForSelectFileCallback() {
  return NotServed(L"AcDbHostApplicationServices.primaryClientForSelectFileCallback");
}
Acad::ErrorStatus AcDbHostApplicationServices::getRegisteredSelectFileClients(
    AcArray<const ACHAR*>&) {
  return NotServed(L"AcDbHostApplicationServices.getRegisteredSelectFileClients");
}
Acad::ErrorStatus AcDbHostApplicationServices::mapFile(ACHAR*&, const ACHAR*, int, void*) {
  return NotServed(L"AcDbHostApplicationServices.mapFile");
}
Acad::ErrorStatus AcDbHostApplicationServices::registerMapFileCallback(const ACHAR*, REMAPPROC,
                                                                       bool, bool) {
  return NotServed(L"AcDbHostApplicationServices.registerMapFileCallback");
}
const ACHAR* AcDbHostApplicationServices::primaryClientForMapFileCallback() {
  return NotServed(L"AcDbHostApplicationServices.primaryClientForMapFileCallback");
}
bool AcDbHostApplicationServices::setMapFlag(bool) {
  return NotServed(L"AcDbHostApplicationServices.setMapFlag");
}
Acad::ErrorStatus AcDbHostApplicationServices::getRegisteredFileMapClients(AcArray<const ACHAR*>&) {
  return NotServed(L"AcDbHostApplicationServices.getRegisteredFileMapClients");
}
Acad::ErrorStatus AcDbHostApplicationServices::registerMapFileNotification(const ACHAR*,
                                                                           MAPFILENOTIFYPROC,
                                                                           bool) {
  return NotServed(L"AcDbHostApplicationServices.registerMapFileNotification");
}
void AcDbHostApplicationServices::fatalError(const ACHAR*, ...) {
  NotServed(L"AcDbHostApplicationServices.fatalError");
}
void AcDbHostApplicationServices::reportUnhandledArxException(const _EXCEPTION_POINTERS*,
                                                              const ACHAR*) {
  NotServed(L"AcDbHostApplicationServices.reportUnhandledArxException");
}
Adesk::Boolean AcDbHostApplicationServices::userBreak(bool) const {
  return NotServed(L"AcDbHostApplicationServices.userBreak");
}
void AcDbHostApplicationServices::displayChar(ACHAR) const {
  NotServed(L"AcDbHostApplicationServices.displayChar");
}
void AcDbHostApplicationServices::displayString(const ACHAR*, int) const {
  NotServed(L"AcDbHostApplicationServices.displayString");
}
Adesk::Boolean AcDbHostApplicationServices::readyToDisplayMessages() {
  return NotServed(L"AcDbHostApplicationServices.readyToDisplayMessages");
}
void AcDbHostApplicationServices::enableMessageDisplay(Adesk::Boolean) {
  NotServed(L"AcDbHostApplicationServices.enableMessageDisplay");
}
Adesk::Boolean AcDbHostApplicationServices::doFullCRCCheck() {
  return NotServed(L"AcDbHostApplicationServices.doFullCRCCheck");
}
unsigned int AcDbHostApplicationServices::getTempPath(Adesk::UInt32, ACHAR*) {
  return NotServed(L"AcDbHostApplicationServices.getTempPath");
}
const ACHAR* AcDbHostApplicationServices::getEnv(const ACHAR*) {
  return NotServed(L"AcDbHostApplicationServices.getEnv");
}
AcDbHostApplicationProgressMeter* AcDbHostApplicationServices::newProgressMeter() {
  return NotServed(L"AcDbHostApplicationServices.newProgressMeter");
}
AcDbAbstractClipBoundaryDefinition* AcDbHostApplicationServices::newClipBoundaryRectangular() {
  return NotServed(L"AcDbHostApplicationServices.newClipBoundaryRectangular");
}
AcDbAbstractClipBoundaryDefinition* AcDbHostApplicationServices::newClipBoundaryPolygonal() {
  return NotServed(L"AcDbHostApplicationServices.newClipBoundaryPolygonal");
}
ClipBoundaryArray* AcDbHostApplicationServices::newClipBoundaryArray() {
  return NotServed(L"AcDbHostApplicationServices.newClipBoundaryArray");
}
AcDbUndoController* AcDbHostApplicationServices::defaultUndoController() {
  return NotServed(L"AcDbHostApplicationServices.defaultUndoController");
}
AcDbTransactionManager* AcDbHostApplicationServices::workingTransactionManager() {
  return NotServed(L"AcDbHostApplicationServices.workingTransactionManager");
}
AcDbGlobals* AcDbHostApplicationServices::createWorkingGlobals() {
  return NotServed(L"AcDbHostApplicationServices.createWorkingGlobals");
}
const ACHAR* AcDbHostApplicationServices::program() {
  return NotServed(L"AcDbHostApplicationServices.program");
}
const ACHAR* AcDbHostApplicationServices::product() {
  return NotServed(L"AcDbHostApplicationServices.product");
}
const ACHAR* AcDbHostApplicationServices::companyName() {
  return NotServed(L"AcDbHostApplicationServices.companyName");
}
// Published with a const that says nothing.
#if defined(__GNUC__) || defined(__clang__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wignored-qualifiers"
#endif
const AcDbHostApplicationServices::ProdIdCode AcDbHostApplicationServices::prodcode() {
  return NotServed(L"AcDbHostApplicationServices.prodcode");
}
#if defined(__GNUC__) || defined(__clang__)
#pragma GCC diagnostic pop
#endif
const ACHAR* AcDbHostApplicationServices::releaseMajorMinorString() {
  return NotServed(L"AcDbHostApplicationServices.releaseMajorMinorString");
}
int AcDbHostApplicationServices::releaseMajorVersion() {
  return NotServed(L"AcDbHostApplicationServices.releaseMajorVersion");
}
int AcDbHostApplicationServices::releaseMinorVersion() {
  return NotServed(L"AcDbHostApplicationServices.releaseMinorVersion");
}
const ACHAR* AcDbHostApplicationServices::versionString() {
  return NotServed(L"AcDbHostApplicationServices.versionString");
}
const ACHAR* AcDbHostApplicationServices::getRegistryProductRootKey() {
  return NotServed(L"AcDbHostApplicationServices.getRegistryProductRootKey");
}
LCID AcDbHostApplicationServices::getRegistryProductLCID() {
  return NotServed(L"AcDbHostApplicationServices.getRegistryProductLCID");
}
bool AcDbHostApplicationServices::supportsMultiRedo() const {
  return NotServed(L"AcDbHostApplicationServices.supportsMultiRedo");
}
AcDbHostApplicationServices::ModelerFlavor AcDbHostApplicationServices::getModelerFlavor() const {
  return NotServed(L"AcDbHostApplicationServices.getModelerFlavor");
}
AcadInternalServices* AcDbHostApplicationServices::acadInternalServices() {
  return NotServed(L"AcDbHostApplicationServices.acadInternalServices");
}
Adesk::Boolean AcDbHostApplicationServices::isURL(const ACHAR*) const {
  return NotServed(L"AcDbHostApplicationServices.isURL");
}
Adesk::Boolean AcDbHostApplicationServices::isRemoteFile(const ACHAR*, ACHAR*) const {
  return NotServed(L"AcDbHostApplicationServices.isRemoteFile");
}
Acad::ErrorStatus AcDbHostApplicationServices::getRemoteFile(const ACHAR*, ACHAR*,
                                                             Adesk::Boolean) const {
  return NotServed(L"AcDbHostApplicationServices.getRemoteFile");
}
Acad::ErrorStatus AcDbHostApplicationServices::putRemoteFile(const ACHAR*, const ACHAR*) const {
  return NotServed(L"AcDbHostApplicationServices.putRemoteFile");
}
Adesk::Boolean AcDbHostApplicationServices::launchBrowserDialog(ACHAR*, const ACHAR*, const ACHAR*,
                                                                const ACHAR*, const ACHAR*,
                                                                Adesk::Boolean) const {
  return NotServed(L"AcDbHostApplicationServices.launchBrowserDialog");
}
void AcDbHostApplicationServices::drawOleOwnerDrawItem(COleClientItem*, Adesk::LongPtr, long, long,
                                                       long, long) {
  NotServed(L"AcDbHostApplicationServices.drawOleOwnerDrawItem");
}
Acad::ErrorStatus AcDbHostApplicationServices::getNewOleClientItem(COleClientItem*&) {
  return NotServed(L"AcDbHostApplicationServices.getNewOleClientItem");
}
Acad::ErrorStatus AcDbHostApplicationServices::serializeOleItem(COleClientItem*, CArchive*) {
  return NotServed(L"AcDbHostApplicationServices.serializeOleItem");
}
Adesk::Boolean AcDbHostApplicationServices::_entToWorldTransform(double*, flagmat*) {
  return NotServed(L"AcDbHostApplicationServices._entToWorldTransform");
}
void AcDbHostApplicationServices::terminateScript() {
  NotServed(L"AcDbHostApplicationServices.terminateScript");
}
Adesk::Boolean AcDbHostApplicationServices::getSubstituteFont(ACHAR**, ACHAR*, int, int) {
  return NotServed(L"AcDbHostApplicationServices.getSubstituteFont");
}
void AcDbHostApplicationServices::alert(const ACHAR*) const {
  NotServed(L"AcDbHostApplicationServices.alert");
}
void AcDbHostApplicationServices::auditPrintReport(AcDbAuditInfo*, const ACHAR*, int) const {
  NotServed(L"AcDbHostApplicationServices.auditPrintReport");
}
ACHAR* AcDbHostApplicationServices::getAlternateFontName() const {
  return NotServed(L"AcDbHostApplicationServices.getAlternateFontName");
}
ACHAR* AcDbHostApplicationServices::getFontMapFileName() const {
  return NotServed(L"AcDbHostApplicationServices.getFontMapFileName");
}
bool AcDbHostApplicationServices::cacheSymbolIndices() const {
  return NotServed(L"AcDbHostApplicationServices.cacheSymbolIndices");
}
AcDbPlotSettingsValidator* AcDbHostApplicationServices::plotSettingsValidator() const {
  return NotServed(L"AcDbHostApplicationServices.plotSettingsValidator");
}
bool AcDbHostApplicationServices::loadApp(const ACHAR*, AcadApp::LoadReasons, bool, bool) {
  return NotServed(L"AcDbHostApplicationServices.loadApp");
}
void AcDbHostApplicationServices::getDefaultPlotCfgInfo(ACHAR*, ACHAR*) {
  NotServed(L"AcDbHostApplicationServices.getDefaultPlotCfgInfo");
}
Acad::ErrorStatus AcDbHostApplicationServices::signingComplete(Acad::ErrorStatus, const ACHAR*,
                                                               bool*) {
  return NotServed(L"AcDbHostApplicationServices.signingComplete");
}
bool AcDbHostApplicationServices::getPassword(const ACHAR*, PasswordOptions, wchar_t*,
                                              const size_t) {
  return NotServed(L"AcDbHostApplicationServices.getPassword");
}
void AcDbHostApplicationServices::usedPasswordFromCacheMsg(const ACHAR*) {
  NotServed(L"AcDbHostApplicationServices.usedPasswordFromCacheMsg");
}
void AcDbHostApplicationServices::missingCryptoProviderMsg() {
  NotServed(L"AcDbHostApplicationServices.missingCryptoProviderMsg");
}
const ACHAR* AcDbHostApplicationServices::getColorBookLocation() const {
  return NotServed(L"AcDbHostApplicationServices.getColorBookLocation");
}
