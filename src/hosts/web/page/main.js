/** Starts the program: gets the list for this tab, loads everything, and connects the browser with it. */

import { Back } from "./back.js";
import { Clock } from "./clock.js";
import { Editor } from "./editor.js";
import { Documents, listenToFiles } from "./documents.js";
import { Effects } from "./effects.js";
import { Files, loadResources } from "./files.js";
import { installWorker, isReloadForNewer } from "./install.js";
import { careForList } from "./keeping.js";
import { escapeKey, insertKey, listenToKeys } from "./keys.js";
import { Launches } from "./launch.js";
import * as locale from "./locale.js";
import { Menu } from "./menu.js";
import { Mirror } from "./mirror.js";
import { hideNotice, showNotice, showRemark } from "./notice.js";
import { part } from "./parts.js";
import { Painter } from "./painter.js";
import { Pictures } from "./pictures.js";
import { Pointer } from "./pointer.js";
import { loadModule, Program } from "./program.js";
import { Screen } from "./screen.js";
import { openStorage } from "./storage.js";
import { holdList } from "./tab.js";
import { Texts } from "./texts.js";
import { words } from "./words.js";

/** @import { Storage } from "./storage.js" */

const say = words(locale.languages());
const programName = document.title;

/** In the order of HostState. */
const states = { active: 0, inactive: 1, background: 2 };

function currentState() {
    if (document.hidden) {
        return states.background;
    }
    return document.hasFocus() ? states.active : states.inactive;
}

function reload() {
    location.reload();
}

/** Milliseconds after which it is said that the list has not come yet. */
const patience = 3000;

/** @param {() => void} onButton @param {string} [details] */
function showElsewhere(onButton, details) {
    showNotice({ title: say.elsewhere, text: say.elsewhereText, details, button: say.useHere, onButton });
}

/** This tab's hold of the list. What it has of it grows while the program is loaded, and may be lost at any time. */
class Hold {
    /** @type {Storage | null} */
    storage = null;
    /** @type {Program | null} */
    program = null;
    /** @type {Editor | null} */
    editor = null;
    isLost = false;

    /** Another tab has the list: what is typed here still goes into it, and nothing after that. */
    async letGo() {
        if (this.isLost) {
            return;
        }
        this.isLost = true;
        this.editor?.leave();
        showElsewhere(reload);
        this.storage?.tryAgain();
        await this.storage?.settled();
        if (this.storage?.isUnsaved) {
            showElsewhere(reload, say.lost);
        }
        this.storage?.close();
        this.program?.stop();
    }
}

/**
 * Tells the program what the browser has to tell.
 * @param {Program} program @param {{ screen: Screen, editor: Editor, mirror: Mirror, menu: Menu }} services
 */
function connect(program, { screen, editor, mirror, menu }) {
    const stage = part("stage");
    screen.onFrame = (everything) => program.call("frame", everything);
    screen.onChange = () => program.call("screenChanged");
    screen.onFrameDone = () => mirror.refreshSoon();
    editor.onChange = (text) => program.call("textChanged", program.sendText(text));
    editor.onReturn = () => program.call("textReturned");
    editor.onEnd = () => mirror.refreshNext();
    const pointer = new Pointer(stage, (...call) => program.call(...call));
    const open = (/** @type {Uint8Array | undefined} */ bytes) => Boolean(bytes
        ? program.call("documentDropped", program.send(bytes))
        : program.call("unreadableDocumentDropped"));
    const press = (/** @type {[number, boolean, boolean, boolean]} */ ...key) => {
        mirror.refreshSoon();
        return program.call("keyPressed", ...key);
    };
    listenToKeys(() => editor.isEditing || stage.inert, press);
    const back = new Back(() => {
        if (editor.isEditing) {
            editor.leave();
        } else if (!menu.close()) {
            press(escapeKey, false, false, false);
        }
    });
    const tellState = () => program.call("stateChanged", currentState());
    addEventListener("focus", tellState);
    addEventListener("blur", () => {
        pointer.cancelMouse();
        tellState();
    });
    const launches = new Launches(() => Boolean(press(insertKey, false, false, false)), open);
    listenToFiles((files) => launches.open(files));
    screen.painted.then(() => launches.listen());
    const leave = () => {
        pointer.cancel();
        editor.leave();
    };
    // Not every browser begins a write any more once the page goes.
    addEventListener("beforeunload", leave);
    document.addEventListener("visibilitychange", () => {
        if (document.hidden) {
            // The system may end a page that is out of sight without a word.
            leave();
        }
        tellState();
        // What is out of sight for long may lose its picture, and not every browser tells.
        if (!document.hidden) {
            screen.requestWholeFrame();
        }
    });
    tellState();
    mirror.isPointerBusy = () => pointer.wasUsedWithin(300);
    mirror.onScreen = (name, hasDialog) => {
        const isList = !name || name === programName;
        document.title = isList ? programName : `${name} – ${programName}`;
        pointer.allowPinches(!isList || hasDialog);
        back.watch(!isList || hasDialog || editor.isEditing || menu.isOpen);
    };
    screen.observe();
}

