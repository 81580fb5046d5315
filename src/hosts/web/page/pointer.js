/**
 * Makes fingers of what the browser reports: a touch screen's own, the mouse's left button (one finger, or
 * with Ctrl two that mirror each other about the point where the button went down), and a touchpad's pinch,
 * which comes as a wheel with Ctrl. Wheels scroll.
 */

/** In the order of HostTouch::Phase. */
const phases = { began: 0, moved: 1, ended: 2, cancelled: 3 };

const pixelsPerLine = 20;
/**
 * A touchpad does not tell where its fingers are. So they come to be on neighbouring rows, nearly wherever the
 * cursor is, by the time that they are known to pinch.
 */
const pinchStartDistance = 48;
/** A touchpad does not say when its pinch is over. */
const pinchPause = 250;
/** Of a pinch, however the events add up. */
const smallestScale = 0.01;
const largestScale = 100;

/** Whether an event is the editor's own affair. */
function isEditors(event) {
    return event.target instanceof Element && event.target.closest("input, textarea") !== null;
}

export class Pointer {
    #stage;
    #report;
    #scroll;
    #nextIdentifier = 1;
    /** By the browser's own number: the finger's. */
    #touches = new Map();
    #button = [];
    #buttonStart = null;
    /** Which of the two fingers the mouse leads: 1 the lower one, -1 the upper one, 0 not decided yet. */
    #buttonLeads = 0;
    #pinch = [];
    #pinchScale = 1;
    #pinchTimer = 0;
    #lastEnd = -Infinity;

