import assert from "node:assert/strict";
import { readFile } from "node:fs/promises";
import { test } from "node:test";
import { notesIn, paths } from "./harness/formats.mjs";
import { List } from "./harness/list.mjs";
import { Site } from "./harness/site.mjs";

const site = Site.forEachTest();

test("the same notes are the same bytes as on every other machine", async () => {
    const bytes = await readFile(new URL("../../model/many-notes.archive", import.meta.url));
    const notes = await notesIn(bytes);
    assert.equal(notes.length, 260);
    const list = await List.over(site, bytes);
    await list.open();
    for (const completed of [true, false]) {
        await list.untilSaid("Success writing to file!", () => list.swipe(0, 60, 350));
        assert.equal((await list.notes())[0].completed, completed);
        await list.atRest();
    }
    assert.ok(bytes.equals(await list.kept(paths.notes)));
});

test("a hundred thousand notes are opened, scrolled, and changed in their middle", async () => {
    const count = 100000;
    const notes = Array.from({ length: count }, (_, number) => `Note ${number}`);
    const list = await List.with(site, notes);
    await list.tab.flick([200, 560], [200, 100]);
    await list.atRest();
    assert.notEqual((await list.said())[0], "Note 0");
    // Far away from both ends, as with a wheel that turns very fast.
    await list.tab.page.mouse.move(200, 300);
    await list.tab.page.mouse.wheel({ deltaY: count / 2 * 60 });
    await list.atRest();
    const [place, y] = await list.tab.evaluate(() => {
        const item = document.querySelectorAll("#mirror [role=listitem]")[3];
        const { top, height } = item.getBoundingClientRect();
        return [Number(item.ariaPosInSet), top + height / 2];
    });
    assert.ok(place > 1000 && place < count - 1000);
    await list.untilSaid("Success writing to file!", () =>
        list.tab.drag([60, y], [350, y]));
    await list.atRest();
    const kept = await list.notes();
    assert.equal(kept.length, count);
    assert.deepEqual(kept.filter(({ completed }) => completed).map(({ text }) => text), [`Note ${place - 1}`]);
});
