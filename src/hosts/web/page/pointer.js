/**
 * Tells what the browser reports of a touch screen, the mouse's left button, wheels and a touchpad's pinch, which
 * comes as a wheel with Ctrl. The program makes fingers of it (Fingers.h). Where a pinch means nothing to it, the
 * browser enlarges the page with it.
 */

/** In the order of HostTouch::Phase. */
const phases = { began: 0, moved: 1, ended: 2, cancelled: 3 };

const pixelsPerLine = 20;
/** A touchpad does not say when its pinch is over. */
const pinchPause = 250;

/** Whether an event means an element of the page, and nothing on the canvas. @param {Event} event */
function isElements(event) {
    return event.target instanceof Element && event.target.closest("input, textarea, .action, #menu") !== null;
}

/**
 * A screen reader's press comes with a mouse's button, too, before its click. A button that is really held has a
 * pressure: where none is measured, browsers tell a half.
 * @param {PointerEvent} event
 */
function isReaders(event) {
    return event.pointerType === "mouse" && event.pressure === 0;
}

/** @param {Event} event */
function seconds(event) {
    return event.timeStamp / 1000;
}

function now() {
    return performance.now() / 1000;
}

export class Pointer {
    #stage;
    #call;
    /** The touches that are down, by the browser's own number. */
    #touches = /** @type {Set<number>} */ (new Set());
    #isButtonDown = false;
    #gestureScale = 1;
    #pinchTimer = 0;
    #lastEnd = -Infinity;
    #isPinchFree = false;
    #areTouchesPointers = false;

