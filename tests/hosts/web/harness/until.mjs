import { setTimeout as sleep } from "node:timers/promises";

/** Asks as often as it takes for the answer to be true. Any other one is told when it has been in vain. */
export async function until(what, ask) {
    const end = Date.now() + 15000;
    let answer;
    do {
        await sleep(30);
        answer = await ask();
    } while (answer !== true && Date.now() < end);
    if (answer !== true) {
        throw new Error(`Waited in vain until ${what}`, { cause: answer });
    }
}
