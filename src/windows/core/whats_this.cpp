#include "windows/core/whats_this.h"

#include <QAction>
#include <QApplication>

#include "core/encoding.h"
#include "core/files.h"
#include "core/help_texts.h"
#include "core/run_time_error.h"
#include "windows/core/qt_text.h"

namespace lomaris {
namespace {

constexpr const char* kHelpFileProperty = "HelpFile";

/// A help file that has become unreadable since the start is as good as none.
HelpTexts ReadHelpFile(const std::string& file) {
  try {
    return HelpTexts(TextFromFile(ReadWholeFile(file)));
  } catch (const RuntimeError&) {
    return HelpTexts({});
  }
}

}  // namespace

void SetHelpFile(const QString& file) {
  qApp->setProperty(kHelpFileProperty, file);
}

void ApplyWhatsThis(QWidget& window) {
  const std::string file = FromQt(qApp->property(kHelpFileProperty).toString());
  if (file.empty()) return;
  const HelpTexts texts = ReadHelpFile(file);
  const auto textFor = [&](const QObject& control) {
    return ToQt(texts.TextFor(FromQt(window.objectName()), FromQt(control.objectName())));
  };
  for (QWidget* control : window.findChildren<QWidget*>()) {
    const QString text = textFor(*control);
    if (text.isEmpty()) continue;
    control->setWhatsThis(text);
    if (control->accessibleDescription().isEmpty()) control->setAccessibleDescription(text);
  }
  for (QAction* entry : window.findChildren<QAction*>()) {
    const QString text = textFor(*entry);
    if (!text.isEmpty()) entry->setWhatsThis(text);
  }
}

}  // namespace lomaris
