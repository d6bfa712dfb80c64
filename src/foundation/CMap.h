#pragma once

#include <map>
#include <memory>

#include "foundation/Lst.h"

namespace tessaro {

/// A map that keeps the order in which its elements were added. KEYARG and VALUEARG are the types
/// of the arguments for keys and values. What the values point to isn't owned.
template <class KEY, class KEYARG, class VALUE, class VALUEARG>
class CMap {
 public:
  struct Elem {
    KEY key;
    VALUE value;
  };

  CMap() = default;
  CMap(const CMap&) = delete;
  CMap& operator=(const CMap&) = delete;
  virtual ~CMap() { clear(); }

  /// @return the element of `key`, null if there is none
  Elem* lookup(KEYARG key) const {
    const auto found = index.find(key);
    return found != index.end() ? found->second : nullptr;
  }

  /// Adds an element. A key that exists keeps its value.
  void setAt(KEYARG key, VALUEARG value) {
    const auto [place, isNew] = index.try_emplace(key, nullptr);
    if (!isNew) return;
    try {
      auto element = std::make_unique<Elem>(Elem{key, value});
      elements.pushBack(element.get());
      place->second = element.release();
    } catch (...) {
      index.erase(place);
      throw;
    }
  }

  /// Calls `visit(const Elem&)` for each element, in the order of their addition.
  template <class Visitor>
  void forEach(Visitor visit) const {
    for (auto node = elements.first(); node != nullptr; node = node->next) {
      visit(static_cast<const Elem&>(*node->value));
    }
  }

  size_t size() const { return index.size(); }

  /// Removes all elements.
  void clear() {
    index.clear();
    while (!elements.isEmpty()) const std::unique_ptr<Elem> last(elements.popFront());
  }

 private:
  std::map<KEY, Elem*> index;
  Lst<Elem*> elements;
};

}  // namespace tessaro