    /** `report(fingers, seconds)` gets fingers with identifier, phase, x and y; `scroll(x, y, dx, dy)` points. */
    constructor(stage, report, scroll) {
        this.#stage = stage;
        this.#report = report;
        this.#scroll = scroll;
        const listen = (name, handler) => stage.addEventListener(name, handler, { passive: false });
        const on = (name, handler) => listen(name, (event) => isEditors(event) || handler(event));
        on("pointerdown", (event) => this.#down(event));
        on("pointermove", (event) => this.#move(event));
        on("pointerup", (event) => this.#up(event, phases.ended));
        on("pointercancel", (event) => this.#up(event, phases.cancelled));
        listen("wheel", (event) => this.#wheel(event));
        // How a browser on a desktop tells of a touchpad's pinch. On a phone the fingers themselves are told.
        on("gesturestart", (event) => this.#gesture(event));
        on("gesturechange", (event) => this.#gesture(event));
        on("gestureend", () => this.#finishPinch());
        // The browser's own gestures, menus and moving of the keyboard's focus.
        for (const name of ["touchstart", "touchmove", "mousedown", "contextmenu", "gesturestart", "gesturechange", "dragstart"]) {
            on(name, (event) => event.preventDefault());
        }
    }

    /** Whether a pointer was let go this short a time ago. */
    wasUsedWithin(milliseconds) {
        return performance.now() - this.#lastEnd < milliseconds;
    }

    /** The browser takes the fingers away. */
    cancel() {
        const fingers = [...this.#touches.values(), ...this.#button, ...this.#endPinch()];
        this.#touches.clear();
        this.#button = [];
        this.#send(fingers, phases.cancelled, performance.now());
    }

    /** Another window has the mouse now. */
    cancelMouse() {
        const fingers = this.#button;
        this.#button = [];
        this.#send(fingers, phases.cancelled, performance.now());
    }

    #send(fingers, phase, time) {
        if (fingers.length === 0) {
            return;
        }
        for (const finger of fingers) {
            finger.phase = phase;
        }
        this.#report(fingers, time / 1000);
    }

    #point(event) {
        const box = this.#stage.getBoundingClientRect();
        return { x: event.clientX - box.x, y: event.clientY - box.y };
    }

    #begin(points, time) {
        const fingers = points.map((point) => ({ identifier: this.#nextIdentifier++, ...point }));
        this.#send(fingers, phases.began, time);
        return fingers;
    }

    #down(event) {
        const point = this.#point(event);
        if (event.pointerType !== "mouse") {
            this.#capture(event);
            this.#touches.set(event.pointerId, this.#begin([point], event.timeStamp)[0]);
        } else if (event.button === 0 && this.#button.length === 0) {
            this.#capture(event);
            this.#buttonStart = point;
            this.#buttonLeads = 0;
            const points = event.ctrlKey ? [{ x: point.x, y: point.y + 0.5 }, { x: point.x, y: point.y - 0.5 }] : [point];
            this.#button = this.#begin(points, event.timeStamp);
        }
    }

    /** So that a finger that leaves the page is not lost. */
    #capture(event) {
        try {
            this.#stage.setPointerCapture(event.pointerId);
        } catch {
            // It has gone already.
        }
    }

    #move(event) {
        const leftButton = 1;
        if (event.pointerType === "mouse" && (event.buttons & leftButton) === 0) {
            // A button that is let go while another one is down is told as a move.
            this.#up(event, phases.ended);
            return;
        }
        this.#send(this.#moved(event), phases.moved, event.timeStamp);
    }

    /** The fingers that this pointer is, where it is now. */
    #moved(event) {
        const point = this.#point(event);
        if (event.pointerType !== "mouse") {
            const finger = this.#touches.get(event.pointerId);
            return finger ? [Object.assign(finger, point)] : [];
        }
        const points = this.#buttonPoints(point);
        return this.#button.map((finger, index) => Object.assign(finger, points[index]));
    }

    #buttonPoints(point) {
        if (this.#button.length < 2) {
            return [point];
        }
        // The mouse leads the finger on the side to which it moves first, so that the two never cross there.
        const start = this.#buttonStart;
        if (this.#buttonLeads === 0) {
            this.#buttonLeads = Math.sign(point.y - start.y);
        }
        const sign = this.#buttonLeads < 0 ? -1 : 1;
        const way = { x: sign * (point.x - start.x), y: sign * (point.y - start.y) + 0.5 };
        return [{ x: start.x + way.x, y: start.y + way.y }, { x: start.x - way.x, y: start.y - way.y }];
    }

    #up(event, phase) {
        const fingers = this.#moved(event);
        if (event.pointerType === "mouse") {
            this.#button = [];
        } else {
            this.#touches.delete(event.pointerId);
        }
        if (fingers.length > 0) {
            this.#lastEnd = performance.now();
        }
        this.#send(fingers, phase, event.timeStamp);
    }

    #wheel(event) {
        if (!event.ctrlKey && event.target instanceof HTMLTextAreaElement) {
            return;
        }
        event.preventDefault();
        const point = this.#point(event);
        if (event.ctrlKey) {
            this.#pinchBy(point, this.#pinchScale * Math.exp(-event.deltaY / 100), event.timeStamp);
            clearTimeout(this.#pinchTimer);
            this.#pinchTimer = setTimeout(() => this.#finishPinch(), pinchPause);
            return;
        }
        const unit = [1, pixelsPerLine, this.#stage.clientHeight][event.deltaMode];
        const [dx, dy] = event.shiftKey && event.deltaX === 0 ? [event.deltaY, 0] : [event.deltaX, event.deltaY];
        if (dx !== 0 || dy !== 0) {
            this.#scroll(point.x, point.y, -dx * unit, -dy * unit);
        }
    }

    #gesture(event) {
        if (this.#touches.size === 0) {
            this.#pinchBy(this.#point(event), event.scale, event.timeStamp);
        }
    }

    #pinchBy(point, scale, time) {
        this.#pinchScale = Math.min(Math.max(scale, smallestScale), largestScale);
        const points = (wide) => [1, -1].map((sign) => ({ x: point.x, y: point.y + sign * wide * pinchStartDistance / 2 }));
        if (this.#pinch.length === 0) {
            this.#pinch = this.#begin(points(1), time);
        }
        const moved = points(this.#pinchScale);
        this.#pinch.forEach((finger, index) => Object.assign(finger, moved[index]));
        this.#send(this.#pinch, phases.moved, time);
    }

    #finishPinch() {
        this.#send(this.#endPinch(), phases.ended, performance.now());
    }

    #endPinch() {
        clearTimeout(this.#pinchTimer);
        this.#pinchScale = 1;
        const fingers = this.#pinch;
        this.#pinch = [];
        return fingers;
    }
}
