#include "Main.h"
#include "ApplicationName.h"
#include "QtDocuments.h"
#include "QtHost.h"
#include "SingleProgram.h"
#include <QApplication>
#include <QStyleFactory>
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string_view>
#include <vector>

namespace {

constexpr const char* help =
    "Usage: velmorath [OPTION] [FILE]...\n"
    "Shows the to-do list in a window. Where it is open already, that window comes to the front.\n"
    "The notes of each FILE, a copy of a list or a text, are added to the list, but for those that it has.\n"
    "\n"
    "  --help           shows this and ends\n"
    "  --version        shows the version and ends\n"
    "  -platform NAME   opens the window on this platform of Qt's: xcb, wayland, offscreen\n"
    "  --               what follows is a FILE, however it begins\n";

struct Arguments {
    /// What to exit with, where the options ask for something else than the window.
    std::optional<int> exitCode;
    /// The program's name and the options that Qt reads.
    std::vector<char*> forQt;
    /// Absolute.
    std::vector<std::string> files;
};

Arguments readArguments(int argc, char** argv)
{
    Arguments arguments{.exitCode = {}, .forQt = {argv, argv + std::min(argc, 1)}, .files = {}};
    bool areFiles = false;
    for (int index = 1; index < argc; ++index) {
        const std::string_view argument = argv[index];
        if (areFiles || !argument.starts_with('-')) {
            arguments.files.push_back(velmorath::QtDocuments::path(argv[index]));
            continue;
        }
        if (argument == "--") {
            areFiles = true;
            continue;
        }
        if (argument == "--help" || argument == "--version") {
            std::fputs(argument == "--help" ? help : "velmorath " VELMORATH_VERSION "\n", stdout);
            arguments.exitCode = EXIT_SUCCESS;
            return arguments;
        }
        // What follows each of these belongs to it; the second is a session manager's.
        const bool isForQt = argument == "-platform" || argument == "--platform" || argument == "-session";
        if (!isForQt || index + 1 == argc) {
            std::fprintf(stderr, "velmorath: wrong option \"%s\". See \"velmorath --help\".\n", argv[index]);
            constexpr int wrongUsage = 2;
            arguments.exitCode = wrongUsage;
            return arguments;
        }
        arguments.forQt.insert(arguments.forQt.end(), {argv[index], argv[index + 1]});
        ++index;
    }
    return arguments;
}

bool isSet(const char* name)
{
    const char* value = std::getenv(name);
    return value && *value;
}

bool hasDisplay(const std::vector<char*>& options)
{
    const bool chosen = std::any_of(options.begin(), options.end(),
        [](const std::string_view option) { return option == "-platform" || option == "--platform"; });
    return chosen || isSet("QT_QPA_PLATFORM") || isSet("DISPLAY") || isSet("WAYLAND_DISPLAY")
        || isSet("WAYLAND_SOCKET");
}

int run(Arguments& arguments)
{
    using namespace velmorath;
    SingleProgram program(SingleProgram::usualFolder());
    if (!program.isFirst()) {
        const char* token = std::getenv("XDG_ACTIVATION_TOKEN");
        if (program.callFirst({token ? token : "", arguments.files}))
            return EXIT_SUCCESS;
        std::fputs("velmorath: it is running already, but does not answer.\n", stderr);
        return EXIT_FAILURE;
    }

    // The editors must lie exactly over the texts: the one style whose margins are known.
    QApplication::setStyle(QStringLiteral("Fusion"));
    QGuiApplication::setDesktopFileName(applicationName);
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Velmorath"));
    int countForQt = static_cast<int>(arguments.forQt.size());
    arguments.forQt.push_back(nullptr);
    // Never deleted: see main().
    new QApplication(countForQt, arguments.forQt.data());
    QtHost host(ProgramFolders::find());
    program.setOnCall([&host](const DesktopCall& call) { host.answer(call); });
    host.widget().open(arguments.files);
    Host::install(host);
    return velmorath::main(countForQt, arguments.forQt.data());
}

} // namespace

int main(int argc, char** argv)
{
    // Lines for a reader that is gone are no reason to end.
    std::signal(SIGPIPE, SIG_IGN);
    Arguments arguments = readArguments(argc, argv);
    if (arguments.exitCode)
        return *arguments.exitCode;
    if (!hasDisplay(arguments.forQt)) {
        std::fputs("velmorath: there is no display to open a window on.\n"
                   "Start it from a desktop, or set DISPLAY or WAYLAND_DISPLAY to one that runs.\n"
                   "Without a screen, \"xvfb-run velmorath\" gives it one that nobody sees.\n",
            stderr);
        return EXIT_FAILURE;
    }
    const int code = run(arguments);
    // Qt is not taken down: under Wayland it waits for a thread of its own then, now and then for ever.
    std::fflush(nullptr);
    std::_Exit(code);
}
