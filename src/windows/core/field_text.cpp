#include "windows/core/field_text.h"

#include "model/file_names.h"
#include "windows/core/qt_text.h"

namespace lomaris {

void ShowText(QLineEdit& field, const std::string& text) {
  if (field.text() != ToQt(text)) field.setText(ToQt(text));
}

void ShowNormalised(QLineEdit& field) {
  ShowText(field, NormaliseFileName(FromQt(field.text()), true));
}

}  // namespace lomaris