    /**
     * `call(name, ...numbers)` calls the program.
     * @param {HTMLElement} stage @param {(name: string, ...values: (number | boolean)[]) => void} call
     */
    constructor(stage, call) {
        this.#stage = stage;
        this.#call = call;
        // On the window: Safari makes touches of a screen reader's press where an element listens to touches.
        /** @type {(name: string, handler: (event: any) => void) => void} */
        const listen = (name, handler) =>
            addEventListener(name, (event) => stage.contains(/** @type {Node} */ (event.target)) && handler(event), { passive: false });
        /** @type {(name: string, handler: (event: any) => void) => void} */
        const on = (name, handler) => listen(name, (event) => isElements(event) || handler(event));
        on("pointerdown", (event) => this.#down(event));
        on("pointermove", (event) => this.#move(event));
        on("pointerup", (event) => this.#up(event, phases.ended));
        on("pointercancel", (event) => this.#up(event, phases.cancelled));
        on("touchstart", (event) => this.#touchStarted(event));
        listen("wheel", (event) => this.#wheel(event));
        // How a browser on a desktop tells of a touchpad's pinch. On a phone the fingers themselves are told.
        on("gesturestart", (event) => this.#gesture(event));
        on("gesturechange", (event) => this.#gesture(event));
        on("gestureend", () => this.#endPinch());
        // The browser's own gestures, menus and moving of the keyboard's focus.
        // Once the browser scrolls or enlarges with them, fingers are no longer to be kept from it.
        for (const name of ["touchend", "mousedown", "contextmenu", "dragstart"]) {
            on(name, (event) => event.cancelable && event.preventDefault());
        }
        for (const name of ["touchstart", "touchmove", "gesturestart", "gesturechange"]) {
            on(name, (event) => event.cancelable && !this.#arePinchesBrowsers && event.preventDefault());
        }
        visualViewport?.addEventListener("resize", () => this.#setTouchAction());
        this.#setTouchAction();
    }

    /** Whether pinches mean nothing to the program. @param {boolean} areAllowed */
    allowPinches(areAllowed) {
        this.#isPinchFree = areAllowed;
        this.#setTouchAction();
    }

    /** What was enlarged can be made smaller again anywhere. */
    get #arePinchesBrowsers() {
        return this.#isPinchFree || (visualViewport?.scale ?? 1) > 1;
    }

    #setTouchAction() {
        this.#stage.style.touchAction = this.#arePinchesBrowsers ? "pinch-zoom" : "none";
    }

    /** Whether a pointer was let go this short a time ago. @param {number} milliseconds */
    wasUsedWithin(milliseconds) {
        return performance.now() - this.#lastEnd < milliseconds;
    }

    /** The browser takes the fingers away. */
    cancel() {
        this.#touches.clear();
        this.#isButtonDown = false;
        this.#forgetPinch();
        this.#call("fingersCancelled", now());
    }

    /** Another window has the mouse now. */
    cancelMouse() {
        this.#isButtonDown = false;
        this.#call("buttonCancelled", now());
    }

    /** @param {{ clientX: number, clientY: number }} place */
    #point({ clientX, clientY }) {
        const box = this.#stage.getBoundingClientRect();
        return [clientX - box.x, clientY - box.y];
    }

    /** @param {number} number @param {number} phase @param {{ clientX: number, clientY: number }} place @param {Event} event */
    #touch(number, phase, place, event) {
        if (phase === phases.began) {
            this.#touches.add(number);
        } else if (!this.#touches.has(number)) {
            return;
        }
        this.#call("touchChanged", number, phase, ...this.#point(place), seconds(event));
        if (phase !== phases.began && phase !== phases.moved) {
            this.#touches.delete(number);
            this.#lastEnd = performance.now();
        }
    }

    /**
     * WebKitGTK tells of fingers as touches alone, others before that as pointers. The element that is touched hears
     * of it to the end, even if it is in the page no longer.
     * @param {TouchEvent} event
     */
    #touchStarted(event) {
        if (this.#areTouchesPointers) {
            return;
        }
        for (const name of ["touchmove", "touchend", "touchcancel"]) {
            event.target?.addEventListener(name, this.#tellTouches);
        }
        this.#tellTouches(event);
    }

    #tellTouches = (/** @type {any} */ event) => {
        const phase = { touchstart: phases.began, touchmove: phases.moved, touchend: phases.ended }[String(event.type)];
        for (const touch of event.changedTouches) {
            this.#touch(touch.identifier, phase ?? phases.cancelled, touch, event);
        }
    };

    /** @param {PointerEvent} event */
    #down(event) {
        if (event.pointerType !== "mouse") {
            this.#areTouchesPointers = true;
            this.#capture(event);
            this.#touch(event.pointerId, phases.began, event, event);
        } else if (event.button === 0 && !this.#isButtonDown && !isReaders(event)) {
            this.#capture(event);
            this.#isButtonDown = true;
            this.#call("buttonPressed", ...this.#point(event), event.ctrlKey, seconds(event));
        }
    }

    /** So that a finger that leaves the page is not lost. @param {PointerEvent} event */
    #capture(event) {
        try {
            this.#stage.setPointerCapture(event.pointerId);
        } catch {
            // It has gone already.
        }
    }

    /** @param {PointerEvent} event */
    #move(event) {
        const leftButton = 1;
        if (event.pointerType !== "mouse") {
            this.#touch(event.pointerId, phases.moved, event, event);
        } else if ((event.buttons & leftButton) !== 0) {
            this.#call("buttonMoved", ...this.#point(event), seconds(event));
        } else {
            // A button that is let go while another one is down is told as a move.
            this.#up(event, phases.ended);
        }
    }

    /** @param {PointerEvent} event @param {number} phase */
    #up(event, phase) {
        if (event.pointerType !== "mouse") {
            this.#touch(event.pointerId, phase, event, event);
            return;
        }
        if (!this.#isButtonDown) {
            return;
        }
        this.#isButtonDown = false;
        if (phase === phases.cancelled) {
            this.#call("buttonCancelled", seconds(event));
        } else {
            this.#call("buttonReleased", ...this.#point(event), seconds(event));
        }
        this.#lastEnd = performance.now();
    }

    /** @param {WheelEvent} event */
    #wheel(event) {
        if (event.ctrlKey ? this.#arePinchesBrowsers : event.target instanceof HTMLTextAreaElement) {
            return;
        }
        event.preventDefault();
        if (event.ctrlKey) {
            this.#call("pinched", ...this.#point(event), Math.exp(-event.deltaY / 100), seconds(event));
            clearTimeout(this.#pinchTimer);
            this.#pinchTimer = setTimeout(() => this.#endPinch(), pinchPause);
            return;
        }
        const unit = [1, pixelsPerLine, this.#stage.clientHeight][event.deltaMode];
        const [dx, dy] = event.shiftKey && event.deltaX === 0 ? [event.deltaY, 0] : [event.deltaX, event.deltaY];
        if (dx !== 0 || dy !== 0) {
            this.#call("scrolled", ...this.#point(event), -dx * unit, -dy * unit);
        }
    }

    /** @param {MouseEvent & { scale: number }} event */
    #gesture(event) {
        if (this.#touches.size === 0 && !this.#arePinchesBrowsers) {
            this.#call("pinched", ...this.#point(event), event.scale / this.#gestureScale, seconds(event));
            this.#gestureScale = event.scale;
        }
    }

    #endPinch() {
        this.#forgetPinch();
        this.#call("pinchEnded", now());
    }

    #forgetPinch() {
        clearTimeout(this.#pinchTimer);
        this.#gestureScale = 1;
    }
}