/** What the program is made of. It comes while the list is taken and read. */
function beginLoading() {
    const parts = { module: loadModule("velmorath.wasm"), resources: loadResources(locale.languages()) };
    for (const promise of Object.values(parts)) {
        // Told when it is needed.
        promise.catch(() => {});
    }
    return parts;
}

/** @param {Hold} hold @param {Storage} storage @param {ReturnType<typeof beginLoading>} parts */
async function run(hold, storage, parts) {
    const canvas = /** @type {HTMLCanvasElement} */ (part("screen"));
    const screen = new Screen(canvas);
    const texts = new Texts(screen, part("measure"));
    const pictures = new Pictures((decoded) => screen.holdFrames(decoded), () => screen.requestWholeFrame());
    const editor = new Editor(part("editors"), texts, screen);
    const services = {
        screen,
        texts,
        pictures,
        editor,
        painter: new Painter(canvas, texts, pictures),
        files: new Files(await parts.resources, storage, (written) => screen.holdFrames(written)),
        clock: new Clock(() => program.call("wake")),
        effects: new Effects(),
        documents: new Documents(),
        locale,
    };
    const program = await Program.load(await parts.module, services);
    if (hold.isLost) {
        return;
    }
    program.onFatal = (details) => {
        editor.end();
        const text = storage.isUnsaved ? say.lost : say.untouched;
        showNotice({ title: say.stopped, text, details, button: say.startAgain, onButton: reload });
    };
    const menu = new Menu(part("menu"));
    const mirror = new Mirror(part("mirror"), { program, isEditing: () => editor.isEditing, menu, menuName: say.actions });
    services.files.onDocumentSaved = () => {
        services.files.onDocumentSaved = () => {};
        careForList(say);
    };
    hold.program = program;
    hold.editor = editor;
    program.call("start");
    connect(program, { screen, editor, mirror, menu });
    screen.requestFrame();
    await screen.painted;
}

/** Resolves when the list is this tab's. @param {Hold} hold */
async function takeList(hold) {
    const tab = await holdList({ onTaken: () => hold.letGo() });
    if (tab.held) {
        return;
    }
    await new Promise((resolve) => showElsewhere(() => resolve(null)));
    await tab.takeOver();
    hideNotice();
}

/** The files. What takes long is said. @param {Hold} hold */
async function openFiles(hold) {
    const timer = setTimeout(() => {
        if (!hold.isLost) {
            showNotice({ title: say.slowStorage, text: say.slowStorageText, button: say.tryAgain, onButton: reload });
        }
    }, patience);
    const storage = await openStorage().finally(() => clearTimeout(timer));
    if (!hold.isLost) {
        hideNotice();
    }
    return storage;
}

/** What is not saved is never shown as if it were. @param {Hold} hold @param {Storage} storage */
function watchSaving(hold, storage) {
    let removeRemark = () => {};
    storage.onUnsaved = (isUnsaved) => {
        removeRemark();
        removeRemark = isUnsaved && !hold.isLost ? showRemark({ text: say.unsaved }) : () => {};
    };
    addEventListener("beforeunload", (event) => storage.isUnsaved && !hold.isLost && event.preventDefault());
    document.addEventListener("visibilitychange", () => document.hidden && storage.tryAgain());
}

async function start() {
    if (!part("notice").hidden) {
        // This browser is too old (supported.js).
        return;
    }
    document.documentElement.lang = say.language;
    if (await isReloadForNewer()) {
        location.replace("update.html");
        return;
    }
    const parts = beginLoading();
    const hold = new Hold();
    /** @type {Storage} */
    let storage;
    try {
        await takeList(hold);
        storage = await openFiles(hold);
        hold.storage = storage;
    } catch (error) {
        showNotice({ title: say.noStorage, text: say.noStorageText, details: error.message, button: say.tryAgain, onButton: reload });
        return;
    }
    if (hold.isLost) {
        storage.close();
        return;
    }
    storage.onLost = () => hold.letGo();
    watchSaving(hold, storage);
    try {
        await run(hold, storage, parts);
    } catch (error) {
        console.error(error);
        showNotice({ title: say.notLoaded, text: say.notLoadedText, details: error.message, button: say.tryAgain, onButton: reload });
        return;
    }
    document.getElementById("waiting")?.remove();
    installWorker();
}

start();
