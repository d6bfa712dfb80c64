#pragma once

#include <string_view>

#include "notserved/Classes.h"

/// The host's description of a class; all of them live until the process ends.
class AcRxClassImp : public wb::NotServedAcRxClass {
 public:
  /// Enters a class under `name`, a literal; for each class once.
  static AcRxClass* define(const ACHAR* name, AcRxClass* parent);
  /// Finds a class by name, ignoring case; null if there is none.
  static AcRxClass* find(std::wstring_view name);

  const ACHAR* name() const override;
  AcRxClass* myParent() const override;
  bool isDerivedFrom(const AcRxClass* parent) const override;

 private:
  AcRxClassImp(const ACHAR* name, AcRxClass* parent) : name_(name), parent_(parent) {}

  const ACHAR* name_;
  AcRxClass* parent_;
};
