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
    part("stage").inert = true;
    focused.focus();
}

/** Gives the page back to the list. */
export function hideNotice() {
    const notice = part("notice");
    notice.hidden = true;
    notice.replaceChildren();
    part("stage").inert = false;
}

/** @param {string} name @param {string} id @param {string} text */
function element(name, id, text) {
    const made = document.createElement(name);
    made.id = id;
    made.textContent = text;
    return made;
}
