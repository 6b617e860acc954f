#include "auxiliary/bmd_file.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <vector>

#include <fmt/format.h>

#include "core/encoding.h"
#include "core/file_reader.h"
#include "core/files.h"
#include "core/text.h"

namespace lomaris {
namespace {

static_assert(std::endian::native == std::endian::little,
              "whole tables go between memory and the file as they are");
static_assert(sizeof(Extremes) == 2 * sizeof(float));

constexpr std::size_t kHeaderSize = 78;
constexpr std::size_t kVariableSize = kVarNameSize + kVarUnitsSize;
constexpr std::size_t kReservedSize = 37;
constexpr std::size_t kCountsPlace = 50;
constexpr std::size_t kSeedTimePlace = 9;
constexpr std::string_view kMarks{"BMD\x0F\0", 5};
constexpr float kVersion = 2;
constexpr float kNoMin = 1E15F;  // what an extreme starts from
constexpr float kNoMax = -1E15F;

// Three counts make a product that 64 bits do not hold.
__extension__ using Wide = unsigned __int128;

// --- Fields.

/// A number that stands anywhere among the bytes of a file, in memory at any address.
template <class Number>
Number NumberAt(const char* bytes) {
  Number number;
  std::memcpy(&number, bytes, sizeof number);
  return number;
}

template <class Number>
void AppendBytes(std::string& out, Number number) {
  std::array<char, sizeof number> bytes;
  std::memcpy(bytes.data(), &number, sizeof number);
  out.append(bytes.data(), bytes.size());
}

/// A text as a field can hold it. A mark of UTF-8 would be lost between here and the file.
std::string CleanText(std::string text) {
  std::erase(text, '\0');
  return std::string(Trim(ReplaceAll(text, "\xEF\xBB\xBF", "")));
}

std::string TextOfField(std::string_view field) {
  std::string bytes(field);
  std::erase(bytes, '\0');
  return CleanText(TextFromFile(std::move(bytes)));
}

/// The bytes of a text that fit into a field.
std::string FieldBytes(std::string_view text, std::size_t size) {
  constexpr std::size_t kLongestCharacter = 4;
  std::string fitting = CleanText(std::string(text));
  if (fitting.size() > size * kLongestCharacter) fitting.resize(size * kLongestCharacter);
  for (;;) {
    std::string bytes = FileFromText(fitting);
    if (bytes.size() <= size) return bytes;
    while (IsInsideCharacter(fitting.back())) fitting.pop_back();
    fitting.pop_back();
    fitting.resize(WithoutTrailing(fitting, ' ').size());
  }
}

void AppendField(std::string& out, std::string_view text, std::size_t size) {
  std::string bytes = FieldBytes(text, size);
  if (bytes.size() < size) bytes += '\0';
  bytes.resize(size, ' ');
  out += bytes;
}

// --- Reading.

void ReadExactly(FileReader& file, void* bytes, std::size_t size) {
  if (file.Read(bytes, size) < size) throw RuntimeError(ErrorNumber::InputPastEnd);
}

std::string ReadBytes(FileReader& file, std::size_t size) {
  std::string bytes(size, '\0');
  ReadExactly(file, bytes.data(), size);
  return bytes;
}

template <class Record>
BoundedArray<Record> ReadTable(FileReader& file, std::int64_t count) {
  BoundedArray<Record> table(1, count);
  ReadExactly(file, &*table.begin(), static_cast<std::size_t>(count) * sizeof(Record));
  return table;
}

BMDContent ReadHeader(FileReader& file) {
  if (file.Size() < kHeaderSize) {
    throw RuntimeError(ErrorNumber::InputPastEnd,
                       fmt::format("a header of {} bytes is expected, but the file has {}",
                                   kHeaderSize, file.Size()));
  }
  const std::string bytes = ReadBytes(file, kHeaderSize);
  const auto numbers = bytes.data() + kCountsPlace;
  BMDContent content;
  content.SeedTime = NumberAt<std::int32_t>(bytes.data() + kSeedTimePlace);
  content.NumSegments = NumberAt<std::int32_t>(numbers);
  content.NumTimes = NumberAt<std::int32_t>(numbers + 4);
  content.NumVars = NumberAt<std::int32_t>(numbers + 8);
  content.StartTime = NumberAt<double>(numbers + 12);
  content.EndTime = NumberAt<double>(numbers + 20);
  return content;
}

std::string Counts(const BMDContent& content) {
  return fmt::format("{} variables at {} segments over {} time steps", content.NumVars,
                     content.NumSegments, content.NumTimes);
}

/// Holds the counts, which are claims, against the length of the file. Returns whether the names of
/// the segments are there.
bool CheckSizes(const BMDContent& content, std::uint64_t fileSize) {
  if (content.NumVars < 0 || content.NumSegments < 0 || content.NumTimes < 0) {
    throw RuntimeError(ErrorNumber::SubscriptOutOfRange,
                       Counts(content) + " cannot be in any file");
  }
  const auto vars = static_cast<Wide>(content.NumVars);
  const auto segments = static_cast<Wide>(content.NumSegments);
  const auto times = static_cast<Wide>(content.NumTimes);
  const Wide series = vars * segments;
  const Wide needed = kHeaderSize + vars * (kVariableSize + sizeof(Extremes)) +
                      series * (times * sizeof(float) + sizeof(Extremes)) + times * sizeof(double);
  if (fileSize == needed) return false;
  const Wide withNames = needed + segments * kSegNameSize;
  if (fileSize == withNames) return true;
  // In a longer file, too, the tables behind the values would not be where the counts put them.
  throw RuntimeError(
      fileSize < withNames ? ErrorNumber::InputPastEnd : ErrorNumber::SubscriptOutOfRange,
      fmt::format("{} take {} bytes, but the file has {}", Counts(content), withNames, fileSize));
}

void ReadVariables(FileReader& file, BMDContent& content) {
  const auto count = static_cast<std::size_t>(content.NumVars);
  const std::string bytes = ReadBytes(file, count * kVariableSize);
  content.VarName.Resize(content.NumVars);
  content.VarUnits.Resize(content.NumVars);
  std::string_view rest = bytes;
  for (std::int32_t var = 1; var <= content.NumVars; ++var) {
    content.VarName[var] = TextOfField(rest.substr(0, kVarNameSize));
    content.VarUnits[var] = TextOfField(rest.substr(kVarNameSize, kVarUnitsSize));
    rest.remove_prefix(kVariableSize);
  }
}

void ReadSegmentNames(FileReader& file, BMDContent& content, bool areThere) {
  content.SegName.Resize(content.NumSegments);
  const auto count = static_cast<std::size_t>(content.NumSegments);
  const std::string bytes = areThere ? ReadBytes(file, count * kSegNameSize) : std::string();
  for (std::int32_t segment = 1; segment <= content.NumSegments; ++segment) {
    const std::size_t place = static_cast<std::size_t>(segment - 1) * kSegNameSize;
    content.SegName[segment] =
        areThere ? TextOfField(std::string_view(bytes).substr(place, kSegNameSize))
                 : fmt::format("Segment {}", segment);
  }
}

void ReadSeries(FileReader& file, BMDContent& content) {
  content.Concs = ConcBlock(content.NumVars, content.NumSegments, content.NumTimes);
  ReadExactly(file, content.Concs.Data(), content.Concs.Size() * sizeof(float));
  content.StoredTimes = ReadTable<double>(file, content.NumTimes);
}

/// In 64 bits: these tables are what makes a file larger than memory.
void SkipSeries(FileReader& file, const BMDContent& content) {
  const auto times = static_cast<std::uint64_t>(content.NumTimes);
  const auto series =
      static_cast<std::uint64_t>(content.NumVars) * static_cast<std::uint64_t>(content.NumSegments);
  file.Skip(series * times * sizeof(float) + times * sizeof(double));
}

// --- Writing.

/// Finds the extremes of values that come by in the order of the file.
class ExtremesFinder {
 public:
  /// Short time steps are taken several at a time: a loop over few values has no speed.
  explicit ExtremesFinder(std::size_t stepSize)
      : stepSize_(stepSize),
        lanes_((std::max(stepSize, kFewLanes) / stepSize) * stepSize),
        min_(lanes_, kNoMin),
        max_(lanes_, kNoMax) {}

