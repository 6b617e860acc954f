#include "auxiliary/step_progress.h"

#include "core/steady_clock.h"
#include "core/text.h"

namespace lomaris {
namespace {

constexpr double kBetweenUpdates = 0.05;  // s

}  // namespace

WindowAtWork::WindowAtWork(AuxWindow* window, Tab tab) : window_(window), tab_(tab) {
  if (window_ == nullptr) return;
  window_->SetBusyPointer(true);
  window_->ShowProgress(true);
  if (tab_ == Tab::Locked) window_->EnableMainTab(false);
}

WindowAtWork::~WindowAtWork() {
  if (window_ == nullptr) return;
  window_->ShowProgress(false);
  window_->SetBusyPointer(false);
  if (tab_ == Tab::Locked) window_->EnableMainTab(true);
}

void StepProgress::Look(std::int64_t count) {
  const double now = SteadyClock().Seconds();
  if (count > 1 && now - shownAt_ < kBetweenUpdates) return;
  shownAt_ = now;
  // Nobody has said how many steps a file holds that announces none.
  const std::int64_t percent = total_ > 0 ? count * 100 / total_ : 100;
  window_->SetProgress(static_cast<int>(Min<std::int64_t>(100, percent)));
  if (events_ != nullptr) events_->DoEvents();
}

}  // namespace lomaris
