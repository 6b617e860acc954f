#include "spreadsheet/series.h"

namespace lomaris {

std::string NextInSeries(std::string text) {
  const std::size_t last = text.find_last_not_of("0123456789");
  const std::size_t first = last == std::string::npos ? 0 : last + 1;
  if (first == text.size()) return text + '1';
  for (std::size_t digit = text.size(); digit-- > first;) {
    if (text[digit] != '9') {
      ++text[digit];
      return text;
    }
    text[digit] = '0';
  }
  return text.insert(first, 1, '1');
}

}  // namespace lomaris
