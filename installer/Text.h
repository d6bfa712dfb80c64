#pragma once

/// A text in a fixed space, put together from parts. There is no library to allocate one.
class Text {
 public:
  template <typename... Parts>
  explicit Text(const Parts&... parts) {
    characters[0] = 0;
    (add(parts), ...);
  }
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;

  /// Adds as much as fits.
  void add(const wchar_t* part) {
    while (*part && length + 1 < space) characters[length++] = *part++;
    characters[length] = 0;
  }
  /// Adds a number's decimal digits.
  void add(unsigned long number) {
    if (number >= 10) add(number / 10);
    const wchar_t digit[] = {static_cast<wchar_t>(L'0' + number % 10), 0};
    add(digit);
  }

  const wchar_t* text() const { return characters; }

 private:
  static constexpr unsigned space = 1024;  // a key's path has 255 characters at each level at most
  wchar_t characters[space];
  unsigned length = 0;
};
