#include "Main.h"
#include "AccessibilityText.h"
#include "IncomingBytes.h"
#include "WebHost.h"

/// What the page calls. Texts that come with a call are the incoming bytes, as many as it says; texts that
/// are given back can be read until the next call.

namespace {

using namespace velmorath;

WebHost& host()
{
    // For as long as the page is there: nothing of the program ever ends before it.
    static WebHost* const s_host = new WebHost;
    return *s_host;
}

std::string s_outgoing;

constexpr auto unreadable = "it cannot be read";

} // namespace

extern "C" {

[[clang::export_name("makeRoom")]] char* makeRoom(std::size_t size)
{
    return IncomingBytes::makeRoom(size);
}

[[clang::export_name("start")]] void start()
{
    Host::install(host());
    char name[] = "velmorath";
    char* arguments[] = {name, nullptr};
    velmorath::main(1, arguments);
}

/// Phases are those of HostTouch, in their order; numbers are the browser's own.
[[clang::export_name("touchChanged")]] void touchChanged(
    int number, int phase, double x, double y, double time)
{
    host().fingers(time).touch({{number, static_cast<HostTouch::Phase>(phase), {x, y}}});
}

[[clang::export_name("buttonPressed")]] void buttonPressed(double x, double y, bool twoFingers, double time)
{
    host().fingers(time).buttonPressed({x, y}, twoFingers);
}

[[clang::export_name("buttonMoved")]] void buttonMoved(double x, double y, double time)
{
    host().fingers(time).buttonMoved({x, y});
}

[[clang::export_name("buttonReleased")]] void buttonReleased(double x, double y, double time)
{
    host().fingers(time).buttonReleased({x, y});
}

[[clang::export_name("buttonCancelled")]] void buttonCancelled(double time)
{
    host().fingers(time).cancelButton();
}

[[clang::export_name("pinched")]] void pinched(double x, double y, double factor, double time)
{
    host().fingers(time).pinch({x, y}, factor);
}

[[clang::export_name("pinchEnded")]] void pinchEnded(double time)
{
    host().fingers(time).pinchEnded();
}

[[clang::export_name("fingersCancelled")]] void fingersCancelled(double time)
{
    host().fingers(time).cancel();
}

[[clang::export_name("scrolled")]] void scrolled(double x, double y, double dx, double dy)
{
    host().client().scrolled({x, y}, {dx, dy});
}

/// Keys are those of HostKey, in their order.
[[clang::export_name("keyPressed")]] bool keyPressed(int key, bool shift, bool alt, bool isRepeat)
{
    return host().client().keyPressed({static_cast<HostKey>(key), shift, alt, isRepeat});
}

[[clang::export_name("screenChanged")]] void screenChanged()
{
    host().client().screenChanged();
}

[[clang::export_name("frame")]] void frame(bool everything)
{
    host().screen().makeFrame(host().client(), everything);
}

[[clang::export_name("wake")]] void wake()
{
    host().client().wake();
}

/// States are those of HostState, in their order.
[[clang::export_name("stateChanged")]] void stateChanged(int state)
{
    host().client().stateChanged(static_cast<HostState>(state));
}

[[clang::export_name("textChanged")]] void textChanged(std::size_t length)
{
    host().textInput().changed(IncomingBytes::take(length));
}

[[clang::export_name("textReturned")]] void textReturned()
{
    host().textInput().returned();
}

/// What went wrong, or nothing.
[[clang::export_name("fileReplaced")]] void fileReplaced(int number, std::size_t errorLength)
{
    host().files().replaced(number, IncomingBytes::take(errorLength));
}

[[clang::export_name("permissionAnswered")]] void permissionAnswered(bool granted)
{
    host().effects().permissionAnswered(granted);
}

/// How is one of Documents::Shared, in their order.
[[clang::export_name("listShared")]] void listShared(int how)
{
    host().documents().shared(static_cast<Documents::Shared>(how));
}

[[clang::export_name("documentOpened")]] void documentOpened(std::size_t length)
{
    host().documents().opened(std::optional(IncomingBytes::take(length)));
}

/// A file was handed to the page. Whether the program has a use for it now.
[[clang::export_name("documentDropped")]] bool documentDropped(std::size_t length)
{
    return host().client().documentOpened(IncomingBytes::take(length));
}

[[clang::export_name("unreadableDocumentDropped")]] bool unreadableDocumentDropped()
{
    return host().client().documentOpened(Error{unreadable});
}

/// None was chosen, or it cannot be read.
[[clang::export_name("documentNotOpened")]] void documentNotOpened(bool isUnreadable)
{
    using File = Result<std::optional<std::string>>;
    host().documents().opened(isUnreadable ? File(Error{unreadable}) : File(std::nullopt));
}

/// Returns where the text begins; outgoingLength() is how many bytes it has.
[[clang::export_name("accessibilityTree")]] const char* accessibilityTree()
{
    s_outgoing = toJson(host().client().accessibilityTree());
    return s_outgoing.data();
}

[[clang::export_name("outgoingLength")]] std::size_t outgoingLength()
{
    return s_outgoing.size();
}

[[clang::export_name("pressElement")]] bool pressElement(double identifier)
{
    return host().client().pressElement(static_cast<std::int64_t>(identifier));
}

[[clang::export_name("performElementAction")]] bool performElementAction(
    double identifier, std::size_t action)
{
    return host().client().performElementAction(static_cast<std::int64_t>(identifier), action);
}

[[clang::export_name("focusElement")]] bool focusElement(double identifier)
{
    return host().client().focusElement(static_cast<std::int64_t>(identifier));
}
}
