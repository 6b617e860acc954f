#include "model/name_list.h"

#include "model/input_file.h"

namespace lomaris {

void ReadNameList(ReaderState& in, std::int16_t& count, BoundedArray<std::string>& names) {
  const auto most = static_cast<int>(names.UpperBound());
  names = BoundedArray<std::string>(1, most);
  count = 0;
  std::int16_t announced = 0;
  in.ReadLine(announced);
  CheckedCount(announced, most);
  while (count < announced) names[++count] = ReadName(in);
}

void AppendNameList(std::string& out, std::int16_t count, const BoundedArray<std::string>& names) {
  AppendLine(out, PrintedNumber(count));
  for (int i = 1; i <= count; ++i) AppendLine(out, TrimField(names[i]));
}

}  // namespace lomaris