  /// Values of which each `Widen` but the last must take a multiple.
  std::size_t Lanes() const { return lanes_; }

  void Widen(const float* values, std::size_t count) {
    for (std::size_t start = 0; start < count; start += lanes_) {
      WidenLanes(values + start, std::min(lanes_, count - start));
    }
  }

  BMDExtremes Result(std::int32_t vars, std::int32_t segments) const {
    BMDExtremes result;
    result.OfVars.Resize(vars);
    result.OfSegments.Resize(std::int64_t{vars} * segments);
    for (Extremes& each : result.OfVars) each = {kNoMin, kNoMax};
    for (Extremes& each : result.OfSegments) each = {kNoMin, kNoMax};
    for (std::size_t lane = 0; lane < lanes_; ++lane) {
      const auto place = static_cast<std::int64_t>(lane % stepSize_);
      const std::int64_t var = place % vars + 1, segment = place / vars + 1;
      Include(result.OfVars[var], lane);
      Include(result.OfSegments[(var - 1) * segments + segment], lane);
    }
    return result;
  }

 private:
  static constexpr std::size_t kFewLanes = 256;

  void WidenLanes(const float* values, std::size_t count) {
    float* const min = min_.data();
    float* const max = max_.data();
    for (std::size_t i = 0; i < count; ++i) {
      min[i] = values[i] < min[i] ? values[i] : min[i];
      max[i] = values[i] > max[i] ? values[i] : max[i];
    }
  }

