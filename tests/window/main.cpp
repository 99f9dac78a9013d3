#include <gtest/gtest.h>

#include <QApplication>

// Windows are drawn into memory unless the caller wants to see them.
int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
