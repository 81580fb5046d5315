/**
 * What is on the canvas, once more as elements for those who do not see it. A screen reader walks over them
 * and presses them; nobody sees them, and fingers and mice on them are those on the canvas.
 */

/** @import { Menu } from "./menu.js" */
/** @import { Program } from "./program.js" */

/** @typedef {keyof typeof kinds} Role */
/** @typedef {[left: number, top: number, width: number, height: number]} Frame */
/**
 * A thing on the screen, as the program tells it (AccessibilityText.h).
 * @typedef {{
 *     id: number, role: Role, label: string, value: string, frame?: Frame, actions: string[], children: Item[],
 *     focused?: boolean, focusable?: boolean, pressable?: boolean, selected?: boolean, toggle?: boolean,
 *     index: number, count: number
 * }} Item
 */

/** The element that stands for a thing of this kind, and its ARIA role where the element has none. */
const kinds = {
    group: ["div", "group"],
    screen: ["div", "group"],
    dialog: ["div", "alertdialog"],
    heading: ["div", "heading"],
    text: ["div", null],
    image: ["div", "img"],
    button: ["div", null],
    option: ["button", "radio"],
    list: ["div", "list"],
    listItem: ["div", "listitem"],
    textField: ["div", "textbox"],
    textArea: ["div", "textbox"],
    progress: ["div", "progressbar"],
};

/**
 * What is read and pressed in those that are not that themselves. An item that can be pressed holds a button. A list
 * owns nothing but its items, a button and a picture nothing else to press: the buttons of their actions stand
 * beside them.
 */
/** @type {Partial<Record<Role, string>>} */
const inner = { listItem: "button", list: "div", button: "button", image: "div" };

/**
 * Set or, for nothing, taken away; untouched when it is right: screen readers hear of every change.
 * @param {Element} element
 * @param {string} name
 * @param {string | number | boolean | null | undefined} value
 */
function setAttribute(element, name, value) {
    if (value === null || value === undefined || value === false) {
        element.removeAttribute(name);
    } else if (element.getAttribute(name) !== String(value)) {
        element.setAttribute(name, String(value));
    }
}

/** @type {Frame} */
const nowhere = [0, 0, 0, 0];

/**
 * Both on the screen; elements lie in their parents.
 * @param {HTMLElement} element @param {Frame} frame @param {Frame} parentFrame
 */
function setFrame(element, [left, top, width, height], [parentLeft, parentTop]) {
    const { style } = element;
    style.left = `${left - parentLeft}px`;
    style.top = `${top - parentTop}px`;
    style.width = `${width}px`;
    style.height = `${height}px`;
}

/** @param {Element} parent @param {ChildNode[]} children */
function setChildren(parent, children) {
    children.forEach((child, index) => {
        if (parent.childNodes[index] !== child) {
            parent.insertBefore(child, parent.childNodes[index] ?? null);
        }
    });
    while (parent.childNodes.length > children.length) {
        parent.lastChild?.remove();
    }
}

/**
 * One thing: its element, what in it is read and pressed, and a button for each of its further actions. An item has
 * one for all of them, which opens a menu: lists are long.
 */
class Mirrored {
    /** The program's keys can go there. */
    isFocusable = false;
    /** What can be done with it beside pressing it. @type {string[]} */
    actions = [];
    #words = document.createTextNode("");
    /** @type {Map<string, HTMLButtonElement>} */
    #buttons = new Map();
    #told;

    /**
     * `told` hears that it is pressed, that an action is chosen by its name, and that the menu is asked for.
     * @param {Role} role
     * @param {{ press: (event: MouseEvent) => void, perform: (action: string) => void, openMenu: () => void }} told
     */
    constructor(role, told) {
        const [tag, ariaRole] = /** @type {[string, string | null]} */ (kinds[role]);
        this.role = role;
        this.element = document.createElement(tag);
        const target = inner[role];
        this.target = target ? document.createElement(target) : this.element;
        this.target.classList.toggle("whole", target !== undefined);
        this.#told = told;
        setAttribute(role === "listItem" ? this.element : this.target, "role", ariaRole);
        this.target.append(this.#words);
        this.#onPress(this.target, told.press);
        this.element.addEventListener("contextmenu", (event) => {
            const isPointers = event.button === 2 || event.ctrlKey;
            if (role === "listItem" && this.actions.length > 0 && !isPointers) {
                told.openMenu();
            }
        });
    }

    /** @param {HTMLElement} element @param {(event: MouseEvent) => void} press */
    #onPress(element, press) {
        element.addEventListener("click", (event) => {
            event.stopPropagation();
            press(event);
        });
        element.addEventListener("keydown", (event) => {
            // Where the program's keys cannot go, Enter and Space are the browser's and press the element.
            // What holds the element that was meant has no say in it.
            const isMeant = event.target === element;
            const hasKeys = element === this.target && this.isFocusable;
            if (isMeant && !hasKeys && (event.key === "Enter" || event.key === " ")) {
                event.stopPropagation();
            }
        });
    }

