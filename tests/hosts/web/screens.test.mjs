import assert from "node:assert/strict";
import { test } from "node:test";
import { List } from "./harness/list.mjs";
import { Site } from "./harness/site.mjs";

const site = Site.forEachTest();

// Keeps in `calls` what the page asks of the machine, and answers for it.
function watchMachine() {
    globalThis.calls = [];
    AudioBufferSourceNode.prototype.start = function start() {
        calls.push(this.buffer.duration > 0 ? "sound" : "silence");
    };
    navigator.vibrate = (time) => calls.push(time > 0 ? "vibration" : "stillness");
    navigator.setAppBadge = async (number) => calls.push(`badge ${number}`);
    navigator.clearAppBadge = async () => calls.push("badge 0");
    Object.defineProperty(Notification, "permission", { get: () => "default" });
    Notification.requestPermission = async () => {
        calls.push(`may it notify? ${navigator.userActivation.isActive}`);
        return "default";
    };
    const { click } = HTMLAnchorElement.prototype;
    HTMLAnchorElement.prototype.click = function press() {
        if (this.protocol === "mailto:") {
            calls.push(this.href);
        } else {
            calls.push(this.rel);
            click.call(this);
        }
    };
}

// As a browser that has none of it.
function withoutMachine() {
    for (const name of ["AudioContext", "Notification", "visualViewport"]) {
        Object.defineProperty(globalThis, name, { value: undefined });
    }
    for (const name of ["vibrate", "setAppBadge", "clearAppBadge", "storage", "serviceWorker", "userAgentData"]) {
        Object.defineProperty(navigator, name, { value: undefined });
    }
}

async function takeCalls(list, wanted) {
    await list.tab.until(`${wanted} was called`, (count) => calls.length >= count, wanted.length);
    const found = await list.tab.evaluate(() => calls.splice(0));
    assert.deepEqual(found.sort(), wanted.sort());
}

async function openSettings(list) {
    await list.tapOn("Information");
    await list.tapOn("Settings");
}

test("the machine is asked for what is switched on", async () => {
    site.addScript(watchMachine);
    const list = await List.with(site, ["One", "Two", { text: "Three", completed: true }]);
    await takeCalls(list, ["badge 2"]);
    await list.tapOn("Information");
    await takeCalls(list, ["may it notify? true"]);
    await list.tapOn("Settings");
    await takeCalls(list, ["sound", "vibration"]);
    await list.tapOn("Icon badge, On");
    await takeCalls(list, ["sound", "vibration", "badge 0"]);
    await list.tapOn("Icon badge, Off");
    await takeCalls(list, ["sound", "vibration", "badge 2"]);
    await list.tapOn("Sound effect, On");
    await takeCalls(list, ["sound", "vibration"]);
    await list.tapOn("Vibration, On");
    await takeCalls(list, ["vibration"]);
    await list.tapOn("Icon badge, On");
    await takeCalls(list, ["badge 0"]);

    await list.tapOn("Close");
    await list.tapOn("Close");
    await list.swipe(0, 60, 350);
    await list.untilKept("x One", "Two", "x Three");
    await list.reload();
    await openSettings(list);
    const said = await list.said();
    assert.deepEqual(said.slice(2, 5), ["Icon badge, Off", "Sound effect, Off", "Vibration, Off"]);
    // Who gave no answer is not asked again.
    await takeCalls(list, []);
});

test("mail is handed over, pages open in a tab that knows nothing of this one", async () => {
    site.addScript(watchMachine);
    const list = await List.with(site, ["One"]);
    await list.tapOn("Information");
    const opening = list.tab.page.browser().waitForTarget((target) => /^https:.*privacy/.test(target.url()));
    await list.tapOn("Privacy policy");
    await opening;
    await list.tab.show();

    await list.tapOn("Contact Us");
    await list.tapOn("Message");
    await list.editing();
    await list.type(" Hello & co?\nI mean it");
    await list.tapOn("Send");
    const calls = await list.tab.evaluate(() => globalThis.calls);
    assert.ok(calls.includes("noopener noreferrer"));
    const mail = new URL(calls.find((call) => call.startsWith("mailto:")));
    assert.equal(mail.pathname, "hello@velmorath.example");
    assert.match(mail.searchParams.get("body"), /Velmorath.*Hello & co\?\r?\nI mean it$/s);
});

test("without any of the machine's services everything else works", async () => {
    site.addScript(withoutMachine);
    const list = await List.with(site, ["One"]);
    await list.add("Two");
    await list.swipe(0, 60, 350);
    await list.untilKept("x Two", "One");
    await openSettings(list);
    for (const name of ["Icon badge, On", "Sound effect, On", "Vibration, On", "Icon badge, Off"]) {
        await list.tapOn(name);
    }
    assert.equal((await list.settings()).soundEffect, "false");
    await list.tapOn("Close");
    await list.tapOn("Contact Us");
    await list.tapOn("Cancel");
    assert.equal((await list.said())[1], "Velmorath");
});

test("people read it in their language", async () => {
    site.addScript(() => Object.defineProperty(navigator, "languages", { value: ["it-IT"] }));
    const list = await List.with(site, [{ text: "Uno", completed: true }]);
    assert.equal(await list.tab.evaluate(() => document.documentElement.lang), "it");
    assert.deepEqual(await list.said(),
        ["Uno, Completata", "Riordina le note", "Aggiungi nota", "Condividi", "Informazioni"]);
    await list.add("Due");
    const today = new Intl.DateTimeFormat("it-IT", { dateStyle: "medium", timeZone: "UTC" }).format();
    assert.equal((await list.notes())[0].date, today);
});
