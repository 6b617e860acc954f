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

template <class Form>
Transport ChosenSolution(const Form& form) {
  if (form.optUpwind->isChecked()) return Transport::Upwind;
  return form.optQuickest->isChecked() ? Transport::Quickest : Transport::Holly;
}

}  // namespace lomaris