    /** What it says, as its own text. @param {string} text */
    say(text) {
        if (this.#words.data !== text) {
            this.#words.data = text;
        }
    }

    /** @param {ChildNode[]} children @param {string} label @param {string} menuName */
    setChildren(children, label, menuName) {
        const isItem = this.role === "listItem";
        const buttons = this.#actionButtons(isItem && this.actions.length > 0 ? [menuName] : this.actions, label);
        if (this.role === "list") {
            setChildren(this.target, [this.#words, ...children]);
            setChildren(this.element, [this.target, ...buttons]);
        } else {
            const own = this.target === this.element ? this.#words : this.target;
            setChildren(this.element, [own, ...children, ...buttons]);
        }
    }

    /**
     * A button stays what it is, or goes: pressed once more, it does the same or nothing.
     * @param {string[]} names @param {string} label
     */
    #actionButtons(names, label) {
        const before = this.#buttons;
        this.#buttons = new Map(names.map((name) => [name, before.get(name) ?? this.#makeButton(name)]));
        return [...this.#buttons].map(([name, button]) => {
            // What a button can do besides says itself to what.
            setAttribute(button, "aria-label", label && this.role !== "button" ? `${name}: ${label}` : name);
            return button;
        });
    }

    /** @param {string} name */
    #makeButton(name) {
        const button = document.createElement("button");
        button.tabIndex = -1;
        button.className = "action";
        button.textContent = name;
        if (this.role === "listItem") {
            button.setAttribute("aria-haspopup", "menu");
        }
        this.#onPress(button, () => this.role === "listItem" ? this.#told.openMenu() : this.#told.perform(name));
        return button;
    }
}

export class Mirror {
    #root;
    #program;
    #isEditing;
    #menu;
    #menuName;
    #timer = 0;
    #waitingSince = 0;
    /** @type {Map<number, Mirrored>} */
    #shown = new Map();
    /** @type {WeakMap<EventTarget, number>} */
    #identifiers = new WeakMap();
    #focused = 0;
    /** Whether clicks come from a pointer just now, and not from a screen reader. */
    isPointerBusy = () => false;
    /** What is shown now: the name of the screen on top, and whether a dialog lies over it. */
    onScreen = (/** @type {string} */ _name, /** @type {boolean} */ _hasDialog) => {};

