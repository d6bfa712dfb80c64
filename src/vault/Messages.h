#pragma once

#include "vault/MessageStrings.h"

namespace tessaro {

/// All numbered texts of the add-in. The numbers are those of the client's text service; the
/// defaults are its English texts, spelling included.
namespace messages {

// Boxes about the drawing, the vault and the client.
inline constexpr Message noDrawingOpen = {
    1, "This command is only available if you have a drawing open."};
inline constexpr Message drawingNotInVault = {
    2, "You have to save your drawing into a Tessaro file vault before you can use this command."};
inline constexpr Message clientMissing = {
    3, "Can't create interface towards Tessaro.\nIs Tessaro installed on this computer?"};
/// %d four times: required major and minor version, the client's major and minor version.
inline constexpr Message clientTooOld = {
    4,
    "You must have at least Tessaro version %d.%d to run this command.\n"
    "Your current version is %d.%d."};

// Contexts of reported failures.
inline constexpr Message borderUpdateFailed = {5, "Could not update the drawing border."};
inline constexpr Message checkOutFailed = {10, "Error checking out file."};
inline constexpr Message checkInFailed = {11, "Error checking in file."};
inline constexpr Message checkOutStateFailed = {12, "Error getting check out data."};
inline constexpr Message settingsKeyFailed = {16, "Failed to open registry key."};
inline constexpr Message fileOpenElsewhereAdvice = {
    18, "Make sure the file or any of it's external references isn't opened in another window."};

// The load record.
inline constexpr Message unregistrationFailed = {
    19, "Failed acrxUnregisterApp. The add-in may not be installed."};
inline constexpr Message registrationFailed = {20, "Failed acrxRegisterApp"};
inline constexpr Message unregistered = {
    59, "Tessaro AutoCAD add-in has been unregistered successfully."};
inline constexpr Message registered = {66,
                                       "Tessaro AutoCAD add-in has been registered successfully."};

// Prompts of the xref commands.
inline constexpr Message selectXrefPrompt = {50, "Select Xref: "};
inline constexpr Message versionPrompt = {51, "Enter revision number: "};
inline constexpr Message oneObjectOnly = {52, "This command only works on one object."};
inline constexpr Message xrefAlreadyOpen = {
    53, "An instance of this Xref is already open for editing."};
inline constexpr Message xrefCheckedOutElsewhere = {
    54, "Cannot edit Xref. File is checked out elsewhere."};
inline constexpr Message notAnXref = {55, "Selected object must be a Xref."};

// Check-out and check-in. %s is the file's name or path.
inline constexpr Message askCheckOutBeforeOpen = {
    56, "This file is not checked out in Tessaro. Do you want to check out it before opening?"};
inline constexpr Message askCheckIn = {
    61,
    "This will save  your changes to the file '%s' and close it before checking in. "
    "Are you sure you want to continue?"};
inline constexpr Message askCheckOut = {62, "Are you sure you want to check out the file '%s'?"};
inline constexpr Message askCheckOutModified = {
    63,
    "The file '%s' has been modified since opened. If you check out the file now any changes you "
    "have made will be lost. Do you want to continue?"};
inline constexpr Message askCheckOutEdited = {
    64,
    "You are trying to modify this drawing without having it checked out in Tessaro.\n"
    "Do you want to check out the file '%s' now?"};
inline constexpr Message editedCheckedOutElsewhere = {
    65,
    "The drawing '%s' is checked out somewhere else.\n"
    "You will not be able to save this file after making changes."};

// The context menu. %d is a version, %s its comment.
inline constexpr Message menuCheckIn = {100, "Check in this Xref"};
inline constexpr Message menuCheckOut = {101, "Check out this Xref"};
inline constexpr Message menuEdit = {102, "Edit this Xref"};
inline constexpr Message menuGetVersion = {103, "Get Version"};
inline constexpr Message menuFirstVersion = {104, "%d. <Created>"};
inline constexpr Message menuVersionWithoutComment = {105, "%d. <No comment>"};
inline constexpr Message menuVersion = {106, "%d. %s"};
inline constexpr Message menuProperties = {107, "Tessaro Properties..."};

// The buttons of all dialogs.
inline constexpr Message okButton = {180, "OK"};
inline constexpr Message cancelButton = {181, "Cancel"};

// The get-version dialog. %s is the file's name.
inline constexpr Message getVersionTitle = {200, "Get version"};
inline constexpr Message getVersionPrompt = {201, "Select version of %s to get"};
inline constexpr Message versionColumn = {202, "Version"};
inline constexpr Message commentColumn = {203, "Comment"};
inline constexpr Message firstVersionComment = {204, "<Created>"};
inline constexpr Message noComment = {205, "<No comment>"};

// The settings dialog.
inline constexpr Message settingsTitle = {220, "Tessaro add-in settings"};
inline constexpr Message autolockBox = {
    221, "Prompt to check out drawings that are opened in AutoCAD and not already checked out"};
inline constexpr Message statusWindowBox = {222, "Show the Tessaro status window"};
inline constexpr Message intervalLabel = {223,
                                          "Time between checks that all xrefs are up-to-date:"};
inline constexpr Message minutesLabel = {224, "minutes"};
inline constexpr Message editWarningBox = {
    225, "Display a warning when trying to edit a checked in drawing"};
inline constexpr Message addinVersion = {226, "Add-in version : "};

// The properties dialog. %s is the file's name.
inline constexpr Message propertiesTitle = {240, "%s - Properties"};
inline constexpr Message locationLabel = {241, "Location:"};
inline constexpr Message localVersionLabel = {242, "Local version:"};
inline constexpr Message latestVersionLabel = {243, "Latest version:"};
inline constexpr Message checkedOutByLabel = {244, "Checked out by:"};
inline constexpr Message checkedOutInLabel = {245, "Checked out in:"};
inline constexpr Message workflowStateLabel = {246, "Workflow state:"};

// The status window. %s twice: the local and the latest version.
inline constexpr Message statusTitle = {300, "Tessaro Status"};
inline constexpr Message xrefsLatestBox = {301, "Has latest xrefs"};
inline constexpr Message checkedOutHereBox = {302, "Is checked out here"};
/// Until the first update; later the same number has another default.
inline constexpr Message initialVersions = {303, "Version %s/%s"};
inline constexpr Message versions = {303, "Version: %s/%s"};

}  // namespace messages

/// The texts without a number. They are English in every language.
namespace fixedTexts {

inline constexpr wchar_t checkInFileMismatch[] =
    L"File name mismatch when checking in document. Aborting.";
inline constexpr wchar_t xrefNotInVault[] = L"Xref was not located in any filevault.";
/// The cause follows.
inline constexpr wchar_t xrefQueryFailed[] =
    L"Error reading xref information from database.\nCause:";

}  // namespace fixedTexts

}  // namespace tessaro
