#pragma once

namespace tessaro {

/// The names of the module's commands, without the prefix.
namespace commands {

inline constexpr wchar_t install[] = L"install";
inline constexpr wchar_t uninstall[] = L"uninstall";
inline constexpr wchar_t update[] = L"update";
inline constexpr wchar_t updateCurrent[] = L"updatecurrent";
inline constexpr wchar_t lockXref[] = L"lockxref";
inline constexpr wchar_t unlockXref[] = L"unlockxref";
inline constexpr wchar_t lock[] = L"lock";
inline constexpr wchar_t lockSilent[] = L"locksilent";
inline constexpr wchar_t unlock[] = L"unlock";
inline constexpr wchar_t getXrefVersion[] = L"getxrefversion";
inline constexpr wchar_t getXrefVer2[] = L"getxrefver2";
inline constexpr wchar_t editXref[] = L"editxref";
inline constexpr wchar_t getLatestXrefs[] = L"getlatestxrefs";
inline constexpr wchar_t settings[] = L"settings";
inline constexpr wchar_t properties[] = L"properties";
inline constexpr wchar_t tellLockedElsewhere[] = L"telllockedelsewhere";
inline constexpr wchar_t askLock[] = L"asklock";

}  // namespace commands

}  // namespace tessaro
