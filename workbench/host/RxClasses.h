#pragma once

#include <rxclass.h>

#include <string_view>

/// Makes the host's class descriptions; they live until the process ends.
class AcRxClassImp {
 public:
  /// Enters a class under `name`, a literal; for each class once.
  static AcRxClass* define(const ACHAR* name, AcRxClass* parent);
  /// Finds a class by name, ignoring case; null if there is none.
  static AcRxClass* find(std::wstring_view name);
};

/// Implements what ACRX_DECLARE_MEMBERS declares. The descriptions are made while the library
/// loads, so that the "ClassDictionary" is complete before any application can ask it.
#define WB_DEFINE_RX_CLASS(CLASS, PARENT)                                                   \
  AcRxClass* CLASS::desc() {                                                                \
    static AcRxClass* const description = AcRxClassImp::define(L## #CLASS, PARENT::desc()); \
    return description;                                                                     \
  }                                                                                         \
  AcRxClass* CLASS::isA() const { return CLASS::desc(); }                                   \
  namespace {                                                                               \
  [[maybe_unused]] AcRxClass* const CLASS##Description = CLASS::desc();                     \
  }
