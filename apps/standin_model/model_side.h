#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

#include "core/ports/clock.h"
#include "diary.h"
#include "flood_wave.h"
#include "run/exchange_files.h"
#include "run/exchange_writer.h"

namespace lomaris {

/// What is wrong with the exchange file on purpose.
struct Damage {
  std::optional<std::int32_t> Rows;
  std::optional<std::int32_t> Cols;
  std::optional<std::int32_t> RecLen;
  std::optional<std::int32_t> Size;  ///< bytes of the whole file; its head is there
  bool Garbage = false;              ///< a command that is none
};

/// The model's side of the two exchange files, in the current directory, over one run. All that is
/// sent and heard is told to the diary.
class ModelSide {
 public:
  /// Takes the greeting and makes the model's file. Throws RuntimeError when nobody listens.
  ModelSide(const FloodWave& wave, Clock& clock, Diary& diary);

  /// Sends the state of the run at a per cent.
  void Update(double percent, const Damage& damage);

  /// Sends a command with its texts and waits for the answer; empty when nobody is left to give
  /// one. The next update is to follow: texts and columns share records.
  std::string Ask(std::string_view command, const std::vector<std::string>& texts,
                  std::optional<std::int32_t> type = {});

  /// Lets time pass, with an ear for wishes. False: the run is to end.
  bool Pause(int milliseconds);

  bool Cancelled() const { return cancelled_; }

  /// Whether the other side is gone: its file, or the program that started this one.
  bool IsAlone() const;

  /// "201 updates, 180 with results"
  std::string Account() const;

 private:
  bool Listen();
  void Take(const std::string& heard);

  const FloodWave& wave_;
  Clock& clock_;
  Diary& diary_;
  ReplyReader reply_;
  ExchangeFile listener_;  ///< the reply file once more: tells when it is gone
  ModelFileWriter writer_;
  ExchangeFile head_;  ///< the model's file once more, for what the writer would not write
  pid_t parent_;
  bool cancelled_ = false;
  bool wantsResults_ = true;
  int updates_ = 0;
  int withResults_ = 0;
};

}  // namespace lomaris
