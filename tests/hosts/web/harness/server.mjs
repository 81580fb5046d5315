import { spawn } from "node:child_process";
import { once } from "node:events";
import { cp, mkdtemp, rm, writeFile } from "node:fs/promises";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { fileURLToPath } from "node:url";

const program = fileURLToPath(new URL("../../../../tools/serve", import.meta.url));

/** The project's own server, with a copy of the page some folders below its root. */
export class Server {
    static async start() {
        const server = new Server();
        server.root = await mkdtemp(join(tmpdir(), "velmorath-server-"));
        server.folder = join(server.root, "some", "folder");
        await cp(process.env.VELMORATH_PAGE, server.folder, { recursive: true });
        // A page of the list's address that runs nothing by itself.
        await writeFile(join(server.folder, "blank.html"), "<!doctype html><link rel=icon href=data:,>");
        await server.resume();
        return server;
    }

    /** The page's address, the same for good. */
    get address() {
        return `http://127.0.0.1:${this.port}/some/folder/`;
    }

    async resume() {
        this.process = spawn(program, [this.root, String(this.port)], { stdio: ["ignore", "pipe", "ignore"] });
        this.#ended = once(this.process, "exit");
        const [line] = await once(this.process.stdout, "data");
        this.port = Number(/127\.0\.0\.1:(\d+)/.exec(line)[1]);
    }

    /** As if the network were gone. */
    async pause() {
        this.process.kill();
        await this.#ended;
    }

    async stop() {
        await this.pause();
        await rm(this.root, { recursive: true });
    }

    #ended;
    process = null;
    port = 0;
    root = "";
    folder = "";
}
