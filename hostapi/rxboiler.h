#pragma once

/// The run-time description of a host class: its descriptor, and the checked cast, which gives
/// null for null and for an object of another class.
#define ACRX_DECLARE_MEMBERS(CLASS)                                  \
  AcRxClass* isA() const override;                                   \
  static AcRxClass* desc();                                          \
  static CLASS* cast(const AcRxObject* object) {                     \
    if (!object || !object->isKindOf(CLASS::desc())) return nullptr; \
    return static_cast<CLASS*>(const_cast<AcRxObject*>(object));     \
  }
