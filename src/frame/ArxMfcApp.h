#pragma once

#include <accmd.h>
#include <rxdefs.h>

#include "foundation/AppContext.h"
#include "foundation/CMap.h"
#include "foundation/CString.h"

namespace tessaro {

/// A function that the module offers to the host's LISP interpreter.
struct AdsFunctionHolder {
  /// The function's name in LISP, with its prefix.
  CString name;
  /// Returns RTNORM or RTERROR.
  int (*function)();
};

/// The general frame of a module: it turns the host's messages into calls of its virtual operations
/// and keeps the module's registrations with the host. A module has one object of it, which is
/// static: it exists from the load of the library to its unload.
class ArxMfcApp : public AppContext {
 public:
  /// Makes this object the module's application object (`setCurrentApp`).
  /// @param prefix the brand prefix of the names of commands and functions
  /// @param prefixCommands non-zero: commands and "C:" functions get the prefix
  /// @param prefixFunctions non-zero: other LISP functions get the prefix
  /// @param linkerFlag non-zero: the host may unload the module before it ends
  ArxMfcApp(const wchar_t* prefix, int prefixCommands, int prefixFunctions, int linkerFlag);
  ArxMfcApp(const ArxMfcApp&) = delete;
  ArxMfcApp& operator=(const ArxMfcApp&) = delete;
  virtual ~ArxMfcApp();

  /// Whether the module supports several open documents.
  virtual bool linkerChoice();

  /// The operations of the host's messages.
  /// @param pkt the message's packet
  /// @return the result for the host
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
  /// @return 0 to skip the routine
  virtual int beginCommand();
  /// Runs after each command's routine.
  virtual void endCommand();
  /// @param name set to the service's name
  /// @return non-zero if the module registers a service of that name
  virtual int getServiceName(CString& name);

  /// @return the module's application object, null before its construction
  static ArxMfcApp* current() { return static_cast<ArxMfcApp*>(currentApp()); }

  /// Calls the operation of a message.
  /// @param pkt the message's packet
  /// @return the operation's result; kRetOK for a message without an operation
  AcRx::AppRetCode dispatch(AcRx::AppMsgCode message, void* pkt);

  /// Adds a command under `prefix`, "_" and the given names, in the module's group. A failure is
  /// reported in a box.
  /// @param worker called by the host; an instance of `guardedCommand`
  /// @param flags the host's ACRX_CMD_ flags
  /// @return 1 if the command was added, else 0
  int addAppCommand(const CString& globalName, const CString& localName, AcRxFunctionPtr worker,
                    Adesk::Int32 flags);

  /// Adds a LISP function, which is defined at the next kLoadDwgMsg. A name that begins with "C:"
  /// is a command. A name that exists already, ignoring case, is reported in a box.
  /// @return 1 if the function was added, else 0
  int addLispFunction(const CString& name, int (*function)());

  /// Adds a LISP function as a command under its global name, and under its local name if that
  /// differs.
  /// @return 1 if the function was added under both, else 0
  int addCommandFunction(const CString& globalName, const CString& localName, int (*function)());

  /// Defines the functions in the LISP interpreter of the current document. The first failure is
  /// reported in a box and ends it.
  /// @return 1 if all were defined, else 0
  int defineLispFunctions();

  /// Removes the service, the commands and the functions from the host.
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

/// Shows a box that the program of this prefix is installed.
void showInstalledBox(ArxMfcApp& app);

/// A command worker of `showInstalledBox`, for a module that has such a command.
void installCommandWorker();

}  // namespace tessaro
