#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    // Also where the tests are only listed.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
