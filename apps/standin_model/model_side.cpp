#include "model_side.h"

#include <algorithm>
#include <filesystem>

#include <fmt/format.h>
#include <unistd.h>

namespace lomaris {
namespace {

constexpr int kLook = 5;  // ms between two looks at the answers

constexpr std::string_view kUpdate = "UPDATE";
constexpr std::string_view kNoCommand = "\x01\x7F?\xFF UPDATE";

/// The commands that leave the head alone; of the others it is cleared, and only then may it be
/// written anew.
bool KeepsItsCommand(std::string_view command) {
  return command == "MSGBOX" || command == "OPENFILE";
}

bool IsAboutResults(std::string_view heard) {
  return heard == kShowResults || heard == kHideResults;
}

}  // namespace

ModelSide::ModelSide(const FloodWave& wave, Clock& clock, Diary& diary)
    : wave_(wave),
      clock_(clock),
      diary_(diary),
      reply_(std::string(kReplyFileName)),
      listener_(std::string(kReplyFileName)),
      writer_(std::string(kModelFileName), wave.Rows()),
      head_(std::string(kModelFileName)),
      parent_(::getppid()) {
  listener_.Open(ExchangeFile::Mode::Existing);
  head_.Open(ExchangeFile::Mode::Existing);
  Listen();
}

bool ModelSide::IsAlone() const {
  return listener_.IsReplaced() || ::getppid() != parent_;
}

std::string ModelSide::Account() const {
  return fmt::format("{} updates, {} with results", updates_, withResults_);
}

void ModelSide::Update(double percent, const Damage& damage) {
  const double part = percent / 100;
  writer_.SetSize(damage.Rows.value_or(wave_.Rows()), damage.Cols.value_or(wave_.Cols()));
  writer_.SetFormat(wave_.Heading());
  for (int column = 1; wantsResults_ && column <= wave_.Cols(); ++column) {
    writer_.SetColumn(column, wave_.Column(column, part));
  }
  writer_.SetUpdate(wave_.DateTime(part), static_cast<float>(percent));
  if (damage.Size) {
    std::filesystem::resize_file(kModelFileName,
                                 static_cast<std::uintmax_t>(std::max(*damage.Size, 0)));
  }
  head_.Write(1, HeadBytes(damage.RecLen.value_or(writer_.RecLen()),
                           damage.Garbage ? kNoCommand : kUpdate));
  ++updates_;
  if (wantsResults_) ++withResults_;
}

std::string ModelSide::Ask(std::string_view command, const std::vector<std::string>& texts,
                           std::optional<std::int32_t> type) {
  Listen();
  if (IsAlone()) return {};
  writer_.SetCommand({});  // the texts lie where the last update did
  for (int place = 0; place < 3; ++place) {
    const auto index = static_cast<std::size_t>(place);
    writer_.SetText(kUpdateRecord + place, index < texts.size() ? texts[index] : std::string());
  }
  if (type) writer_.SetType(*type);
  reply_.Blank();
  diary_.Tell(fmt::format("sent {} {}", command, fmt::join(texts, " | ")));
  writer_.SetCommand(command);
  while (!IsAlone()) {
    const bool cleared = writer_.Command().empty();  // looked at before the answer, written after
    const std::string heard = reply_.Read();
    if (IsAboutResults(heard)) {
      Take(heard);
    } else if (KeepsItsCommand(command) ? !heard.empty() : cleared) {
      reply_.Blank();
      diary_.Tell(fmt::format("answer {}", heard));
      return heard;
    }
    clock_.Sleep(kLook);
  }
  return {};
}

bool ModelSide::Pause(int milliseconds) {
  const double end = clock_.Seconds() + milliseconds / 1000.0;
  while (Listen()) {
    const double left = (end - clock_.Seconds()) * 1000;
    if (left <= 0) return true;
    clock_.Sleep(std::clamp(static_cast<int>(left), 1, kLook));
  }
  return false;
}

/// Takes up a wish. False: the run is to end.
bool ModelSide::Listen() {
  if (const std::string heard = reply_.Read(); !heard.empty()) Take(heard);
  return !cancelled_ && !IsAlone();
}

/// A wish to cancel comes again on each look of the other side: it is told once.
void ModelSide::Take(const std::string& heard) {
  reply_.Blank();
  if (heard != kCancel || !cancelled_) diary_.Tell("heard " + heard);
  if (heard == kCancel) cancelled_ = true;
  if (IsAboutResults(heard)) wantsResults_ = heard == kShowResults;
}

}  // namespace lomaris
