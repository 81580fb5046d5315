import { spawn } from "node:child_process";
import { createInterface } from "node:readline";
import { fileURLToPath } from "node:url";

/** A screen reader: it knows of the browser what the machine's accessibility bus tells, and acts through that. */
export class Reader {
    static async start() {
        const reader = new Reader();
        const script = fileURLToPath(new URL("reader.py", import.meta.url));
        reader.#process = spawn("/usr/bin/python3", ["-W", "ignore", script], { stdio: ["pipe", "pipe", "inherit"] });
        reader.#answers = createInterface(reader.#process.stdout)[Symbol.asyncIterator]();
        await reader.things();
        return reader;
    }

    /** Does what a press of the thing with this name does. */
    press(name) {
        return this.#ask("press", name);
    }

    /** Asks for what else can be done with it. */
    showMenu(name) {
        return this.#ask("showMenu", name);
    }

    /** Takes the keys there. */
    focus(name) {
        return this.#ask("focus", name);
    }

    /** The name of what has the keys; null when nothing has. */
    focused() {
        return this.#ask("focused", null);
    }

    /** All that there is, as [role, name], in reading order. */
    things() {
        return this.#ask("things", null);
    }

    stop() {
        this.#process.kill();
    }

    async #ask(kind, name) {
        this.#process.stdin.write(`${JSON.stringify({ [kind]: name })}\n`);
        const { value } = await this.#answers.next();
        const { answer, error } = JSON.parse(value);
        if (error) {
            throw new Error(`${kind} ${name}: ${error}`);
        }
        return answer;
    }

    #process;
    #answers;
}
