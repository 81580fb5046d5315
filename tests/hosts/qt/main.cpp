#include <QApplication>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    // Also where the tests are only listed.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    new QApplication(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const int code = RUN_ALL_TESTS();
    // As the program ends.
    std::fflush(nullptr);
    std::_Exit(code);
}
