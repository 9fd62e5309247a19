#include "common/text.h"

#include <clocale>
#include <cmath>
#include <cstdarg>
#include <cstdio>

#if defined(__APPLE__)
#include <xlocale.h>
#endif

namespace demo {
namespace {

// While it lives, the calling thread writes numbers as the "C" locale does. Other threads keep their locale.
#if defined(_WIN32)
class ClassicNumbers {
public:
  ClassicNumbers() : mode_(_configthreadlocale(_ENABLE_PER_THREAD_LOCALE)), old_(std::setlocale(LC_NUMERIC, nullptr)) {
    std::setlocale(LC_NUMERIC, "C");
  }
  ~ClassicNumbers() {
    std::setlocale(LC_NUMERIC, old_.c_str());
    _configthreadlocale(mode_);
  }
  ClassicNumbers(const ClassicNumbers&) = delete;
  ClassicNumbers& operator=(const ClassicNumbers&) = delete;

private:
  int mode_;
  std::string old_;
};
#else
class ClassicNumbers {
public:
  ClassicNumbers() : old_(uselocale(classic())) {}
  ~ClassicNumbers() { uselocale(old_); }
  ClassicNumbers(const ClassicNumbers&) = delete;
  ClassicNumbers& operator=(const ClassicNumbers&) = delete;

private:
  static locale_t classic() {
    static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
    return locale;
  }

  locale_t old_;
};
#endif

}  // namespace

std::string format(const char* pattern, ...) {
  const ClassicNumbers classic;
  std::va_list arguments;
  va_start(arguments, pattern);
  std::va_list again;
  va_copy(again, arguments);
  const int length = std::vsnprintf(nullptr, 0, pattern, arguments);
  va_end(arguments);
  std::string text(static_cast<std::size_t>(length) + 1, '\0');
  std::vsnprintf(text.data(), text.size(), pattern, again);
  va_end(again);
  text.pop_back();
  return text;
}

// In whole units of the last decimal, so that rounding carries from the seconds to the degrees.
std::string format_dms(double degrees, int decimals, char separator) {
  long long units_per_second = 1;
  for (int k = 0; k < decimals; ++k) {
    units_per_second *= 10;
  }
  const long long turn = 1296000 * units_per_second;
  const long long units = std::llround(degrees * 3600 * static_cast<double>(units_per_second)) % turn;
  const long long seconds = units / units_per_second;
  return format("%3lld%c%02lld%c%02lld.%0*lld", seconds / 3600, separator, seconds / 60 % 60, separator, seconds % 60,
                decimals, units % units_per_second);
}

}  // namespace demo
