#include <acdocman.h>

void AcApDocManagerReactor::documentCreateStarted(AcApDocument*) {}
void AcApDocManagerReactor::documentCreated(AcApDocument*) {}
void AcApDocManagerReactor::documentToBeDestroyed(AcApDocument*) {}
void AcApDocManagerReactor::documentDestroyed(const ACHAR*) {}
void AcApDocManagerReactor::documentCreateCanceled(AcApDocument*) {}
void AcApDocManagerReactor::documentLockModeWillChange(AcApDocument*, AcAp::DocLockMode,
                                                       AcAp::DocLockMode, AcAp::DocLockMode,
                                                       const ACHAR*) {}
void AcApDocManagerReactor::documentLockModeChangeVetoed(AcApDocument*, const ACHAR*) {}
void AcApDocManagerReactor::documentLockModeChanged(AcApDocument*, AcAp::DocLockMode,
                                                    AcAp::DocLockMode, AcAp::DocLockMode,
                                                    const ACHAR*) {}
void AcApDocManagerReactor::documentBecameCurrent(AcApDocument*) {}
void AcApDocManagerReactor::documentToBeActivated(AcApDocument*) {}
void AcApDocManagerReactor::documentToBeDeactivated(AcApDocument*) {}
void AcApDocManagerReactor::documentActivationModified(bool) {}
void AcApDocManagerReactor::documentActivated(AcApDocument*) {}
