// The main of test programs that open windows.

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setStyle("Fusion");
  const QTemporaryDir settings;  // no test is to touch the settings of whoever runs it
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
  return RUN_ALL_TESTS();
}
