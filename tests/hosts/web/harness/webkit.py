"""WebKitGTK as a browser whose tabs are told what to do: its own driver knows neither fingers nor profiles.

usage: webkit.py PROFILE     a line of JSON for each command on standard input: {"number", "do", "tab", ...}

Answers are lines, too: {"number", "answer"} or {"number", "error"}; so is what a page says by itself: {"tab", "said"}.
The machine's own events are made where the X server's arrive, so all that comes after them is the browser's."""

import base64
import ctypes
import json
import os
import sys

import gi

gi.require_version("Gdk", "3.0")
gi.require_version("Gtk", "3.0")
gi.require_version("WebKit2", "4.1")
from gi.repository import Gdk, GLib, Gtk, WebKit2  # noqa: E402

# What a page says is sent here before it reaches the browser's console.
LISTEN = """
    const tell = (kind, text) => webkit.messageHandlers.said.postMessage(JSON.stringify([kind, text]));
    for (const kind of ["log", "warn", "error"]) {
        const print = console[kind];
        console[kind] = (...what) => {
            tell(kind, what.join(" "));
            print.apply(console, what);
        };
    }
    addEventListener("error", (event) => tell("error", `error: ${event.message}`));
    for (const name of ["keyup", "touchstart", "touchend"]) {
        addEventListener(name, () => tell("event", name), true);
    }
    addEventListener("unhandledrejection", (event) => tell("error", `error: ${event.reason}`));
"""

# As KeyboardEvent names them, where GDK has other names.
KEYS = {"Enter": "Return", "ArrowUp": "Up", "ArrowDown": "Down", "ArrowLeft": "Left", "ArrowRight": "Right",
        "Backspace": "BackSpace", "PageUp": "Page_Up", "PageDown": "Page_Down", "Alt": "Alt_L", "Shift": "Shift_L",
        "Control": "Control_L", " ": "space"}
MODIFIERS = {"Alt": Gdk.ModifierType.MOD1_MASK, "Shift": Gdk.ModifierType.SHIFT_MASK,
             "Control": Gdk.ModifierType.CONTROL_MASK}
PHASES = {"start": Gdk.EventType.TOUCH_BEGIN, "move": Gdk.EventType.TOUCH_UPDATE, "end": Gdk.EventType.TOUCH_END}


class TouchEvent(ctypes.Structure):
    """GdkEventTouch, whose sequence Python cannot set."""

    _fields_ = [("type", ctypes.c_int), ("window", ctypes.c_void_p), ("send_event", ctypes.c_int8),
                ("time", ctypes.c_uint32), ("x", ctypes.c_double), ("y", ctypes.c_double), ("axes", ctypes.c_void_p),
                ("state", ctypes.c_uint), ("sequence", ctypes.c_void_p)]


