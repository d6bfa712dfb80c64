#pragma once

#include "foundation/AppContext.h"
#include "foundation/CString.h"
#include "vault/OpenVaultFile.h"

namespace tessaro {

/// The wanted values of a file. A null pointer is a value that isn't wanted: the client isn't asked
/// for it.
struct FileStatus {
  CString* fileName = nullptr;
  CString* stateName = nullptr;
  long* localVersion = nullptr;
  long* latestVersion = nullptr;
  bool* isCheckedOut = nullptr;
  bool* isCheckedOutHere = nullptr;
  CString* holderName = nullptr;
  CString* holderComputer = nullptr;
  CString* holderPath = nullptr;
};

/// Reads the wanted values of a path's file. A failure of the client is reported in a box; the
/// values that were read before it are set.
/// @return whether the file was found and everything was read
bool readFileStatus(AppContext& app, const CString& path, const FileStatus& wanted);

/// Whether the file is checked out on this computer and in this folder. Both holders are null
/// afterwards.
/// @throws _com_error
bool isHeldHere(AppContext& app, VaultFilePtr& file, VaultFolderPtr& folder);

}  // namespace tessaro
