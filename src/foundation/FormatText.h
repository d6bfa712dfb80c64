#pragma once

#include <comdef.h>

#include <initializer_list>
#include <string_view>

#include "foundation/CString.h"

namespace tessaro {

/// One value for `formatText`. A text isn't copied: it has to outlive the call.
class FormatValue {
 public:
  FormatValue(int number) : number_(number) {}
  FormatValue(long number) : number_(number) {}
  FormatValue(const CString& text) : isText_(true), text_(text) {}
  FormatValue(const wchar_t* text) : isText_(true), text_(text != nullptr ? text : L"") {}
  FormatValue(const _bstr_t& text) : FormatValue(static_cast<const wchar_t*>(text)) {}

  bool isText() const { return isText_; }
  long number() const { return number_; }
  std::wstring_view text() const { return text_; }

 private:
  bool isText_ = false;
  long number_ = 0;
  std::wstring_view text_;
};

/// Fills the values into the placeholders of `pattern`, in order, as printf does: %d, %i, %u, %x,
/// %X and %s, with flags, width and precision; %% is one percent sign. A translated pattern may be
/// wrong, so nothing is undefined: a placeholder without a value, with a value of another type or
/// with more than 500 characters stays unchanged, and surplus values are ignored.
/// @throws std::bad_alloc
CString formatText(std::wstring_view pattern, std::initializer_list<FormatValue> values);

/// The same for a pattern that may be null, which is an empty one.
CString formatText(const wchar_t* pattern, std::initializer_list<FormatValue> values);

}  // namespace tessaro