    /**
     * `menuName` is what the buttons say that open the menu.
     * @param {HTMLElement} root
     * @param {{ program: Program, isEditing: () => boolean, menu: Menu, menuName: string }} services
     */
    constructor(root, { program, isEditing, menu, menuName }) {
        this.#root = root;
        this.#program = program;
        this.#isEditing = isEditing;
        this.#menu = menu;
        this.#menuName = menuName;
        root.addEventListener("focusin", (event) => event.target && this.#focusCame(event.target));
    }

    /** Looks as soon as what goes on now is done: what had the focus has gone. */
    refreshNext() {
        clearTimeout(this.#timer);
        this.#waitingSince = -Infinity;
        this.#timer = setTimeout(() => this.#refresh());
    }

    /** The screen may have changed: looks when it has come to rest, or now and then while it does not. */
    refreshSoon() {
        const rest = 100;
        const longestWait = 1000;
        const now = performance.now();
        if (this.#timer === 0) {
            this.#waitingSince = now;
        } else if (now - this.#waitingSince > longestWait) {
            return;
        }
        clearTimeout(this.#timer);
        this.#timer = setTimeout(() => this.#refresh(), rest);
    }

    #refresh() {
        this.#timer = 0;
        const start = this.#program.call("accessibilityTree");
        const length = this.#program.call("outgoingLength");
        if (this.#program.hasStopped) {
            return;
        }
        const tree = JSON.parse(this.#program.text(start, length));
        const before = this.#shown;
        this.#shown = new Map();
        let focused = 0;
        /** @type {(parent: Item) => HTMLElement[]} */
        const place = (parent) => parent.children.map((item) => {
            const mirrored = this.#find(before, item);
            this.#shown.set(item.id, mirrored);
            if (item.focused) {
                focused = item.id;
            }
            this.#update(mirrored, item, place(item));
            setFrame(mirrored.element, item.frame ?? nowhere, parent.frame ?? nowhere);
            if (item.index >= 0) {
                setAttribute(mirrored.element, "aria-posinset", item.index + 1);
                setAttribute(mirrored.element, "aria-setsize", parent.count);
            }
            return mirrored.element;
        });
        setChildren(this.#root, place(tree));
        const screens = tree.children.filter((/** @type {Item} */ { role }) => role === "screen");
        this.onScreen(screens.at(-1)?.label ?? "", tree.children.at(-1)?.role === "dialog");
        this.#moveFocus(focused);
    }

    /** @param {Map<number, Mirrored>} before @param {Item} item */
    #find(before, { id, role }) {
        const known = before.get(id);
        if (known?.role === role) {
            return known;
        }
        const mirrored = new Mirrored(role, {
            press: (event) => this.#press(id, event),
            perform: (action) => this.#perform(id, action),
            openMenu: () => this.#openMenu(id),
        });
        this.#identifiers.set(mirrored.element, id);
        this.#identifiers.set(mirrored.target, id);
        return mirrored;
    }

    /** @param {number} id @param {MouseEvent} event */
    #press(id, event) {
        // A real finger or mouse was told to the program as such.
        if (event.detail > 0 && this.isPointerBusy()) {
            return;
        }
        // Where the keys are, everything that opens comes back to.
        this.#program.call("focusElement", id);
        this.#program.call("pressElement", id);
        this.refreshSoon();
    }

    /** @param {number} id @param {string} action */
    #perform(id, action) {
        const place = this.#shown.get(id)?.actions.indexOf(action) ?? -1;
        if (place >= 0) {
            this.#program.call("performElementAction", id, place);
            this.refreshSoon();
        }
    }

    /** @param {number} id */
    #openMenu(id) {
        const { element, target, actions } = /** @type {Mirrored} */ (this.#shown.get(id));
        this.#menu.open({
            label: target.textContent ?? "",
            names: actions,
            below: element.getBoundingClientRect(),
            onChoice: (action) => this.#perform(id, action),
            onClose: () => {
                target.focus({ preventScroll: true });
                this.refreshSoon();
            },
        });
        this.refreshSoon();
    }

    /** @param {Mirrored} mirrored @param {Item} item @param {HTMLElement[]} children */
    #update(mirrored, item, children) {
        const { target } = mirrored;
        this.#name(mirrored, item);
        const isButton = target.tagName === "BUTTON";
        mirrored.isFocusable = item.focusable === true;
        setAttribute(target, "tabindex", isButton || item.pressable || item.focusable || item.focused ? -1 : null);
        setAttribute(target, "aria-disabled", isButton && !item.pressable);
        mirrored.actions = item.actions;
        mirrored.setChildren(children, item.label, this.#menuName);
    }

    /** Says what it is and in which state. @param {Mirrored} mirrored @param {Item} item */
    #name(mirrored, { role, label, value, selected, toggle, children }) {
        const { target } = mirrored;
        const said = [label, value].filter(Boolean).join(", ");
        switch (role) {
        case "group":
        case "screen":
        case "dialog":
        case "list":
            setAttribute(target, "aria-label", label || null);
            if (role === "dialog") {
                setAttribute(target, "aria-modal", "true");
            } else if (role === "list") {
                setAttribute(target, "role", children[0]?.role === "option" ? "radiogroup" : "list");
            }
            break;
        case "image":
        case "progress":
            setAttribute(target, "aria-label", said);
            break;
        case "textField":
        case "textArea":
            setAttribute(target, "aria-label", label);
            setAttribute(target, "aria-multiline", role === "textArea");
            mirrored.say(value);
            break;
        case "option":
            setAttribute(target, "aria-checked", selected ? "true" : "false");
            mirrored.say(said);
            break;
        default:
            if (role === "heading") {
                setAttribute(target, "aria-level", "1");
            } else if (role !== "text") {
                // Where there is a value, it says whether it is on.
                setAttribute(target, "aria-pressed", toggle && !value ? String(selected === true) : null);
                setAttribute(target, "aria-current", selected && !toggle);
            }
            mirrored.say(said);
        }
    }

    /** The browser's focus goes where the program's keys go, so that it is read out. @param {number} id */
    #moveFocus(id) {
        if (id === this.#focused && document.activeElement !== document.body) {
            return;
        }
        this.#focused = id;
        if (id !== 0 && !this.#isEditing() && !this.#menu.isOpen) {
            this.#shown.get(id)?.target.focus({ preventScroll: true });
        }
    }

    /** A screen reader put the focus somewhere. @param {EventTarget} target */
    #focusCame(target) {
        const id = this.#identifiers.get(target);
        if (id !== undefined && id !== this.#focused && this.#program.call("focusElement", id)) {
            this.#focused = id;
        }
    }
}
