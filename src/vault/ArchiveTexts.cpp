// The texts of the result codes of the archive server.
#include "vault/ResultTexts.h"

#include <iterator>

namespace tessaro {

namespace {

const ResultText rows[] = {
    {0x80040400, 74, L"The file could not be found in the archive."},
    {0x80040401, 75, L"There is not enough free space on the disk of the archive server."},
    {0x80040403, 76, L"The archive server didn't answer in time."},
    {0x80040404, 77, L"A temporary file could not be opened."},
    {0x80040405, 78, L"The archive server doesn't know the requested operation."},
    {0x80040406, 79, L"The end of a file was reached unexpectedly."},
    {0x80040407, 80, L"The archive server could not read from or write to a file."},
    {0x80040408, 81, L"There is already an archive for the file."},
    {0x8004040A, 82, L"The version in the archive is not the one that was expected."},
    {0x8004040B, 83, L"The local copy of the file could not be opened."},
    {0x8004040C, 84, L"The archive of the file could not be opened."},
    {0x8004040D, 85,
     L"The archive server doesn't have the rights to access the archive of the file."},
    {0x8004040E, 86, L"The archive of the file is locked."},
    {0x8004040F, 87, L"The archive of the file could not be locked."},
    {0x80040410, 88, L"Too many files are open on the archive server."},
    {0x80040411, 89, L"The archive server is in the wrong mode for this operation."},
    {0x80040412, 90, L"The registry of the archive server could not be opened."},
    {0x80040413, 91, L"The registry of the archive server could not be read."},
    {0x80040414, 92, L"The registry of the archive server could not be closed."},
    {0x80040415, 93, L"A network socket could not be created."},
    {0x80040416, 94, L"A network socket could not be bound to its address."},
    {0x80040417, 95, L"The archive server could not listen for connections."},
    {0x80040418, 96, L"The archive server could not accept the connection."},
    {0x80040419, 97, L"A network socket could not be closed."},
    {0x8004041A, 98, L"Could not connect to the archive server."},
    {0x8004041B, 99, L"Sending to the archive server took too long."},
    {0x8004041C, 100, L"Could not send to the archive server."},
    {0x8004041D, 101, L"Receiving from the archive server took too long."},
    {0x8004041E, 102, L"Could not receive from the archive server."},
    {0x8004041F, 103, L"The name of a network socket could not be found out."},
    {0x80040420, 103, L"The name of a network socket could not be found out."},
    {0x80040421, 141, L"The network address of the archive server could not be found out."},
    {0x80040422, 141, L"The network address of the archive server could not be found out."},
    {0x80040423, 104, L"An unknown error occurred on the archive server."},
    {0x80040424, 105, L"The archive server is shutting down."},
    {0x80040425, 90, L"The registry of the archive server could not be opened."},
    {0x80040426, 106, L"The archive server is busy."},
    {0x80040427, 107, L"The parent folder doesn't exist in the archive."},
    {0x80040428, 108, L"A folder could not be created in the archive."},
    {0x80040429, 109, L"There is already a file vault with this name on the archive server."},
    {0x8004042A, 110, L"Some folders of the file vault could not be removed from the archive."},
    {0x8004042B, 111, L"Could not connect to the remote archive server."},
    {0x8004042C, 112, L"The remote archive server has no valid default settings."},
    {0x8004042D, 113, L"The root folder of the archive could not be deleted."},
    {0x8004042E, 114, L"The management component of the database server is of the wrong version."},
    {0x8004042F, 116, L"The management component of the database server is not installed."},
    {0x80040430, 117, L"An error occurred in the management component of the database server."},
    {0x80040431, 115, L"The root folder of the archive could not be created."},
    {0x800404C5, 118, L"The archive server is not a member of a domain."},
    {0x800404C6, 120, L"The answer of the revision management system could not be understood."},
    {0x800404C7, 121, L"The archive of the file could not be unlocked."},
    {0x800404C8, 122, L"The archive server could not be found on the network."},
    {0x800404C9, 125, L"The file could not be replicated to another archive server."},
    {0x800404CA, 126, L"The name of the computer could not be found out."},
    {0x800404CB, 127, L"The schedule could not be understood."},
    {0x800404CC, 139, L"The connection was closed by the archive server."},
    {0x800404CD, 142, L"The file vault doesn't exist on the archive server."},
    {0x800404CE, 156, L"The type of login is not supported by the archive server."},
    {0x800404CF, 161, L"The account of the archive server on the database server is invalid."},
    {0x800404D0, 162, L"The user account on the archive server is invalid."},
    {0x800404D1, 178, L"There is no handler for this type of cold storage."},
    {0x800404D2, 184, L"The replicated information about the database server is wrong."},
    {0x800404D3, 187, L"The archive server is disconnected."},
    {0x800404D4, 216, L"The version of the file vault is too old."},
    {0x800404D5, 288, L"The file could not be found in cold storage."},
};

}  // namespace

const ResultTexts archiveTexts = {rows, std::size(rows)};

}  // namespace tessaro
