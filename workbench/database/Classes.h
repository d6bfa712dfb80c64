#pragma once

#include <string_view>

#include "notserved/Rx.h"

/// The host's description of a class; all of them live until the process ends.
class AcRxClassImp : public wb::NotServedClass {
 public:
  /// Enters a class under `name`, a literal; for each class once.
  static AcRxClass* define(const ACHAR* name, AcRxClass* parent);
  /// Finds a class by name, ignoring case; null if there is none.
  static AcRxClass* find(std::wstring_view name);

  const ACHAR* name() const override { return name_; }
  AcRxClass* myParent() const override { return parent_; }
  bool isDerivedFrom(const AcRxClass* parent) const override;

 private:
  AcRxClassImp(const ACHAR* name, AcRxClass* parent) : name_(name), parent_(parent) {}

  const ACHAR* name_;
  AcRxClass* parent_;
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
