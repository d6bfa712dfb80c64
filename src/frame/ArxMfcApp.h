#pragma once

#include <accmd.h>
#include <rxdefs.h>

#include "foundation/AppContext.h"
#include "foundation/CMap.h"
#include "foundation/CString.h"

namespace tessaro {

/// A function that the module offers to the host's LISP interpreter.
struct AdsFunctionHolder {
  /// The name that LISP sees, with its prefix.
  CString name;
  /// What the host calls; gives RTNORM or RTERROR.
  int (*function)();
};

/// The general frame of a module: turns the host's messages into calls of its virtual operations,
/// and keeps what the module has registered with the host. The one object of a module is static, so
/// that it lives from the load of the library to its unload.
class ArxMfcApp : public AppContext {
 public:
  /// Takes over the module's one global pointer.
  /// @param prefix the brand before the names of commands and functions
  /// @param prefixCommands non-zero: commands and "C:" functions get the prefix
  /// @param prefixFunctions non-zero: other LISP functions get the prefix
  /// @param linkerFlag non-zero: the host may unload the module while it runs
  ArxMfcApp(const wchar_t* prefix, int prefixCommands, int prefixFunctions, int linkerFlag);
  ArxMfcApp(const ArxMfcApp&) = delete;
  ArxMfcApp& operator=(const ArxMfcApp&) = delete;
  virtual ~ArxMfcApp();

  /// Whether the module works with several open documents.
  virtual bool linkerChoice();
  virtual AcRx::AppRetCode initApp(void* pkt);
  virtual AcRx::AppRetCode unloadApp(void* pkt);
  virtual AcRx::AppRetCode loadDwg(void* pkt);
  virtual AcRx::AppRetCode unloadDwg(void* pkt);
  virtual AcRx::AppRetCode invokeSubr(void* pkt);
  virtual AcRx::AppRetCode configure(void* pkt);
  virtual AcRx::AppRetCode endDrawing(void* pkt);
  virtual AcRx::AppRetCode quitDrawing(void* pkt);
  virtual AcRx::AppRetCode saveDrawing(void* pkt);
  virtual AcRx::AppRetCode nullMessage(void* pkt);
  /// Runs before each command's routine.
  /// @return 0 to keep the routine from running
  virtual int beginCommand();
  /// Runs after each command's routine.
  virtual void endCommand();
  /// @param name out, the service's name
  /// @return non-zero if the module registers a service under that name
  virtual int getServiceName(CString& name);

  /// The module's application object, null before its construction.
  static ArxMfcApp* current() { return static_cast<ArxMfcApp*>(currentApp()); }

  /// Hands one message of the host to its operation.
  /// @param pkt the host's application handle
  /// @return the operation's result; kRetOK for a message that has none
  AcRx::AppRetCode dispatch(AcRx::AppMsgCode message, void* pkt);

  /// Adds a command under `prefix`, "_" and the given names, in the module's group. A refusal by
  /// the host is told to the user.
  /// @param worker called by the host; of the form of `guardedCommand`
  /// @param flags the host's ACRX_CMD_ flags
  /// @return 1 if the command was added, else 0
  int addAppCommand(const CString& globalName, const CString& localName, AcRxFunctionPtr worker,
                    Adesk::Int32 flags);

  /// Offers a function to LISP, from the next kLoadDwgMsg on. A name that begins with "C:" makes it
  /// a command; a name that is taken already, ignoring case, is told to the user.
  /// @return 1 if the function was added, else 0
  int addLispFunction(const CString& name, int (*function)());

  /// Offers a function to LISP as a command, under its global name and, if it is another one, its
  /// local name.
  /// @return 1 if the function was added under each, else 0
  int addCommandFunction(const CString& globalName, const CString& localName, int (*function)());

  /// Makes the functions known to the LISP interpreter of the current document. The first failure
  /// is told to the user and ends it.
  /// @return 1 if all are known, else 0
  int defineLispFunctions();

  /// Takes the service, the commands and the functions away from the host.
  void removeRegistrations();

  CString commandGroup;
  int documentLoaded = 0;
  const int prefixCommands;
  const int prefixFunctions;
  const int linkerFlag;
  CMap<int, int, AdsFunctionHolder*, AdsFunctionHolder*> functions;
  CString serviceName;

 private:
  AcRx::AppRetCode start(void* pkt);
  void nameCommandGroup();
  CString prefixed(const CString& name) const;
  void deleteFunctions();
};

/// Tells the user that the program of this prefix is installed.
void showInstalledBox(ArxMfcApp& app);

/// Command worker around `showInstalledBox`, for a module that wants such a command.
void installCommandWorker();

}  // namespace tessaro
