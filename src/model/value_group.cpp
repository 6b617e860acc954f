#include "model/value_group.h"

#include <array>
#include <numeric>

#include <fmt/format.h>

#include "core/text.h"
#include "model/input_file.h"

namespace lomaris {
namespace {

bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}

/// The fields of a group's lines, in place: nearly all of a file is groups.
class Fields {
 public:
  static constexpr std::size_t kMost = 64;  ///< that are kept; no group has as many

  void AddLine(std::string_view line) {
    const char* c = line.data();
    const char* const end = c + line.size();
    for (;;) {
      while (c != end && IsBlank(*c)) ++c;
      if (c == end) return;
      const char* const start = c;
      while (c != end && !IsBlank(*c)) ++c;
      if (count_ < kMost) fields_[count_] = {start, static_cast<std::size_t>(c - start)};
      ++count_;
    }
  }

  std::size_t Count() const { return count_; }

  std::string_view operator[](std::size_t place) const {
    return place + 1 == count_ ? LastField(fields_[place]) : fields_[place];
  }

  /// The first `count` fields as one line.
  std::string Joined(std::size_t count) const {
    std::string line(fields_[0]);
    for (std::size_t i = 1; i < count; ++i) line.append(1, '\t').append(fields_[i]);
    return line;
  }

 private:
  std::array<std::string_view, kMost> fields_;
  std::size_t count_ = 0;
};

void CheckCount(const Fields& fields, std::size_t wanted, Ui& ui) {
  if (fields.Count() == wanted) return;
  if (fields.Count() == wanted + 1) {
    ThrowArrayBoundsExceeded(fields.Joined(wanted + 1), static_cast<std::int64_t>(wanted), ui);
  }
  throw RuntimeError(ErrorNumber::SubscriptOutOfRange,
                     fmt::format("{} values stand where {} are needed", fields.Count(), wanted));
}

void AppendValue(std::string& out, float value) {
  AppendNumber(out, value);
}
void AppendValue(std::string& out, bool value) {
  out += value ? '1' : '0';
}

}  // namespace

template <class T>
void ReadGroup(ReaderState& in, GroupLayout layout, BoundedArray<T>& values, Ui& ui) {
  Fields fields;
  for (std::size_t line = 0; line < layout.size(); ++line) fields.AddLine(in.ReadRawLine());
  const auto wanted = static_cast<std::size_t>(values.Count());
  const std::size_t count = Min(fields.Count(), wanted);
  auto value = values.begin();
  for (std::size_t i = 0; i < count; ++i) *value++ = ToElement<T>(fields[i]);
  CheckCount(fields, wanted, ui);
}
template void ReadGroup(ReaderState&, GroupLayout, BoundedArray<float>&, Ui&);
template void ReadGroup(ReaderState&, GroupLayout, BoundedArray<bool>&, Ui&);

template <class T>
void AppendGroup(std::string& out, GroupLayout layout, const BoundedArray<T>& values) {
  std::int64_t place = values.LowerBound();
  for (const int onLine : layout) {
    for (int i = 0; i < onLine; ++i) {
      if (i > 0) out += '\t';
      AppendValue(out, values[place++]);
    }
    out += kLineBreak;
  }
}
template void AppendGroup(std::string&, GroupLayout, const BoundedArray<float>&);
template void AppendGroup(std::string&, GroupLayout, const BoundedArray<bool>&);

bool BeginsWithGroup(std::string_view& text, GroupLayout layout) {
  Fields fields;
  for (std::size_t line = 0; line < layout.size(); ++line) fields.AddLine(CutLine(text));
  if (fields.Count() != static_cast<std::size_t>(std::reduce(layout.begin(), layout.end()))) {
    return false;
  }
  for (std::size_t i = 0; i < fields.Count(); ++i) {
    if (!IsNumeric(fields[i])) return false;
  }
  return true;
}

std::string_view CutLine(std::string_view& text) {
  const std::size_t end = Min(text.find('\n'), text.size());
  std::string_view line = text.substr(0, end);
  text.remove_prefix(Min(end + 1, text.size()));
  while (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

}  // namespace lomaris
