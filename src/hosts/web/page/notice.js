import { part } from "./parts.js";

/**
 * Fills the page with a notice, in place of the list or of an earlier notice. All texts are plain text.
 * `details` is small print; `onButton` is called at each press of the button. Both, and the button, may be
 * left out.
 * @param {{ title: string, text: string, details?: string, button?: string, onButton?: () => void }} notice
 */
export function showNotice({ title, text, details, button, onButton }) {
    const box = document.createElement("div");
    box.setAttribute("role", "alertdialog");
    box.setAttribute("aria-modal", "true");
    box.setAttribute("aria-labelledby", "notice-title");
    box.setAttribute("aria-describedby", "notice-text");
    box.tabIndex = -1;
    box.append(element("h1", "notice-title", title), element("p", "notice-text", text));
    if (details) {
        box.append(element("p", "notice-details", details));
    }
    const focused = button ? element("button", "notice-button", button) : box;
    if (button) {
        focused.setAttribute("type", "button");
        focused.addEventListener("click", () => onButton?.());
        box.append(focused);
    }
    const notice = part("notice");
    document.getElementById("waiting")?.remove();
    notice.replaceChildren(box);
    notice.hidden = false;
    part("remarks").hidden = true;
    part("stage").inert = true;
    focused.focus();
}

/** Gives the page back to the list. */
export function hideNotice() {
    const notice = part("notice");
    notice.hidden = true;
    notice.replaceChildren();
    part("remarks").hidden = false;
    part("stage").inert = false;
}

/**
 * Says something below the list, which stays in use. With a button it stays until that is pressed; without one it is
 * urgent. Returns what takes it away.
 * @param {{ text: string, button?: string, onButton?: () => void }} remark
 */
export function showRemark({ text, button, onButton }) {
    const box = document.createElement("div");
    box.setAttribute("role", button ? "status" : "alert");
    const words = document.createElement("p");
    words.textContent = text;
    box.append(words);
    const remove = () => {
        box.remove();
        fitStage();
    };
    if (button) {
        const press = document.createElement("button");
        press.type = "button";
        press.textContent = button;
        press.addEventListener("click", () => {
            remove();
            onButton?.();
        });
        box.append(press);
    }
    part("remarks").append(box);
    fitStage();
    return remove;
}

/** The list ends where the remarks begin. */
function fitStage() {
    document.body.style.setProperty("--remarks-height", `${part("remarks").offsetHeight}px`);
}
addEventListener("resize", fitStage);

/** @param {string} name @param {string} id @param {string} text */
function element(name, id, text) {
    const made = document.createElement(name);
    made.id = id;
    made.textContent = text;
    return made;
}
