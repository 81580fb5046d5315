#include "Main.h"
#include "ApplicationName.h"
#include "QtHost.h"
#include "SingleProgram.h"
#include <QApplication>
#include <QStyleFactory>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string_view>

namespace {

constexpr const char* help =
    "Usage: velmorath [OPTION]\n"
    "Shows the to-do list in a window. Where it is open already, that window comes to the front.\n"
    "\n"
    "  --help           shows this and ends\n"
    "  --version        shows the version and ends\n"
    "  -platform NAME   opens the window on this platform of Qt's: xcb, wayland, offscreen\n";

/// What to exit with, where the options ask for something else than the window.
std::optional<int> answerOptions(int argc, char** argv)
{
    for (int index = 1; index < argc; ++index) {
        const std::string_view option = argv[index];
        if (option == "--help" || option == "--version") {
            std::fputs(option == "--help" ? help : "velmorath " VELMORATH_VERSION "\n", stdout);
            return EXIT_SUCCESS;
        }
        // Qt reads these and what follows each; the second is a session manager's.
        const bool isForQt = option == "-platform" || option == "--platform" || option == "-session";
        if (!isForQt || index + 1 == argc) {
            std::fprintf(stderr, "velmorath: wrong option \"%s\". See \"velmorath --help\".\n", argv[index]);
            constexpr int wrongUsage = 2;
            return wrongUsage;
        }
        ++index;
    }
    return {};
}

bool isSet(const char* name)
{
    const char* value = std::getenv(name);
    return value && *value;
}

bool hasDisplay(int argc, char** argv)
{
    const bool chosen = std::any_of(argv, argv + argc, [](const char* argument) {
        return std::strcmp(argument, "-platform") == 0 || std::strcmp(argument, "--platform") == 0;
    });
    return chosen || isSet("QT_QPA_PLATFORM") || isSet("DISPLAY") || isSet("WAYLAND_DISPLAY")
        || isSet("WAYLAND_SOCKET");
}

} // namespace

int main(int argc, char** argv)
{
    using namespace velmorath;
    // Lines for a reader that is gone are no reason to end.
    std::signal(SIGPIPE, SIG_IGN);
    if (const auto code = answerOptions(argc, argv))
        return *code;
    if (!hasDisplay(argc, argv)) {
        std::fputs("velmorath: there is no display to open a window on.\n"
                   "Start it from a desktop, or set DISPLAY or WAYLAND_DISPLAY to one that runs.\n"
                   "Without a screen, \"xvfb-run velmorath\" gives it one that nobody sees.\n",
            stderr);
        return EXIT_FAILURE;
    }
    SingleProgram program(SingleProgram::usualFolder());
    if (!program.isFirst()) {
        const char* token = std::getenv("XDG_ACTIVATION_TOKEN");
        if (program.callFirst(token ? token : ""))
            return EXIT_SUCCESS;
        std::fputs("velmorath: it is running already, but does not answer.\n", stderr);
        return EXIT_FAILURE;
    }

    // The editors must lie exactly over the texts: the one style whose margins are known.
    QApplication::setStyle(QStringLiteral("Fusion"));
    QGuiApplication::setDesktopFileName(applicationName);
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Velmorath"));
    QApplication application(argc, argv);
    QtHost host(ProgramFolders::find());
    program.setOnCall([&host](const std::string& token) { host.bringToFront(token); });
    Host::install(host);
    return velmorath::main(argc, argv);
}
