#pragma once

#include "Clock.h"
#include "Console.h"
#include "Documents.h"
#include "Effects.h"
#include "Files.h"
#include "HostClient.h"
#include "Locale.h"
#include "Screen.h"
#include "TextInput.h"

namespace velmorath {

/// Everything that a machine must supply. A host derives from this, installs itself before anything
/// else of the program runs, and outlives all of it.
class Host {
public:
    virtual ~Host() = default;

    virtual Screen& screen() = 0;
    virtual TextInput& textInput() = 0;
    virtual Clock& clock() = 0;
    virtual Files& files() = 0;
    virtual Locale& locale() = 0;
    virtual Effects& effects() = 0;
    virtual Console& console() = 0;
    virtual Documents& documents() = 0;

    /// Calls this client from now on, and runs the machine's loop until the program ends. A host whose
    /// loop is not its own (a test's, a browser's) returns at once and goes on calling the client.
    /// Returns the process's exit code.
    virtual int run(HostClient&) = 0;

    /// The installed host. There must be one.
    static Host& current();
    static void install(Host&);
};

} // namespace velmorath
