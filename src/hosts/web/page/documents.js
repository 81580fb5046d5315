/** Gives texts and files to other programs, and takes them from there, with what the browser has for it. */

/** Longer files are no lists of notes. */
const longestFile = 64 * 1024 * 1024;

/** What is in a file; undefined when it cannot be read, or is none of ours. @param {File} file */
export function contents(file) {
    const bytes = file.size > longestFile ? Promise.reject(new Error("It is too long")) : file.arrayBuffer();
    return bytes.then((read) => new Uint8Array(read), () => undefined);
}

/** In the order of Documents::Shared. */
const shared = { handedOver: 0, copied: 1, failed: 2 };

export class Documents {
    /**
     * Resolves to what came of it. To be called while a press or a key is being handled: browsers want that.
     * @param {string} text
     */
    async share(text) {
        try {
            if (navigator.share) {
                await navigator.share({ text });
                return shared.handedOver;
            }
        } catch (error) {
            if (error.name === "AbortError") {
                return shared.handedOver;
            }
        }
        try {
            await navigator.clipboard.writeText(text);
            return shared.copied;
        } catch {
            return shared.failed;
        }
    }

    /** As a download. @param {string} name @param {Uint8Array<ArrayBuffer>} bytes */
    save(name, bytes) {
        const address = URL.createObjectURL(new Blob([bytes], { type: "application/octet-stream" }));
        const link = document.createElement("a");
        link.href = address;
        link.download = name;
        link.click();
        // Some browsers begin to read it later.
        setTimeout(() => URL.revokeObjectURL(address), 60_000);
    }

    /**
     * `answer` gets what is in the file that the user chose, nothing when there was none, or undefined when it
     * cannot be read.
     * @param {(bytes: Uint8Array | null | undefined) => void} answer
     */
    open(answer) {
        const input = document.createElement("input");
        input.type = "file";
        input.addEventListener("cancel", () => answer(null));
        input.addEventListener("change", async () => {
            const file = input.files?.[0];
            answer(file ? await contents(file) : null);
        });
        input.click();
    }
}

/**
 * Files that are dropped on the page go to the program: left to the browser, one would take the place of the page.
 * Text that is dragged inside an editor is the editor's affair.
 * `use` gets what is in each, or undefined when it cannot be read.
 * @param {(files: Promise<Uint8Array | undefined>[]) => void} use
 */
export function listenToFiles(use) {
    const hasFiles = (/** @type {DragEvent} */ event) => event.dataTransfer?.types.includes("Files") === true;
    addEventListener("dragover", (event) => hasFiles(event) && event.preventDefault());
    addEventListener("drop", (event) => {
        if (hasFiles(event)) {
            event.preventDefault();
            use(Array.from(event.dataTransfer?.files ?? [], contents));
        }
    });
}