class Browser:
    def __init__(self, profile):
        manager = WebKit2.WebsiteDataManager(
            base_data_directory=os.path.join(profile, "data"), base_cache_directory=os.path.join(profile, "cache"))
        self.context = WebKit2.WebContext(website_data_manager=manager)
        self.context.set_preferred_languages(["en-US"])
        self.tabs = {}
        self.window = Gtk.Window(decorated=False, default_width=375, default_height=667)
        self.book = Gtk.Notebook(show_tabs=False, show_border=False)
        self.window.add(self.book)
        self.window.show_all()

    def handle(self, command):
        action = getattr(self, command.pop("do"))
        number = command.pop("number")
        tell = lambda **result: print(json.dumps({"number": number, **result}), flush=True)
        try:
            action(lambda answer=None: tell(answer=answer), lambda error: tell(error=str(error)), **command)
        except (GLib.Error, KeyError, ValueError) as error:
            tell(error=repr(error))

    def open(self, answer, _fail, tab, scripts):
        content = WebKit2.UserContentManager()
        content.register_script_message_handler("said")
        content.connect("script-message-received::said", lambda _, result: print(
            json.dumps({"tab": tab, "said": json.loads(result.get_js_value().to_string())}), flush=True))
        for text in (LISTEN, *scripts):
            content.add_script(WebKit2.UserScript.new(
                text, WebKit2.UserContentInjectedFrames.TOP_FRAME, WebKit2.UserScriptInjectionTime.START, None, None))
        view = WebKit2.WebView(web_context=self.context, user_content_manager=content)
        view.show()
        self.tabs[tab] = view
        self.book.append_page(view, None)
        self.show(answer, _fail, tab)

    def show(self, answer, _fail, tab):
        view = self.tabs[tab]
        self.book.set_current_page(self.book.page_num(view))
        view.grab_focus()
        answer()

    def close(self, answer, _fail, tab):
        view = self.tabs.pop(tab)
        view.connect("close", lambda _: (view.destroy(), answer()))
        view.try_close()

    def closeTabs(self, answer, _fail):
        for view in self.tabs.values():
            view.destroy()
        self.tabs.clear()
        answer()

    def goto(self, answer, fail, tab, address):
        self._load(answer, fail, tab, lambda view: view.load_uri(address))

    def reload(self, answer, fail, tab):
        self._load(answer, fail, tab, lambda view: view.reload())

    def _load(self, answer, fail, tab, begin, tries=2):
        view = self.tabs[tab]
        handlers = []

        def end(report, *what):
            for handler in handlers:
                view.disconnect(handler)
            report(*what)

        handlers.append(view.connect("load-changed", lambda _, event:
                                     event == WebKit2.LoadEvent.FINISHED and end(answer)))
        def failed(_view, _event, _address, error):
            # A process that ends late with the tabs of the test before takes a new tab's first page along.
            if tries > 1 and error.matches(WebKit2.NetworkError.quark(), WebKit2.NetworkError.CANCELLED):
                end(GLib.idle_add, self._load, answer, fail, tab, begin, tries - 1)
            else:
                end(fail, error.message)

        handlers.append(view.connect("load-failed", failed))
        begin(view)

    def evaluate(self, answer, fail, tab, script):
        def done(view, result):
            try:
                answer(json.loads(view.call_async_javascript_function_finish(result).to_string()))
            except GLib.Error as error:
                fail(error.message)

        self.tabs[tab].call_async_javascript_function(script, -1, None, None, None, None, done)

    def touch(self, answer, _fail, tab, phase, places):
        view = self.tabs[tab]
        for number, (x, y) in enumerate(places):
            event = Gdk.Event.new(PHASES[phase])
            raw = TouchEvent.from_address(hash(event))
            event.touch.window = view.get_window()
            event.touch.time = self._now()
            event.touch.x, event.touch.y = x, y
            event.set_device(self._seat().get_pointer())
            event.set_source_device(self._seat().get_pointer())
            raw.sequence = number + 1
            Gtk.main_do_event(event)
            raw.sequence = None
        answer()

    def key(self, answer, _fail, tab, name):
        *modifiers, last = name.split("+") if len(name) > 1 else [name]
        state = Gdk.ModifierType(0)
        for modifier in modifiers:
            state |= MODIFIERS[modifier]
        value = Gdk.keyval_from_name(KEYS.get(last, last)) if len(last) > 1 or last == " " else Gdk.unicode_to_keyval(ord(last))
        for kind in (Gdk.EventType.KEY_PRESS, Gdk.EventType.KEY_RELEASE):
            self._send_key(kind, value, state)
        answer()

    def _send_key(self, kind, value, state):
        event = Gdk.Event.new(kind)
        event.key.window = self.window.get_window()
        event.key.time = self._now()
        event.key.keyval = value
        event.key.state = state
        found, keys = Gdk.Keymap.get_for_display(Gdk.Display.get_default()).get_entries_for_keyval(value)
        if found:
            event.key.hardware_keycode = keys[0].keycode
            event.key.group = keys[0].group
        event.set_device(self._seat().get_keyboard())
        Gtk.main_do_event(event)

    def picture(self, answer, _fail, tab):
        view = self.tabs[tab]
        area = view.get_allocation()
        picture = Gdk.pixbuf_get_from_window(view.get_window(), 0, 0, area.width, area.height)
        _, png = picture.save_to_bufferv("png", [], [])
        answer(base64.b64encode(png).decode())

    def _seat(self):
        return Gdk.Display.get_default().get_default_seat()

    def _now(self):
        return GLib.get_monotonic_time() // 1000 & 0xFFFFFFFF


def read(browser, stream):
    line = stream.readline()
    if not line:
        Gtk.main_quit()
        return False
    browser.handle(json.loads(line))
    return True


browser = Browser(sys.argv[1])
GLib.io_add_watch(sys.stdin.fileno(), GLib.IO_IN | GLib.IO_HUP, lambda *_: read(browser, sys.stdin.buffer))
Gtk.main()
