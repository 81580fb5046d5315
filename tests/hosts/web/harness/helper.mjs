import { spawn } from "node:child_process";
import { once } from "node:events";
import { createInterface } from "node:readline";
import { fileURLToPath } from "node:url";

/**
 * A Python program of this folder, which does what it is asked: a line of JSON for each request, {number, do, ...}, and
 * one for its answer, {number, answer} or {number, error}. Other lines are what it says by itself.
 */
export class Helper {
    constructor(name, { args = [], env = {}, onSaid } = {}) {
        const program = fileURLToPath(new URL(name, import.meta.url));
        this.#process = spawn("/usr/bin/python3", ["-W", "ignore", program, ...args], {
            env: { ...process.env, ...env },
            stdio: ["pipe", "pipe", "inherit"],
            detached: true,
        });
        this.#gone = once(this.#process, "exit").then(() =>
            this.#waiting.forEach(({ reject }) => reject(new Error(`${name} has gone`))));
        createInterface(this.#process.stdout).on("line", (line) => {
            const { number, answer, error, ...said } = JSON.parse(line);
            if (!number) {
                onSaid(said);
                return;
            }
            const { resolve, reject } = this.#waiting.get(number);
            this.#waiting.delete(number);
            if (error) {
                reject(new Error(error));
            } else {
                resolve(answer);
            }
        });
    }

    ask(what, values) {
        const number = ++this.#lastNumber;
        return new Promise((resolve, reject) => {
            this.#waiting.set(number, { resolve, reject });
            this.#process.stdin.write(`${JSON.stringify({ number, do: what, ...values })}\n`);
        });
    }

    async stop() {
        this.#process.stdin.end();
        await this.#gone;
    }

    /** With all that it has started, without a chance to put anything in order. */
    async kill() {
        process.kill(-this.#process.pid, "SIGKILL");
        await this.#gone;
    }

    #process;
    #gone;
    #lastNumber = 0;
    #waiting = new Map();
}