  void Include(Extremes& extremes, std::size_t lane) const {
    extremes.Min = Min(extremes.Min, min_[lane]);
    extremes.Max = Max(extremes.Max, max_[lane]);
  }

  std::size_t stepSize_;
  std::size_t lanes_;
  std::vector<float> min_;
  std::vector<float> max_;
};

void CheckTables(const BMDContent& content) {
  const ConcBlock& concs = content.Concs;
  if (concs.Vars() != content.NumVars || concs.Segments() != content.NumSegments ||
      concs.Times() != content.NumTimes || content.StoredTimes.Count() != content.NumTimes) {
    throw RuntimeError(ErrorNumber::SubscriptOutOfRange, "the values are not in memory");
  }
}

std::string HeaderAndVariables(const BMDContent& content) {
  std::string out(kMarks);
  AppendBytes(out, kVersion);
  AppendBytes(out, content.SeedTime);
  out.append(kReservedSize, '\0');
  AppendBytes(out, content.NumSegments);
  AppendBytes(out, content.NumTimes);
  AppendBytes(out, content.NumVars);
  AppendBytes(out, content.StartTime);
  AppendBytes(out, content.EndTime);
  for (std::int32_t var = 1; var <= content.NumVars; ++var) {
    AppendField(out, content.VarName[var], kVarNameSize);
    AppendField(out, content.VarUnits[var], kVarUnitsSize);
  }
  return out;
}

std::string SegmentNames(const BMDContent& content) {
  std::string out;
  for (const std::string& name : content.SegName) AppendField(out, name, kSegNameSize);
  return out;
}

template <class Record>
std::string_view BytesOf(const Record* records, std::size_t count) {
  return {reinterpret_cast<const char*>(records), count * sizeof(Record)};
}

template <class Record>
std::string_view BytesOf(const BoundedArray<Record>& table) {
  return BytesOf(&*table.begin(), static_cast<std::size_t>(table.Count()));
}

/// Writes the values and finds their extremes while they are at hand.
BMDExtremes WriteConcs(const ConcBlock& concs, const Sink& write) {
  constexpr std::size_t kPiece = 1U << 16;  // values, which the processor's cache holds
  ExtremesFinder finder(concs.StepSize());
  const std::size_t piece = std::max<std::size_t>(1, kPiece / finder.Lanes()) * finder.Lanes();
  for (std::size_t start = 0; start < concs.Size(); start += piece) {
    const std::size_t count = std::min(piece, concs.Size() - start);
    finder.Widen(concs.Data() + start, count);
    write(BytesOf(concs.Data() + start, count));
  }
  return finder.Result(concs.Vars(), concs.Segments());
}

}  // namespace

BMDContent ReadBMDFile(const std::string& path, bool lowMemory) {
  FileReader file(path);
  BMDContent content = ReadHeader(file);
  if (content.HasNoData()) return content;
  const bool hasNames = CheckSizes(content, file.Size());
  ReadVariables(file, content);
  if (lowMemory) {
    SkipSeries(file, content);
  } else {
    ReadSeries(file, content);
  }
  content.Ranges.OfVars = ReadTable<Extremes>(file, content.NumVars);
  content.Ranges.OfSegments =
      ReadTable<Extremes>(file, std::int64_t{content.NumVars} * content.NumSegments);
  ReadSegmentNames(file, content, hasNames);
  return content;
}

BMDExtremes WriteBMDFile(const std::string& path, const BMDContent& content) {
  CheckTables(content);
  BMDExtremes ranges;
  WriteLargeFile(path, [&](const Sink& write) {
    write(HeaderAndVariables(content));
    ranges = WriteConcs(content.Concs, write);
    write(BytesOf(content.StoredTimes));
    write(BytesOf(ranges.OfVars));
    write(BytesOf(ranges.OfSegments));
    write(SegmentNames(content));
  });
  return ranges;
}

std::string AsField(std::string_view text, std::size_t size) {
  return TextFromFile(FieldBytes(text, size));
}

}  // namespace lomaris
