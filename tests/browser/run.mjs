// node run.mjs PROGRAM [WORD]: drives the page of tavrin-simulator in Debian's Chromium; with a word, only the scenarios that
// have it in their names. The last line counts what passed and failed.
import assert from "node:assert/strict";
import { chromium } from "playwright-core";
import { MacPage, MacServer } from "./mac_page.mjs";
import { scenarios } from "./scenarios.mjs";

const [program, word = ""] = process.argv.slice(2);
const secondsMax = 400; // for one scenario

async function play(scenario, browser) {
    let mac = null;
    const server = await MacServer.start(program);
    try {
        mac = await MacPage.open(browser, server);
        await scenario({ mac, browser, program });
        assert.deepEqual(mac.faults, [], "the page had no fault and loaded nothing from elsewhere");
    } finally {
        for (const context of browser.contexts()) await context.close();
        await (mac?.server ?? server).remove();
    }
}

function limited(work) {
    let timer;
    const late = new Promise((_, reject) => {
        timer = setTimeout(() => reject(new Error(`still running after ${secondsMax} s`)), secondsMax * 1000);
    });
    return Promise.race([work, late]).finally(() => clearTimeout(timer));
}

const browser = await chromium.launch({
    executablePath: process.env.CHROMIUM ?? "/usr/bin/chromium",
    args: ["--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run", "--disable-background-networking",
        "--disable-component-update", "--disable-sync"],
});
let [passed, failed] = [0, 0];
for (const [name, scenario] of Object.entries(scenarios).filter(([title]) => title.includes(word))) {
    const began = Date.now();
    try {
        await limited(play(scenario, browser));
        passed += 1;
        console.log(`ok      ${name} (${Date.now() - began} ms)`);
    } catch (fault) {
        failed += 1;
        console.log(`FAILED  ${name} (${Date.now() - began} ms)\n${fault.stack}`);
    }
}
await browser.close();
console.log(`${passed} passed, ${failed} failed`);
process.exitCode = failed === 0 && passed > 0 ? 0 : 1;
