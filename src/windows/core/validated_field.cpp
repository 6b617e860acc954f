#include "windows/core/validated_field.h"

#include "windows/core/qt_text.h"

namespace lomaris {

bool Validated(QLineEdit& field, FieldKind kind, Ui& ui, const std::string& besideFile) {
  std::string text = FromQt(field.text());
  const bool valid = Validated(text, kind, ui, besideFile);
  if (valid) {
    if (ToQt(text) != field.text()) field.setText(ToQt(text));
  } else {
    field.setFocus();
    field.selectAll();
  }
  return valid;
}

}  // namespace lomaris
