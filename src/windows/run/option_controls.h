#pragma once

#include "run/run_options.h"

namespace lomaris {

// Controls that several options windows have, by the same names.

template <class Form>
OutputFiles ChosenFiles(const Form& form) {
  return {.Messages = form.chkMessages->isChecked(),
          .Errors = form.chkErrors->isChecked(),
          .Output = form.chkOutput->isChecked(),
          .MassBalance = form.chkMassBal->isChecked()};
}

}  // namespace lomaris
